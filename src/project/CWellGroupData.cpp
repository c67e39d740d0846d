#include "dbaccess/RecordLists.h"
#include "petrodb/project/IWellGroupData.h"

using petrodb::FieldReader;
using petrodb::FieldWriter;
using petrodb::sql::Format;
using petrodb::sql::Fragment;

class CWellGroupData final : public petrodb::CDataObject<IWellGroupData> {
 public:
  int GetGroupCount(const char* project) override;
  bool IsGroupNameExist(const std::string& project, const std::string& groupName) override;
  bool HasGroups(const char* project) override;
  bool IsGroupIDExist(const char* project, const char* groupID) override;
  bool IsGroupNameExist(const char* project, const char* groupName) override;
  bool LoadProjectGroups(const char* project, std::vector<WellGroupRecord>& records) override;
  bool GetGroupIDs(const char* project, std::vector<std::string>& ids) override;
  bool GetGroupNames(const char* project, std::vector<std::string>& names) override;
  bool LoadGroupsByIDs(const std::vector<std::string>& ids, std::vector<WellGroupRecord>& records) override;
  bool LoadGroup(const char* groupID, WellGroupRecord& record) override;
  bool LoadGroupsByNames(const std::vector<std::string>& names, std::vector<WellGroupRecord>& records) override;
  bool LoadGroupByName(const char* name, WellGroupRecord& record) override;
  bool SaveGroups(const char* project, const std::vector<WellGroupRecord>& records,
                  const std::vector<std::vector<std::string>>& members) override;
  bool SaveGroup(const char* project, const WellGroupRecord& record, const std::vector<std::string>& wellIDs) override;
  bool DeleteGroupRecords(const char* project, const std::vector<WellGroupRecord>& records) override;
  bool SaveGroup(const std::string& project, const WellGroupRecord& record) override;
  bool DeleteProjectGroups(const char* project) override;
  bool DeleteGroups(const char* project, const std::vector<std::string>& ids) override;
  bool DeleteGroup(const char* project, const char* groupID) override;
  bool DeleteGroupsByNames(const char* project, const std::vector<std::string>& names) override;
  bool DeleteGroupByName(const char* project, const char* name) override;
  PETRODB_DATA_CLASS

 private:
  bool Exists(const std::string& statement);
  bool LoadBatched(const char* pattern, const std::vector<std::string>& values, std::vector<WellGroupRecord>& records,
                   const petrodb::BatchRetry* retry);
  bool DeleteOne(CDbManage& db, const char* project, const std::string& groupID);
};

PETRODB_REGISTER_CLASS(CWellGroupData, IWellGroupData)

namespace {

bool ReadGroup(CDbManage& db, WellGroupRecord& g) {
  return FieldReader{db}("GroupID", g.GroupID)("GroupName", g.GroupName)("GroupPolicy", g.GroupPolicy)(
             "WellIDPolicy", g.WellIDPolicy)("WellNamePolicy", g.WellNamePolicy)
      .ok();
}

std::vector<std::string> IDsOf(const std::vector<WellGroupRecord>& records) {
  std::vector<std::string> ids;
  for (const auto& r : records) ids.push_back(r.GroupID);
  return ids;
}

}  // namespace

bool CWellGroupData::Exists(const std::string& statement) {
  CDbManage db(connectionString.c_str());
  return db.GetDataFromDB(statement.c_str()) == kRowsFound;
}

bool CWellGroupData::LoadBatched(const char* pattern, const std::vector<std::string>& values,
                                 std::vector<WellGroupRecord>& records, const petrodb::BatchRetry* retry) {
  CDbManage db(connectionString.c_str());
  return petrodb::ForEachBatch(
      values, 10, [pattern](const Fragment& list) { return Format(pattern, list); },
      [&](const std::string& statement) { return petrodb::SelectRecords(db, statement, records, ReadGroup); }, retry);
}

// The group's row and its membership rows.
bool CWellGroupData::DeleteOne(CDbManage& db, const char* project, const std::string& groupID) {
  return db.ExecuteSQL(
             Format("delete from w_wellgroup where ProjectName = '%s' and GroupID = '%s'", project, groupID).c_str()) &&
         db.ExecuteSQL(Format("delete from w_groupwell where GroupID = '%s'", groupID).c_str());
}

// ---- convenience forms ----

int CWellGroupData::GetGroupCount(const char* project) {
  std::vector<std::string> ids;
  return GetGroupIDs(project, ids) ? static_cast<int>(ids.size()) : 0;
}

bool CWellGroupData::IsGroupNameExist(const std::string& project, const std::string& groupName) {
  return IsGroupNameExist(project.c_str(), groupName.c_str());
}

bool CWellGroupData::HasGroups(const char* project) { return GetGroupCount(project) > 0; }

bool CWellGroupData::DeleteGroupRecords(const char* project, const std::vector<WellGroupRecord>& records) {
  return DeleteGroups(project, IDsOf(records));
}

bool CWellGroupData::SaveGroup(const std::string& project, const WellGroupRecord& record) {
  return SaveGroup(project.c_str(), record, {});
}

bool CWellGroupData::DeleteGroupsByNames(const char* project, const std::vector<std::string>& names) {
  std::vector<WellGroupRecord> groups;
  return LoadGroupsByNames(names, groups) && DeleteGroupRecords(project, groups);
}

