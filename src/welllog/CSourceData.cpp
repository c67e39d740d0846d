#include "dbaccess/DataObject.h"
#include "petrodb/DateTime.h"
#include "petrodb/welllog/ISourceData.h"
#include "welllog/MarkerRows.h"
#include "welllog/WellLogCommon.h"

using namespace petrodb;
using welllog::kEmptyProject;
using welllog::kEmptyWell;

namespace {

constexpr Pattern<"select distinct Source from w_marker where exists( select wellid from w_well_data where "
                  "w_well_data.wellid=w_marker.wellid)">
    kSources;
constexpr Pattern<"select distinct WellID from w_marker where Source='%s' and exists( select wellid from "
                  "w_well_data where w_well_data.wellid=w_marker.wellid and w_well_data.ProjectName='%s') "
                  "order by WellID">
    kMarkerWells;
constexpr Pattern<"select distinct MarkerName from w_marker where Source='%s' and exists( select wellid from "
                  "w_well_data where w_well_data.wellid=w_marker.wellid and w_well_data.ProjectName='%s') "
                  "order by MarkerName">
    kProjectMarkerNames;
constexpr Pattern<"select MarkerName from w_marker where WellID='%s' and Source='%s' order by TopMD">
    kWellMarkerNames;
constexpr Pattern<"select * from w_marker where MarkerName='%s' and Source='%s' and exists( select wellid from "
                  "w_well_data where w_well_data.wellid=w_marker.wellid and w_well_data.ProjectName='%s') "
                  "order by TopMD">
    kMarkersByName;
constexpr Pattern<"select * from w_marker where Source='%s' and WellID in (%s)%s order by TopMD"> kMarkersOfWells;
constexpr Pattern<" and MarkerName='%s'"> kNamed;
constexpr Pattern<"select * from w_marker where WellID='%s' and Source='%s' order by TopMD"> kWellMarkers;
constexpr Pattern<"select * from w_marker where Source='%s' and exists( select wellid from w_well_data where "
                  "w_well_data.wellid=w_marker.wellid and w_well_data.ProjectName='%s') order by WellID, TopMD">
    kProjectMarkers;
constexpr Pattern<"select WellID from w_marker where WellID='%s' and Source='%s'"> kHasMarkers;
constexpr Pattern<"delete from w_marker where WellID='%s' and Source='%s'"> kDeleteWellMarkers;
constexpr Pattern<"delete from w_marker where Source='%s' and WellID in (%s)"> kDeleteMarkersOfWells;
constexpr Pattern<"delete from w_marker where Source='%s' and exists( select wellid from w_well_data where "
                  "w_well_data.wellid=w_marker.wellid and w_well_data.ProjectName='%s')">
    kDeleteProjectMarkers;
constexpr Pattern<"delete from w_marker where WellID='%s' and MarkerName='%s' and Source='%s'"> kDeleteMarker;
constexpr Pattern<"update w_marker set TopMD=%f  where WellID='%s' and MarkerName='%s' and Source='%s'"> kMoveTop;

constexpr Pattern<"select * from w_marker_attribute where ProjectName='%s' and Source='%s' order by AttribName">
    kAttributes;
constexpr Pattern<"delete from w_marker_attribute where ProjectName='%s' and Source='%s' and AttribName='%s'">
    kDeleteAttribute;
constexpr Pattern<"delete from w_marker_attribute where ProjectName='%s' and Source='%s'"> kDeleteAttributes;

// Limits a statement on the attribute values to the wells of a project.
constexpr Pattern<"exists( select wellid from w_well_data where w_well_data.wellid = w_marker_attribute_data.wellid "
                  "and w_well_data.ProjectName='%s')">
    kValueOfProject;
constexpr Pattern<"select * from w_marker_attribute_data where WellID='%s' and MarkerName='%s' and Source='%s' "
                  "order by AttribName">
    kMarkerValues;
constexpr Pattern<"select * from w_marker_attribute_data where WellID='%s' and Source='%s' order by MarkerName, "
                  "AttribName">
    kWellValues;
constexpr Pattern<"select * from w_marker_attribute_data where AttribName='%s' and Source='%s' and %s order by "
                  "WellID, MarkerName">
    kProjectValues;
constexpr Pattern<"delete from w_marker_attribute_data where WellID='%s' and MarkerName='%s' and AttribName='%s' and "
                  "Source='%s'">
    kReplaceValue;
constexpr Pattern<"delete from w_marker_attribute_data where WellID='%s' and MarkerName='%s' and AttribName='%s' and "
                  "Source='%s' and %s">
    kDeleteValue;
constexpr Pattern<"delete from w_marker_attribute_data where WellID='%s' and Source='%s' and %s"> kDeleteWellValues;
constexpr Pattern<"delete from w_marker_attribute_data where AttribName='%s' and Source='%s' and %s">
    kDeleteAttribValues;
constexpr Pattern<"delete from w_marker_attribute_data where Source='%s' and %s"> kDeleteProjectValues;

constexpr const char* kMarkers = "w_marker";
constexpr const char* kAttributeTable = "w_marker_attribute";
constexpr const char* kValueTable = "w_marker_attribute_data";

// An attribute definition as stored, with the project and source it belongs to.
struct AttributeRow : MarkerAttribute {
  std::string ProjectName;
  std::string Source;
};
// An attribute value as stored, with its source.
struct ValueRow : MarkerAttributeValue {
  std::string Source;
};
using Text = std::string;

const ColumnTable<AttributeRow> kAttributeColumns{kAttributeTable, {
    Col<AttributeRow, Text>("ProjectName", &AttributeRow::ProjectName).WriteOnly(),
    Col<AttributeRow, Text>("Source", &AttributeRow::Source).WriteOnly(),
    Col<AttributeRow, Text>("AttribName", &AttributeRow::AttribName),
    Col<AttributeRow, Text>("AttribType", &AttributeRow::AttribType).Or(Text()),
    Col<AttributeRow, Text>("AttribDescription", &AttributeRow::AttribDescription).Or(Text()),
}};

const ColumnTable<ValueRow> kValueColumns{kValueTable, {
    Col<ValueRow, Text>("WellID", &ValueRow::WellID),
    Col<ValueRow, Text>("MarkerName", &ValueRow::MarkerName),
    Col<ValueRow, Text>("AttribName", &ValueRow::AttribName),
    Col<ValueRow, Text>("AttribValue", &ValueRow::AttribValue).Or(Text()),
    Col<ValueRow, Text>("Source", &ValueRow::Source).WriteOnly(),
}};

// The saves probe their table first and stop at a delete that fails.
const ReplaceSteps kSaveMarkers{kMarkers};
const ReplaceSteps kSaveAttribute{kAttributeTable};
const ReplaceSteps kSaveValues{kValueTable};

std::string Text0(const char* s) { return s ? s : ""; }

}  // namespace

