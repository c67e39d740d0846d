#include "dbaccess/DataObject.h"
#include "dbaccess/RecordLists.h"
#include "dbaccess/TableStatements.h"
#include "petrodb/DateTime.h"
#include "petrodb/welllog/ISourceData.h"
#include "welllog/MarkerRows.h"

using petrodb::AfxMessageBox;
using petrodb::FieldReader;
using petrodb::FieldWriter;
using petrodb::ForEachRow;
using petrodb::markers::Columns;
using petrodb::sql::Format;
using petrodb::sql::QuoteEach;

class CSourceData final : public petrodb::CDataObject<ISourceData> {
 public:
  bool GetSources(std::vector<std::string>& sources) override;
  bool GetMarkerWellIDs(const char* source, const char* projectName, std::vector<std::string>& wellIDs) override;
  bool GetProjectMarkerNames(const char* source, const char* projectName, std::vector<std::string>& names) override;
  bool GetWellMarkerNames(const char* source, const char* wellID, std::vector<std::string>& names) override;
  bool LoadMarkersByName(const char* source, const char* markerName, const char* projectName,
                         std::vector<MarkerRecord>& records) override;
  bool LoadMarkersOfWells(const char* source, const std::vector<std::string>& wellIDs, const char* markerName,
                          std::vector<MarkerRecord>& records) override;
  bool LoadWellMarkers(const char* source, const char* wellID, std::vector<MarkerRecord>& records) override;
  bool LoadProjectMarkers(const char* source, const char* projectName, std::vector<MarkerRecord>& records) override;
  bool HasMarkers(const char* source, const char* wellID) override;
  bool SaveWellMarkers(const char* source, const WellMarkers& wellMarkers) override;
  bool SaveMarkers(const char* source, const std::vector<WellMarkers>& list) override;
  bool DeleteWellMarkers(const char* source, const char* wellID) override;
  bool DeleteMarkersOfWells(const char* source, const std::vector<std::string>& wellIDs) override;
  bool DeleteProjectMarkers(const char* source, const char* projectName) override;
  bool DeleteMarker(const char* source, const char* wellID, const char* markerName) override;
  bool MoveMarkerTop(const char* source, const char* wellID, const char* markerName, double topMD) override;
  bool GetAttributes(const char* projectName, const char* source, std::vector<MarkerAttribute>& attributes) override;
  bool SaveAttribute(const char* projectName, const char* source, const MarkerAttribute& attribute) override;
  bool SaveAttributes(const char* projectName, const char* source,
                      const std::vector<MarkerAttribute>& attributes) override;
  bool DeleteAttribute(const char* projectName, const char* source, const char* attribName) override;
  bool DeleteAttributes(const char* projectName, const char* source) override;
  bool LoadMarkerAttributeValues(const char* source, const char* wellID, const char* markerName,
                                 std::vector<MarkerAttributeValue>& values) override;
  bool LoadWellAttributeValues(const char* source, const char* wellID,
                               std::vector<MarkerAttributeValue>& values) override;
  bool LoadProjectAttributeValues(const char* projectName, const char* source, const char* attribName,
                                  std::vector<MarkerAttributeValue>& values) override;
  bool SaveAttributeValues(const char* source, const std::vector<MarkerAttributeValue>& values) override;
  bool DeleteAttributeValue(const char* projectName, const char* source, const char* wellID, const char* markerName,
                            const char* attribName) override;
  bool DeleteWellAttributeValues(const char* projectName, const char* source, const char* wellID) override;
  bool DeleteAttributeValues(const char* projectName, const char* source, const char* attribName) override;
  bool DeleteProjectAttributeValues(const char* projectName, const char* source) override;
  PETRODB_DATA_CLASS

 private:
  bool ReadNames(const std::string& statement, const char* column, std::vector<std::string>& names);
  bool LoadMarkers(const std::string& statement, std::vector<MarkerRecord>& records);
  bool LoadValues(const std::string& statement, std::vector<MarkerAttributeValue>& values);
  // Runs a statement on `table` after probing it; false when it is missing.
  bool Execute(const char* table, const std::string& statement);
};

PETRODB_REGISTER_CLASS(CSourceData, ISourceData)

namespace {

bool Empty(const char* s) { return !s || !*s; }

// Limits a statement on `table` to the wells of a project.
constexpr const char* kValueOfProject =
    "exists( select wellid from w_well_data where w_well_data.wellid = w_marker_attribute_data.wellid and "
    "w_well_data.ProjectName='%s')";

}  // namespace

