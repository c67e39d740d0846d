#pragma once
// The cost items of a network's design plans (n_design_plan_cost), one row per
// network (Pipenet_name), plan (DesignPlan_name) and cost item (cost_name).
// Lists are emptied first. Nothing is shown on failure except a failed write
// ("保存数据库出错！" under "错误信息").
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct PlanCostRecord {
  std::string Pipenet_name;
  std::string DesignPlan_name;
  std::string cost_name;
  double cost_value = 0;
};

class PETRODB_API IPlanCost : public IDataBase {
 public:
  // Every cost item of the network, ordered by plan and cost name. False when
  // there is none, or at the first row that cannot be read (the rows before it stay).
  virtual bool LoadPipenetPlanCosts(const char* network, std::vector<PlanCostRecord>& costs) = 0;
  // The cost items of one plan, ordered by cost name. Only cost_name and
  // cost_value are read; the records' network and plan names stay empty.
  virtual bool LoadPlanCosts(const char* network, const char* plan, std::vector<PlanCostRecord>& costs) = 0;
  // The distinct cost names used in the network's plans.
  virtual bool ListCostNames(const char* network, std::vector<std::string>& names) = 0;
  // Replaces every cost item of the plan: the delete of DeletePlanCosts, which
  // must succeed, then one insert per record, written under the given network
  // and plan whatever the records hold. An empty network or plan or a missing
  // table fails silently; a failed write shows "保存数据库出错！". On failure
  // nothing is written.
  virtual bool SavePlanCosts(const char* network, const char* plan, const std::vector<PlanCostRecord>& costs) = 0;
  // Appends every record as it is, deleting nothing first.
  virtual bool AppendPlanCosts(const std::vector<PlanCostRecord>& costs) = 0;
  // Deletes every cost item of the network's plans; true also when there was none.
  virtual bool DeletePipenetPlanCosts(const char* network) = 0;
  // Deletes the cost items of one plan of the network.
  virtual bool DeletePlanCosts(const char* network, const char* plan) = 0;
};
