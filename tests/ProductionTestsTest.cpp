// Station pumps' daily readings and efficiency tests, formation oil tests, the
// external production database's views, and `petrodb production`.
#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

#include "TestSupport.h"
#include "petrodb/production/IMpData.h"
#include "petrodb/production/IMpTest.h"
#include "petrodb/production/IOilTestData.h"
#include "petrodb/production/IOracleWellTest.h"
#include "petrodb/production/IProductionData.h"
#include "petrodb/project/IBasicWellData.h"

namespace petrodb::test {
namespace {

using Strings = std::vector<std::string>;

// Net1 holds station S1 (type 0) and a pump node named S2 (type 5); Net2 holds S2 as a station.
// The day's literal in the project's dialect.
std::string On(bool jet, int month, int day) {
  const std::string m = std::to_string(month), d = std::to_string(day);
  return jet ? "#2024-" + m + "-" + d + "#" : "'2024-0" + m + "-0" + d + "'";
}

const char* kNetworks =
    "insert into n_nodes (PipenetName, NodeName, NodeType) values ('Net1', 'S1', 0), ('Net1', 'S2', 5), ('Net2', 'S2', 0)";

class MpTestTest : public ObjectTest<IMpTest, "IMpTest"> {
 protected:
  std::string On(int day) const { return test::On(jet(), 3, day); }
  MpTestRecord Reading(const char* sta, const char* pump, int day, double flow) const {
    return {sta, pump, On(day), flow, 1.5, 0.5, 2};
  }
  Strings Stored() {
    return Query("select StaName || ' ' || PumpCode || ' ' || Scrq || ' ' || cast(Zsbll as integer) from d_mp_test "
                 "order by StaName, PumpCode, Scrq");
  }
};

TEST_F(MpTestTest, AReadingReplacesItsPumpAndDayOnly) {
  ASSERT_TRUE(object_->SaveMpTests({Reading("S1", "P1", 5, 10), Reading("S1", "P2", 5, 11), Reading("S1", "P1", 6, 12)}));
  sql_.clear();
  ASSERT_TRUE(object_->SaveMpTest(Reading("S1", "P1", 5, 20)));
  EXPECT_EQ(sql_.texts("ExecuteSQL"),
            Strings{"delete from d_mp_test where StaName='S1'and PumpCode='P1'and Scrq=" + On(5)});
  EXPECT_EQ(Stored(), (Strings{"S1 P1 2024-03-05 00:00:00 20", "S1 P1 2024-03-06 00:00:00 12",
                               "S1 P2 2024-03-05 00:00:00 11"}));

  MpTestRecord loaded;
  ASSERT_TRUE(object_->LoadMpTest("S1", "P2", On(5).c_str(), loaded));
  EXPECT_EQ(loaded.Zsbll, 11);

  std::vector<MpTestRecord> rows;
  ASSERT_TRUE(object_->LoadMpTestsLikeBetween("S", On(6).c_str(), On(9).c_str(), rows));
  EXPECT_EQ(sql_.texts().back(), "select * from d_mp_test where StaName like 'S%' and Scrq between " + On(6) + "and " +
                                     On(9) + " order by scrq desc,staname");
}

TEST_F(MpTestTest, NetworkStatementsAndThePumpView) {
  Exec(kNetworks);
  ASSERT_TRUE(object_->SaveMpTestList({Reading("S1", "P1", 5, 1), Reading("S1", "P2", 5, 2), Reading("S2", "P1", 5, 3)}));
  std::vector<MpTestRecord> rows;
  ASSERT_TRUE(object_->LoadPipenetMpTests("Net1", rows));
  EXPECT_EQ(rows.size(), 2u);
  // The readings of one date of a network name a column the table does not have.
  sql_.clear();
  EXPECT_FALSE(object_->LoadPipenetMpTestsAt("Net1", On(5).c_str(), rows));
  EXPECT_EQ(sql_.events().at(0).text, "select * from d_mp_test where Scrq = " + On(5) +
                                          " and Jh in ( select NodeName from n_nodes where PipenetName = 'Net1' and "
                                          "NodeType = 5 ) order by StaName, PumpCode");
  EXPECT_EQ(sql_.events().at(0).result, 2);

  Exec("insert into b_sta_rod_pump (StaName, PumpCode, PumpModel, RodDia) values ('S1', 'P1', 'D155', 40), "
       "('S1', 'P2', 'D280', 50)");
  std::vector<MpTestViewRecord> withPumps{MpTestViewRecord{}};
  ASSERT_TRUE(object_->LoadMpTestsWithPumps("S1", On(5).c_str(), withPumps));
  ASSERT_EQ(withPumps.size(), 2u);
  for (const auto& r : withPumps) EXPECT_EQ(r.RodDia, r.PumpCode == "P1" ? 40 : 50) << r.PumpCode;
  // A pump without equipment has no model: its row cannot be read.
  Exec("delete from b_sta_rod_pump where PumpCode = 'P2'");
  EXPECT_FALSE(object_->LoadMpTestsWithPumps("S1", On(5).c_str(), withPumps));

  ASSERT_TRUE(object_->DeletePipenetMpTests("Net1"));  // its stations, nodes of type 0
  EXPECT_EQ(Stored(), Strings{"S2 P1 2024-03-05 00:00:00 3"});
}

class MpDataTest : public ObjectTest<IMpData, "IMpData"> {
 protected:
  std::string On(int day) const { return test::On(jet(), 4, day); }
  MpDataRecord Test(const char* sta, const char* pump, int day, double power) const {
    return {sta, pump, On(day), 1, 2, 3, 4, 5, 6, 7, 0.9, power};
  }
};

TEST_F(MpDataTest, TestsByStationPumpAndDate) {
  Exec(kNetworks);
  ASSERT_TRUE(object_->SaveMpDataMany({Test("S1", "P1", 5, 10), Test("S1", "P2", 5, 11), Test("S1", "P1", 7, 12),
                                       Test("S2", "P1", 5, 13)}));
  std::vector<MpDataRecord> rows;
  sql_.clear();
  ASSERT_TRUE(object_->LoadPipenetMpDataAt("Net1", On(5).c_str(), rows));
  EXPECT_EQ(sql_.texts(), Strings{"select * from t_mp_data where Csrq = " + On(5) +
                                  " and  StaName in ( select NodeName from  n_nodes where PipenetName = 'Net1' and  "
                                  "NodeType = 0)  order by StaName, PumpCode"});
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[1].PumpCode, "P2");
  ASSERT_TRUE(object_->DeletePipenetMpData("Net2"));
  Strings stations;
  ASSERT_TRUE(object_->ListTestedStations(stations));
  EXPECT_EQ(stations, Strings{"S1"});
}

TEST_F(MpDataTest, AnEmptyPumpIsRefused) {
  EXPECT_FALSE(Make<IMpTest>("IMpTest")->SaveMpTest({"S1", "", On(5)}));
  EXPECT_FALSE(object_->SaveMpData({"S1", "", On(5)}));
  EXPECT_EQ(messages_.texts(), (Strings{"泵号不能为空！", "泵号不能为空！"}));
  EXPECT_TRUE(sql_.texts().empty());
}

class OilTestDataTest : public ObjectTest<IOilTestData, "IOilTestData"> {
 protected:
  void SetUp() override {
    ObjectTest::SetUp();
    Exec("insert into w_well_data (WellID, ProjectName) values ('W1', 'North'), ('W2', 'North'), ('S1', 'South'), "
         "('S2', 'South')");
  }
  static OilTestRecord Interval(float top, const char* conclusion) {
    OilTestRecord r;
    r.XH = "1", r.TopDepth = top, r.BottomDepth = top + 2.5f, r.LayerNum = 3, r.BeginDate = "2023-5-1";
    r.UnitOilProduct = 1.25f, r.Conclusion = conclusion;
    return r;
  }
  Strings Stored() { return Query("select WellID || ' ' || Conclusion from w_oiltest_data order by WellID, TopDepth"); }
};

TEST_F(OilTestDataTest, SavingAWellReplacesAllItsIntervals) {
  ASSERT_TRUE(object_->SaveOilTests({{"W1", {Interval(1520, "oil"), Interval(1480, "water")}}, {"S1", {Interval(900, "dry")}}}));
  sql_.clear();
  ASSERT_TRUE(object_->SaveWellOilTests({"W1", {Interval(1600, "gas")}}));
  EXPECT_EQ(sql_.texts("ExecuteSQL"), Strings{"delete from  w_oiltest_data where WellID='W1'"});
  EXPECT_EQ(Stored(), (Strings{"S1 dry", "W1 gas"}));

  WellOilTest tests;
  ASSERT_TRUE(object_->SaveWellOilTests({"W1", {Interval(1520, "oil"), Interval(1480, "water")}}));
  ASSERT_TRUE(object_->LoadWellOilTests("W1", tests));  // by top depth
  ASSERT_EQ(tests.records.size(), 2u);
  EXPECT_EQ(tests.records[0].Conclusion + " " + tests.records[0].BeginDate, "water 2023-5-1");
  EXPECT_TRUE(object_->LoadWellOilTests("W2", tests));  // a well without tests
  EXPECT_TRUE(tests.records.empty());

  Strings wells{"kept"};
  ASSERT_TRUE(object_->ListWellsWithOilTests({{"W2", {}}, {"S1", {}}}, wells));
  EXPECT_EQ(wells, (Strings{"kept", "S1"}));
  ASSERT_TRUE(object_->ListOilTestWells("North", wells));
  EXPECT_EQ(wells, Strings{"W1"});
  EXPECT_TRUE(object_->DeleteWellsOilTests({"S1", "W9"}));
  EXPECT_EQ(Stored(), (Strings{"W1 water", "W1 oil"}));
}

TEST_F(OilTestDataTest, TheProjectDeleteRemovesEveryProjectsTestsOnceOneWellHasATest) {
  ASSERT_TRUE(object_->SaveOilTests({{"W1", {Interval(1500, "oil")}}, {"S1", {Interval(900, "dry")}}}));
  // No well of the project has a test: nothing goes.
  ASSERT_TRUE(object_->DeleteWellOilTests("W1"));
  ASSERT_TRUE(object_->DeleteProjectOilTests("North"));
  EXPECT_EQ(Stored(), Strings{"S1 dry"});
  // One well of the project has a test: the other project's tests go too.
  ASSERT_TRUE(object_->SaveWellOilTests({"W2", {Interval(1500, "oil")}}));
  sql_.clear();
  ASSERT_TRUE(object_->DeleteProjectOilTests("North"));
  EXPECT_EQ(sql_.texts("ExecuteSQL"),
            Strings{"delete from w_oiltest_data where exists( select * from w_oiltest_data, w_well_data where "
                    "w_well_data.wellid = w_oiltest_data.wellid and  w_well_data.ProjectName = 'North' )"});
  EXPECT_TRUE(Stored().empty());
}

TEST_F(OilTestDataTest, EmptyNamesAndAMissingTableFail) {
  EXPECT_FALSE(object_->SaveWellOilTests({"", {Interval(1, "x")}}));
  EXPECT_FALSE(object_->SaveOilTests({}));  // silently
  EXPECT_TRUE(sql_.texts().empty());
  Exec("drop table w_oiltest_data");
  EXPECT_FALSE(object_->SaveWellOilTests({"W1", {Interval(1, "x")}}));  // silently too
  EXPECT_EQ(messages_.texts(), Strings{"井名称不能为空！"});
}

using OracleWellTestTest = ObjectTest<IOracleWellTest, "IOracleWellTest">;

TEST_F(OracleWellTestTest, EveryReadRunsOnTheViews) {
  Exec("insert into ext_daa01 (CM, KM, QKDY) values ('Plant1', 'U1', 'B1'), ('Plant1', ' U1', 'B2'), ('Plant2', 'U2', 'B3')");
  Exec("insert into ext_dba02 (CM, KM, ZM, JH, RQ, SCSJ, RPZSL, RZSL, GXYL, YY, TY) values "
       "('Plant1', 'U1', 'Z1', 'J1', '2024-01-04 00:00:00', 24, 50, 48, 9, 8, 2), "
       "('Plant1', 'U1', 'Z1', 'J1', '2024-01-05 00:00:00', 20, 50, 40, 9, 8, 2), "
       "('Plant1', 'U1', 'Z2', 'J2', '2024-01-06 00:00:00', 24, 60, 61, 9, 8, 2), "
       "('Plant2', 'U2', 'Z3', 'J3', '2024-01-05 00:00:00', 24, 70, 70, 9, 8, 2)");
  Strings list;
  ASSERT_TRUE(object_->ListPlants(list));
  EXPECT_EQ(list, (Strings{"Plant1", "Plant2"}));
  ASSERT_TRUE(object_->ListUnits("Plant1", list));
  EXPECT_EQ(list, (Strings{" U1", "U1"}));
  // The blank the statement puts before the unit finds only the unit stored with one.
  ASSERT_TRUE(object_->ListBlocks("Plant1", "U1", list));
  EXPECT_EQ(list, Strings{"B2"});
  EXPECT_EQ(sql_.texts().back(), "select distinct QKDY from V_DAA01 where CM ='Plant1' and KM =' U1' order by QKDY ");
  ASSERT_TRUE(object_->ListWells("2024-01-05", "2024-01-06", "U1", list));
  std::sort(list.begin(), list.end());
  EXPECT_EQ(list, (Strings{"J1", "J2"}));

  std::vector<OracleWellTestRecord> rows;
  ASSERT_TRUE(object_->LoadStationTests("Plant1", "U1", "2024-01-01", "2024-01-04", "Z1", rows));
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows[0].RZSL, 48);
  sql_.clear();
  ASSERT_TRUE(object_->LoadWellTests("2024-01-05", "2024-01-05", {"J1", "J3"}, rows));
  EXPECT_EQ(sql_.texts(), Strings{"select JH, RQ, SCSJ, RPZSL,RZSL,GXYL,YY,TY from V_DBA02 where RQ between "
                                  "to_date('2024-01-05', 'YYYY-MM-DD') and  to_date('2024-01-05', 'YYYY-MM-DD')  and "
                                  "JH in('J1','J3')"});
  EXPECT_EQ(rows.size(), 2u);
  EXPECT_FALSE(object_->LoadWellTests("2024-01-01", "2024-01-31", {}, rows));  // "in()"
}

