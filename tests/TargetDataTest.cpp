// Drilling targets: the well and project statements (tabs and blanks as they
// are sent), the two saves, and lists that leave the caller's vector alone
// when nothing is found.
#include <string>
#include <vector>

#include "TestSupport.h"
#include "petrodb/welllog/ITargetData.h"

namespace petrodb::test {
namespace {

class TargetDataTest : public ObjectTest<ITargetData, "ITargetData"> {
 protected:
  static DrillingTarget Target(const std::string& well, const std::string& name, double tvd) {
    return {well, name, "2024-05-01 10:00", tvd + 30, tvd, tvd - 42.5, 1e7 + tvd, 4e6 - tvd, 12.5, 271.25,
            "N38°12'", "E117°05'", 0.5, 1.5, 2.5, 3.5};
  }
  void ProjectWells() {
    for (const char* row : {"('P', 'W1')", "('P', 'W2')", "('P', 'W0')", "('Q', 'W3')"})
      Exec(std::string("insert into w_well_data (ProjectName, WellID) values ") + row);
    ASSERT_TRUE(object_->SaveTargets({Target("W1", "T2", 2100), Target("W1", "T1", 1900), Target("W2", "T1", 1800),
                                      Target("W3", "T1", 1000), Target("W3", "T9", 1100)}));
    sql_.clear();
  }
  std::vector<std::string> Stored() {
    return Query("select UIDWELL || '/' || TARGETNAME from w_target order by UIDWELL, TARGETNAME");
  }
  static std::vector<std::string> Names(const std::vector<DrillingTarget>& ts) {
    std::vector<std::string> out;
    for (const auto& t : ts) out.push_back(t.UIDWELL + "/" + t.TARGETNAME);
    return out;
  }
};

TEST_F(TargetDataTest, AWellsTargetsAreReplacedAndComeBackWholeByDepth) {
  ASSERT_TRUE(object_->SaveWellTargets("W1", {Target("W1", "deep", 2000), Target("W1", "top", 1500)}));
  EXPECT_EQ(sql_.texts("ExecuteSQL"), std::vector<std::string>{"delete from w_target where UIDWELL = 'W1'"});
  std::vector<DrillingTarget> back;
  sql_.clear();
  ASSERT_TRUE(object_->LoadWellTargets("W1", back));
  EXPECT_EQ(sql_.texts(), std::vector<std::string>{"select * from w_target where UIDWELL = 'W1' order by TVD "});
  EXPECT_EQ(back, (std::vector<DrillingTarget>{Target("W1", "top", 1500), Target("W1", "deep", 2000)}));

  // The argument selects what is removed; the records keep their own wells.
  ASSERT_TRUE(object_->SaveWellTargets("W1", {Target("W2", "moved", 10)}));
  EXPECT_EQ(Stored(), std::vector<std::string>{"W2/moved"});
  ASSERT_TRUE(object_->SaveWellTargets("W2", {}));
  EXPECT_TRUE(Stored().empty());
  sql_.clear();
  EXPECT_FALSE(object_->IsTargetExist("W2"));
  EXPECT_EQ(sql_.texts("GetDataFromDB"),
            (std::vector<std::string>{"w_target", "select UIDWELL from  w_target where UIDWELL='W2'"}));
}

TEST_F(TargetDataTest, SavingSeveralWellsReplacesOnlyThoseWells) {
  ASSERT_TRUE(object_->SaveTargets({Target("W1", "a", 1), Target("W9", "z", 1)}));
  sql_.clear();
  ASSERT_TRUE(object_->SaveTargets({Target("W1", "b", 1), Target("W2", "c", 1), Target("W1", "d", 2)}));
  EXPECT_EQ(sql_.texts("ExecuteSQL"),
            std::vector<std::string>{"delete from w_target where UIDWELL in ('W1','W2','W1')"});
  EXPECT_EQ(Stored(), (std::vector<std::string>{"W1/b", "W1/d", "W2/c", "W9/z"}));
  EXPECT_TRUE(object_->IsTargetExist("W9"));

  // A failed removal ends the save: a quoted key, and an empty list ("in ()").
  EXPECT_FALSE(object_->SaveTargets({Target("W1", "x", 1), Target("W'2", "y", 1)}));
  EXPECT_FALSE(object_->SaveTargets({}));
  EXPECT_EQ(Stored(), (std::vector<std::string>{"W1/b", "W1/d", "W2/c", "W9/z"}));
  EXPECT_TRUE(messages_.texts().empty());
}

TEST_F(TargetDataTest, ProjectListsAndLoadsSendTheirStatementsAsWritten) {
  ProjectWells();
  std::vector<std::string> ids, names;
  ASSERT_TRUE(object_->GetTargetWellIDs("P", ids));
  ASSERT_TRUE(object_->GetProjectTargetNames("P", names));
  EXPECT_EQ(ids, (std::vector<std::string>{"W1", "W2"}));
  EXPECT_EQ(names, (std::vector<std::string>{"T1", "T2"}));
  ASSERT_TRUE(object_->GetWellTargetNames("W3", names));
  EXPECT_EQ(names, (std::vector<std::string>{"T1", "T9"}));

  std::vector<DrillingTarget> ts;
  ASSERT_TRUE(object_->LoadTargetsByName("P", "T1", ts));
  EXPECT_EQ(Names(ts), (std::vector<std::string>{"W2/T1", "W1/T1"}));
  ASSERT_TRUE(object_->LoadWellTargetsOfProject("P", "W1", {"T2", "T7"}, ts));
  EXPECT_EQ(Names(ts), std::vector<std::string>{"W1/T2"});
  ASSERT_TRUE(object_->LoadProjectTargets("P", ts));
  ASSERT_EQ(ts.size(), 3u);
  EXPECT_EQ(ts[2].TARGETNAME, "T2");
  ASSERT_TRUE(object_->LoadWellTargetsByName("W1", {"T1", "T2"}, ts));
  EXPECT_EQ(Names(ts), (std::vector<std::string>{"W1/T1", "W1/T2"}));
  EXPECT_EQ(
      sql_.texts(),
      (std::vector<std::string>{
          "select w_well_data.wellid from w_well_data where w_well_data.ProjectName = 'P' and exists( select "
          "w_target.UIDWELL from w_target where w_well_data.wellid = w_target.UIDWELL )  order by w_well_data.wellid ",
          "select distinct TARGETNAME from w_target where exists( select wellid from \t\tw_well_data where "
          "w_well_data.ProjectName = 'P' and w_well_data.wellid=w_target.UIDWELL)\t\torder by TARGETNAME",
          "select distinct TARGETNAME from w_target where UIDWELL='W3' order by TARGETNAME",
          "select * from w_target where TARGETNAME = 'T1' and exists( select wellid from \t\tw_well_data where "
          "w_well_data.ProjectName = 'P' and w_well_data.wellid = w_target.UIDWELL)\t\torder by TVD",
          "select * from w_target where TargetName in('T2','T7') and w_target.UIDWELL='W1' and exists( select wellid "
          "from w_well_data where\t\tw_well_data.ProjectName ='P' and w_well_data.wellid = w_target.UIDWELL )",
          "select * from w_target  where exists( select wellid from w_well_data where \t\tw_well_data.ProjectName = "
          "'P'and w_well_data.wellid = w_target.UIDWELL ) order by \t\tTARGETNAME",
          "select * from  w_target where UIDWELL = 'W1' and TARGETNAME in ('T1','T2') order by TVD ",
      }));

  // Nothing found: false, and the caller's lists stay as they were.
  EXPECT_FALSE(object_->GetTargetWellIDs("Z", ids));
  EXPECT_FALSE(object_->GetWellTargetNames("W0", names));
  EXPECT_FALSE(object_->LoadWellTargets("W0", ts));
  EXPECT_FALSE(object_->LoadTargetsByName("Q", "T2", ts));
  EXPECT_EQ(ids, (std::vector<std::string>{"W1", "W2"}));
  EXPECT_EQ(names, (std::vector<std::string>{"T1", "T9"}));
  EXPECT_EQ(ts.size(), 2u);
}

TEST_F(TargetDataTest, DeletesByProjectAndNameKeepOtherProjects) {
  ProjectWells();
  ASSERT_TRUE(object_->DeleteTargetOfProject("P", "T1"));
  EXPECT_EQ(Stored(), (std::vector<std::string>{"W1/T2", "W3/T1", "W3/T9"}));
  ASSERT_TRUE(object_->DeleteProjectTargets("P"));
  EXPECT_EQ(Stored(), (std::vector<std::string>{"W3/T1", "W3/T9"}));
  ASSERT_TRUE(object_->DeleteTargetsOfWells({"W3", "W4"}));
  EXPECT_TRUE(Stored().empty());
  EXPECT_EQ(sql_.texts("ExecuteSQL"),
            (std::vector<std::string>{
                "delete from w_target where TARGETNAME = 'T1' and exists( select wellid\t\tfrom w_well_data where "
                "w_well_data.ProjectName = 'P' and w_well_data.wellid = w_target.UIDWELL)",
                "delete from w_target where exists( select wellid from w_well_data \t\twhere "
                "w_well_data.ProjectName = 'P' and w_well_data.wellid = w_target.UIDWELL )",
                "delete from w_target where UIDWELL in ('W3','W4')"}));
}

TEST_F(TargetDataTest, WithoutTheTableNothingIsWrittenOrDeleted) {
  Exec("drop table w_target");
  sql_.clear();
  EXPECT_FALSE(object_->SaveWellTargets("W1", {Target("W1", "a", 1)}));
  EXPECT_FALSE(object_->SaveTargets({Target("W1", "a", 1)}));
  EXPECT_FALSE(object_->DeleteWellTargets("W1"));
  EXPECT_FALSE(object_->DeleteTargetsOfWells({"W1"}));
  EXPECT_FALSE(object_->DeleteProjectTargets("P"));
  EXPECT_FALSE(object_->DeleteTargetOfProject("P", "T1"));
  EXPECT_FALSE(object_->IsTargetExist("W1"));
  EXPECT_TRUE(sql_.texts("ExecuteSQL").empty());
  EXPECT_TRUE(sql_.texts("SaveData").empty());
  for (const auto& text : sql_.texts("GetDataFromDB")) EXPECT_EQ(text, "w_target");
}

}  // namespace
}  // namespace petrodb::test
