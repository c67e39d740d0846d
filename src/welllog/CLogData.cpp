#include <functional>
#include <map>
#include <set>

#include "dbaccess/DataObject.h"
#include "dbaccess/RecordLists.h"
#include "dbaccess/TableStatements.h"
#include "petrodb/welllog/ILogData.h"

using petrodb::AfxMessageBox;
using petrodb::FieldReader;
using petrodb::FieldWriter;
using petrodb::ForEachRow;
using petrodb::sql::Format;
using petrodb::sql::Fragment;
using petrodb::sql::QuoteEach;

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

class CLogData final : public petrodb::CDataObject<ILogData> {
 public:
  bool GetAllCurveNames(std::vector<std::string>& names) override;
  bool GetLoggedWellIDs(const char* projectName, std::vector<std::string>& wellIDs) override;
  bool GetCurveNamesByMeasure(const char* wellID, const std::vector<std::string>& measures,
                              std::vector<std::string>& curveNames) override;
  bool GetCurveAndDepthNames(const char* wellID, std::vector<std::string>& curveNames,
                             std::vector<std::string>& depthCurveNames) override;
  bool GetDepthCurveNames(const char* wellID, std::vector<std::string>& depthCurveNames) override;
  bool LoadDepthCurves(const char* wellID, WellLog& log) override;
  bool LoadCurveOfWells(const std::vector<std::string>& wellIDs, const char* curveName,
                        std::vector<WellLog>& logs) override;
  bool LoadCurve(const char* wellID, const char* curveName, WellLog& log) override;
  bool LoadCurves(const char* wellID, const std::vector<std::string>& curveNames, WellLog& log) override;
  bool LoadWellLog(const char* wellID, WellLog& log) override;
  bool LoadProjectLogs(const char* projectName, std::vector<WellLog>& logs) override;
  bool LoadCurveOfAllWells(const char* curveName, std::vector<WellLog>& logs) override;
  bool GetStoredCurveNames(const WellLog& log, std::vector<std::string>& storedNames) override;
  bool SaveWellLog(const WellLog& log) override;
  bool SaveWellLogs(int ignored, const std::vector<WellLog>& logs) override;
  bool DeleteCurve(const char* wellID, const char* curveName) override;
  bool DeleteCurves(const char* wellID, const std::vector<std::string>& curveNames) override;
  bool DeleteWellLog(const char* wellID) override;
  bool DeleteWellLogs(const std::vector<std::string>& wellIDs) override;
  bool DeleteProjectLogs(const char* projectName) override;
  bool IsCurveExist(const char* wellID, const char* curveName) override;
  bool CheckCurvesExist(const char* wellID, const std::vector<std::string>& curveNames,
                        std::vector<int>& flags) override;
  PETRODB_DATA_CLASS

 private:
  // Curves read from rows, with the depth curve name of each, linked at the end.
  struct Rows {
    WellLog& log;
    std::vector<std::string> depthNames;
  };
  bool ReadNames(const std::string& statement, const char* column, std::vector<std::string>& names);
  bool LoadRows(CDbManage& db, const std::string& statement, Rows& rows);
  void PurgeOrphanDepthCurves(CDbManage& db, const char* wellID);
  void WriteCurves(CDbManage& db, const WellLog& log);
};

PETRODB_REGISTER_CLASS(CLogData, ILogData)

namespace {

std::string Text(const char* s) { return s ? s : ""; }
bool Empty(const char* s) { return !s || !*s; }

const char* const kEmptyWell = "井名称不能为空！";

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

// One row in the order the suite reads it: NullValue, CurveName, CurveValue,
// Measure, DepthCurveName. A null CurveValue is a curve without samples.
bool ReadCurveRow(CDbManage& row, WellLog& log, LogCurve& curve, std::string& depthName) {
  FieldReader in(row);
  in("NullValue", log.NullValue)("CurveName", curve.CurveName);
  if (!in.ok()) return false;
  Variant samples;
  if (row.GetFieldValue("CurveValue", samples)) VariantToDoubleArray(samples, curve.Values);
  VariantClear(samples);
  FieldReader rest(row);
  rest.Optional("Measure", curve.Measure, std::string());
  rest("DepthCurveName", depthName);
  return rest.ok();
}

}  // namespace

