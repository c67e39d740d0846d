#include "network/NetworkCommon.h"
#include "network/NodeHierarchy.h"
#include "petrodb/network/INode.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

constexpr Pattern<"select * from n_nodes where PipenetName = '%s'and NodeName = '%s'"> kLoadNode;
constexpr Pattern<"select PipenetName from n_nodes where NodeName = '%s'and NodeType = %d"> kListNetworks;
constexpr Pattern<"select distinct NodeName from n_nodes where PipenetName = '%s'and NodeType = %d"> kListNames;
constexpr Pattern<"select * from n_nodes where PipenetName = '%s' order by NodeType"> kLoadNodes;
constexpr Pattern<"select * from n_nodes where NodeType =%d"> kLoadAllOfType;
constexpr Pattern<"select * from n_nodes where PipenetName = '%s' and NodeType = %d"> kLoadNodesOfType;
constexpr Pattern<"select * from n_nodes "> kLoadEveryNode;
constexpr Pattern<"delete from n_nodes where PipenetName ='%s'and NodeName = '%s'"> kDeleteOnSave;
constexpr Pattern<"delete from n_nodes where PipenetName = '%s'"> kDeleteNetwork;
constexpr Pattern<"delete from n_nodes where PipenetName = '%s' and NodeName = '%s'"> kDeleteNode;

constexpr const char* kTable = "n_nodes";

const ColumnTable<NodeRecord> kNodeColumns{kTable, {
    Col("PipenetName", &NodeRecord::PipenetName),
    Col("NodeName", &NodeRecord::NodeName),
    Col("NodeX", &NodeRecord::NodeX),
    Col("NodeY", &NodeRecord::NodeY),
    Col("NodeZ", &NodeRecord::NodeZ),
    TypeColumn("NodeType", &NodeRecord::NodeType, &NodeRecord::TypeName, network::kNodeTypeNames),
    Col("NodeColor", &NodeRecord::NodeColor),
    Col("ParentNodeName", &NodeRecord::ParentNodeName),
    Col("Memo", &NodeRecord::Memo),
    Col("CoorelateData", &NodeRecord::CoorelateData),
    Col("BoundaryCondition", &NodeRecord::BoundaryCondition),
}};

constexpr Message kEmptyNetwork = ErrorMessage("管网名称不能为空！");
constexpr Message kEmptyNode = ErrorMessage("管网节点名称不能为空！");
const ReplaceSteps kSave{kTable, Probe::First, ErrorMessage("管网节点数据表为空！"), kSaveFailed};

}  // namespace

class CNode final : public CDataObject<INode> {
 public:
  bool LoadNode(const char* network, const char* node, NodeRecord& record) override {
    return LoadOne(kLoadNode(network, node), kNodeColumns, record);
  }
  bool ListPipenetsOfNode(const char* node, int nodeType, std::vector<std::string>& networks) override {
    return ListColumn(kListNetworks(node, nodeType), "PipenetName", networks, Fill::Clear).found();
  }
  bool ListNodeNames(const char* network, int nodeType, std::vector<std::string>& names) override {
    return ListColumn(kListNames(network, nodeType), "NodeName", names, Fill::Clear).found();
  }
  bool LoadNodes(const char* network, std::vector<NodeRecord>& records) override {
    return Records(kLoadNodes(network), records);
  }
  bool ListNodeNamesOfType(int nodeType, std::vector<std::string>& names) override {
    return ListColumn(kLoadAllOfType(nodeType), "NodeName", names, Fill::Clear).found();
  }
  bool LoadNodesOfType(const char* network, int nodeType, std::vector<NodeRecord>& records) override {
    return Records(kLoadNodesOfType(network, nodeType), records);
  }

  bool LoadTopNodes(std::vector<NodeRecord>& records) override {
    records.clear();
    Hierarchy()->AppendChildren(NodeHierarchy::kRootName, records);
    return true;
  }
  bool LoadChildNodes(NodeRecord parent, std::vector<NodeRecord>& records) override {
    records.clear();
    Hierarchy()->AppendChildren(parent.NodeName, records);
    return true;
  }

  bool NodeExists(const char* network, const char* node) override {
    return ExistsInTable(kTable, kLoadNode(network, node));
  }

  bool SaveNode(const NodeRecord& record) override {
    if (!KeyGiven(record.PipenetName, kEmptyNetwork) || !KeyGiven(record.NodeName, kEmptyNode)) return false;
    return Replace(kSave, kDeleteOnSave(record.PipenetName, record.NodeName),
                   [&](CDbManage& db) { kNodeColumns.AddRow(db, record); });
  }

  bool SaveNodes(const char* network, const std::vector<NodeRecord>& records) override {
    if (!KeyGiven(network, kEmptyNetwork)) return false;
    return Append(kTable, [&](CDbManage& db) {
      NodeRecord node;  // one scratch row: assigning into it reuses its texts' memory
      for (const NodeRecord& record : records) {
        node = record;
        node.PipenetName = network;
        kNodeColumns.AddRow(db, node);
      }
    });
  }

  bool DeletePipenetNodes(const char* network) override {
    return KeyGiven(network, kEmptyNetwork) && Execute(kDeleteNetwork(network));
  }
  bool DeleteNode(const char* network, const char* node) override {
    return KeyGiven(network, kEmptyNetwork) && KeyGiven(node, kEmptyNode) && Execute(kDeleteNode(network, node));
  }
  bool DeleteNodes(const char* network, const std::vector<std::string>& nodes) override {
    if (!KeyGiven(network, kEmptyNetwork)) return false;
    return ExecuteEach(nodes, [&](const std::string& node) { return kDeleteNode(network, node); });
  }
  PETRODB_DATA_CLASS

 private:
  bool Records(const Statement& statement, std::vector<NodeRecord>& records) const {
    return LoadAll(statement, kNodeColumns, records, Fill::Clear).found();
  }
  // Every network's nodes, read once per process.
  std::shared_ptr<const NodeHierarchy> Hierarchy() const {
    return SharedNodeHierarchy([this] {
      std::vector<NodeRecord> nodes;
      LoadAll(kLoadEveryNode(), kNodeColumns, nodes, Fill::Clear);
      return nodes;
    });
  }
};

PETRODB_REGISTER_CLASS(CNode, INode)
