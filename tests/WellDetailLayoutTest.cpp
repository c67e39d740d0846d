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

using Texts = std::vector<std::string>;

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
  // Every value differs, so a value stored in another's column shows.
  static constexpr double Row::*kValues[] = {
      &Row::TopDepth, &Row::BottomDepth, &Row::NeutronPorosity, &Row::DensityPorosity, &Row::EffectivePorosity,
      &Row::AcousticPorosity, &Row::TotalPorosity, &Row::FlushedZoneResistivity, &Row::LowResistivity,
      &Row::TrueFormationResistivity, &Row::DrillingFluidResistivity, &Row::NaturalPotential, &Row::NaturalGamma,
      &Row::CompensatedNeutron, &Row::WellDiameter, &Row::Permeability, &Row::OilEffectivePermeability,
      &Row::GasEffectivePermeability, &Row::WaterEffectivePermeability, &Row::AbsolutePermeability,
      &Row::FormationEffPermeability, &Row::CrossSectionIndex, &Row::Uranium, &Row::Thorium, &Row::Potassium,
      &Row::ShalinessContent, &Row::ArenaceousContent, &Row::SiltyContent, &Row::CalcareousContent,
      &Row::DolomiticContent, &Row::GravelContent, &Row::SpecialMineral1, &Row::SpecialMineral2,
      &Row::SpecialMineral3, &Row::OilSaturation, &Row::EffectiveWaterSaturation, &Row::WaterSaturation,
      &Row::IrresibleWaterSaturation, &Row::TotalWaterSaturation, &Row::Montmorillonite, &Row::Illite,
      &Row::Kaolinite, &Row::RockDensity, &Row::FormationVolumeDensity, &Row::RockVelocity,
      &Row::AcousticTimeDifference, &Row::BottomHoleTemperature, &Row::ReservoirTemperatureGrad};
  static Row Make(const std::string& name, double depth) {
    Row r;
    r.InterpretName = name;
    r.InterpretResult = "水层 " + name;
    for (std::size_t i = 0; i < std::size(kValues); ++i) r.*kValues[i] = depth + 0.25 * i;
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
  Texts StoredWells() {
    return Query(std::string("select WellID from ") + C::kTable + " order by WellID");
  }
  std::string Text(const std::string& head, const std::string& tail) { return head + C::kTable + tail; }
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

  auto back = this->WellOf("stale", {deep, deep, deep});
  this->sql_.clear();
  ASSERT_TRUE(this->object_->LoadWellCores("W1", back));
  EXPECT_EQ(this->sql_.texts(), Texts{C::kLoadW1});
  EXPECT_EQ(back.WellID, "W1");
  EXPECT_EQ(C::Rows(back), (std::vector<typename C::Row>{shallow, deep}));

  // Saving again replaces every row of that well and no other; an empty list
  // only removes them.
  ASSERT_TRUE(this->object_->SaveWellCores(this->WellOf("W1", {deep})));
  EXPECT_EQ(this->StoredWells(), (Texts{"W1", "W2"}));
  EXPECT_TRUE(this->object_->IsWellCoresExist("W1"));
  ASSERT_TRUE(this->object_->SaveWellCores(this->WellOf("W1", {})));
  EXPECT_EQ(this->StoredWells(), Texts{"W2"});
  EXPECT_FALSE(this->object_->IsWellCoresExist("W1"));
  EXPECT_FALSE(this->object_->LoadWellCores("W1", back));
  EXPECT_TRUE(C::Rows(back).empty());
}

