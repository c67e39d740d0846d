#include "dbaccess/DataObject.h"
#include "petrodb/seismic/IStructureData.h"

using namespace petrodb;

namespace {

constexpr Pattern<"select distinct s_structure_data.markername from s_structure_data where ProjectName = '%s'">
    kMarkerNames;
constexpr Pattern<"select * from s_structure_data where MarkerName='%s' and ProjectName = '%s'"> kLoadMap;
constexpr Pattern<"select * from s_structure_data where ProjectName='%s'"> kLoadProject;
constexpr Pattern<"select * from  s_structure_data where MarkerName='%s' and ProjectName='%s'"> kMapExists;
constexpr Pattern<"delete from s_structure_data where MarkerName='%s' and\t\tProjectName='%s'"> kReplaceMap;
constexpr Pattern<"select MarkerName from  s_structure_data where MarkerName in (%s)\t\tand ProjectName='%s'">
    kExisting;
constexpr Pattern<"delete from s_structure_data where MarkerName='%s' and \t\t\t\t\t  ProjectName='%s'"> kDeleteMap;
constexpr Pattern<"delete from  s_structure_data where MarkerName in (%s) and ProjectName='%s'"> kDeleteMaps;
constexpr Pattern<"delete from s_structure_data where ProjectName='%s'"> kDeleteProject;

constexpr const char* kTable = "s_structure_data";

const ColumnTable<StructureRecord> kColumns{kTable, {
    Col("ProjectName", &StructureRecord::ProjectName),
    Col("MarkerName", &StructureRecord::MarkerName),
    Col("Xcoor", &StructureRecord::Xcoor).EmptyAsZeroLength(),
    Col("Ycoor", &StructureRecord::Ycoor).EmptyAsZeroLength(),
    Col("Depth", &StructureRecord::Depth).EmptyAsZeroLength(),
    Col("MinXcoor", &StructureRecord::MinXcoor).WriteOnly(),
    Col("MaxXcoor", &StructureRecord::MaxXcoor).WriteOnly(),
    Col("MinYcoor", &StructureRecord::MinYcoor).WriteOnly(),
    Col("MaxYcoor", &StructureRecord::MaxYcoor).WriteOnly(),
}};

// The map as written: under `project`, with its bounding box. The box starts
// at minima 1e30 and maxima -99999.0 (kept so on purpose) and takes every
// point of the Y vector, each value tested against both ends.
StructureRecord AsWritten(const char* project, StructureRecord map) {
  map.ProjectName = project;
  map.MinXcoor = map.MinYcoor = 1e30;
  map.MaxXcoor = map.MaxYcoor = -99999.0;
  auto take = [](double v, double& lo, double& hi) {
    if (v >= hi) hi = v;
    if (v < lo) lo = v;
  };
  for (std::size_t i = 0; i < map.Ycoor.size(); ++i) {
    if (i < map.Xcoor.size()) take(map.Xcoor[i], map.MinXcoor, map.MaxXcoor);
    take(map.Ycoor[i], map.MinYcoor, map.MaxYcoor);
  }
  return map;
}

constexpr Message kEmptyMarker = AppMessage("层名称不能为空！");

}  // namespace

class CStructureData final : public CDataObject<IStructureData> {
 public:
  bool GetMarkerNames(const char* project, std::vector<std::string>& names) override {
    return ListColumn(kMarkerNames(project), "MarkerName", names, Fill::Clear).ran();
  }

  bool LoadStructure(const char* project, const char* marker, StructureRecord& map) override {
    return LoadOne(kLoadMap(marker, project), kColumns, map, true);
  }

  bool LoadProjectStructures(const char* project, std::vector<StructureRecord>& maps) override {
    return LoadAll(kLoadProject(project), kColumns, maps, Fill::Clear, true).ran();
  }

  bool IsStructureExist(const char* project, const char* marker) override {
    return ExistsInTable(kTable, kMapExists(marker, project));
  }

  bool SaveStructure(const char* project, const StructureRecord& map) override {
    if (!KeyGiven(map.MarkerName, kEmptyMarker)) return false;
    return Replace(ReplaceSteps{kTable}, kReplaceMap(map.MarkerName, project),
                   [&](CDbManage& db) { kColumns.AddRow(db, AsWritten(project, map)); });
  }

  bool GetExistingMarkers(const char* project, const std::vector<std::string>& names,
                          std::vector<std::string>& existing) override {
    return ListColumn(kExisting(sql::QuoteEach(names), project), "MarkerName", existing, Fill::Clear).ran();
  }

  bool SaveStructures(const char* project, const std::vector<StructureRecord>& maps) override {
    return Save(ReplaceSteps{kTable}, [&](CDbManage& db) {
      for (const auto& map : maps) kColumns.AddRow(db, AsWritten(project, map));
    });
  }

  bool DeleteStructure(const char* project, const char* marker) override {
    return KeyGiven(marker, kEmptyMarker) && Execute(kDeleteMap(marker, project));
  }

  bool DeleteStructures(const char* project, const std::vector<std::string>& names) override {
    return Execute(kDeleteMaps(sql::QuoteEach(names), project));
  }

  bool DeleteProjectStructures(const char* project) override { return Execute(kDeleteProject(project)); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CStructureData, IStructureData)