bool CLogData::ReadNames(const std::string& statement, const char* column, std::vector<std::string>& names) {
  CDbManage db(connectionString.c_str());
  return petrodb::SelectColumn(db, statement, column, names) == kRowsFound;
}

bool CLogData::LoadRows(CDbManage& db, const std::string& statement, Rows& rows) {
  return ForEachRow(db, statement, true, [&](CDbManage& row) {
           LogCurve curve;
           std::string depthName;
           if (!ReadCurveRow(row, rows.log, curve, depthName)) return false;
           rows.log.Curves.push_back(std::move(curve));
           rows.depthNames.push_back(depthName);
           return true;
         }) == kRowsFound;
}

void CLogData::PurgeOrphanDepthCurves(CDbManage& db, const char* wellID) {
  if (Empty(wellID) || db.GetDataFromDB("w_log_data", false) == kFailed) return;
  db.ExecuteSQL(Format("delete from w_log_data where wellid = '%s' and depthcurvename not in( select distinct "
                       "depthcurvename from w_log_data b where depthcurvename <> curvename and wellid = '%s' )",
                       wellID, wellID)
                    .c_str());
}

bool CLogData::GetAllCurveNames(std::vector<std::string>& names) {
  names.clear();
  names.reserve(100);
  return ReadNames("select distinct CurveName from w_log_data where not DepthCurveName = CurveName order by CurveName",
                   "CurveName", names);
}

bool CLogData::GetLoggedWellIDs(const char* projectName, std::vector<std::string>& wellIDs) {
  return ReadNames(Format("select w_well_data.wellid from w_well_data where w_well_data.ProjectName = '%s' and "
                          "exists( select w_log_data.wellid from w_log_data where w_well_data.wellid = "
                          "w_log_data.wellid )  order by w_well_data.wellid ",
                          projectName),
                   "WellID", wellIDs);
}

bool CLogData::GetCurveNamesByMeasure(const char* wellID, const std::vector<std::string>& measures,
                                      std::vector<std::string>& curveNames) {
  return ReadNames(Format("select CurveName from w_log_data where WellID='%s'and Measure in ( %s )order by CurveName",
                          wellID, QuoteEach(measures)),
                   "CurveName", curveNames);
}

bool CLogData::GetCurveAndDepthNames(const char* wellID, std::vector<std::string>& curveNames,
                                     std::vector<std::string>& depthCurveNames) {
  CDbManage db(connectionString.c_str());
  const auto result = ForEachRow(
      db, Format("select CurveName, DepthCurveName from w_log_data where WellID='%s'order by CurveName", wellID), false,
      [&](CDbManage& row) {
        std::string name, depth;
        FieldReader in(row);
        in("CurveName", name)("DepthCurveName", depth);
        if (!in.ok()) return false;
        curveNames.push_back(name);
        depthCurveNames.push_back(depth);
        return true;
      });
  return result == kRowsFound;
}

bool CLogData::GetDepthCurveNames(const char* wellID, std::vector<std::string>& depthCurveNames) {
  return ReadNames(Format("select distinct DepthCurveName from w_log_data where WellID='%s'", wellID), "DepthCurveName",
                   depthCurveNames);
}

bool CLogData::LoadDepthCurves(const char* wellID, WellLog& log) {
  CDbManage db(connectionString.c_str());
  PurgeOrphanDepthCurves(db, wellID);
  log.WellID = Text(wellID);
  log.Curves.clear();
  const auto result =
      ForEachRow(db,
                 Format("select NullValue, CurveValue, CurveName from w_log_data where WellID='%s' and CurveName = "
                        "DepthCurveName ",
                        wellID),
                 true, [&](CDbManage& row) {
                   LogCurve curve;
                   if (!row.GetFieldValue("NullValue", log.NullValue)) return false;
                   Variant samples;
                   if (row.GetFieldValue("CurveValue", samples)) VariantToDoubleArray(samples, curve.Values);
                   if (!row.GetFieldValue("CurveName", curve.CurveName)) return false;
                   log.Curves.push_back(std::move(curve));
                   return true;
                 });
  for (auto& curve : log.Curves) curve.DepthCurve = &curve;
  return result == kRowsFound;
}