TYPED_TEST(WellDetailLayoutSuite, ProjectListsLoadsAndDeletesCoverOnlyItsWells) {
  using C = TypeParam;
  // W0 of project P has no rows; W3 belongs to project Q.
  this->Exec("insert into w_well_data (ProjectName, WellID) values "
             "('P', 'W2'), ('P', 'W1'), ('P', 'W0'), ('Q', 'W3')");
  for (const char* id : {"W1", "W2", "W3"})
    ASSERT_TRUE(this->object_->SaveWellCores(this->WellOf(id, {C::Make("1", 10), C::Make("2", 20)})));

  // The project statements of the layout: a correlated exists, a trailing blank, a doubled blank.
  Texts ids{"stale"};
  this->sql_.clear();
  ASSERT_TRUE(this->object_->GetCoredWellIDs("P", ids));
  EXPECT_EQ(ids, (Texts{"W1", "W2"}));
  const std::string table = C::kTable;
  EXPECT_EQ(this->sql_.texts(), Texts{"select w_well_data.wellid from w_well_data where w_well_data.ProjectName = 'P' "
                                      "and exists( select " + table + ".wellid from " + table +
                                      " where w_well_data.wellid = " + table +
                                      ".wellid )  order by w_well_data.wellid "});

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
            Texts{"delete from " + table + " where exists( select * from w_well_data where w_well_data.wellid = " +
                  table + ".wellid and  w_well_data.ProjectName = 'P' )"});
  EXPECT_EQ(this->StoredWells(), (Texts{"W3", "W3"}));
}

TYPED_TEST(WellDetailLayoutSuite, SeveralWellsAreReplacedTogetherAndFoundByList) {
  using C = TypeParam;
  ASSERT_TRUE(this->object_->SaveWellCores(this->WellOf("W1", {C::Make("1", 1), C::Make("2", 2), C::Make("3", 3)})));
  ASSERT_TRUE(this->object_->SaveWellCores(this->WellOf("W9", {C::Make("1", 1)})));
  this->sql_.clear();
  ASSERT_TRUE(this->object_->SaveCoresOfWells(
      12345, {this->WellOf("W1", {C::Make("5", 5)}), this->WellOf("W2", {C::Make("6", 6), C::Make("7", 7)})}));
  EXPECT_EQ(this->sql_.texts("ExecuteSQL"), Texts{this->Text("delete from  ", " where WellID in ('W1','W2')")});
  EXPECT_EQ(this->StoredWells(), (Texts{"W1", "W2", "W2", "W9"}));

  Texts found{"stale"};
  ASSERT_TRUE(this->object_->GetWellsWithCores({"W2", "W5", "W9"}, found));
  std::sort(found.begin(), found.end());
  EXPECT_EQ(found, (Texts{"W2", "W2", "W9"}));

  ASSERT_TRUE(this->object_->DeleteCoresOfWells({"W2", "W9"}));
  EXPECT_EQ(this->StoredWells(), Texts{"W1"});
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
  EXPECT_EQ(this->messages_.texts(), Texts(3, "井名称不能为空！"));
  EXPECT_TRUE(this->sql_.texts().empty());
  // One key the delete cannot hold keeps every well of the list out.
  EXPECT_FALSE(this->object_->SaveCoresOfWells(0, {this->WellOf("W1", {}), this->WellOf("W'2", {C::Make("1", 1)})}));
  EXPECT_EQ(this->StoredWells(), Texts{"W1"});

  // Without the table the writers and deleters send nothing, quietly.
  this->Exec(std::string("drop table ") + C::kTable);
  this->sql_.clear();
  EXPECT_FALSE(this->object_->SaveWellCores(this->WellOf("W1", {C::Make("1", 1)})));
  EXPECT_FALSE(this->object_->SaveCoresOfWells(0, {this->WellOf("W1", {C::Make("1", 1)})}));
  EXPECT_FALSE(this->object_->DeleteProjectCores("P"));
  EXPECT_TRUE(this->sql_.texts("ExecuteSQL").empty());
  EXPECT_TRUE(this->sql_.texts("SaveData").empty());
  EXPECT_EQ(this->messages_.texts().size(), 3u);
}

// ---- what the classes add ----

class TakeCoreTest : public ObjectTest<ITakeCoreData, "ITakeCoreData"> {};

