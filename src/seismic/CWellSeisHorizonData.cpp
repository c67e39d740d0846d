#include "dbaccess/DataObject.h"
#include "petrodb/seismic/IWellSeisHorizon.h"
#include "seismic/SeismicCodecs.h"

using namespace petrodb;

namespace {

constexpr Pattern<"select w_well_data.wellid from w_well_data where w_well_data.ProjectName = '%s' and exists( select "
                  "w_seismic_horizon.wellid from w_seismic_horizon where w_well_data.wellid = "
                  "w_seismic_horizon.wellid )  order by w_well_data.wellid ">
    kWellsOfProject;
constexpr Pattern<"select * from w_seismic_horizon order by WellID,dTopMD"> kLoadAll;
constexpr Pattern<"select * from w_seismic_horizon where WellID='%s' order by dTopMD "> kLoadWell;
constexpr Pattern<"select WellID from w_seismic_horizon where WellID='%s' "> kWellHasRows;
constexpr Pattern<"delete from w_seismic_horizon "> kDeleteAll;
constexpr Pattern<"delete from  w_seismic_horizon where WellID='%s'"> kDeleteWell;
constexpr Pattern<"delete from  w_seismic_horizon where WellID in (%s)"> kDeleteWells;

constexpr const char* kTable = "w_seismic_horizon";

// Rows are written under the well they are filed under. A NULL depth or time
// leaves the preset -99999.0.
const ColumnTable<WellSeisHorizon> kColumns{kTable, {
    Col("WellID", &WellSeisHorizon::WellID).ReadOnly(),
    Col("SeisHorizonName", &WellSeisHorizon::SeisHorizonName),
    Col("dTopMD", &WellSeisHorizon::dTopMD).Optional(),
    Col("dTime", &WellSeisHorizon::dTime).Optional(),
}};

void AddWellRows(CDbManage& db, const std::string& well, const std::vector<WellSeisHorizon>& horizons) {
  for (const auto& h : horizons) kColumns.AddKeyedRow(db, "WellID", well, h);
}

constexpr Message kEmptyWell = AppMessage("井号不能为空！");

}  // namespace

class CWellSeisHorizonData final : public CDataObject<IWellSeisHorizon> {
 public:
  bool GetWellsWithHorizons(const char* project, std::vector<std::string>& wellIDs) override {
    return ListColumn(kWellsOfProject(project), "WellID", wellIDs, Fill::Clear).ran();
  }

  bool LoadAllWellHorizons(std::map<std::string, std::vector<WellSeisHorizon>>& byWell) override {
    byWell.clear();
    std::vector<WellSeisHorizon> rows;
    const Loaded loaded = LoadAll(kLoadAll(), kColumns, rows, Fill::Clear);
    seismic::KeyChanges<std::string> well;
    std::vector<WellSeisHorizon>* group = nullptr;
    for (auto& row : rows) {
      if (well.Next(row.WellID)) group = &byWell[row.WellID];
      group->push_back(std::move(row));
    }
    return loaded.ran();
  }

  bool LoadWellHorizons(const char* wellID, std::vector<WellSeisHorizon>& horizons) override {
    return LoadAll(kLoadWell(wellID), kColumns, horizons, Fill::Clear).ran();
  }

  bool HasWellHorizons(const char* wellID) override { return Exists(kWellHasRows(wellID)); }

  bool SaveWellsHorizons(const std::map<std::string, std::vector<WellSeisHorizon>>& byWell) override {
    std::vector<std::string> ids;
    for (const auto& [id, horizons] : byWell) ids.push_back(id);
    if (kDeleteWells(sql::QuoteEach(ids)).refused()) return false;
    return ReplaceAfter(ReplaceSteps{kTable}, Regardless([&] { DeleteWellsHorizons(ids); }), [&](CDbManage& db) {
      for (const auto& [id, horizons] : byWell) AddWellRows(db, id, horizons);
    });
  }

  bool SaveWellHorizons(const char* wellID, const std::vector<WellSeisHorizon>& horizons) override {
    if (!KeyGiven(wellID, kEmptyWell)) return false;
    if (kDeleteWell(wellID).refused()) return false;
    return ReplaceAfter(ReplaceSteps{kTable}, Regardless([&] { DeleteWellHorizons(wellID); }),
                        [&](CDbManage& db) { AddWellRows(db, wellID, horizons); });
  }

  bool DeleteAllWellHorizons() override { return Execute(kDeleteAll()); }

  bool DeleteWellHorizons(const char* wellID) override { return Execute(kDeleteWell(wellID)); }

  bool DeleteWellsHorizons(const std::vector<std::string>& wellIDs) override {
    return Execute(kDeleteWells(sql::QuoteEach(wellIDs)));
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CWellSeisHorizonData, IWellSeisHorizon)