class CSourceData final : public CDataObject<ISourceData> {
 public:
  bool GetSources(std::vector<std::string>& sources) override {
    return ListColumn(kSources(), "Source", sources, Fill::Clear).found();
  }

  bool GetMarkerWellIDs(const char* source, const char* projectName, std::vector<std::string>& wellIDs) override {
    return ListColumn(kMarkerWells(source, projectName), "WellID", wellIDs, Fill::Clear).found();
  }

  bool GetProjectMarkerNames(const char* source, const char* projectName, std::vector<std::string>& names) override {
    return ListColumn(kProjectMarkerNames(source, projectName), "MarkerName", names, Fill::Clear).found();
  }

  bool GetWellMarkerNames(const char* source, const char* wellID, std::vector<std::string>& names) override {
    return ListColumn(kWellMarkerNames(wellID, source), "MarkerName", names, Fill::Clear).found();
  }

  bool LoadMarkersByName(const char* source, const char* markerName, const char* projectName,
                         std::vector<MarkerRecord>& records) override {
    return LoadMarkers(kMarkersByName(markerName, source, projectName), records);
  }

  bool LoadMarkersOfWells(const char* source, const std::vector<std::string>& wellIDs, const char* markerName,
                          std::vector<MarkerRecord>& records) override {
    const Statement named = markerName && *markerName ? kNamed(markerName) : Statement();
    return LoadMarkers(kMarkersOfWells(source, sql::QuoteEach(wellIDs, ", "), named), records);
  }

  bool LoadWellMarkers(const char* source, const char* wellID, std::vector<MarkerRecord>& records) override {
    return LoadMarkers(kWellMarkers(wellID, source), records);
  }

  bool LoadProjectMarkers(const char* source, const char* projectName, std::vector<MarkerRecord>& records) override {
    return LoadMarkers(kProjectMarkers(source, projectName), records);
  }

  bool HasMarkers(const char* source, const char* wellID) override { return Exists(kHasMarkers(wellID, source)); }

  bool SaveWellMarkers(const char* source, const WellMarkers& wellMarkers) override {
    if (!KeyGiven(wellMarkers.WellID, kEmptyWell)) return false;
    const Statement remove = kDeleteWellMarkers(wellMarkers.WellID, source);
    const DateTime now = DateTime::Now();
    return ReplaceAfter(kSaveMarkers, DeletesThatMustRun({&remove, 1}), [&](CDbManage& db) {
      for (const auto& marker : wellMarkers.Markers) markers::Write(db, Text0(source), wellMarkers.WellID, marker, now);
    });
  }

  bool SaveMarkers(const char* source, const std::vector<WellMarkers>& list) override {
    for (const auto& wellMarkers : list)
      if (!SaveWellMarkers(source, wellMarkers)) return false;
    return true;
  }

  bool DeleteWellMarkers(const char* source, const char* wellID) override {
    return KeyGiven(wellID, kEmptyWell) && ExecuteOnTable(kMarkers, kDeleteWellMarkers(wellID, source));
  }

  bool DeleteMarkersOfWells(const char* source, const std::vector<std::string>& wellIDs) override {
    return ExecuteOnTable(kMarkers, kDeleteMarkersOfWells(source, sql::QuoteEach(wellIDs, ", ")));
  }

