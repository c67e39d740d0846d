#include <algorithm>

#include "petrodb/project/IBasicWellData.h"
#include "petrodb/project/IWellGroupData.h"
#include "project/ProjectData.h"

using namespace petrodb;

namespace {

// Group-aware operations: spaced "= '" comparisons.
constexpr Pattern<"select WellID from w_groupwell where GroupID = '%s' and WellID = '%s'"> kMembership;
constexpr Pattern<"select WellID from w_well_data where ProjectName = '%s' and WellID = '%s'"> kWellIDInProject;
constexpr Pattern<"select WellID from w_well_data where ProjectName = '%s' and WellName = '%s'"> kWellNameInProject;
constexpr Pattern<"select GroupID from w_wellgroup where ProjectName = '%s' and GroupName = '%s'"> kGroupOfName;
constexpr Pattern<"select WellID from w_groupwell where GroupID = '%s' order by WellID"> kMembersOf;
constexpr Pattern<"select * from w_well_data where ProjectName = '%s' and WellID in ('%s')"> kProjectWellsIn;
constexpr Pattern<"select WellID from w_well_data where ProjectName = '%s' and WellID in ('%s')"> kProjectWellIDsIn;
constexpr Pattern<"select * from w_well_data where ProjectName = '%s'"> kProjectWells;
constexpr Pattern<"select WellID from w_well_data where ProjectName = '%s' order by WellID"> kProjectWellIDs;
constexpr Pattern<"select * from w_well_data where ProjectName = '%s' order by WellID"> kProjectWellsInOrder;
constexpr Pattern<"select * from w_well_data where WellID in ('%s')"> kWellsByID;
constexpr Pattern<"select * from w_well_data where WellID = '%s'"> kWellByID;
constexpr Pattern<"select * from w_well_data where WellName in ('%s')"> kWellsByName;
constexpr Pattern<"select * from w_well_data where WellName = '%s'"> kWellByName;
constexpr Pattern<"select WellID from w_groupwell order by WellID"> kGroupedWellIDs;
constexpr Pattern<"delete from w_well_data where ProjectName = '%s'"> kDeleteProjectWells;
constexpr Pattern<"delete from w_groupwell"> kDeleteAllMemberships;
constexpr Pattern<"delete from w_well_data where ProjectName = '%s' and WellID = '%s'"> kDeleteWell;
constexpr Pattern<"delete from w_groupwell where WellID = '%s'"> kDeleteMembershipsOf;
constexpr Pattern<"delete from w_groupwell where GroupID = '%s' and WellID in ('%s')"> kRemoveMembers;
constexpr Pattern<"delete from w_groupwell where GroupID = '%s' and WellID = '%s'"> kRemoveMember;
constexpr Pattern<"delete from w_groupwell where GroupID = '%s'"> kClearGroup;

// Compact operations: "='" comparisons, odd spacing kept.
constexpr Pattern<"select WellID from w_well_data where ProjectName='%s'order by WellID"> kListWellIDs;
constexpr Pattern<"select * from w_well_data where WellID in (%s)"> kWellsInList;
constexpr Pattern<"select * from w_well_data where WellID='%s'"> kWellRow;
constexpr Pattern<"select * from w_well_data where ProjectName='%s'order by WellID"> kAllWells;
constexpr Pattern<"select WellID from  w_well_data where WellID='%s' and ProjectName='%s'"> kWellExists;
constexpr Pattern<"delete from  w_well_data where WellID='%s'"> kDeleteWellEverywhere;
constexpr Pattern<"select wellid from w_well_data where  ProjectName = '%s' and wellid in (%s)"> kExistingWells;
constexpr Pattern<"delete from w_well_data where WellID='%s' and ProjectName='%s'"> kRemoveWell;
constexpr Pattern<"delete from  w_well_data where WellID in (%s) AND ProjectName='%s'"> kRemoveWells;
constexpr Pattern<"delete from  w_well_data where ProjectName='%s'"> kRemoveProjectWells;

// The row's ProjectName is the operation's argument; it is written first.
const ColumnTable<WellRecord> kWellColumns{"w_well_data", {
    Col("WellID", &WellRecord::WellID),
    Col("WellName", &WellRecord::WellName),
    Col("WellType", &WellRecord::WellType),
    Col("Well_SN", &WellRecord::Well_SN),
    Col("Well_EW", &WellRecord::Well_EW),
    Col("WellFlag", &WellRecord::WellFlag),
    Col("WellSymbol", &WellRecord::WellSymbol),
    Col("Kb", &WellRecord::Kb),
    Col("Ekb", &WellRecord::Ekb),
    Col("WellDepth", &WellRecord::WellDepth),
}};

const ReplaceSteps kWriteWell{"w_well_data", Probe::None};
const ReplaceSteps kJoinGroups{"w_groupwell"};

bool ReadWell(CDbManage& db, WellRecord& w) { return kWellColumns.Read(db, w); }
bool ReadWellID(CDbManage& db, std::string& id) { return db.GetFieldValue("WellID", id); }
sql::Statement WellsByID(const sql::Fragment& list) { return kWellsByID(list); }

void AddWellRow(CDbManage& db, const char* project, const WellRecord& w) {
  kWellColumns.AddKeyedRow(db, "ProjectName", project ? project : "", w);
}

void SortByWellID(std::vector<WellRecord>& wells) {
  std::stable_sort(wells.begin(), wells.end(),
                   [](const WellRecord& a, const WellRecord& b) { return a.WellID < b.WellID; });
}

// What a host shows for a well: its name, or its ID when it has none.
void AppendDisplayNames(const std::vector<WellRecord>& wells, std::vector<std::string>& names) {
  for (const auto& w : wells) names.push_back(w.WellName.empty() ? w.WellID : w.WellName);
}

// Whether a group's naming policy takes the well in.
bool PolicyTakes(const WellGroupRecord& group, const WellRecord& well) {
  if (group.GroupPolicy < 0) return false;
  if (group.GroupPolicy == 0) return well.WellID.find(group.WellIDPolicy) != std::string::npos;
  return well.WellName.find(group.WellNamePolicy) != std::string::npos;
}

}  // namespace

