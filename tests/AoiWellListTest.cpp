// Areas of interest, the project-area update, well lists and section well lists.
#include <tuple>

#include "TestSupport.h"
#include "petrodb/project/IAOIData.h"
#include "petrodb/project/ISectionWellListData.h"
#include "petrodb/project/IUpdateProjectArea.h"
#include "petrodb/project/IWellListData.h"

namespace petrodb::test {
namespace {

using Texts = std::vector<std::string>;

class AoiTest : public ObjectTest<IAOIData, "IAOIData"> {
 protected:
  static AOIRecord Area(const char* name, double x0 = 1, double x1 = 2, double y0 = 3, double y1 = 4) {
    return AOIRecord{name, "ignored", "desc", x0, x1, y0, y1};
  }
};

TEST_F(AoiTest, NamesAreLoweredByAsciiOnlyAndMoveBetweenProjects) {
  ASSERT_TRUE(object_->SaveAOI("P1", Area("Zone A")));
  ASSERT_TRUE(object_->SaveAOI("P1", Area("区块B")));
  EXPECT_EQ(Query("select AOIName from b_aoi_data order by AOIName"), (Texts{"zone a", "区块b"}));
  EXPECT_EQ(Query("select ProjectName from b_aoi_data"), (Texts{"P1", "P1"}));  // the argument, not the field
  sql_.clear();
  EXPECT_TRUE(object_->IsAOIExist("P1", "ZONE A"));
  EXPECT_EQ(sql_.texts().back(),
            jet() ? "select AOIName from b_aoi_data where lcase(AOIName)='zone a' and \t\t\tProjectName = 'P1'"
                  : "select AOIName from b_aoi_data where lower(AOIName)='zone a' and \t\t\tProjectName='P1'");
  EXPECT_FALSE(object_->IsAOIExist("P2", "Zone A"));

  AOIRecord r;
  ASSERT_TRUE(object_->LoadAOI("P1", "ZONE a", r));
  EXPECT_EQ(std::tie(r.AOIName, r.ProjectName, r.Description, r.Xmax, r.Ymax),
            std::make_tuple("zone a", "P1", "desc", 2.0, 4.0));

  // Saving the name in another project moves it.
  ASSERT_TRUE(object_->SaveAOI("P2", Area("zone a", 5, 6, 7, 8)));
  EXPECT_EQ(Query("select ProjectName from b_aoi_data where AOIName = 'zone a'"), Texts{"P2"});
  Texts names;
  ASSERT_TRUE(object_->GetAOINames("P1", names));  // all projects
  EXPECT_EQ(names.size(), 2u);
  std::vector<AOIRecord> list;
  ASSERT_TRUE(object_->GetAOIList("P2", list));
  ASSERT_EQ(list.size(), 1u);
  EXPECT_EQ(list[0].Xmin, 5);

  // The delete cannot hold the name, so the save fails before it writes.
  sql_.clear();
  EXPECT_FALSE(object_->SaveAOI("P1", Area("it's")));
  EXPECT_EQ(Query("select count(*) from b_aoi_data"), Texts{"2"});
  EXPECT_TRUE(sql_.texts("SaveData").empty());
}

TEST_F(AoiTest, GlobalAreaFollowsTheProjectExtent) {
  ProjectRecord project{.SNmin = 30, .SNmax = 40, .EWmin = 10, .EWmax = 20};
  ASSERT_TRUE(object_->SaveGlobalAOI("P1", project));
  AOIRecord r;
  ASSERT_TRUE(object_->LoadAOI("P1", "Global", r));
  EXPECT_EQ(std::tie(r.AOIName, r.Xmin, r.Xmax, r.Ymin, r.Ymax), std::make_tuple("global", 10.0, 20.0, 30.0, 40.0));

  auto area = Make<IUpdateProjectArea>("IUpdateProjectArea");
  project.EWmax = 25.5;
  sql_.clear();
  ASSERT_TRUE(area->UpdateProjectArea("P1", project));
  EXPECT_EQ(sql_.texts(), Texts{std::string("update b_aoi_data set Xmin = 10.000000, Xmax = 25.500000, Ymin= "
                                            "30.000000, Ymax = 40.000000 where ") +
                                (jet() ? "lcase" : "lower") + "(AOIName) = 'global' and ProjectName = 'P1'"});
  EXPECT_EQ(Query("select Xmax from b_aoi_data"), Texts{"25.5"});
}

TEST_F(AoiTest, DeleteRefusesOnlyTheSharedEmptyName) {
  ASSERT_TRUE(object_->SaveAOI("P1", Area("Zone A")));
  EXPECT_FALSE(object_->SaveAOI("P1", Area("")));
  EXPECT_FALSE(object_->DeleteAOI(kNoAOIName));
  const std::string empty;
  EXPECT_TRUE(object_->DeleteAOI(empty.c_str()));
  EXPECT_TRUE(object_->DeleteAOI("ZONE A"));
  EXPECT_TRUE(Query("select AOIName from b_aoi_data").empty());
  Exec("drop table b_aoi_data");
  EXPECT_FALSE(object_->SaveAOI("P1", Area("x")));
  EXPECT_FALSE(object_->DeleteAOI("x"));
  EXPECT_FALSE(object_->IsAOIExist("P1", "x"));
  EXPECT_EQ(messages_.texts(), (Texts{"AOI区域名不能为空！", "AOI区域名不能为空！", "AOI区域表为空！", "AOI区域表为空！"}));
}

class WellListTest : public ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    lists_ = Make<IWellListData>("IWellListData");
    sections_ = Make<ISectionWellListData>("ISectionWellListData");
    ASSERT_TRUE(lists_ && sections_);
  }
  std::unique_ptr<IWellListData> lists_;
  std::unique_ptr<ISectionWellListData> sections_;
};

