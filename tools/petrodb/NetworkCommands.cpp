// petrodb network list / network show: the water-injection pipeline networks of
// a project file, their headers, what their nodes and pipes are, and the node
// hierarchy drawn from the nodes' parent names.
#include <algorithm>
#include <charconv>
#include <cstdio>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "Command.h"
#include "TextTable.h"
#include "petrodb/network/INode.h"
#include "petrodb/network/IPipe.h"
#include "petrodb/network/IPipenet.h"

namespace petrodb::cli {
namespace {

// The shortest text that reads back as the same number, never in exponent form.
std::string Number(double value) {
  char buffer[400];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed).ptr;
  return std::string(buffer, end);
}

// ---- what the types mean ----

std::string NodeTypeGloss(int type) {
  static const char* const meanings[] = {"injection station", "water distribution room", "injection well",
                                         "manifold point",    "water tank",              "injection pump",
                                         "valve",             "flow meter",              "pressure gauge",
                                         "virtual well",      "elbow",                   "reducer"};
  return type >= 0 && type < 12 ? meanings[type] : "no such type";
}

std::string PipeTypeGloss(int type) {
  static const char* const meanings[] = {"station outlet trunk line", "injection trunk line", "branch line",
                                         "tie line"};
  return type >= 0 && type < 4 ? meanings[type] : "no such type";
}

// "注水站 (injection station)", or "type 17 (no such type)" for a number the
// library gives no name.
std::string TypeText(int type, const std::string& name, std::string (*gloss)(int)) {
  return (name.empty() ? "type " + std::to_string(type) : name) + " (" + gloss(type) + ")";
}

// ---- reading a network ----

// A network's nodes or pipes through the library's list load, which answers
// false both for "none" and for a failure: an engine error or a load cut short
// after some rows is a failure, anything else means the network has none.
template <class Record, class Object>
bool LoadParts(Object& object, bool (Object::*load)(const char*, std::vector<Record>&), const std::string& network,
               const char* what, std::vector<Record>& out) {
  if ((object.*load)(network.c_str(), out)) return true;
  if (out.empty() && EngineError().empty()) return true;
  PrintFailure("cannot read the " + std::string(what) + " of network " + network);
  return false;
}

struct Network {
  PipenetRecord header;
  std::vector<NodeRecord> nodes;
  std::vector<PipeRecord> pipes;
};

struct Objects {
  FactoryPtr factory;
  std::unique_ptr<IPipenet> networks;
  std::unique_ptr<INode> nodes;
  std::unique_ptr<IPipe> pipes;
};

Objects Open(const std::string& file) {
  Objects o;
  o.factory = MakeFactory(ProjectConnection(file));
  o.networks = Create<IPipenet>(*o.factory, "IPipenet");
  o.nodes = Create<INode>(*o.factory, "INode");
  o.pipes = Create<IPipe>(*o.factory, "IPipe");
  return o;
}

bool LoadNetworkParts(Objects& o, Network& network) {
  const std::string& name = network.header.PipenetName;
  return LoadParts(*o.nodes, &INode::LoadNodes, name, "nodes", network.nodes) &&
         LoadParts(*o.pipes, &IPipe::LoadPipes, name, "pipes", network.pipes);
}

// Rejects options: the network commands take none.
bool NoOptions(const std::vector<std::string>& args, std::vector<std::string>& positional) {
  Options options;
  if (!ParseOptions(args, {}, options)) return false;
  positional = options.positional;
  return true;
}

// ---- network list ----

int NetworkList(const std::vector<std::string>& args) {
  std::vector<std::string> positional;
  if (!NoOptions(args, positional)) return kUsage;
  const std::string& file = positional.at(0);
  if (!CheckProjectFile(file)) return kFailed;
  Objects o = Open(file);
  // The load answers false for "none" too; a header it could not read shows
  // as a name without a header.
  std::vector<PipenetRecord> headers;
  std::vector<std::string> names;
  if (!o.networks->LoadAllPipenets(headers) &&
      (!headers.empty() || !EngineError().empty() || o.networks->ListPipenetNames(names))) {
    PrintFailure("cannot read the networks of " + file);
    return kFailed;
  }
  TextTable table({false, false, false, true, true});
  table.Add({"network", "unit", "creator", "nodes", "pipes"});
  for (const auto& header : headers) {
    Network network{header, {}, {}};
    if (!LoadNetworkParts(o, network)) return kFailed;
    table.Add({header.PipenetName, header.UnitName, header.Creator, std::to_string(network.nodes.size()),
               std::to_string(network.pipes.size())});
  }
  if (!headers.empty()) table.Print("");
  std::printf("%zu network(s)\n", headers.size());
  return kOk;
}

// ---- network show ----

void PrintHeader(const PipenetRecord& h) {
  TextTable table({false, false});
  table.Add({"network", h.PipenetName});
  table.Add({"unit", h.UnitName});
  table.Add({"type", h.PipenetType});
  table.Add({"creator", h.Creator});
  table.Add({"created", h.CreateDate});
  table.Add({"memo", h.Memo});
  table.Add({"extent", "X " + Number(h.Xmin) + " .. " + Number(h.Xmax) + ", Y " + Number(h.Ymin) + " .. " +
                           Number(h.Ymax)});
  table.Add({"drawing", "left margin " + Number(h.LeftMargin) + ", top margin " + Number(h.TopMargin) +
                            ", ratio " + Number(h.Ratio)});
  table.Add({"sub-items", std::to_string(h.SubNum)});
  table.Add({"stations", std::to_string(h.StationbreachNum)});
  table.Print("");
}

// Counts by type number, each with the type name the library read.
template <class Record>
void PrintCounts(const char* what, const std::vector<Record>& records, int Record::*type,
                 std::string Record::*typeName, std::string (*gloss)(int)) {
  std::printf("%zu %s\n", records.size(), what);
  std::map<int, std::pair<std::string, std::size_t>> byType;
  for (const auto& r : records) {
    auto& entry = byType[r.*type];
    entry.first = r.*typeName;
    ++entry.second;
  }
  TextTable table({true, false});
  for (const auto& [number, entry] : byType)
    table.Add({std::to_string(entry.second), TypeText(number, entry.first, gloss)});
  table.Print("  ");
}

// The network's nodes as the hierarchy holds them: its top nodes (parent
// "-1"), under each the children the hierarchy gives for its name, kept to this
// network (the hierarchy does not tell networks apart). A name met again on its
// own path is a loop in the parent names: it is shown once more, marked, and not
// descended. Walked with an explicit stack, so a long chain cannot overflow.
// Returns the nodes shown, as (name, parent) pairs.
std::set<std::pair<std::string, std::string>> PrintHierarchy(INode& nodes, const std::string& network) {
  std::set<std::pair<std::string, std::string>> shown;
  auto ofNetwork = [&network](std::vector<NodeRecord> all) {
    std::vector<NodeRecord> kept;
    for (auto& n : all)
      if (n.PipenetName == network) kept.push_back(std::move(n));
    return kept;
  };
  std::vector<NodeRecord> top;
  nodes.LoadTopNodes(top);
  struct Level {
    std::vector<NodeRecord> items;
    std::size_t next = 0;
  };
  std::vector<Level> stack{Level{ofNetwork(std::move(top))}};
  std::vector<std::string> path;  // names above the current level
  if (stack.back().items.empty()) std::printf("  (no top node: none of its nodes has the parent -1)\n");
  while (!stack.empty()) {
    Level& level = stack.back();
    if (level.next == level.items.size()) {
      stack.pop_back();
      if (!path.empty()) path.pop_back();
      continue;
    }
    const NodeRecord node = level.items[level.next++];
    shown.emplace(node.NodeName, node.ParentNodeName);
    const std::string indent(2 * stack.size(), ' ');
    const std::string type = node.TypeName.empty() ? "type " + std::to_string(node.NodeType) : node.TypeName;
    if (std::find(path.begin(), path.end(), node.NodeName) != path.end()) {
      std::printf("%s%s [%s]  (loop: %s is already above; not expanded)\n", indent.c_str(), node.NodeName.c_str(),
                  type.c_str(), node.NodeName.c_str());
      continue;
    }
    std::printf("%s%s [%s]\n", indent.c_str(), node.NodeName.c_str(), type.c_str());
    std::vector<NodeRecord> children;
    nodes.LoadChildNodes(node, children);
    path.push_back(node.NodeName);
    stack.push_back(Level{ofNetwork(std::move(children))});
  }
  return shown;
}

int NetworkShow(const std::vector<std::string>& args) {
  std::vector<std::string> positional;
  if (!NoOptions(args, positional)) return kUsage;
  const std::string &file = positional.at(0), &name = positional.at(1);
  if (!CheckProjectFile(file)) return kFailed;
  Objects o = Open(file);
  Network network;
  if (!o.networks->PipenetExists(name.c_str())) {
    if (!LookupError(name).empty()) {
      PrintFailure("cannot read the networks of " + file);
      return kFailed;
    }
    std::vector<std::string> names;
    o.networks->ListPipenetNames(names);
    std::string known;
    for (const auto& n : names) known += (known.empty() ? "" : ", ") + n;
    PrintError("no network \"" + name + "\" in " + file +
               (names.empty() ? " (it has no networks)" : " (its networks: " + known + ")"));
    return kFailed;
  }
  if (!o.networks->LoadPipenet(name.c_str(), network.header)) {
    PrintFailure("cannot read the header of network " + name);
    return kFailed;
  }
  if (!LoadNetworkParts(o, network)) return kFailed;

  PrintHeader(network.header);
  PrintCounts("node(s)", network.nodes, &NodeRecord::NodeType, &NodeRecord::TypeName, &NodeTypeGloss);
  PrintCounts("pipe(s)", network.pipes, &PipeRecord::PipeType, &PipeRecord::TypeName, &PipeTypeGloss);
  std::printf("hierarchy\n");
  const auto shown = PrintHierarchy(*o.nodes, name);
  std::vector<const NodeRecord*> outside;
  for (const auto& n : network.nodes)
    if (!shown.count({n.NodeName, n.ParentNodeName})) outside.push_back(&n);
  if (!outside.empty()) {
    std::printf("not under a top node of this network: %zu node(s)\n", outside.size());
    for (const NodeRecord* n : outside)
      std::printf("  %s (parent %s)\n", n->NodeName.c_str(), n->ParentNodeName.c_str());
  }
  return kOk;
}

// ---- network (the group) ----

int NetworkGroup(const std::vector<std::string>& args) {
  if (!args.empty()) PrintError("unknown network command \"" + args[0] + "\"");
  std::fprintf(stderr,
               "usage: petrodb network list <file>\n"
               "       petrodb network show <file> <network>\n");
  return kUsage;
}

const CommandRegistration kNetworkList{Command{
    "network list", "<file>", "list the pipeline networks of a project file with their node and pipe counts",
    &NetworkList, 1, 1}};
const CommandRegistration kNetworkShow{Command{
    "network show", "<file> <network>",
    "show a pipeline network: its header, its nodes and pipes counted by type, and its node hierarchy as a tree",
    &NetworkShow, 2, 2}};
const CommandRegistration kNetwork{Command{"network", "list|show ...", "the pipeline network commands: network list, network show",
                                           &NetworkGroup, 0, -1}};

}  // namespace
}  // namespace petrodb::cli
