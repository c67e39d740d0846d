#include <utility>

#include "dbaccess/DataObject.h"
#include "petrodb/welllog/ITargetData.h"

using namespace petrodb;

namespace {

constexpr Pattern<"select w_well_data.wellid from w_well_data where w_well_data.ProjectName = '%s' and exists( "
                  "select w_target.UIDWELL from w_target where w_well_data.wellid = w_target.UIDWELL )  order by "
                  "w_well_data.wellid ">
    kTargetWells;
constexpr Pattern<"select distinct TARGETNAME from w_target where exists( select wellid from \t\tw_well_data where "
                  "w_well_data.ProjectName = '%s' and w_well_data.wellid=w_target.UIDWELL)\t\torder by TARGETNAME">
    kProjectNames;
constexpr Pattern<"select distinct TARGETNAME from w_target where UIDWELL='%s' order by TARGETNAME"> kWellNames;
constexpr Pattern<"select * from w_target where TARGETNAME = '%s' and exists( select wellid from \t\tw_well_data "
                  "where w_well_data.ProjectName = '%s' and w_well_data.wellid = w_target.UIDWELL)\t\torder by TVD">
    kByName;
constexpr Pattern<"select * from w_target where TargetName in(%s) and w_target.UIDWELL='%s' and exists( select "
                  "wellid from w_well_data where\t\tw_well_data.ProjectName ='%s' and w_well_data.wellid = "
                  "w_target.UIDWELL )">
    kWellOfProjectByNames;
constexpr Pattern<"select * from w_target  where exists( select wellid from w_well_data where \t\t"
                  "w_well_data.ProjectName = '%s'and w_well_data.wellid = w_target.UIDWELL ) order by \t\tTARGETNAME">
    kProject;
constexpr Pattern<"select * from  w_target where UIDWELL = '%s' and TARGETNAME in (%s) order by TVD "> kWellByNames;
constexpr Pattern<"select * from w_target where UIDWELL = '%s' order by TVD "> kWell;
constexpr Pattern<"delete from w_target where UIDWELL in (%s)"> kDeleteWells;
constexpr Pattern<"delete from w_target where exists( select wellid from w_well_data \t\twhere "
                  "w_well_data.ProjectName = '%s' and w_well_data.wellid = w_target.UIDWELL )">
    kDeleteProject;
constexpr Pattern<"delete from w_target where UIDWELL = '%s'"> kDeleteWell;
constexpr Pattern<"delete from w_target where TARGETNAME = '%s' and exists( select wellid\t\tfrom w_well_data where "
                  "w_well_data.ProjectName = '%s' and w_well_data.wellid = w_target.UIDWELL)">
    kDeleteNameOfProject;
constexpr Pattern<"select UIDWELL from  w_target where UIDWELL='%s'"> kTargetExists;

constexpr const char* kTable = "w_target";

const ColumnTable<DrillingTarget> kTargetColumns{kTable, {
    Col("UIDWELL", &DrillingTarget::UIDWELL),
    Col("TARGETNAME", &DrillingTarget::TARGETNAME),
    Col("MODFITIME", &DrillingTarget::MODFITIME),
    Col("MD", &DrillingTarget::MD),
    Col("TVD", &DrillingTarget::TVD),
    Col("TVDSS", &DrillingTarget::TVDSS),
    Col("X", &DrillingTarget::X),
    Col("Y", &DrillingTarget::Y),
    Col("INCLINATION", &DrillingTarget::INCLINATION),
    Col("AZIMUTH", &DrillingTarget::AZIMUTH),
    Col("LATITUDE", &DrillingTarget::LATITUDE),
    Col("LONGITUDE", &DrillingTarget::LONGITUDE),
    Col("BS", &DrillingTarget::BS),
    Col("BX", &DrillingTarget::BX),
    Col("BZ", &DrillingTarget::BZ),
    Col("BAY", &DrillingTarget::BAY),
}};

const ReplaceSteps kInsertAfterDelete{kTable, Probe::AfterDelete};

}  // namespace

