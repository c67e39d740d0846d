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

struct AcentricKind;
struct RodKind {
  using I = IStaRodPump;
  using R = StaRodPumpRecord;
  using Other = AcentricKind;
  static constexpr const char *kInterface = "IStaRodPump", *kTable = "b_sta_rod_pump";
  static constexpr const char *kTableMissing = "注水站柱塞泵设备数据表为空！", *kSaveFailed = "数据保存出错！";
  static constexpr auto load = &I::LoadStationRodPumps;
  static constexpr auto loadAll = &I::LoadAllStationRodPumps;
  static constexpr auto exists = &I::StationRodPumpsExist;
  static constexpr auto save = &I::SaveStationRodPumps;
  static constexpr auto saveList = &I::SaveStationRodPumpList;
  static constexpr auto remove = &I::DeleteStationRodPumps;
  static R Make(const std::string& s, const std::string& c, const std::string& m, double v) {
    return {s, c, m, v, v / 3, -v, "Y-" + c, "2021-3-4", '1', "备注" + c};
  }
  static auto Tie(const R& r) {
    return std::tie(r.StaName, r.PumpCode, r.PumpModel, r.RodDia, r.Cc, r.Cs, r.MotorModel, r.SetupDate, r.Isactive,
                    r.Memo);
  }
};

