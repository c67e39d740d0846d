#include <functional>
#include <map>
#include <set>

#include "dbaccess/DataObject.h"
#include "petrodb/welllog/ILogData.h"
#include "welllog/WellLogCommon.h"

using namespace petrodb;
using welllog::kEmptyProject;
using welllog::kEmptyWell;

// ---- WellLog: links stay inside the record's own list ----

WellLog::WellLog(const WellLog& other) : WellID(other.WellID), NullValue(other.NullValue), Curves(other.Curves) {
  for (std::size_t i = 0; i < Curves.size(); ++i) {
    // A link that does not point into the source's list has no place in the copy.
    const LogCurve* target = other.Curves[i].DepthCurve;
    const std::less<const LogCurve*> before;
    const bool inside = target && !before(target, other.Curves.data()) &&
                        before(target, other.Curves.data() + other.Curves.size());
    Curves[i].DepthCurve = inside ? &Curves[target - other.Curves.data()] : nullptr;
  }
}

WellLog& WellLog::operator=(const WellLog& other) {
  if (this != &other) {
    WellLog copy(other);
    *this = std::move(copy);
  }
  return *this;
}

LogCurve* WellLog::Find(const std::string& name) {
  for (auto& curve : Curves)
    if (curve.CurveName == name) return &curve;
  return nullptr;
}

void WellLog::Link(const std::vector<std::string>& depthNames) {
  std::map<std::string, std::size_t> position;
  for (std::size_t i = 0; i < Curves.size(); ++i) position.emplace(Curves[i].CurveName, i);
  for (std::size_t i = 0; i < Curves.size() && i < depthNames.size(); ++i) {
    const auto found = position.find(depthNames[i]);
    Curves[i].DepthCurve = found == position.end() ? nullptr : &Curves[found->second];
  }
}

// ---- the data class ----

