#include <set>

#include "dbaccess/DataObject.h"
#include "network/NetworkCommon.h"
#include "petrodb/production/IProductionData.h"

using namespace petrodb;

namespace {

constexpr Pattern<
    "select w_well_data.wellid from w_well_data where w_well_data.ProjectName = '%s' and exists( select "
    "w_production_data.wellid from w_production_data  where w_well_data.wellid = w_production_data.wellid and "
    "w_production_data.Block = '%s' )  order by w_well_data.wellid ">
    kBlockWells;
constexpr Pattern<
    "select w_well_data.wellid from w_well_data where w_well_data.ProjectName = '%s' and exists( select "
    "w_production_data.wellid from w_production_data where w_well_data.wellid = w_production_data.wellid )  order by "
    "w_well_data.wellid ">
    kProducingWells;
constexpr Pattern<"select * from w_production_data where WellID='%s' order by ProductTime"> kWellRows;
constexpr Pattern<"select WellID from  w_production_data where WellID in (%s)"> kWellsWithRows;
constexpr Pattern<"select * from  w_production_data where ProductTime = '%s' and WellID in (%s)"> kRowsAtTime;
constexpr Pattern<"select * from  w_production_data where WellID='%s'"> kHasRows;
constexpr Pattern<"delete from  w_production_data where WellID ='%s' and ProductTime in (%s)"> kDeleteDates;
constexpr Pattern<"delete from  w_production_data where Block='%s'"> kDeleteBlock;
constexpr Pattern<"delete from  w_production_data where WellID='%s'"> kDeleteWell;
constexpr Pattern<"delete from  w_production_data where WellID in (%s)"> kDeleteWells;
constexpr Pattern<
    "delete from w_production_data where exists( select * from w_well_data where w_well_data.wellid = "
    "w_production_data.wellid and  w_well_data.ProjectName = '%s' )">
    kDeleteProject;

constexpr const char* kTable = "w_production_data";

// The columns after WellID, in the order of the row; the owner's name is written
// to WellID before them.
const ColumnTable<ProductionRecord> kColumns{kTable, {
    Col("ProductTime", &ProductionRecord::ProductTime),
    Col("Block", &ProductionRecord::Block),
    Col("Marker", &ProductionRecord::Marker),
    Col("DailyOilProduction", &ProductionRecord::DailyOilProduction),
    Col("DailyGasProduction", &ProductionRecord::DailyGasProduction),
    Col("DailyWaterProduction", &ProductionRecord::DailyWaterProduction),
    Col("DailyFluidProduction", &ProductionRecord::DailyFluidProduction),
    Col("WorkingLevel", &ProductionRecord::WorkingLevel),
    Col("CumulativeOilProduction", &ProductionRecord::CumulativeOilProduction),
    Col("CumulativeGasProduction", &ProductionRecord::CumulativeGasProduction),
    Col("CumulativeWaterProduction", &ProductionRecord::CumulativeWaterProduction),
    Col("MonthlyOilProduction", &ProductionRecord::MonthlyOilProduction),
    Col("MonthlyGasProduction", &ProductionRecord::MonthlyGasProduction),
    Col("MonthlyWaterProduction", &ProductionRecord::MonthlyWaterProduction),
    Col("YearlyOilProduction", &ProductionRecord::YearlyOilProduction),
    Col("YearlyGasProduction", &ProductionRecord::YearlyGasProduction),
    Col("YearlyWaterProduction", &ProductionRecord::YearlyWaterProduction),
    Col("WaterPercentage", &ProductionRecord::WaterPercentage),
    Col("Demo", &ProductionRecord::Demo),
}};

// A row of one date: everything but the time and the block, which the caller gave.
const auto kReadAtTime = network::Selected(
    kColumns, {"Marker", "DailyOilProduction", "DailyGasProduction", "DailyWaterProduction", "DailyFluidProduction",
               "WorkingLevel", "CumulativeOilProduction", "CumulativeGasProduction", "CumulativeWaterProduction",
               "MonthlyOilProduction", "MonthlyGasProduction", "MonthlyWaterProduction", "YearlyOilProduction",
               "YearlyGasProduction", "YearlyWaterProduction", "WaterPercentage", "Demo"});

constexpr Message kEmptyWell = AppMessage("井号不能为空！");
constexpr Message kEmptyBlock = AppMessage("区块名称不能为空！");
constexpr Message kEmptyProject = AppMessage("工区名称不能为空！");

const ReplaceSteps kSave{kTable};

std::vector<std::string> WellIds(const std::vector<WellProduction>& wells) {
  std::vector<std::string> ids;
  for (const auto& w : wells) ids.push_back(w.wellId);
  return ids;
}

// The delete of the dates a well's records carry (distinct, in text order);
// none for a well without records.
std::vector<Statement> DateDeletes(const WellProduction& well) {
  if (well.records.empty()) return {};
  std::set<std::string> times;
  for (const auto& r : well.records) times.insert(r.ProductTime);
  const std::vector<std::string> sorted(times.begin(), times.end());
  return {kDeleteDates(well.wellId, sql::QuoteEach(sorted))};
}

void AddWellRows(CDbManage& db, const WellProduction& well) {
  for (const auto& r : well.records) kColumns.AddKeyedRow(db, "WellID", well.wellId, r);
}

}  // namespace

