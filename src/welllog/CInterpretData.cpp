#include <algorithm>
#include <string>

#include "petrodb/welllog/IInterpretData.h"
#include "welllog/WellDetailRows.h"

using namespace petrodb;
using welllog::CWellDetailData;
using welllog::WellDetailLayout;

namespace {

struct LayerStatements {
  static constexpr Pattern<"select w_well_data.wellid from w_well_data where w_well_data.ProjectName = '%s' and "
                           "exists( select w_interpret_data.wellid from w_interpret_data where w_well_data.wellid = "
                           "w_interpret_data.wellid )  order by w_well_data.wellid ">
      wellsOfProject{};
  static constexpr Pattern<"select * from w_interpret_data where WellID='%s'  order by TopDepth"> loadWell{};
  static constexpr Pattern<"select WellID from  w_interpret_data where WellID in (%s)"> wellsWithRows{};
  static constexpr Pattern<"delete from  w_interpret_data where WellID='%s'"> deleteWell{};
  static constexpr Pattern<"delete from  w_interpret_data where WellID in (%s)"> deleteWells{};
  static constexpr Pattern<"delete from w_interpret_data where exists( select * from w_well_data where "
                           "w_well_data.wellid = w_interpret_data.wellid and  w_well_data.ProjectName = '%s' )">
      deleteProject{};
  static constexpr Pattern<"select * from  w_interpret_data where WellID='%s'"> wellHasRows{};
};

#define LAYER_COLUMN(name) Col(#name, &InterpretLayer::name)
const ColumnTable<InterpretLayer> kLayerColumns{"w_interpret_data", {
    LAYER_COLUMN(InterpretName),
    LAYER_COLUMN(InterpretResult),
    LAYER_COLUMN(TopDepth),
    LAYER_COLUMN(BottomDepth),
    LAYER_COLUMN(Remark),
    LAYER_COLUMN(NeutronPorosity),
    LAYER_COLUMN(DensityPorosity),
    LAYER_COLUMN(EffectivePorosity),
    LAYER_COLUMN(AcousticPorosity),
    LAYER_COLUMN(TotalPorosity),
    LAYER_COLUMN(FlushedZoneResistivity),
    LAYER_COLUMN(LowResistivity),
    LAYER_COLUMN(TrueFormationResistivity),
    LAYER_COLUMN(DrillingFluidResistivity),
    LAYER_COLUMN(NaturalPotential),
    LAYER_COLUMN(NaturalGamma),
    LAYER_COLUMN(CompensatedNeutron),
    LAYER_COLUMN(WellDiameter),
    LAYER_COLUMN(Permeability),
    LAYER_COLUMN(OilEffectivePermeability),
    LAYER_COLUMN(GasEffectivePermeability),
    LAYER_COLUMN(WaterEffectivePermeability),
    LAYER_COLUMN(AbsolutePermeability),
    LAYER_COLUMN(FormationEffPermeability),
    LAYER_COLUMN(CrossSectionIndex),
    LAYER_COLUMN(Uranium),
    LAYER_COLUMN(Thorium),
    LAYER_COLUMN(Potassium),
    LAYER_COLUMN(ShalinessContent),
    LAYER_COLUMN(ArenaceousContent),
    LAYER_COLUMN(SiltyContent),
    LAYER_COLUMN(CalcareousContent),
    LAYER_COLUMN(DolomiticContent),
    LAYER_COLUMN(GravelContent),
    LAYER_COLUMN(SpecialMineral1),
    LAYER_COLUMN(SpecialMineral2),
    LAYER_COLUMN(SpecialMineral3),
    LAYER_COLUMN(OilSaturation),
    LAYER_COLUMN(EffectiveWaterSaturation),
    LAYER_COLUMN(WaterSaturation),
    LAYER_COLUMN(IrresibleWaterSaturation),
    LAYER_COLUMN(TotalWaterSaturation),
    LAYER_COLUMN(Montmorillonite),
    LAYER_COLUMN(Illite),
    LAYER_COLUMN(Kaolinite),
    LAYER_COLUMN(RockDensity),
    LAYER_COLUMN(FormationVolumeDensity),
    LAYER_COLUMN(RockVelocity),
    LAYER_COLUMN(AcousticTimeDifference),
    LAYER_COLUMN(BottomHoleTemperature),
    LAYER_COLUMN(ReservoirTemperatureGrad),
}};
#undef LAYER_COLUMN

// Layers without a name are numbered on from the largest leading number of
// the named ones (C's atoi: "12a" counts 12, "abc" counts 0), or from 0.
void NumberUnnamedLayers(std::vector<InterpretLayer>& layers) {
  int last = -1;
  for (const auto& layer : layers)
    if (!layer.InterpretName.empty()) last = std::max(last, sql::CAtoi(layer.InterpretName));
  for (auto& layer : layers)
    if (layer.InterpretName.empty()) layer.InterpretName = std::to_string(++last);
}

const WellDetailLayout<WellInterpretation, InterpretLayer> kLayout{
    "w_interpret_data",
    &WellInterpretation::Layers,
    &kLayerColumns,
    &NumberUnnamedLayers,
};

}  // namespace

class CInterpretData final
    : public CWellDetailData<IInterpretData, LayerStatements, WellInterpretation, InterpretLayer, kLayout> {
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CInterpretData, IInterpretData)