namespace {

constexpr Pattern<"select distinct CurveName from w_log_data where not DepthCurveName = CurveName order by CurveName">
    kAllCurveNames;
constexpr Pattern<"select w_well_data.wellid from w_well_data where w_well_data.ProjectName = '%s' and exists( "
                  "select w_log_data.wellid from w_log_data where w_well_data.wellid = w_log_data.wellid )  order "
                  "by w_well_data.wellid ">
    kLoggedWells;
constexpr Pattern<"select CurveName from w_log_data where WellID='%s'and Measure in ( %s )order by CurveName">
    kNamesByMeasure;
constexpr Pattern<"select CurveName, DepthCurveName from w_log_data where WellID='%s'order by CurveName">
    kCurveAndDepthNames;
constexpr Pattern<"select distinct DepthCurveName from w_log_data where WellID='%s'"> kDepthNames;
constexpr Pattern<"select NullValue, CurveValue, CurveName from w_log_data where WellID='%s' and CurveName = "
                  "DepthCurveName ">
    kDepthCurves;
constexpr Pattern<"delete from w_log_data where wellid = '%s' and depthcurvename not in( select distinct "
                  "depthcurvename from w_log_data b where depthcurvename <> curvename and wellid = '%s' )">
    kPurgeOrphans;
constexpr Pattern<"select * from w_log_data where CurveName='%s' and WellID in (%s)"> kCurveOfWells;
constexpr Pattern<"select * from w_log_data where %s"> kRowsWhere;
constexpr Pattern<"(WellID='%s' and CurveName='%s')"> kWellCurveTerm;
constexpr Pattern<"select * from w_log_data where WellID='%s' and CurveName='%s'"> kCurve;
constexpr Pattern<"select * from w_log_data where WellID='%s' and CurveName in ( %s )"> kCurvesIn;
constexpr Pattern<"select * from w_log_data where WellID='%s'"> kWellCurves;
constexpr Pattern<"select WellID from w_well_data where ProjectName='%s'"> kProjectWells;
constexpr Pattern<"select * from w_log_data where CurveName='%s' or CurveName in (select distinct DepthCurveName "
                  "from w_log_data where CurveName='%s')">
    kCurveOfAllWells;
constexpr Pattern<"select CurveName from w_log_data where WellID='%s' and CurveName in ( %s )"> kStoredNames;
constexpr Pattern<"select DepthCurveName from w_log_data where WellID='%s' and CurveName='%s'"> kDepthNameOf;
constexpr Pattern<"delete from  w_log_data where WellID='%s' and CurveName='%s'"> kDeleteCurve;
constexpr Pattern<"select CurveName from w_log_data where WellID='%s' and DepthCurveName='%s' and CurveName<>'%s'">
    kOtherUsers;
constexpr Pattern<"delete from  w_log_data where CurveName in ( %s ) AND WellID='%s'"> kDeleteCurves;
constexpr Pattern<"delete from  w_log_data where WellID='%s'"> kDeleteWell;
constexpr Pattern<"delete from  w_log_data where WellID in (%s)"> kDeleteWells;
constexpr Pattern<"delete from w_log_data where exists( select * from w_well_data where w_well_data.wellid = "
                  "w_log_data.wellid and  w_well_data.ProjectName = '%s' )">
    kDeleteProject;
constexpr Pattern<"select CurveName from w_log_data where WellID='%s' and CurveName='%s'"> kCurveExists;
constexpr Pattern<"select CurveName from w_log_data where WellID='%s' and CurveName in(%s)"> kCheckBatch;

constexpr const char* kTable = "w_log_data";
constexpr bool kArrays = true;
constexpr std::size_t kCheckBatchSize = 20;

// One row of w_log_data: a curve with its well, the record's null value and
// the name of its depth curve.
struct CurveRow {
  std::string WellID;
  double NullValue = 0.0;
  std::string CurveName;
  std::string Measure;
  std::string DepthCurveName;
  std::vector<double> Values;
};

// Declared in the order of the insert. A row is read until the first field
// that cannot be read, which ends the rows; only the samples may be NULL (a
// curve saved without samples loads with none).
const ColumnTable<CurveRow> kCurveColumns{kTable, {
    Col("WellID", &CurveRow::WellID),
    Col("NullValue", &CurveRow::NullValue),
    Col("CurveName", &CurveRow::CurveName),
    Col("Measure", &CurveRow::Measure),
    Col("DepthCurveName", &CurveRow::DepthCurveName),
    Col("CurveValue", &CurveRow::Values).Optional(),
}};

const ReplaceSteps kSaveAfterDelete{kTable, Probe::AfterDelete};

std::string Text(const char* s) { return s ? s : ""; }

// Names of the curves whose sample count differs from their depth curve's.
// The list is not built: saves and loads go on whatever the counts are, so
// the message that would name them is never shown.
std::string MismatchedCurves(const WellLog&) { return {}; }

bool ReportMismatch(const WellLog& log) {
  const std::string list = MismatchedCurves(log);
  if (list.empty()) return false;
  AfxMessageBox("井" + log.WellID + "的下列测井曲线的曲线值与深度值个数不同，请修改后再保存：\n" + list);
  return true;
}

std::vector<std::string> CurveNames(const WellLog& log) {
  std::vector<std::string> names;
  for (const auto& curve : log.Curves) names.push_back(curve.CurveName);
  return names;
}

LogCurve ToCurve(CurveRow&& row) {
  return {std::move(row.CurveName), std::move(row.Measure), nullptr, std::move(row.Values)};
}

// Appends the rows' curves to the log, each row's null value overwriting the
// log's, and links every curve of the log to its depth curve by name.
void Collect(WellLog& log, std::vector<CurveRow>& rows) {
  std::vector<std::string> depthNames;
  for (const auto& c : log.Curves) depthNames.push_back(c.DepthCurve ? c.DepthCurve->CurveName : std::string());
  for (auto& row : rows) {
    log.NullValue = row.NullValue;
    depthNames.push_back(row.DepthCurveName);
    log.Curves.push_back(ToCurve(std::move(row)));
  }
  log.Link(depthNames);
}

void Start(WellLog& log, const char* wellID) {
  log.WellID = Text(wellID);
  log.Curves.clear();
}

void WriteCurves(CDbManage& db, const WellLog& log) {
  for (const auto& c : log.Curves)
    kCurveColumns.AddRow(db, CurveRow{log.WellID, log.NullValue, c.CurveName, c.Measure,
                                      c.DepthCurve ? c.DepthCurve->CurveName : std::string(), c.Values});
}

// The terms of a statement are joined by `separator`; a refused term refuses the whole.
sql::Fragment Joined(const std::vector<Statement>& terms, std::string_view separator) {
  sql::Fragment joined;
  for (std::size_t i = 0; i < terms.size(); ++i) {
    if (i) joined.text += separator;
    joined.text += terms[i].text();
    joined.poisoned = joined.poisoned || terms[i].refused();
  }
  return joined;
}

}  // namespace

