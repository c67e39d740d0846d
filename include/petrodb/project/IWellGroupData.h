#pragma once
// Well groups: one row per group and project in w_wellgroup, the members of a
// group as (GroupID, WellID) rows in w_groupwell.
//
// A group's naming policy decides which saved wells join it automatically
// (IBasicWellData::SaveWell): a negative GroupPolicy takes none, 0 takes wells
// whose ID contains WellIDPolicy, a positive policy wells whose name contains
// WellNamePolicy. Failure (false) means a statement could not run or a field
// could not be read; no messages are shown.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct WellGroupRecord {
  std::string GroupID;
  std::string GroupName;
  int GroupPolicy = -1;  // < 0 none, 0 by well ID, > 0 by well name
  std::string WellIDPolicy;
  std::string WellNamePolicy;
};

class PETRODB_API IWellGroupData : public IDataBase {
 public:
  // Number of groups of the project (GetGroupIDs); 0 also on failure.
  virtual int GetGroupCount(const char* project) = 0;
  // IsGroupNameExist(const char*, const char*) with std::string arguments.
  virtual bool IsGroupNameExist(const std::string& project, const std::string& groupName) = 0;
  // True when the project has at least one group (GetGroupCount > 0).
  virtual bool HasGroups(const char* project) = 0;

  virtual bool IsGroupIDExist(const char* project, const char* groupID) = 0;
  virtual bool IsGroupNameExist(const char* project, const char* groupName) = 0;
  // Fills the list (emptied first) with the project's groups.
  virtual bool LoadProjectGroups(const char* project, std::vector<WellGroupRecord>& records) = 0;
  // Fills the list (emptied first) with the project's group IDs in order.
  virtual bool GetGroupIDs(const char* project, std::vector<std::string>& ids) = 0;
  // Fills the list (emptied first) with the project's group names in GroupID order; an empty name gives
  // the GroupID.
  virtual bool GetGroupNames(const char* project, std::vector<std::string>& names) = 0;
  // Fills the list (emptied first) with the groups with these IDs in any project; batches of ten.
  virtual bool LoadGroupsByIDs(const std::vector<std::string>& ids, std::vector<WellGroupRecord>& records) = 0;
  // The first group with this ID in any project.
  virtual bool LoadGroup(const char* groupID, WellGroupRecord& record) = 0;
  // Fills the list (emptied first) with the groups with these names, ten at a time; a batch that finds no
  // row by name is matched by ID instead.
  virtual bool LoadGroupsByNames(const std::vector<std::string>& names, std::vector<WellGroupRecord>& records) = 0;
  // The group with this name, or else the group with this ID.
  virtual bool LoadGroupByName(const char* name, WellGroupRecord& record) = 0;
  // Replaces each group of the project (row and members) and writes one
  // membership row per well ID in members[i] for records[i]; members may be
  // shorter than records (the rest get no members). An empty GroupID fails.
  virtual bool SaveGroups(const char* project, const std::vector<WellGroupRecord>& records,
                          const std::vector<std::vector<std::string>>& members) = 0;
  virtual bool SaveGroup(const char* project, const WellGroupRecord& record,
                         const std::vector<std::string>& wellIDs) = 0;
  // Deletes the records' groups (DeleteGroups with their IDs).
  virtual bool DeleteGroupRecords(const char* project, const std::vector<WellGroupRecord>& records) = 0;
  // SaveGroup without members, with a std::string project.
  virtual bool SaveGroup(const std::string& project, const WellGroupRecord& record) = 0;
  // Deletes the project's groups, then every membership row of every project.
  virtual bool DeleteProjectGroups(const char* project) = 0;
  // Deletes each group of the project and its members; stops at the first
  // failed statement.
  virtual bool DeleteGroups(const char* project, const std::vector<std::string>& ids) = 0;
  // Deletes the group and its members; false when the project has no group
  // with this ID.
  virtual bool DeleteGroup(const char* project, const char* groupID) = 0;
  // LoadGroupsByNames, then DeleteGroupRecords; false when a batch of names
  // matches no group by name nor by ID.
  virtual bool DeleteGroupsByNames(const char* project, const std::vector<std::string>& names) = 0;
  // LoadGroupByName, then DeleteGroup with its ID.
  virtual bool DeleteGroupByName(const char* project, const char* name) = 0;
};
