// The per-well detail layout, run over each class that uses it: cores,
// sidewall cores and interpreted layers; then what each of them adds.
#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "TestSupport.h"
#include "petrodb/welllog/IInterpretData.h"
#include "petrodb/welllog/ILateralCoreData.h"
#include "petrodb/welllog/ITakeCoreData.h"

namespace petrodb::test {
namespace {

struct CoreCase {
  using I = ITakeCoreData;
  using Well = WellCores;
  using Row = CoreInterval;
  static constexpr const char* kInterface = "ITakeCoreData";
  static constexpr const char* kTable = "w_takecore_data";
  static constexpr const char* kLoadW1 = "select * from w_takecore_data where WellID='W1' order by TopDepth";
  static std::vector<Row>& Rows(Well& w) { return w.Cores; }
  static Row Make(const std::string& name, double depth) {
    return {name, depth, depth + 2.5, 2.25, 2.5, 0.9, 7, "细砂岩", "油斑", "灰色 " + name, "r" + name};
  }
};

struct SidewallCase {
  using I = ILateralCoreData;
  using Well = WellSidewallCores;
  using Row = SidewallCore;
  static constexpr const char* kInterface = "ILateralCoreData";
  static constexpr const char* kTable = "w_lateralcore_data";
  static constexpr const char* kLoadW1 = "select * from w_lateralcore_data where WellID='W1' order by Depth";
  static std::vector<Row>& Rows(Well& w) { return w.Cores; }
  static Row Make(const std::string& name, double depth) {
    return {name, depth, 4, "泥岩", "荧光", "描述 " + name, "备注"};
  }
};

struct InterpretCase {
  using I = IInterpretData;
  using Well = WellInterpretation;
  using Row = InterpretLayer;
  static constexpr const char* kInterface = "IInterpretData";
  static constexpr const char* kTable = "w_interpret_data";
  static constexpr const char* kLoadW1 = "select * from w_interpret_data where WellID='W1'  order by TopDepth";
  static std::vector<Row>& Rows(Well& w) { return w.Layers; }
  static Row Make(const std::string& name, double depth) {
    Row r;
    r.InterpretName = name;
    r.TopDepth = depth;
    r.BottomDepth = depth + 1;
    return r;
  }
};

template <class C>
class WellDetailLayoutSuite : public ProjectTest {
 protected:
  using Well = typename C::Well;
  using Row = typename C::Row;
  void SetUp() override {
    ProjectTest::SetUp();
    object_ = Make<typename C::I>(C::kInterface);
    ASSERT_TRUE(object_);
  }
  static Well WellOf(const std::string& id, std::vector<Row> rows) {
    Well w;
    w.WellID = id;
    C::Rows(w) = std::move(rows);
    return w;
  }
  std::vector<std::string> StoredWells() {
    return Query(std::string("select WellID from ") + C::kTable + " order by WellID");
  }
  std::string Text(const std::string& head, const std::string& tail) { return head + C::kTable + tail; }
  void AddWell(const std::string& project, const std::string& id) {
    Exec("insert into w_well_data (ProjectName, WellID) values ('" + project + "', '" + id + "')");
  }
  std::unique_ptr<typename C::I> object_;
};

using Layouts = ::testing::Types<CoreCase, SidewallCase, InterpretCase>;
TYPED_TEST_SUITE(WellDetailLayoutSuite, Layouts);

TYPED_TEST(WellDetailLayoutSuite, SavingAWellReplacesItsRowsAndLoadsThemByDepth) {
  using C = TypeParam;
  const auto deep = C::Make("2", 1520.5), shallow = C::Make("1", 1488.25);
  ASSERT_TRUE(this->object_->SaveWellCores(this->WellOf("W1", {deep, shallow})));
  ASSERT_TRUE(this->object_->SaveWellCores(this->WellOf("W2", {deep})));
  EXPECT_EQ(this->sql_.texts("ExecuteSQL").front(), this->Text("delete from  ", " where WellID='W1'"));

  typename C::Well back;
  back.WellID = "stale";
  C::Rows(back) = {deep, deep, deep};
  this->sql_.clear();
  ASSERT_TRUE(this->object_->LoadWellCores("W1", back));
  EXPECT_EQ(this->sql_.texts(), std::vector<std::string>{C::kLoadW1});
  EXPECT_EQ(back.WellID, "W1");
  EXPECT_EQ(C::Rows(back), (std::vector<typename C::Row>{shallow, deep}));

  // Saving again replaces every row of that well and no other; an empty list
  // only removes them.
  ASSERT_TRUE(this->object_->SaveWellCores(this->WellOf("W1", {deep})));
  EXPECT_EQ(this->StoredWells(), (std::vector<std::string>{"W1", "W2"}));
  EXPECT_TRUE(this->object_->IsWellCoresExist("W1"));
  ASSERT_TRUE(this->object_->SaveWellCores(this->WellOf("W1", {})));
  EXPECT_EQ(this->StoredWells(), std::vector<std::string>{"W2"});
  EXPECT_FALSE(this->object_->IsWellCoresExist("W1"));
  EXPECT_FALSE(this->object_->LoadWellCores("W1", back));
  EXPECT_TRUE(C::Rows(back).empty());
  EXPECT_TRUE(this->messages_.texts().empty());
}

TYPED_TEST(WellDetailLayoutSuite, ProjectListsLoadsAndDeletesCoverOnlyItsWells) {
  using C = TypeParam;
  this->AddWell("P", "W2");
  this->AddWell("P", "W1");
  this->AddWell("P", "W0");  // no rows
  this->AddWell("Q", "W3");
  for (const char* id : {"W1", "W2", "W3"})
    ASSERT_TRUE(this->object_->SaveWellCores(this->WellOf(id, {C::Make("1", 10), C::Make("2", 20)})));

  // The project statements of the layout: a correlated exists, a trailing blank, a doubled blank.
  std::vector<std::string> ids{"stale"};
  this->sql_.clear();
  ASSERT_TRUE(this->object_->GetCoredWellIDs("P", ids));
  EXPECT_EQ(ids, (std::vector<std::string>{"W1", "W2"}));
  const std::string table = C::kTable;
  EXPECT_EQ(this->sql_.texts(), std::vector<std::string>{"select w_well_data.wellid from w_well_data where "
                                                         "w_well_data.ProjectName = 'P' and exists( select " +
                                                         table + ".wellid from " + table + " where w_well_data.wellid = " +
                                                         table + ".wellid )  order by w_well_data.wellid "});

  std::vector<typename C::Well> wells(3);
  ASSERT_TRUE(this->object_->LoadProjectCores("P", wells));
  ASSERT_EQ(wells.size(), 2u);
  EXPECT_EQ(wells[1].WellID, "W2");
  EXPECT_EQ(C::Rows(wells[1]).size(), 2u);
  EXPECT_FALSE(this->object_->LoadProjectCores("nobody", wells));
  EXPECT_TRUE(wells.empty());

  this->sql_.clear();
  ASSERT_TRUE(this->object_->DeleteProjectCores("P"));
  EXPECT_EQ(this->sql_.texts("ExecuteSQL"),
            std::vector<std::string>{"delete from " + table + " where exists( select * from w_well_data where "
                                     "w_well_data.wellid = " + table + ".wellid and  w_well_data.ProjectName = 'P' )"});
  EXPECT_EQ(this->StoredWells(), (std::vector<std::string>{"W3", "W3"}));
}

TYPED_TEST(WellDetailLayoutSuite, SeveralWellsAreReplacedTogetherAndFoundByList) {
  using C = TypeParam;
  ASSERT_TRUE(this->object_->SaveWellCores(this->WellOf("W1", {C::Make("1", 1), C::Make("2", 2), C::Make("3", 3)})));
  ASSERT_TRUE(this->object_->SaveWellCores(this->WellOf("W9", {C::Make("1", 1)})));
  this->sql_.clear();
  ASSERT_TRUE(this->object_->SaveCoresOfWells(
      12345, {this->WellOf("W1", {C::Make("5", 5)}), this->WellOf("W2", {C::Make("6", 6), C::Make("7", 7)})}));
  EXPECT_EQ(this->sql_.texts("ExecuteSQL"),
            std::vector<std::string>{this->Text("delete from  ", " where WellID in ('W1','W2')")});
  EXPECT_EQ(this->StoredWells(), (std::vector<std::string>{"W1", "W2", "W2", "W9"}));

  std::vector<std::string> found{"stale"};
  ASSERT_TRUE(this->object_->GetWellsWithCores({"W2", "W5", "W9"}, found));
  std::sort(found.begin(), found.end());
  EXPECT_EQ(found, (std::vector<std::string>{"W2", "W2", "W9"}));
  EXPECT_FALSE(this->object_->GetWellsWithCores({"W5"}, found));
  EXPECT_TRUE(found.empty());

  ASSERT_TRUE(this->object_->DeleteCoresOfWells({"W2", "W9"}));
  EXPECT_EQ(this->StoredWells(), std::vector<std::string>{"W1"});
  ASSERT_TRUE(this->object_->DeleteWellCores("W1"));
  EXPECT_TRUE(this->StoredWells().empty());
}

TYPED_TEST(WellDetailLayoutSuite, EmptyWellsQuotedKeysAndAMissingTableTouchNothing) {
  using C = TypeParam;
  ASSERT_TRUE(this->object_->SaveWellCores(this->WellOf("W1", {C::Make("1", 1)})));
  this->sql_.clear();
  EXPECT_FALSE(this->object_->SaveWellCores(this->WellOf("", {C::Make("1", 1)})));
  EXPECT_FALSE(this->object_->DeleteWellCores(""));
  EXPECT_FALSE(this->object_->IsWellCoresExist(""));
  EXPECT_EQ(this->messages_.texts(), std::vector<std::string>(3, "井名称不能为空！"));
  for (const auto& m : this->messages_.messages()) EXPECT_EQ(m.style, MessageStyle::Application);
  EXPECT_TRUE(this->sql_.texts().empty());

  EXPECT_FALSE(this->object_->SaveWellCores(this->WellOf("W'1", {C::Make("1", 1)})));
  EXPECT_FALSE(this->object_->SaveCoresOfWells(0, {this->WellOf("W1", {}), this->WellOf("W'2", {C::Make("1", 1)})}));
  EXPECT_EQ(this->StoredWells(), std::vector<std::string>{"W1"});

  // Without the table the writers and deleters send nothing, quietly.
  this->Exec(std::string("drop table ") + C::kTable);
  this->sql_.clear();
  EXPECT_FALSE(this->object_->SaveWellCores(this->WellOf("W1", {C::Make("1", 1)})));
  EXPECT_FALSE(this->object_->SaveCoresOfWells(0, {this->WellOf("W1", {C::Make("1", 1)})}));
  EXPECT_FALSE(this->object_->DeleteWellCores("W1"));
  EXPECT_FALSE(this->object_->DeleteCoresOfWells({"W1"}));
  EXPECT_FALSE(this->object_->DeleteProjectCores("P"));
  EXPECT_TRUE(this->sql_.texts("ExecuteSQL").empty());
  EXPECT_TRUE(this->sql_.texts("SaveData").empty());
  typename C::Well back;
  EXPECT_FALSE(this->object_->LoadWellCores("W1", back));
  EXPECT_FALSE(this->object_->IsWellCoresExist("W1"));
  EXPECT_EQ(this->messages_.texts().size(), 3u);
}

// ---- what the classes add ----

class TakeCoreTest : public ObjectTest<ITakeCoreData, "ITakeCoreData"> {};

TEST_F(TakeCoreTest, GeologyCoresFillSixFieldsInDepthOrderUpToAnEmptyCell) {
  Exec("insert into GEO_Core (Well, Core_No, Top_Depth, Bot_Depth, Core_L, Strata, Description) values "
       "('W1', '2', 1510.5, 1515, 4.5, '粉砂岩', 'deep'), ('W1', '1', 1500, 1504.25, 4.25, '泥岩', 'shallow'), "
       "('W2', '9', 1, 2, 1, 'x', 'y')");
  WellCores cores;
  cores.Cores.resize(4);
  ASSERT_TRUE(object_->LoadGeologyCores("W1", cores));
  EXPECT_EQ(sql_.texts(), std::vector<std::string>{"select * from GEO_Core where Well='W1' order by Top_Depth"});
  EXPECT_EQ(cores.WellID, "W1");
  ASSERT_EQ(cores.Cores.size(), 2u);
  EXPECT_EQ(cores.Cores[0], (CoreInterval{"1", 1500, 1504.25, 4.25, 0, 0, 0, "泥岩", "", "shallow", ""}));
  EXPECT_EQ(cores.Cores[1].CoreName, "2");
  EXPECT_FALSE(object_->LoadGeologyCores("W3", cores));
  EXPECT_TRUE(cores.Cores.empty());
  // A row with an empty cell ends the list; the rows before it stay.
  Exec("update GEO_Core set Description = NULL where Core_No = '2'");
  Exec("insert into GEO_Core (Well, Core_No, Top_Depth, Bot_Depth, Core_L, Strata, Description) values "
       "('W1', '3', 1520, 1521, 1, 'a', 'b')");
  EXPECT_FALSE(object_->LoadGeologyCores("W1", cores));
  ASSERT_EQ(cores.Cores.size(), 1u);
  EXPECT_EQ(cores.Cores[0].CoreName, "1");
}

class SidewallCoreTest : public ObjectTest<ILateralCoreData, "ILateralCoreData"> {};

TEST_F(SidewallCoreTest, LoggingSamplesAreNumberedFromZeroInDepthOrder) {
  Exec("insert into ZEPH_SceneWellWall (Well, Depth, Lith_ID, Show_Grade_ID, Lith_Disc, Note1) values "
       "('W1', 1300.5, '砂岩', '油迹', 'd2', 'n2'), ('W1', 1200, '泥岩', '无', 'd1', 'n1'), "
       "('W1', 1400, 'a', 'b', 'c', 'd'), ('W2', 1, 'a', 'b', 'c', 'd')");
  WellSidewallCores cores;
  ASSERT_TRUE(object_->LoadLoggingSidewallCores("W1", cores));
  EXPECT_EQ(sql_.texts(), std::vector<std::string>{"select * from ZEPH_SceneWellWall where Well='W1' order by Depth"});
  ASSERT_EQ(cores.Cores.size(), 3u);
  EXPECT_EQ(cores.Cores[0], (SidewallCore{"0", 1200, 0, "泥岩", "无", "d1", "n1"}));
  EXPECT_EQ(cores.Cores[1], (SidewallCore{"1", 1300.5, 0, "砂岩", "油迹", "d2", "n2"}));
  EXPECT_EQ(cores.Cores[2].LateralCoreName, "2");
  // Loaded again, the numbering starts over.
  ASSERT_TRUE(object_->LoadLoggingSidewallCores("W2", cores));
  ASSERT_EQ(cores.Cores.size(), 1u);
  EXPECT_EQ(cores.Cores[0].LateralCoreName, "0");
}

class InterpretTest : public ObjectTest<IInterpretData, "IInterpretData"> {
 protected:
  std::vector<std::string> StoredNames(const std::string& well) {
    return Query("select InterpretName from w_interpret_data where WellID = '" + well + "' order by TopDepth");
  }
  static WellInterpretation Named(const std::string& well, const std::vector<std::string>& names) {
    WellInterpretation w{well, {}};
    double depth = 100;
    for (const auto& n : names) {
      InterpretLayer l;
      l.InterpretName = n;
      l.TopDepth = depth;
      depth += 10;
      w.Layers.push_back(l);
    }
    return w;
  }
};

TEST_F(InterpretTest, UnnamedLayersAreNumberedOnFromTheLargestLeadingNumber) {
  const auto mixed = Named("W1", {"3", "", "abc", ""});
  ASSERT_TRUE(object_->SaveWellCores(mixed));
  EXPECT_EQ(StoredNames("W1"), (std::vector<std::string>{"3", "4", "abc", "5"}));
  EXPECT_EQ(mixed.Layers[1].InterpretName, "");  // the caller's record is not changed

  ASSERT_TRUE(object_->SaveWellCores(Named("W2", {"", "", ""})));
  EXPECT_EQ(StoredNames("W2"), (std::vector<std::string>{"0", "1", "2"}));

  ASSERT_TRUE(object_->SaveCoresOfWells(0, {Named("W3", {"", "12a", "-4"}), Named("W4", {"7", "x", "2"})}));
  EXPECT_EQ(StoredNames("W3"), (std::vector<std::string>{"13", "12a", "-4"}));
  EXPECT_EQ(StoredNames("W4"), (std::vector<std::string>{"7", "x", "2"}));
}

TEST_F(InterpretTest, EveryValueGoesToItsOwnColumn) {
  static constexpr double InterpretLayer::*kValues[] = {
      &InterpretLayer::TopDepth, &InterpretLayer::BottomDepth, &InterpretLayer::NeutronPorosity,
      &InterpretLayer::DensityPorosity, &InterpretLayer::EffectivePorosity, &InterpretLayer::AcousticPorosity,
      &InterpretLayer::TotalPorosity, &InterpretLayer::FlushedZoneResistivity, &InterpretLayer::LowResistivity,
      &InterpretLayer::TrueFormationResistivity, &InterpretLayer::DrillingFluidResistivity,
      &InterpretLayer::NaturalPotential, &InterpretLayer::NaturalGamma, &InterpretLayer::CompensatedNeutron,
      &InterpretLayer::WellDiameter, &InterpretLayer::Permeability, &InterpretLayer::OilEffectivePermeability,
      &InterpretLayer::GasEffectivePermeability, &InterpretLayer::WaterEffectivePermeability,
      &InterpretLayer::AbsolutePermeability, &InterpretLayer::FormationEffPermeability,
      &InterpretLayer::CrossSectionIndex, &InterpretLayer::Uranium, &InterpretLayer::Thorium,
      &InterpretLayer::Potassium, &InterpretLayer::ShalinessContent, &InterpretLayer::ArenaceousContent,
      &InterpretLayer::SiltyContent, &InterpretLayer::CalcareousContent, &InterpretLayer::DolomiticContent,
      &InterpretLayer::GravelContent, &InterpretLayer::SpecialMineral1, &InterpretLayer::SpecialMineral2,
      &InterpretLayer::SpecialMineral3, &InterpretLayer::OilSaturation, &InterpretLayer::EffectiveWaterSaturation,
      &InterpretLayer::WaterSaturation, &InterpretLayer::IrresibleWaterSaturation,
      &InterpretLayer::TotalWaterSaturation, &InterpretLayer::Montmorillonite, &InterpretLayer::Illite,
      &InterpretLayer::Kaolinite, &InterpretLayer::RockDensity, &InterpretLayer::FormationVolumeDensity,
      &InterpretLayer::RockVelocity, &InterpretLayer::AcousticTimeDifference,
      &InterpretLayer::BottomHoleTemperature, &InterpretLayer::ReservoirTemperatureGrad};
  InterpretLayer layer;
  layer.InterpretName = "L1";
  layer.InterpretResult = "水层";
  layer.Remark = "备注";
  for (std::size_t i = 0; i < std::size(kValues); ++i) layer.*kValues[i] = 1000 + i + 0.25;
  ASSERT_TRUE(object_->SaveWellCores({"W1", {layer}}));
  EXPECT_EQ(Query("select IrresibleWaterSaturation from w_interpret_data"), std::vector<std::string>{"1037.25"});
  WellInterpretation back;
  ASSERT_TRUE(object_->LoadWellCores("W1", back));
  ASSERT_EQ(back.Layers.size(), 1u);
  EXPECT_EQ(back.Layers[0], layer);
}

}  // namespace
}  // namespace petrodb::test
