// Formation markers: the geological-layering view, its save through the depth
// converter, and the general reader and writer with the attribute tables.
#include <numbers>

#include "TestSupport.h"
#include "petrodb/welllog/DepthConverter.h"
#include "petrodb/welllog/IDeviateData.h"
#include "petrodb/welllog/IMarkerData.h"
#include "petrodb/welllog/ISourceData.h"

namespace petrodb::test {
namespace {

using Texts = std::vector<std::string>;

const std::string kLayering = "地质分层";

class MarkerDataTest : public ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    markers_ = Make<IMarkerData>("IMarkerData");
    sources_ = Make<ISourceData>("ISourceData");
    ASSERT_TRUE(markers_ && sources_);
    const char* columns =
        "insert into w_well_data (ProjectName, WellID, WellName, WellType, Well_SN, Well_EW, WellFlag, WellSymbol, "
        "Kb, Ekb, WellDepth) values ";
    Exec(std::string(columns) + "('P', 'W1', 'W1', 'oil', 1000, 2000, '1', 0, 50, 45, 1500)");
    Exec(std::string(columns) + "('Q', 'W2', 'W2', 'oil', 0, 0, '1', 0, 0, 0, 1500)");
    // Someone else's marker in W1, of another source.
    Exec("insert into w_marker (Source, WellID, MarkerName, TopMD, BottomMD) values ('测井解释', 'W1', 'X', 1, 2)");
  }
  // Ng 500-1000 m, and Ed with no top.
  static WellMarkers Tops(const std::string& well) {
    return {well, {{"", "Ng", 500, 1000, "sand"}, {"", "Ed", kNullDepth, 1100}}};
  }
  Texts OtherSource() {
    return Query("select WellID || '/' || MarkerName from w_marker where Source <> '地质分层' and TopMD < 2");
  }
  std::unique_ptr<IMarkerData> markers_;
  std::unique_ptr<ISourceData> sources_;
};

TEST_F(MarkerDataTest, SaveConvertsThroughTheWellsSurvey) {
  // A quarter circle due east from 0 to 1000 m.
  // Positions are stored NULL: they come from the angles.
  ASSERT_TRUE(Make<IDeviateData>("IDeviateData")->SaveSurvey({"W1", {0, 1000}, {90, 90}, {0, 90}, {0, 0}, {0, 0}}));

  ASSERT_TRUE(markers_->SaveWellMarkers(Tops("W1")));
  std::vector<MarkerRecord> back;
  ASSERT_TRUE(sources_->LoadWellMarkers(kLayering.c_str(), "W1", back));
  ASSERT_EQ(back.size(), 2u);
  const double r = 2000 / std::numbers::pi;
  const auto& ed = back[0];  // ordered by TopMD: the null top first
  const auto& ng = back[1];
  EXPECT_EQ(ng.MarkerName, "Ng");
  EXPECT_NEAR(ng.TopTVD, 450.16, 0.005);
  EXPECT_NEAR(ng.TopTVDSS, 400.16, 0.005);  // below the kelly bushing at 50 m
  EXPECT_NEAR(ng.XCoor, 2000 + 186.46, 0.005);
  EXPECT_NEAR(ng.YCoor, 1000, 1e-9);
  EXPECT_EQ(ng.Description, "sand");
  EXPECT_EQ(ng.Thickness, 500);
  for (double v : {ed.TopMD, ed.TopTVD, ed.TopTVDSS, ed.XCoor, ed.YCoor}) EXPECT_EQ(v, kNullDepth);
  EXPECT_NEAR(ed.BottomTVD, r, 1e-9);  // beyond the last station: horizontal
  EXPECT_FALSE(ed.SubmitTime.empty());
  EXPECT_EQ(OtherSource(), Texts{"W1/X"});
}

TEST_F(MarkerDataTest, WithoutTheConverterNothingIsSaved) {
  SetDepthConverterAvailable(false);
  EXPECT_FALSE(markers_->SaveWellMarkers(Tops("W1")));
  SetDepthConverterAvailable(true);
  EXPECT_FALSE(markers_->HasMarkers("W1"));
  WellMarkers none;
  EXPECT_FALSE(markers_->SaveWellMarkers(none));
  EXPECT_EQ(messages_.texts(), Texts{"井名称不能为空！"});
}