bool CSourceData::ReadNames(const std::string& statement, const char* column, std::vector<std::string>& names) {
  CDbManage db(connectionString.c_str());
  return petrodb::SelectColumn(db, statement, column, names) == kRowsFound;
}

bool CSourceData::LoadMarkers(const std::string& statement, std::vector<MarkerRecord>& records) {
  CDbManage db(connectionString.c_str());
  return petrodb::markers::Load(db, statement, Columns::All, records);
}

bool CSourceData::LoadValues(const std::string& statement, std::vector<MarkerAttributeValue>& values) {
  CDbManage db(connectionString.c_str());
  return petrodb::SelectRecords(db, statement, values, [](CDbManage& row, MarkerAttributeValue& v) {
           FieldReader in(row);
           in("WellID", v.WellID)("MarkerName", v.MarkerName)("AttribName", v.AttribName);
           in.Optional("AttribValue", v.AttribValue, std::string());
           return in.ok();
         }) == kRowsFound;
}

bool CSourceData::Execute(const char* table, const std::string& statement) {
  return petrodb::ExecuteOnTable(connectionString, table, statement);
}

bool CSourceData::GetSources(std::vector<std::string>& sources) {
  return ReadNames(
      "select distinct Source from w_marker where exists( select wellid from w_well_data where "
      "w_well_data.wellid=w_marker.wellid)",
      "Source", sources);
}

bool CSourceData::GetMarkerWellIDs(const char* source, const char* projectName, std::vector<std::string>& wellIDs) {
  return ReadNames(Format("select distinct WellID from w_marker where Source='%s' and exists( select wellid from "
                          "w_well_data where w_well_data.wellid=w_marker.wellid and w_well_data.ProjectName='%s') "
                          "order by WellID",
                          source, projectName),
                   "WellID", wellIDs);
}

bool CSourceData::GetProjectMarkerNames(const char* source, const char* projectName, std::vector<std::string>& names) {
  return ReadNames(Format("select distinct MarkerName from w_marker where Source='%s' and exists( select wellid "
                          "from w_well_data where w_well_data.wellid=w_marker.wellid and "
                          "w_well_data.ProjectName='%s') order by MarkerName",
                          source, projectName),
                   "MarkerName", names);
}

bool CSourceData::GetWellMarkerNames(const char* source, const char* wellID, std::vector<std::string>& names) {
  return ReadNames(
      Format("select MarkerName from w_marker where WellID='%s' and Source='%s' order by TopMD", wellID, source),
      "MarkerName", names);
}

bool CSourceData::LoadMarkersByName(const char* source, const char* markerName, const char* projectName,
                                    std::vector<MarkerRecord>& records) {
  return LoadMarkers(Format("select * from w_marker where MarkerName='%s' and Source='%s' and exists( select "
                            "wellid from w_well_data where w_well_data.wellid=w_marker.wellid and "
                            "w_well_data.ProjectName='%s') order by TopMD",
                            markerName, source, projectName),
                     records);
}

bool CSourceData::LoadMarkersOfWells(const char* source, const std::vector<std::string>& wellIDs,
                                     const char* markerName, std::vector<MarkerRecord>& records) {
  const std::string name = Empty(markerName) ? std::string() : Format(" and MarkerName='%s'", markerName);
  if (!Empty(markerName) && name.empty()) return false;
  return LoadMarkers(Format("select * from w_marker where Source='%s' and WellID in (%s)%s order by TopMD", source,
                            QuoteEach(wellIDs, ", "), petrodb::sql::Raw{name}),
                     records);
}

bool CSourceData::LoadWellMarkers(const char* source, const char* wellID, std::vector<MarkerRecord>& records) {
  return LoadMarkers(Format("select * from w_marker where WellID='%s' and Source='%s' order by TopMD", wellID, source),
                     records);
}

bool CSourceData::LoadProjectMarkers(const char* source, const char* projectName, std::vector<MarkerRecord>& records) {
  return LoadMarkers(Format("select * from w_marker where Source='%s' and exists( select wellid from w_well_data "
                            "where w_well_data.wellid=w_marker.wellid and w_well_data.ProjectName='%s') order by "
                            "WellID, TopMD",
                            source, projectName),
                     records);
}

