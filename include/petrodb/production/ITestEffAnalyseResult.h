#pragma once
// The stations' efficiency analysis by production unit: the view v_sta_unit,
// read only. Each row is a station's analysis of a date beside the unit of a
// network that holds the station. `date` arguments are the caller's date
// literals, spliced unquoted; dates read back as "YYYY-MM-DD HH:MM:SS". Lists
// are emptied first; failures are silent.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"
#include "petrodb/production/ITestEffAnalyseData.h"

struct TestEffAnalyseResultRecord {
  std::string StaName;
  std::string UnitName;  // production unit
  std::string Scrq;
  EffAnalyseValues values;
};

class PETRODB_API ITestEffAnalyseResult : public IDataBase {
 public:
  // The station's analysis of the date. False when there is none or a field
  // cannot be read (the fields read before it are set).
  virtual bool LoadEffResult(const char* station, const char* date, TestEffAnalyseResultRecord& record) = 0;
  // The analyses dated between the two literals. False when there is none, or
  // at the first row that cannot be read (the rows before it stay).
  virtual bool LoadEffResultsBetween(const char* date1, const char* date2,
                                     std::vector<TestEffAnalyseResultRecord>& records) = 0;
  // As LoadEffResultsBetween, for the stations of one unit.
  virtual bool LoadUnitEffResultsBetween(const char* unit, const char* date1, const char* date2,
                                         std::vector<TestEffAnalyseResultRecord>& records) = 0;
  // The dates with an analysis of the unit's stations, ordered.
  virtual bool ListUnitEffResultDates(const char* unit, std::vector<std::string>& dates) = 0;
  // The dates with an analysis of any station in a network, ordered.
  virtual bool ListEffResultDates(std::vector<std::string>& dates) = 0;
};