// ---- petrodb production ----

class ProductionCommandTest : public ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    if (!jet()) GTEST_SKIP() << "the host commands open project files";
    WellRecord w;
    w.WellID = "W1";
    ASSERT_TRUE(Make<IBasicWellData>("IBasicWellData")->SaveWell("P", w));
    // Daily reports from 2023-12-01 over 400 days: 2 t of oil and 1 t of water a
    // day, cumulative oil counting up; one monthly report for 2022-06.
    WellProduction history{"W1", {}};
    for (int i = 0; i < 400; ++i) {
      using namespace std::chrono;
      const year_month_day day{sys_days{December / 1 / 2023} + days{i}};
      ProductionRecord r;
      char text[16];
      std::snprintf(text, sizeof text, "%d-%02u-%02u", int(day.year()), unsigned(day.month()), unsigned(day.day()));
      r.ProductTime = text, r.DailyOilProduction = 2, r.DailyWaterProduction = 1, r.CumulativeOilProduction = 2.0 * (i + 1);
      history.records.push_back(r);
    }
    ProductionRecord monthly;
    monthly.ProductTime = "2022-06", monthly.MonthlyOilProduction = 90, monthly.MonthlyGasProduction = 5;
    monthly.DailyOilProduction = 3;
    history.records.push_back(monthly);
    ASSERT_TRUE(Make<IProductionData>("IProductionData")->SaveWellProduction(history));
  }
  CliRun Run(const std::string& arguments) { return RunPetrodb("production '" + file_ + "'" + arguments); }
};