bool CLogData::LoadCurveOfWells(const std::vector<std::string>& wellIDs, const char* curveName,
                                std::vector<WellLog>& logs) {
  CDbManage db(connectionString.c_str());
  std::vector<WellLog> found;
  std::vector<std::string> depthOf;
  const auto result = ForEachRow(
      db, Format("select * from w_log_data where CurveName='%s' and WellID in (%s)", curveName, QuoteEach(wellIDs)),
      true, [&](CDbManage& row) {
        WellLog log;
        LogCurve curve;
        std::string depth;
        if (!row.GetFieldValue("WellID", log.WellID) || !ReadCurveRow(row, log, curve, depth)) return false;
        log.Curves.push_back(std::move(curve));
        found.push_back(std::move(log));
        depthOf.push_back(depth);
        return true;
      });
  if (result != kRowsFound) return false;
  // One statement for the depth curves of all wells found.
  Fragment terms;
  for (std::size_t i = 0; i < found.size(); ++i) {
    const std::string term = Format("(WellID='%s' and CurveName='%s')", found[i].WellID, depthOf[i]);
    terms.poisoned = terms.poisoned || term.empty();
    terms.text += (i ? " or " : "") + term;
  }
  ForEachRow(db, Format("select * from w_log_data where %s", terms), true, [&](CDbManage& row) {
    std::string well, depth;
    if (!row.GetFieldValue("WellID", well)) return false;
    for (std::size_t i = 0; i < found.size(); ++i) {
      if (found[i].WellID != well || found[i].Curves.size() != 1) continue;
      LogCurve curve;
      if (!ReadCurveRow(row, found[i], curve, depth)) return false;
      if (curve.CurveName != depthOf[i] || curve.CurveName == found[i].Curves[0].CurveName) continue;
      found[i].Curves.insert(found[i].Curves.begin(), std::move(curve));
      break;
    }
    return true;
  });
  for (std::size_t i = 0; i < found.size(); ++i) {
    auto& log = found[i];
    std::vector<std::string> depthNames(log.Curves.size(), depthOf[i]);
    log.Link(depthNames);
    logs.push_back(std::move(log));
  }
  return true;
}

bool CLogData::LoadCurve(const char* wellID, const char* curveName, WellLog& log) {
  CDbManage db(connectionString.c_str());
  log.WellID = Text(wellID);
  log.Curves.clear();
  const char* pattern = "select * from w_log_data where WellID='%s' and CurveName='%s'";
  LogCurve curve, depth;
  std::string depthName, unused;
  if (db.GetDataFromDB(Format(pattern, wellID, curveName).c_str(), true) != kRowsFound ||
      !ReadCurveRow(db, log, curve, depthName))
    return false;
  if (db.GetDataFromDB(Format(pattern, wellID, depthName).c_str(), true) != kRowsFound ||
      !ReadCurveRow(db, log, depth, unused))
    return false;
  const bool mismatch = curve.Values.size() != depth.Values.size();
  log.Curves.push_back(std::move(depth));
  log.Curves.push_back(std::move(curve));
  for (auto& c : log.Curves) c.DepthCurve = &log.Curves.front();
  if (mismatch) AfxMessageBox("测井曲线" + Text(curveName) + "的曲线数据个数与深度数据个数不同，请检查或重新加载。");
  return true;
}

bool CLogData::LoadCurves(const char* wellID, const std::vector<std::string>& curveNames, WellLog& log) {
  CDbManage db(connectionString.c_str());
  log.WellID = Text(wellID);
  log.Curves.clear();
  Rows rows{log, {}};
  const char* pattern = "select * from w_log_data where WellID='%s' and CurveName in ( %s )";
  if (!LoadRows(db, Format(pattern, wellID, QuoteEach(curveNames)), rows)) return false;
  std::set<std::string> depthNames;
  for (const auto& name : rows.depthNames)
    if (!log.Find(name)) depthNames.insert(name);
  if (!depthNames.empty()) {
    const std::vector<std::string> list(depthNames.begin(), depthNames.end());
    LoadRows(db, Format(pattern, wellID, QuoteEach(list)), rows);
  }
  log.Link(rows.depthNames);
  ReportMismatch(log);
  return true;
}