class CBasicWellData final : public ProjectDataObject<IBasicWellData> {
 public:
  // ---- convenience forms ----

  bool IsWellInGroup(const std::string& groupID, const std::string& wellID) override {
    return IsWellInGroup(groupID.c_str(), wellID.c_str());
  }
  bool IsWellIDExist(const std::string& project, const std::string& wellID) override {
    return IsWellIDExist(project.c_str(), wellID.c_str());
  }
  bool IsWellNameExist(const std::string& project, const std::string& wellName) override {
    return IsWellNameExist(project.c_str(), wellName.c_str());
  }
  int GetProjectWellCount(const char* project) override {
    std::vector<std::string> ids;
    return GetProjectWellIDs(project, ids) ? static_cast<int>(ids.size()) : 0;
  }
  int GetGroupWellCount(const char* project, const char* groupID) override {
    std::vector<std::string> ids;
    return GetGroupWellIDs(project, groupID, ids) ? static_cast<int>(ids.size()) : 0;
  }
  bool HasGroupWells(const char* project, const char* groupID) override {
    return GetGroupWellCount(project, groupID) > 0;
  }
  bool LoadGroupWells(const std::string& project, const std::string& groupID,
                      std::vector<WellRecord>& records) override {
    return LoadGroupWells(project.c_str(), groupID.c_str(), records);
  }
  bool LoadProjectWells(const std::string& project, std::vector<WellRecord>& records) override {
    return LoadProjectWells(project.c_str(), records);
  }
  bool GetGroupWellDisplayNames(const char* project, const char* groupID, std::vector<std::string>& names) override {
    names.clear();
    std::vector<std::string> ids;
    return GetGroupWellIDs(project, groupID, ids) && DisplayNamesOf(ids, names);
  }
  bool LoadWell(const std::string& wellID, WellRecord& record) override { return LoadWell(wellID.c_str(), record); }
  bool LoadWellByName(const std::string& name, WellRecord& record) override {
    return LoadWellByName(name.c_str(), record);
  }
  bool GetGroupedWellNames(std::vector<std::string>& names) override {
    names.clear();
    std::vector<std::string> ids;
    return GetGroupedWellIDs(ids) && DisplayNamesOf(ids, names);
  }
  bool SaveWell(const std::string& project, const WellRecord& record) override {
    return SaveWell(project.c_str(), record);
  }
  bool SaveWells(const std::string& project, const std::vector<WellRecord>& records) override {
    return SaveWells(project.c_str(), records);
  }
  bool SaveWellWithGroup(const std::string& project, const std::string& groupID, const WellRecord& record) override {
    return SaveWellWithGroup(project.c_str(), groupID.c_str(), record);
  }
  bool DeleteWell(const std::string& project, const std::string& wellID) override {
    return DeleteWell(project.c_str(), wellID.c_str());
  }
  bool DeleteGroupWells(const char* project, const char* groupID) override {
    std::vector<std::string> ids;
    return GetGroupWellIDs(project, groupID, ids) && DeleteWells(project, ids);
  }
  bool AddWellToGroup(const char* groupID, const char* wellID) override {
    return AddWellsToGroup(groupID, {wellID ? wellID : ""});
  }
  // The lists are saved and deleted whole or not at all.
  bool SaveWellsWithGroup(const char* project, const char* groupID, const std::vector<WellRecord>& records) override {
    return Atomically([&] {
      for (const auto& record : records)
        if (!SaveWellWithGroup(project, groupID, record)) return false;
      return true;
    });
  }
  bool SaveWells(const char* project, const std::vector<WellRecord>& records) override {
    return Atomically([&] {
      for (const auto& record : records)
        if (!SaveWell(project, record)) return false;
      return true;
    });
  }
  bool DeleteWells(const char* project, const std::vector<std::string>& ids) override {
    return Atomically([&] {
      for (const auto& id : ids)
        if (!DeleteWell(project, id.c_str())) return false;
      return true;
    });
  }

