#include "network/ResultTables.h"
#include "petrodb/network/ISimuNode.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

using R = SimuNodeRecord;

constexpr Pattern<"select * from r_simu_node where ProjName = '%s' and NodeName = '%s'"> kLoadOne;
constexpr Pattern<"select a.*,b.NodeType from r_simu_node AS a  ,n_nodes AS b where a.ProjName = '%s' and "
                  "a.NodeName = b.NodeName order by b.NodeType "> kLoadCase;
constexpr Pattern<"select * from r_simu_node where ProjName = '%s'and NodeName = '%s'"> kExists;
constexpr Pattern<"delete from r_simu_node where ProjName = '%s' and NodeName = '%s'"> kDeleteOne;
constexpr Pattern<"delete from r_simu_node where ProjName = '%s' and SimuNode = '%s'"> kDeleteBySimuNode;
constexpr Pattern<"delete from r_simu_node where ProjeName = '%s' and NodeName = '%s'"> kDeleteByProjeName;
constexpr Pattern<"delete from r_simu_node where ProjName = '%s'"> kDeleteCase;

const ColumnTable<R> kColumns{"r_simu_node", {
    Col("ProjName", &R::ProjName),
    Col("NodeName", &R::NodeName),
    Col("SubType", &R::SubType),
    Col("SubCode", &R::SubCode),
    Col("MainCode", &R::MainCode),
    Col("Pp0", &R::Pp0),
    Col("Bp", &R::Bp),
    Col("Pp", &R::Pp),
    Col("Pq", &R::Pq),
    Col("Sp", &R::Sp),
    Col("Jp", &R::Jp),
    Col("Jp0", &R::Jp0),
    Col("Jq", &R::Jq),
    Col("Tzsl", &R::Tzsl),
    Col("Station", &R::Station),
}};
const ColumnTable<R> kNodeType{"n_nodes", {TypeColumn("NodeType", &R::NodeType, &R::TypeName, kNodeTypeNames)}};

const ResultTable<R, 1> kNodes{
    .columns = kColumns,
    .caseName = &R::ProjName,
    .keys = {&R::NodeName},
    .loadOne = ForElement<kLoadOne>,
    .exists = ForElement<kExists>,
    .loadCase = ByKey<kLoadCase>,
    .joined = &kNodeType,
    .deleteOne = ForElement<kDeleteOne>,
    .deleteCase = ByKey<kDeleteCase>,
    .emptyCase = ErrorMessage("工况名称不能为空！"),
    .emptyKeys = {ErrorMessage("节点名称不能为空！")},
    .deleteTableMissing = ErrorMessage("节点仿真结果表为空！"),
    .saveTableMissing = ErrorMessage("节点仿真结果数据表为空！"),
};

}  // namespace

class CSimuNode final : public CResultObject<ISimuNode> {
 public:
  bool LoadNodeResult(const char* caseName, const char* node, R& record) override {
    return LoadResult(kNodes, caseName, {node}, record);
  }
  bool LoadCaseNodeResults(const char* caseName, std::vector<R>& records) override {
    return LoadCaseResults(kNodes, caseName, records);
  }
  bool NodeResultExists(const char* caseName, const char* node) override {
    return ResultExists(kNodes, caseName, {node});
  }
  bool DeleteNodeResult(const char* caseName, const char* node) override {
    return DeleteResult(kNodes, caseName, {node});
  }
  bool SaveNodeResults(const char* caseName, const std::vector<R>& records) override {
    return SaveResults<R, 1>(kNodes, caseName, records);
  }
  bool DeleteSimuNodeResult(const char* caseName, const char* node) override {
    return DeleteResult(kNodes, caseName, {node}, ForElement<kDeleteBySimuNode>);
  }
  bool DeleteNodeResults(const char* caseName, const std::vector<std::string>& nodes) override {
    return DeleteResults(kNodes, caseName, nodes, ForElement<kDeleteByProjeName>);
  }
  bool DeleteCaseNodeResults(const char* caseName) override { return DeleteCaseResults(kNodes, caseName); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CSimuNode, ISimuNode)