TEST_F(ProductionCommandTest, MonthsWithTotals) {
  const CliRun run = Run(" W1 --from 2024-02 --to 2024-03-10");
  ASSERT_EQ(run.code, 0) << run.output;
  EXPECT_EQ(run.output,
            "well W1\n"
            "month    reports    oil   gas  water  water cut %  cumulative oil\n"
            "2024-02       29  58.00  0.00  29.00         33.3          182.00\n"
            "2024-03       10  20.00  0.00  10.00         33.3          202.00\n"
            "total         39  78.00  0.00  39.00         33.3          202.00\n");
  // The whole history: the monthly report counts with its monthly figures.
  const std::string csv = Run(" W1 --csv").output;
  EXPECT_EQ(csv.substr(0, csv.find('\n', csv.find('\n') + 1) + 1),
            "month,reports,oil,gas,water,water cut %,cumulative oil\n2022-06,1,90,5,0,0,0\n");
  EXPECT_NE(csv.find("\n2023-12,31,62,0,31,33.333333333333336,62\n"), std::string::npos) << csv;
  EXPECT_NE(csv.find("\ntotal,401,890,5,400,31.007751937984494,800\n"), std::string::npos) << csv;
  EXPECT_EQ(Run(" W1 --from 2030-01").output, "well W1\nno production rows in the range\n");
}

