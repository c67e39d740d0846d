#include <string>

#include "petrodb/welllog/ILateralCoreData.h"
#include "welllog/WellDetailRows.h"

using namespace petrodb;
using welllog::CWellDetailData;
using welllog::WellDetailLayout;

namespace {

struct SidewallStatements {
  static constexpr Pattern<"select w_well_data.wellid from w_well_data where w_well_data.ProjectName = '%s' and "
                           "exists( select w_lateralcore_data.wellid from w_lateralcore_data where "
                           "w_well_data.wellid = w_lateralcore_data.wellid )  order by w_well_data.wellid ">
      wellsOfProject{};
  static constexpr Pattern<"select * from w_lateralcore_data where WellID='%s' order by Depth"> loadWell{};
  static constexpr Pattern<"select WellID from  w_lateralcore_data where WellID in (%s)"> wellsWithRows{};
  static constexpr Pattern<"delete from  w_lateralcore_data where WellID='%s'"> deleteWell{};
  static constexpr Pattern<"delete from  w_lateralcore_data where WellID in (%s)"> deleteWells{};
  static constexpr Pattern<"delete from w_lateralcore_data where exists( select * from w_well_data where "
                           "w_well_data.wellid = w_lateralcore_data.wellid and  w_well_data.ProjectName = '%s' )">
      deleteProject{};
  static constexpr Pattern<"select * from  w_lateralcore_data where WellID='%s'"> wellHasRows{};
};
constexpr Pattern<"select * from ZEPH_SceneWellWall where Well='%s' order by Depth"> kLoggingCores;

const ColumnTable<SidewallCore> kCoreColumns{"w_lateralcore_data", {
    Col("LateralCoreName", &SidewallCore::LateralCoreName),
    Col("Depth", &SidewallCore::Depth),
    Col("Color", &SidewallCore::Color),
    Col("LithName", &SidewallCore::LithName),
    Col("OilBearingClass", &SidewallCore::OilBearingClass),
    Col("LithDescription", &SidewallCore::LithDescription),
    Col("Remark", &SidewallCore::Remark),
}};

// The logging table has no sample names and no colour.
const ColumnTable<SidewallCore> kLoggingColumns{"ZEPH_SceneWellWall", {
    Col("Depth", &SidewallCore::Depth),
    Col("Lith_ID", &SidewallCore::LithName),
    Col("Show_Grade_ID", &SidewallCore::OilBearingClass),
    Col("Lith_Disc", &SidewallCore::LithDescription),
    Col("Note1", &SidewallCore::Remark),
}};

const WellDetailLayout<WellSidewallCores, SidewallCore> kLayout{
    "w_lateralcore_data",
    &WellSidewallCores::Cores,
    &kCoreColumns,
};

}  // namespace

class CLateralCoreData final
    : public CWellDetailData<ILateralCoreData, SidewallStatements, WellSidewallCores, SidewallCore, kLayout> {
 public:
  // Each sample is named by its zero-based position in the result.
  bool LoadLoggingSidewallCores(const char* wellID, WellSidewallCores& cores) override {
    cores.WellID = wellID;
    auto& samples = cores.Cores;
    return LoadRows(kLoggingCores(wellID), samples, Fill::Clear, [&](CDbManage& db, SidewallCore& sample) {
             sample.LateralCoreName = std::to_string(samples.size());
             return kLoggingColumns.Read(db, sample);
           }).found();
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CLateralCoreData, ILateralCoreData)
