#pragma once
// Perforation shots of wells (w_shot_data): one row per shot interval.
#include <map>
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct ShotRecord {
  std::string WellID;  // not read by loads (stays as constructed); rows are written under the well given
  std::string ShotDate;
  double TopDepth = 0;
  double BottomDepth = 0;
  int XH = 0;  // sequence number
  int LayerNum = 0;
  double Thickness = 0;
  std::string Method;
  std::string GunType;
  std::string BulletType;
  int Density = 0;     // shots per unit length
  float ShotRate = 0;  // single precision in the database too
  std::string WJYMC;
  float WJYMD = 0;
  std::string JSXH;
  std::string LayerType;
  std::string Description;

  bool operator==(const ShotRecord&) const = default;
};

// An empty well ID shows "井名称不能为空！" and answers false before any database
// access; a missing table makes saves and deletes answer false silently.
class PETRODB_API IShotData : public IDataBase {
 public:
  // The project's wells that have shots, by ID (cleared first); false when none.
  virtual bool GetShotWells(const char* project, std::vector<std::string>& wellIDs) = 0;
  // The well's shots (cleared first); false when none or a row cannot be read.
  virtual bool LoadWellShots(const char* wellID, std::vector<ShotRecord>& shots) = 0;
  // GetShotWells, then LoadWellShots for each well (cleared first; every listed
  // well gets an entry). False when the project has no well with shots.
  virtual bool LoadProjectShots(const char* project, std::map<std::string, std::vector<ShotRecord>>& shots) = 0;
  // The listed wells that have shots (one entry per shot row).
  virtual bool GetWellsWithShots(const std::vector<std::string>& wellIDs, std::vector<std::string>& existing) = 0;
  // Replaces the well's shots (an empty list only removes them).
  virtual bool SaveWellShots(const char* wellID, const std::vector<ShotRecord>& shots) = 0;
  // Appends the shots of every well in one batch; nothing is deleted first.
  virtual bool SaveShots(const std::map<std::string, std::vector<ShotRecord>>& shots) = 0;
  virtual bool DeleteWellShots(const char* wellID) = 0;
  virtual bool DeleteWellsShots(const std::vector<std::string>& wellIDs) = 0;
  // An empty project shows "工区名称不能为空！".
  virtual bool DeleteProjectShots(const char* project) = 0;
  virtual bool HasWellShots(const char* wellID) = 0;
};
