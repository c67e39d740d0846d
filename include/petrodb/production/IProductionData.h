#pragma once
// Production histories: one row per well and reporting date in
// w_production_data. A well's history is its name and its records; the product
// time is text, kept and compared exactly as written, so "ordered by time" is
// the database's ordering of that text.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct ProductionRecord {
  std::string ProductTime;
  std::string Block;
  std::string Marker;  // producing layer
  double DailyOilProduction = 0;
  double DailyGasProduction = 0;
  double DailyWaterProduction = 0;
  double DailyFluidProduction = 0;
  double WorkingLevel = 0;
  double CumulativeOilProduction = 0;
  double CumulativeGasProduction = 0;
  double CumulativeWaterProduction = 0;
  double MonthlyOilProduction = 0;
  double MonthlyGasProduction = 0;
  double MonthlyWaterProduction = 0;
  double YearlyOilProduction = 0;
  double YearlyGasProduction = 0;
  double YearlyWaterProduction = 0;
  double WaterPercentage = 0;
  std::string Demo;  // remark
};

// One well's history; wellId is written to WellID of every row.
struct WellProduction {
  std::string wellId;
  std::vector<ProductionRecord> records;
};

class PETRODB_API IProductionData : public IDataBase {
 public:
  // The project's wells with at least one row of the block, ordered by name.
  // Emptied first; false when there is none or a name cannot be read.
  virtual bool ListBlockProducingWells(const char* project, const char* block, std::vector<std::string>& wells) = 0;
  // The project's wells with at least one row, ordered. As above.
  virtual bool ListProducingWells(const char* project, std::vector<std::string>& wells) = 0;
  // Sets production.wellId and APPENDS the well's rows ordered by time. True
  // also for a well without rows; false when the query fails or a field cannot
  // be read (the rows appended before it stay).
  virtual bool LoadWellProduction(const char* well, WellProduction& production) = 0;
  // APPENDS the names among the given wells that already have rows. False when
  // the table is missing or none has rows (an empty list sends "in ()", which fails).
  virtual bool ListWellsWithProduction(const std::vector<WellProduction>& wells, std::vector<std::string>& names) = 0;
  // The rows of one date of the block's producing wells, one entry per row
  // (its product time and block are the arguments). Only as many producing
  // wells are asked for as `productions` held on entry (an empty list asks for
  // "in ()" and fails); the list is then emptied and filled. False when a field
  // cannot be read.
  virtual bool LoadBlockProductionAtTime(const char* project, const char* block, const char* time,
                                         std::vector<WellProduction>& productions) = 0;
  // ListBlockProducingWells, then LoadWellProduction of each, APPENDED. False
  // when a load fails (at once) or the list is still empty.
  virtual bool LoadBlockProduction(const char* project, const char* block, std::vector<WellProduction>& productions) = 0;
  // ListProducingWells, then LoadWellProduction of each, APPENDED; as above.
  virtual bool LoadProjectProduction(const char* project, std::vector<WellProduction>& productions) = 0;
  // True when the well has a row. An empty name shows "井号不能为空！".
  virtual bool HasProduction(const char* well) = 0;
  // Replaces the well's rows of the dates it carries, then appends its records;
  // rows at other dates stay. An empty wellId shows "井号不能为空！"; a missing
  // table fails silently. On failure nothing is written.
  virtual bool SaveWellProduction(const WellProduction& production) = 0;
  // SaveWellProduction for many wells in one save; an empty list is false.
  virtual bool SaveProductions(const std::vector<WellProduction>& productions) = 0;
  // The deletes: true once the statement was sent (what it did is not looked
  // at), false when the table is missing. Empty names show "区块名称不能为空！",
  // "井号不能为空！" or "工区名称不能为空！"; an empty well list is false.
  virtual bool DeleteBlockProduction(const char* block) = 0;
  virtual bool DeleteWellProduction(const char* well) = 0;
  virtual bool DeleteWellsProduction(const std::vector<std::string>& wells) = 0;
  virtual bool DeleteProjectProduction(const char* project) = 0;
};