  // ---- group-aware operations ----

  bool IsWellInGroup(const char* groupID, const char* wellID) override { return Exists(kMembership(groupID, wellID)); }

  bool IsWellIDExist(const char* project, const char* wellID) override {
    return Exists(kWellIDInProject(project, wellID));
  }

  bool IsWellNameInGroup(const char* project, const char* groupName, const char* wellName) override {
    std::string wellID, groupID;
    return LoadField(kWellNameInProject(project, wellName), "WellID", wellID) &&
           LoadField(kGroupOfName(project, groupName), "GroupID", groupID) &&
           IsWellInGroup(groupID.c_str(), wellID.c_str());
  }

  bool IsWellNameExist(const char* project, const char* wellName) override {
    return Exists(kWellNameInProject(project, wellName));
  }

  // The rows of each batch come in the engine's order; the wells are given in
  // WellID order.
  bool LoadGroupWells(const char* project, const char* groupID, std::vector<WellRecord>& records) override {
    const bool ok = ForMembers(
        groupID, [&](const sql::Fragment& list) { return kProjectWellsIn(project, list); }, records, ReadWell);
    SortByWellID(records);
    return ok;
  }

  bool LoadProjectWells(const char* project, std::vector<WellRecord>& records) override {
    return LoadAll(kProjectWells(project), kWellColumns, records, Fill::Clear).ran();
  }

  bool GetGroupWellIDs(const char* project, const char* groupID, std::vector<std::string>& ids) override {
    const bool ok = ForMembers(
        groupID, [&](const sql::Fragment& list) { return kProjectWellIDsIn(project, list); }, ids, ReadWellID);
    std::stable_sort(ids.begin(), ids.end());
    return ok;
  }

