#pragma once
// Station pumps' daily readings (d_mp_test), by station (StaName), pump number
// (PumpCode) and production date (Scrq). The operations are those of
// IWellTest: `date` arguments are the caller's date literal of the database
// (#2024-1-5# on an Access file, '2024-01-05' on a server), spliced unquoted;
// lists are emptied first; a loaded Scrq reads back as "YYYY-MM-DD HH:MM:SS",
// which is no literal, so saving a loaded record as it is adds a second row.
// Network reads and deletes take the network's stations from n_nodes (node
// type 0); the readings of one date of a network select pumps (node type 5) by
// a column Jh that d_mp_test does not have, so that read always fails.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct MpTestRecord {
  std::string StaName;
  std::string PumpCode;
  std::string Scrq;     // production date: a literal when saving, the stored date when loaded
  double Zsbll = 0;     // pump flow
  double Zsbckyl = 0;   // outlet pressure
  double Zsbjkyl = 0;   // inlet pressure
  double Bcsxl = 0;
};

// A row of v_mp_test: a reading beside its pump's model and rod diameter.
struct MpTestViewRecord {
  std::string StaName;
  std::string PumpCode;
  std::string Scrq;
  double Zsbll = 0;
  double Zsbckyl = 0;
  double Zsbjkyl = 0;
  double Bcsxl = 0;
  std::string PumpModel;
  double RodDia = 0;
};

class PETRODB_API IMpTest : public IDataBase {
 public:
  // The pump's reading of the date; false when there is none or a field cannot be read.
  virtual bool LoadMpTest(const char* sta, const char* pump, const char* date, MpTestRecord& record) = 0;
  // Stations whose name begins with the prefix, dates between the two literals
  // (each ends in its own delimiter: the text runs "date1and date2"), latest first.
  virtual bool LoadMpTestsLikeBetween(const char* prefix, const char* date1, const char* date2,
                                      std::vector<MpTestRecord>& records) = 0;
  virtual bool LoadMpTestsOfStation(const char* sta, std::vector<MpTestRecord>& records) = 0;
  // The station's history, latest first.
  virtual bool LoadMpTestsOfStationByDate(const char* sta, std::vector<MpTestRecord>& records) = 0;
  virtual bool LoadAllMpTests(std::vector<MpTestRecord>& records) = 0;
  // The names among the given stations that have readings; an empty list fails.
  virtual bool ListStationsWithMpTests(const std::vector<std::string>& names, std::vector<std::string>& stations) = 0;
  virtual bool LoadPipenetMpTests(const char* net, std::vector<MpTestRecord>& records) = 0;
  // Always false: the statement names a column Jh that the table does not have.
  virtual bool LoadPipenetMpTestsAt(const char* net, const char* date, std::vector<MpTestRecord>& records) = 0;
  // True when the table answers and the pump has a reading of the date.
  virtual bool MpTestExists(const char* sta, const char* pump, const char* date) = 0;
  // Replaces the reading of the record's station, pump and date. Empty station:
  // "注水站名称不能为空！"; empty pump: "泵号不能为空！"; empty date: "生产日期不能为空！";
  // missing table: "注水站机泵日生产数据表为空！"; failed write: "保存数据库出错！"
  // (all under "错误信息"). On failure nothing is written.
  virtual bool SaveMpTest(const MpTestRecord& record) = 0;
  // Appends every record (after the table probe), deleting nothing.
  virtual bool SaveMpTestList(const std::vector<MpTestRecord>& records) = 0;
  // Replaces exactly the (station, pump, date) readings the list carries, in one save.
  virtual bool SaveMpTests(const std::vector<MpTestRecord>& records) = 0;
  virtual bool DeleteMpTest(const char* sta, const char* pump, const char* date) = 0;
  virtual bool DeleteMpTestsOfStation(const char* sta) = 0;
  // Deletes the readings of the network's stations only; an empty network
  // shows "管网名称不能为空！".
  virtual bool DeletePipenetMpTests(const char* net) = 0;
  virtual bool DeleteMpTestsOfStations(const std::vector<std::string>& names) = 0;
  // The dates with readings of the network's stations, ordered.
  virtual bool ListPipenetTestDates(const char* net, std::vector<std::string>& dates) = 0;
  // The station's readings of the date with each pump's model and rod diameter
  // (v_mp_test). A pump without equipment has neither: that row cannot be
  // read and ends the load with false (the rows before it stay).
  virtual bool LoadMpTestsWithPumps(const char* sta, const char* date, std::vector<MpTestViewRecord>& records) = 0;
};
