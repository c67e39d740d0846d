#pragma once
// Simulated figures of a case's network nodes (r_simu_node), keyed by case and
// node name.
//
// What the result objects share: every operation that takes a case refuses an
// empty case name with its message ("工况名称不能为空！" here) before any database
// access, and one that takes an element key refuses an empty key the same way
// ("节点名称不能为空！" here). Deletes probe the table first: a missing table shows
// "节点仿真结果表为空！" and answers false. Saves probe it too ("节点仿真结果数据表为空！"),
// then replace the rows of each (case, element) they carry in one write; a
// failed write shows "保存数据库出错！" and leaves the table as it was. All
// messages use the caption "错误信息".
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct SimuNodeRecord {
  std::string ProjName;  // the case
  std::string NodeName;
  std::string SubType;
  int SubCode = 0;
  int MainCode = 0;
  double Pp0 = 0;
  double Bp = 0;
  double Pp = 0;
  double Pq = 0;
  double Sp = 0;
  double Jp = 0;
  double Jp0 = 0;
  double Jq = 0;
  double Tzsl = 0;
  std::string Station;
  // Filled only by the joined load, from the network's node of the same name;
  // neither is stored in the result table.
  int NodeType = 0;
  std::string TypeName;  // "注水站", ... as the node types; empty for other numbers
};

class PETRODB_API ISimuNode : public IDataBase {
 public:
  // The result of one node of the case. False when there is none or a field
  // cannot be read (the fields read before it are set).
  virtual bool LoadNodeResult(const char* caseName, const char* node, SimuNodeRecord& record) = 0;
  // The case's results joined to the network nodes of the same name in every
  // network, ordered by node type: a result whose node is in no network is left
  // out, and one whose name is used by nodes of several networks comes once per
  // such node. The list is emptied first; false when nothing is found, or at the
  // first row that cannot be read (the rows before it stay).
  virtual bool LoadCaseNodeResults(const char* caseName, std::vector<SimuNodeRecord>& records) = 0;
  // True when the case has a result for the node.
  virtual bool NodeResultExists(const char* caseName, const char* node) = 0;
  // Deletes the node's result; the delete's result (true also when there was none).
  virtual bool DeleteNodeResult(const char* caseName, const char* node) = 0;
  // Replaces the results of the nodes the list carries, all under `caseName`
  // (the records' own case names are not used); a record with an empty node
  // name refuses the whole list. Other results of the case stay.
  virtual bool SaveNodeResults(const char* caseName, const std::vector<SimuNodeRecord>& records) = 0;
  // Deletes by the node's name under the column SimuNode: false on a table
  // that has no such column (new projects have it as a second name of NodeName).
  virtual bool DeleteSimuNodeResult(const char* caseName, const char* node) = 0;
  // Deletes each node's result, matching the case under the column ProjeName:
  // false on a table that has no such column (new projects have it as a second
  // name of ProjName). Every delete is sent; false when any failed.
  virtual bool DeleteNodeResults(const char* caseName, const std::vector<std::string>& nodes) = 0;
  // Deletes every node result of the case.
  virtual bool DeleteCaseNodeResults(const char* caseName) = 0;
};
