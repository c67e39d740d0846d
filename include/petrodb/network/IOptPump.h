#pragma once
// Optimisation constraints and results of the pumps of a case's stations
// (r_opt_pump), keyed by case, station and pump code. Shaped as ISimuNode (see
// there for what the operations share). The messages: "工况名称不能为空！",
// "注水站名称不能为空！", "泵号不能为空！", a missing table when deleting
// "注水泵优化约束条件及结果表为空！", when saving "注水站优化约束条件及结果数据表为空！", a failed
// write "保存数据库出错！".
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct OptPumpRecord {
  std::string ProjName;  // the case
  std::string StaName;
  std::string PumpCode;
  std::string PumpModel;
  double MaxQ = 0;  // constraints given to the optimiser
  double MinQ = 0;
  double InitQ = 0;
  double CurDia = 0;  // current diameter
  double OptDia = 0;  // its results
  char IsFreq = '0';  // one-byte flag: '1' frequency-controlled
  double PumpP = 0;
  double PumpQ = 0;
  double PumpE = 0;
  double PumpPower = 0;
  double PumpDh = 0;
};

class PETRODB_API IOptPump : public IDataBase {
 public:
  // False when there is none or a field cannot be read (those before it are set).
  virtual bool LoadPumpResult(const char* caseName, const char* station, const char* pump,
                              OptPumpRecord& record) = 0;
  // Ordered by station, pump code and model; emptied first; false when none is
  // found or at the first row that cannot be read (the rows before it stay).
  virtual bool LoadCasePumpResults(const char* caseName, std::vector<OptPumpRecord>& records) = 0;
  virtual bool PumpResultExists(const char* caseName, const char* station, const char* pump) = 0;
  // The delete's result (true also when there was none).
  virtual bool DeletePumpResult(const char* caseName, const char* station, const char* pump) = 0;
  // Replaces the rows of the (station, pump) pairs the list carries, under `caseName`.
  virtual bool SavePumpResults(const char* caseName, const std::vector<OptPumpRecord>& records) = 0;
  virtual bool DeleteCasePumpResults(const char* caseName) = 0;
};