TEST_F(ProductionCommandTest, UnknownWellsBadDatesAndBadRowsAreErrors) {
  CliRun run = Run(" W9");
  EXPECT_EQ(run.code, 1);
  EXPECT_NE(run.output.find("petrodb: no well \"W9\""), std::string::npos) << run.output;
  for (const char* usage : {" W1 --from 2024-13", " W1 --to 2023-02-29", " W1 --from 2024-02-02 --to 2024-02-01",
                            " W1 --every 2", ""})
    EXPECT_EQ(Run(usage).code, 2) << usage;
  for (const char* one : {" W1 --from 2024-02-29 --to 2024-02-29", " W1 --from 2024-02 --to 2024-02-01"})
    EXPECT_EQ(Run(one).code, 0) << one;
  EXPECT_EQ(Run(" W1 --from 2024-03 --to 2024-02").output, "petrodb: the range 2024-03 to 2024-02 is empty\n");
  ProductionRecord spring;
  spring.ProductTime = "spring";
  ASSERT_TRUE(Make<IProductionData>("IProductionData")->SaveWellProduction({"W1", {spring}}));
  run = Run(" W1");
  EXPECT_EQ(run.code, 1);
  EXPECT_NE(run.output.find("product time \"spring\" is not a date"), std::string::npos) << run.output;
}

}  // namespace
}  // namespace petrodb::test
