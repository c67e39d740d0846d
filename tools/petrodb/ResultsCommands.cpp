// petrodb results: one calculation case of a project file with its results per
// network element (node pressures and flows, pipe flows and velocities, station
// and pump figures, the system's efficiencies), as aligned tables or as CSV.
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <map>
#include <memory>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

#include "Command.h"
#include "TextTable.h"
#include "petrodb/network/INode.h"
#include "petrodb/network/IOptPump.h"
#include "petrodb/network/IOptSta.h"
#include "petrodb/network/IOptSys.h"
#include "petrodb/network/IPipe.h"
#include "petrodb/network/IProject.h"
#include "petrodb/network/IPumpInputPower.h"
#include "petrodb/network/ISimuEff.h"
#include "petrodb/network/ISimuNode.h"
#include "petrodb/network/ISimuPipe.h"
#include "petrodb/network/ISimuSta.h"

namespace petrodb::cli {
namespace {

using Row = std::vector<std::string>;

// The shortest text that reads back as the same number, never in exponent form.
std::string Number(double value) {
  char buffer[400];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed).ptr;
  return std::string(buffer, end);
}

// One section of the report: a title, a header row and its rows.
struct Section {
  std::string title;  // for the tables
  std::string kind;   // the first field of its CSV rows
  Row header;
  std::vector<Row> rows;
};

void PrintTable(const Section& s) {
  std::printf("%s (%zu)\n", s.title.c_str(), s.rows.size());
  if (s.rows.empty()) return;
  // Columns of numbers to the right, names to the left.
  std::vector<bool> right(s.header.size(), true);
  for (const auto& row : s.rows)
    for (std::size_t j = 0; j < row.size(); ++j) {
      double ignored;
      const auto& cell = row[j];
      right[j] = right[j] && (cell == "-" || std::from_chars(cell.data(), cell.data() + cell.size(), ignored).ptr ==
                                                 cell.data() + cell.size());
    }
  TextTable table(std::move(right), " ");
  table.Add(s.header);
  for (const auto& row : s.rows) table.Add(row);
  table.Print("  ");
}

std::string CsvField(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos && (text.empty() || (text.front() != ' ' && text.back() != ' ')))
    return text;
  std::string quoted = "\"";
  for (char c : text) quoted += c == '"' ? std::string("\"\"") : std::string(1, c);
  return quoted + "\"";
}

void PrintCsv(const Section& s) {
  auto print = [&](const std::string& first, const Row& row) {
    std::string line = CsvField(first);
    for (const auto& field : row) line += "," + CsvField(field);
    std::printf("%s\n", line.c_str());
  };
  print("section", s.header);
  for (const auto& row : s.rows) print(s.kind, row);
}

// A list load of the library answers false both for "none" and for a failure:
// it failed when the engine gave a reason or rows were read before it stopped.
template <class Record>
bool Listed(bool loaded, const std::vector<Record>& out, const std::string& what) {
  if (loaded || (out.empty() && EngineError().empty())) return true;
  PrintFailure("cannot read the " + what);
  return false;
}

// The element's type as the case's own network has it (the joined loads
// give a row once per element of that name in any network).
template <class Result, class Element>
std::vector<Result> OncePerName(const std::vector<Result>& joined, const std::vector<Element>& network,
                                std::string Result::*name, std::string Element::*elementName, int Result::*type,
                                int Element::*elementType) {
  std::map<std::string, const Element*> own;
  for (const auto& e : network) own.emplace(e.*elementName, &e);
  std::vector<Result> once;
  std::map<std::string, std::size_t> at;
  for (const auto& r : joined) {
    const auto o = own.find(r.*name);
    const bool ownType = o != own.end() && r.*type == o->second->*elementType;
    const auto it = at.find(r.*name);
    if (it == at.end()) {
      at.emplace(r.*name, once.size());
      once.push_back(r);
    } else if (ownType) {
      once[it->second] = r;
    }
  }
  std::stable_sort(once.begin(), once.end(), [type](const Result& a, const Result& b) { return a.*type < b.*type; });
  return once;
}

// Mean velocity in m/s of a flow in m3/d through the pipe's parallel strings,
// the bore being the diameter less the wall and the lining on both sides (mm).
std::string Velocity(double flow, const PipeRecord* pipe) {
  if (!pipe) return "-";
  const double bore = (pipe->Diameter - 2 * (pipe->Thickness + pipe->InThkness)) / 1000;
  if (!(bore > 0)) return "-";
  const double area = std::numbers::pi / 4 * bore * bore * std::max(pipe->PNum, 1);
  char text[64];
  std::snprintf(text, sizeof text, "%.3f", flow / 86400 / area);
  return text;
}

std::string TypeText(int type, const std::string& name) {
  return name.empty() ? "type " + std::to_string(type) : name;
}

struct Report {
  CaseRecord header;
  std::vector<Section> sections;
};

