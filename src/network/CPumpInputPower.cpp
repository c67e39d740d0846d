#include "network/NetworkCommon.h"
#include "petrodb/network/IPumpInputPower.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

constexpr Pattern<"select * from r_pump_input_power where Proj_name='%s' order by Pump_ID"> kLoadCase;
constexpr Pattern<"select MotorInp_power, MotorRunEff from r_pump_input_power where Proj_name='%s' and Pump_ID='%s'">
    kLoadPump;
constexpr Pattern<"delete from r_pump_input_power where Proj_name='%s'"> kDeleteCase;
constexpr Pattern<"delete from r_pump_input_power where Proj_name='%s' and Pump_ID='%s'"> kDeletePump;

const ColumnTable<PumpInputPowerRecord> kColumns{"r_pump_input_power", {
    Col("Proj_name", &PumpInputPowerRecord::Proj_name),
    Col("Pump_ID", &PumpInputPowerRecord::Pump_ID),
    Col("MotorInp_power", &PumpInputPowerRecord::MotorInp_power),
    Col("MotorRunEff", &PumpInputPowerRecord::MotorRunEff),
}};

constexpr Message kEmptyCase = ErrorMessage("工况名称不能为空");
constexpr Message kEmptyCaseOrPump = ErrorMessage("工况名称或泵ID不能为空");

bool CaseAndPumpGiven(const char* caseName, const char* pump) {
  if (caseName && *caseName && pump && *pump) return true;
  kEmptyCaseOrPump.Show();
  return false;
}

}  // namespace

class CPumpInputPower final : public CDataObject<IPumpInputPower> {
 public:
  bool LoadCasePumpPowers(const char* caseName, std::vector<PumpInputPowerRecord>& powers) override {
    powers.clear();
    if (!KeyGiven(caseName, kEmptyCase)) return false;
    return LoadAll(kLoadCase(caseName), kColumns, powers, Fill::Clear).found();
  }

  bool LoadPumpPower(const char* caseName, const char* pump, double& inputPower, double& runEff) override {
    if (!CaseAndPumpGiven(caseName, pump)) return false;
    // The two values go to the caller's variables; what was read before a failure stays.
    PumpInputPowerRecord row;
    row.MotorInp_power = inputPower;
    row.MotorRunEff = runEff;
    const bool read = LoadOneWith(kLoadPump(caseName, pump), Selected(kColumns, {"MotorInp_power", "MotorRunEff"}), row);
    inputPower = row.MotorInp_power;
    runEff = row.MotorRunEff;
    return read;
  }

  bool SaveCasePumpPowers(const char* caseName, const std::vector<PumpInputPowerRecord>& powers) override {
    if (!KeyGiven(caseName, kEmptyCase)) return false;
    return Append(kColumns.table(), [&](CDbManage& db) {
      for (PumpInputPowerRecord row : powers) {
        row.Proj_name = caseName;
        kColumns.AddRow(db, row);
      }
    });
  }
  bool SavePumpPowers(const std::vector<PumpInputPowerRecord>& powers) override {
    return Append(kColumns.table(), [&](CDbManage& db) { kColumns.AddRows(db, powers); });
  }

  bool DeleteCasePumpPowers(const char* caseName) override {
    return KeyGiven(caseName, kEmptyCase) && Execute(kDeleteCase(caseName));
  }
  bool DeletePumpPower(const char* caseName, const char* pump) override {
    return CaseAndPumpGiven(caseName, pump) && Execute(kDeletePump(caseName, pump));
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CPumpInputPower, IPumpInputPower)