bool CLogData::LoadWellLog(const char* wellID, WellLog& log) {
  CDbManage db(connectionString.c_str());
  PurgeOrphanDepthCurves(db, wellID);
  log.WellID = Text(wellID);
  log.Curves.clear();
  Rows rows{log, {}};
  if (!LoadRows(db, Format("select * from w_log_data where WellID='%s'", wellID), rows)) return false;
  log.Link(rows.depthNames);
  ReportMismatch(log);
  return true;
}

bool CLogData::LoadProjectLogs(const char* projectName, std::vector<WellLog>& logs) {
  std::vector<std::string> wells;
  if (!ReadNames(Format("select WellID from w_well_data where ProjectName='%s'", projectName), "WellID", wells))
    return false;
  bool any = false;
  for (const auto& well : wells) {
    WellLog log;
    if (!LoadWellLog(well.c_str(), log)) continue;
    logs.push_back(std::move(log));
    any = true;
  }
  return any;
}

bool CLogData::LoadCurveOfAllWells(const char* curveName, std::vector<WellLog>& logs) {
  CDbManage db(connectionString.c_str());
  std::vector<WellLog> found;
  std::vector<std::vector<std::string>> depthNames;
  const auto result = ForEachRow(
      db,
      Format("select * from w_log_data where CurveName='%s' or CurveName in (select distinct DepthCurveName from "
             "w_log_data where CurveName='%s')",
             curveName, curveName),
      true, [&](CDbManage& row) {
        std::string well, depth;
        if (!row.GetFieldValue("WellID", well)) return false;
        std::size_t i = 0;
        while (i < found.size() && found[i].WellID != well) ++i;
        if (i == found.size()) {
          found.emplace_back().WellID = well;
          depthNames.emplace_back();
        }
        LogCurve curve;
        if (!ReadCurveRow(row, found[i], curve, depth)) return false;
        found[i].Curves.push_back(std::move(curve));
        depthNames[i].push_back(depth);
        return true;
      });
  // The depth-name subquery spans all wells, so a well may bring only a depth
  // curve that another well's curve uses: such a well does not have the curve.
  for (std::size_t i = 0; i < found.size(); ++i) {
    if (!found[i].Find(Text(curveName))) continue;
    found[i].Link(depthNames[i]);
    logs.push_back(std::move(found[i]));
  }
  return result == kRowsFound;
}

bool CLogData::GetStoredCurveNames(const WellLog& log, std::vector<std::string>& storedNames) {
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, "w_log_data")) return false;
  return ForEachRow(db,
                    Format("select CurveName from w_log_data where WellID='%s' and CurveName in ( %s )", log.WellID,
                           QuoteEach(CurveNames(log))),
                    false, [&](CDbManage& row) {
                      std::string name;
                      if (!row.GetFieldValue("CurveName", name)) return false;
                      storedNames.push_back(name);
                      return true;
                    }) == kRowsFound;
}

void CLogData::WriteCurves(CDbManage& db, const WellLog& log) {
  for (const auto& curve : log.Curves) {
    db.AddNew();
    FieldWriter out(db);
    out("WellID", log.WellID)("NullValue", log.NullValue)("CurveName", curve.CurveName)("Measure", curve.Measure)(
        "DepthCurveName", curve.DepthCurve ? curve.DepthCurve->CurveName : std::string())("CurveValue", curve.Values);
  }
}

bool CLogData::SaveWellLog(const WellLog& log) {
  if (log.WellID.empty()) {
    AfxMessageBox(kEmptyWell);
    return false;
  }
  if (log.Curves.empty()) return false;
  if (ReportMismatch(log)) return false;
  if (!DeleteCurves(log.WellID.c_str(), CurveNames(log))) return false;
  CDbManage db(connectionString.c_str());
  if (db.GetDataFromDB("w_log_data", true) == kFailed) return false;
  db.BeginSaveData("w_log_data");
  WriteCurves(db, log);
  return db.SaveData();
}

