#include <memory>

#include "dbaccess/DataObject.h"
#include "dbaccess/RecordLists.h"
#include "dbaccess/TableStatements.h"
#include "petrodb/project/IBasicWellData.h"
#include "petrodb/welllog/DepthConverter.h"
#include "petrodb/welllog/IDeviateData.h"
#include "petrodb/welllog/IMarkerData.h"
#include "petrodb/welllog/ISourceData.h"
#include "welllog/MarkerRows.h"

using petrodb::AfxMessageBox;
using petrodb::ForEachRow;
using petrodb::markers::Columns;
using petrodb::sql::Format;
using petrodb::sql::QuoteEach;

class CMarkerData final : public petrodb::CDataObject<IMarkerData> {
 public:
  bool GetMarkerWellIDs(const char* projectName, std::vector<std::string>& wellIDs) override;
  bool GetProjectMarkerNames(const char* projectName, std::vector<std::string>& names) override;
  bool GetWellMarkerNames(const char* wellID, std::vector<std::string>& names) override;
  bool LoadMarkersByName(const char* markerName, const char* projectName, std::vector<MarkerRecord>& records) override;
  bool LoadMarkersOfWells(const std::vector<std::string>& wellIDs, const char* markerName,
                          std::vector<MarkerRecord>& records) override;
  bool LoadMarkersOfWells(const std::vector<std::string>& wellIDs, std::vector<MarkerRecord>& records) override;
  bool LoadWellMarkers(const char* wellID, std::vector<MarkerRecord>& records) override;
  bool LoadProjectMarkers(const char* projectName, std::vector<MarkerRecord>& records) override;
  bool HasMarkers(const char* wellID) override;
  bool SaveWellMarkers(const WellMarkers& wellMarkers) override;
  bool GetWellsWithMarkers(const char* projectName, std::vector<std::string>& wellIDs) override;
  bool SaveMarkers(int ignored, const std::vector<WellMarkers>& list) override;
  bool DeleteWellMarkers(const char* wellID) override;
  bool DeleteMarkersOfWells(const std::vector<std::string>& wellIDs) override;
  bool DeleteProjectMarkers(const char* projectName) override;
  PETRODB_DATA_CLASS

 private:
  bool ReadNames(const std::string& statement, const char* column, std::vector<std::string>& names);
  bool LoadMarkers(const std::string& statement, std::vector<MarkerRecord>& records);
  bool Execute(const std::string& statement);
  // An object of another data class on this object's connection, or null.
  template <class Interface>
  std::unique_ptr<Interface> Create(const char* interfaceName);
};

PETRODB_REGISTER_CLASS(CMarkerData, IMarkerData)

namespace {

// Every statement of this class is limited to the geological layering.
constexpr const char* kSource = "地质分层";

bool Empty(const char* s) { return !s || !*s; }

}  // namespace

template <class Interface>
std::unique_ptr<Interface> CMarkerData::Create(const char* interfaceName) {
  const DataClassRecord* record = petrodb::FindClassRecord(interfaceName);
  IDataBase* object = record ? record->createFunction() : nullptr;
  if (object) object->SetConnection(connectionString.c_str());
  return std::unique_ptr<Interface>(static_cast<Interface*>(object));
}

bool CMarkerData::ReadNames(const std::string& statement, const char* column, std::vector<std::string>& names) {
  CDbManage db(connectionString.c_str());
  return petrodb::SelectColumn(db, statement, column, names) == kRowsFound;
}

bool CMarkerData::LoadMarkers(const std::string& statement, std::vector<MarkerRecord>& records) {
  CDbManage db(connectionString.c_str());
  return petrodb::markers::Load(db, statement, Columns::Interval, records);
}

bool CMarkerData::Execute(const std::string& statement) {
  return petrodb::ExecuteOnTable(connectionString, "w_marker", statement);
}

bool CMarkerData::GetMarkerWellIDs(const char* projectName, std::vector<std::string>& wellIDs) {
  return ReadNames(Format("select distinct WellID from w_marker where Source ='%s' and exists( select wellid from "
                          "w_well_data where w_well_data.wellid = w_marker.wellid and w_well_data.ProjectName = "
                          "'%s' ) order by wellID",
                          kSource, projectName),
                   "WellID", wellIDs);
}

bool CMarkerData::GetProjectMarkerNames(const char* projectName, std::vector<std::string>& names) {
  return ReadNames(Format("select distinct MarkerName from w_marker where Source ='%s' and exists( select wellid "
                          "from w_well_data where w_well_data.wellid= w_marker.wellid and "
                          "w_well_data.ProjectName='%s') order by MarkerName ",
                          kSource, projectName),
                   "MarkerName", names);
}

bool CMarkerData::GetWellMarkerNames(const char* wellID, std::vector<std::string>& names) {
  return ReadNames(Format("select MarkerName from w_marker where WellID ='%s' and Source ='%s'", wellID, kSource),
                   "MarkerName", names);
}

bool CMarkerData::LoadMarkersByName(const char* markerName, const char* projectName,
                                    std::vector<MarkerRecord>& records) {
  // The project test is not tied to the marker's well: any project with a
  // well lets every marker of that name through.
  return LoadMarkers(Format("select distinct * from w_marker where w_marker.MarkerName = '%s' and Source = '%s'and "
                            "exists( select w_well_data.wellid from w_well_data where w_well_data.ProjectName = "
                            "'%s' ) order by TopMD",
                            markerName, kSource, projectName),
                     records);
}