struct AcentricKind {
  using I = IStaAcentricPump;
  using R = StaAcentricPumpRecord;
  using Other = RodKind;
  static constexpr const char *kInterface = "IStaAcentricPump", *kTable = "b_sta_acentric_pump";
  static constexpr const char *kTableMissing = "注水站离心泵设备数据表为空！", *kSaveFailed = "保存数据库出错！";
  static constexpr auto load = &I::LoadStationAcentricPumps;
  static constexpr auto loadAll = &I::LoadAllStationAcentricPumps;
  static constexpr auto exists = &I::StationAcentricPumpsExist;
  static constexpr auto save = &I::SaveStationAcentricPumps;
  static constexpr auto saveList = &I::SaveStationAcentricPumpList;
  static constexpr auto remove = &I::DeleteStationAcentricPumps;
  static R Make(const std::string& s, const std::string& c, const std::string& m, double v) {
    return {s, c, m, 2950, v, v * 10, 0.78, 9, "M-" + c, "", '0', c};
  }
  static auto Tie(const R& r) {
    return std::tie(r.StaName, r.PumpCode, r.PumpModel, r.RatedRev, r.RatedQ, r.RatedDist, r.RatedEff, r.Levels,
                    r.MotorModel, r.SetupDate, r.Isactive, r.Memo);
  }
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
  void ExpectErrorMessages(const Strings& texts) {
    EXPECT_EQ(messages_.texts(), texts);
    for (const auto& m : messages_.messages()) {
      EXPECT_EQ(m.style, MessageStyle::Plain);
      EXPECT_EQ(m.caption, "错误信息");
    }
    messages_.clear();
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
  EXPECT_EQ(this->sql_.texts("GetDataFromDB"), Strings{K::kTable});
  EXPECT_EQ(this->sql_.texts("ExecuteSQL"), (Strings{del + "P2'", del + "P3'"}));
  EXPECT_EQ(this->sql_.texts("SaveData").size(), 1u);

  std::vector<typename K::R> pumps{K::Make("stale", "", "", 0)};
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
  EXPECT_TRUE(this->messages_.messages().empty());

  // An empty list deletes and writes nothing.
  this->sql_.clear();
  EXPECT_TRUE(this->Save("S1", {}));
  EXPECT_TRUE(this->sql_.texts("ExecuteSQL").empty());
  EXPECT_TRUE(this->sql_.texts("SaveData").empty());
}

TYPED_TEST(StationPumpSuite, ListsUnreadableRowsExistenceAndDeletes) {
  using K = TypeParam;
  ASSERT_TRUE(this->SaveList({K::Make("S2", "P9", "A", 1), K::Make("S1", "P1", "A", 2), K::Make("S1", "P0", "Z", 3)}));
  std::vector<typename K::R> all{K::Make("stale", "", "", 0)};
  ASSERT_TRUE(this->LoadAll(all));
  // Table order, not ordered by station.
  EXPECT_EQ(this->Codes(all), (Strings{"S2/P9/A", "S1/P1/A", "S1/P0/Z"}));
  EXPECT_TRUE((this->object_.get()->*K::exists)("S1"));
  EXPECT_FALSE((this->object_.get()->*K::exists)("S3"));
  // An unreadable row ends the list; the rows before it (by code) stay.
  this->Exec(std::string("update ") + K::kTable + " set MotorModel = NULL where PumpCode = 'P1'");
  EXPECT_FALSE(this->Load("S1", all));
  EXPECT_EQ(this->Codes(all), Strings{"S1/P0/Z"});

  EXPECT_TRUE((this->object_.get()->*K::remove)("S1"));
  EXPECT_TRUE((this->object_.get()->*K::remove)("none"));
  EXPECT_EQ(this->Keys(), Strings{"S2"});
  EXPECT_FALSE(this->Load("S1", all));
  EXPECT_TRUE(all.empty());
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
  // And the other way round.
  EXPECT_TRUE(this->other_->IsPumpCodeTaken("S1", "P2"));
  EXPECT_FALSE(this->other_->IsPumpCodeTaken("S1", "P1"));
}

TYPED_TEST(StationPumpSuite, FailedSavesShowTheirMessages) {
  using K = TypeParam;
  ASSERT_TRUE(this->SaveList({K::Make("S1", "P1", "A", 1)}));
  // A code holding a quote refuses the whole save before anything is sent.
  this->sql_.clear();
  EXPECT_FALSE(this->Save("S1", {K::Make("S1", "P2", "A", 1), K::Make("S1", "P1' or ''='", "A", 1)}));
  EXPECT_TRUE(this->sql_.texts("ExecuteSQL").empty());
  EXPECT_TRUE(this->sql_.texts("SaveData").empty());
  EXPECT_TRUE(this->messages_.messages().empty());
  EXPECT_EQ(this->Keys(), Strings{"S1"});

  // A table with only the key columns: the deletes run, the insert fails.
  this->Exec(std::string("drop table ") + K::kTable);
  this->Exec(std::string("create table ") + K::kTable + " (StaName varchar(40), PumpCode varchar(40))");
  EXPECT_FALSE(this->Save("S1", {K::Make("S1", "P1", "A", 1)}));
  this->ExpectErrorMessages({K::kSaveFailed});
  EXPECT_TRUE(this->Keys().empty());

  this->Exec(std::string("drop table ") + K::kTable);
  this->sql_.clear();
  EXPECT_FALSE(this->Save("S1", {K::Make("S1", "P1", "A", 1)}));
  this->ExpectErrorMessages({K::kTableMissing});
  EXPECT_EQ(this->sql_.texts(), Strings{K::kTable});
  // The bulk append neither probes nor shows anything.
  EXPECT_FALSE(this->SaveList({K::Make("S1", "P1", "A", 1)}));
  EXPECT_TRUE(this->messages_.messages().empty());
}

// ---- downhole strings of injection wells ----

RodStructRecord Horizon(const std::string& well, const std::string& horizon, double v) {
  return {well,    horizon, "分注",  static_cast<int>(v), "偏心",  "平式",  "J55",   62,      "一级",  v + 0.1,
          v + 0.2, v + 0.3, v + 0.4, "Y341",              v + 0.5, v + 0.6, v + 0.7, v + 0.8, v + 0.9, -v};
}
auto Tie(const RodStructRecord& r) {
  return std::tie(r.Jh, r.Prod_horizon, r.Inj_type, r.Packer_num, r.Rod_struct, r.Buckle_type, r.Tube_level,
                  r.Tube_in_dia, r.Distr_level, r.Distr_len, r.Distr_core_dia, r.Distr_core_len, r.Distr_mouth_dia,
                  r.Packer_type, r.Packer_len, r.Packer_in_dia, r.Tee_in_dia, r.Sieve_tube_len, r.Sieve_tube_out_dia,
                  r.Plug_out_dia);
}
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
  EXPECT_EQ(sql_.texts("GetDataFromDB"), Strings{"w_rod_struct"});
  EXPECT_EQ(sql_.texts("ExecuteSQL"), Strings{"delete from w_rod_struct where Jh = 'W1'"});
  EXPECT_EQ(sql_.texts("SaveData").size(), 1u);

  std::vector<RodStructRecord> rows{Horizon("stale", "", 0)};
  ASSERT_TRUE(object_->LoadWellRodStructs("W1", rows));
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(Tie(rows[0]), Tie(Horizon("W1", "P3", 4)));
  RodStructRecord one;
  ASSERT_TRUE(object_->LoadRodStruct("W2", "S1", one));
  EXPECT_EQ(Tie(one), Tie(Horizon("W2", "S1", 3)));
  EXPECT_FALSE(object_->LoadRodStruct("W2", "S2", one));
  EXPECT_TRUE(object_->WellRodStructsExist("W2"));
  EXPECT_FALSE(object_->WellRodStructsExist("W"));
  EXPECT_TRUE(messages_.messages().empty());

