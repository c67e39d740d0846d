#include "petrodb/welllog/ITakeCoreData.h"
#include "welllog/WellDetailRows.h"

using namespace petrodb;
using welllog::CWellDetailData;
using welllog::WellDetailLayout;

namespace {

struct CoreStatements {
  static constexpr Pattern<"select w_well_data.wellid from w_well_data where w_well_data.ProjectName = '%s' and "
                           "exists( select w_takecore_data.wellid from w_takecore_data where w_well_data.wellid = "
                           "w_takecore_data.wellid )  order by w_well_data.wellid ">
      wellsOfProject{};
  static constexpr Pattern<"select * from w_takecore_data where WellID='%s' order by TopDepth"> loadWell{};
  static constexpr Pattern<"select WellID from  w_takecore_data where WellID in (%s)"> wellsWithRows{};
  static constexpr Pattern<"delete from  w_takecore_data where WellID='%s'"> deleteWell{};
  static constexpr Pattern<"delete from  w_takecore_data where WellID in (%s)"> deleteWells{};
  static constexpr Pattern<"delete from w_takecore_data where exists( select * from w_well_data where "
                           "w_well_data.wellid = w_takecore_data.wellid and  w_well_data.ProjectName = '%s' )">
      deleteProject{};
  static constexpr Pattern<"select * from  w_takecore_data where WellID='%s'"> wellHasRows{};
};
constexpr Pattern<"select * from GEO_Core where Well='%s' order by Top_Depth"> kGeologyCores;

const ColumnTable<CoreInterval> kCoreColumns{"w_takecore_data", {
    Col("CoreName", &CoreInterval::CoreName),
    Col("TopDepth", &CoreInterval::TopDepth),
    Col("BottomDepth", &CoreInterval::BottomDepth),
    Col("CoreLength", &CoreInterval::CoreLength),
    Col("CoreDrill", &CoreInterval::CoreDrill),
    Col("GainRate", &CoreInterval::GainRate),
    Col("Color", &CoreInterval::Color),
    Col("LithName", &CoreInterval::LithName),
    Col("OilBearingClass", &CoreInterval::OilBearingClass),
    Col("LithDescription", &CoreInterval::LithDescription),
    Col("Remark", &CoreInterval::Remark),
}};

// The geology table fills six fields; the others keep their defaults.
const ColumnTable<CoreInterval> kGeologyColumns{"GEO_Core", {
    Col("Core_No", &CoreInterval::CoreName),
    Col("Top_Depth", &CoreInterval::TopDepth),
    Col("Bot_Depth", &CoreInterval::BottomDepth),
    Col("Core_L", &CoreInterval::CoreLength),
    Col("Strata", &CoreInterval::LithName),
    Col("Description", &CoreInterval::LithDescription),
}};

const WellDetailLayout<WellCores, CoreInterval> kLayout{
    "w_takecore_data",
    &WellCores::Cores,
    &kCoreColumns,
};

}  // namespace

class CTakeCoreData final : public CWellDetailData<ITakeCoreData, CoreStatements, WellCores, CoreInterval, kLayout> {
 public:
  bool LoadGeologyCores(const char* wellID, WellCores& cores) override {
    cores.WellID = wellID;
    return LoadAll(kGeologyCores(wellID), kGeologyColumns, cores.Cores, Fill::Clear).found();
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CTakeCoreData, ITakeCoreData)
