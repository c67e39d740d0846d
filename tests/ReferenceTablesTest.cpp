// The reference and analysis tables of the injection network: replaces that
// need their delete, network members taken from n_nodes, the diameter named by
// its low bit word, the type conditions of the general parameters, the
// efficiency analysis and its view by production unit, and the generic column
// query. What the shared verbs do (messages, unreadable rows, quoted keys) is
// checked once in DataObjectVerbTest.
#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "TestSupport.h"
#include "petrodb/production/IEconomicFlowVel.h"
#include "petrodb/production/IGeneralParamData.h"
#include "petrodb/production/IInjIndex.h"
#include "petrodb/production/IPlanCost.h"
#include "petrodb/production/IReservoir.h"
#include "petrodb/production/ISpecificData.h"
#include "petrodb/production/ITestEffAnalyseData.h"
#include "petrodb/production/ITestEffAnalyseResult.h"

namespace petrodb::test {
namespace {

class ReferenceTest : public ProjectTest {
 public:
  template <class I>
  std::unique_ptr<I> Object(const char* name) {
    return Make<I>(name);
  }
  // The day's literal in the project's dialect.
  std::string On(int day) const {
    return jet() ? "#2024-1-" + std::to_string(day) + "#" : "'2024-01-0" + std::to_string(day) + "'";
  }
  int Rows(const std::string& table) { return std::stoi(Query("select count(*) from " + table).at(0)); }
};

// A class whose save replaces the rows its delete removes.
struct ReplaceCase {
  const char* name;
  const char* table;
  bool accessDelete;  // the delete is "delete * from": a server refuses it
  int rowsAfterTwoSaves;
  std::function<bool(ReferenceTest&, double)> save;  // saves version v of its rows
  std::string removeText;                            // "{day}" stands for the day's literal
  friend void PrintTo(const ReplaceCase& c, std::ostream* os) { *os << c.name; }
};

class ReplaceTest : public ReferenceTest, public ::testing::WithParamInterface<ReplaceCase> {};

TEST_P(ReplaceTest, ASaveReplacesOnlyWhatItsDeleteRemovesAndNeedsItsTable) {
  const ReplaceCase& c = GetParam();
  const bool first = c.save(*this, 1);
  const bool second = c.save(*this, 2);
  std::string removeText = c.removeText;
  if (auto at = removeText.find("{day}"); at != std::string::npos) removeText.replace(at, 5, On(5));
  EXPECT_EQ(sql_.texts("ExecuteSQL").at(0), removeText);
  // On a server an Access-form delete cannot run, and the save gives up before writing.
  const bool runs = !c.accessDelete || jet();
  EXPECT_EQ(std::make_tuple(first, second, Rows(c.table)), std::make_tuple(runs, runs, runs ? c.rowsAfterTwoSaves : 0));
  Exec("drop table " + std::string(c.table) + (jet() ? "" : " cascade"));
  sql_.clear();
  EXPECT_FALSE(c.save(*this, 3));  // silently
  EXPECT_TRUE(sql_.texts("ExecuteSQL").empty());
  EXPECT_TRUE(messages_.messages().empty());
}

INSTANTIATE_TEST_SUITE_P(
    Tables, ReplaceTest,
    ::testing::Values(
        ReplaceCase{"InjIndex", "w_inj_index", false, 1,
                    [](ReferenceTest& t, double v) { return t.Object<IInjIndex>("IInjIndex")->SaveInjIndex({"J1", v, -v}); },
                    "delete from w_inj_index where Jh = 'J1'"},
        ReplaceCase{"Reservoir", "w_reservoir", false, 1,
                    [](ReferenceTest& t, double v) {
                      ReservoirRecord r;
                      r.Res_name = "R1", r.Porosity = v;
                      return t.Object<IReservoir>("IReservoir")->SaveReservoir(r);
                    },
                    "delete from w_reservoir where Res_name = 'R1'"},
        ReplaceCase{"PlanCost", "n_design_plan_cost", false, 2,
                    [](ReferenceTest& t, double v) {
                      return t.Object<IPlanCost>("IPlanCost")
                          ->SavePlanCosts("Net1", "P1", {{"", "", "管材", v}, {"Other", "P9", "施工", v}});
                    },
                    "delete from  n_design_plan_cost where Pipenet_name = 'Net1' and DesignPlan_name='P1'"},
        ReplaceCase{"GeneralParam", "general_param_data", true, 1,
                    [](ReferenceTest& t, double v) {
                      return t.Object<IGeneralParamData>("IGeneralParamData")
                          ->SaveParamsOfType(4, {{9, "k", std::to_string(v)}});
                    },
                    "delete * from general_param_data where ParamType = 4"},
        ReplaceCase{"EffAnalyse", "t_eff_analyse", true, 1,
                    [](ReferenceTest& t, double v) {
                      return t.Object<ITestEffAnalyseData>("ITestEffAnalyseData")->SaveEffAnalyse({"S1", t.On(5), {v}});
                    },
                    "delete * from t_eff_analyse where StaName = 'S1' and Scrq = {day}"},
        // The delete names 62.5 by the integer 0, so it never removes the row
        // saved before: each save adds one.
        ReplaceCase{"EconomicFlowVel", "b_economicflowvel", false, 2,
                    [](ReferenceTest& t, double v) {
                      return t.Object<IEconomicFlowVel>("IEconomicFlowVel")->SaveEconomicFlowVel({62.5, v, v, v, v});
                    },
                    "delete from b_economicflowvel where InnerDia =0"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(ReferenceTest, InjectivityOfANetworkTakesItsInjectionWellsOnly) {
  Exec("insert into n_nodes (PipenetName, NodeName, NodeType) values ('Net1', 'J2', 2), ('Net1', 'J1', 2), "
       "('Net1', 'S1', 0), ('Net2', 'K1', 2)");
  auto inj = Object<IInjIndex>("IInjIndex");
  ASSERT_TRUE(inj->SaveInjIndexes({{"J2", 2, 0.2}, {"S1", 9, 0.9}, {"K1", 3, 0.3}, {"J1", 1, 0.1}}));
  std::vector<InjIndexRecord> rows;
  ASSERT_TRUE(inj->LoadPipenetInjIndexes("Net1", rows));
  EXPECT_EQ(sql_.texts().back(),
            "select * from w_inj_index where Jh in ( select NodeName from n_nodes where PipenetName = 'Net1' and "
            "NodeType = 2 ) order by Jh");
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].Jh + rows[1].Jh, "J1J2");

  ASSERT_TRUE(inj->DeletePipenetInjIndexes("Net1"));
  EXPECT_EQ(Query("select Jh from w_inj_index order by Jh"), (std::vector<std::string>{"K1", "S1"}));
  EXPECT_FALSE(inj->DeleteInjIndexesOfWells({}));  // "in ()"
  ASSERT_TRUE(inj->DeleteInjIndexesOfWells({"K1", "S1"}));
  EXPECT_EQ(sql_.texts().back(), "delete from w_inj_index where Jh in ('K1','S1')");
  EXPECT_EQ(Rows("w_inj_index"), 0);
}

TEST_F(ReferenceTest, OneDiameterIsNamedByTheLowWordOfItsBits) {
  auto vel = Object<IEconomicFlowVel>("IEconomicFlowVel");
  ASSERT_TRUE(vel->SaveEconomicFlowVels({{80, 1, 2, 3, 4}, {62.5, 5, 6, 7, 8}, {0, 9, 9, 9, 9}}));
  // 62.5 is asked for as 0 and finds the row stored as 0; 0.1 has low bits.
  EXPECT_TRUE(vel->EconomicFlowVelExists(62.5));
  EXPECT_EQ(sql_.texts().back(), "select InnerDia from b_economicflowvel where InnerDia =0");
  EXPECT_FALSE(vel->EconomicFlowVelExists(0.1));
  EXPECT_EQ(sql_.texts().back(), "select InnerDia from b_economicflowvel where InnerDia =-1717986918");
  ASSERT_TRUE(vel->DeleteEconomicFlowVel(80));  // as 0 too
  EXPECT_EQ(Query("select cast(InnerDia as integer) from b_economicflowvel"), (std::vector<std::string>{"80", "62"}));

  // The list writes each diameter as it is.
  ASSERT_TRUE(vel->DeleteEconomicFlowVels({62.5, 80}));
  EXPECT_EQ(sql_.texts().back(), "delete from b_economicflowvel where InnerDia in (62.500000,80.000000)");
  EXPECT_EQ(Rows("b_economicflowvel"), 0);
}

TEST_F(ReferenceTest, PlanCostsByNetworkAndPlan) {
  auto cost = Object<IPlanCost>("IPlanCost");
  ASSERT_TRUE(cost->AppendPlanCosts({{"N1", "B", "z", 1}, {"N1", "A", "y", 2}, {"N1", "A", "x", 3}, {"N2", "A", "x", 4}}));
  std::vector<PlanCostRecord> rows;
  ASSERT_TRUE(cost->LoadPipenetPlanCosts("N1", rows));
  ASSERT_EQ(rows.size(), 3u);
  EXPECT_EQ(rows[0].cost_name + rows[1].cost_name + rows[2].cost_name, "xyz");
  ASSERT_TRUE(cost->LoadPlanCosts("N1", "A", rows));
  EXPECT_EQ(sql_.texts().back(),
            "select cost_name,cost_value from n_design_plan_cost where Pipenet_name = 'N1' and DesignPlan_name='A' "
            "order by cost_name");
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[1].cost_value, 2);
  EXPECT_EQ(rows[1].Pipenet_name, "");  // only the two columns are read
  ASSERT_TRUE(cost->DeletePlanCosts("N1", "A"));
  ASSERT_TRUE(cost->DeletePipenetPlanCosts("N1"));
  EXPECT_EQ(Query("select Pipenet_name from n_design_plan_cost"), std::vector<std::string>{"N2"});
}

TEST_F(ReferenceTest, GeneralParametersByTypeConditions) {
  auto params = Object<IGeneralParamData>("IGeneralParamData");
  ASSERT_TRUE(params->AppendParams({{1, "a", "x"}, {2, "b", "y"}, {3, "c", "z"}, {3, "d", "w"}}));
  std::vector<GeneralParamRecord> rows;
  ASSERT_TRUE(params->LoadParamsOfTypes({1, 3}, rows));
  EXPECT_EQ(sql_.texts().back(), "select * from general_param_data where ParamType = 1 OR ParamType = 3");
  EXPECT_EQ(rows.size(), 3u);
  EXPECT_FALSE(params->LoadParamsOfTypes({}, rows));
  EXPECT_EQ(sql_.texts().back(), "select * from general_param_data where ");

  // The deletes by type are Access texts: they run on a file only.
  EXPECT_EQ(params->DeleteParamsOfTypes({1, 2}), jet());
  EXPECT_EQ(sql_.texts().back(), "delete * from general_param_data where ParamType = 1 OR ParamType = 2");
  EXPECT_EQ(Rows("general_param_data"), jet() ? 2 : 4);
}

TEST_F(ReferenceTest, EfficiencyAnalysisByDateAndByUnit) {
  auto data = Object<ITestEffAnalyseData>("ITestEffAnalyseData");
  const EffAnalyseValues v{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
  ASSERT_TRUE(data->SaveEffAnalyses({{"S1", On(5), v}, {"S1", On(6), v}, {"S2", On(6), {}}, {"S9", On(7), v}}));
  TestEffAnalyseRecord loaded;
  ASSERT_TRUE(data->LoadEffAnalyse("S1", On(6).c_str(), loaded));
  EXPECT_EQ(loaded.values.Jknlbl, 16);
  // A loaded date is no literal: the delete of its save cannot run, nothing is written.
  EXPECT_FALSE(data->SaveEffAnalyse(loaded));
  EXPECT_EQ(sql_.texts("ExecuteSQL").back(),
            "delete * from t_eff_analyse where StaName = 'S1' and Scrq = 2024-01-06 00:00:00");
  EXPECT_EQ(Rows("t_eff_analyse"), 4);

  // S1 and S2 are stations of U1's networks (S1 in two of them), S9 a well; S2 also in U2.
  Exec("insert into n_pipenet (PipenetName, UnitName) values ('Net1', 'U1'), ('Net2', 'U1'), ('Net3', 'U2')");
  Exec("insert into n_nodes (PipenetName, NodeName, NodeType) values ('Net1', 'S1', 0), ('Net2', 'S1', 0), "
       "('Net1', 'S2', 0), ('Net3', 'S2', 0), ('Net1', 'S9', 2)");
  auto result = Object<ITestEffAnalyseResult>("ITestEffAnalyseResult");
  std::vector<TestEffAnalyseResultRecord> units;
  ASSERT_TRUE(result->LoadUnitEffResultsBetween("U1", On(5).c_str(), On(7).c_str(), units));
  EXPECT_EQ(sql_.texts().back(), "select * from v_sta_unit where v_sta_unit.UnitName = 'U1' and Scrq between " +
                                     On(5) + " and " + On(7));
  ASSERT_EQ(units.size(), 3u);  // S1 once a day though in two of U1's networks
  EXPECT_EQ(units[0].values.Zsxtdh + units[1].values.Zsxtdh + units[2].values.Zsxtdh, 10);
  EXPECT_EQ(units[2].UnitName, "U1");
  ASSERT_TRUE(result->LoadEffResultsBetween(On(6).c_str(), On(7).c_str(), units));
  EXPECT_EQ(units.size(), 3u);  // S1 and S2 in U1, S2 in U2
  TestEffAnalyseResultRecord one;
  EXPECT_FALSE(result->LoadEffResult("S9", On(7).c_str(), one));

  EXPECT_EQ(data->DeleteEffAnalyse("S1", On(5).c_str()), jet());
  ASSERT_TRUE(data->DeleteStationEffAnalyses("S2"));
  EXPECT_EQ(Rows("t_eff_analyse"), jet() ? 2 : 3);
}

TEST_F(ReferenceTest, TheGenericColumnQuery) {
  auto specific = Object<ISpecificData>("ISpecificData");
  Exec("insert into w_inj_index (Jh, Inj_index) values ('J1', 2.5)");
  Exec("insert into w_production_data (WellID, ProductTime, WaterPercentage) values ('W1', '2024-01', 95.5), "
       "('W1', '2024-02', 96)");
  std::vector<SpecificValue> values{{"old", "x"}};
  ASSERT_TRUE(specific->GetSpecificValues("WaterPercentage", "w_production_data", "WellID", "'W1'", values));
  EXPECT_EQ(sql_.texts().back(), "select WellID, WaterPercentage from w_production_data where WellID='W1'");
  ASSERT_EQ(values.size(), 2u);
  EXPECT_EQ(values[0].WellID + " " + values[0].Value + " " + values[1].Value, "W1 95.5 96");
  // A text key without its quotes names a column that does not exist.
  EXPECT_FALSE(specific->GetSpecificValues("WaterPercentage", "w_production_data", "WellID", "W1", values));
  EXPECT_TRUE(values.empty());
  // A table without WellID cannot answer.
  EXPECT_FALSE(specific->GetSpecificValues("Inj_index", "w_inj_index", "Jh", "'J1'", values));
  EXPECT_TRUE(messages_.messages().empty());
}

}  // namespace
}  // namespace petrodb::test