class CLogData final : public CDataObject<ILogData> {
 public:
  bool GetAllCurveNames(std::vector<std::string>& names) override {
    names.clear();
    names.reserve(100);
    return ListColumn(kAllCurveNames(), "CurveName", names, Fill::Append).found();
  }

  // The name lists below append to what the caller's vectors hold.

  bool GetLoggedWellIDs(const char* projectName, std::vector<std::string>& wellIDs) override {
    return ListColumn(kLoggedWells(projectName), "WellID", wellIDs, Fill::Append).found();
  }

  bool GetCurveNamesByMeasure(const char* wellID, const std::vector<std::string>& measures,
                              std::vector<std::string>& curveNames) override {
    return ListColumn(kNamesByMeasure(wellID, sql::QuoteEach(measures)), "CurveName", curveNames, Fill::Append)
        .found();
  }

  bool GetCurveAndDepthNames(const char* wellID, std::vector<std::string>& curveNames,
                             std::vector<std::string>& depthCurveNames) override {
    std::vector<std::pair<std::string, std::string>> pairs;
    const Loaded loaded = LoadRows(kCurveAndDepthNames(wellID), pairs, Fill::Clear, [](CDbManage& row, auto& pair) {
      return row.GetFieldValue("CurveName", pair.first) && row.GetFieldValue("DepthCurveName", pair.second);
    });
    for (auto& [name, depth] : pairs) {
      curveNames.push_back(std::move(name));
      depthCurveNames.push_back(std::move(depth));
    }
    return loaded.found();
  }

  bool GetDepthCurveNames(const char* wellID, std::vector<std::string>& depthCurveNames) override {
    return ListColumn(kDepthNames(wellID), "DepthCurveName", depthCurveNames, Fill::Append).found();
  }

  // Reads NullValue, CurveValue and CurveName of each depth curve; each points to itself.
  bool LoadDepthCurves(const char* wellID, WellLog& log) override {
    PurgeOrphanDepthCurves(wellID);
    Start(log, wellID);
    const Loaded loaded = LoadRows(
        kDepthCurves(wellID), log.Curves, Fill::Append,
        [&](CDbManage& row, LogCurve& curve) {
          if (!row.GetFieldValue("NullValue", log.NullValue)) return false;
          columns::ReadValue(row, "CurveValue", curve.Values);  // NULL: a curve without samples
          return row.GetFieldValue("CurveName", curve.CurveName);
        },
        kArrays);
    for (auto& curve : log.Curves) curve.DepthCurve = &curve;
    return loaded.found();
  }

  // One statement for the curve in all wells, one for the depth curves of all
  // wells found; each well's depth curve goes first.
  bool LoadCurveOfWells(const std::vector<std::string>& wellIDs, const char* curveName,
                        std::vector<WellLog>& logs) override {
    std::vector<CurveRow> curves;
    if (!LoadAll(kCurveOfWells(curveName, sql::QuoteEach(wellIDs)), kCurveColumns, curves, Fill::Clear, kArrays)
             .found())
      return false;
    std::vector<Statement> terms;
    for (const auto& c : curves) terms.push_back(kWellCurveTerm(c.WellID, c.DepthCurveName));
    std::vector<CurveRow> depths;
    LoadAll(kRowsWhere(Joined(terms, " or ")), kCurveColumns, depths, Fill::Clear, kArrays);

    std::map<std::string, std::size_t> wellAt;
    for (std::size_t i = 0; i < curves.size(); ++i) wellAt.emplace(curves[i].WellID, i);
    // Each well's rows: its depth curve when found, then the curve.
    std::vector<std::vector<CurveRow>> rows(curves.size());
    for (auto& depth : depths) {
      const auto at = wellAt.find(depth.WellID);
      if (at == wellAt.end() || !rows[at->second].empty()) continue;
      const CurveRow& curve = curves[at->second];
      if (depth.CurveName == curve.DepthCurveName && depth.CurveName != curve.CurveName)
        rows[at->second].push_back(std::move(depth));
    }
    for (std::size_t i = 0; i < curves.size(); ++i) {
      WellLog log;
      log.WellID = curves[i].WellID;
      rows[i].push_back(std::move(curves[i]));
      Collect(log, rows[i]);
      logs.push_back(std::move(log));
    }
    return true;
  }