class CTargetData final : public CDataObject<ITargetData> {
 public:
  bool GetTargetWellIDs(const char* projectName, std::vector<std::string>& wellIDs) override {
    return ListInto(kTargetWells(projectName), "WellID", wellIDs);
  }
  bool GetProjectTargetNames(const char* projectName, std::vector<std::string>& names) override {
    return ListInto(kProjectNames(projectName), "TARGETNAME", names);
  }
  bool GetWellTargetNames(const char* wellID, std::vector<std::string>& names) override {
    return ListInto(kWellNames(wellID), "TARGETNAME", names);
  }
  bool LoadTargetsByName(const char* projectName, const char* targetName,
                         std::vector<DrillingTarget>& targets) override {
    return LoadInto(kByName(targetName, projectName), targets);
  }
  bool LoadWellTargetsOfProject(const char* projectName, const char* wellID, const std::vector<std::string>& names,
                                std::vector<DrillingTarget>& targets) override {
    return LoadInto(kWellOfProjectByNames(sql::QuoteEach(names), wellID, projectName), targets);
  }
  bool LoadProjectTargets(const char* projectName, std::vector<DrillingTarget>& targets) override {
    return LoadInto(kProject(projectName), targets);
  }
  bool LoadWellTargetsByName(const char* wellID, const std::vector<std::string>& names,
                             std::vector<DrillingTarget>& targets) override {
    return LoadInto(kWellByNames(wellID, sql::QuoteEach(names)), targets);
  }
  bool LoadWellTargets(const char* wellID, std::vector<DrillingTarget>& targets) override {
    return LoadInto(kWell(wellID), targets);
  }

  // The listed wells' targets go through DeleteTargetsOfWells, which must succeed.
  bool SaveTargets(const std::vector<DrillingTarget>& targets) override {
    std::vector<std::string> wells;
    for (const auto& t : targets) wells.push_back(t.UIDWELL);
    return InsertAfter([&] { return DeleteTargetsOfWells(wells); }, targets);
  }

  // The argument selects what is deleted; each record keeps its own well.
  bool SaveWellTargets(const char* wellID, const std::vector<DrillingTarget>& targets) override {
    return InsertAfter([&] { return DeleteWellTargets(wellID); }, targets);
  }

  bool DeleteTargetsOfWells(const std::vector<std::string>& wellIDs) override {
    return ExecuteOnTable(kTable, kDeleteWells(sql::QuoteEach(wellIDs)));
  }
  bool DeleteProjectTargets(const char* projectName) override {
    return ExecuteOnTable(kTable, kDeleteProject(projectName));
  }
  bool DeleteWellTargets(const char* wellID) override { return ExecuteOnTable(kTable, kDeleteWell(wellID)); }
  bool DeleteTargetOfProject(const char* projectName, const char* targetName) override {
    return ExecuteOnTable(kTable, kDeleteNameOfProject(targetName, projectName));
  }
  bool IsTargetExist(const char* wellID) override { return ExistsInTable(kTable, kTargetExists(wellID)); }
  PETRODB_DATA_CLASS

 private:
  // Lists and loads that find no row leave the caller's vector as it was.
  bool ListInto(const Statement& statement, const char* column, std::vector<std::string>& out) const {
    std::vector<std::string> rows;
    if (!ListColumn(statement, column, rows, Fill::Clear).found()) return false;
    out = std::move(rows);
    return true;
  }
  bool LoadInto(const Statement& statement, std::vector<DrillingTarget>& out) const {
    std::vector<DrillingTarget> rows;
    if (!LoadAll(statement, kTargetColumns, rows, Fill::Clear).found()) return false;
    out = std::move(rows);
    return true;
  }
  // Runs the removal (another operation of this object; false ends the save),
  // then, when the table answers, writes every record and saves them at once.
  template <class RemoveFn>
  bool InsertAfter(RemoveFn remove, const std::vector<DrillingTarget>& targets) {
    return ReplaceAfter(kInsertAfterDelete, [&](CDbManage&) { return remove(); },
                        [&](CDbManage& db) { kTargetColumns.AddRows(db, targets); });
  }
};

PETRODB_REGISTER_CLASS(CTargetData, ITargetData)