bool CSourceData::HasMarkers(const char* source, const char* wellID) {
  CDbManage db(connectionString.c_str());
  return db.GetDataFromDB(
             Format("select WellID from w_marker where WellID='%s' and Source='%s'", wellID, source).c_str()) ==
         kRowsFound;
}

bool CSourceData::SaveWellMarkers(const char* source, const WellMarkers& wellMarkers) {
  if (wellMarkers.WellID.empty()) {
    AfxMessageBox("井名称不能为空！");
    return false;
  }
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, "w_marker")) return false;
  if (!db.ExecuteSQL(
          Format("delete from w_marker where WellID='%s' and Source='%s'", wellMarkers.WellID, source).c_str()))
    return false;
  const DateTime now = DateTime::Now();
  db.BeginSaveData("w_marker");
  for (const auto& marker : wellMarkers.Markers)
    petrodb::markers::Write(db, source ? source : "", wellMarkers.WellID, marker, now);
  return db.SaveData();
}

bool CSourceData::SaveMarkers(const char* source, const std::vector<WellMarkers>& list) {
  for (const auto& wellMarkers : list)
    if (!SaveWellMarkers(source, wellMarkers)) return false;
  return true;
}

bool CSourceData::DeleteWellMarkers(const char* source, const char* wellID) {
  return petrodb::KeyGiven(wellID, "井名称不能为空！") &&
         Execute("w_marker", Format("delete from w_marker where WellID='%s' and Source='%s'", wellID, source));
}

bool CSourceData::DeleteMarkersOfWells(const char* source, const std::vector<std::string>& wellIDs) {
  return Execute("w_marker",
                 Format("delete from w_marker where Source='%s' and WellID in (%s)", source, QuoteEach(wellIDs, ", ")));
}

bool CSourceData::DeleteProjectMarkers(const char* source, const char* projectName) {
  return petrodb::KeyGiven(projectName, "工区名称不能为空！") &&
         Execute("w_marker", Format("delete from w_marker where Source='%s' and exists( select wellid from "
                                    "w_well_data where w_well_data.wellid=w_marker.wellid and "
                                    "w_well_data.ProjectName='%s')",
                                    source, projectName));
}

bool CSourceData::DeleteMarker(const char* source, const char* wellID, const char* markerName) {
  return Execute("w_marker", Format("delete from w_marker where WellID='%s' and MarkerName='%s' and Source='%s'",
                                    wellID, markerName, source));
}

bool CSourceData::MoveMarkerTop(const char* source, const char* wellID, const char* markerName, double topMD) {
  return Execute("w_marker", Format("update w_marker set TopMD=%f  where WellID='%s' and MarkerName='%s' and "
                                    "Source='%s'",
                                    topMD, wellID, markerName, source));
}

bool CSourceData::GetAttributes(const char* projectName, const char* source, std::vector<MarkerAttribute>& attributes) {
  CDbManage db(connectionString.c_str());
  return petrodb::SelectRecords(
             db,
             Format("select * from w_marker_attribute where ProjectName='%s' and Source='%s' order by AttribName",
                    projectName, source),
             attributes, [](CDbManage& row, MarkerAttribute& a) {
               FieldReader in(row);
               in("AttribName", a.AttribName);
               in.Optional("AttribType", a.AttribType, std::string())
                   .Optional("AttribDescription", a.AttribDescription, std::string());
               return in.ok();
             }) == kRowsFound;
}

bool CSourceData::SaveAttribute(const char* projectName, const char* source, const MarkerAttribute& attribute) {
  if (Empty(projectName)) {
    AfxMessageBox("工区名称不能为空！");
    return false;
  }
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, "w_marker_attribute")) return false;
  if (!db.ExecuteSQL(Format("delete from w_marker_attribute where ProjectName='%s' and Source='%s' and "
                            "AttribName='%s'",
                            projectName, source, attribute.AttribName)
                         .c_str()))
    return false;
  db.BeginSaveData("w_marker_attribute");
  db.AddNew();
  FieldWriter out(db);
  out("ProjectName", projectName)("Source", source)("AttribName", attribute.AttribName)(
      "AttribType", attribute.AttribType)("AttribDescription", attribute.AttribDescription);
  return db.SaveData();
}

bool CSourceData::SaveAttributes(const char* projectName, const char* source,
                                 const std::vector<MarkerAttribute>& attributes) {
  if (!DeleteAttributes(projectName, source)) return false;
  for (const auto& attribute : attributes)
    if (!SaveAttribute(projectName, source, attribute)) return false;
  return true;
}

