#include "dbaccess/DataObject.h"
#include "petrodb/project/IBasicWellData.h"
#include "petrodb/welllog/DepthConverter.h"
#include "petrodb/welllog/IDeviateData.h"
#include "petrodb/welllog/IMarkerData.h"
#include "petrodb/welllog/ISourceData.h"
#include "welllog/MarkerRows.h"
#include "welllog/WellLogCommon.h"

using namespace petrodb;
using welllog::kEmptyProject;
using welllog::kEmptyWell;

namespace {

// Every statement of this class is limited to the geological layering.
constexpr const char* kSource = "地质分层";

constexpr Pattern<"select distinct WellID from w_marker where Source ='%s' and exists( select wellid from "
                  "w_well_data where w_well_data.wellid = w_marker.wellid and w_well_data.ProjectName = '%s' ) "
                  "order by wellID">
    kMarkerWells;
constexpr Pattern<"select distinct MarkerName from w_marker where Source ='%s' and exists( select wellid from "
                  "w_well_data where w_well_data.wellid= w_marker.wellid and w_well_data.ProjectName='%s') order "
                  "by MarkerName ">
    kProjectMarkerNames;
constexpr Pattern<"select MarkerName from w_marker where WellID ='%s' and Source ='%s'"> kWellMarkerNames;
// The project test is not tied to the marker's well: any project with a well
// lets every marker of that name through.
constexpr Pattern<"select distinct * from w_marker where w_marker.MarkerName = '%s' and Source = '%s'and exists( "
                  "select w_well_data.wellid from w_well_data where w_well_data.ProjectName = '%s' ) order by TopMD">
    kMarkersByName;
constexpr Pattern<"select * from w_marker  where Source ='%s'and WellID in (%s)%s order by TopMD"> kMarkersOfWells;
constexpr Pattern<" and MarkerName='%s'"> kNamed;
constexpr Pattern<"select * from w_marker where WellID='%s' and Source ='%s' order by TopMD"> kWellMarkers;
constexpr Pattern<"select * from w_marker where Source = '%s' and exists( select wellid from w_well_data where "
                  "w_well_data.wellid = w_marker.wellid and w_well_data.ProjectName='%s' ) order by wellID, TopMD">
    kProjectMarkers;
constexpr Pattern<"select * from  w_marker where WellID='%s' and Source = '%s'"> kHasMarkers;
constexpr Pattern<"select WellID from  w_marker where Source='%s' and exists( select wellid from w_well_data where "
                  "w_well_data.wellid = w_marker.wellid and w_well_data.ProjectName='%s' ) group by WellID order "
                  "by WellID">
    kWellsWithMarkers;
constexpr Pattern<"delete from  w_marker where WellID='%s' and Source = '%s'"> kDeleteWellMarkers;
constexpr Pattern<"delete from  w_marker where Source ='%s' and WellID in (%s)"> kDeleteMarkersOfWells;
constexpr Pattern<"delete from w_marker where Source='%s' and exists( select wellid from w_well_data where "
                  "w_well_data.wellid =w_marker.wellid and w_well_data.ProjectName ='%s')">
    kDeleteProjectMarkers;

constexpr const char* kMarkers = "w_marker";

// Vertical depths and map position of each marker through the well's survey;
// a null depth stays null in everything derived from it.
void Convert(IDepthConverter& converter, std::vector<MarkerRecord>& markers) {
  for (auto& m : markers) {
    if (m.TopMD != kNullDepth) {
      const DepthPoint top = converter.Convert(m.TopMD);
      m.TopTVD = top.TVD;
      m.TopTVDSS = top.TVDSS;
      m.XCoor = top.X;
      m.YCoor = top.Y;
    } else {
      m.TopTVD = m.TopTVDSS = m.XCoor = m.YCoor = kNullDepth;
    }
    if (m.BottomMD != kNullDepth) {
      const DepthPoint bottom = converter.Convert(m.BottomMD);
      m.BottomTVD = bottom.TVD;
      m.BottomTVDSS = bottom.TVDSS;
    } else {
      m.BottomTVD = m.BottomTVDSS = kNullDepth;
    }
    m.Thickness = m.TopMD == kNullDepth || m.BottomMD == kNullDepth ? kNullDepth : m.BottomMD - m.TopMD;
  }
}

}  // namespace

class CMarkerData final : public CDataObject<IMarkerData> {
 public:
  bool GetMarkerWellIDs(const char* projectName, std::vector<std::string>& wellIDs) override {
    return ListColumn(kMarkerWells(kSource, projectName), "WellID", wellIDs, Fill::Clear).found();
  }