TEST_F(MarkerDataTest, LoadsByNameCrossProjectsAndOtherSourcesAreNeverReadOrDeleted) {
  ASSERT_TRUE(markers_->SaveMarkers(0, {Tops("W1"), Tops("W2")}));
  std::vector<MarkerRecord> records;
  ASSERT_TRUE(markers_->LoadMarkersOfWells({"W1", "W2"}, "Ng", records));
  ASSERT_EQ(records.size(), 2u);
  // The interval alone: the derived values stay unset though they are stored.
  for (const auto& ng : records) {
    EXPECT_EQ(ng.MarkerName + "/" + ng.Description, "Ng/sand") << ng.WellID;
    EXPECT_EQ(ng.TopMD, 500);
    EXPECT_EQ(ng.BottomMD, 1000);
    for (double v : {ng.TopTVD, ng.XCoor, ng.Thickness}) EXPECT_EQ(v, kNullDepth);
    EXPECT_TRUE(ng.SubmitTime.empty());
  }
  EXPECT_NE(records[0].WellID, records[1].WellID);

  // Loading by name lets any project with a well see every marker.
  ASSERT_TRUE(markers_->LoadMarkersByName("Ng", "Q", records));
  EXPECT_EQ(records.size(), 2u);  // W1 belongs to P, yet it comes too
  EXPECT_FALSE(markers_->LoadMarkersByName("Ng", "NoSuchProject", records));
  // The general reader ties the project to the marker's well.
  ASSERT_TRUE(sources_->LoadMarkersByName(kLayering.c_str(), "Ng", "Q", records));
  ASSERT_EQ(records.size(), 1u);
  EXPECT_EQ(records[0].WellID, "W2");

  ASSERT_TRUE(markers_->DeleteWellMarkers("W1"));
  EXPECT_EQ(OtherSource(), Texts{"W1/X"});
  ASSERT_TRUE(markers_->DeleteProjectMarkers("Q"));
  EXPECT_FALSE(markers_->HasMarkers("W2"));
  ASSERT_TRUE(markers_->SaveWellMarkers(Tops("W1")));
  ASSERT_TRUE(markers_->DeleteMarkersOfWells({"W1", "W2"}));
  EXPECT_FALSE(markers_->HasMarkers("W1"));
  EXPECT_EQ(OtherSource(), Texts{"W1/X"});
  EXPECT_FALSE(markers_->DeleteProjectMarkers(""));
  EXPECT_EQ(messages_.texts(), Texts{"工区名称不能为空！"});
}

TEST_F(MarkerDataTest, SourcesMoveTopsAndAttributes) {
  sql_.clear();
  ASSERT_TRUE(sources_->MoveMarkerTop("测井解释", "W1", "X", 1.5));
  EXPECT_EQ(sql_.texts("ExecuteSQL"),
            Texts{"update w_marker set TopMD=1.500000  where WellID='W1' and MarkerName='X' and Source='测井解释'"});
  EXPECT_EQ(Query("select MarkerName from w_marker where TopMD = 1.5"), Texts{"X"});

  ASSERT_TRUE(sources_->SaveAttributes("P", "测井解释", {{"POR", "double", "porosity"}, {"LITH", "text", ""}}));
  ASSERT_TRUE(sources_->SaveAttribute("P", "测井解释", {"POR", "double", "effective porosity"}));
  std::vector<MarkerAttribute> attributes;
  ASSERT_TRUE(sources_->GetAttributes("P", "测井解释", attributes));
  ASSERT_EQ(attributes.size(), 2u);
  EXPECT_EQ(attributes[1].AttribDescription, "effective porosity");

  ASSERT_TRUE(sources_->SaveAttributeValues("测井解释", {{"W1", "X", "POR", "0.21"}, {"W2", "X", "POR", "0.18"}}));
  ASSERT_TRUE(sources_->SaveAttributeValues("测井解释", {{"W1", "X", "POR", "0.23"}}));
  std::vector<MarkerAttributeValue> values;
  ASSERT_TRUE(sources_->LoadProjectAttributeValues("P", "测井解释", "POR", values));
  ASSERT_EQ(values.size(), 1u);
  EXPECT_EQ(values[0].AttribValue, "0.23");
  // A project's delete leaves the values of other projects' wells alone.
  ASSERT_TRUE(sources_->DeleteAttributeValues("Q", "测井解释", "POR"));
  ASSERT_TRUE(sources_->LoadWellAttributeValues("测井解释", "W1", values));
  EXPECT_EQ(values.size(), 1u);
  EXPECT_FALSE(sources_->LoadWellAttributeValues("测井解释", "W2", values));
}

