#include "network/NodeHierarchy.h"

#include <mutex>

namespace petrodb::network {

NodeHierarchy::NodeHierarchy(std::vector<NodeRecord> nodes) : nodes_(std::move(nodes)) {
  for (std::size_t i = 0; i < nodes_.size(); ++i) childrenOf_[nodes_[i].ParentNodeName].push_back(i);
  // Set elements stay where they are when the set grows.
  std::vector<const std::string*> pending{&*reached_.insert(kRootName).first};
  while (!pending.empty()) {
    const std::string* name = pending.back();
    pending.pop_back();
    const auto children = childrenOf_.find(*name);
    if (children == childrenOf_.end()) continue;
    for (const std::size_t i : children->second) {
      const auto [at, added] = reached_.insert(nodes_[i].NodeName);
      if (added) pending.push_back(&*at);
    }
  }
}

void NodeHierarchy::AppendChildren(const std::string& name, std::vector<NodeRecord>& out) const {
  if (!Reaches(name)) return;
  const auto children = childrenOf_.find(name);
  if (children == childrenOf_.end()) return;
  for (const std::size_t i : children->second) out.push_back(nodes_[i]);
}

namespace {
std::mutex g_mutex;
std::shared_ptr<const NodeHierarchy> g_hierarchy;
}  // namespace

std::shared_ptr<const NodeHierarchy> SharedNodeHierarchy(const std::function<std::vector<NodeRecord>()>& load) {
  std::lock_guard<std::mutex> lock(g_mutex);
  if (!g_hierarchy) g_hierarchy = std::make_shared<const NodeHierarchy>(load());
  return g_hierarchy;
}

void ResetNodeHierarchy() {
  std::lock_guard<std::mutex> lock(g_mutex);
  g_hierarchy.reset();
}

}  // namespace petrodb::network
