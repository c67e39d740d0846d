// petrodb plot network: a pipeline network at its node coordinates: nodes
// drawn by type, pipes by type and diameter, names where they fit, and with a
// calculation case the node pressures and pipe flows it computed.
#include <map>
#include <memory>

#include "Plot.h"
#include "petrodb/network/INode.h"
#include "petrodb/network/IPipe.h"
#include "petrodb/network/IPipenet.h"
#include "petrodb/network/IProject.h"
#include "petrodb/network/ISimuNode.h"
#include "petrodb/network/ISimuPipe.h"

namespace petrodb::cli {
namespace {

using svg::Num;
using svg::Point;

const char* const kCss =
    "text{font-family:sans-serif;font-size:10px;fill:#222}"
    ".title{font-size:16px;font-weight:bold}.sub{font-size:11px;fill:#555}"
    ".frame{fill:none;stroke:#222;stroke-width:1.2}.grid2{stroke:#eee;stroke-width:0.6}"
    ".tick{stroke:#222;stroke-width:1}.coord{font-size:10px;fill:#333}"
    ".bar-dark{fill:#222;stroke:#222}.bar-light{fill:#fff;stroke:#222}"
    ".arrow{fill:#222}.north{font-size:13px;font-weight:bold}"
    ".pipe{fill:none;stroke-linecap:round}.p0{stroke:#a93226}.p1{stroke:#d68910}.p2{stroke:#1e8449}"
    ".p3{stroke:#7d3c98;stroke-dasharray:6 3}.px{stroke:#999}"
    ".label{font-size:10px}.value{font-size:9px;fill:#1a5276}.flow{font-size:9px;fill:#7e5109}"
    ".label,.value,.flow{paint-order:stroke;stroke:#fff;stroke-width:2.5px;stroke-linejoin:round}"
    ".legend{font-size:11px}.legend-title{font-size:12px;font-weight:bold}.note{font-size:10px;fill:#777}";

struct NodeKind {
  const char* legend;
  const char* symbol;  // drawn centred on the origin
  double radius;       // for placing names beside it
};
const NodeKind kNodeKinds[] = {
    {"injection station", "<rect x=\"-7\" y=\"-7\" width=\"14\" height=\"14\" fill=\"#1f4e9c\" stroke=\"#0b2545\"/>", 7},
    {"water distribution room", "<rect x=\"-5\" y=\"-5\" width=\"10\" height=\"10\" fill=\"#5dade2\" stroke=\"#1f4e9c\"/>", 5},
    {"injection well", "<circle r=\"4\" fill=\"#fff\" stroke=\"#1f5fbf\" stroke-width=\"1.5\"/><circle r=\"1.6\" fill=\"#1f5fbf\"/>", 4.5},
    {"manifold point", "<path d=\"M0 -5L5 0L0 5L-5 0Z\" fill=\"#f39c12\" stroke=\"#7e5109\"/>", 5},
    {"water tank", "<circle r=\"6.5\" fill=\"#aed6f1\" stroke=\"#1b4f72\" stroke-width=\"1.3\"/><path d=\"M-4 1H4\" stroke=\"#1b4f72\"/>", 6.5},
    {"injection pump", "<circle r=\"6\" fill=\"#fff\" stroke=\"#922b21\" stroke-width=\"1.3\"/><path d=\"M-3 -3.5L4 0L-3 3.5Z\" fill=\"#922b21\"/>", 6},
    {"valve", "<path d=\"M-6 -4L6 4V-4L-6 4Z\" fill=\"#fff\" stroke=\"#145a32\" stroke-width=\"1.3\"/>", 6},
    {"flow meter", "<circle r=\"5\" fill=\"#fff\" stroke=\"#6c3483\" stroke-width=\"1.2\"/><path d=\"M-3 0H3\" stroke=\"#6c3483\" stroke-width=\"1.4\"/>", 5},
    {"pressure gauge", "<circle r=\"5\" fill=\"#fff\" stroke=\"#7b241c\" stroke-width=\"1.2\"/><path d=\"M0 0L3 -3\" stroke=\"#7b241c\" stroke-width=\"1.4\"/>", 5},
    {"virtual well", "<circle r=\"4\" fill=\"none\" stroke=\"#1f5fbf\" stroke-dasharray=\"2 1.5\"/>", 4},
    {"elbow", "<circle r=\"2\" fill=\"#555\"/>", 2},
    {"reducer", "<circle r=\"2\" fill=\"#555\"/>", 2},
    {"other node", "<circle r=\"2.5\" fill=\"#aaa\"/>", 2.5},
};
constexpr int kOtherNode = 12;
const char* const kPipeKinds[] = {"station outlet trunk line", "injection trunk line", "branch line", "tie line",
                                  "other pipe"};

int NodeKindOf(int type) { return type >= 0 && type < kOtherNode ? type : kOtherNode; }
int PipeKindOf(int type) { return type >= 0 && type < 4 ? type : 4; }
// Which names are kept first when they compete for room.
int NamePriority(int type) {
  static const int order[] = {0, 1, 5, 2, 4, 3, 6, 7, 8, 9, 10, 11};
  return type >= 0 && type < kOtherNode ? order[type] : kOtherNode;
}

template <class Record>
bool LoadList(bool loaded, const std::vector<Record>& out, const std::string& what) {
  if (loaded || (out.empty() && EngineError().empty())) return true;
  PrintFailure("cannot read the " + what);
  return false;
}

}  // namespace

int DrawNetworkPlot(IDataFactory& factory, const std::string& file, const std::string& network,
                    const std::string& caseName, const std::string& out) {
  auto networks = Create<IPipenet>(factory, "IPipenet");
  if (!networks->PipenetExists(network.c_str())) {
    if (!LookupError(network).empty()) {
      PrintFailure("cannot read the networks of " + file);
      return kFailed;
    }
    std::vector<std::string> names;
    networks->ListPipenetNames(names);
    std::string known;
    for (std::size_t i = 0; i < names.size() && i < 20; ++i) known += (i ? ", " : "") + names[i];
    PrintError("no network \"" + network + "\" in " + file +
               (names.empty() ? " (it has no networks)" : " (its networks: " + known + ")"));
    return kFailed;
  }
  std::vector<NodeRecord> nodes;
  std::vector<PipeRecord> pipes;
  if (!LoadList(Create<INode>(factory, "INode")->LoadNodes(network.c_str(), nodes), nodes, "nodes of " + network) ||
      !LoadList(Create<IPipe>(factory, "IPipe")->LoadPipes(network.c_str(), pipes), pipes, "pipes of " + network))
    return kFailed;

  // The case's figures, by element name.
  std::map<std::string, double> pressure, flow;
  if (!caseName.empty()) {
    auto cases = Create<IProject>(factory, "IProject");
    CaseRecord header;
    if (!cases->LoadCase(caseName.c_str(), header)) {
      std::vector<CaseRecord> all;
      cases->LoadAllCases(all);
      std::string known;
      for (std::size_t i = 0; i < all.size() && i < 20; ++i) known += (i ? ", " : "") + all[i].ProjName;
      PrintFailure("no case \"" + caseName + "\" in " + file +
                   (all.empty() ? " (it has no cases)" : " (its cases: " + known + ")"));
      return kFailed;
    }
    if (header.PipenetName != network) {
      PrintError("case \"" + caseName + "\" is a case of network \"" + header.PipenetName + "\", not of \"" + network +
                 "\"");
      return kFailed;
    }
    std::vector<SimuNodeRecord> nodeResults;
    std::vector<SimuPipeRecord> pipeResults;
    if (!LoadList(Create<ISimuNode>(factory, "ISimuNode")->LoadCaseNodeResults(caseName.c_str(), nodeResults),
                  nodeResults, "node results of case " + caseName) ||
        !LoadList(Create<ISimuPipe>(factory, "ISimuPipe")->LoadCasePipeResults(caseName.c_str(), pipeResults),
                  pipeResults, "pipe results of case " + caseName))
      return kFailed;
    for (const auto& r : nodeResults) pressure.emplace(r.NodeName, r.Pp);
    for (const auto& r : pipeResults) flow.emplace(r.PipeName, r.PipeQ);
  }

  Extent extent;
  for (const auto& n : nodes) extent.Add(n.NodeX, n.NodeY);
  const MapFrame f = FitFrame(extent, 80, 62, 1500);
  const double legendX = f.left + f.width + 36;
  svg::Document doc(legendX + 250, std::max(f.top + f.height + 96, 520.0), "network " + network, kCss);
  std::string defs;
  for (int k = 0; k <= kOtherNode; ++k) defs += "<g id=\"n" + std::to_string(k) + "\">" + kNodeKinds[k].symbol + "</g>\n";
  doc.Defs(defs);
  doc.Text(f.left, 24, "Network " + network + (caseName.empty() ? "" : "  case " + caseName), "title");
  doc.Text(f.left, 42,
           std::to_string(nodes.size()) + " node(s), " + std::to_string(pipes.size()) + " pipe(s)" +
               (caseName.empty() ? "" : "; from the case: node pressure p (Pp) and pipe flow q (PipeQ, m\u00B3/d)"),
           "sub");
  DrawFrame(doc, f, true);

  std::map<std::string, Point> at;
  for (const auto& n : nodes) at.emplace(n.NodeName, f.At(n.NodeX, n.NodeY));
  svg::LabelPlacer placer(48);
  for (const auto& n : nodes) {
    const Point p = at[n.NodeName];
    const double r = kNodeKinds[NodeKindOf(n.NodeType)].radius;
    placer.Place(p.x - r, p.y - r, 2 * r, 2 * r);
  }

  // Pipes under the nodes, each from its first node to its second.
  int pipeCounts[5] = {}, loose = 0;
  doc.Open("pipes");
  std::vector<std::pair<const PipeRecord*, std::pair<Point, Point>>> drawn;
  for (const auto& pipe : pipes) {
    const auto a = at.find(pipe.Node1), b = at.find(pipe.Node2);
    if (a == at.end() || b == at.end()) {
      ++loose;
      continue;
    }
    const int kind = PipeKindOf(pipe.PipeType);
    ++pipeCounts[kind];
    const double width = pipe.Diameter > 0 ? std::clamp(0.5 + pipe.Diameter / 80, 0.6, 6.0) : 0.8;
    svg::Attrs attrs{{"stroke-width", Num(width)}, {"data-name", pipe.PipeName}, {"data-type", std::to_string(pipe.PipeType)},
                     {"data-diameter", Num(pipe.Diameter, 3)}};
    const auto q = flow.find(pipe.PipeName);
    if (q != flow.end()) attrs.emplace_back("data-flow", Num(q->second, 3));
    doc.Line(a->second.x, a->second.y, b->second.x, b->second.y,
             std::string("pipe ") + (kind < 4 ? "p" + std::to_string(kind) : "px"), attrs);
    drawn.push_back({&pipe, {a->second, b->second}});
  }
  doc.Close();

  int nodeCounts[kOtherNode + 1] = {};
  doc.Open("nodes");
  for (const auto& n : nodes) {
    const int kind = NodeKindOf(n.NodeType);
    ++nodeCounts[kind];
    const Point p = at[n.NodeName];
    svg::Attrs attrs{{"data-name", n.NodeName}, {"data-type", std::to_string(n.NodeType)},
                     {"data-x", Num(n.NodeX, 6)}, {"data-y", Num(n.NodeY, 6)}};
    const auto pp = pressure.find(n.NodeName);
    if (pp != pressure.end()) attrs.emplace_back("data-pressure", Num(pp->second, 4));
    doc.Use("n" + std::to_string(kind), p.x, p.y, "node", attrs);
  }
  doc.Close();

  // Names (with the pressure under them in a case), the important nodes first.
  std::vector<const NodeRecord*> order;
  for (const auto& n : nodes) order.push_back(&n);
  std::stable_sort(order.begin(), order.end(), [](const NodeRecord* a, const NodeRecord* b) {
    return NamePriority(a->NodeType) < NamePriority(b->NodeType);
  });
  std::size_t named = 0;
  doc.Open("node-names");
  for (const NodeRecord* n : order) {
    const Point p = at[n->NodeName];
    const double r = kNodeKinds[NodeKindOf(n->NodeType)].radius + 2;
    const auto pp = pressure.find(n->NodeName);
    const std::string value = pp == pressure.end() ? "" : "p=" + Num(pp->second, 2);
    const double w = std::max(svg::TextWidth(n->NodeName, 10), svg::TextWidth(value, 9));
    const double h = value.empty() ? 11 : 21;
    const Point spots[] = {{p.x + r, p.y - h / 2}, {p.x - r - w, p.y - h / 2}, {p.x - w / 2, p.y - r - h},
                           {p.x - w / 2, p.y + r}};
    for (const Point& s : spots) {
      if (s.x < f.left || s.x + w > f.left + f.width || s.y < f.top || s.y + h > f.top + f.height) continue;
      if (!placer.Place(s.x, s.y, w, h)) continue;
      doc.Text(s.x, s.y + 9, n->NodeName, "label", "start", 0, {{"data-name", n->NodeName}});
      if (!value.empty()) doc.Text(s.x, s.y + 19, value, "value");
      ++named;
      break;
    }
  }
  doc.Close();
  if (!flow.empty()) {
    doc.Open("pipe-flows");
    for (const auto& [pipe, ends] : drawn) {
      const auto q = flow.find(pipe->PipeName);
      if (q == flow.end()) continue;
      const std::string text = "q=" + Num(q->second, 1);
      const double w = svg::TextWidth(text, 9);
      const double length = std::hypot(ends.second.x - ends.first.x, ends.second.y - ends.first.y);
      if (length < w + 12) continue;
      const Point mid{(ends.first.x + ends.second.x) / 2, (ends.first.y + ends.second.y) / 2};
      if (placer.Place(mid.x - w / 2, mid.y - 12, w, 10)) doc.Text(mid.x, mid.y - 3, text, "flow", "middle");
    }
    doc.Close();
  }

  // The legend: node and pipe kinds in use, with their counts.
  doc.Open("legend");
  double ly = f.top + 72;  // under the north arrow
  doc.Text(legendX, ly, "Nodes", "legend-title");
  for (int k = 0; k <= kOtherNode; ++k) {
    if (!nodeCounts[k]) continue;
    ly += 20;
    doc.Use("n" + std::to_string(k), legendX + 7, ly - 4, "");
    doc.Text(legendX + 20, ly, std::string(kNodeKinds[k].legend) + " (" + std::to_string(nodeCounts[k]) + ")", "legend");
  }
  ly += 30;
  doc.Text(legendX, ly, "Pipes (width by diameter)", "legend-title");
  for (int k = 0; k < 5; ++k) {
    if (!pipeCounts[k]) continue;
    ly += 20;
    doc.Line(legendX, ly - 4, legendX + 16, ly - 4, std::string("key ") + (k < 4 ? "p" + std::to_string(k) : "px"),
             {{"stroke-width", "2"}});
    doc.Text(legendX + 20, ly, std::string(kPipeKinds[k]) + " (" + std::to_string(pipeCounts[k]) + ")", "legend");
  }
  if (loose) {
    ly += 20;
    doc.Text(legendX, ly, std::to_string(loose) + " pipe(s) not drawn: an end names no node", "note");
  }
  if (named < nodes.size()) {
    ly += 20;
    doc.Text(legendX, ly, std::to_string(nodes.size() - named) + " name(s) left out where they", "note");
    doc.Text(legendX, ly + 13, "would cover others", "note");
  }
  doc.Close();
  if (nodes.empty()) doc.Text(f.left + 10, f.top + 20, "the network has no nodes", "note");

  return WritePicture(doc, out);
}

}  // namespace petrodb::cli
