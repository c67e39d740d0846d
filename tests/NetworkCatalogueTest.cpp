// The model catalogues of the network and the pump points. Tees, flow meters,
// pressure gauges, motors and pumps share the catalogue mechanism exactly, as
// the plain pump points share the rod pump points'; the suite runs on the
// catalogues that add something to it: the valves (one load reads the diameter
// under another name), the rod pumps (loaded in table order) and the acentric
// pumps (a doubled blank in the delete-all).
#include <tuple>

#include "TestSupport.h"
#include "petrodb/network/IAcentricPump.h"
#include "petrodb/network/IRodPump.h"
#include "petrodb/network/IRodPumpParam.h"
#include "petrodb/network/IValve.h"

namespace petrodb::test {
namespace {

// What the suite needs to know of one catalogue: its operations (named alike
// in every catalogue: IValve has LoadValve, LoadAllValves, ValveExists, ...), its table
// and key column, the texts that differ, and a record maker.
#define CATALOGUE_OPERATIONS(X)                          \
  using I = I##X;                                        \
  using R = X##Record;                                   \
  static constexpr const char* kInterface = "I" #X;      \
  static constexpr auto load = &I::Load##X;              \
  static constexpr auto loadAll = &I::LoadAll##X##s;     \
  static constexpr auto exists = &I::X##Exists;          \
  static constexpr auto save = &I::Save##X;              \
  static constexpr auto saveAll = &I::Save##X##s;        \
  static constexpr auto remove = &I::Delete##X;          \
  static constexpr auto removeAll = &I::DeleteAll##X##s; \
  static constexpr auto list = &I::List##X##Models

struct Defaults {
  static constexpr bool kOrdered = true;         // loaded by model, else in table order
  static constexpr const char* kDeleteAllText = nullptr;  // "delete * from <table>"
};

struct ValveCase : Defaults {
  CATALOGUE_OPERATIONS(Valve);
  static constexpr const char *kTable = "b_valve", *kKey = "ValveModel";
  static R Make(const std::string& key, double v) { return {key, v, v + 0.5, "铸铁", "", "M", "闸阀"}; }
  static auto Tie(const R& r) { return std::tie(r.ValveModel, r.VDia, r.VPress, r.VMaterial, r.ProdDate, r.Mfr, r.Memo); }
};

struct RodPumpCase : Defaults {
  static constexpr bool kOrdered = false;
  CATALOGUE_OPERATIONS(RodPump);
  static constexpr const char *kTable = "b_rod_pump", *kKey = "PumpModel";
  static R Make(const std::string& key, double v) { return {key, v, 3, "2001-1-1", "宝鸡", "", v / 7, v * 3, 0.9}; }
  static auto Tie(const R& r) {
    return std::tie(r.PumpModel, r.RatedPower, r.RodNum, r.ProdDate, r.Mfr, r.Memo, r.RodCC, r.RodCS, r.Conversion);
  }
};

struct AcentricPumpCase : Defaults {
  CATALOGUE_OPERATIONS(AcentricPump);
  static constexpr const char *kTable = "b_acentric_pump", *kKey = "PumpModel", *kDeleteAllText = "delete  * from b_acentric_pump";
  static R Make(const std::string& key, double v) { return {key, v, v + 0.25, "", "沈阳", "D" + key}; }
  static auto Tie(const R& r) { return std::tie(r.PumpModel, r.RatedPower, r.LeafDia, r.ProdDate, r.Mfr, r.Memo); }
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
  std::unique_ptr<typename C::I> object_;
};

using Catalogues = ::testing::Types<ValveCase, RodPumpCase, AcentricPumpCase>;
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
  std::vector<std::string> keys{"stale"};
  ASSERT_TRUE(this->Call(C::list, keys));
  EXPECT_EQ(keys, (std::vector<std::string>{"A-1", "B-2", "C-3"}));
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

TYPED_TEST(CatalogueSuite, RefusedSavesAndAMissingTableWriteNothing) {
  using C = TypeParam;
  ASSERT_TRUE(this->Call(C::save, C::Make("A", 1)));
  this->sql_.clear();
  EXPECT_FALSE(this->Call(C::save, C::Make("", 1)));
  EXPECT_EQ(this->messages_.messages().size(), 1u);  // each catalogue gives its own text
  this->messages_.clear();
  // A model holding a quote cannot be deleted by its statement, so it is not written.
  EXPECT_FALSE(this->Call(C::save, C::Make("A' or ''='", 1)));
  EXPECT_TRUE(this->sql_.texts().empty());
  EXPECT_TRUE(this->messages_.messages().empty());
  EXPECT_EQ(this->Keys(), std::vector<std::string>{"A"});

  this->Exec(std::string("drop table ") + C::kTable);
  EXPECT_FALSE(this->Call(C::save, C::Make("A", 1)));
  EXPECT_EQ(this->messages_.messages().size(), 1u);
  EXPECT_TRUE(this->sql_.texts("ExecuteSQL").empty());
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
  ASSERT_TRUE(rod);
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
  // The delete of every point is plain SQL and runs on both engines.
  sql_.clear();
  ASSERT_TRUE(rod->DeleteAllRodPumpParams());
  EXPECT_EQ(sql_.texts(), std::vector<std::string>{"delete from b_rod_pump_param "});
  EXPECT_FALSE(rod->LoadAllRodPumpParams(points));
}

#undef CATALOGUE_OPERATIONS

}  // namespace
}  // namespace petrodb::test
