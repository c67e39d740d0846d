#pragma once
// Simulated figures of a case's injection stations (r_simu_sta), keyed by case
// and station name. Shaped as ISimuNode (see there for what the operations
// share); the messages: "工况名称不能为空！", "注水站名称不能为空！", a missing table
// when deleting "注水站仿真结果表为空！", when saving "注水站仿真结果数据表为空！".
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct SimuStaRecord {
  std::string ProjName;  // the case
  std::string StaName;
  double Eff = 0;
  double Dh = 0;
  double SumEff = 0;
};

class PETRODB_API ISimuSta : public IDataBase {
 public:
  // False when there is none or a field cannot be read (those before it are set).
  virtual bool LoadStationResult(const char* caseName, const char* station, SimuStaRecord& record) = 0;
  // The case's station results ordered by station. Emptied first; false when
  // none is found or at the first row that cannot be read (the rows before it stay).
  virtual bool LoadCaseStationResults(const char* caseName, std::vector<SimuStaRecord>& records) = 0;
  virtual bool StationResultExists(const char* caseName, const char* station) = 0;
  // The delete's result (true also when there was none).
  virtual bool DeleteStationResult(const char* caseName, const char* station) = 0;
  // Replaces the results of the stations the list carries, under `caseName`.
  virtual bool SaveStationResults(const char* caseName, const std::vector<SimuStaRecord>& records) = 0;
  // Every delete is sent; false when any failed.
  virtual bool DeleteStationResults(const char* caseName, const std::vector<std::string>& stations) = 0;
  virtual bool DeleteCaseStationResults(const char* caseName) = 0;
};