TEST_F(TakeCoreTest, GeologyCoresFillSixFieldsInDepthOrderUpToAnEmptyCell) {
  Exec("insert into GEO_Core (Well, Core_No, Top_Depth, Bot_Depth, Core_L, Strata, Description) values "
       "('W1', '2', 1510.5, 1515, 4.5, '粉砂岩', 'deep'), ('W1', '1', 1500, 1504.25, 4.25, '泥岩', 'shallow'), "
       "('W2', '9', 1, 2, 1, 'x', 'y')");
  WellCores cores;
  ASSERT_TRUE(object_->LoadGeologyCores("W1", cores));
  EXPECT_EQ(sql_.texts(), Texts{"select * from GEO_Core where Well='W1' order by Top_Depth"});
  EXPECT_EQ(cores.WellID, "W1");
  ASSERT_EQ(cores.Cores.size(), 2u);
  EXPECT_EQ(cores.Cores[0], (CoreInterval{"1", 1500, 1504.25, 4.25, 0, 0, 0, "泥岩", "", "shallow", ""}));
  EXPECT_EQ(cores.Cores[1].CoreName, "2");
  // An empty cell in the first row ends the list there, rather than skipping that row.
  Exec("update GEO_Core set Description = NULL where Core_No = '1'");
  EXPECT_FALSE(object_->LoadGeologyCores("W1", cores));
  EXPECT_TRUE(cores.Cores.empty());
}

class SidewallCoreTest : public ObjectTest<ILateralCoreData, "ILateralCoreData"> {};

TEST_F(SidewallCoreTest, LoggingSamplesAreNumberedFromZeroInDepthOrder) {
  Exec("insert into ZEPH_SceneWellWall (Well, Depth, Lith_ID, Show_Grade_ID, Lith_Disc, Note1) values "
       "('W1', 1300.5, '砂岩', '油迹', 'd2', 'n2'), ('W1', 1200, '泥岩', '无', 'd1', 'n1'), "
       "('W2', 1, 'a', 'b', 'c', 'd')");
  WellSidewallCores cores;
  ASSERT_TRUE(object_->LoadLoggingSidewallCores("W1", cores));
  EXPECT_EQ(sql_.texts(), Texts{"select * from ZEPH_SceneWellWall where Well='W1' order by Depth"});
  ASSERT_EQ(cores.Cores.size(), 2u);
  EXPECT_EQ(cores.Cores[0], (SidewallCore{"0", 1200, 0, "泥岩", "无", "d1", "n1"}));
  EXPECT_EQ(cores.Cores[1], (SidewallCore{"1", 1300.5, 0, "砂岩", "油迹", "d2", "n2"}));
  // Loaded again, the numbering starts over.
  ASSERT_TRUE(object_->LoadLoggingSidewallCores("W2", cores));
  ASSERT_EQ(cores.Cores.size(), 1u);
  EXPECT_EQ(cores.Cores[0].LateralCoreName, "0");
}

class InterpretTest : public ObjectTest<IInterpretData, "IInterpretData"> {
 protected:
  Texts StoredNames(const std::string& well) {
    return Query("select InterpretName from w_interpret_data where WellID = '" + well + "' order by TopDepth");
  }
  static WellInterpretation Named(const std::string& well, const Texts& names) {
    WellInterpretation w{well, {}};
    for (const auto& n : names) w.Layers.push_back(InterpretCase::Make(n, 100 + 10.0 * w.Layers.size()));
    return w;
  }
};

TEST_F(InterpretTest, UnnamedLayersAreNumberedOnFromTheLargestLeadingNumber) {
  const auto mixed = Named("W1", {"3", "", "abc", ""});
  ASSERT_TRUE(object_->SaveWellCores(mixed));
  EXPECT_EQ(StoredNames("W1"), (Texts{"3", "4", "abc", "5"}));
  EXPECT_EQ(mixed.Layers[1].InterpretName, "");  // the caller's record is not changed

  ASSERT_TRUE(object_->SaveWellCores(Named("W2", {"", "", ""})));
  EXPECT_EQ(StoredNames("W2"), (Texts{"0", "1", "2"}));

  ASSERT_TRUE(object_->SaveCoresOfWells(0, {Named("W3", {"", "12a", "-4"}), Named("W4", {"7", "x", "2"})}));
  EXPECT_EQ(StoredNames("W3"), (Texts{"13", "12a", "-4"}));
  EXPECT_EQ(StoredNames("W4"), (Texts{"7", "x", "2"}));
}

}  // namespace
}  // namespace petrodb::test