class CProductionData final : public CDataObject<IProductionData> {
 public:
  bool ListBlockProducingWells(const char* project, const char* block, std::vector<std::string>& wells) override {
    return ListColumn(kBlockWells(project, block), "WellID", wells, Fill::Clear).found();
  }

  bool ListProducingWells(const char* project, std::vector<std::string>& wells) override {
    return ListColumn(kProducingWells(project), "WellID", wells, Fill::Clear).found();
  }

  bool LoadWellProduction(const char* well, WellProduction& production) override {
    production.wellId = well;
    return LoadAll(kWellRows(well), kColumns, production.records, Fill::Append).ran();
  }

  bool ListWellsWithProduction(const std::vector<WellProduction>& wells, std::vector<std::string>& names) override {
    if (!TableAnswers(kTable)) return false;
    const auto ids = WellIds(wells);
    return ListColumn(kWellsWithRows(sql::QuoteEach(ids)), "WellID", names, Fill::Append).found();
  }

  bool LoadBlockProductionAtTime(const char* project, const char* block, const char* time,
                                 std::vector<WellProduction>& productions) override {
    std::vector<std::string> names;
    ListBlockProducingWells(project, block, names);
    // As many wells as the caller's list held on entry, not as many as were found.
    names.resize(std::min(names.size(), productions.size()));
    productions.clear();
    return LoadRows(kRowsAtTime(time, sql::QuoteEach(names)), productions, Fill::Append,
                    [&](CDbManage& row, WellProduction& entry) {
                      ProductionRecord record;
                      record.ProductTime = time;
                      record.Block = block;
                      if (!row.GetFieldValue("WellID", entry.wellId) || !kReadAtTime(row, record)) return false;
                      entry.records.push_back(std::move(record));
                      return true;
                    })
        .ran();
  }

  bool LoadBlockProduction(const char* project, const char* block, std::vector<WellProduction>& productions) override {
    std::vector<std::string> names;
    return ListBlockProducingWells(project, block, names) && LoadEach(names, productions);
  }

  bool LoadProjectProduction(const char* project, std::vector<WellProduction>& productions) override {
    std::vector<std::string> names;
    return ListProducingWells(project, names) && LoadEach(names, productions);
  }

  bool HasProduction(const char* well) override {
    return KeyGiven(well, kEmptyWell) && ExistsInTable(kTable, kHasRows(well));
  }

  bool SaveWellProduction(const WellProduction& production) override {
    if (!KeyGiven(production.wellId, kEmptyWell)) return false;
    const auto deletes = DateDeletes(production);
    return ReplaceAfter(kSave, DeletesThatMustRun(deletes), [&](CDbManage& db) { AddWellRows(db, production); });
  }

  bool SaveProductions(const std::vector<WellProduction>& productions) override {
    if (productions.empty()) return false;
    std::vector<Statement> deletes;
    for (const auto& well : productions)
      for (auto& d : DateDeletes(well)) deletes.push_back(std::move(d));
    return ReplaceAfter(kSave, DeletesThatMustRun(deletes), [&](CDbManage& db) {
      for (const auto& well : productions) AddWellRows(db, well);
    });
  }

  bool DeleteBlockProduction(const char* block) override {
    return KeyGiven(block, kEmptyBlock) && ExecuteIfTable(kTable, kDeleteBlock(block));
  }

  bool DeleteWellProduction(const char* well) override {
    return KeyGiven(well, kEmptyWell) && ExecuteIfTable(kTable, kDeleteWell(well));
  }

  bool DeleteWellsProduction(const std::vector<std::string>& wells) override {
    return !wells.empty() && ExecuteIfTable(kTable, kDeleteWells(sql::QuoteEach(wells)));
  }

  bool DeleteProjectProduction(const char* project) override {
    return KeyGiven(project, kEmptyProject) && ExecuteIfTable(kTable, kDeleteProject(project));
  }

 private:
  // Each well's history into a fresh entry, appended; false at the first load
  // that fails, or when the list is still empty at the end.
  bool LoadEach(const std::vector<std::string>& names, std::vector<WellProduction>& productions) {
    for (const auto& name : names) {
      WellProduction entry;
      if (!LoadWellProduction(name.c_str(), entry)) return false;
      productions.push_back(std::move(entry));
    }
    return !productions.empty();
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CProductionData, IProductionData)
