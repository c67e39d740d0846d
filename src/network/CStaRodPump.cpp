#include "network/StationEquipment.h"
#include "petrodb/network/IStaRodPump.h"

using namespace petrodb;
using namespace petrodb::network;

namespace {

constexpr Pattern<"select * from b_sta_rod_pump where StaName = '%s' order by PumpCode, PumpModel"> kLoadStation;
constexpr Pattern<"select * from b_sta_rod_pump"> kLoadAll;
constexpr Pattern<"select * from b_sta_rod_pump where StaName = '%s'"> kStationExists;
constexpr Pattern<"delete * from b_sta_rod_pump where StaName = '%s' and PumpCode = '%s'"> kDeletePump;
constexpr Pattern<"delete from b_sta_rod_pump where StaName = '%s'"> kDeleteStation;
constexpr Pattern<"select PumpCode from b_sta_acentric_pump where StaName = '%s' and PumpCode ='%s'"> kCodeTaken;

const ColumnTable<StaRodPumpRecord> kColumns{"b_sta_rod_pump", {
    Col("StaName", &StaRodPumpRecord::StaName),
    Col("PumpCode", &StaRodPumpRecord::PumpCode),
    Col("PumpModel", &StaRodPumpRecord::PumpModel),
    Col("RodDia", &StaRodPumpRecord::RodDia),
    Col("Cc", &StaRodPumpRecord::Cc),
    Col("Cs", &StaRodPumpRecord::Cs),
    Col("MotorModel", &StaRodPumpRecord::MotorModel),
    Col("SetupDate", &StaRodPumpRecord::SetupDate),
    Col("Isactive", &StaRodPumpRecord::Isactive),
    Col("Memo", &StaRodPumpRecord::Memo),
}};

const StationEquipment<StaRodPumpRecord> kPumps{
    .columns = kColumns,
    .loadStation = ByKey<kLoadStation>,
    .loadAll = Whole<kLoadAll>,
    .stationExists = ByKey<kStationExists>,
    .deletePump = ByPair<kDeletePump>,
    .deleteStation = ByKey<kDeleteStation>,
    .otherKindHasCode = ByPair<kCodeTaken>,
    .tableMissing = ErrorMessage("注水站柱塞泵设备数据表为空！"),
    .saveFailed = ErrorMessage("数据保存出错！"),
};

}  // namespace

class CStaRodPump final : public CStationEquipmentObject<IStaRodPump> {
 public:
  bool LoadStationRodPumps(const char* station, std::vector<StaRodPumpRecord>& pumps) override {
    return LoadStation(kPumps, station, pumps);
  }
  bool LoadAllStationRodPumps(std::vector<StaRodPumpRecord>& pumps) override { return LoadEvery(kPumps, pumps); }
  bool StationRodPumpsExist(const char* station) override { return StationHasPumps(kPumps, station); }
  bool SaveStationRodPumps(const char* station, const std::vector<StaRodPumpRecord>& pumps) override {
    return ReplaceStationPumps(kPumps, station, pumps);
  }
  bool SaveStationRodPumpList(const std::vector<StaRodPumpRecord>& pumps) override {
    return AppendPumps(kPumps, pumps);
  }
  bool DeleteStationRodPumps(const char* station) override { return DeleteStation(kPumps, station); }
  bool IsPumpCodeTaken(const char* station, const char* code) override {
    return CodeTakenByOtherKind(kPumps, station, code);
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CStaRodPump, IStaRodPump)
