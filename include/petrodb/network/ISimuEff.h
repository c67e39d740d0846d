#pragma once
// Simulated efficiencies of a case's whole system (r_simu_eff), one row per
// case. An empty case shows "效率仿真名称不能为空！"; a missing table, when saving
// or deleting, "效率仿真结果表为空！"; a failed write "保存数据库出错！"; each is false.
#include <string>

#include "petrodb/IDataBase.h"

struct SimuEffRecord {
  std::string ProjName;  // the case
  double AvPumpEff = 0;
  double AvStaEff = 0;
  double SysEff = 0;
  double PipenetEff = 0;
  double AvMotorEff = 0;
  double StaDayQ = 0;
  double WellDayQ = 0;
  double SysDayKw = 0;
  double StaDayKw = 0;
  double WellDayKw = 0;
};

class PETRODB_API ISimuEff : public IDataBase {
 public:
  // False when the case has none or a field cannot be read (those before it are set).
  virtual bool LoadSimuEff(const char* caseName, SimuEffRecord& record) = 0;
  virtual bool SimuEffExists(const char* caseName) = 0;
  // Replaces the case's row with the record, stored under `caseName`.
  virtual bool SaveSimuEff(const char* caseName, const SimuEffRecord& record) = 0;
  // The delete's result (true also when there was none).
  virtual bool DeleteSimuEff(const char* caseName) = 0;
};