// Reads everything the report shows; false (with the reason printed) on a failure.
bool Read(IDataFactory& f, const std::string& caseName, Report& report) {
  const char* c = caseName.c_str();
  auto cases = Create<IProject>(f, "IProject");
  if (!cases->LoadCase(c, report.header)) {
    PrintFailure("cannot read case " + caseName);
    return false;
  }
  const std::string& network = report.header.PipenetName;
  std::vector<NodeRecord> nodes;
  std::vector<PipeRecord> pipes;
  std::vector<SimuNodeRecord> nodeResults;
  std::vector<SimuPipeRecord> pipeResults;
  std::vector<SimuStaRecord> stations;
  std::vector<OptStaRecord> optStations;
  std::vector<OptPumpRecord> optPumps;
  std::vector<PumpInputPowerRecord> powers;
  if (!Listed(Create<INode>(f, "INode")->LoadNodes(network.c_str(), nodes), nodes, "nodes of network " + network) ||
      !Listed(Create<IPipe>(f, "IPipe")->LoadPipes(network.c_str(), pipes), pipes, "pipes of network " + network) ||
      !Listed(Create<ISimuNode>(f, "ISimuNode")->LoadCaseNodeResults(c, nodeResults), nodeResults, "node results") ||
      !Listed(Create<ISimuPipe>(f, "ISimuPipe")->LoadCasePipeResults(c, pipeResults), pipeResults, "pipe results") ||
      !Listed(Create<ISimuSta>(f, "ISimuSta")->LoadCaseStationResults(c, stations), stations, "station results") ||
      !Listed(Create<IOptSta>(f, "IOptSta")->LoadCaseStationResults(c, optStations), optStations,
              "optimised stations") ||
      !Listed(Create<IOptPump>(f, "IOptPump")->LoadCasePumpResults(c, optPumps), optPumps, "optimised pumps") ||
      !Listed(Create<IPumpInputPower>(f, "IPumpInputPower")->LoadCasePumpPowers(c, powers), powers,
              "pump input powers"))
    return false;
  SimuEffRecord eff;
  OptSysRecord sys;
  const bool hasEff = Create<ISimuEff>(f, "ISimuEff")->LoadSimuEff(c, eff);
  const bool hasSys = Create<IOptSys>(f, "IOptSys")->LoadOptSys(c, sys);
  if (!EngineError().empty()) {
    PrintFailure("cannot read the system results of case " + caseName);
    return false;
  }

  auto& s = report.sections;
  s.push_back({"nodes", "node", {"node", "type", "station", "Pp0", "Bp", "Pp", "Pq", "Sp", "Jp", "Jp0", "Jq", "Tzsl"}, {}});
  for (const auto& r : OncePerName(nodeResults, nodes, &SimuNodeRecord::NodeName, &NodeRecord::NodeName,
                                   &SimuNodeRecord::NodeType, &NodeRecord::NodeType))
    s.back().rows.push_back({r.NodeName, TypeText(r.NodeType, r.TypeName), r.Station, Number(r.Pp0), Number(r.Bp),
                             Number(r.Pp), Number(r.Pq), Number(r.Sp), Number(r.Jp), Number(r.Jp0), Number(r.Jq),
                             Number(r.Tzsl)});

  std::map<std::string, const PipeRecord*> pipeByName;
  for (const auto& p : pipes) pipeByName.emplace(p.PipeName, &p);
  s.push_back({"pipes", "pipe", {"pipe", "type", "station", "PipeQ", "velocity m/s", "Detap", "Kf", "Deltpow"}, {}});
  for (const auto& r : OncePerName(pipeResults, pipes, &SimuPipeRecord::PipeName, &PipeRecord::PipeName,
                                   &SimuPipeRecord::PipeType, &PipeRecord::PipeType)) {
    const auto it = pipeByName.find(r.PipeName);
    s.back().rows.push_back({r.PipeName, TypeText(r.PipeType, r.TypeName), r.Station, Number(r.PipeQ),
                             Velocity(r.PipeQ, it == pipeByName.end() ? nullptr : it->second), Number(r.Detap),
                             Number(r.Kf), Number(r.Deltpow)});
  }

  s.push_back({"stations, simulated", "station", {"station", "Eff", "Dh", "SumEff"}, {}});
  for (const auto& r : stations) s.back().rows.push_back({r.StaName, Number(r.Eff), Number(r.Dh), Number(r.SumEff)});

  s.push_back({"stations, optimised", "opt_station",
               {"station", "MaxQ", "MinQ", "InitQ", "PumpNum", "KbNum", "OptQ", "OptGy", "OptKbNum", "Eff", "Dh",
                "SumEff", "StaQ", "StaP", "StaE", "StaPower"},
               {}});
  for (const auto& r : optStations)
    s.back().rows.push_back({r.StaName, Number(r.MaxQ), Number(r.MinQ), Number(r.InitQ), std::to_string(r.PumpNum),
                             std::to_string(r.KbNum), Number(r.OptQ), Number(r.OptGy), std::to_string(r.OptKbNum),
                             Number(r.Eff), Number(r.Dh), Number(r.SumEff), Number(r.StaQ), Number(r.StaP),
                             Number(r.StaE), Number(r.StaPower)});

  s.push_back({"pumps, optimised", "opt_pump",
               {"station/pump", "model", "IsFreq", "MaxQ", "MinQ", "InitQ", "CurDia", "OptDia", "PumpP", "PumpQ",
                "PumpE", "PumpPower", "PumpDh"},
               {}});
  for (const auto& r : optPumps)
    s.back().rows.push_back({r.StaName + "/" + r.PumpCode, r.PumpModel, std::string(1, r.IsFreq), Number(r.MaxQ),
                             Number(r.MinQ), Number(r.InitQ), Number(r.CurDia), Number(r.OptDia), Number(r.PumpP),
                             Number(r.PumpQ), Number(r.PumpE), Number(r.PumpPower), Number(r.PumpDh)});

  s.push_back({"pump input powers", "pump_power", {"pump", "MotorInp_power", "MotorRunEff"}, {}});
  for (const auto& r : powers) s.back().rows.push_back({r.Pump_ID, Number(r.MotorInp_power), Number(r.MotorRunEff)});

  s.push_back({"system", "system", {"figure", "value"}, {}});
  if (hasEff)
    for (const auto& [name, value] : std::vector<std::pair<const char*, double>>{
             {"AvPumpEff", eff.AvPumpEff}, {"AvStaEff", eff.AvStaEff}, {"SysEff", eff.SysEff},
             {"PipenetEff", eff.PipenetEff}, {"AvMotorEff", eff.AvMotorEff}, {"StaDayQ", eff.StaDayQ},
             {"WellDayQ", eff.WellDayQ}, {"SysDayKw", eff.SysDayKw}, {"StaDayKw", eff.StaDayKw},
             {"WellDayKw", eff.WellDayKw}})
      s.back().rows.push_back({std::string("simulated ") + name, Number(value)});
  if (hasSys) {
    s.back().rows.push_back({"optimised ResultType", sys.ResultType});
    for (const auto& [name, value] : std::vector<std::pair<const char*, double>>{
             {"SysQ", sys.SysQ}, {"SysKw", sys.SysKw}, {"AvPumpEff", sys.AvPumpEff},
             {"AvPipenetEff", sys.AvPipenetEff}, {"SysEff", sys.SysEff}, {"UnitKw", sys.UnitKw},
             {"OpenedPumps", static_cast<double>(sys.OpenedPumps)}})
      s.back().rows.push_back({std::string("optimised ") + name, Number(value)});
  }
  return true;
}

