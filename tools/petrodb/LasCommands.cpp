// petrodb las import / las export, and the demo's logs, survey and markers.
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>
#include <cstring>

#include "Checkshot.h"
#include "Command.h"
#include "Progress.h"
#include "dbaccess/SqlText.h"
#include "formats/Las.h"
#include "formats/LasImport.h"
#include "petrodb/Host.h"
#include "petrodb/project/IBasicWellData.h"
#include "petrodb/welllog/DepthConverter.h"
#include "petrodb/welllog/ICurveDictionary.h"
#include "petrodb/welllog/IDeviateData.h"
#include "petrodb/welllog/ILogData.h"
#include "petrodb/welllog/IMarkerData.h"
#include "petrodb/welllog/ISourceData.h"
#include "welllog/LasFileStore.h"

namespace petrodb::cli {

extern const char* const kDemoLas;  // data/demo.las, carried by the program

namespace {

namespace fs = std::filesystem;

// Notes that change no value (an older version read as 2.0, a note of the
// encoding) are shown only when asked for; the others say what was done to the data.
bool QuietNote(const std::string& note) {
  return note.rfind("version ", 0) == 0 || note.rfind("read as UTF-16", 0) == 0;
}

// Reads the file and stores it into the well as the well's other curves allow
// (see formats/LasImport.h), with its header kept for the export. `curves` and
// `samples` say what was imported, `index` under which depth curve.
bool Import(IDataFactory& factory, const std::string& wellID, const std::string& path, std::size_t& curves,
            std::size_t& samples, std::string& index, bool verbose = false) {
  las::File file;
  std::string error;
  std::unique_ptr<ProgressBar> reading;
  auto progress = [&](std::uint64_t done, std::uint64_t total) {
    if (!reading) reading = std::make_unique<ProgressBar>("las import", total, "lines");
    reading->Set(done);
  };
  const bool read = las::ReadFile(path, file, error, progress);
  reading.reset();
  if (!read) {
    PrintError(path + ": " + error);
    return false;
  }
  for (const auto& warning : file.warnings)
    if (verbose || !QuietNote(warning)) std::fprintf(stderr, "%s: %s\n", path.c_str(), warning.c_str());
  if (file.curves.front().values.empty()) {
    PrintError(path + ": no samples (the data section holds no depth step); nothing imported");
    return false;
  }
  auto logs = Create<ILogData>(factory, "ILogData");
  std::vector<std::string> names, depthNames;
  std::vector<las::StoredCurve> stored;
  if (!logs || !logs->GetCurveAndDepthNames(wellID.c_str(), names, depthNames)) {
    if (!logs || !EngineError().empty()) {
      PrintFailure("cannot read the curves of well " + wellID);
      return false;
    }
  }
  for (std::size_t i = 0; i < names.size() && i < depthNames.size(); ++i) stored.push_back({names[i], depthNames[i]});
  const auto& depths = file.curves.front().values;
  auto sameDepths = [&](const std::string& name) {
    WellLog held;
    const LogCurve* curve = logs->LoadCurves(wellID.c_str(), {name}, held) ? held.Find(name) : nullptr;
    return curve && curve->Values.size() == depths.size() &&
           std::memcmp(curve->Values.data(), depths.data(), depths.size() * sizeof(double)) == 0;
  };
  double storedNull = 0;
  bool hasStoredNull = false;
  if (!stored.empty()) {
    WellLog held;
    hasStoredNull = logs->LoadCurves(wellID.c_str(), {stored.front().depthName}, held);
    storedNull = held.NullValue;
  }
  las::ImportPlan plan = las::PlanImport(file, wellID, stored, sameDepths, hasStoredNull ? &storedNull : nullptr);
  for (const auto& note : plan.notes) std::fprintf(stderr, "%s: %s\n", path.c_str(), note.c_str());
  index = plan.log.Curves.front().CurveName;
  auto store = MakeLasFileStore(factory.GetConnectionString());
  std::vector<LasItemRecord> kept;
  if (plan.sharedIndex) store->LoadItems(wellID.c_str(), index.c_str(), kept);
  if (!store->HasTable())
    std::fprintf(stderr, "%s: the project has no table w_las_item (it predates it); the file's header is not kept "
                 "for export\n", path.c_str());
  if (!store->SaveImport(plan.log, index, las::HeaderRows(file, plan, kept))) {
    PrintFailure("cannot save the curves of well " + wellID);
    return false;
  }
  curves = file.curves.size();
  samples = depths.size();
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
  std::size_t curves = 0, samples = 0;
  std::string index;
  if (!Import(*factory, args.at(1), args.at(2), curves, samples, index, verbose)) return kFailed;
  std::printf("imported %zu curves of %zu samples into well %s (index %s)\n", curves, samples, args.at(1).c_str(),
              index.c_str());
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
// (by name or alias), else what the imported file said (`kept`), else the
// stored measure. A unit a LAS header cannot carry (one with a blank) is left out.
void Describe(ICurveDictionary* dictionary, const LogCurve& curve, const LasItemRecord* kept, las::Curve& out) {
  out.unit = kept ? kept->Unit : curve.Measure;
  out.description = kept ? kept->Description : "";
  CurveTemplate entry;
  if (dictionary && dictionary->LoadTemplateByAlias(curve.CurveName.c_str(), entry)) {
    if (!entry.CurveUnit.empty()) out.unit = entry.CurveUnit;
    if (!entry.DisplayName.empty()) out.description = HeaderText(entry.DisplayName, true);
  }
  out.unit = HeaderText(out.unit, false);
  if (out.unit.find(' ') != std::string::npos) out.unit.clear();
  out.description = HeaderText(out.description, true);
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
  if (!names.empty()) {
    // A curve asked for that the well lacks is said, not left out of the file.
    std::vector<std::string> curves, depths;
    logs->GetCurveAndDepthNames(wellID.c_str(), curves, depths);
    if (!HasCurves(wellID, names, curves)) return kFailed;
  }
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
    if (!names.empty() ? sql::EqualsIgnoreCase(curve.CurveName, names.front()) : curve.DepthCurve != &curve) {
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
  // What the imported file said under this index: its curve order, units,
  // descriptions and items.
  std::vector<LasItemRecord> kept;
  MakeLasFileStore(factory->GetConnectionString())->LoadItems(wellID.c_str(), index->CurveName.c_str(), kept);
  auto keptCurve = [&](const std::string& name, const char* section) -> const LasItemRecord* {
    for (const auto& k : kept)
      if (k.ItemSection == section && sql::EqualsIgnoreCase(k.Mnemonic, name)) return &k;
    return nullptr;
  };
  auto dictionary = Create<ICurveDictionary>(*factory, "ICurveDictionary");
  las::File out;
  out.nullValue = log.NullValue;
  out.hasNull = true;
  bool hasWell = false;
  for (const char* section : {"W", "P"})
    for (const auto& k : kept) {
      if (k.ItemSection != section) continue;
      const las::Item item{k.Mnemonic, k.Unit, k.ItemValue, k.Description};
      if (const std::string problem = las::ItemProblem(item); !problem.empty()) {
        std::fprintf(stderr, "skipped the %s %s\n", *section == 'W' ? "well" : "parameter", problem.c_str());
        continue;
      }
      hasWell = hasWell || (*section == 'W' && sql::EqualsIgnoreCase(k.Mnemonic, "WELL"));
      (*section == 'W' ? out.well : out.parameters).push_back(item);
    }
  if (!hasWell) out.well.insert(out.well.begin(), {"WELL", "", HeaderText(wellID, false), "WELL"});
  std::size_t replaced = 0;
  auto add = [&](const LogCurve& curve) {
    las::Curve c{curve.CurveName, "", "", curve.Values};
    Describe(dictionary.get(), curve, keptCurve(curve.CurveName, "C"), c);
    if (&curve != index)
      for (double& v : c.values)
        if (!std::isfinite(v) && !(std::isnan(v) && std::isnan(out.nullValue)) && v != out.nullValue) {
          v = out.nullValue;
          ++replaced;
        }
    out.curves.push_back(std::move(c));
  };
  add(*index);
  // The curves in the imported file's order, then the others in name order.
  std::vector<const LogCurve*> order;
  for (const auto& k : kept)
    if (k.ItemSection == "C")
      for (const auto& curve : log.Curves)
        if (&curve != index && sql::EqualsIgnoreCase(curve.CurveName, k.Mnemonic)) order.push_back(&curve);
  for (const auto& curve : log.Curves)
    if (!keptCurve(curve.CurveName, "C") && !keptCurve(curve.CurveName, "I")) order.push_back(&curve);
  for (const LogCurve* p : order) {
    const LogCurve& curve = *p;
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
  if (replaced)
    std::fprintf(stderr, "%zu infinite or NaN samples written as NULL (%s)\n", replaced,
                 las::FormatNumber(out.nullValue).c_str());
  // The whole text first: a refused file leaves no file behind.
  std::string error;
  std::ostringstream text;
  std::unique_ptr<ProgressBar> writing;
  auto progress = [&](std::uint64_t done, std::uint64_t total) {
    if (!writing) writing = std::make_unique<ProgressBar>("las export", total, "depth steps");
    writing->Set(done);
  };
  const bool written = las::Write(text, out, error, progress);
  writing.reset();
  if (!written) {
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
  head.Well_SN = 4312500.0;  // inside the demo project's extent
  head.Well_EW = 20508000.0;
  head.Kb = 35.0;
  if (!wells || !wells->ReplaceWell(c.project.c_str(), head)) return false;

  // The demo's LAS file is written beside its project, then imported as a user would.
  const std::string path = (fs::path(c.directory) / "demo.las").string();
  if (!(std::ofstream(path, std::ios::binary) << kDemoLas)) {
    PrintError("cannot write " + path + ": " + std::strerror(errno));
    return false;
  }
  std::size_t curves = 0, samples = 0;
  std::string index;
  if (!Import(*c.factory, well, path, curves, samples, index)) return false;
  std::printf("loaded %s: %zu curves, %zu samples, index %s\n", path.c_str(), curves, samples, index.c_str());

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
