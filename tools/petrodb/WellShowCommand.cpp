// petrodb well show: what a project file holds for one well, across the
// subsystems, in one compact page.
#include <cstdio>
#include <string>
#include <vector>

#include "Command.h"
#include "petrodb/project/IBasicProjectData.h"
#include "petrodb/project/IBasicWellData.h"
#include "petrodb/project/IWellGroupData.h"
#include "petrodb/welllog/IDeviateData.h"
#include "petrodb/welllog/IInterpretData.h"
#include "petrodb/welllog/ILateralCoreData.h"
#include "petrodb/welllog/ILogData.h"
#include "petrodb/welllog/IMarkerData.h"
#include "petrodb/welllog/IPerforatedSec.h"
#include "petrodb/welllog/ITakeCoreData.h"
#include "petrodb/welllog/ITargetData.h"
#include "petrodb/welllog/IWellBoreStructural.h"

namespace petrodb::cli {
namespace {

// A section heading with its count; the loads answer false both for "nothing
// stored" and for a failure, so an empty section says "none".
bool Heading(const char* title, std::size_t count) {
  if (count == 0) {
    std::printf("%-14s none\n", title);
    return false;
  }
  std::printf("%-14s %zu\n", title, count);
  return true;
}

// The projects holding the well and, in each, the groups it belongs to.
void PrintProjectsAndGroups(IDataFactory& factory, const std::string& wellID) {
  auto projects = Create<IBasicProjectData>(factory, "IBasicProjectData");
  auto wells = Create<IBasicWellData>(factory, "IBasicWellData");
  auto groups = Create<IWellGroupData>(factory, "IWellGroupData");
  std::vector<std::string> names;
  projects->GetProjectNames(names);
  for (const auto& project : names) {
    if (!wells->IsWellIDExist(project.c_str(), wellID.c_str())) continue;
    std::vector<WellGroupRecord> projectGroups;
    groups->LoadProjectGroups(project.c_str(), projectGroups);
    std::string memberOf;
    for (const auto& g : projectGroups)
      if (wells->IsWellInGroup(g.GroupID.c_str(), wellID.c_str()))
        memberOf += (memberOf.empty() ? "" : ", ") + (g.GroupName.empty() ? g.GroupID : g.GroupName);
    std::printf("%-14s %s%s%s\n", "project", project.c_str(), memberOf.empty() ? "" : "  groups: ",
                memberOf.c_str());
  }
}

void PrintCurves(IDataFactory& factory, const std::string& wellID) {
  WellLog log;
  Create<ILogData>(factory, "ILogData")->LoadWellLog(wellID.c_str(), log);
  if (!Heading("curves", log.Curves.size())) return;
  for (const auto& c : log.Curves)
    std::printf("  %-16s %-10s %8zu samples  depth %s\n", c.CurveName.c_str(), c.Measure.c_str(), c.Values.size(),
                c.DepthCurve ? c.DepthCurve->CurveName.c_str() : "?");
}

void PrintSurvey(IDataFactory& factory, const std::string& wellID) {
  DeviationSurvey survey;
  if (!Create<IDeviateData>(factory, "IDeviateData")->LoadSurvey(wellID.c_str(), survey)) survey.Md.clear();
  if (!Heading("survey", survey.Md.size())) return;
  std::printf("  MD %.2f to %.2f\n", survey.Md.front(), survey.Md.back());
}

void PrintMarkers(IDataFactory& factory, const std::string& wellID) {
  std::vector<MarkerRecord> markers;
  Create<IMarkerData>(factory, "IMarkerData")->LoadWellMarkers(wellID.c_str(), markers);
  if (!Heading("markers", markers.size())) return;
  for (const auto& m : markers) std::printf("  %-16s top %10.2f  bottom %10.2f\n", m.MarkerName.c_str(), m.TopMD, m.BottomMD);
}

void PrintTargets(IDataFactory& factory, const std::string& wellID) {
  std::vector<DrillingTarget> targets;
  Create<ITargetData>(factory, "ITargetData")->LoadWellTargets(wellID.c_str(), targets);
  if (!Heading("targets", targets.size())) return;
  for (const auto& t : targets)
    std::printf("  %-16s MD %10.2f  TVD %10.2f  X %.2f  Y %.2f\n", t.TARGETNAME.c_str(), t.MD, t.TVD, t.X, t.Y);
}

void PrintPerforations(IDataFactory& factory, const std::string& wellID) {
  std::vector<PerforatedSection> rows;
  Create<IPerforatedSec>(factory, "IPerforatedSec")->LoadPerforatedSections(wellID.c_str(), rows);
  if (!Heading("perforations", rows.size())) return;
  for (const auto& p : rows)
    std::printf("  %-16s perforated %.2f m over %.2f m\n", p.Perf_horizon.c_str(), p.Perf_thickness, p.Perf_section);
}

template <class Interface, class Well>
void PrintCores(IDataFactory& factory, const char* interfaceName, const char* title, const std::string& wellID) {
  Well well;
  Create<Interface>(factory, interfaceName)->LoadWellCores(wellID.c_str(), well);
  if constexpr (requires { well.Cores; }) {
    if (!Heading(title, well.Cores.size())) return;
    for (const auto& c : well.Cores)
      std::printf("  %-16s %10.2f to %10.2f  %s\n", c.CoreName.c_str(), c.TopDepth, c.BottomDepth,
                  c.LithName.c_str());
  } else {
    if (!Heading(title, well.Layers.size())) return;
    for (const auto& l : well.Layers)
      std::printf("  %-16s %10.2f to %10.2f  %s\n", l.InterpretName.c_str(), l.TopDepth, l.BottomDepth,
                  l.InterpretResult.c_str());
  }
}

void PrintSidewallCores(IDataFactory& factory, const std::string& wellID) {
  WellSidewallCores well;
  Create<ILateralCoreData>(factory, "ILateralCoreData")->LoadWellCores(wellID.c_str(), well);
  if (!Heading("sidewall cores", well.Cores.size())) return;
  for (const auto& c : well.Cores) std::printf("  %-16s %10.2f  %s\n", c.LateralCoreName.c_str(), c.Depth, c.LithName.c_str());
}

void PrintBoreSections(IDataFactory& factory, const std::string& wellID) {
  std::vector<BoreSection> sections;
  Create<IWellBoreStructural>(factory, "IWellBoreStructural")->LoadWellBoreSections(wellID.c_str(), sections);
  if (!Heading("bore sections", sections.size())) return;
  for (const auto& s : sections)
    std::printf("  %-16s bit %.3f  %10.2f to %10.2f\n", s.BORENAME.c_str(), s.BITSIZE, s.TOPDEPTH, s.BOTDEPTH);
}

int WellShow(const std::vector<std::string>& args) {
  const std::string &file = args[0], &wellID = args[1];
  if (!CheckProjectFile(file)) return kFailed;
  auto factory = MakeFactory(ProjectConnection(file));
  WellRecord well;
  if (!Create<IBasicWellData>(*factory, "IBasicWellData")->LoadWell(wellID.c_str(), well)) {
    PrintNotFound("no well \"" + wellID + "\" in " + file, wellID);
    return kFailed;
  }
  std::printf("well %s%s%s\n", well.WellID.c_str(), well.WellName.empty() ? "" : "  ", well.WellName.c_str());
  std::printf("%-14s %s  flag %c  symbol %d\n", "type", well.WellType.c_str(), well.WellFlag ? well.WellFlag : ' ',
              well.WellSymbol);
  std::printf("%-14s SN %.2f  EW %.2f\n", "position", well.Well_SN, well.Well_EW);
  std::printf("%-14s Kb %.2f  Ekb %.2f  depth %.2f\n", "elevations", well.Kb, well.Ekb, well.WellDepth);
  PrintProjectsAndGroups(*factory, wellID);
  PrintCurves(*factory, wellID);
  PrintSurvey(*factory, wellID);
  PrintMarkers(*factory, wellID);
  PrintTargets(*factory, wellID);
  PrintPerforations(*factory, wellID);
  PrintCores<ITakeCoreData, WellCores>(*factory, "ITakeCoreData", "cores", wellID);
  PrintSidewallCores(*factory, wellID);
  PrintBoreSections(*factory, wellID);
  PrintCores<IInterpretData, WellInterpretation>(*factory, "IInterpretData", "layers", wellID);
  return kOk;
}

const CommandRegistration kWellShow{Command{
    "well show", "<file> <well-id>",
    "show what the project holds for one well: master row, groups, curves, survey, markers, targets, "
    "perforations, cores, bore sections, interpreted layers",
    &WellShow, 2, 2}};

}  // namespace
}  // namespace petrodb::cli
