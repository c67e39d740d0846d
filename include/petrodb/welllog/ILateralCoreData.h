#pragma once
// Sidewall cores of wells (w_lateralcore_data): one row per sample at one
// depth. A well's samples can also be read from the well-site logging table
// ZEPH_SceneWellWall.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct SidewallCore {
  std::string LateralCoreName;
  double Depth = 0;
  int Color = 0;
  std::string LithName;
  std::string OilBearingClass;
  std::string LithDescription;
  std::string Remark;

  bool operator==(const SidewallCore&) const = default;
};

struct WellSidewallCores {
  std::string WellID;
  std::vector<SidewallCore> Cores;  // ordered by depth when loaded
};

class PETRODB_API ILateralCoreData : public IDataBase {
 public:
  virtual bool GetCoredWellIDs(const char* projectName, std::vector<std::string>& wellIDs) = 0;
  virtual bool LoadWellCores(const char* wellID, WellSidewallCores& cores) = 0;
  virtual bool LoadProjectCores(const char* projectName, std::vector<WellSidewallCores>& cores) = 0;
  virtual bool GetWellsWithCores(const std::vector<std::string>& wellIDs, std::vector<std::string>& found) = 0;
  // Replaces all samples of the well.
  virtual bool SaveWellCores(const WellSidewallCores& cores) = 0;
  virtual bool SaveCoresOfWells(int ignored, const std::vector<WellSidewallCores>& cores) = 0;
  virtual bool DeleteWellCores(const char* wellID) = 0;
  virtual bool DeleteCoresOfWells(const std::vector<std::string>& wellIDs) = 0;
  virtual bool DeleteProjectCores(const char* projectName) = 0;
  virtual bool IsWellCoresExist(const char* wellID) = 0;
  // The well's samples from ZEPH_SceneWellWall, named "0", "1", ... in depth
  // order; Color is not read there.
  virtual bool LoadLoggingSidewallCores(const char* wellID, WellSidewallCores& cores) = 0;
};