  // Refusals: an empty well, a well holding a quote, a missing table.
  EXPECT_FALSE(object_->SaveWellRodStructs("", rows));
  EXPECT_FALSE(object_->SaveWellRodStructs(nullptr, rows));
  EXPECT_EQ(messages_.texts(), (Strings{"注水井号不能为空！", "注水井号不能为空！"}));
  messages_.clear();
  sql_.clear();
  EXPECT_FALSE(object_->SaveWellRodStructs("W1' or ''='", rows));
  EXPECT_TRUE(sql_.texts("ExecuteSQL").empty());
  EXPECT_EQ(Rows(), (Strings{"W1", "W2"}));
  Exec("drop table w_rod_struct");
  EXPECT_FALSE(object_->SaveWellRodStructs("W1", rows));
  EXPECT_EQ(messages_.texts(), Strings{"井筒管柱结构数据表为空！"});
  EXPECT_EQ(messages_.messages()[0].caption, "错误信息");
}

TEST_F(RodStructTest, ListsByPrefixAndWhole) {
  ASSERT_TRUE(object_->SaveRodStructList(
      {Horizon("X3-2", "S1", 1), Horizon("A1", "S1", 2), Horizon("X3-10", "S2", 3), Horizon("BX3", "S1", 4)}));
  std::vector<RodStructRecord> rows{Horizon("stale", "", 0)};
  sql_.clear();
  ASSERT_TRUE(object_->LoadRodStructsByPrefix("X3", rows));
  // Unordered: the engine may answer through the well index.
  Strings found = WellHorizons(rows);
  std::sort(found.begin(), found.end());
  EXPECT_EQ(found, (Strings{"X3-10/S2", "X3-2/S1"}));
  ASSERT_TRUE(object_->LoadAllRodStructs(rows));
  EXPECT_EQ(WellHorizons(rows), (Strings{"A1/S1", "BX3/S1", "X3-10/S2", "X3-2/S1"}));
  EXPECT_EQ(sql_.texts(), (Strings{"select * from w_rod_struct where Jh like 'X3%'",
                                   "select * from w_rod_struct order by jh"}));
  EXPECT_FALSE(object_->LoadRodStructsByPrefix("Q", rows));
  EXPECT_TRUE(rows.empty());
  // A prefix holding a quote is refused, not spliced.
  EXPECT_FALSE(object_->LoadRodStructsByPrefix("X' or ''='", rows));
  EXPECT_TRUE(rows.empty());
}

TEST_F(RodStructTest, ANetworksInjectionWellsAreReadAndDeletedByItsNodes) {
  for (const char* node : {"'N1', 'W2', 2", "'N1', 'W1', 2", "'N1', 'R1', 1", "'N1', 'W9', 2", "'N2', 'W3', 2"})
    Exec(std::string("insert into n_nodes (PipenetName, NodeName, NodeType) values (") + node + ")");
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

  sql_.clear();
  EXPECT_FALSE(object_->DeletePipenetRodStructs(""));
  EXPECT_EQ(messages_.texts(), Strings{"管网名称不能为空！"});
  EXPECT_TRUE(sql_.texts().empty());
  ASSERT_TRUE(object_->DeletePipenetRodStructs("N1"));
  EXPECT_EQ(Rows(), (Strings{"R1", "W3"}));
  EXPECT_FALSE(object_->LoadPipenetRodStructs("N1", rows));
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
  sql_.clear();
  EXPECT_FALSE(object_->DeleteRodStructsOfWells({}));
  EXPECT_EQ(sql_.texts(), Strings{"delete from w_rod_struct where Jh in ()"});
  // One name holding a quote refuses the statement: nothing is deleted.
  EXPECT_FALSE(object_->DeleteRodStructsOfWells({"W3", "x' or ''='"}));
  EXPECT_EQ(Rows(), Strings{"W3"});
}

TEST_F(RodStructTest, AnUnreadableFieldEndsTheRead) {
  ASSERT_TRUE(object_->SaveRodStructList({Horizon("W1", "S1", 1), Horizon("W1", "S2", 2), Horizon("W1", "S3", 3)}));
  Exec("update w_rod_struct set Tee_in_dia = NULL where Prod_horizon = 'S2'");
  std::vector<RodStructRecord> rows;
  EXPECT_FALSE(object_->LoadAllRodStructs(rows));
  EXPECT_FALSE(object_->LoadWellRodStructs("W1", rows));
  // Table order: the row before the unreadable one stays.
  EXPECT_EQ(WellHorizons(rows), Strings{"W1/S1"});
  RodStructRecord one;
  EXPECT_FALSE(object_->LoadRodStruct("W1", "S2", one));
}