bool CLogData::SaveWellLogs(int, const std::vector<WellLog>& logs) {
  if (logs.empty()) return false;
  std::vector<std::string> wells;
  for (const auto& log : logs) {
    if (ReportMismatch(log)) return false;
    wells.push_back(log.WellID);
  }
  if (!DeleteWellLogs(wells)) return false;
  CDbManage db(connectionString.c_str());
  if (db.GetDataFromDB("w_log_data", true) == kFailed) return false;
  db.BeginSaveData("w_log_data");
  for (const auto& log : logs) WriteCurves(db, log);
  // No SaveData here: the rows are written as the session closes.
  return true;
}

bool CLogData::DeleteCurve(const char* wellID, const char* curveName) {
  if (Empty(wellID)) {
    AfxMessageBox(kEmptyWell);
    return false;
  }
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, "w_log_data")) return false;
  std::string depth;
  const bool hasDepth =
      db.GetDataFromDB(
          Format("select DepthCurveName from w_log_data where WellID='%s' and CurveName='%s'", wellID, curveName)
              .c_str()) == kRowsFound &&
      db.GetFieldValue("DepthCurveName", depth);
  const bool deleted =
      db.ExecuteSQL(Format("delete from  w_log_data where WellID='%s' and CurveName='%s'", wellID, curveName).c_str());
  if (hasDepth && db.GetDataFromDB(Format("select CurveName from w_log_data where WellID='%s' and "
                                          "DepthCurveName='%s' and CurveName<>'%s'",
                                          wellID, depth, depth)
                                       .c_str()) == kNoRows)
    db.ExecuteSQL(Format("delete from  w_log_data where WellID='%s' and CurveName='%s'", wellID, depth).c_str());
  PurgeOrphanDepthCurves(db, wellID);
  return deleted;
}

bool CLogData::DeleteCurves(const char* wellID, const std::vector<std::string>& curveNames) {
  return petrodb::KeyGiven(wellID, kEmptyWell) &&
         petrodb::ExecuteOnTable(connectionString, "w_log_data",
                                 Format("delete from  w_log_data where CurveName in ( %s ) AND WellID='%s'",
                                        QuoteEach(curveNames), wellID));
}

bool CLogData::DeleteWellLog(const char* wellID) {
  return petrodb::KeyGiven(wellID, kEmptyWell) &&
         petrodb::ExecuteOnTable(connectionString, "w_log_data",
                                 Format("delete from  w_log_data where WellID='%s'", wellID));
}

bool CLogData::DeleteWellLogs(const std::vector<std::string>& wellIDs) {
  return petrodb::ExecuteOnTable(connectionString, "w_log_data",
                                 Format("delete from  w_log_data where WellID in (%s)", QuoteEach(wellIDs)));
}

bool CLogData::DeleteProjectLogs(const char* projectName) {
  return petrodb::KeyGiven(projectName, "工区名称不能为空！") &&
         petrodb::ExecuteOnTable(connectionString, "w_log_data",
                                 Format("delete from w_log_data where exists( select * from w_well_data where "
                                        "w_well_data.wellid = w_log_data.wellid and  w_well_data.ProjectName = '%s' )",
                                        projectName));
}

bool CLogData::IsCurveExist(const char* wellID, const char* curveName) {
  CDbManage db(connectionString.c_str());
  return db.GetDataFromDB(
             Format("select CurveName from w_log_data where WellID='%s' and CurveName='%s'", wellID, curveName)
                 .c_str()) == kRowsFound;
}

bool CLogData::CheckCurvesExist(const char* wellID, const std::vector<std::string>& curveNames,
                                std::vector<int>& flags) {
  flags.assign(curveNames.size(), 0);
  CDbManage db(connectionString.c_str());
  bool ok = true;
  for (const auto batch : petrodb::sql::Batches(curveNames, 20)) {
    const auto result = ForEachRow(
        db, Format("select CurveName from w_log_data where WellID='%s' and CurveName in(%s)", wellID, QuoteEach(batch)),
        false, [&](CDbManage& row) {
          std::string name;
          if (!row.GetFieldValue("CurveName", name)) return false;
          for (std::size_t i = 0; i < curveNames.size(); ++i)
            if (curveNames[i] == name) {
              flags[i] = 1;
              break;
            }
          return true;
        });
    ok = ok && result != kFailed;
  }
  return ok;
}
