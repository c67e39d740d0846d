#include <string>

#include "dbaccess/DataObject.h"
#include "petrodb/seismic/ISeismicVSPData.h"

using namespace petrodb;

namespace {

constexpr const char* kTable = "b_seismic_well_vsp";

// The subquery is never closed: the statement cannot run as written.
constexpr Pattern<"select w_well_data.wellid from w_well_data where w_well_data.ProjectName = '%s' and exists ( "
                  "select b_seismic_well_vsp.wellid from b_seismic_well_vsp where b_seismic_well_vsp.wellid = "
                  "w_well_data.wellid order by w_well_data.wellid">
    kVspWells;
constexpr Pattern<"select VSPID from b_seismic_well_vsp"> kAllIds;
constexpr Pattern<"select VSPID from b_seismic_well_vsp where WellID = '%s'"> kWellIds;
constexpr Pattern<"select * from b_seismic_well_vsp where WellID = '%s'"> kLoadWell;
constexpr Pattern<"select WellID, TVDSSDepth, TWTDepth from b_seismic_well_vsp where  VSPID = '%s'"> kLoadRun;
constexpr Pattern<"select * from b_seismic_well_vsp order by WellID,VSPID"> kLoadAll;
constexpr Pattern<"select WellID from b_seismic_well_vsp where WellID = '%s'"> kWellHasRuns;
constexpr Pattern<"select max(ID) as A from b_seismic_well_vsp"> kGreatestID;
constexpr Pattern<"delete from b_seismic_well_vsp where WellID = '%s' and VSPID = '%s'"> kDeleteRun;
constexpr Pattern<"delete from b_seismic_well_vsp where WellID = '%s'"> kDeleteWell;

// Arrays are written as zero-length values when empty.
const ColumnTable<WellVspRecord> kRunColumns{kTable, {
    Col("WellID", &WellVspRecord::WellID),
    Col("VSPID", &WellVspRecord::VSPID),
    Col("TVDSSDepth", &WellVspRecord::TVDSSDepth).EmptyAsZeroLength(),
    Col("TWTDepth", &WellVspRecord::TWTDepth).EmptyAsZeroLength(),
}};
// Loading one run by its identifier reads its well and arrays only.
const ColumnTable<WellVspRecord> kRunByIdColumns{kTable, {
    Col("WellID", &WellVspRecord::WellID),
    Col("TVDSSDepth", &WellVspRecord::TVDSSDepth),
    Col("TWTDepth", &WellVspRecord::TWTDepth),
}};

}  // namespace

class CSeismicVSPData final : public CDataObject<ISeismicVSPData> {
 public:
  bool GetVspWells(const char* project, std::vector<std::string>& wellIDs) override {
    return ListColumn(kVspWells(project), "WellID", wellIDs, Fill::Clear).found();
  }

  bool GetAllVspIds(std::vector<std::string>& ids) override {
    return ListColumn(kAllIds(), "VSPID", ids, Fill::Clear).found();
  }

  bool GetWellVspIds(const char* wellID, std::vector<std::string>& ids) override {
    return ListColumn(kWellIds(wellID), "VSPID", ids, Fill::Clear).found();
  }

  bool LoadWellVsp(const char* wellID, std::vector<WellVspRecord>& runs) override {
    return LoadAll(kLoadWell(wellID), kRunColumns, runs, Fill::Clear, true).found();
  }

  bool LoadVsp(const char* vspID, WellVspRecord& run) override {
    return LoadOne(kLoadRun(vspID), kRunByIdColumns, run, true);
  }

  bool LoadAllVsp(std::map<std::string, std::vector<WellVspRecord>>& byWell) override {
    byWell.clear();
    std::vector<WellVspRecord> runs;
    const Loaded loaded = LoadAll(kLoadAll(), kRunColumns, runs, Fill::Clear, true);
    for (auto& run : runs) byWell[run.WellID].push_back(std::move(run));
    return loaded.found();
  }

  bool HasWellVsp(const char* wellID) override { return ExistsInTable(kTable, kWellHasRuns(wellID)); }

  bool SaveVsp(WellVspRecord& run) override {
    if (run.VSPID.find(run.WellID + "_") == std::string::npos) {
      // The greatest ID is NULL on an empty table: the run is then the first.
      int greatest = 0;
      const int next = LoadField(kGreatestID(), "A", greatest) ? greatest + 1 : 1;
      run.VSPID = run.WellID + "_" + std::to_string(next);
    }
    return Save(ReplaceSteps{kTable}, [&](CDbManage& db) { kRunColumns.AddRow(db, run); });
  }

  bool DeleteVsp(const char* wellID, const char* vspID) override {
    return ExecuteOnTable(kTable, kDeleteRun(wellID, vspID));
  }

  bool DeleteWellVsp(const char* wellID) override { return ExecuteOnTable(kTable, kDeleteWell(wellID)); }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CSeismicVSPData, ISeismicVSPData)
