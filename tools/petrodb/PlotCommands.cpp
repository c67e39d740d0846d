// petrodb plot log / map / network, and the demo's pictures.
#include <charconv>
#include <cstdio>
#include <filesystem>

#include "Plot.h"
#include "petrodb/network/INode.h"
#include "petrodb/network/IPipe.h"
#include "petrodb/network/IPipenet.h"
#include "petrodb/network/IProject.h"
#include "petrodb/network/ISimuNode.h"
#include "petrodb/network/ISimuPipe.h"
#include "petrodb/project/IAOIData.h"
#include "petrodb/seismic/ILineCoor2DData.h"
#include "petrodb/seismic/ILineGrid3DData.h"
#include "petrodb/welllog/ILogData.h"
#include "petrodb/welllog/IPerforatedSec.h"
#include "petrodb/welllog/ITakeCoreData.h"

namespace petrodb::cli {
namespace {

// The options and positional arguments of a plot command; false (usage) when
// an option is unknown or --out is missing.
bool Parse(const std::vector<std::string>& args, const std::vector<std::string>& known, const char* command,
           Options& options) {
  if (!ParseOptions(args, known, options)) return false;
  if (!options.Get("out") || options.Get("out")->empty()) {
    PrintError(std::string("plot ") + command + " needs --out <file.svg>");
    return false;
  }
  return true;
}

bool Depth(const Options& options, const char* name, std::optional<double>& value) {
  const std::string* text = options.Get(name);
  if (!text) return true;
  double v = 0;
  const auto [end, ec] = std::from_chars(text->data(), text->data() + text->size(), v);
  if (ec != std::errc() || end != text->data() + text->size() || !std::isfinite(v)) {
    PrintError("--" + std::string(name) + " takes a depth, not \"" + *text + "\"");
    return false;
  }
  value = v;
  return true;
}

int PlotLog(const std::vector<std::string>& args) {
  Options options;
  LogPlotRequest request;
  if (!Parse(args, {"from", "to", "out"}, "log", options) || !Depth(options, "from", request.from) ||
      !Depth(options, "to", request.to))
    return kUsage;
  request.file = options.positional.at(0);
  request.wellID = options.positional.at(1);
  request.curves.assign(options.positional.begin() + 2, options.positional.end());
  request.out = *options.Get("out");
  if (!CheckProjectFile(request.file)) return kFailed;
  auto factory = MakeFactory(ProjectConnection(request.file));
  return DrawLogPlot(*factory, request);
}

int PlotMap(const std::vector<std::string>& args) {
  Options options;
  if (!Parse(args, {"out"}, "map", options)) return kUsage;
  const std::string& file = options.positional.at(0);
  if (!CheckProjectFile(file)) return kFailed;
  auto factory = MakeFactory(ProjectConnection(file), options.positional.at(1));
  return DrawMapPlot(*factory, file, options.positional.at(1), *options.Get("out"));
}

int PlotNetwork(const std::vector<std::string>& args) {
  Options options;
  if (!Parse(args, {"case", "out"}, "network", options)) return kUsage;
  const std::string& file = options.positional.at(0);
  if (!CheckProjectFile(file)) return kFailed;
  auto factory = MakeFactory(ProjectConnection(file));
  const std::string* caseName = options.Get("case");
  return DrawNetworkPlot(*factory, file, options.positional.at(1), caseName ? *caseName : "", *options.Get("out"));
}

int PlotGroup(const std::vector<std::string>& args) {
  if (!args.empty()) PrintError("unknown plot command \"" + args[0] + "\"");
  std::fprintf(stderr,
               "usage: petrodb plot log <file> <well-id> [curve...] [--from MD] [--to MD] --out <file.svg>\n"
               "       petrodb plot map <file> <project> --out <file.svg>\n"
               "       petrodb plot network <file> <network> [--case <case>] --out <file.svg>\n");
  return kUsage;
}

const CommandRegistration kPlotLog{Command{
    "plot log", "<file> <well-id> [curve...] [--from MD] [--to MD] --out <file.svg>",
    "draw a well's curves as log tracks (default: all curves) with markers, cores and perforations, as SVG",
    &PlotLog, 2, -1}};
const CommandRegistration kPlotMap{Command{
    "plot map", "<file> <project> --out <file.svg>",
    "draw a map of a project's wells, well paths, areas of interest and seismic lines and grids, as SVG", &PlotMap,
    2, 2}};
const CommandRegistration kPlotNetwork{Command{
    "plot network", "<file> <network> [--case <case>] --out <file.svg>",
    "draw a pipeline network at its coordinates (with --case: node pressures and pipe flows), as SVG",
    &PlotNetwork, 2, 2}};
const CommandRegistration kPlot{
    Command{"plot", "log|map|network ...", "the picture commands: plot log, plot map, plot network", &PlotGroup, 0, -1}};

// ---- the demo's pictures ----

NodeRecord DemoNode(const char* name, int type, double x, double y, const char* parent) {
  NodeRecord n;
  n.NodeName = name;
  n.NodeType = type;
  n.NodeX = x;
  n.NodeY = y;
  n.ParentNodeName = parent;
  return n;
}

PipeRecord DemoPipe(const std::string& name, int type, const std::string& from, const std::string& to,
                    double diameter) {
  PipeRecord p;
  p.PipeName = name;
  p.PipeType = type;
  p.Node1 = from;
  p.Node2 = to;
  p.Diameter = diameter;
  p.Thickness = diameter / 25;
  p.PNum = 1;
  return p;
}

// A small injection network with one calculation case, when the project has no network.
bool AddDemoNetwork(IDataFactory& f, std::string& network, std::string& caseName) {
  auto networks = Create<IPipenet>(f, "IPipenet");
  std::vector<std::string> names;
  networks->ListPipenetNames(names);
  auto cases = Create<IProject>(f, "IProject");
  if (!names.empty()) {
    network = names.front();
    std::vector<CaseRecord> list;
    if (cases->LoadNetworkCases(network.c_str(), list) && !list.empty()) caseName = list.front().ProjName;
    return true;
  }
  network = "Demo-net";
  caseName = "Demo-case";
  PipenetRecord header;
  header.PipenetName = network;
  header.UnitName = "Demo field";
  header.Creator = "petrodb demo";
  if (!networks->SavePipenet(header)) return false;
  const double x0 = 20506000, y0 = 4308000;
  std::vector<NodeRecord> nodes = {
      DemoNode("Station-1", 0, x0, y0, "-1"),          DemoNode("Tank-1", 4, x0 - 600, y0 + 300, "Station-1"),
      DemoNode("Pump-1", 5, x0 - 300, y0 - 400, "Station-1"), DemoNode("M-1", 3, x0 + 1500, y0, "Station-1"),
      DemoNode("Valve-1", 6, x0 + 800, y0, "Station-1"),  DemoNode("Meter-1", 7, x0 + 1500, y0 + 900, "M-1"),
      DemoNode("Room-A", 1, x0 + 3000, y0 + 1800, "M-1"), DemoNode("Room-B", 1, x0 + 3200, y0 - 1600, "M-1"),
      DemoNode("Gauge-B", 8, x0 + 3900, y0 - 1100, "Room-B")};
  const std::pair<double, double> wellAt[] = {{x0 + 2200, y0 + 3000}, {x0 + 3600, y0 + 3300}, {x0 + 4600, y0 + 2100},
                                              {x0 + 2300, y0 - 2900}, {x0 + 3900, y0 - 3100}, {x0 + 4800, y0 - 1900}};
  std::vector<PipeRecord> pipes = {DemoPipe("P-0", 0, "Station-1", "Valve-1", 219),
                                   DemoPipe("P-1", 0, "Valve-1", "M-1", 219),
                                   DemoPipe("P-2", 1, "M-1", "Room-A", 159),
                                   DemoPipe("P-3", 1, "M-1", "Room-B", 159),
                                   DemoPipe("P-4", 3, "Room-A", "Room-B", 114),
                                   DemoPipe("P-5", 2, "M-1", "Meter-1", 60),
                                   DemoPipe("P-T", 0, "Tank-1", "Pump-1", 159),
                                   DemoPipe("P-U", 0, "Pump-1", "Station-1", 159)};
  for (int k = 0; k < 6; ++k) {
    const std::string well = "W-" + std::to_string(k + 1), room = k < 3 ? "Room-A" : "Room-B";
    nodes.push_back(DemoNode("", 2, wellAt[k].first, wellAt[k].second, room.c_str()));
    nodes.back().NodeName = well;
    pipes.push_back(DemoPipe("P-" + std::to_string(6 + k), 2, room, well, 76));
  }
  if (!Create<INode>(f, "INode")->SaveNodes(network.c_str(), nodes)) return false;
  if (!Create<IPipe>(f, "IPipe")->SavePipes(network.c_str(), pipes)) return false;
  CaseRecord c;
  c.ProjName = caseName;
  c.PipenetName = network;
  c.Creator = "petrodb demo";
  c.Memo = "steady injection, 6 wells";
  if (!cases->SaveCase(c)) return false;
  // Pressures fall from the station along the lines; flows add up towards it.
  std::vector<SimuNodeRecord> nodeResults;
  for (const auto& n : nodes) {
    SimuNodeRecord r;
    r.NodeName = n.NodeName;
    r.Pp = n.NodeType == 0 || n.NodeType == 5 ? 16.0 : n.NodeType == 2 ? 14.2 + 0.1 * (n.NodeName.back() - '0') : 15.1;
    nodeResults.push_back(r);
  }
  std::vector<SimuPipeRecord> pipeResults;
  for (const auto& p : pipes) {
    SimuPipeRecord r;
    r.PipeName = p.PipeName;
    r.PipeQ = p.PipeType == 0 ? 720 : p.PipeType == 1 ? 360 : p.PipeType == 3 ? 15 : 120;
    pipeResults.push_back(r);
  }
  return Create<ISimuNode>(f, "ISimuNode")->SaveNodeResults(caseName.c_str(), nodeResults) &&
         Create<ISimuPipe>(f, "ISimuPipe")->SavePipeResults(caseName.c_str(), pipeResults);
}

// An area of interest, a 2D survey and a 3D grid over the demo field, when the
// project has none of them.
bool AddDemoSeismic(IDataFactory& f, const std::string& project) {
  const char* p = project.c_str();
  auto areas = Create<IAOIData>(f, "IAOIData");
  if (!areas->IsAOIExist(p, "east block")) {
    AOIRecord a;
    a.AOIName = "east block";
    a.ProjectName = project;
    a.Xmin = 20509000, a.Xmax = 20516000, a.Ymin = 4301000, a.Ymax = 4307000;
    if (!areas->SaveAOI(p, a)) return false;
  }
  auto lines = Create<ILineCoor2DData>(f, "ILineCoor2DData");
  std::vector<std::string> surveys;
  lines->GetSurveyNames(p, surveys);
  if (surveys.empty()) {
    Survey2DLines survey;
    survey.S2d_name = "Demo-2D";
    for (int l = 0; l < 3; ++l) {
      Line2DRecord line;
      line.LineName = "L" + std::to_string(100 + 10 * l);
      for (int cdp = 1; cdp <= 80; ++cdp)
        line.Points.push_back(Line2DPoint{cdp, 20501000.0 + 220 * cdp, 4302000.0 + 6000 * l + 60 * cdp});
      survey.Lines.push_back(line);
    }
    if (!lines->SaveSurvey(p, survey)) return false;
  }
  auto grids = Create<ILineGrid3DData>(f, "ILineGrid3DData");
  std::vector<std::string> gridNames;
  grids->GetGridNames(p, gridNames);
  if (gridNames.empty()) {
    // Inlines run north, crosslines east, 25 m apart.
    LineGrid3DRecord g;
    g.LineGrid3DName = "Demo-3D";
    g.LineNo1 = 1000, g.CDPNo1 = 2000, g.Xcoor1 = 20503000, g.Ycoor1 = 4311000;
    g.LineNo2 = 1000, g.CDPNo2 = 2400, g.Xcoor2 = 20503000, g.Ycoor2 = 4321000;
    g.LineNo3 = 1200, g.CDPNo3 = 2000, g.Xcoor3 = 20508000, g.Ycoor3 = 4311000;
    g.Line_Begin = 1000, g.Line_End = 1400, g.Line_Inc = 1;
    g.CDP_P_Begin = 2000, g.CDP_P_End = 2300, g.CDP_Inc = 1;
    if (!grids->SaveGrid(p, g)) return false;
  }
  return true;
}

// A core and a perforated section in the logged well, when it has none.
bool AddDemoCompletion(IDataFactory& f, const std::string& well) {
  auto cores = Create<ITakeCoreData>(f, "ITakeCoreData");
  if (!cores->IsWellCoresExist(well.c_str())) {
    WellCores c;
    c.WellID = well;
    c.Cores.push_back(CoreInterval{"C1", 1190, 1212, 22, 22, 1, 0, "sandstone", "", "", ""});
    if (!cores->SaveWellCores(c)) return false;
  }
  auto perforations = Create<IPerforatedSec>(f, "IPerforatedSec");
  std::vector<PerforatedSection> rows;
  perforations->LoadPerforatedSections(well.c_str(), rows);
  if (rows.empty()) {
    PerforatedSection s;
    s.Jh = well;
    s.Perf_horizon = "Ng";
    s.Perf_section = 1230;
    s.Perf_thickness = 18;
    if (!perforations->SavePerforatedSectionQuiet(s)) return false;
  }
  return true;
}

bool DemoPictures(DemoContext& c) {
  std::string network, caseName;
  if (!AddDemoNetwork(*c.factory, network, caseName) || !AddDemoSeismic(*c.factory, c.project)) return false;
  std::vector<std::string> logged;
  Create<ILogData>(*c.factory, "ILogData")->GetLoggedWellIDs(c.project.c_str(), logged);
  if (logged.empty()) {
    PrintError("the demo project has no logged well to draw");
    return false;
  }
  const std::string well = logged.front();
  if (!AddDemoCompletion(*c.factory, well)) return false;
  namespace fs = std::filesystem;
  const std::string logFile = (fs::path(c.directory) / ("demo-log-" + well + ".svg")).string();
  const std::string mapFile = (fs::path(c.directory) / "demo-map.svg").string();
  const std::string networkFile = (fs::path(c.directory) / "demo-network.svg").string();
  LogPlotRequest request{c.file, well, {}, std::nullopt, std::nullopt, logFile};
  if (DrawLogPlot(*c.factory, request) != kOk || DrawMapPlot(*c.factory, c.file, c.project, mapFile) != kOk ||
      DrawNetworkPlot(*c.factory, c.file, network, caseName, networkFile) != kOk)
    return false;
  std::printf("log tracks of well %s: %s\n", well.c_str(), logFile.c_str());
  std::printf("map of project %s:    %s\n", c.project.c_str(), mapFile.c_str());
  std::printf("network %s%s: %s\n", network.c_str(), caseName.empty() ? "" : (" with case " + caseName).c_str(),
              networkFile.c_str());
  return true;
}

const DemoRegistration kDemo{DemoStep{900, "pictures of the project (SVG)", &DemoPictures}};

}  // namespace
}  // namespace petrodb::cli