bool CWellGroupData::DeleteGroupByName(const char* project, const char* name) {
  WellGroupRecord group;
  return LoadGroupByName(name, group) && DeleteGroup(project, group.GroupID.c_str());
}

// ---- full operations ----

bool CWellGroupData::IsGroupIDExist(const char* project, const char* groupID) {
  return Exists(
      Format("select GroupID from w_wellgroup where ProjectName = '%s' and GroupID = '%s'", project, groupID));
}

bool CWellGroupData::IsGroupNameExist(const char* project, const char* groupName) {
  return Exists(
      Format("select GroupID from w_wellgroup where ProjectName = '%s' and GroupName = '%s'", project, groupName));
}

bool CWellGroupData::LoadProjectGroups(const char* project, std::vector<WellGroupRecord>& records) {
  CDbManage db(connectionString.c_str());
  return petrodb::AppendRecords(db, Format("select * from w_wellgroup where ProjectName = '%s'", project), records,
                                ReadGroup);
}

bool CWellGroupData::GetGroupIDs(const char* project, std::vector<std::string>& ids) {
  CDbManage db(connectionString.c_str());
  return petrodb::AppendColumn(
      db, Format("select GroupID from w_wellgroup where ProjectName = '%s' order by GroupID", project), "GroupID", ids);
}

bool CWellGroupData::GetGroupNames(const char* project, std::vector<std::string>& names) {
  CDbManage db(connectionString.c_str());
  return petrodb::AppendRecords(
      db, Format("select * from w_wellgroup where ProjectName = '%s' order by GroupID", project), names,
      [](CDbManage& row, std::string& name) {
        std::string id;
        if (!row.GetFieldValue("GroupName", name) || !row.GetFieldValue("GroupID", id)) return false;
        if (name.empty()) name = id;
        return true;
      });
}

bool CWellGroupData::LoadGroupsByIDs(const std::vector<std::string>& ids, std::vector<WellGroupRecord>& records) {
  return LoadBatched("select * from w_wellgroup where GroupID in ('%s')", ids, records, nullptr);
}

bool CWellGroupData::LoadGroup(const char* groupID, WellGroupRecord& record) {
  CDbManage db(connectionString.c_str());
  return db.GetDataFromDB(Format("select * from w_wellgroup where GroupID = '%s'", groupID).c_str()) == kRowsFound &&
         ReadGroup(db, record);
}

bool CWellGroupData::LoadGroupsByNames(const std::vector<std::string>& names, std::vector<WellGroupRecord>& records) {
  const petrodb::BatchRetry byID{"where GroupName in", "where GroupID in"};
  return LoadBatched("select * from w_wellgroup where GroupName in ('%s')", names, records, &byID);
}

bool CWellGroupData::LoadGroupByName(const char* name, WellGroupRecord& record) {
  CDbManage db(connectionString.c_str());
  auto found = db.GetDataFromDB(Format("select * from w_wellgroup where GroupName = '%s'", name).c_str());
  if (found != kRowsFound)
    found = db.GetDataFromDB(Format("select * from w_wellgroup where GroupID = '%s'", name).c_str());
  return found == kRowsFound && ReadGroup(db, record);
}

bool CWellGroupData::SaveGroups(const char* project, const std::vector<WellGroupRecord>& records,
                                const std::vector<std::vector<std::string>>& members) {
  for (const auto& record : records)
    if (record.GroupID.empty()) return false;
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, "w_wellgroup")) return false;
  for (const auto& record : records)
    if (!DeleteOne(db, project, record.GroupID)) return false;
  db.BeginSaveData("w_wellgroup");
  for (const auto& g : records) {
    db.AddNew();
    FieldWriter{db}("ProjectName", project ? project : "")("GroupID", g.GroupID)("GroupName", g.GroupName)(
        "GroupPolicy", g.GroupPolicy)("WellIDPolicy", g.WellIDPolicy)("WellNamePolicy", g.WellNamePolicy);
  }
  if (!db.SaveData()) return false;
  db.BeginSaveData("w_groupwell");
  for (std::size_t i = 0; i < records.size() && i < members.size(); ++i)
    for (const auto& wellID : members[i]) {
      db.AddNew();
      FieldWriter{db}("GroupID", records[i].GroupID)("WellID", wellID);
    }
  return db.SaveData();
}

bool CWellGroupData::SaveGroup(const char* project, const WellGroupRecord& record,
                               const std::vector<std::string>& wellIDs) {
  return SaveGroups(project, {record}, {wellIDs});
}

bool CWellGroupData::DeleteProjectGroups(const char* project) {
  CDbManage db(connectionString.c_str());
  if (!db.ExecuteSQL(Format("delete from w_wellgroup where ProjectName = '%s'", project).c_str())) return false;
  return db.ExecuteSQL("delete from w_groupwell");
}

bool CWellGroupData::DeleteGroups(const char* project, const std::vector<std::string>& ids) {
  CDbManage db(connectionString.c_str());
  for (const auto& id : ids)
    if (!DeleteOne(db, project, id)) return false;
  return true;
}

bool CWellGroupData::DeleteGroup(const char* project, const char* groupID) {
  if (!IsGroupIDExist(project, groupID)) return false;
  CDbManage db(connectionString.c_str());
  return DeleteOne(db, project, groupID ? groupID : "");
}
