#pragma once
// Well master records: one row per well and project in w_well_data, and the
// membership of wells in well groups in w_groupwell.
//
// Wells are keyed by WellID and scoped by ProjectName. The project is never a
// field of the record: every writing operation takes it as an argument.
// Failure (false) means a statement could not run (missing table, invalid SQL,
// a value holding a single quote) or a field of a row could not be read.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct WellRecord {
  std::string WellID;    // key within a project; never empty on save
  std::string WellName;  // display name; may be empty
  std::string WellType;
  double Well_SN = 0.0;  // south-north coordinate
  double Well_EW = 0.0;  // east-west coordinate
  char WellFlag = '0';
  int WellSymbol = 0;  // map symbol code
  double Kb = 0.0;     // kelly-bushing elevation
  double Ekb = 0.0;    // ground / reference elevation
  double WellDepth = 0.0;
  // Carried for callers; not stored in w_well_data and not filled by loads.
  std::string Oilfield;
  std::string Remark;
};

class PETRODB_API IBasicWellData : public IDataBase {
 public:
  // ---- convenience forms: each forwards to a full operation below ----

  // IsWellInGroup(const char*, const char*) with std::string arguments.
  virtual bool IsWellInGroup(const std::string& groupID, const std::string& wellID) = 0;
  // IsWellIDExist(const char*, const char*) with std::string arguments.
  virtual bool IsWellIDExist(const std::string& project, const std::string& wellID) = 0;
  // IsWellNameExist(const char*, const char*) with std::string arguments.
  virtual bool IsWellNameExist(const std::string& project, const std::string& wellName) = 0;
  // Number of wells of the project (GetProjectWellIDs); 0 also when the
  // table cannot be read.
  virtual int GetProjectWellCount(const char* project) = 0;
  // Number of wells of the group in the project (GetGroupWellIDs); 0 also
  // on failure.
  virtual int GetGroupWellCount(const char* project, const char* groupID) = 0;
  // True when the group has at least one well of the project.
  virtual bool HasGroupWells(const char* project, const char* groupID) = 0;
  // LoadGroupWells(const char*, const char*, ...) with std::string arguments.
  virtual bool LoadGroupWells(const std::string& project, const std::string& groupID,
                              std::vector<WellRecord>& records) = 0;
  // LoadProjectWells(const char*, ...) with a std::string argument.
  virtual bool LoadProjectWells(const std::string& project, std::vector<WellRecord>& records) = 0;
  // The display names of the group's wells, in WellID order: GetGroupWellIDs,
  // then LoadWellsByIDs; a well whose name is empty gives its WellID.
  virtual bool GetGroupWellDisplayNames(const char* project, const char* groupID,
                                        std::vector<std::string>& names) = 0;
  // LoadWell(const char*, ...) with a std::string argument.
  virtual bool LoadWell(const std::string& wellID, WellRecord& record) = 0;

  // ---- group-aware operations ----

