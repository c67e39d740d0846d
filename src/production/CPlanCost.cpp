#include "network/NetworkCommon.h"
#include "petrodb/production/IPlanCost.h"
#include "production/ReferenceTables.h"

using namespace petrodb;
using namespace petrodb::network;
using namespace petrodb::production;

namespace {

constexpr Pattern<"select * from n_design_plan_cost where Pipenet_name = '%s' order by DesignPlan_name, Cost_name">
    kLoadOfNetwork;
constexpr Pattern<
    "select cost_name,cost_value from n_design_plan_cost where Pipenet_name = '%s' and DesignPlan_name='%s' order by "
    "cost_name">
    kLoadOfPlan;
constexpr Pattern<"select distinct cost_name from n_design_plan_cost where Pipenet_name = '%s' "> kCostNames;
constexpr Pattern<"delete from n_design_plan_cost where Pipenet_name = '%s'"> kDeleteOfNetwork;
constexpr Pattern<"delete from  n_design_plan_cost where Pipenet_name = '%s' and DesignPlan_name='%s'"> kDeleteOfPlan;

const ColumnTable<PlanCostRecord> kColumns{"n_design_plan_cost", {
    Col("Pipenet_name", &PlanCostRecord::Pipenet_name),
    Col("DesignPlan_name", &PlanCostRecord::DesignPlan_name),
    Col("cost_name", &PlanCostRecord::cost_name),
    Col("cost_value", &PlanCostRecord::cost_value),
}};

}  // namespace

class CPlanCost final : public CReferenceTable<IPlanCost> {
 public:
  bool LoadPipenetPlanCosts(const char* network, std::vector<PlanCostRecord>& costs) override {
    return LoadList(kLoadOfNetwork(network), kColumns, costs);
  }
  bool LoadPlanCosts(const char* network, const char* plan, std::vector<PlanCostRecord>& costs) override {
    return LoadList(kLoadOfPlan(network, plan), Selected(kColumns, {"cost_name", "cost_value"}), costs);
  }
  bool ListCostNames(const char* network, std::vector<std::string>& names) override {
    return ListColumn(kCostNames(network), "cost_name", names, Fill::Clear).found();
  }
  bool SavePlanCosts(const char* network, const char* plan, const std::vector<PlanCostRecord>& costs) override {
    if (!KeyGiven(network, {}) || !KeyGiven(plan, {})) return false;
    return ReplaceRows(kColumns.table(), kDeleteOfPlan(network, plan), [&](CDbManage& db) {
      for (PlanCostRecord cost : costs) {
        cost.Pipenet_name = network;
        cost.DesignPlan_name = plan;
        kColumns.AddRow(db, cost);
      }
    });
  }
  bool AppendPlanCosts(const std::vector<PlanCostRecord>& costs) override {
    return Append(kColumns.table(), [&](CDbManage& db) { kColumns.AddRows(db, costs); });
  }
  bool DeletePipenetPlanCosts(const char* network) override { return Execute(kDeleteOfNetwork(network)); }
  bool DeletePlanCosts(const char* network, const char* plan) override {
    return Execute(kDeleteOfPlan(network, plan));
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CPlanCost, IPlanCost)