  bool GetProjectWellIDs(const char* project, std::vector<std::string>& ids) override {
    return ListColumn(kProjectWellIDs(project), "WellID", ids, Fill::Clear).ran();
  }

  bool GetGroupWellNames(const char* project, const char* groupName, std::vector<std::string>& names) override {
    names.clear();
    std::string groupID;
    std::vector<WellRecord> wells;
    if (!LoadField(kGroupOfName(project, groupName), "GroupID", groupID) ||
        !LoadGroupWells(project, groupID.c_str(), wells))
      return false;
    AppendDisplayNames(wells, names);
    return true;
  }

  bool GetProjectWellNames(const char* project, std::vector<std::string>& names) override {
    return LoadRows(kProjectWellsInOrder(project), names, Fill::Clear, [](CDbManage& row, std::string& name) {
             return ReadDisplayName(row, "WellName", "WellID", name);
           }).ran();
  }

  bool LoadWellsByIDs(const std::vector<std::string>& ids, std::vector<WellRecord>& records) override {
    records.clear();
    return LoadInBatches(ids, 10, WellsByID, records, ReadWell);
  }

  bool LoadWell(const char* wellID, WellRecord& record) override {
    return LoadOne(kWellByID(wellID), kWellColumns, record);
  }

  bool LoadWellsByNames(const std::vector<std::string>& names, std::vector<WellRecord>& records) override {
    return LoadBatchesByNameOrID(
        names, [](const sql::Fragment& list) { return kWellsByName(list); }, WellsByID, kWellColumns, records);
  }

  bool LoadWellByName(const char* name, WellRecord& record) override {
    return LoadOneOrElse(kWellByName(name), kWellByID(name), Fallback::WhenNoRows, kWellColumns, record);
  }

  bool GetGroupedWellIDs(std::vector<std::string>& ids) override {
    return ListColumn(kGroupedWellIDs(), "WellID", ids, Fill::Clear).ran();
  }

  bool SaveWellWithGroup(const char* project, const char* groupID, const WellRecord& record) override {
    return Atomically([&] {
      if (!SaveWell(project, record)) return false;
      // The group's naming policy may already have taken the well in.
      return IsWellInGroup(groupID, record.WellID.c_str()) || AddWellToGroup(groupID, record.WellID.c_str());
    });
  }

  // Deletes the well in the project (row and memberships), writes the row,
  // then joins it to the groups whose naming policy takes it: one unit, so a
  // reader sees the old well or the new one with its memberships.
  bool SaveWell(const char* project, const WellRecord& record) override {
    return Atomically([&] {
      if (!ReplaceAfter(
              kWriteWell, [&](CDbManage&) { return DeleteWell(project, record.WellID.c_str()); },
              [&](CDbManage& db) { AddWellRow(db, project, record); }))
        return false;
      JoinGroupsByPolicy(project, record);
      return true;
    });
  }

  bool DeleteProjectWells(const char* project) override {
    return Atomically([&] { return Execute(kDeleteProjectWells(project)) && Execute(kDeleteAllMemberships()); });
  }

  bool DeleteWell(const char* project, const char* wellID) override {
    return Atomically([&] { return Execute(kDeleteWell(project, wellID)) && Execute(kDeleteMembershipsOf(wellID)); });
  }

  bool AddWellsToGroup(const char* groupID, const std::vector<std::string>& ids) override {
    const std::string group = groupID ? groupID : "";
    return Append(kMembershipColumns.table(), [&](CDbManage& db) {
      for (const auto& id : ids) kMembershipColumns.AddRow(db, {group, id});
    });
  }

  bool RemoveWellsFromGroup(const char* groupID, const std::vector<std::string>& ids) override {
    return Execute(kRemoveMembers(groupID, sql::JoinQuotedValues(ids)));
  }

  bool RemoveWellFromGroup(const char* groupID, const char* wellID) override {
    return Execute(kRemoveMember(groupID, wellID));
  }

