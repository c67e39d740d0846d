#include "petrodb/project/IWellGroupData.h"
#include "project/ProjectData.h"

using namespace petrodb;

namespace {

constexpr Pattern<"select GroupID from w_wellgroup where ProjectName = '%s' and GroupID = '%s'"> kGroupIDExists;
constexpr Pattern<"select GroupID from w_wellgroup where ProjectName = '%s' and GroupName = '%s'"> kGroupNameExists;
constexpr Pattern<"select * from w_wellgroup where ProjectName = '%s'"> kProjectGroups;
constexpr Pattern<"select GroupID from w_wellgroup where ProjectName = '%s' order by GroupID"> kGroupIDs;
constexpr Pattern<"select * from w_wellgroup where ProjectName = '%s' order by GroupID"> kGroupsInOrder;
constexpr Pattern<"select * from w_wellgroup where GroupID in ('%s')"> kGroupsByID;
constexpr Pattern<"select * from w_wellgroup where GroupID = '%s'"> kGroupByID;
constexpr Pattern<"select * from w_wellgroup where GroupName in ('%s')"> kGroupsByName;
constexpr Pattern<"select * from w_wellgroup where GroupName = '%s'"> kGroupByName;
constexpr Pattern<"delete from w_wellgroup where ProjectName = '%s' and GroupID = '%s'"> kDeleteGroup;
constexpr Pattern<"delete from w_groupwell where GroupID = '%s'"> kDeleteMembers;
constexpr Pattern<"delete from w_wellgroup where ProjectName = '%s'"> kDeleteProjectGroups;
constexpr Pattern<"delete from w_groupwell"> kDeleteAllMembers;

// The row's ProjectName is the operation's argument.
const ColumnTable<WellGroupRecord> kGroupColumns{"w_wellgroup", {
    Col("GroupID", &WellGroupRecord::GroupID),
    Col("GroupName", &WellGroupRecord::GroupName),
    Col("GroupPolicy", &WellGroupRecord::GroupPolicy),
    Col("WellIDPolicy", &WellGroupRecord::WellIDPolicy),
    Col("WellNamePolicy", &WellGroupRecord::WellNamePolicy),
}};

const ReplaceSteps kSaveGroups{"w_wellgroup"};

std::string Text(const char* s) { return s ? s : ""; }

}  // namespace

class CWellGroupData final : public ProjectDataObject<IWellGroupData> {
 public:
  // ---- convenience forms ----

  int GetGroupCount(const char* project) override {
    std::vector<std::string> ids;
    return GetGroupIDs(project, ids) ? static_cast<int>(ids.size()) : 0;
  }

  bool IsGroupNameExist(const std::string& project, const std::string& groupName) override {
    return IsGroupNameExist(project.c_str(), groupName.c_str());
  }

  bool HasGroups(const char* project) override { return GetGroupCount(project) > 0; }

  bool DeleteGroupRecords(const char* project, const std::vector<WellGroupRecord>& records) override {
    std::vector<std::string> ids;
    for (const auto& r : records) ids.push_back(r.GroupID);
    return DeleteGroups(project, ids);
  }

  bool SaveGroup(const std::string& project, const WellGroupRecord& record) override {
    return SaveGroup(project.c_str(), record, {});
  }

  bool DeleteGroupsByNames(const char* project, const std::vector<std::string>& names) override {
    std::vector<WellGroupRecord> groups;
    return LoadGroupsByNames(names, groups) && DeleteGroupRecords(project, groups);
  }

  bool DeleteGroupByName(const char* project, const char* name) override {
    WellGroupRecord group;
    return LoadGroupByName(name, group) && DeleteGroup(project, group.GroupID.c_str());
  }

  bool SaveGroup(const char* project, const WellGroupRecord& record, const std::vector<std::string>& wellIDs) override {
    return SaveGroups(project, {record}, {wellIDs});
  }

  // ---- full operations ----

