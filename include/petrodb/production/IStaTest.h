#pragma once
// Injection stations' daily readings (d_sta_test), by station (StaName) and
// production date (Scrq). The operations are those of IWellTest (dates are the
// caller's literals, spliced unquoted; lists emptied first), for the network's
// stations (node type 0), plus the list of stations that have readings.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct StaTestRecord {
  std::string StaName;
  std::string Scrq;
  double Lsyl = 0;
  double Hgyl = 0;
  double Rjcksl = 0;
  double Rjydl = 0;
  double Xnsl = 0;
};

class PETRODB_API IStaTest : public IDataBase {
 public:
  virtual bool LoadStaTest(const char* sta, const char* date, StaTestRecord& record) = 0;
  virtual bool LoadStaTestsLikeBetween(const char* prefix, const char* date1, const char* date2,
                                       std::vector<StaTestRecord>& records) = 0;
  virtual bool LoadStaTestsOfStation(const char* sta, std::vector<StaTestRecord>& records) = 0;
  // The station's history, latest first.
  virtual bool LoadStaTestsOfStationByDate(const char* sta, std::vector<StaTestRecord>& records) = 0;
  virtual bool LoadAllStaTests(std::vector<StaTestRecord>& records) = 0;
  virtual bool ListStationsWithTests(const std::vector<std::string>& names, std::vector<std::string>& stations) = 0;
  virtual bool LoadPipenetStaTests(const char* net, std::vector<StaTestRecord>& records) = 0;
  virtual bool LoadPipenetStaTestsAt(const char* net, const char* date, std::vector<StaTestRecord>& records) = 0;
  virtual bool StaTestExists(const char* sta, const char* date) = 0;
  // Empty station: "注水站名称不能为空！"; empty date: "生产日期不能为空！"; missing
  // table: "注水站日生产数据表为空！"; failed write: "保存数据库出错！".
  virtual bool SaveStaTest(const StaTestRecord& record) = 0;
  virtual bool SaveStaTestList(const std::vector<StaTestRecord>& records) = 0;
  virtual bool SaveStaTests(const std::vector<StaTestRecord>& records) = 0;
  virtual bool DeleteStaTest(const char* sta, const char* date) = 0;
  virtual bool DeleteStaTestsOfStation(const char* sta) = 0;
  virtual bool DeletePipenetStaTests(const char* net) = 0;
  virtual bool DeleteStaTestsOfStations(const std::vector<std::string>& names) = 0;
  virtual bool ListPipenetTestDates(const char* net, std::vector<std::string>& dates) = 0;
  // Every station with readings.
  virtual bool ListTestedStations(std::vector<std::string>& stations) = 0;
};