bool CSourceData::DeleteAttribute(const char* projectName, const char* source, const char* attribName) {
  return Execute("w_marker_attribute",
                 Format("delete from w_marker_attribute where ProjectName='%s' and Source='%s' and AttribName='%s'",
                        projectName, source, attribName));
}

bool CSourceData::DeleteAttributes(const char* projectName, const char* source) {
  return petrodb::KeyGiven(projectName, "工区名称不能为空！") &&
         Execute("w_marker_attribute",
                 Format("delete from w_marker_attribute where ProjectName='%s' and Source='%s'", projectName, source));
}

bool CSourceData::LoadMarkerAttributeValues(const char* source, const char* wellID, const char* markerName,
                                            std::vector<MarkerAttributeValue>& values) {
  return LoadValues(Format("select * from w_marker_attribute_data where WellID='%s' and MarkerName='%s' and "
                           "Source='%s' order by AttribName",
                           wellID, markerName, source),
                    values);
}

bool CSourceData::LoadWellAttributeValues(const char* source, const char* wellID,
                                          std::vector<MarkerAttributeValue>& values) {
  return LoadValues(Format("select * from w_marker_attribute_data where WellID='%s' and Source='%s' order by "
                           "MarkerName, AttribName",
                           wellID, source),
                    values);
}

bool CSourceData::LoadProjectAttributeValues(const char* projectName, const char* source, const char* attribName,
                                             std::vector<MarkerAttributeValue>& values) {
  const std::string scope = Format(kValueOfProject, projectName);
  if (scope.empty()) return false;
  return LoadValues(Format("select * from w_marker_attribute_data where AttribName='%s' and Source='%s' and %s "
                           "order by WellID, MarkerName",
                           attribName, source, petrodb::sql::Raw{scope}),
                    values);
}

bool CSourceData::SaveAttributeValues(const char* source, const std::vector<MarkerAttributeValue>& values) {
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, "w_marker_attribute_data")) return false;
  for (const auto& v : values)
    if (!db.ExecuteSQL(Format("delete from w_marker_attribute_data where WellID='%s' and MarkerName='%s' and "
                              "AttribName='%s' and Source='%s'",
                              v.WellID, v.MarkerName, v.AttribName, source)
                           .c_str()))
      return false;
  db.BeginSaveData("w_marker_attribute_data");
  for (const auto& v : values) {
    db.AddNew();
    FieldWriter out(db);
    out("WellID", v.WellID)("MarkerName", v.MarkerName)("AttribName", v.AttribName)("AttribValue", v.AttribValue)(
        "Source", source);
  }
  return db.SaveData();
}

bool CSourceData::DeleteAttributeValue(const char* projectName, const char* source, const char* wellID,
                                       const char* markerName, const char* attribName) {
  const std::string scope = Format(kValueOfProject, projectName);
  if (scope.empty()) return false;
  return Execute("w_marker_attribute_data",
                 Format("delete from w_marker_attribute_data where WellID='%s' and MarkerName='%s' and "
                        "AttribName='%s' and Source='%s' and %s",
                        wellID, markerName, attribName, source, petrodb::sql::Raw{scope}));
}

bool CSourceData::DeleteWellAttributeValues(const char* projectName, const char* source, const char* wellID) {
  const std::string scope = Format(kValueOfProject, projectName);
  if (scope.empty()) return false;
  return Execute("w_marker_attribute_data",
                 Format("delete from w_marker_attribute_data where WellID='%s' and Source='%s' and %s", wellID, source,
                        petrodb::sql::Raw{scope}));
}

bool CSourceData::DeleteAttributeValues(const char* projectName, const char* source, const char* attribName) {
  const std::string scope = Format(kValueOfProject, projectName);
  if (scope.empty()) return false;
  return Execute("w_marker_attribute_data",
                 Format("delete from w_marker_attribute_data where AttribName='%s' and Source='%s' and %s", attribName,
                        source, petrodb::sql::Raw{scope}));
}

bool CSourceData::DeleteProjectAttributeValues(const char* projectName, const char* source) {
  if (Empty(projectName)) {
    AfxMessageBox("工区名称不能为空！");
    return false;
  }
  const std::string scope = Format(kValueOfProject, projectName);
  if (scope.empty()) return false;
  return Execute("w_marker_attribute_data", Format("delete from w_marker_attribute_data where Source='%s' and %s",
                                                   source, petrodb::sql::Raw{scope}));
}
