#pragma once
// Centrifugal pumps installed at injection stations (b_sta_acentric_pump),
// keyed by station and pump code. A pump code is unique within a station across
// the centrifugal and the plunger pumps (see IStaRodPump).
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct StaAcentricPumpRecord {
  std::string StaName;   // station
  std::string PumpCode;  // the pump's code within its station
  std::string PumpModel;
  double RatedRev = 0;   // rated speed
  double RatedQ = 0;     // rated flow
  double RatedDist = 0;  // rated head
  double RatedEff = 0;   // rated efficiency
  int Levels = 0;        // stages
  std::string MotorModel;
  std::string SetupDate;  // as text
  char Isactive = '0';    // '1' in service, '0' not
  std::string Memo;
};

class PETRODB_API IStaAcentricPump : public IDataBase {
 public:
  // The station's pumps ordered by code, then model. The list is emptied first;
  // false when there is none, or at the first row that cannot be read (the rows
  // before it stay).
  virtual bool LoadStationAcentricPumps(const char* station, std::vector<StaAcentricPumpRecord>& pumps) = 0;
  // Every station's pumps in table order; emptied first, false as above.
  virtual bool LoadAllStationAcentricPumps(std::vector<StaAcentricPumpRecord>& pumps) = 0;
  // True when the station has a pump.
  virtual bool StationAcentricPumpsExist(const char* station) = 0;
  // Replaces the station's pumps whose codes the list carries; the station's
  // other pumps stay. The table must answer its probe (else
  // "注水站离心泵设备数据表为空！" and nothing is touched); then each code's row is
  // deleted (in the Access form "delete * from": a server refuses it, the save
  // goes on and the old rows stay beside the new ones), and the records are
  // appended under `station`. A failed write shows "保存数据库出错！" (the deletes
  // have run). A station or code holding a quote fails before anything is sent.
  virtual bool SaveStationAcentricPumps(const char* station, const std::vector<StaAcentricPumpRecord>& pumps) = 0;
  // Appends the records as they are, deleting and probing nothing.
  virtual bool SaveStationAcentricPumpList(const std::vector<StaAcentricPumpRecord>& pumps) = 0;
  // Deletes every pump of the station; true also when it had none.
  virtual bool DeleteStationAcentricPumps(const char* station) = 0;
  // True when the station has a plunger pump with this code (the code is then
  // not free for a centrifugal pump). False when not, or on failure.
  virtual bool IsPumpCodeTaken(const char* station, const char* code) = 0;
};