bool CMarkerData::LoadMarkersOfWells(const std::vector<std::string>& wellIDs, const char* markerName,
                                     std::vector<MarkerRecord>& records) {
  const std::string name = Empty(markerName) ? std::string() : Format(" and MarkerName='%s'", markerName);
  if (!Empty(markerName) && name.empty()) return false;
  return LoadMarkers(Format("select * from w_marker  where Source ='%s'and WellID in (%s)%s order by TopMD", kSource,
                            QuoteEach(wellIDs, ", "), petrodb::sql::Raw{name}),
                     records);
}

bool CMarkerData::LoadMarkersOfWells(const std::vector<std::string>& wellIDs, std::vector<MarkerRecord>& records) {
  return LoadMarkersOfWells(wellIDs, nullptr, records);
}

bool CMarkerData::LoadWellMarkers(const char* wellID, std::vector<MarkerRecord>& records) {
  return LoadMarkers(
      Format("select * from w_marker where WellID='%s' and Source ='%s' order by TopMD", wellID, kSource), records);
}

bool CMarkerData::LoadProjectMarkers(const char* projectName, std::vector<MarkerRecord>& records) {
  return LoadMarkers(Format("select * from w_marker where Source = '%s' and exists( select wellid from w_well_data "
                            "where w_well_data.wellid = w_marker.wellid and w_well_data.ProjectName='%s' ) order by "
                            "wellID, TopMD",
                            kSource, projectName),
                     records);
}

bool CMarkerData::HasMarkers(const char* wellID) {
  CDbManage db(connectionString.c_str());
  return db.GetDataFromDB(
             Format("select * from  w_marker where WellID='%s' and Source = '%s'", wellID, kSource).c_str()) ==
         kRowsFound;
}

bool CMarkerData::SaveWellMarkers(const WellMarkers& wellMarkers) {
  if (wellMarkers.WellID.empty()) {
    AfxMessageBox("井名称不能为空！");
    return false;
  }
  // The well head and the survey; a well or survey that cannot be read leaves
  // a vertical hole at the origin (a survey keeps the arrays read before the
  // first null one).
  WellRecord well;
  if (auto wells = Create<IBasicWellData>("IBasicWellData")) wells->LoadWellRow(wellMarkers.WellID.c_str(), well);
  DeviationSurvey survey;
  if (auto surveys = Create<IDeviateData>("IDeviateData")) surveys->LoadSurvey(wellMarkers.WellID.c_str(), survey);
  auto converter = petrodb::GetDepthConverter();
  if (!converter) return false;
  converter->SetWell(WellHead{well.Well_SN, well.Well_EW, well.Kb}, survey);

  WellMarkers converted = wellMarkers;
  for (auto& m : converted.Markers) {
    if (m.TopMD != kNullDepth) {
      const DepthPoint top = converter->Convert(m.TopMD);
      m.TopTVD = top.TVD;
      m.TopTVDSS = top.TVDSS;
      m.XCoor = top.X;
      m.YCoor = top.Y;
    } else {
      m.TopTVD = m.TopTVDSS = m.XCoor = m.YCoor = kNullDepth;
    }
    if (m.BottomMD != kNullDepth) {
      const DepthPoint bottom = converter->Convert(m.BottomMD);
      m.BottomTVD = bottom.TVD;
      m.BottomTVDSS = bottom.TVDSS;
    } else {
      m.BottomTVD = m.BottomTVDSS = kNullDepth;
    }
    m.Thickness = m.TopMD == kNullDepth || m.BottomMD == kNullDepth ? kNullDepth : m.BottomMD - m.TopMD;
  }
  auto writer = Create<ISourceData>("ISourceData");
  return writer && writer->SaveWellMarkers(kSource, converted);
}

bool CMarkerData::GetWellsWithMarkers(const char* projectName, std::vector<std::string>& wellIDs) {
  return ReadNames(Format("select WellID from  w_marker where Source='%s' and exists( select wellid from "
                          "w_well_data where w_well_data.wellid = w_marker.wellid and w_well_data.ProjectName='%s' "
                          ") group by WellID order by WellID",
                          kSource, projectName),
                   "WellID", wellIDs);
}

bool CMarkerData::SaveMarkers(int, const std::vector<WellMarkers>& list) {
  if (list.empty()) return false;
  {
    CDbManage db(connectionString.c_str());
    if (petrodb::TableMissing(db, "w_marker")) return false;
  }
  std::vector<std::string> wells;
  for (const auto& w : list) wells.push_back(w.WellID);
  DeleteMarkersOfWells(wells);
  bool ok = true;
  for (const auto& w : list) ok = SaveWellMarkers(w) && ok;
  return ok;
}

bool CMarkerData::DeleteWellMarkers(const char* wellID) {
  return petrodb::KeyGiven(wellID, "井名称不能为空！") &&
         Execute(Format("delete from  w_marker where WellID='%s' and Source = '%s'", wellID, kSource));
}

bool CMarkerData::DeleteMarkersOfWells(const std::vector<std::string>& wellIDs) {
  return Execute(
      Format("delete from  w_marker where Source ='%s' and WellID in (%s)", kSource, QuoteEach(wellIDs, ", ")));
}

bool CMarkerData::DeleteProjectMarkers(const char* projectName) {
  return petrodb::KeyGiven(projectName, "工区名称不能为空！") &&
         Execute(Format("delete from w_marker where Source='%s' and exists( select wellid from w_well_data where "
                        "w_well_data.wellid =w_marker.wellid and w_well_data.ProjectName ='%s')",
                        kSource, projectName));
}
