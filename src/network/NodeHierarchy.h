#pragma once
// The node hierarchy of every network: which nodes hang under a node name.
//
// The hierarchy is the tree the parent names describe: a root named "-1"; under
// each item, every node whose parent name equals the item's name, in table
// order, each expanded the same way unless its name is already on the path from
// the root (parent chains loop in real data: names repeat across networks).
// Asking for the children of a name means the children of the first item of
// that name met depth-first.
//
// That tree is never built. The first item of a name met depth-first is always
// expanded (an item is left unexpanded only when an ancestor bears its name,
// and that ancestor came first), and an expanded item's children are all nodes
// naming it as parent. So the hierarchy only needs the nodes indexed by parent
// name and the set of names the tree reaches (a name is reached when a chain of
// parent names leads to it from "-1"; the shortest such chain repeats no name,
// so nothing along it is left unexpanded). Building costs one pass over the
// nodes and one walk over the names; nothing recurses.
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "petrodb/network/INode.h"

namespace petrodb::network {

class NodeHierarchy {
 public:
  static constexpr const char* kRootName = "-1";

  explicit NodeHierarchy(std::vector<NodeRecord> nodes);

  // Appends the children of the first item named `name` (none when the
  // hierarchy does not reach the name).
  void AppendChildren(const std::string& name, std::vector<NodeRecord>& out) const;
  bool Reaches(const std::string& name) const { return reached_.count(name) != 0; }

 private:
  std::vector<NodeRecord> nodes_;
  std::unordered_map<std::string, std::vector<std::size_t>> childrenOf_;  // by parent name, in table order
  std::unordered_set<std::string> reached_;
};

// The process-wide hierarchy: built with the nodes `load` reads on the first
// call after start (or after a reset), then kept; concurrent first calls build
// it once.
std::shared_ptr<const NodeHierarchy> SharedNodeHierarchy(const std::function<std::vector<NodeRecord>()>& load);

// Forgets the process-wide hierarchy, so the next call builds it again. For
// tests; hosts never need it.
void ResetNodeHierarchy();

}  // namespace petrodb::network