TEST_F(WellListTest, ListsAreReplacedAndAppendedOnLoad) {
  ASSERT_TRUE(lists_->SaveWellList(WellListRecord{"north", {{"W1", 1}, {"W2", 2}}}));
  ASSERT_TRUE(lists_->SaveWellList(WellListRecord{"Alpha", {{"W9", 1}}}));
  ASSERT_TRUE(lists_->SaveWellList(WellListRecord{"north", {{"W3", 1}, {"W1", 2}}}));
  Texts names{"stale"};
  ASSERT_TRUE(lists_->GetWellListNames(names));
  EXPECT_EQ(names, (Texts{"Alpha", "north"}));

  WellListRecord r{"", {{"kept", 0}}};
  ASSERT_TRUE(lists_->LoadWellList("north", r));
  EXPECT_EQ(r.WellListName, "north");
  ASSERT_EQ(r.Wells.size(), 3u);
  EXPECT_EQ(r.Wells[0].WellID, "kept");

  // An empty list removes the list.
  ASSERT_TRUE(lists_->SaveWellList(WellListRecord{"north", {}}));
  EXPECT_FALSE(lists_->IsWellListExist("north"));
  EXPECT_TRUE(lists_->IsWellListExist("alpha"));
  EXPECT_TRUE(lists_->DeleteWellList("Alpha"));
  EXPECT_FALSE(lists_->GetWellListNames(names));
  EXPECT_FALSE(lists_->SaveWellList(WellListRecord{}));
  EXPECT_FALSE(lists_->DeleteWellList(""));
  EXPECT_EQ(messages_.texts(), (Texts{"井列表名称不能为空！", "井列表名称不能为空！"}));
}

TEST_F(WellListTest, SectionListsKeepTheirSpelling) {
  ASSERT_TRUE(sections_->SaveSectionWellList(SectionWellListRecord{"S2", "W1,W2,W3"}));
  sql_.clear();
  ASSERT_TRUE(sections_->SaveSectionWellLists({{"S1", "A,B"}, {"S2", "C"}}));
  EXPECT_EQ(sql_.texts("ExecuteSQL"), (Texts{"delete from  b_sectionwelllist_data where Setction_Name='S1'",
                                      "delete from  b_sectionwelllist_data where Setction_Name='S2'"}));
  Texts names{"stale"};  // lists replace what the vector held
  ASSERT_TRUE(sections_->GetSectionNames(names));
  EXPECT_EQ(names, (Texts{"S1", "S2"}));
  SectionWellListRecord one;
  ASSERT_TRUE(sections_->LoadSectionWellList("S2", one));
  EXPECT_EQ(one.Section_WellList, "C");
  EXPECT_TRUE(sections_->DeleteSectionWellList("S1"));
  EXPECT_FALSE(sections_->LoadSectionWellList("S1", one));
  EXPECT_TRUE(sections_->DeleteAllSectionWellLists());
  EXPECT_FALSE(sections_->GetSectionNames(names));

  EXPECT_FALSE(sections_->SaveSectionWellList(SectionWellListRecord{"", "x"}));
  EXPECT_FALSE(sections_->SaveSectionWellList(SectionWellListRecord{"S", ""}));
  EXPECT_FALSE(sections_->DeleteSectionWellList(""));
  EXPECT_EQ(messages_.texts(), (Texts{"剖面名称不能为空！", "井名组合不能为空！", "剖面名称不能为空！"}));
}

// A name its delete cannot hold fails the save before anything is written;
// in a list of sections, one such name keeps the whole list out.
TEST_F(WellListTest, QuotedNamesAreNeverWritten) {
  sql_.clear();
  EXPECT_FALSE(lists_->SaveWellList(WellListRecord{"it's", {{"W1", 1}}}));
  EXPECT_FALSE(sections_->SaveSectionWellList(SectionWellListRecord{"it's", "A"}));
  EXPECT_FALSE(sections_->SaveSectionWellLists({{"S1", "A"}, {"S'2", "B"}}));
  EXPECT_TRUE(sql_.texts().empty());
  EXPECT_TRUE(messages_.texts().empty());
}

}  // namespace
}  // namespace petrodb::test