TEST_F(MarkerDataTest, EveryListIsClearedFirst) {
  ASSERT_TRUE(markers_->SaveMarkers(0, {Tops("W1")}));
  ASSERT_TRUE(sources_->SaveAttribute("P", kLayering.c_str(), {"POR", "double", ""}));
  ASSERT_TRUE(sources_->SaveAttributeValues(kLayering.c_str(), {{"W1", "Ng", "POR", "0.2"}}));
  const Texts stale{"stale", "stale"};
  const auto names = [&](auto&& list) {
    Texts out = stale;
    EXPECT_TRUE(list(out));
    return out;
  };
  const Texts w1{"W1"}, both{"Ed", "Ng"};
  EXPECT_EQ(names([&](auto& v) { return markers_->GetMarkerWellIDs("P", v); }), w1);
  EXPECT_EQ(names([&](auto& v) { return markers_->GetWellsWithMarkers("P", v); }), w1);
  EXPECT_EQ(names([&](auto& v) { return markers_->GetProjectMarkerNames("P", v); }), both);
  EXPECT_EQ(names([&](auto& v) { return markers_->GetWellMarkerNames("W1", v); }).size(), 2u);
  EXPECT_EQ(names([&](auto& v) { return sources_->GetSources(v); }).size(), 2u);
  EXPECT_EQ(names([&](auto& v) { return sources_->GetMarkerWellIDs(kLayering.c_str(), "P", v); }), w1);
  EXPECT_EQ(names([&](auto& v) { return sources_->GetProjectMarkerNames(kLayering.c_str(), "P", v); }), both);
  EXPECT_EQ(names([&](auto& v) { return sources_->GetWellMarkerNames(kLayering.c_str(), "W1", v); }), both);

  // The record lists: each class reads its records through one loader, and
  // the attribute lists share it.
  std::vector<MarkerRecord> records(3);
  ASSERT_TRUE(markers_->LoadProjectMarkers("P", records));
  EXPECT_EQ(records.size(), 2u);
  std::vector<MarkerAttributeValue> values(2);
  ASSERT_TRUE(sources_->LoadMarkerAttributeValues(kLayering.c_str(), "W1", "Ng", values));
  EXPECT_EQ(values.size(), 1u);
}

TEST_F(MarkerDataTest, AKeyWithAQuoteFailsTheSaveBeforeAnyWrite) {
  ASSERT_TRUE(markers_->SaveMarkers(0, {Tops("W1")}));
  ASSERT_TRUE(sources_->SaveAttributeValues("测井解释", {{"W1", "X", "POR", "0.21"}}));
  sql_.clear();
  EXPECT_FALSE(markers_->SaveMarkers(0, {Tops("W2"), Tops("W'3")}));
  EXPECT_FALSE(sources_->SaveWellMarkers(kLayering.c_str(), Tops("W'3")));
  // The second value's key cannot be spliced: the first value's row is not
  // deleted either.
  EXPECT_FALSE(sources_->SaveAttributeValues("测井解释", {{"W1", "X", "POR", "0.5"}, {"W1", "X'", "POR", "1"}}));
  EXPECT_TRUE(sql_.texts("ExecuteSQL").empty());
  EXPECT_TRUE(sql_.texts("SaveData").empty());
}

}  // namespace
}  // namespace petrodb::test
