#pragma once
// Injection wells' daily readings (d_well_test), by well (Jh) and production
// date (Scrq). `date` arguments are the caller's date literal of the database
// (#2024-1-5# on an Access file, '2024-01-05' on a server): they are spliced
// into the statements unquoted. Lists are emptied first. A loaded Scrq reads
// back as "YYYY-MM-DD HH:MM:SS", which is no literal: saving a loaded record as
// it is does not find its own row to replace and adds a second one. Network
// reads and deletes take the wells of a network from n_nodes (node type 2).
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct WellTestRecord {
  std::string Jh;    // injection well
  std::string Scrq;  // production date: a literal when saving, the stored date when loaded
  double Scsj = 0;   // production hours
  double Rpzl = 0;   // planned daily injection
  double Rzsl = 0;   // actual daily injection
  double Gxyl = 0;   // line pressure
  double Yy = 0;     // tubing pressure
  double Ty = 0;     // casing pressure
  double Xjsl = 0;
};

class PETRODB_API IWellTest : public IDataBase {
 public:
  // The well's reading of the date; false when there is none or a field cannot be read.
  virtual bool LoadWellTest(const char* jh, const char* date, WellTestRecord& record) = 0;
  // Wells whose name begins with the prefix, dates between the two literals
  // (each must end in its own delimiter: the text runs "date1and date2").
  virtual bool LoadWellTestsLikeBetween(const char* prefix, const char* date1, const char* date2,
                                        std::vector<WellTestRecord>& records) = 0;
  virtual bool LoadWellTestsOfWell(const char* jh, std::vector<WellTestRecord>& records) = 0;
  virtual bool LoadWellTestsOfWellByDate(const char* jh, std::vector<WellTestRecord>& records) = 0;
  virtual bool LoadAllWellTests(std::vector<WellTestRecord>& records) = 0;
  // The names among the given wells that have readings; an empty list fails.
  virtual bool ListWellsWithTests(const std::vector<std::string>& names, std::vector<std::string>& wells) = 0;
  virtual bool LoadPipenetWellTests(const char* net, std::vector<WellTestRecord>& records) = 0;
  virtual bool LoadPipenetWellTestsAt(const char* net, const char* date, std::vector<WellTestRecord>& records) = 0;
  // True when the table answers and the well has a reading of the date.
  virtual bool WellTestExists(const char* jh, const char* date) = 0;
  // Replaces the reading of the record's well and date. Empty well:
  // "注水井号不能为空！"; empty date: "生产日期不能为空！"; missing table:
  // "注水井日生产数据表为空！"; failed write: "保存数据库出错！" (all under "错误信息").
  virtual bool SaveWellTest(const WellTestRecord& record) = 0;
  // Appends every record (after the table probe), deleting nothing.
  virtual bool SaveWellTestList(const std::vector<WellTestRecord>& records) = 0;
  // Replaces exactly the (well, date) readings the list carries, in one save.
  virtual bool SaveWellTests(const std::vector<WellTestRecord>& records) = 0;
  virtual bool DeleteWellTest(const char* jh, const char* date) = 0;
  virtual bool DeleteWellTestsOfWell(const char* jh) = 0;
  // Deletes the readings of the network's injection wells only; an empty
  // network shows "管网名称不能为空！".
  virtual bool DeletePipenetWellTests(const char* net) = 0;
  virtual bool DeleteWellTestsOfWells(const std::vector<std::string>& names) = 0;
  // The dates with readings of the network's wells, ordered.
  virtual bool ListPipenetTestDates(const char* net, std::vector<std::string>& dates) = 0;
};
