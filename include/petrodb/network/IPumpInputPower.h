#pragma once
// Input powers of the pumps of a calculation case (r_pump_input_power), keyed by
// case name and pump identifier.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct PumpInputPowerRecord {
  std::string Proj_name;  // calculation case
  std::string Pump_ID;
  double MotorInp_power = 0;  // motor input power
  double MotorRunEff = 0;     // motor running efficiency
};

// An empty case shows "工况名称不能为空", an empty case or pump where both are
// needed "工况名称或泵ID不能为空"; either answers false before any database access.
class PETRODB_API IPumpInputPower : public IDataBase {
 public:
  // The case's pumps ordered by pump. The list is emptied first; false when
  // there is none, or at the first row that cannot be read (the rows before it stay).
  virtual bool LoadCasePumpPowers(const char* caseName, std::vector<PumpInputPowerRecord>& powers) = 0;
  // The input power and efficiency of one pump of the case. False when there is
  // no row or a value cannot be read (a value read before it is set).
  virtual bool LoadPumpPower(const char* caseName, const char* pump, double& inputPower, double& runEff) = 0;
  // Appends every record under `caseName`, deleting nothing first (the caller
  // deletes the case's rows when it rewrites the case).
  virtual bool SaveCasePumpPowers(const char* caseName, const std::vector<PumpInputPowerRecord>& powers) = 0;
  // Appends the records as they are, deleting nothing first.
  virtual bool SavePumpPowers(const std::vector<PumpInputPowerRecord>& powers) = 0;
  // Deletes the case's rows; true also when it had none.
  virtual bool DeleteCasePumpPowers(const char* caseName) = 0;
  // Deletes one pump's row of the case; true also when there was none.
  virtual bool DeletePumpPower(const char* caseName, const char* pump) = 0;
};
