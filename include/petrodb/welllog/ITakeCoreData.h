#pragma once
// Cores taken from wells (w_takecore_data): one row per core interval. The
// cores of a well can also be read from the geology table GEO_Core.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct CoreInterval {
  std::string CoreName;
  double TopDepth = 0;
  double BottomDepth = 0;
  double CoreLength = 0;
  double CoreDrill = 0;  // drilled length
  double GainRate = 0;   // recovery
  int Color = 0;
  std::string LithName;
  std::string OilBearingClass;
  std::string LithDescription;
  std::string Remark;

  bool operator==(const CoreInterval&) const = default;
};

struct WellCores {
  std::string WellID;
  std::vector<CoreInterval> Cores;  // ordered by top depth when loaded
};

class PETRODB_API ITakeCoreData : public IDataBase {
 public:
  // IDs of the project's wells that have cores, ordered by ID.
  virtual bool GetCoredWellIDs(const char* projectName, std::vector<std::string>& wellIDs) = 0;
  virtual bool LoadWellCores(const char* wellID, WellCores& cores) = 0;
  // One entry per cored well of the project.
  virtual bool LoadProjectCores(const char* projectName, std::vector<WellCores>& cores) = 0;
  // The listed wells that have cores (one entry per core row).
  virtual bool GetWellsWithCores(const std::vector<std::string>& wellIDs, std::vector<std::string>& found) = 0;
  // Replaces all cores of the well; an empty list only removes them.
  virtual bool SaveWellCores(const WellCores& cores) = 0;
  // Removes the cores of every listed well, then writes all records.
  virtual bool SaveCoresOfWells(int ignored, const std::vector<WellCores>& cores) = 0;
  virtual bool DeleteWellCores(const char* wellID) = 0;
  virtual bool DeleteCoresOfWells(const std::vector<std::string>& wellIDs) = 0;
  virtual bool DeleteProjectCores(const char* projectName) = 0;
  virtual bool IsWellCoresExist(const char* wellID) = 0;
  // The well's cores from GEO_Core: name, depths, length, lithology and its
  // description; the other fields keep their defaults.
  virtual bool LoadGeologyCores(const char* wellID, WellCores& cores) = 0;
};