  bool LoadCurve(const char* wellID, const char* curveName, WellLog& log) override {
    Start(log, wellID);
    CurveRow curve, depth;
    if (!LoadOne(kCurve(wellID, curveName), kCurveColumns, curve, kArrays)) return false;
    if (!LoadOne(kCurve(wellID, curve.DepthCurveName), kCurveColumns, depth, kArrays)) return false;
    const bool mismatch = curve.Values.size() != depth.Values.size();
    log.NullValue = depth.NullValue;
    log.Curves.push_back(ToCurve(std::move(depth)));
    log.Curves.push_back(ToCurve(std::move(curve)));
    for (auto& c : log.Curves) c.DepthCurve = &log.Curves.front();
    if (mismatch) AfxMessageBox("测井曲线" + Text(curveName) + "的曲线数据个数与深度数据个数不同，请检查或重新加载。");
    return true;
  }

  // The named curves, then in a second statement the depth curves they use
  // that are not among them.
  bool LoadCurves(const char* wellID, const std::vector<std::string>& curveNames, WellLog& log) override {
    Start(log, wellID);
    std::vector<CurveRow> rows;
    const Loaded named =
        LoadAll(kCurvesIn(wellID, sql::QuoteEach(curveNames)), kCurveColumns, rows, Fill::Clear, kArrays);
    if (named.found()) {
      std::set<std::string> loaded, depthNames;
      for (const auto& row : rows) loaded.insert(row.CurveName);
      for (const auto& row : rows)
        if (!loaded.count(row.DepthCurveName)) depthNames.insert(row.DepthCurveName);
      if (!depthNames.empty()) {
        const std::vector<std::string> list(depthNames.begin(), depthNames.end());
        LoadAll(kCurvesIn(wellID, sql::QuoteEach(list)), kCurveColumns, rows, Fill::Append, kArrays);
      }
    }
    Collect(log, rows);
    if (!named.found()) return false;
    ReportMismatch(log);
    return true;
  }

  bool LoadWellLog(const char* wellID, WellLog& log) override {
    PurgeOrphanDepthCurves(wellID);
    Start(log, wellID);
    std::vector<CurveRow> rows;
    const Loaded loaded = LoadAll(kWellCurves(wellID), kCurveColumns, rows, Fill::Clear, kArrays);
    Collect(log, rows);
    if (!loaded.found()) return false;
    ReportMismatch(log);
    return true;
  }

  // One entry per well of the project that has curves, appended.
  bool LoadProjectLogs(const char* projectName, std::vector<WellLog>& logs) override {
    std::vector<std::string> wells;
    if (!ListColumn(kProjectWells(projectName), "WellID", wells, Fill::Clear).found()) return false;
    bool any = false;
    for (const auto& well : wells) {
      WellLog log;
      if (!LoadWellLog(well.c_str(), log)) continue;
      logs.push_back(std::move(log));
      any = true;
    }
    return any;
  }

  // The rows are grouped by well. The depth-name subquery spans all wells, so a
  // well may bring only a depth curve that another well's curve uses: such a
  // well does not have the curve and is left out.
  bool LoadCurveOfAllWells(const char* curveName, std::vector<WellLog>& logs) override {
    std::vector<CurveRow> rows;
    const Loaded loaded =
        LoadAll(kCurveOfAllWells(curveName, curveName), kCurveColumns, rows, Fill::Clear, kArrays);
    std::map<std::string, std::size_t> wellAt;
    std::vector<std::vector<CurveRow>> byWell;
    for (auto& row : rows) {
      const auto [at, added] = wellAt.emplace(row.WellID, byWell.size());
      if (added) byWell.emplace_back();
      byWell[at->second].push_back(std::move(row));
    }
    for (auto& wellRows : byWell) {
      WellLog log;
      log.WellID = wellRows.front().WellID;
      Collect(log, wellRows);
      if (log.Find(Text(curveName))) logs.push_back(std::move(log));
    }
    return loaded.found();
  }

  bool GetStoredCurveNames(const WellLog& log, std::vector<std::string>& storedNames) override {
    if (!TableAnswers(kTable)) return false;
    return ListColumn(kStoredNames(log.WellID, sql::QuoteEach(CurveNames(log))), "CurveName", storedNames,
                      Fill::Append)
        .found();
  }

