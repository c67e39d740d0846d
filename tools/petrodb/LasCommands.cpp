// petrodb las import / las export, and the demo's logs, survey and markers.
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <cstring>

#include "Checkshot.h"
#include "Command.h"
#include "dbaccess/SqlText.h"
#include "formats/Las.h"
#include "petrodb/Host.h"
#include "petrodb/project/IBasicWellData.h"
#include "petrodb/welllog/DepthConverter.h"
#include "petrodb/welllog/ICurveDictionary.h"
#include "petrodb/welllog/IDeviateData.h"
#include "petrodb/welllog/ILogData.h"
#include "petrodb/welllog/IMarkerData.h"
#include "petrodb/welllog/ISourceData.h"

namespace petrodb::cli {

extern const char* const kDemoLas;  // data/demo.las, carried by the program

namespace {

namespace fs = std::filesystem;

// Notes that change no value (an older version read as 2.0) are shown only
// when asked for; the others say what was done to the data.
bool Import(IDataFactory& factory, const std::string& wellID, const std::string& path, WellLog& log,
            bool verbose = false) {
  las::File file;
  std::string error;
  if (!las::ReadFile(path, file, error)) {
    PrintError(path + ": " + error);
    return false;
  }
  for (const auto& warning : file.warnings)
    if (verbose || warning.rfind("version ", 0) != 0) std::fprintf(stderr, "%s: %s\n", path.c_str(), warning.c_str());
  las::ToWellLog(file, wellID, log);
  auto logs = Create<ILogData>(factory, "ILogData");
  if (!logs || !logs->SaveWellLog(log)) {
    PrintFailure("cannot save the curves of well " + wellID);
    return false;
  }
  return true;
}

// A checkshot LAS: the index is measured depth, or TVDSS when its mnemonic
// says so; the curve TWT holds two-way time in ms (its NULL samples are left out).
bool ReadCheckshot(const std::string& path, Checkshot& shot) {
  las::File file;
  std::string error;
  if (!las::ReadFile(path, file, error)) {
    PrintError(path + ": " + error);
    return false;
  }
  for (const auto& warning : file.warnings) std::fprintf(stderr, "%s: %s\n", path.c_str(), warning.c_str());
  const las::Curve* twt = nullptr;
  for (std::size_t i = 1; i < file.curves.size(); ++i)
    if (sql::EqualsIgnoreCase(file.curves[i].mnemonic, "TWT")) twt = &file.curves[i];
  if (file.curves.empty() || !twt) {
    PrintError(path + ": a checkshot needs a depth index and a curve TWT (two-way time, ms)");
    return false;
  }
  const las::Curve& index = file.curves.front();
  shot.measuredDepth = !sql::EqualsIgnoreCase(index.mnemonic, "TVDSS");
  for (std::size_t i = 0; i < index.values.size() && i < twt->values.size(); ++i) {
    if (file.IsNull(twt->values[i])) continue;
    shot.depths.push_back(index.values[i]);
    shot.times.push_back(twt->values[i]);
  }
  return true;
}

int LasImport(const std::vector<std::string>& given) {
  std::vector<std::string> args;
  bool checkshot = false, verbose = false;
  for (const auto& a : given) {
    if (a == "--checkshot")
      checkshot = true;
    else if (a == "-v" || a == "--verbose")
      verbose = true;
    else
      args.push_back(a);
  }
  if (args.size() != 3) return kUsage;
  const std::string& file = args.at(0);
  if (!CheckProjectFile(file, Access::Write)) return kFailed;
  if (checkshot) {
    Checkshot shot;
    if (!ReadCheckshot(args.at(2), shot)) return kFailed;
    auto factory = MakeFactory(ProjectConnection(file));
    return SaveCheckshot(*factory, file, args.at(1), shot) ? kOk : kFailed;
  }
  auto factory = MakeFactory(ProjectConnection(file));
  if (!CheckWellID(*factory, file, args.at(1))) return kFailed;
  WellLog log;
  if (!Import(*factory, args.at(1), args.at(2), log, verbose)) return kFailed;
  const auto samples = log.Curves.front().Values.size();
  std::printf("imported %zu curves of %zu samples into well %s (index %s)\n", log.Curves.size(), samples,
              log.WellID.c_str(), log.Curves.front().CurveName.c_str());
  return kOk;
}

// A dictionary text as a LAS header can carry it: line breaks and other
// control characters become blanks, and in a description ':' (which would end
// the value) becomes ';'; outer blanks are dropped.
std::string HeaderText(std::string text, bool description) {
  for (char& c : text) {
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f) c = ' ';
    if (description && c == ':') c = ';';
  }
  const auto first = text.find_first_not_of(' ');
  if (first == std::string::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// Unit and description of a curve: the dictionary's where it knows the curve
// (by name or alias), else the stored measure. A unit a LAS header cannot
// carry (one with a blank) is left out.
void Describe(ICurveDictionary* dictionary, const LogCurve& curve, las::Curve& out) {
  out.unit = curve.Measure;
  CurveTemplate entry;
  if (dictionary && dictionary->LoadTemplateByAlias(curve.CurveName.c_str(), entry)) {
    if (!entry.CurveUnit.empty()) out.unit = entry.CurveUnit;
    out.description = HeaderText(entry.DisplayName, true);
  }
  out.unit = HeaderText(out.unit, false);
  if (out.unit.find(' ') != std::string::npos) out.unit.clear();
}

int LasExport(const std::vector<std::string>& args) {
  Options options;
  if (!ParseOptions(args, {"out"}, options)) return kUsage;
  if (options.positional.size() < 2) return kUsage;
  const std::string& file = options.positional[0];
  const std::string& wellID = options.positional[1];
  const std::vector<std::string> names(options.positional.begin() + 2, options.positional.end());
  if (!CheckProjectFile(file)) return kFailed;
  auto factory = MakeFactory(ProjectConnection(file));
  auto logs = Create<ILogData>(*factory, "ILogData");
  WellLog log;
  if (!(names.empty() ? logs->LoadWellLog(wellID.c_str(), log) : logs->LoadCurves(wellID.c_str(), names, log))) {
    if (!EngineError().empty())
      PrintFailure("cannot read the curves of well " + wellID);
    else
      PrintError("no curves of well " + wellID + (names.empty() ? "" : " with those names"));
    return kFailed;
  }
  // One index per file: the depth curve of the first curve asked for (or of
  // the first curve that is not a depth curve).
  const LogCurve* index = nullptr;
  for (const auto& curve : log.Curves) {
    if (!curve.DepthCurve) continue;
    if (!names.empty() ? curve.CurveName == names.front() : curve.DepthCurve != &curve) {
      index = curve.DepthCurve;
      break;
    }
  }
  if (!index)
    for (const auto& curve : log.Curves)
      if (curve.DepthCurve == &curve) index = &curve;
  if (!index) {
    PrintError("the curves of well " + wellID + " have no depth curve");
    return kFailed;
  }
  if (const std::string problem = las::MnemonicProblem(index->CurveName); !problem.empty()) {
    PrintError("the depth curve \"" + index->CurveName + "\" of well " + wellID +
               " cannot be exported: the name " + problem + ", which a LAS mnemonic cannot");
    return kFailed;
  }
  auto dictionary = Create<ICurveDictionary>(*factory, "ICurveDictionary");
  las::File out;
  out.nullValue = log.NullValue;
  out.hasNull = true;
  out.well.push_back({"WELL", "", HeaderText(wellID, false), "WELL"});
  auto add = [&](const LogCurve& curve) {
    las::Curve c{curve.CurveName, "", "", curve.Values};
    Describe(dictionary.get(), curve, c);
    out.curves.push_back(std::move(c));
  };
  add(*index);
  for (const auto& curve : log.Curves) {
    if (&curve == index || curve.DepthCurve == &curve) continue;
    if (curve.DepthCurve != index) {
      std::fprintf(stderr, "skipped %s: indexed by %s, not %s\n", curve.CurveName.c_str(),
                   curve.DepthCurve ? curve.DepthCurve->CurveName.c_str() : "nothing", index->CurveName.c_str());
      continue;
    }
    if (const std::string problem = las::MnemonicProblem(curve.CurveName); !problem.empty()) {
      std::fprintf(stderr, "skipped \"%s\": the name %s, which a LAS mnemonic cannot\n", curve.CurveName.c_str(),
                   problem.c_str());
      continue;
    }
    add(curve);
  }
  // The whole text first: a refused file leaves no file behind.
  std::string error;
  std::ostringstream text;
  if (!las::Write(text, out, error)) {
    PrintError("cannot write the LAS file: " + error);
    return kFailed;
  }
  if (const auto* path = options.Get("out")) {
    std::ofstream stream(*path, std::ios::binary);
    if (!(stream << text.str()) || !stream.flush()) {
      PrintError("cannot write " + *path + ": " + std::strerror(errno));
      return kFailed;
    }
  } else {
    std::cout << text.str() << std::flush;
  }
  return kOk;
}

const CommandRegistration kImport{Command{
    "las import", "<file> <well-id> <las> [--checkshot] [-v]",
    "load a LAS 2.0 file into a well's log curves (--checkshot: depth and TWT in ms as a VSP run; -v: every note "
    "of the reader)",
    &LasImport, 3, 5}};
const CommandRegistration kExport{Command{"las export", "<file> <well-id> [curve...] [--out <las>]",
                                          "write curves of a well as LAS 2.0 (to stdout unless --out)", &LasExport, 2,
                                          -1}};

bool DemoLogs(DemoContext& c) {
  const char* well = "LAS-1";
  auto wells = Create<IBasicWellData>(*c.factory, "IBasicWellData");
  WellRecord head;
  head.WellID = well;
  head.WellName = "LAS-1 (deviated)";
  head.Well_SN = 4420000.0;
  head.Well_EW = 20350000.0;
  head.Kb = 35.0;
  if (!wells || !wells->ReplaceWell(c.project.c_str(), head)) return false;

  // The demo's LAS file is written beside its project, then imported as a user would.
  const std::string path = (fs::path(c.directory) / "demo.las").string();
  if (!(std::ofstream(path, std::ios::binary) << kDemoLas)) {
    PrintError("cannot write " + path + ": " + std::strerror(errno));
    return false;
  }
  WellLog log;
  if (!Import(*c.factory, well, path, log)) return false;
  std::printf("loaded %s: %zu curves, %zu samples, index %s\n", path.c_str(), log.Curves.size(),
              log.Curves.front().Values.size(), log.Curves.front().CurveName.c_str());

  // A survey that builds angle from 1000 m to 40 degrees at azimuth 60; the
  // stored vertical depths and positions are computed from the angles.
  DeviationSurvey survey;
  survey.WellID = well;
  for (int md = 0; md <= 2000; md += 100) {
    survey.Md.push_back(md);
    survey.Inclination.push_back(md <= 1000 ? 0.0 : (md >= 1400 ? 40.0 : (md - 1000) / 10.0));
    survey.Azimuth.push_back(60.0);
  }
  auto converter = GetDepthConverter();
  if (!converter) return false;
  converter->SetWell(WellHead{head.Well_SN, head.Well_EW, head.Kb}, survey);
  for (double md : survey.Md) {
    const DepthPoint p = converter->Convert(md);
    survey.Tvd.push_back(p.TVD);
    survey.Tvdss.push_back(p.TVDSS);
    survey.Xcoor.push_back(p.X);
    survey.Ycoor.push_back(p.Y);
    survey.Xoffset.push_back(p.X - head.Well_EW);
    survey.Yoffset.push_back(p.Y - head.Well_SN);
  }
  auto surveys = Create<IDeviateData>(*c.factory, "IDeviateData");
  if (!surveys->SaveSurvey(survey)) return false;
  std::printf("saved a deviation survey of %zu stations\n", survey.Md.size());

  WellMarkers tops;
  tops.WellID = well;
  for (const auto& [name, top, bottom] :
       {std::tuple{"Nm", 950.0, 1180.0}, std::tuple{"Ng", 1180.0, 1520.0}, std::tuple{"Ed", 1520.0, kNullDepth}}) {
    MarkerRecord m;
    m.MarkerName = name;
    m.TopMD = top;
    m.BottomMD = bottom;
    tops.Markers.push_back(m);
  }
  auto markers = Create<IMarkerData>(*c.factory, "IMarkerData");
  if (!markers->SaveWellMarkers(tops)) return false;
  auto reader = Create<ISourceData>(*c.factory, "ISourceData");
  std::vector<MarkerRecord> saved;
  if (!reader->LoadWellMarkers("地质分层", well, saved)) return false;
  std::printf("%-6s %9s %9s %9s %12s %12s\n", "marker", "MD", "TVD", "TVDSS", "X", "Y");
  for (const auto& m : saved)
    std::printf("%-6s %9.2f %9.2f %9.2f %12.2f %12.2f\n", m.MarkerName.c_str(), m.TopMD, m.TopTVD, m.TopTVDSS, m.XCoor,
                m.YCoor);
  return true;
}

const DemoRegistration kDemo{DemoStep{30, "well logs, a deviation survey and markers", &DemoLogs}};

}  // namespace
}  // namespace petrodb::cli
