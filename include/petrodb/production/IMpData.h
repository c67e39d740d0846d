#pragma once
// Station pumps' efficiency tests (t_mp_data), by station (StaName), pump
// number (PumpCode) and test date (Csrq). The operations are those of
// IWellTest: `date` arguments are the caller's date literal of the database
// (#2024-1-5# on an Access file, '2024-01-05' on a server), spliced unquoted;
// lists are emptied first; a loaded Csrq reads back as "YYYY-MM-DD HH:MM:SS",
// which is no literal, so saving a loaded record as it is adds a second row.
// Network reads and deletes take the network's stations from n_nodes (node type 0).
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct MpDataRecord {
  std::string StaName;
  std::string PumpCode;
  std::string Csrq;    // test date: a literal when saving, the stored date when loaded
  double Bx = 0;
  double Zsbll = 0;    // pump flow
  double Zsbckyl = 0;  // outlet pressure
  double Zsbjkyl = 0;  // inlet pressure
  double Pjwggl = 0;
  double Pjsrgl = 0;
  double Pjcsdl = 0;
  double Djyxxl = 0;   // motor efficiency
  double Djsrgl = 0;   // motor input power
};

class PETRODB_API IMpData : public IDataBase {
 public:
  // The pump's test of the date; false when there is none or a field cannot be read.
  virtual bool LoadMpData(const char* sta, const char* pump, const char* date, MpDataRecord& record) = 0;
  // Stations whose name begins with the prefix, dates between the two literals
  // (each ends in its own delimiter: the text runs "date1and date2").
  virtual bool LoadMpDataLikeBetween(const char* prefix, const char* date1, const char* date2,
                                     std::vector<MpDataRecord>& records) = 0;
  virtual bool LoadMpDataOfStation(const char* sta, std::vector<MpDataRecord>& records) = 0;
  // The station's tests, latest first.
  virtual bool LoadMpDataOfStationByDate(const char* sta, std::vector<MpDataRecord>& records) = 0;
  virtual bool LoadAllMpData(std::vector<MpDataRecord>& records) = 0;
  // The names among the given stations that have tests; an empty list fails.
  virtual bool ListStationsWithMpData(const std::vector<std::string>& names, std::vector<std::string>& stations) = 0;
  virtual bool LoadPipenetMpData(const char* net, std::vector<MpDataRecord>& records) = 0;
  // The tests of the network's stations on the date, by station and pump.
  virtual bool LoadPipenetMpDataAt(const char* net, const char* date, std::vector<MpDataRecord>& records) = 0;
  // True when the table answers and the pump has a test of the date.
  virtual bool MpDataExists(const char* sta, const char* pump, const char* date) = 0;
  // Replaces the test of the record's station, pump and date. Empty station:
  // "注水站名称不能为空！"; empty pump: "泵号不能为空！"; empty date: "测试日期不能为空！";
  // missing table: "注水站机泵测试数据表为空！"; failed write: "保存数据库出错！"
  // (all under "错误信息"). On failure nothing is written.
  virtual bool SaveMpData(const MpDataRecord& record) = 0;
  // Appends every record (after the table probe), deleting nothing.
  virtual bool SaveMpDataList(const std::vector<MpDataRecord>& records) = 0;
  // Replaces exactly the (station, pump, date) tests the list carries, in one save.
  virtual bool SaveMpDataMany(const std::vector<MpDataRecord>& records) = 0;
  virtual bool DeleteMpData(const char* sta, const char* pump, const char* date) = 0;
  virtual bool DeleteMpDataOfStation(const char* sta) = 0;
  // Deletes the tests of the network's stations only; an empty network shows
  // "管网名称不能为空！".
  virtual bool DeletePipenetMpData(const char* net) = 0;
  virtual bool DeleteMpDataOfStations(const std::vector<std::string>& names) = 0;
  // The dates with tests of the network's stations, ordered.
  virtual bool ListPipenetTestDates(const char* net, std::vector<std::string>& dates) = 0;
  // Every station with tests.
  virtual bool ListTestedStations(std::vector<std::string>& stations) = 0;
  // The dates of the station's tests, ordered (as stored: "YYYY-MM-DD HH:MM:SS").
  virtual bool ListStationTestDates(const char* sta, std::vector<std::string>& dates) = 0;
};
