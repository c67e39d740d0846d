// The equipment behind the stations and wells of an injection network: the
// pumps installed at each station (two kinds sharing one pump-code space), the
// downhole string of injection wells and the pump input powers of a case.
#include <algorithm>
#include <tuple>

#include "TestSupport.h"
#include "petrodb/network/IPumpInputPower.h"
#include "petrodb/network/IRodStruct.h"
#include "petrodb/network/IStaAcentricPump.h"
#include "petrodb/network/IStaRodPump.h"

namespace petrodb::test {
namespace {

using Strings = std::vector<std::string>;

// ---- station pumps: one suite over both kinds ----

// The names a kind forms from its stem: IStaRodPump, StaRodPumpRecord, LoadStationRodPumps, ...
#define STATION_PUMP_KIND(Stem, Table)                    \
  using I = ISta##Stem##Pump;                             \
  using R = Sta##Stem##PumpRecord;                        \
  static constexpr const char* kInterface = "ISta" #Stem "Pump"; \
  static constexpr const char* kTable = Table;            \
  static constexpr auto load = &I::LoadStation##Stem##Pumps;       \
  static constexpr auto loadAll = &I::LoadAllStation##Stem##Pumps; \
  static constexpr auto exists = &I::Station##Stem##PumpsExist;    \
  static constexpr auto save = &I::SaveStation##Stem##Pumps;       \
  static constexpr auto saveList = &I::SaveStation##Stem##PumpList

struct AcentricKind;
struct RodKind {
  STATION_PUMP_KIND(Rod, "b_sta_rod_pump");
  using Other = AcentricKind;
  static constexpr const char *kTableMissing = "注水站柱塞泵设备数据表为空！", *kSaveFailed = "数据保存出错！";
  static constexpr auto remove = &I::DeleteStationRodPumps;
  static R Make(const std::string& s, const std::string& c, const std::string& m, double v) {
    return {s, c, m, v, v / 3, -v, "Y-" + c, "2021-3-4", '1', "备注" + c};
  }
  static auto Tie(const R& r) { return std::tie(r.StaName, r.PumpCode, r.RodDia, r.Isactive, r.Memo); }
};

struct AcentricKind {
  STATION_PUMP_KIND(Acentric, "b_sta_acentric_pump");
  using Other = RodKind;
  static constexpr const char *kTableMissing = "注水站离心泵设备数据表为空！", *kSaveFailed = "保存数据库出错！";
  static constexpr auto remove = &I::DeleteStationAcentricPumps;
  static R Make(const std::string& s, const std::string& c, const std::string& m, double v) {
    return {s, c, m, 2950, v, v * 10, 0.78, 9, "M-" + c, "", '0', c};
  }
  static auto Tie(const R& r) { return std::tie(r.StaName, r.PumpCode, r.RatedQ, r.Isactive, r.Memo); }
};

template <class K>
class StationPumpSuite : public ProjectTest {
 protected:
  using I = typename K::I;
  using R = typename K::R;
  void SetUp() override {
    ProjectTest::SetUp();
    object_ = Make<I>(K::kInterface);
    other_ = Make<typename K::Other::I>(K::Other::kInterface);
    ASSERT_TRUE(object_ && other_);
  }
  bool Load(const char* station, std::vector<R>& out) { return (object_.get()->*K::load)(station, out); }
  bool LoadAll(std::vector<R>& out) { return (object_.get()->*K::loadAll)(out); }
  bool Save(const char* station, const std::vector<R>& pumps) { return (object_.get()->*K::save)(station, pumps); }
  bool SaveList(const std::vector<R>& pumps) { return (object_.get()->*K::saveList)(pumps); }
  // The station of every row, ordered.
  Strings Keys() { return Query(std::string("select StaName from ") + K::kTable + " order by StaName, PumpCode"); }
  Strings Codes(const std::vector<R>& pumps) {
    Strings codes;
    for (const auto& p : pumps) codes.push_back(p.StaName + "/" + p.PumpCode + "/" + p.PumpModel);
    return codes;
  }
  std::unique_ptr<I> object_;
  std::unique_ptr<typename K::Other::I> other_;
};

using Kinds = ::testing::Types<RodKind, AcentricKind>;
TYPED_TEST_SUITE(StationPumpSuite, Kinds);

TYPED_TEST(StationPumpSuite, SavingReplacesOnlyTheCodesTheListCarries) {
  using K = TypeParam;
  ASSERT_TRUE(this->SaveList({K::Make("S1", "P1", "A", 1), K::Make("S1", "P2", "A", 2), K::Make("S2", "P2", "A", 3)}));
  this->sql_.clear();
  // The records carry another station: they are written under the one given.
  const auto p2 = K::Make("elsewhere", "P2", "B", 20.5), p3 = K::Make("", "P3", "A", 30);
  ASSERT_TRUE(this->Save("S1", {p2, p3}));
  const std::string del = std::string("delete * from ") + K::kTable + " where StaName = 'S1' and PumpCode = '";
  EXPECT_EQ(this->sql_.texts("ExecuteSQL"), (Strings{del + "P2'", del + "P3'"}));

  std::vector<typename K::R> pumps;
  ASSERT_TRUE(this->Load("S1", pumps));
  // On a server the Access-form deletes are refused and the save goes on: the
  // old row of P2 stays beside the new one. Rows come by code, then model.
  ASSERT_EQ(this->Codes(pumps), this->jet() ? (Strings{"S1/P1/A", "S1/P2/B", "S1/P3/A"})
                                            : (Strings{"S1/P1/A", "S1/P2/A", "S1/P2/B", "S1/P3/A"}));
  auto expected = p2;
  expected.StaName = "S1";
  EXPECT_EQ(K::Tie(pumps[this->jet() ? 1 : 2]), K::Tie(expected));
  // The other station keeps its pump of the same code.
  ASSERT_TRUE(this->Load("S2", pumps));
  EXPECT_EQ(this->Codes(pumps), Strings{"S2/P2/A"});
  // An empty list deletes and writes nothing.
  this->sql_.clear();
  EXPECT_TRUE(this->Save("S1", {}));
  EXPECT_EQ(this->sql_.texts("ExecuteSQL").size() + this->sql_.texts("SaveData").size(), 0u);
}

TYPED_TEST(StationPumpSuite, ListsExistenceAndDeletes) {
  using K = TypeParam;
  ASSERT_TRUE(this->SaveList({K::Make("S2", "P9", "A", 1), K::Make("S1", "P1", "A", 2), K::Make("S1", "P0", "Z", 3)}));
  std::vector<typename K::R> all;
  ASSERT_TRUE(this->LoadAll(all));
  // Table order, not ordered by station.
  EXPECT_EQ(this->Codes(all), (Strings{"S2/P9/A", "S1/P1/A", "S1/P0/Z"}));
  EXPECT_TRUE((this->object_.get()->*K::exists)("S1"));
  EXPECT_FALSE((this->object_.get()->*K::exists)("S3"));
  EXPECT_TRUE((this->object_.get()->*K::remove)("S1"));
  EXPECT_EQ(this->Keys(), Strings{"S2"});
}

TYPED_TEST(StationPumpSuite, APumpCodeIsTakenByTheOtherKindOfPump) {
  using K = TypeParam;
  ASSERT_TRUE((this->other_.get()->*K::Other::saveList)({K::Other::Make("S1", "P1", "X", 1)}));
  ASSERT_TRUE(this->SaveList({K::Make("S1", "P2", "A", 1)}));
  this->sql_.clear();
  EXPECT_TRUE(this->object_->IsPumpCodeTaken("S1", "P1"));
  EXPECT_EQ(this->sql_.texts(), Strings{std::string("select PumpCode from ") + K::Other::kTable +
                                        " where StaName = 'S1' and PumpCode ='P1'"});
  // Its own table is not asked: its own code is free as far as the other kind goes.
  EXPECT_FALSE(this->object_->IsPumpCodeTaken("S1", "P2"));
  EXPECT_FALSE(this->object_->IsPumpCodeTaken("S2", "P1"));
}

TYPED_TEST(StationPumpSuite, FailedSavesShowTheirMessages) {
  using K = TypeParam;
  ASSERT_TRUE(this->SaveList({K::Make("S1", "P1", "A", 1)}));
  // A code holding a quote refuses the whole save before anything is sent.
  this->sql_.clear();
  EXPECT_FALSE(this->Save("S1", {K::Make("S1", "P2", "A", 1), K::Make("S1", "P1' or ''='", "A", 1)}));
  EXPECT_TRUE(this->sql_.texts("ExecuteSQL").empty());
  EXPECT_EQ(this->Keys(), Strings{"S1"});

  // A table with only the key columns: the deletes run, the insert fails.
  this->Exec(std::string("drop table ") + K::kTable);
  this->Exec(std::string("create table ") + K::kTable + " (StaName varchar(40), PumpCode varchar(40))");
  EXPECT_FALSE(this->Save("S1", {K::Make("S1", "P1", "A", 1)}));
  EXPECT_TRUE(this->Keys().empty());
  this->Exec(std::string("drop table ") + K::kTable);
  EXPECT_FALSE(this->Save("S1", {K::Make("S1", "P1", "A", 1)}));
  // The bulk append shows nothing.
  EXPECT_FALSE(this->SaveList({K::Make("S1", "P1", "A", 1)}));
  EXPECT_EQ(this->messages_.texts(), (Strings{K::kSaveFailed, K::kTableMissing}));
}

// ---- downhole strings of injection wells ----

RodStructRecord Horizon(const std::string& well, const std::string& horizon, double v) {
  return {well,    horizon, "分注",  static_cast<int>(v), "偏心",  "平式",  "J55",   62,      "一级",  v + 0.1,
          v + 0.2, v + 0.3, v + 0.4, "Y341",              v + 0.5, v + 0.6, v + 0.7, v + 0.8, v + 0.9, -v};
}
auto Tie(const RodStructRecord& r) { return std::tie(r.Jh, r.Prod_horizon, r.Packer_num, r.Plug_out_dia); }
Strings WellHorizons(const std::vector<RodStructRecord>& rows) {
  Strings out;
  for (const auto& r : rows) out.push_back(r.Jh + "/" + r.Prod_horizon);
  return out;
}

class RodStructTest : public ObjectTest<IRodStruct, "IRodStruct"> {
 protected:
  Strings Rows() { return Query("select Jh from w_rod_struct order by Jh, Prod_horizon"); }
};

TEST_F(RodStructTest, AWellsRowsAreReplacedTogether) {
  ASSERT_TRUE(object_->SaveRodStructList({Horizon("W1", "S1", 1), Horizon("W1", "S2", 2), Horizon("W2", "S1", 3)}));
  sql_.clear();
  // Every row of the well goes; each new one is written under the well given.
  ASSERT_TRUE(object_->SaveWellRodStructs("W1", {Horizon("other", "P3", 4)}));
  EXPECT_EQ(sql_.texts("ExecuteSQL"), Strings{"delete from w_rod_struct where Jh = 'W1'"});

  std::vector<RodStructRecord> rows;
  ASSERT_TRUE(object_->LoadWellRodStructs("W1", rows));
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(Tie(rows[0]), Tie(Horizon("W1", "P3", 4)));
  EXPECT_FALSE(object_->WellRodStructsExist("W"));

  // An empty or null well is refused.
  EXPECT_FALSE(object_->SaveWellRodStructs("", rows));
  EXPECT_FALSE(object_->SaveWellRodStructs(nullptr, rows));
  EXPECT_EQ(messages_.texts(), (Strings{"注水井号不能为空！", "注水井号不能为空！"}));
}

TEST_F(RodStructTest, ListsByPrefixAndWhole) {
  ASSERT_TRUE(object_->SaveRodStructList(
      {Horizon("X3-2", "S1", 1), Horizon("A1", "S1", 2), Horizon("X3-10", "S2", 3), Horizon("BX3", "S1", 4)}));
  std::vector<RodStructRecord> rows;
  ASSERT_TRUE(object_->LoadRodStructsByPrefix("X3", rows));
  // Unordered: the engine may answer through the well index.
  Strings found = WellHorizons(rows);
  std::sort(found.begin(), found.end());
  EXPECT_EQ(found, (Strings{"X3-10/S2", "X3-2/S1"}));
  ASSERT_TRUE(object_->LoadAllRodStructs(rows));
  EXPECT_EQ(WellHorizons(rows), (Strings{"A1/S1", "BX3/S1", "X3-10/S2", "X3-2/S1"}));
  // A prefix holding a quote is refused, not spliced.
  EXPECT_FALSE(object_->LoadRodStructsByPrefix("X' or ''='", rows));
  EXPECT_TRUE(rows.empty());
}

TEST_F(RodStructTest, ANetworksInjectionWellsAreReadAndDeletedByItsNodes) {
  Exec("insert into n_nodes (PipenetName, NodeName, NodeType) values ('N1', 'W2', 2), ('N1', 'W1', 2), ('N1', 'R1', 1), "
       "('N1', 'W9', 2), ('N2', 'W3', 2)");
  // R1 has a string row but is no injection well; W3 belongs to another network.
  ASSERT_TRUE(object_->SaveRodStructList(
      {Horizon("W2", "S1", 1), Horizon("R1", "S1", 2), Horizon("W1", "S2", 3), Horizon("W1", "S1", 4),
       Horizon("W3", "S1", 5)}));
  std::vector<RodStructRecord> rows;
  sql_.clear();
  ASSERT_TRUE(object_->LoadPipenetRodStructs("N1", rows));
  EXPECT_EQ(sql_.texts(), Strings{"select * from w_rod_struct where Jh in ( select NodeName from n_nodes where "
                                  "PipenetName = 'N1' and NodeType = 2 ) order by Jh"});
  Strings found = WellHorizons(rows);
  std::sort(found.begin(), found.begin() + 2);  // the order within a well is the engine's
  EXPECT_EQ(found, (Strings{"W1/S1", "W1/S2", "W2/S1"}));

  ASSERT_TRUE(object_->DeletePipenetRodStructs("N1"));
  EXPECT_EQ(Rows(), (Strings{"R1", "W3"}));
}

TEST_F(RodStructTest, DeletesByWellAndByList) {
  ASSERT_TRUE(object_->SaveRodStructList(
      {Horizon("W1", "S1", 1), Horizon("W1", "S2", 2), Horizon("W2", "S1", 3), Horizon("W3", "S1", 4),
       Horizon("W4", "S1", 5)}));
  ASSERT_TRUE(object_->DeleteWellRodStructs("W1"));
  sql_.clear();
  ASSERT_TRUE(object_->DeleteRodStructsOfWells({"W2", "W4", "none"}));
  EXPECT_EQ(sql_.texts(), Strings{"delete from w_rod_struct where Jh in ('W2', 'W4', 'none')"});
  EXPECT_EQ(Rows(), Strings{"W3"});
  // No well at all is "in ()", which neither engine runs.
  EXPECT_FALSE(object_->DeleteRodStructsOfWells({}));
}

// ---- pump input powers of a calculation case ----

class PumpInputPowerTest : public ObjectTest<IPumpInputPower, "IPumpInputPower"> {
 protected:
  Strings Rows() { return Query("select Pump_ID from r_pump_input_power order by Proj_name, Pump_ID"); }
};

TEST_F(PumpInputPowerTest, ACasesPowersAreSavedListedAndDeleted) {
  ASSERT_TRUE(object_->SaveCasePumpPowers("C1", {{"x", "B", 410.5, 0.93}, {"", "A", 0.125, 0.5}}));
  ASSERT_TRUE(object_->SavePumpPowers({{"C2", "A", 7, 0.7}}));
  std::vector<PumpInputPowerRecord> powers;
  sql_.clear();
  ASSERT_TRUE(object_->LoadCasePumpPowers("C1", powers));
  ASSERT_EQ(powers.size(), 2u);
  EXPECT_EQ(std::tie(powers[0].Proj_name, powers[0].Pump_ID, powers[0].MotorInp_power, powers[0].MotorRunEff),
            std::make_tuple(std::string("C1"), std::string("A"), 0.125, 0.5));
  double power = -1, eff = -1;
  ASSERT_TRUE(object_->LoadPumpPower("C1", "B", power, eff));
  EXPECT_EQ(std::make_tuple(power, eff), std::make_tuple(410.5, 0.93));
  EXPECT_FALSE(object_->LoadPumpPower("C2", "B", power, eff));
  EXPECT_EQ(power, 410.5);

  ASSERT_TRUE(object_->DeletePumpPower("C1", "A"));
  EXPECT_EQ(Rows(), (Strings{"B", "A"}));
  ASSERT_TRUE(object_->DeleteCasePumpPowers("C1"));
  EXPECT_EQ(Rows(), Strings{"A"});
}

TEST_F(PumpInputPowerTest, EmptyNamesAreRefusedBeforeAnyAccess) {
  double power = 1, eff = 2;
  EXPECT_FALSE(object_->SaveCasePumpPowers(nullptr, {{"C", "A", 1, 1}}));
  EXPECT_FALSE(object_->LoadPumpPower("C1", "", power, eff));
  EXPECT_FALSE(object_->LoadPumpPower("", "A", power, eff));
  EXPECT_TRUE(sql_.texts().empty());
  EXPECT_EQ(messages_.texts(), (Strings{"工况名称不能为空", "工况名称或泵ID不能为空", "工况名称或泵ID不能为空"}));
  EXPECT_EQ(std::make_tuple(power, eff), std::make_tuple(1.0, 2.0));
}

TEST_F(PumpInputPowerTest, AnUnreadableEfficiencyFailsTheLoadAfterThePower) {
  ASSERT_TRUE(object_->SavePumpPowers({{"C1", "A", 7.25, 0.7}, {"C1", "B", 8, 0.8}}));
  Exec("update r_pump_input_power set MotorRunEff = NULL where Pump_ID = 'A'");
  double power = 0, eff = -1;
  EXPECT_FALSE(object_->LoadPumpPower("C1", "A", power, eff));
  EXPECT_EQ(std::make_tuple(power, eff), std::make_tuple(7.25, -1.0));
}

}  // namespace
}  // namespace petrodb::test