  bool IsGroupIDExist(const char* project, const char* groupID) override {
    return Exists(kGroupIDExists(project, groupID));
  }

  bool IsGroupNameExist(const char* project, const char* groupName) override {
    return Exists(kGroupNameExists(project, groupName));
  }

  bool LoadProjectGroups(const char* project, std::vector<WellGroupRecord>& records) override {
    return LoadAll(kProjectGroups(project), kGroupColumns, records, Fill::Clear).ran();
  }

  bool GetGroupIDs(const char* project, std::vector<std::string>& ids) override {
    return ListColumn(kGroupIDs(project), "GroupID", ids, Fill::Clear).ran();
  }

  bool GetGroupNames(const char* project, std::vector<std::string>& names) override {
    return LoadRows(kGroupsInOrder(project), names, Fill::Clear, [](CDbManage& row, std::string& name) {
             return ReadDisplayName(row, "GroupName", "GroupID", name);
           }).ran();
  }

  bool LoadGroupsByIDs(const std::vector<std::string>& ids, std::vector<WellGroupRecord>& records) override {
    records.clear();
    return LoadInBatches(
        ids, 10, [](const sql::Fragment& list) { return kGroupsByID(list); }, records,
        [](CDbManage& row, WellGroupRecord& r) { return kGroupColumns.Read(row, r); });
  }

  bool LoadGroup(const char* groupID, WellGroupRecord& record) override {
    return LoadOne(kGroupByID(groupID), kGroupColumns, record);
  }

  bool LoadGroupsByNames(const std::vector<std::string>& names, std::vector<WellGroupRecord>& records) override {
    return LoadBatchesByNameOrID(
        names, [](const sql::Fragment& list) { return kGroupsByName(list); },
        [](const sql::Fragment& list) { return kGroupsByID(list); }, kGroupColumns, records);
  }

  bool LoadGroupByName(const char* name, WellGroupRecord& record) override {
    return LoadOneOrElse(kGroupByName(name), kGroupByID(name), Fallback::UnlessFound, kGroupColumns, record);
  }

  // Each group's row and members are deleted first (a delete that fails ends
  // the save before anything is written); then the rows, then the members.
  bool SaveGroups(const char* project, const std::vector<WellGroupRecord>& records,
                  const std::vector<std::vector<std::string>>& members) override {
    for (const auto& record : records)
      if (record.GroupID.empty()) return false;
    return Atomically([&] {
      const bool saved = ReplaceAfter(
          kSaveGroups,
          [&](CDbManage&) {
            for (const auto& record : records)
              if (!DeleteOne(project, record.GroupID)) return false;
            return true;
          },
          [&](CDbManage& db) {
            for (const auto& g : records) kGroupColumns.AddKeyedRow(db, "ProjectName", Text(project), g);
          });
      return saved && Append(kMembershipColumns.table(), [&](CDbManage& db) {
               for (std::size_t i = 0; i < records.size() && i < members.size(); ++i)
                 for (const auto& wellID : members[i]) kMembershipColumns.AddRow(db, {records[i].GroupID, wellID});
             });
    });
  }

  bool DeleteProjectGroups(const char* project) override {
    return Execute(kDeleteProjectGroups(project)) && Execute(kDeleteAllMembers());
  }

  bool DeleteGroups(const char* project, const std::vector<std::string>& ids) override {
    return Atomically([&] {
      for (const auto& id : ids)
        if (!DeleteOne(project, id)) return false;
      return true;
    });
  }

  bool DeleteGroup(const char* project, const char* groupID) override {
    return IsGroupIDExist(project, groupID) && DeleteOne(project, Text(groupID));
  }
  PETRODB_DATA_CLASS

 private:
  // The group's row and its membership rows.
  bool DeleteOne(const char* project, const std::string& groupID) const {
    return Atomically([&] { return Execute(kDeleteGroup(project, groupID)) && Execute(kDeleteMembers(groupID)); });
  }
};

PETRODB_REGISTER_CLASS(CWellGroupData, IWellGroupData)