  virtual bool IsWellInGroup(const char* groupID, const char* wellID) = 0;
  virtual bool IsWellIDExist(const char* project, const char* wellID) = 0;
  // Resolves the well name in the project and the group name in the
  // project's groups, then tests the pair's membership.
  virtual bool IsWellNameInGroup(const char* project, const char* groupName, const char* wellName) = 0;
  virtual bool IsWellNameExist(const char* project, const char* wellName) = 0;
  // Fills the list (emptied first) with the group's wells of the project, in WellID order. A group
  // without members gives true and nothing.
  virtual bool LoadGroupWells(const char* project, const char* groupID, std::vector<WellRecord>& records) = 0;
  // Fills the list (emptied first) with every well of the project.
  virtual bool LoadProjectWells(const char* project, std::vector<WellRecord>& records) = 0;
  // Fills the list (emptied first) with the IDs of the group's wells that belong to the project, in order.
  virtual bool GetGroupWellIDs(const char* project, const char* groupID, std::vector<std::string>& ids) = 0;
  // Fills the list (emptied first) with the project's well IDs in order.
  virtual bool GetProjectWellIDs(const char* project, std::vector<std::string>& ids) = 0;
  // Fills the list (emptied first) with the names of the wells of the group found by name (first group
  // of that name); a well with an empty name gives its WellID.
  virtual bool GetGroupWellNames(const char* project, const char* groupName, std::vector<std::string>& names) = 0;
  // Fills the list (emptied first) with the project's well names in WellID order; an empty name gives
  // the WellID.
  virtual bool GetProjectWellNames(const char* project, std::vector<std::string>& names) = 0;
  // Fills the list (emptied first) with the wells with these IDs in any project; batches of ten.
  virtual bool LoadWellsByIDs(const std::vector<std::string>& ids, std::vector<WellRecord>& records) = 0;
  // The first well with this ID in any project.
  virtual bool LoadWell(const char* wellID, WellRecord& record) = 0;
  // Clears records, then loads by name ten at a time; a batch that finds no
  // row by name is matched by ID instead. On failure the earlier batches
  // stay in records.
  virtual bool LoadWellsByNames(const std::vector<std::string>& names, std::vector<WellRecord>& records) = 0;
  // The well with this name, or else the well with this ID.
  virtual bool LoadWellByName(const char* name, WellRecord& record) = 0;
  // LoadWellByName(const char*, ...) with a std::string argument.
  virtual bool LoadWellByName(const std::string& name, WellRecord& record) = 0;
  // Fills the list (emptied first) with the IDs of every membership row (all groups, all projects).
  virtual bool GetGroupedWellIDs(std::vector<std::string>& ids) = 0;
  // The display names of every grouped well in WellID order:
  // GetGroupedWellIDs, then LoadWellsByIDs; an empty name gives the WellID.
  virtual bool GetGroupedWellNames(std::vector<std::string>& names) = 0;
  // Saves each well (SaveWell) and adds it to the group unless its naming
  // policy already did; stops at the first failure.
  virtual bool SaveWellsWithGroup(const char* project, const char* groupID, const std::vector<WellRecord>& records) = 0;
  virtual bool SaveWellWithGroup(const char* project, const char* groupID, const WellRecord& record) = 0;
  // SaveWell for each record; stops at the first failure.
  virtual bool SaveWells(const char* project, const std::vector<WellRecord>& records) = 0;
  // Replaces the well in the project (row and memberships), then joins it to
  // every group of the project whose naming policy its ID or name contains.
  virtual bool SaveWell(const char* project, const WellRecord& record) = 0;
  // SaveWell(const char*, ...) with a std::string argument.
  virtual bool SaveWell(const std::string& project, const WellRecord& record) = 0;
  // SaveWells(const char*, ...) with a std::string argument.
  virtual bool SaveWells(const std::string& project, const std::vector<WellRecord>& records) = 0;
  // SaveWellWithGroup(const char*, const char*, ...) with std::string arguments.
  virtual bool SaveWellWithGroup(const std::string& project, const std::string& groupID, const WellRecord& record) = 0;
  // Deletes the project's wells, then every membership row of every project.
  virtual bool DeleteProjectWells(const char* project) = 0;
  virtual bool DeleteWells(const char* project, const std::vector<std::string>& ids) = 0;
  // Deletes the well's row in the project and its memberships in all groups.
  virtual bool DeleteWell(const char* project, const char* wellID) = 0;
  // DeleteWell(const char*, const char*) with std::string arguments.
  virtual bool DeleteWell(const std::string& project, const std::string& wellID) = 0;
  // Deletes the wells of the group in the project: GetGroupWellIDs, then
  // DeleteWells. True for a group without wells.
  virtual bool DeleteGroupWells(const char* project, const char* groupID) = 0;
  virtual bool AddWellsToGroup(const char* groupID, const std::vector<std::string>& ids) = 0;
  virtual bool AddWellToGroup(const char* groupID, const char* wellID) = 0;
  virtual bool RemoveWellsFromGroup(const char* groupID, const std::vector<std::string>& ids) = 0;
  virtual bool RemoveWellFromGroup(const char* groupID, const char* wellID) = 0;
  virtual bool ClearGroup(const char* groupID) = 0;

  // ---- compact operations without group handling ----

  virtual bool ListWellIDs(const char* project, std::vector<std::string>& ids) = 0;
  // idList is the caller's SQL value list, e.g. "'W1','W2'".
  virtual bool LoadWellList(const char* idList, std::vector<WellRecord>& records) = 0;
  // The first well with this ID in any project.
  virtual bool LoadWellRow(const char* wellID, WellRecord& record) = 0;
  virtual bool LoadAllWells(const char* project, std::vector<WellRecord>& records) = 0;
  virtual bool WellExists(const char* wellID, const char* project) = 0;
  // Deletes rows with the record's WellID in every project, then writes the
  // row for this project. Refuses an empty WellID with a message.
  virtual bool ReplaceWell(const char* project, const WellRecord& record) = 0;
  // Fills found (emptied first) with the IDs among ids that exist in the
  // project; an empty ids list cannot run and is false.
  virtual bool FilterExistingWells(const char* project, const std::vector<std::string>& ids,
                                   std::vector<std::string>& found) = 0;
  // Writes the rows in one save, without deleting first.
  virtual bool AppendWells(const char* project, const std::vector<WellRecord>& records) = 0;
  virtual bool RemoveWell(const char* wellID, const char* project) = 0;
  // idList is the caller's SQL value list.
  virtual bool RemoveWells(const char* idList, const char* project) = 0;
  virtual bool RemoveProjectWells(const char* project) = 0;
};
