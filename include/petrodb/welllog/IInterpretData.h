#pragma once
// Log interpretation results (w_interpret_data): one row per interpreted layer
// of a well, with its interval, its conclusion and 46 petrophysical values.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct InterpretLayer {
  std::string InterpretName;    // the layer's number or name
  std::string InterpretResult;  // the conclusion
  double TopDepth = 0;
  double BottomDepth = 0;
  std::string Remark;
  double NeutronPorosity = 0;
  double DensityPorosity = 0;
  double EffectivePorosity = 0;
  double AcousticPorosity = 0;
  double TotalPorosity = 0;
  double FlushedZoneResistivity = 0;
  double LowResistivity = 0;
  double TrueFormationResistivity = 0;
  double DrillingFluidResistivity = 0;
  double NaturalPotential = 0;
  double NaturalGamma = 0;
  double CompensatedNeutron = 0;
  double WellDiameter = 0;
  double Permeability = 0;
  double OilEffectivePermeability = 0;
  double GasEffectivePermeability = 0;
  double WaterEffectivePermeability = 0;
  double AbsolutePermeability = 0;
  double FormationEffPermeability = 0;
  double CrossSectionIndex = 0;
  double Uranium = 0;
  double Thorium = 0;
  double Potassium = 0;
  double ShalinessContent = 0;
  double ArenaceousContent = 0;
  double SiltyContent = 0;
  double CalcareousContent = 0;
  double DolomiticContent = 0;
  double GravelContent = 0;
  double SpecialMineral1 = 0;
  double SpecialMineral2 = 0;
  double SpecialMineral3 = 0;
  double OilSaturation = 0;
  double EffectiveWaterSaturation = 0;
  double WaterSaturation = 0;
  double IrresibleWaterSaturation = 0;  // the column is spelled so
  double TotalWaterSaturation = 0;
  double Montmorillonite = 0;
  double Illite = 0;
  double Kaolinite = 0;
  double RockDensity = 0;
  double FormationVolumeDensity = 0;
  double RockVelocity = 0;
  double AcousticTimeDifference = 0;
  double BottomHoleTemperature = 0;
  double ReservoirTemperatureGrad = 0;

  bool operator==(const InterpretLayer&) const = default;
};

struct WellInterpretation {
  std::string WellID;
  std::vector<InterpretLayer> Layers;  // ordered by top depth when loaded
};

class PETRODB_API IInterpretData : public IDataBase {
 public:
  virtual bool GetCoredWellIDs(const char* projectName, std::vector<std::string>& wellIDs) = 0;
  virtual bool LoadWellCores(const char* wellID, WellInterpretation& layers) = 0;
  virtual bool LoadProjectCores(const char* projectName, std::vector<WellInterpretation>& layers) = 0;
  virtual bool GetWellsWithCores(const std::vector<std::string>& wellIDs, std::vector<std::string>& found) = 0;
  // Replaces all layers of the well. Layers without a name are numbered first:
  // one more than the largest leading number among the named layers (or from 0).
  virtual bool SaveWellCores(const WellInterpretation& layers) = 0;
  virtual bool SaveCoresOfWells(int ignored, const std::vector<WellInterpretation>& layers) = 0;
  virtual bool DeleteWellCores(const char* wellID) = 0;
  virtual bool DeleteCoresOfWells(const std::vector<std::string>& wellIDs) = 0;
  virtual bool DeleteProjectCores(const char* projectName) = 0;
  virtual bool IsWellCoresExist(const char* wellID) = 0;
};