  bool DeleteProjectMarkers(const char* source, const char* projectName) override {
    return KeyGiven(projectName, kEmptyProject) && ExecuteOnTable(kMarkers, kDeleteProjectMarkers(source, projectName));
  }

  bool DeleteMarker(const char* source, const char* wellID, const char* markerName) override {
    return ExecuteOnTable(kMarkers, kDeleteMarker(wellID, markerName, source));
  }

  bool MoveMarkerTop(const char* source, const char* wellID, const char* markerName, double topMD) override {
    return ExecuteOnTable(kMarkers, kMoveTop(topMD, wellID, markerName, source));
  }

  bool GetAttributes(const char* projectName, const char* source, std::vector<MarkerAttribute>& attributes) override {
    return LoadRows(kAttributes(projectName, source), attributes, Fill::Clear,
                    ReadAs<MarkerAttribute>(kAttributeColumns))
        .found();
  }

  bool SaveAttribute(const char* projectName, const char* source, const MarkerAttribute& attribute) override {
    if (!KeyGiven(projectName, kEmptyProject)) return false;
    const Statement remove = kDeleteAttribute(projectName, source, attribute.AttribName);
    const AttributeRow row{attribute, projectName, Text0(source)};
    return ReplaceAfter(kSaveAttribute, DeletesThatMustRun({&remove, 1}),
                        [&](CDbManage& db) { kAttributeColumns.AddRow(db, row); });
  }

  bool SaveAttributes(const char* projectName, const char* source,
                      const std::vector<MarkerAttribute>& attributes) override {
    if (!DeleteAttributes(projectName, source)) return false;
    for (const auto& attribute : attributes)
      if (!SaveAttribute(projectName, source, attribute)) return false;
    return true;
  }

  bool DeleteAttribute(const char* projectName, const char* source, const char* attribName) override {
    return ExecuteOnTable(kAttributeTable, kDeleteAttribute(projectName, source, attribName));
  }

  bool DeleteAttributes(const char* projectName, const char* source) override {
    return KeyGiven(projectName, kEmptyProject) && ExecuteOnTable(kAttributeTable, kDeleteAttributes(projectName, source));
  }

  bool LoadMarkerAttributeValues(const char* source, const char* wellID, const char* markerName,
                                 std::vector<MarkerAttributeValue>& values) override {
    return LoadValues(kMarkerValues(wellID, markerName, source), values);
  }

  bool LoadWellAttributeValues(const char* source, const char* wellID,
                               std::vector<MarkerAttributeValue>& values) override {
    return LoadValues(kWellValues(wellID, source), values);
  }

  bool LoadProjectAttributeValues(const char* projectName, const char* source, const char* attribName,
                                  std::vector<MarkerAttributeValue>& values) override {
    return LoadValues(kProjectValues(attribName, source, kValueOfProject(projectName)), values);
  }

  // Every value's old row is deleted first (a key that cannot be spliced, or a
  // delete that fails, ends the save before anything is written), then all are
  // written in one save.
  bool SaveAttributeValues(const char* source, const std::vector<MarkerAttributeValue>& values) override {
    std::vector<Statement> deletes;
    std::vector<ValueRow> rows;
    for (const auto& v : values) {
      deletes.push_back(kReplaceValue(v.WellID, v.MarkerName, v.AttribName, source));
      rows.push_back({v, Text0(source)});
    }
    return ReplaceAfter(kSaveValues, DeletesThatMustRun(deletes),
                        [&](CDbManage& db) { kValueColumns.AddRows(db, rows); });
  }

  bool DeleteAttributeValue(const char* projectName, const char* source, const char* wellID, const char* markerName,
                            const char* attribName) override {
    return ExecuteOnTable(kValueTable,
                          kDeleteValue(wellID, markerName, attribName, source, kValueOfProject(projectName)));
  }

  bool DeleteWellAttributeValues(const char* projectName, const char* source, const char* wellID) override {
    return ExecuteOnTable(kValueTable, kDeleteWellValues(wellID, source, kValueOfProject(projectName)));
  }

  bool DeleteAttributeValues(const char* projectName, const char* source, const char* attribName) override {
    return ExecuteOnTable(kValueTable, kDeleteAttribValues(attribName, source, kValueOfProject(projectName)));
  }

  bool DeleteProjectAttributeValues(const char* projectName, const char* source) override {
    return KeyGiven(projectName, kEmptyProject) &&
           ExecuteOnTable(kValueTable, kDeleteProjectValues(source, kValueOfProject(projectName)));
  }
  PETRODB_DATA_CLASS

 private:
  bool LoadMarkers(const Statement& statement, std::vector<MarkerRecord>& records) const {
    return LoadRows(statement, records, Fill::Clear, markers::ReadStored).found();
  }
  bool LoadValues(const Statement& statement, std::vector<MarkerAttributeValue>& values) const {
    return LoadRows(statement, values, Fill::Clear, ReadAs<MarkerAttributeValue>(kValueColumns)).found();
  }
};

PETRODB_REGISTER_CLASS(CSourceData, ISourceData)
