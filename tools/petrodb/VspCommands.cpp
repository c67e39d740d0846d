// petrodb vsp import: a checkshot from CSV as a VSP run of a well.
#include <cmath>
#include <cstdio>

#include "Checkshot.h"
#include "Command.h"
#include "dbaccess/SqlText.h"
#include "formats/Csv.h"
#include "petrodb/project/IBasicWellData.h"
#include "petrodb/seismic/ISeismicVSPData.h"
#include "petrodb/welllog/DepthConverter.h"
#include "petrodb/welllog/IDeviateData.h"

namespace petrodb::cli {

bool SaveCheckshot(IDataFactory& factory, const std::string& file, const std::string& wellID, const Checkshot& shot) {
  auto wells = Create<IBasicWellData>(factory, "IBasicWellData");
  WellRecord head;
  if (!wells || !wells->LoadWell(wellID.c_str(), head)) {
    PrintError("no well \"" + wellID + "\" in " + file + " (see petrodb wells list)");
    return false;
  }
  if (shot.depths.empty() || shot.depths.size() != shot.times.size()) {
    PrintError("the checkshot has no sample");
    return false;
  }
  for (std::size_t i = 0; i < shot.depths.size(); ++i)
    if (!std::isfinite(shot.depths[i]) || !std::isfinite(shot.times[i])) {
      PrintError("sample " + std::to_string(i + 1) + " of the checkshot is not a finite number");
      return false;
    }
  WellVspRecord run;
  run.WellID = wellID;
  run.TWTDepth = shot.times;
  if (shot.measuredDepth) {
    auto converter = GetDepthConverter();
    if (!converter) {
      PrintError("measured depths need the depth converter, which is not available");
      return false;
    }
    DeviationSurvey survey;
    auto surveys = Create<IDeviateData>(factory, "IDeviateData");
    if (surveys) surveys->LoadSurvey(wellID.c_str(), survey);  // none: a vertical well
    converter->SetWell(WellHead{head.Well_SN, head.Well_EW, head.Kb}, survey);
    for (double md : shot.depths) run.TVDSSDepth.push_back(converter->Convert(md).TVDSS);
  } else {
    run.TVDSSDepth = shot.depths;
  }
  auto vsp = Create<ISeismicVSPData>(factory, "ISeismicVSPData");
  if (!vsp || !vsp->SaveVsp(run)) {
    PrintFailure("cannot save the VSP run of well " + wellID);
    return false;
  }
  std::printf("saved VSP run %s of well %s: %zu samples, TVDSS %g to %g, TWT %g to %g ms%s\n", run.VSPID.c_str(),
              wellID.c_str(), run.TVDSSDepth.size(), run.TVDSSDepth.front(), run.TVDSSDepth.back(),
              run.TWTDepth.front(), run.TWTDepth.back(), shot.measuredDepth ? " (from measured depth)" : "");
  return true;
}

namespace {

// The header names one depth column (MD or TVDSS) and the time column TWT,
// case ignored; every cell is a number.
bool ReadCsv(const std::string& path, Checkshot& shot) {
  csv::Table table;
  std::string error;
  if (!csv::ReadFile(path, table, error)) {
    PrintError(error);
    return false;
  }
  int depth = -1, time = -1;
  for (std::size_t j = 0; j < table.header.size(); ++j) {
    const std::string name = sql::AsciiLower(table.header[j]);
    const bool isDepth = name == "md" || name == "tvdss";
    if ((isDepth && depth >= 0) || (name == "twt" && time >= 0) || (!isDepth && name != "twt")) {
      PrintError(csv::Where(path, 1, std::to_string(j + 1)) + "\"" + table.header[j] +
                 "\" is not expected: the header names one depth column (MD or TVDSS) and TWT (ms)");
      return false;
    }
    if (isDepth) {
      depth = static_cast<int>(j);
      shot.measuredDepth = name == "md";
    } else {
      time = static_cast<int>(j);
    }
  }
  if (depth < 0 || time < 0) {
    PrintError(path + ": the header must name a depth column (MD or TVDSS) and TWT (ms)");
    return false;
  }
  for (std::size_t i = 0; i < table.rows.size(); ++i) {
    const csv::Row& row = table.rows[i];
    double values[2] = {0, 0};
    const int columns[2] = {depth, time};
    for (int k = 0; k < 2; ++k) {
      const auto c = static_cast<std::size_t>(columns[k]);
      if (c >= row.size() || !sql::ParseWholeNumber(row[c], values[k]) || !std::isfinite(values[k])) {
        PrintError(csv::Where(path, table.lines[i], table.header[c]) + "\"" + (c < row.size() ? row[c] : "") +
                   "\" is not a number");
        return false;
      }
    }
    shot.depths.push_back(values[0]);
    shot.times.push_back(values[1]);
  }
  return true;
}

int VspImport(const std::vector<std::string>& args) {
  const std::string &file = args.at(0), &wellID = args.at(1), &path = args.at(2);
  if (!CheckProjectFile(file, Access::Write)) return kFailed;
  Checkshot shot;
  if (!ReadCsv(path, shot)) return kFailed;
  auto factory = MakeFactory(ProjectConnection(file));
  return SaveCheckshot(*factory, file, wellID, shot) ? kOk : kFailed;
}

const CommandRegistration kImport{Command{
    "vsp import", "<file> <well-id> <csv>",
    "load a checkshot (MD or TVDSS, TWT in ms) as a VSP run of a well", &VspImport, 3, 3}};

}  // namespace
}  // namespace petrodb::cli
