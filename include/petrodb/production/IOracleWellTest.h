#pragma once
// Injection wells' daily data read from the external production database's
// views V_DAA01 (organisation: plant CM, unit KM, block QKDY) and V_DBA02
// (daily data: plant, unit, station ZM, well JH, date RQ and the figures).
// Read only. Dates are "YYYY-MM-DD" texts, read by the database's to_date.
// Lists are emptied first; every operation answers false when the statement
// finds no row or cannot run, and shows no message.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct OracleWellTestRecord {
  std::string JH;    // well
  std::string RQ;    // date, as stored ("YYYY-MM-DD HH:MM:SS")
  double SCSJ = 0;   // production hours
  double RPZSL = 0;  // planned daily injection
  double RZSL = 0;   // actual daily injection
  double GXYL = 0;   // line pressure
  double YY = 0;     // tubing pressure
  double TY = 0;     // casing pressure
};

class PETRODB_API IOracleWellTest : public IDataBase {
 public:
  virtual bool ListPlants(std::vector<std::string>& plants) = 0;
  virtual bool ListUnits(const char* plant, std::vector<std::string>& units) = 0;
  // The statement puts a blank before the unit (KM =' <unit>'): it finds only
  // units stored with a leading blank.
  virtual bool ListBlocks(const char* plant, const char* unit, std::vector<std::string>& blocks) = 0;
  virtual bool ListStations(const char* plant, const char* unit, std::vector<std::string>& stations) = 0;
  // Every date with data, ordered.
  virtual bool ListDates(std::vector<std::string>& dates) = 0;
  // The unit's wells with data between the two dates (both included).
  virtual bool ListWells(const char* from, const char* to, const char* unit, std::vector<std::string>& wells) = 0;
  virtual bool LoadStationTests(const char* plant, const char* unit, const char* from, const char* to,
                                const char* station, std::vector<OracleWellTestRecord>& records) = 0;
  // The given wells' data between the two dates; an empty list fails ("in()").
  virtual bool LoadWellTests(const char* from, const char* to, const std::vector<std::string>& wells,
                             std::vector<OracleWellTestRecord>& records) = 0;
  // Every row, by station.
  virtual bool LoadAllTests(std::vector<OracleWellTestRecord>& records) = 0;
};