  // The record's curves go through DeleteCurves first; its failure ends the save.
  bool SaveWellLog(const WellLog& log) override {
    if (!KeyGiven(log.WellID, kEmptyWell)) return false;
    if (log.Curves.empty()) return false;
    if (ReportMismatch(log)) return false;
    return ReplaceAfter(
        kSaveAfterDelete, [&](CDbManage&) { return DeleteCurves(log.WellID.c_str(), CurveNames(log)); },
        [&](CDbManage& db) { WriteCurves(db, log); });
  }

  bool SaveWellLogs(int, const std::vector<WellLog>& logs) override {
    if (logs.empty()) return false;
    std::vector<std::string> wells;
    for (const auto& log : logs) {
      if (ReportMismatch(log)) return false;
      wells.push_back(log.WellID);
    }
    if (!DeleteWellLogs(wells)) return false;
    // No SaveData here: the rows are written as the session closes.
    CDbManage db(connectionString.c_str());
    if (TableMissing(db, kTable)) return false;
    db.BeginSaveData(kTable);
    for (const auto& log : logs) WriteCurves(db, log);
    return true;
  }

  // The depth curve goes too when no other curve uses it; then the well's
  // orphans are purged. Answers the curve's delete.
  bool DeleteCurve(const char* wellID, const char* curveName) override {
    if (!KeyGiven(wellID, kEmptyWell)) return false;
    // One session for the probe, the lookups and the deletes, in this order.
    CDbManage db(connectionString.c_str());
    if (TableMissing(db, kTable)) return false;
    std::string depth;
    const bool hasDepth = db.GetDataFromDB(kDepthNameOf(wellID, curveName).c_str()) == kRowsFound &&
                          db.GetFieldValue("DepthCurveName", depth);
    const bool deleted = db.ExecuteSQL(kDeleteCurve(wellID, curveName).c_str());
    if (hasDepth && db.GetDataFromDB(kOtherUsers(wellID, depth, depth).c_str()) == kNoRows)
      db.ExecuteSQL(kDeleteCurve(wellID, depth).c_str());
    PurgeOrphanDepthCurves(wellID);
    return deleted;
  }

  bool DeleteCurves(const char* wellID, const std::vector<std::string>& curveNames) override {
    return KeyGiven(wellID, kEmptyWell) && ExecuteOnTable(kTable, kDeleteCurves(sql::QuoteEach(curveNames), wellID));
  }

  bool DeleteWellLog(const char* wellID) override {
    return KeyGiven(wellID, kEmptyWell) && ExecuteOnTable(kTable, kDeleteWell(wellID));
  }

  bool DeleteWellLogs(const std::vector<std::string>& wellIDs) override {
    return ExecuteOnTable(kTable, kDeleteWells(sql::QuoteEach(wellIDs)));
  }

  bool DeleteProjectLogs(const char* projectName) override {
    return KeyGiven(projectName, kEmptyProject) && ExecuteOnTable(kTable, kDeleteProject(projectName));
  }

  bool IsCurveExist(const char* wellID, const char* curveName) override {
    return Exists(kCurveExists(wellID, curveName));
  }

  // Batches of 20 names; each name found marks the first equal entry. False
  // when a batch could not run (the others are still sent).
  bool CheckCurvesExist(const char* wellID, const std::vector<std::string>& curveNames,
                        std::vector<int>& flags) override {
    flags.assign(curveNames.size(), 0);
    bool ok = true;
    for (const auto batch : sql::Batches(curveNames, kCheckBatchSize)) {
      std::vector<std::string> found;
      ok = ListColumn(kCheckBatch(wellID, sql::QuoteEach(batch)), "CurveName", found, Fill::Clear).result != kFailed &&
           ok;
      for (const auto& name : found) {
        const auto at = std::find(curveNames.begin(), curveNames.end(), name);
        if (at != curveNames.end()) flags[at - curveNames.begin()] = 1;
      }
    }
    return ok;
  }
  PETRODB_DATA_CLASS

 private:
  // Removes the well's depth curves that no other curve names, when the well is
  // given and the table answers its probe.
  void PurgeOrphanDepthCurves(const char* wellID) const {
    if (wellID && *wellID) ExecuteOnTable(kTable, kPurgeOrphans(wellID, wellID));
  }
};

PETRODB_REGISTER_CLASS(CLogData, ILogData)
