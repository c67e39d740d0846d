#pragma once
// Drilling targets (w_target): one row per named target of a well. The well
// column is UIDWELL. Lists and loads that find no row answer false and leave
// the caller's vector as it was.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct DrillingTarget {
  std::string UIDWELL;
  std::string TARGETNAME;  // unique within a well
  std::string MODFITIME;   // time of the last change, as the caller writes it
  double MD = 0;
  double TVD = 0;
  double TVDSS = 0;
  double X = 0;
  double Y = 0;
  double INCLINATION = 0;
  double AZIMUTH = 0;
  std::string LATITUDE;
  std::string LONGITUDE;
  double BS = 0;
  double BX = 0;
  double BZ = 0;
  double BAY = 0;

  bool operator==(const DrillingTarget&) const = default;
};

class PETRODB_API ITargetData : public IDataBase {
 public:
  // IDs of the project's wells that have targets, ordered by ID.
  virtual bool GetTargetWellIDs(const char* projectName, std::vector<std::string>& wellIDs) = 0;
  virtual bool GetProjectTargetNames(const char* projectName, std::vector<std::string>& names) = 0;
  virtual bool GetWellTargetNames(const char* wellID, std::vector<std::string>& names) = 0;
  // The target of that name in every well of the project, ordered by TVD.
  virtual bool LoadTargetsByName(const char* projectName, const char* targetName,
                                 std::vector<DrillingTarget>& targets) = 0;
  virtual bool LoadWellTargetsOfProject(const char* projectName, const char* wellID,
                                        const std::vector<std::string>& names,
                                        std::vector<DrillingTarget>& targets) = 0;
  // Ordered by target name.
  virtual bool LoadProjectTargets(const char* projectName, std::vector<DrillingTarget>& targets) = 0;
  virtual bool LoadWellTargetsByName(const char* wellID, const std::vector<std::string>& names,
                                     std::vector<DrillingTarget>& targets) = 0;
  virtual bool LoadWellTargets(const char* wellID, std::vector<DrillingTarget>& targets) = 0;
  // Replaces all targets of every well that appears in the list.
  virtual bool SaveTargets(const std::vector<DrillingTarget>& targets) = 0;
  // Removes the targets of `wellID`, then writes the records under their own
  // UIDWELL.
  virtual bool SaveWellTargets(const char* wellID, const std::vector<DrillingTarget>& targets) = 0;
  virtual bool DeleteTargetsOfWells(const std::vector<std::string>& wellIDs) = 0;
  virtual bool DeleteProjectTargets(const char* projectName) = 0;
  virtual bool DeleteWellTargets(const char* wellID) = 0;
  virtual bool DeleteTargetOfProject(const char* projectName, const char* targetName) = 0;
  virtual bool IsTargetExist(const char* wellID) = 0;
};