  bool ClearGroup(const char* groupID) override { return Execute(kClearGroup(groupID)); }

  // ---- compact operations ----

  bool ListWellIDs(const char* project, std::vector<std::string>& ids) override {
    return ListColumn(kListWellIDs(project), "WellID", ids, Fill::Clear).ran();
  }

  bool LoadWellList(const char* idList, std::vector<WellRecord>& records) override {
    return LoadAll(kWellsInList(sql::Raw{idList ? idList : ""}), kWellColumns, records, Fill::Clear).ran();
  }

  bool LoadWellRow(const char* wellID, WellRecord& record) override {
    return LoadOne(kWellRow(wellID), kWellColumns, record);
  }

  bool LoadAllWells(const char* project, std::vector<WellRecord>& records) override {
    return LoadAll(kAllWells(project), kWellColumns, records, Fill::Clear).ran();
  }

  bool WellExists(const char* wellID, const char* project) override { return Exists(kWellExists(wellID, project)); }

  // Deletes the ID in every project, then writes the row for this one.
  bool ReplaceWell(const char* project, const WellRecord& record) override {
    if (!KeyGiven(record.WellID, AppMessage("井号不能为空！"))) return false;
    return Replace(kWriteWell, kDeleteWellEverywhere(record.WellID),
                   [&](CDbManage& db) { AddWellRow(db, project, record); });
  }

  bool FilterExistingWells(const char* project, const std::vector<std::string>& ids,
                           std::vector<std::string>& found) override {
    return ListColumn(kExistingWells(project, sql::QuoteEach(ids, ",")), "wellid", found, Fill::Clear).ran();
  }

  bool AppendWells(const char* project, const std::vector<WellRecord>& records) override {
    return Append(kWellColumns.table(), [&](CDbManage& db) {
      for (const auto& record : records) AddWellRow(db, project, record);
    });
  }

  bool RemoveWell(const char* wellID, const char* project) override { return Execute(kRemoveWell(wellID, project)); }

  bool RemoveWells(const char* idList, const char* project) override {
    return Execute(kRemoveWells(sql::Raw{idList ? idList : ""}, project));
  }

  bool RemoveProjectWells(const char* project) override { return Execute(kRemoveProjectWells(project)); }
  PETRODB_DATA_CLASS

 private:
  // The group's member IDs (in WellID order), then one select per batch of
  // ten of them, made by `build`; `out` is cleared first. A group without
  // members sends no second statement.
  template <class Record, class BuildFn, class ReadFn>
  bool ForMembers(const char* groupID, BuildFn&& build, std::vector<Record>& out, ReadFn&& read) const {
    out.clear();
    std::vector<std::string> members;
    return ListColumn(kMembersOf(groupID), "WellID", members, Fill::Clear).ran() &&
           LoadInBatches(members, 10, build, out, read);
  }

  // The display names of the wells with these IDs, in WellID order.
  bool DisplayNamesOf(const std::vector<std::string>& ids, std::vector<std::string>& names) {
    std::vector<WellRecord> wells;
    if (!LoadWellsByIDs(ids, wells)) return false;
    SortByWellID(wells);
    AppendDisplayNames(wells, names);
    return true;
  }

  // A saved well joins every group of the project whose naming policy its ID
  // (policy 0) or name (positive policy) contains; nothing is written when
  // w_groupwell is missing.
  void JoinGroupsByPolicy(const char* project, const WellRecord& record) const {
    const auto groupData = CreateObject<IWellGroupData>("IWellGroupData");
    if (!groupData) return;
    std::vector<WellGroupRecord> groups;
    groupData->LoadProjectGroups(project, groups);
    Save(kJoinGroups, [&](CDbManage& db) {
      for (const auto& group : groups)
        if (PolicyTakes(group, record)) kMembershipColumns.AddRow(db, {group.GroupID, record.WellID});
    });
  }
};

PETRODB_REGISTER_CLASS(CBasicWellData, IBasicWellData)
