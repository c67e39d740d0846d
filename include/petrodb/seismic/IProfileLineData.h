#pragma once
// Named cross-section (profile) lines through wells (b_profileLine_data), each
// of a caller-defined type that every query filters by. The points are kept as
// the text "x,y,x,y" ("%f" each) and the wells as "w1,w2".
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct ProfileLineRecord {
  std::string Profile_Name;
  int Profile_Type = 0;
  std::vector<std::string> WellList;
  std::vector<double> X;  // same length as Y
  std::vector<double> Y;
  bool operator==(const ProfileLineRecord&) const = default;
};

// Reads append to the caller's lists and answer true when the query ran and
// every row could be read.
class PETRODB_API IProfileLineData : public IDataBase {
 public:
  virtual bool GetProfileNames(int type, std::vector<std::string>& names) = 0;
  // False when the profile is not found; the points and wells are appended.
  virtual bool LoadProfile(const char* name, int type, ProfileLineRecord& profile) = 0;
  virtual bool LoadProfilesOfType(int type, std::vector<ProfileLineRecord>& profiles) = 0;
  virtual bool LoadAllProfiles(std::vector<ProfileLineRecord>& profiles) = 0;
  // Replaces the profile of the same name and type. Empty name: "剖面名称不能为空！";
  // no wells: "井名组合不能为空！". False when the table is missing.
  virtual bool SaveProfile(const ProfileLineRecord& profile) = 0;
  // Replaces each profile by name and type, in one batch; no checks.
  virtual bool SaveProfiles(const std::vector<ProfileLineRecord>& profiles) = 0;
  // Empty name: "剖面名称不能为空！".
  virtual bool DeleteProfile(const char* name, int type) = 0;
  virtual bool DeleteProfilesOfType(int type) = 0;
  virtual bool DeleteAllProfiles() = 0;
};
