#pragma once
// Plunger pumps installed at injection stations (b_sta_rod_pump), keyed by
// station and pump code. A pump code is unique within a station across the
// plunger and the centrifugal pumps (see IStaAcentricPump).
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct StaRodPumpRecord {
  std::string StaName;   // station
  std::string PumpCode;  // the pump's code within its station
  std::string PumpModel;
  double RodDia = 0;  // plunger diameter
  double Cc = 0;
  double Cs = 0;
  std::string MotorModel;
  std::string SetupDate;  // as text
  char Isactive = '0';    // '1' in service, '0' not
  std::string Memo;
};

class PETRODB_API IStaRodPump : public IDataBase {
 public:
  // The station's pumps ordered by code, then model. The list is emptied first;
  // false when there is none, or at the first row that cannot be read (the rows
  // before it stay).
  virtual bool LoadStationRodPumps(const char* station, std::vector<StaRodPumpRecord>& pumps) = 0;
  // Every station's pumps in table order; emptied first, false as above.
  virtual bool LoadAllStationRodPumps(std::vector<StaRodPumpRecord>& pumps) = 0;
  // True when the station has a pump.
  virtual bool StationRodPumpsExist(const char* station) = 0;
  // Replaces the station's pumps whose codes the list carries; the station's
  // other pumps stay. The table must answer its probe (else
  // "注水站柱塞泵设备数据表为空！" and nothing is touched); then each code's row is
  // deleted (in the Access form "delete * from": a server refuses it, the save
  // goes on and the old rows stay beside the new ones), and the records are
  // appended under `station`. A failed write shows "数据保存出错！" (the deletes
  // have run). A station or code holding a quote fails before anything is sent.
  virtual bool SaveStationRodPumps(const char* station, const std::vector<StaRodPumpRecord>& pumps) = 0;
  // Appends the records as they are, deleting and probing nothing.
  virtual bool SaveStationRodPumpList(const std::vector<StaRodPumpRecord>& pumps) = 0;
  // Deletes every pump of the station; true also when it had none.
  virtual bool DeleteStationRodPumps(const char* station) = 0;
  // True when the station has a centrifugal pump with this code (the code is
  // then not free for a plunger pump). False when not, or on failure.
  virtual bool IsPumpCodeTaken(const char* station, const char* code) = 0;
};