int Results(const std::vector<std::string>& args) {
  Options options;
  if (!ParseOptions(args, {}, options, {"csv"})) return kUsage;
  const bool csv = options.Has("csv");
  const std::vector<std::string>& positional = options.positional;
  if (positional.size() != 2) {
    std::fprintf(stderr, "usage: petrodb results <file> <case> [--csv]\n");
    return kUsage;
  }
  const std::string &file = positional[0], &caseName = positional[1];
  if (!CheckProjectFile(file)) return kFailed;
  FactoryPtr factory = MakeFactory(ProjectConnection(file));
  auto cases = Create<IProject>(*factory, "IProject");
  if (!cases->CaseExists(caseName.c_str())) {
    if (!LookupError(caseName).empty()) {
      PrintFailure("cannot read the cases of " + file);
      return kFailed;
    }
    std::vector<CaseRecord> all;
    cases->LoadAllCases(all);
    std::string known;
    for (const auto& c : all) known += (known.empty() ? "" : ", ") + c.ProjName;
    PrintError("no case \"" + caseName + "\" in " + file +
               (all.empty() ? " (it has no cases)" : " (its cases: " + known + ")"));
    return kFailed;
  }
  Report report;
  if (!Read(*factory, caseName, report)) return kFailed;

  const CaseRecord& h = report.header;
  Section header{"case", "case", {"case", "network", "creator", "created", "tested", "memo"}, {}};
  header.rows.push_back({h.ProjName, h.PipenetName, h.Creator, h.CreateDate, h.TestDate, h.Memo});
  if (csv) {
    PrintCsv(header);
    for (const auto& s : report.sections) {
      std::printf("\n");
      PrintCsv(s);
    }
    return kOk;
  }
  std::printf("case %s of network %s\n", h.ProjName.c_str(), h.PipenetName.c_str());
  auto shown = [](const std::string& text) { return text.empty() ? "-" : text.c_str(); };
  std::printf("  creator %s, created %s, tested %s\n", shown(h.Creator), shown(h.CreateDate), shown(h.TestDate));
  if (!h.Memo.empty()) std::printf("  memo %s\n", h.Memo.c_str());
  for (const auto& s : report.sections) PrintTable(s);
  return kOk;
}

const CommandRegistration kResults{Command{
    "results", "<file> <case> [--csv]",
    "a calculation case's node pressures and flows, pipe flows and velocities (from PipeQ in m3/d and the "
    "network pipe's bore in mm), station, pump and system figures; --csv for CSV",
    &Results, 2, 2}};

}  // namespace
}  // namespace petrodb::cli
