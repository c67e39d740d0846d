#pragma once
// Nodes of pipeline networks (n_nodes), keyed by network and node name, and the
// process-wide node hierarchy built from the parent names of every network.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

// Node types: 0 injection station, 1 water distribution room, 2 injection well,
// 3 manifold point, 4 water tank, 5 injection pump, 6 valve, 7 flow meter,
// 8 pressure gauge, 9 virtual well, 10 elbow, 11 reducer.
struct NodeRecord {
  std::string PipenetName;
  std::string NodeName = "(无)";
  double NodeX = 0;
  double NodeY = 0;
  double NodeZ = 0;
  int NodeType = 0;
  int NodeColor = 0;
  std::string ParentNodeName = "(无)";  // "-1" for a top node
  std::string Memo;
  std::string TypeName;  // filled from NodeType when read ("注水站" ...; empty for other numbers); not stored
  std::string CoorelateData;
  std::string BoundaryCondition;
};

class PETRODB_API INode : public IDataBase {
 public:
  // The node of a network. False when there is none or a field cannot be read
  // (the fields read before it are set).
  virtual bool LoadNode(const char* network, const char* node, NodeRecord& record) = 0;
  // Networks holding a node of this name and type. Lists are emptied first and
  // are false when nothing is found.
  virtual bool ListPipenetsOfNode(const char* node, int nodeType, std::vector<std::string>& networks) = 0;
  // Distinct names of a network's nodes of one type.
  virtual bool ListNodeNames(const char* network, int nodeType, std::vector<std::string>& names) = 0;
  // A network's nodes ordered by type. Emptied first; false when none is found,
  // or at the first row that cannot be read (the rows before it stay).
  virtual bool LoadNodes(const char* network, std::vector<NodeRecord>& records) = 0;
  // Names of the nodes of one type across all networks (a name once per node).
  virtual bool ListNodeNamesOfType(int nodeType, std::vector<std::string>& names) = 0;
  virtual bool LoadNodesOfType(const char* network, int nodeType, std::vector<NodeRecord>& records) = 0;
  // The node hierarchy is read from every network's nodes on the first call of
  // either operation below in the life of the process and kept: nodes saved
  // later are not in it. Networks are not told apart: a name used in two
  // networks is one item of the hierarchy, whose children are every node naming
  // it as parent. Both operations empty the list and always answer true.
  // Top nodes: the nodes whose parent is "-1".
  virtual bool LoadTopNodes(std::vector<NodeRecord>& records) = 0;
  // The children of the first item named like `parent` met depth-first from
  // the top: every node whose parent name equals it, in table order. Empty when
  // the hierarchy does not reach that name.
  virtual bool LoadChildNodes(NodeRecord parent, std::vector<NodeRecord>& records) = 0;
  // True when the table can be read and holds the node.
  virtual bool NodeExists(const char* network, const char* node) = 0;
  // Replaces the node of the same network and name. Empty names show
  // "管网名称不能为空！" or "管网节点名称不能为空！", a missing table
  // "管网节点数据表为空！", a failed write "保存数据库出错！"; each is false and
  // leaves the table as it was.
  virtual bool SaveNode(const NodeRecord& record) = 0;
  // Appends every node under `network` (each record's own network name is not
  // used); deletes nothing first. An empty network shows "管网名称不能为空！".
  virtual bool SaveNodes(const char* network, const std::vector<NodeRecord>& records) = 0;
  // Deletes all nodes of the network; an empty name shows "管网名称不能为空！".
  virtual bool DeletePipenetNodes(const char* network) = 0;
  // Deletes one node; true also when there was none. Empty names show their message.
  virtual bool DeleteNode(const char* network, const char* node) = 0;
  // Deletes each named node; true when every delete succeeded (all are tried).
  virtual bool DeleteNodes(const char* network, const std::vector<std::string>& nodes) = 0;
};