  bool GetProjectMarkerNames(const char* projectName, std::vector<std::string>& names) override {
    return ListColumn(kProjectMarkerNames(kSource, projectName), "MarkerName", names, Fill::Clear).found();
  }

  bool GetWellMarkerNames(const char* wellID, std::vector<std::string>& names) override {
    return ListColumn(kWellMarkerNames(wellID, kSource), "MarkerName", names, Fill::Clear).found();
  }

  bool LoadMarkersByName(const char* markerName, const char* projectName,
                         std::vector<MarkerRecord>& records) override {
    return LoadMarkers(kMarkersByName(markerName, kSource, projectName), records);
  }

  bool LoadMarkersOfWells(const std::vector<std::string>& wellIDs, const char* markerName,
                          std::vector<MarkerRecord>& records) override {
    const Statement named = markerName && *markerName ? kNamed(markerName) : Statement();
    return LoadMarkers(kMarkersOfWells(kSource, sql::QuoteEach(wellIDs, ", "), named), records);
  }

  bool LoadMarkersOfWells(const std::vector<std::string>& wellIDs, std::vector<MarkerRecord>& records) override {
    return LoadMarkersOfWells(wellIDs, nullptr, records);
  }

  bool LoadWellMarkers(const char* wellID, std::vector<MarkerRecord>& records) override {
    return LoadMarkers(kWellMarkers(wellID, kSource), records);
  }

  bool LoadProjectMarkers(const char* projectName, std::vector<MarkerRecord>& records) override {
    return LoadMarkers(kProjectMarkers(kSource, projectName), records);
  }

  bool HasMarkers(const char* wellID) override { return Exists(kHasMarkers(wellID, kSource)); }

  bool SaveWellMarkers(const WellMarkers& wellMarkers) override {
    if (!KeyGiven(wellMarkers.WellID, kEmptyWell)) return false;
    // The well head and the survey; a well or survey that cannot be read leaves
    // a vertical hole at the origin (a survey keeps the arrays read before the
    // first null one).
    WellRecord well;
    if (auto wells = CreateObject<IBasicWellData>("IBasicWellData"))
      wells->LoadWellRow(wellMarkers.WellID.c_str(), well);
    DeviationSurvey survey;
    if (auto surveys = CreateObject<IDeviateData>("IDeviateData"))
      surveys->LoadSurvey(wellMarkers.WellID.c_str(), survey);
    auto converter = GetDepthConverter();
    if (!converter) return false;
    converter->SetWell(WellHead{well.Well_SN, well.Well_EW, well.Kb}, survey);
    WellMarkers converted = wellMarkers;
    Convert(*converter, converted.Markers);
    auto writer = CreateObject<ISourceData>("ISourceData");
    return writer && writer->SaveWellMarkers(kSource, converted);
  }

  bool GetWellsWithMarkers(const char* projectName, std::vector<std::string>& wellIDs) override {
    return ListColumn(kWellsWithMarkers(kSource, projectName), "WellID", wellIDs, Fill::Clear).found();
  }

  // The listed wells' markers go through DeleteMarkersOfWells, whose result is
  // not looked at; a well that cannot be spliced fails the save before anything
  // is deleted. Each well is then saved on its own.
  bool SaveMarkers(int, const std::vector<WellMarkers>& list) override {
    if (list.empty()) return false;
    std::vector<std::string> wells;
    for (const auto& w : list) wells.push_back(w.WellID);
    if (kDeleteMarkersOfWells(kSource, sql::QuoteEach(wells, ", ")).refused()) return false;
    if (!TableAnswers(kMarkers)) return false;
    DeleteMarkersOfWells(wells);
    bool ok = true;
    for (const auto& w : list) ok = SaveWellMarkers(w) && ok;
    return ok;
  }

  bool DeleteWellMarkers(const char* wellID) override {
    return KeyGiven(wellID, kEmptyWell) && ExecuteOnTable(kMarkers, kDeleteWellMarkers(wellID, kSource));
  }

  bool DeleteMarkersOfWells(const std::vector<std::string>& wellIDs) override {
    return ExecuteOnTable(kMarkers, kDeleteMarkersOfWells(kSource, sql::QuoteEach(wellIDs, ", ")));
  }

  bool DeleteProjectMarkers(const char* projectName) override {
    return KeyGiven(projectName, kEmptyProject) && ExecuteOnTable(kMarkers, kDeleteProjectMarkers(kSource, projectName));
  }
  PETRODB_DATA_CLASS

 private:
  bool LoadMarkers(const Statement& statement, std::vector<MarkerRecord>& records) const {
    return LoadRows(statement, records, Fill::Clear, markers::ReadInterval).found();
  }
};

PETRODB_REGISTER_CLASS(CMarkerData, IMarkerData)
