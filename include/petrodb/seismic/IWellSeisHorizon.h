#pragma once
// Seismic horizons tied to wells (w_seismic_horizon): one row per horizon with
// its measured depth and time.
#include <map>
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct WellSeisHorizon {
  std::string WellID;
  std::string SeisHorizonName;
  double dTopMD = -99999.0;  // -99999.0 when the row holds NULL
  double dTime = -99999.0;
  bool operator==(const WellSeisHorizon&) const = default;
};

// Lists and maps are emptied first; reads answer true when the query ran and
// every row could be read.
class PETRODB_API IWellSeisHorizon : public IDataBase {
 public:
  // IDs of the project's wells that have horizons, ordered by ID.
  virtual bool GetWellsWithHorizons(const char* project, std::vector<std::string>& wellIDs) = 0;
  // Every well's horizons by depth, filed under the well ID.
  virtual bool LoadAllWellHorizons(std::map<std::string, std::vector<WellSeisHorizon>>& byWell) = 0;
  virtual bool LoadWellHorizons(const char* wellID, std::vector<WellSeisHorizon>& horizons) = 0;
  virtual bool HasWellHorizons(const char* wellID) = 0;
  // Deletes the listed wells' horizons (whatever that answers), then writes
  // every horizon under its well in one batch.
  virtual bool SaveWellsHorizons(const std::map<std::string, std::vector<WellSeisHorizon>>& byWell) = 0;
  // Replaces the well's horizons. Empty well ID: "井号不能为空！".
  virtual bool SaveWellHorizons(const char* wellID, const std::vector<WellSeisHorizon>& horizons) = 0;
  virtual bool DeleteAllWellHorizons() = 0;
  virtual bool DeleteWellHorizons(const char* wellID) = 0;
  virtual bool DeleteWellsHorizons(const std::vector<std::string>& wellIDs) = 0;
};
