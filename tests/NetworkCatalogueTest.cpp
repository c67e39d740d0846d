// The model catalogues of the network (tees, valves, flow meters, pressure
// gauges) and the pump catalogues: one suite run over every catalogue.
#include <cstddef>
#include <tuple>

#include "TestSupport.h"
#include "petrodb/network/IAcentricPump.h"
#include "petrodb/network/IFlowMeter.h"
#include "petrodb/network/IMotor.h"
#include "petrodb/network/IPressureGage.h"
#include "petrodb/network/IPump.h"
#include "petrodb/network/IPumpParam.h"
#include "petrodb/network/IRodPump.h"
#include "petrodb/network/IRodPumpParam.h"
#include "petrodb/network/ITee.h"
#include "petrodb/network/IValve.h"

namespace petrodb::test {
namespace {

// What the suite needs to know of one catalogue: its operations (named alike
// in every catalogue: ITee has LoadTee, LoadAllTees, TeeExists, ...), its table
// and key column, the texts that differ, and a record maker.
#define CATALOGUE_OPERATIONS(X)                         \
  using I = I##X;                                       \
  using R = X##Record;                                  \
  static constexpr const char* kInterface = "I" #X;     \
  static constexpr auto load = &I::Load##X;             \
  static constexpr auto loadAll = &I::LoadAll##X##s;    \
  static constexpr auto exists = &I::X##Exists;         \
  static constexpr auto save = &I::Save##X;             \
  static constexpr auto saveAll = &I::Save##X##s;       \
  static constexpr auto remove = &I::Delete##X;         \
  static constexpr auto removeAll = &I::DeleteAll##X##s

struct Defaults {
  static constexpr bool kOrdered = true;         // loaded by model, else in table order
  static constexpr std::nullptr_t list = nullptr;  // no list of the models
  static constexpr const char* kDeleteAllText = nullptr;  // "delete * from <table>"
};

struct TeeCase : Defaults {
  CATALOGUE_OPERATIONS(Tee);
  static constexpr const char *kTable = "b_tee", *kKey = "TeeModel";
  static R Make(const std::string& key, double v) { return {key, v, v * 2, "钢", "2019-5-1", "厂" + key, ""}; }
  static auto Tie(const R& r) { return std::tie(r.TeeModel, r.TeeDia, r.TeePress, r.TeeMaterial, r.ProdDate, r.Mfr, r.Memo); }
};

struct ValveCase : Defaults {
  CATALOGUE_OPERATIONS(Valve);
  static constexpr auto list = &I::ListValveModels;
  static constexpr const char *kTable = "b_valve", *kKey = "ValveModel";
  static R Make(const std::string& key, double v) { return {key, v, v + 0.5, "铸铁", "", "M", "闸阀"}; }
  static auto Tie(const R& r) { return std::tie(r.ValveModel, r.VDia, r.VPress, r.VMaterial, r.ProdDate, r.Mfr, r.Memo); }
};

struct FlowMeterCase : Defaults {
  CATALOGUE_OPERATIONS(FlowMeter);
  static constexpr auto list = &I::ListFlowMeterModels;
  static constexpr const char *kTable = "b_flow_meter", *kKey = "FMModel";
  static R Make(const std::string& key, double v) { return {key, v, -v, 1e-9 * v, v / 3, "2020-1-2", "X", "m"}; }
  static auto Tie(const R& r) { return std::tie(r.FMModel, r.FMP, r.FMF, r.FMT, r.FMV, r.ProdDate, r.Mfr, r.Memo); }
};

struct PressureGageCase : Defaults {
  CATALOGUE_OPERATIONS(PressureGage);
  static constexpr auto list = &I::ListPressureGageModels;
  static constexpr const char *kTable = "b_pressure_gage", *kKey = "PGModel";
  static R Make(const std::string& key, double v) { return {key, v, v + 1, v + 2, v + 3, "", "", "表" + key}; }
  static auto Tie(const R& r) { return std::tie(r.PGModel, r.PGP, r.PGF, r.PGT, r.PGV, r.ProdDate, r.Mfr, r.Memo); }
};

struct RodPumpCase : Defaults {
  static constexpr bool kOrdered = false;
  CATALOGUE_OPERATIONS(RodPump);
  static constexpr auto list = &I::ListRodPumpModels;
  static constexpr const char *kTable = "b_rod_pump", *kKey = "PumpModel";
  static R Make(const std::string& key, double v) { return {key, v, 3, "2001-1-1", "宝鸡", "", v / 7, v * 3, 0.9}; }
  static auto Tie(const R& r) {
    return std::tie(r.PumpModel, r.RatedPower, r.RodNum, r.ProdDate, r.Mfr, r.Memo, r.RodCC, r.RodCS, r.Conversion);
  }
};

struct AcentricPumpCase : Defaults {
  CATALOGUE_OPERATIONS(AcentricPump);
  static constexpr auto list = &I::ListAcentricPumpModels;
  static constexpr const char *kTable = "b_acentric_pump", *kKey = "PumpModel", *kDeleteAllText = "delete  * from b_acentric_pump";
  static R Make(const std::string& key, double v) { return {key, v, v + 0.25, "", "沈阳", "D" + key}; }
  static auto Tie(const R& r) { return std::tie(r.PumpModel, r.RatedPower, r.LeafDia, r.ProdDate, r.Mfr, r.Memo); }
};

struct MotorCase : Defaults {
  CATALOGUE_OPERATIONS(Motor);
  static constexpr const char *kTable = "b_motor", *kKey = "MotorModel";
  static R Make(const std::string& key, double v) { return {key, v, 0.93, 6000, v / 6, v / 4, 0.85, 2980, "", "", ""}; }
  static auto Tie(const R& r) {
    return std::tie(r.MotorModel, r.MPower, r.MEff, r.MV, r.MI, r.MMaxI, r.PowerFac, r.RatedRev, r.ProdDate, r.Mfr,
                    r.Memo);
  }
};

template <class C>
class CatalogueSuite : public ProjectTest {
 protected:
  using R = typename C::R;
  void SetUp() override {
    ProjectTest::SetUp();
    object_ = Make<typename C::I>(C::kInterface);
    ASSERT_TRUE(object_);
  }
  // Calls one of the catalogue's operations on the test's object.
  template <class Op, class... Args>
  bool Call(Op op, Args&&... args) {
    return (object_.get()->*op)(std::forward<Args>(args)...);
  }
  std::vector<std::string> Keys() { return Query(std::string("select ") + C::kKey + " from " + C::kTable + " order by " + C::kKey); }
  // One error message was shown, each catalogue giving its own text.
  void ExpectOneErrorMessage() {
    ASSERT_EQ(messages_.messages().size(), 1u);
    EXPECT_EQ(std::tie(messages_.messages()[0].style, messages_.messages()[0].caption),
              std::make_tuple(MessageStyle::Plain, "错误信息"));
    messages_.clear();
  }
  std::unique_ptr<typename C::I> object_;
};

using Catalogues = ::testing::Types<TeeCase, ValveCase, FlowMeterCase, PressureGageCase, RodPumpCase,
                                    AcentricPumpCase, MotorCase>;
TYPED_TEST_SUITE(CatalogueSuite, Catalogues);

TYPED_TEST(CatalogueSuite, RowsComeBackWholeAndInOrder) {
  using C = TypeParam;
  const auto b = C::Make("B-2", 2.25), a = C::Make("A-1", 100.125), c = C::Make("C-3", -7);
  ASSERT_TRUE(this->Call(C::saveAll, std::vector<typename C::R>{b, a, c}));
  std::vector<typename C::R> all{C::Make("stale", 0)};
  ASSERT_TRUE(this->Call(C::loadAll, all));
  ASSERT_EQ(all.size(), 3u);
  // Unordered loads give the rows as they were written.
  EXPECT_EQ(C::Tie(all[0]), C::Tie(C::kOrdered ? a : b));
  EXPECT_EQ(C::Tie(all[1]), C::Tie(C::kOrdered ? b : a));
  EXPECT_EQ(C::Tie(all[2]), C::Tie(c));

  typename C::R one;
  ASSERT_TRUE(this->Call(C::load, "B-2", one));
  EXPECT_EQ(C::Tie(one), C::Tie(b));
  EXPECT_FALSE(this->Call(C::load, "Z", one));
  EXPECT_TRUE(this->Call(C::exists, "C-3") && !this->Call(C::exists, "c-"));
  if constexpr (C::list != nullptr) {
    std::vector<std::string> keys{"stale"};
    ASSERT_TRUE(this->Call(C::list, keys));
    EXPECT_EQ(keys, (std::vector<std::string>{"A-1", "B-2", "C-3"}));
  }
  EXPECT_TRUE(this->messages_.messages().empty());
}

TYPED_TEST(CatalogueSuite, SavingAModelReplacesItsRowOnlyAndTheBulkSaveAppends) {
  using C = TypeParam;
  ASSERT_TRUE(this->Call(C::saveAll, std::vector<typename C::R>{C::Make("A", 1), C::Make("B", 2)}));
  this->sql_.clear();
  ASSERT_TRUE(this->Call(C::save, C::Make("A", 3)));
  EXPECT_EQ(this->sql_.texts("GetDataFromDB"), std::vector<std::string>{C::kTable});
  EXPECT_EQ(this->sql_.texts("ExecuteSQL"),
            std::vector<std::string>{std::string("delete from ") + C::kTable + " where " + C::kKey + " = 'A'"});
  EXPECT_EQ(this->Keys(), (std::vector<std::string>{"A", "B"}));
  typename C::R a;
  ASSERT_TRUE(this->Call(C::load, "A", a));
  EXPECT_EQ(C::Tie(a), C::Tie(C::Make("A", 3)));
  ASSERT_TRUE(this->Call(C::saveAll, std::vector<typename C::R>{C::Make("B", 2)}));
  EXPECT_EQ(this->Keys(), (std::vector<std::string>{"A", "B", "B"}));
}

TYPED_TEST(CatalogueSuite, RefusedAndFailedSavesWriteNothing) {
  using C = TypeParam;
  ASSERT_TRUE(this->Call(C::save, C::Make("A", 1)));
  this->sql_.clear();
  EXPECT_FALSE(this->Call(C::save, C::Make("", 1)));
  this->ExpectOneErrorMessage();
  // A model holding a quote cannot be deleted by its statement, so it is not written.
  EXPECT_FALSE(this->Call(C::save, C::Make("A' or ''='", 1)));
  EXPECT_TRUE(this->sql_.texts().empty());
  EXPECT_TRUE(this->messages_.messages().empty());
  EXPECT_EQ(this->Keys(), std::vector<std::string>{"A"});

  this->Exec(std::string("drop table ") + C::kTable);
  EXPECT_FALSE(this->Call(C::save, C::Make("A", 1)));
  this->ExpectOneErrorMessage();
  EXPECT_TRUE(this->sql_.texts("ExecuteSQL").empty());
  // A table that only has the key column: the delete runs, the insert fails.
  this->Exec(std::string("create table ") + C::kTable + " (" + C::kKey + " varchar(40))");
  EXPECT_FALSE(this->Call(C::save, C::Make("A", 1)));
  EXPECT_EQ(this->messages_.texts(), std::vector<std::string>{"保存数据库出错！"});
  this->ExpectOneErrorMessage();
  EXPECT_TRUE(this->Keys().empty());
}

TYPED_TEST(CatalogueSuite, DeletesByModelAndWhole) {
  using C = TypeParam;
  ASSERT_TRUE(this->Call(C::saveAll, std::vector<typename C::R>{C::Make("A", 1), C::Make("B", 2), C::Make("C", 3)}));
  EXPECT_TRUE(this->Call(C::remove, "B"));
  EXPECT_TRUE(this->Call(C::remove, "no such model"));
  EXPECT_EQ(this->Keys(), (std::vector<std::string>{"A", "C"}));
  this->sql_.clear();
  // The Access form of the delete-all runs on project files only; a server refuses it.
  EXPECT_EQ(this->Call(C::removeAll), this->jet());
  const std::string deleteAll = C::kDeleteAllText ? C::kDeleteAllText : std::string("delete * from ") + C::kTable;
  EXPECT_EQ(this->sql_.texts("ExecuteSQL"), std::vector<std::string>{deleteAll});
  EXPECT_EQ(this->Keys().size(), this->jet() ? 0u : 2u);
}

// ---- model catalogues whose rows are the points of a model ----

using PumpCatalogueTest = ProjectTest;

TEST_F(PumpCatalogueTest, PumpPointsAreLoadedAndReplacedByModel) {
  auto rod = Make<IRodPumpParam>("IRodPumpParam");
  auto plain = Make<IPumpParam>("IPumpParam");
  ASSERT_TRUE(rod && plain);
  ASSERT_TRUE(rod->SaveRodPumpParamList({{"P1", 44, 20, 30}, {"P1", 38, 25, 22}, {"P2", 38, 1, 1}}));
  sql_.clear();
  // Replacing a model's points writes each under the model given.
  ASSERT_TRUE(rod->SaveRodPumpParams("P1", {{"other", 56, 16, 40}, {"", 32, 30, 18}}));
  EXPECT_EQ(sql_.texts("ExecuteSQL"), std::vector<std::string>{"delete from b_rod_pump_param where PumpModel = 'P1'"});
  std::vector<RodPumpParamRecord> points{{"stale", 0, 0, 0}};
  ASSERT_TRUE(rod->LoadRodPumpParams("P1", points));
  ASSERT_EQ(points.size(), 2u);
  EXPECT_EQ(std::tie(points[0].PumpModel, points[0].Dia, points[1].PumpModel, points[1].Dia),
            std::make_tuple(std::string("P1"), 32.0, std::string("P1"), 56.0));
  EXPECT_TRUE(rod->RodPumpParamsExist("P2"));
  EXPECT_FALSE(rod->SaveRodPumpParams("", points));
  EXPECT_EQ(messages_.texts(), std::vector<std::string>{"泵型号不能为空！"});
  // The delete of every point is plain SQL and runs on both engines.
  sql_.clear();
  ASSERT_TRUE(rod->DeleteAllRodPumpParams());
  EXPECT_EQ(sql_.texts(), std::vector<std::string>{"delete from b_rod_pump_param "});
  EXPECT_FALSE(rod->LoadAllRodPumpParams(points));

  // The diameter of b_pump_param is text and comes back as written.
  ASSERT_TRUE(plain->SavePumpParams("Q1", {{"", "Φ38", 20, 30}, {"", "044", 25, 22}}));
  std::vector<PumpParamRecord> textPoints;
  ASSERT_TRUE(plain->LoadPumpParams("Q1", textPoints));
  EXPECT_EQ(textPoints.at(1).Dia, "044");
  ASSERT_TRUE(plain->DeletePumpParams("Q1"));
  EXPECT_FALSE(plain->PumpParamsExist("Q1"));
}

TEST_F(PumpCatalogueTest, PumpModelsReplaceTheirRow) {
  auto pumps = Make<IPump>("IPump");
  ASSERT_TRUE(pumps);
  PumpRecord p{"DF-1", "多级", "2020-1-1", "2019-6-1", "大庆", "", 280.5, 2950, 9};
  ASSERT_TRUE(pumps->SavePump(p));
  p.Levels = 10;
  ASSERT_TRUE(pumps->SavePump(p));
  PumpRecord loaded;
  ASSERT_TRUE(pumps->LoadPump("DF-1", loaded));
  EXPECT_EQ(std::tie(loaded.PumpType, loaded.LeafDia, loaded.RatedRev, loaded.Levels),
            std::make_tuple(std::string("多级"), 280.5, 2950.0, 10));
  EXPECT_EQ(Query("select PumpModel from b_pump"), std::vector<std::string>{"DF-1"});
  EXPECT_TRUE(pumps->DeletePump("DF-1"));
  EXPECT_FALSE(pumps->PumpExists("DF-1"));
  Exec("drop table b_pump");
  EXPECT_FALSE(pumps->SavePump(p));
  EXPECT_EQ(messages_.texts(), std::vector<std::string>{"泵基本数据表为空！"});
}

#undef CATALOGUE_OPERATIONS

}  // namespace
}  // namespace petrodb::test
