#include "network/StationEquipment.h"
#include "petrodb/network/IStaAcentricPump.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

constexpr Pattern<"select * from b_sta_acentric_pump where StaName = '%s' order by PumpCode, PumpModel"> kLoadStation;
constexpr Pattern<"select * from b_sta_acentric_pump"> kLoadAll;
constexpr Pattern<"select * from b_sta_acentric_pump where StaName = '%s'"> kStationExists;
constexpr Pattern<"delete * from b_sta_acentric_pump where StaName = '%s' and PumpCode = '%s'"> kDeletePump;
constexpr Pattern<"delete from b_sta_acentric_pump where StaName = '%s'"> kDeleteStation;
constexpr Pattern<"select PumpCode from b_sta_rod_pump where StaName = '%s' and PumpCode ='%s'"> kCodeTaken;

const ColumnTable<StaAcentricPumpRecord> kColumns{"b_sta_acentric_pump", {
    Col("StaName", &StaAcentricPumpRecord::StaName),
    Col("PumpCode", &StaAcentricPumpRecord::PumpCode),
    Col("PumpModel", &StaAcentricPumpRecord::PumpModel),
    Col("RatedRev", &StaAcentricPumpRecord::RatedRev),
    Col("RatedQ", &StaAcentricPumpRecord::RatedQ),
    Col("RatedDist", &StaAcentricPumpRecord::RatedDist),
    Col("RatedEff", &StaAcentricPumpRecord::RatedEff),
    Col("Levels", &StaAcentricPumpRecord::Levels),
    Col("MotorModel", &StaAcentricPumpRecord::MotorModel),
    Col("SetupDate", &StaAcentricPumpRecord::SetupDate),
    Col("Isactive", &StaAcentricPumpRecord::Isactive),
    Col("Memo", &StaAcentricPumpRecord::Memo),
}};

const StationEquipment<StaAcentricPumpRecord> kPumps{
    .columns = kColumns,
    .loadStation = ByKey<kLoadStation>,
    .loadAll = Whole<kLoadAll>,
    .stationExists = ByKey<kStationExists>,
    .deletePump = ByPair<kDeletePump>,
    .deleteStation = ByKey<kDeleteStation>,
    .otherKindHasCode = ByPair<kCodeTaken>,
    .tableMissing = ErrorMessage("注水站离心泵设备数据表为空！"),
    .saveFailed = kSaveFailed,
};

}  // namespace

class CStaAcentricPump final : public CStationEquipmentObject<IStaAcentricPump> {
 public:
  bool LoadStationAcentricPumps(const char* station, std::vector<StaAcentricPumpRecord>& pumps) override {
    return LoadStation(kPumps, station, pumps);
  }
  bool LoadAllStationAcentricPumps(std::vector<StaAcentricPumpRecord>& pumps) override {
    return LoadEvery(kPumps, pumps);
  }
  bool StationAcentricPumpsExist(const char* station) override { return StationHasPumps(kPumps, station); }
  bool SaveStationAcentricPumps(const char* station, const std::vector<StaAcentricPumpRecord>& pumps) override {
    return ReplaceStationPumps(kPumps, station, pumps);
  }
  bool SaveStationAcentricPumpList(const std::vector<StaAcentricPumpRecord>& pumps) override {
    return AppendPumps(kPumps, pumps);
  }
  bool DeleteStationAcentricPumps(const char* station) override { return DeleteStation(kPumps, station); }
  bool IsPumpCodeTaken(const char* station, const char* code) override {
    return CodeTakenByOtherKind(kPumps, station, code);
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CStaAcentricPump, IStaAcentricPump)