// ---- pump input powers of a calculation case ----

class PumpInputPowerTest : public ObjectTest<IPumpInputPower, "IPumpInputPower"> {
 protected:
  Strings Rows() { return Query("select Pump_ID from r_pump_input_power order by Proj_name, Pump_ID"); }
};

TEST_F(PumpInputPowerTest, ACasesPowersAreSavedListedAndDeleted) {
  ASSERT_TRUE(object_->SaveCasePumpPowers("C1", {{"x", "B", 410.5, 0.93}, {"", "A", 0.125, 0.5}}));
  ASSERT_TRUE(object_->SavePumpPowers({{"C2", "A", 7, 0.7}}));
  std::vector<PumpInputPowerRecord> powers{{"stale", "", 0, 0}};
  sql_.clear();
  ASSERT_TRUE(object_->LoadCasePumpPowers("C1", powers));
  ASSERT_EQ(powers.size(), 2u);
  EXPECT_EQ(std::tie(powers[0].Proj_name, powers[0].Pump_ID, powers[0].MotorInp_power, powers[0].MotorRunEff),
            std::make_tuple(std::string("C1"), std::string("A"), 0.125, 0.5));
  EXPECT_EQ(std::tie(powers[1].Proj_name, powers[1].Pump_ID), std::make_tuple(std::string("C1"), std::string("B")));
  double power = -1, eff = -1;
  ASSERT_TRUE(object_->LoadPumpPower("C1", "B", power, eff));
  EXPECT_EQ(std::make_tuple(power, eff), std::make_tuple(410.5, 0.93));
  EXPECT_EQ(sql_.texts().back(),
            "select MotorInp_power, MotorRunEff from r_pump_input_power where Proj_name='C1' and Pump_ID='B'");
  EXPECT_FALSE(object_->LoadPumpPower("C2", "B", power, eff));
  EXPECT_EQ(power, 410.5);

  ASSERT_TRUE(object_->DeletePumpPower("C1", "A"));
  EXPECT_EQ(Rows(), (Strings{"B", "A"}));
  ASSERT_TRUE(object_->DeleteCasePumpPowers("C1"));
  EXPECT_EQ(Rows(), Strings{"A"});
  EXPECT_FALSE(object_->LoadCasePumpPowers("C1", powers));
  EXPECT_TRUE(powers.empty());
  EXPECT_TRUE(messages_.messages().empty());
}

TEST_F(PumpInputPowerTest, EmptyNamesAreRefusedBeforeAnyAccess) {
  std::vector<PumpInputPowerRecord> powers{{"stale", "", 0, 0}};
  double power = 1, eff = 2;
  EXPECT_FALSE(object_->LoadCasePumpPowers("", powers));
  EXPECT_TRUE(powers.empty());
  EXPECT_FALSE(object_->SaveCasePumpPowers(nullptr, {{"C", "A", 1, 1}}));
  EXPECT_FALSE(object_->DeleteCasePumpPowers(""));
  EXPECT_FALSE(object_->LoadPumpPower("C1", "", power, eff));
  EXPECT_FALSE(object_->LoadPumpPower("", "A", power, eff));
  EXPECT_FALSE(object_->DeletePumpPower("C1", nullptr));
  EXPECT_TRUE(sql_.texts().empty());
  EXPECT_EQ(messages_.texts(), (Strings{"工况名称不能为空", "工况名称不能为空", "工况名称不能为空",
                                        "工况名称或泵ID不能为空", "工况名称或泵ID不能为空", "工况名称或泵ID不能为空"}));
  for (const auto& m : messages_.messages())
    EXPECT_EQ(std::tie(m.style, m.caption), std::make_tuple(MessageStyle::Plain, std::string("错误信息")));
  EXPECT_EQ(std::make_tuple(power, eff), std::make_tuple(1.0, 2.0));
}

TEST_F(PumpInputPowerTest, AnUnreadableEfficiencyFailsTheLoadAfterThePower) {
  ASSERT_TRUE(object_->SavePumpPowers({{"C1", "A", 7.25, 0.7}, {"C1", "B", 8, 0.8}}));
  Exec("update r_pump_input_power set MotorRunEff = NULL where Pump_ID = 'A'");
  double power = 0, eff = -1;
  EXPECT_FALSE(object_->LoadPumpPower("C1", "A", power, eff));
  EXPECT_EQ(std::make_tuple(power, eff), std::make_tuple(7.25, -1.0));
  std::vector<PumpInputPowerRecord> powers;
  EXPECT_FALSE(object_->LoadCasePumpPowers("C1", powers));
  EXPECT_TRUE(powers.empty());
}

}  // namespace
}  // namespace petrodb::test
