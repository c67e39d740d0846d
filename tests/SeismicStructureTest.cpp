// Fault sticks and planes, structure maps, picked horizons and faults, and the
// horizons tied to wells.
#include <tuple>

#include "TestSupport.h"
#include "petrodb/seismic/IFaultPlane3DData.h"
#include "petrodb/seismic/IFaultStickData.h"
#include "petrodb/seismic/ISeisHFItem.h"
#include "petrodb/seismic/IStructureData.h"
#include "petrodb/seismic/IWellSeisHorizon.h"

namespace petrodb::test {
namespace {

using Texts = std::vector<std::string>;

using FaultStickTest = ObjectTest<IFaultStickData, "IFaultStickData">;

TEST_F(FaultStickTest, SingleSetsRoundTripWhileTheStatementsThatCannotRunFail) {
  const FaultStickRecord set{"F1", {FaultStick{{1, 2}, {3, 4}, {5, 6}}, FaultStick{{7}, {8}, {9}}}};
  ASSERT_TRUE(object_->SaveFaultStick(set));
  ASSERT_TRUE(object_->SaveFaultStick(FaultStickRecord{"F2", {}}));
  EXPECT_EQ(Query("select length(FaultVarValue) from b_fault_stick order by FaultStickName"), (Texts{"96", "0"}));
  FaultStickRecord back;
  ASSERT_TRUE(object_->LoadFaultStick("F1", back));
  EXPECT_EQ(back, set);

  // The list delete ends in a stray quote: it fails, so the batch save writes nothing.
  sql_.clear();
  EXPECT_FALSE(object_->SaveFaultSticks({set}));
  EXPECT_EQ(sql_.texts("ExecuteSQL"), (Texts{"delete from  b_fault_stick where FaultStickName in ('F1') '"}));
  EXPECT_FALSE(object_->DeleteFaultSticks({"F1", "F2"}));
  // The delete-all text runs nowhere either; the operation answers true because the table answers.
  EXPECT_TRUE(object_->DeleteAllFaultSticks());
  EXPECT_EQ(sql_.texts("ExecuteSQL").back(), "delete from  b_fault_stick where FaultStickName= *'");
  EXPECT_EQ(Query("select count(*) from b_fault_stick"), (Texts{"2"}));

  ASSERT_TRUE(object_->DeleteFaultStick("F2"));
  Texts names{"old"};
  EXPECT_TRUE(object_->GetFaultStickNames(names) && names == Texts{"F1"});
  EXPECT_FALSE(object_->SaveFaultStick(FaultStickRecord{}));
  EXPECT_FALSE(object_->DeleteFaultSticks({}));
  EXPECT_EQ(messages_.texts(), Texts(2, "断层块名称不能为空！"));
}

using FaultPlaneTest = ObjectTest<IFaultPlane3DData, "IFaultPlane3DData">;

TEST_F(FaultPlaneTest, SingleSavesReplaceAndBatchSavesAddBeside) {
  FaultPlaneStyle style{"M", "F1",   2, 1, "contour", 0,      "sphere", 1.5, "red", 1,      "cyl",
                        0.5, "grey", 1, 0, 12,        "dash", 2.0,      3,   1,     "blue", 0.4};
  ASSERT_TRUE(object_->SaveFaultPlane(style));
  style.Transparency = 0.9;
  ASSERT_TRUE(object_->SaveFaultPlane(style));
  FaultPlaneStyle back;
  ASSERT_TRUE(object_->LoadFaultPlane("M", "F1", back));
  EXPECT_EQ(back, style);
  EXPECT_EQ(Query("select count(*) from fault_plane3d_data"), (Texts{"1"}));

  sql_.clear();
  ASSERT_TRUE(object_->SaveFaultPlanes({style}));
  EXPECT_EQ(sql_.texts("ExecuteSQL"),
            (Texts{"delect from fault_plane3d_data where ModelingName = 'M' and FaultName = 'F1'"}));
  EXPECT_EQ(Query("select count(*) from fault_plane3d_data"), (Texts{"2"}));

  std::vector<FaultPlaneStyle> styles;
  EXPECT_TRUE(object_->LoadFaultPlanes("M", {"F1", "F9"}, styles) && styles.size() == 2u);
  EXPECT_FALSE(object_->IsFaultPlaneExist("M", ""));
  style.ModelingName.clear();
  EXPECT_FALSE(object_->SaveFaultPlane(style));
  EXPECT_EQ(messages_.texts(), Texts(2, "建模名称和断层名称不能为空！"));
}

using StructureTest = ObjectTest<IStructureData, "IStructureData">;

TEST_F(StructureTest, MapsKeepTheirArraysAndTheBoundingBoxStartsAsymmetric) {
  const StructureRecord map{"ignored", "T1", {5, -2, 5}, {1, 7, -3}, {1000, 1010, 1020}};
  ASSERT_TRUE(object_->SaveStructure("P", map));
  ASSERT_TRUE(object_->SaveStructures("P", {{"", "empty", {}, {}, {}}, {"", "low", {-123456.5}, {-234567.5}, {1}}}));
  const auto box = [&](const std::string& marker) {
    Texts v;
    for (const char* c : {"MinXcoor", "MaxXcoor", "MinYcoor", "MaxYcoor"})
      v.push_back(
          Query(std::string("select ") + c + " from s_structure_data where MarkerName = '" + marker + "'").at(0));
    return v;
  };
  EXPECT_EQ(box("T1"), (Texts{"-2", "5", "-3", "7"}));
  EXPECT_EQ(box("empty"), (Texts{"1e+30", "-99999", "1e+30", "-99999"}));
  EXPECT_EQ(box("low"), (Texts{"-123456.5", "-99999", "-234567.5", "-99999"}));

  StructureRecord back;
  ASSERT_TRUE(object_->LoadStructure("P", "T1", back));
  EXPECT_EQ(back, (StructureRecord{"P", "T1", map.Xcoor, map.Ycoor, map.Depth}));

  // A second save replaces the marker's row.
  sql_.clear();
  ASSERT_TRUE(object_->SaveStructure("P", map));
  EXPECT_EQ(sql_.texts("ExecuteSQL"),
            (Texts{"delete from s_structure_data where MarkerName='T1' and\t\tProjectName='P'"}));
  Texts existing;
  EXPECT_TRUE(object_->GetExistingMarkers("P", {"T1", "none"}, existing) && existing == Texts{"T1"});
  EXPECT_FALSE(object_->DeleteStructure("P", ""));
  EXPECT_EQ(messages_.texts(), Texts{"层名称不能为空！"});
  sql_.clear();
  ASSERT_TRUE(object_->DeleteStructure("P", "T1"));
  EXPECT_EQ(sql_.texts(),
            (Texts{"delete from s_structure_data where MarkerName='T1' and \t\t\t\t\t  ProjectName='P'"}));
  ASSERT_TRUE(object_->DeleteStructures("P", {"empty"}));
  Texts names;
  EXPECT_TRUE(object_->GetMarkerNames("P", names) && names == Texts{"low"});
}

using SeisHFItemTest = ObjectTest<ISeisHFItem, "ISeisHFItem">;

HFItemRecord MakeItem(const std::string& survey, const std::string& name, int points) {
  HFItemRecord item;
  item.Survey_Name = survey;
  item.HFItem_Name = name;
  for (int i = 0; i < points; ++i)
    item.Points.push_back(HFPoint{0, i % 2, 100 - i, 10 + i, i * 1.0, i * 2.0, 1.5 - i * 0.1});
  return item;
}

TEST_F(SeisHFItemTest, ItemsAreNumberedByTheDatabaseAndDeletesLeaveTheirPoints) {
  ASSERT_TRUE(object_->SaveHFItems("P", {MakeItem("S", "H1", 4), MakeItem("S", "H2", 1)}, true));
  ASSERT_TRUE(object_->SaveHFItem("P", MakeItem("S", "F1", 2), false));
  const auto ids = Query("select HF_ID from s_horflt3d order by HF_ID");
  ASSERT_EQ(ids.size(), 3u);

  HFItemRecord h1;
  ASSERT_TRUE(object_->LoadHFItem("P", "S", "H1", true, h1));
  EXPECT_EQ(std::tie(h1.HF_ID, h1.HF_Type), std::make_tuple(std::stoi(ids[0]), "1"));
  ASSERT_EQ(h1.Points.size(), 4u);
  // By segment, then time; every point carries its item's number.
  EXPECT_EQ(std::tie(h1.Points[0].SegmentID, h1.Points[3].SegmentID, h1.Points[3].HF_ID),
            std::make_tuple(0, 1, h1.HF_ID));
  EXPECT_DOUBLE_EQ(h1.Points[0].T, 1.3);
  EXPECT_FALSE(object_->LoadHFItem("P", "S", "H1", false, h1));

  Texts surveys;
  EXPECT_TRUE(object_->GetHFSurveyNames("P", false, surveys) && surveys == Texts{"S"});
  // The item-name statement holds a stray quote: it fails, and so do the loads built on it.
  sql_.clear();
  Texts names;
  EXPECT_FALSE(object_->GetHFItemNames("P", "S", true, names));
  EXPECT_EQ(sql_.texts().at(0),
            "select distinct HFItem_Name from s_horflt3d where Survey_Name = 'S'  and HF_Type "
            "='1'' and ProjectName = 'P' order by HFItem_Name");
  std::vector<HFItemRecord> horizons, faults;
  EXPECT_FALSE(object_->LoadSurveyHF("P", "S", faults, horizons));

  std::vector<HFItemGrid> grids;
  ASSERT_TRUE(object_->LoadSurveyGrids("P", "S", true, grids));
  ASSERT_EQ(grids.size(), 2u);
  const HFItemGrid& g = grids[0].HFItem_Name == "H1" ? grids[0] : grids[1];
  ASSERT_EQ(g.ByCrossline.size(), 4u);
  EXPECT_EQ(std::tie(g.ByCrossline.front().CDP, g.ByInline.front().Inline_No, g.ByInline.back().SegmentID),
            std::make_tuple(97, 10, 1));

  ASSERT_TRUE(object_->DeleteHFItem("P", "S", "H1", true));
  ASSERT_TRUE(object_->DeleteProjectHF("P", false));
  EXPECT_EQ(Query("select HFItem_Name from s_horflt3d"), Texts{"H2"});
  ASSERT_TRUE(object_->DeleteHFSurvey("P", "S", true));
  EXPECT_EQ(Query("select count(*) from s_horflt3d"), (Texts{"0"}));
  EXPECT_EQ(Query("select count(*) from s_point"), (Texts{"7"}));
}

using WellSeisHorizonTest = ObjectTest<IWellSeisHorizon, "IWellSeisHorizon">;

TEST_F(WellSeisHorizonTest, HorizonsAreFiledByWellAndReplacedByWell) {
  Exec("insert into w_well_data (ProjectName, WellID) values ('P', 'W1'), ('P', 'W3')");
  ASSERT_TRUE(object_->SaveWellsHorizons(
      {{"W2", {{"", "T2", 1500, 1.2}}}, {"W1", {{"", "T3", 2000, 1.6}, {"", "T1", 1000, 0.9}}}}));
  ASSERT_TRUE(object_->SaveWellHorizons("W1", {{"ignored", "T1", 1000, 0.9}, {"", "T2", 1200, 1.0}}));
  std::map<std::string, std::vector<WellSeisHorizon>> byWell{{"stale", {}}};
  ASSERT_TRUE(object_->LoadAllWellHorizons(byWell));
  ASSERT_EQ(byWell.size(), 2u);
  EXPECT_EQ(byWell["W1"], (std::vector<WellSeisHorizon>{{"W1", "T1", 1000, 0.9}, {"W1", "T2", 1200, 1.0}}));
  Texts wells;
  EXPECT_TRUE(object_->GetWellsWithHorizons("P", wells) && wells == Texts{"W1"});

  EXPECT_FALSE(object_->SaveWellHorizons("", {}));
  ASSERT_TRUE(object_->DeleteWellsHorizons({"W2"}));
  ASSERT_TRUE(object_->DeleteAllWellHorizons());
  EXPECT_EQ(Query("select count(*) from w_seismic_horizon"), (Texts{"0"}));
}

}  // namespace
}  // namespace petrodb::test
