#include <algorithm>
#include <memory>

#include "dbaccess/RecordLists.h"
#include "petrodb/project/IBasicWellData.h"
#include "petrodb/project/IWellGroupData.h"

using petrodb::AfxMessageBox;
using petrodb::FieldReader;
using petrodb::FieldWriter;
using petrodb::sql::Format;
using petrodb::sql::Fragment;
using petrodb::sql::Raw;

class CBasicWellData final : public petrodb::CDataObject<IBasicWellData> {
 public:
  bool IsWellInGroup(const std::string& groupID, const std::string& wellID) override;
  bool IsWellIDExist(const std::string& project, const std::string& wellID) override;
  bool IsWellNameExist(const std::string& project, const std::string& wellName) override;
  int GetProjectWellCount(const char* project) override;
  int GetGroupWellCount(const char* project, const char* groupID) override;
  bool HasGroupWells(const char* project, const char* groupID) override;
  bool LoadGroupWells(const std::string& project, const std::string& groupID,
                      std::vector<WellRecord>& records) override;
  bool LoadProjectWells(const std::string& project, std::vector<WellRecord>& records) override;
  bool GetGroupWellDisplayNames(const char* project, const char* groupID, std::vector<std::string>& names) override;
  bool LoadWell(const std::string& wellID, WellRecord& record) override;

  bool IsWellInGroup(const char* groupID, const char* wellID) override;
  bool IsWellIDExist(const char* project, const char* wellID) override;
  bool IsWellNameInGroup(const char* project, const char* groupName, const char* wellName) override;
  bool IsWellNameExist(const char* project, const char* wellName) override;
  bool LoadGroupWells(const char* project, const char* groupID, std::vector<WellRecord>& records) override;
  bool LoadProjectWells(const char* project, std::vector<WellRecord>& records) override;
  bool GetGroupWellIDs(const char* project, const char* groupID, std::vector<std::string>& ids) override;
  bool GetProjectWellIDs(const char* project, std::vector<std::string>& ids) override;
  bool GetGroupWellNames(const char* project, const char* groupName, std::vector<std::string>& names) override;
  bool GetProjectWellNames(const char* project, std::vector<std::string>& names) override;
  bool LoadWellsByIDs(const std::vector<std::string>& ids, std::vector<WellRecord>& records) override;
  bool LoadWell(const char* wellID, WellRecord& record) override;
  bool LoadWellsByNames(const std::vector<std::string>& names, std::vector<WellRecord>& records) override;
  bool LoadWellByName(const char* name, WellRecord& record) override;
  bool LoadWellByName(const std::string& name, WellRecord& record) override;
  bool GetGroupedWellIDs(std::vector<std::string>& ids) override;
  bool GetGroupedWellNames(std::vector<std::string>& names) override;
  bool SaveWellsWithGroup(const char* project, const char* groupID, const std::vector<WellRecord>& records) override;
  bool SaveWellWithGroup(const char* project, const char* groupID, const WellRecord& record) override;
  bool SaveWells(const char* project, const std::vector<WellRecord>& records) override;
  bool SaveWell(const char* project, const WellRecord& record) override;
  bool SaveWell(const std::string& project, const WellRecord& record) override;
  bool SaveWells(const std::string& project, const std::vector<WellRecord>& records) override;
  bool SaveWellWithGroup(const std::string& project, const std::string& groupID, const WellRecord& record) override;
  bool DeleteProjectWells(const char* project) override;
  bool DeleteWells(const char* project, const std::vector<std::string>& ids) override;
  bool DeleteWell(const char* project, const char* wellID) override;
  bool DeleteWell(const std::string& project, const std::string& wellID) override;
  bool DeleteGroupWells(const char* project, const char* groupID) override;
  bool AddWellsToGroup(const char* groupID, const std::vector<std::string>& ids) override;
  bool AddWellToGroup(const char* groupID, const char* wellID) override;
  bool RemoveWellsFromGroup(const char* groupID, const std::vector<std::string>& ids) override;
  bool RemoveWellFromGroup(const char* groupID, const char* wellID) override;
  bool ClearGroup(const char* groupID) override;

  bool ListWellIDs(const char* project, std::vector<std::string>& ids) override;
  bool LoadWellList(const char* idList, std::vector<WellRecord>& records) override;
  bool LoadWellRow(const char* wellID, WellRecord& record) override;
  bool LoadAllWells(const char* project, std::vector<WellRecord>& records) override;
  bool WellExists(const char* wellID, const char* project) override;
  bool ReplaceWell(const char* project, const WellRecord& record) override;
  bool FilterExistingWells(const char* project, const std::vector<std::string>& ids,
                           std::vector<std::string>& found) override;
  bool AppendWells(const char* project, const std::vector<WellRecord>& records) override;
  bool RemoveWell(const char* wellID, const char* project) override;
  bool RemoveWells(const char* idList, const char* project) override;
  bool RemoveProjectWells(const char* project) override;
  PETRODB_DATA_CLASS

 private:
  bool Exists(const std::string& statement);
  bool Execute(const std::string& statement);
  bool LoadWells(const std::string& statement, std::vector<WellRecord>& records);
  bool LoadOneWell(const std::string& statement, WellRecord& record);
  // The IDs of the group's members, then the statements built by `rowsOf`
  // (one per batch of ten) for the project's wells among them.
  template <class RunFn>
  bool ForGroupMembers(const char* project, const char* groupID, const char* pattern, RunFn&& run);
  bool LoadWellsAndName(const std::vector<std::string>& ids, std::vector<std::string>& names);
  void JoinGroupsByPolicy(CDbManage& db, const char* project, const WellRecord& record);
};

PETRODB_REGISTER_CLASS(CBasicWellData, IBasicWellData)

namespace {

bool ReadWell(CDbManage& db, WellRecord& w) {
  return FieldReader{db}("WellID", w.WellID)("WellName", w.WellName)("WellType", w.WellType)("Well_SN", w.Well_SN)(
             "Well_EW", w.Well_EW)("WellFlag", w.WellFlag)("WellSymbol", w.WellSymbol)("Kb", w.Kb)("Ekb", w.Ekb)(
             "WellDepth", w.WellDepth)
      .ok();
}

// The eleven columns of a row begun with AddNew.
void WriteWell(CDbManage& db, const char* project, const WellRecord& w) {
  FieldWriter{db}("ProjectName", project ? project : "")("WellID", w.WellID)("WellName", w.WellName)(
      "WellType", w.WellType)("Well_SN", w.Well_SN)("Well_EW", w.Well_EW)("WellFlag", w.WellFlag)(
      "WellSymbol", w.WellSymbol)("Kb", w.Kb)("Ekb", w.Ekb)("WellDepth", w.WellDepth);
}

template <class It>
void SortByWellID(It begin, It end) {
  std::stable_sort(begin, end, [](const WellRecord& a, const WellRecord& b) { return a.WellID < b.WellID; });
}

// What a host shows for a well: its name, or its ID when it has none.
const std::string& DisplayName(const WellRecord& w) { return w.WellName.empty() ? w.WellID : w.WellName; }

void AppendDisplayNames(const std::vector<WellRecord>& wells, std::vector<std::string>& names) {
  for (const auto& w : wells) names.push_back(DisplayName(w));
}

// Whether a group's naming policy takes the well in.
bool PolicyTakes(const WellGroupRecord& group, const WellRecord& well) {
  if (group.GroupPolicy < 0) return false;
  if (group.GroupPolicy == 0) return well.WellID.find(group.WellIDPolicy) != std::string::npos;
  return well.WellName.find(group.WellNamePolicy) != std::string::npos;
}

}  // namespace

// ---- shared steps ----

bool CBasicWellData::Exists(const std::string& statement) {
  CDbManage db(connectionString.c_str());
  return db.GetDataFromDB(statement.c_str()) == kRowsFound;
}

bool CBasicWellData::Execute(const std::string& statement) {
  CDbManage db(connectionString.c_str());
  return db.ExecuteSQL(statement.c_str());
}

bool CBasicWellData::LoadWells(const std::string& statement, std::vector<WellRecord>& records) {
  CDbManage db(connectionString.c_str());
  return petrodb::AppendRecords(db, statement, records, ReadWell);
}

bool CBasicWellData::LoadOneWell(const std::string& statement, WellRecord& record) {
  CDbManage db(connectionString.c_str());
  return db.GetDataFromDB(statement.c_str()) == kRowsFound && ReadWell(db, record);
}

template <class RunFn>
bool CBasicWellData::ForGroupMembers(const char* project, const char* groupID, const char* pattern, RunFn&& run) {
  std::vector<std::string> members;
  CDbManage db(connectionString.c_str());
  if (!petrodb::AppendColumn(db, Format("select WellID from w_groupwell where GroupID = '%s' order by WellID", groupID),
                             "WellID", members))
    return false;
  return petrodb::ForEachBatch(
      members, 10, [&](const Fragment& list) { return Format(pattern, project, list); },
      [&](const std::string& statement) { return run(db, statement); });
}

bool CBasicWellData::LoadWellsAndName(const std::vector<std::string>& ids, std::vector<std::string>& names) {
  std::vector<WellRecord> wells;
  if (!LoadWellsByIDs(ids, wells)) return false;
  SortByWellID(wells.begin(), wells.end());
  AppendDisplayNames(wells, names);
  return true;
}

// ---- convenience forms ----

bool CBasicWellData::IsWellInGroup(const std::string& groupID, const std::string& wellID) {
  return IsWellInGroup(groupID.c_str(), wellID.c_str());
}

bool CBasicWellData::IsWellIDExist(const std::string& project, const std::string& wellID) {
  return IsWellIDExist(project.c_str(), wellID.c_str());
}

bool CBasicWellData::IsWellNameExist(const std::string& project, const std::string& wellName) {
  return IsWellNameExist(project.c_str(), wellName.c_str());
}

int CBasicWellData::GetProjectWellCount(const char* project) {
  std::vector<std::string> ids;
  return GetProjectWellIDs(project, ids) ? static_cast<int>(ids.size()) : 0;
}

int CBasicWellData::GetGroupWellCount(const char* project, const char* groupID) {
  std::vector<std::string> ids;
  return GetGroupWellIDs(project, groupID, ids) ? static_cast<int>(ids.size()) : 0;
}

bool CBasicWellData::HasGroupWells(const char* project, const char* groupID) {
  return GetGroupWellCount(project, groupID) > 0;
}

bool CBasicWellData::LoadGroupWells(const std::string& project, const std::string& groupID,
                                    std::vector<WellRecord>& records) {
  return LoadGroupWells(project.c_str(), groupID.c_str(), records);
}

bool CBasicWellData::LoadProjectWells(const std::string& project, std::vector<WellRecord>& records) {
  return LoadProjectWells(project.c_str(), records);
}

bool CBasicWellData::GetGroupWellDisplayNames(const char* project, const char* groupID,
                                              std::vector<std::string>& names) {
  std::vector<std::string> ids;
  return GetGroupWellIDs(project, groupID, ids) && LoadWellsAndName(ids, names);
}

bool CBasicWellData::LoadWell(const std::string& wellID, WellRecord& record) {
  return LoadWell(wellID.c_str(), record);
}

bool CBasicWellData::LoadWellByName(const std::string& name, WellRecord& record) {
  return LoadWellByName(name.c_str(), record);
}

bool CBasicWellData::GetGroupedWellNames(std::vector<std::string>& names) {
  std::vector<std::string> ids;
  return GetGroupedWellIDs(ids) && LoadWellsAndName(ids, names);
}

bool CBasicWellData::SaveWell(const std::string& project, const WellRecord& record) {
  return SaveWell(project.c_str(), record);
}

bool CBasicWellData::SaveWells(const std::string& project, const std::vector<WellRecord>& records) {
  return SaveWells(project.c_str(), records);
}

bool CBasicWellData::SaveWellWithGroup(const std::string& project, const std::string& groupID,
                                       const WellRecord& record) {
  return SaveWellWithGroup(project.c_str(), groupID.c_str(), record);
}

bool CBasicWellData::DeleteWell(const std::string& project, const std::string& wellID) {
  return DeleteWell(project.c_str(), wellID.c_str());
}

bool CBasicWellData::DeleteGroupWells(const char* project, const char* groupID) {
  std::vector<std::string> ids;
  return GetGroupWellIDs(project, groupID, ids) && DeleteWells(project, ids);
}

// ---- group-aware operations ----

bool CBasicWellData::IsWellInGroup(const char* groupID, const char* wellID) {
  return Exists(Format("select WellID from w_groupwell where GroupID = '%s' and WellID = '%s'", groupID, wellID));
}

bool CBasicWellData::IsWellIDExist(const char* project, const char* wellID) {
  return Exists(Format("select WellID from w_well_data where ProjectName = '%s' and WellID = '%s'", project, wellID));
}

bool CBasicWellData::IsWellNameInGroup(const char* project, const char* groupName, const char* wellName) {
  std::string wellID, groupID;
  {
    CDbManage db(connectionString.c_str());
    if (db.GetDataFromDB(
            Format("select WellID from w_well_data where ProjectName = '%s' and WellName = '%s'", project, wellName)
                .c_str()) != kRowsFound ||
        !db.GetFieldValue("WellID", wellID))
      return false;
    if (db.GetDataFromDB(
            Format("select GroupID from w_wellgroup where ProjectName = '%s' and GroupName = '%s'", project, groupName)
                .c_str()) != kRowsFound ||
        !db.GetFieldValue("GroupID", groupID))
      return false;
  }
  return IsWellInGroup(groupID.c_str(), wellID.c_str());
}

bool CBasicWellData::IsWellNameExist(const char* project, const char* wellName) {
  return Exists(
      Format("select WellID from w_well_data where ProjectName = '%s' and WellName = '%s'", project, wellName));
}

// The rows of each batch come in the engine's order; the members are given in
// WellID order.
bool CBasicWellData::LoadGroupWells(const char* project, const char* groupID, std::vector<WellRecord>& records) {
  const std::size_t first = records.size();
  const bool ok = ForGroupMembers(project, groupID,
                                  "select * from w_well_data where ProjectName = '%s' and WellID in ('%s')",
                                  [&](CDbManage& db, const std::string& statement) {
                                    return petrodb::SelectRecords(db, statement, records, ReadWell);
                                  });
  SortByWellID(records.begin() + first, records.end());
  return ok;
}

bool CBasicWellData::LoadProjectWells(const char* project, std::vector<WellRecord>& records) {
  return LoadWells(Format("select * from w_well_data where ProjectName = '%s'", project), records);
}

bool CBasicWellData::GetGroupWellIDs(const char* project, const char* groupID, std::vector<std::string>& ids) {
  const std::size_t first = ids.size();
  const bool ok = ForGroupMembers(project, groupID,
                                  "select WellID from w_well_data where ProjectName = '%s' and WellID in ('%s')",
                                  [&](CDbManage& db, const std::string& statement) {
                                    return petrodb::SelectColumn(db, statement, "WellID", ids);
                                  });
  std::stable_sort(ids.begin() + first, ids.end());
  return ok;
}

bool CBasicWellData::GetProjectWellIDs(const char* project, std::vector<std::string>& ids) {
  CDbManage db(connectionString.c_str());
  return petrodb::AppendColumn(
      db, Format("select WellID from w_well_data where ProjectName = '%s' order by WellID", project), "WellID", ids);
}

bool CBasicWellData::GetGroupWellNames(const char* project, const char* groupName, std::vector<std::string>& names) {
  std::string groupID;
  {
    CDbManage db(connectionString.c_str());
    if (db.GetDataFromDB(
            Format("select GroupID from w_wellgroup where ProjectName = '%s' and GroupName = '%s'", project, groupName)
                .c_str()) != kRowsFound ||
        !db.GetFieldValue("GroupID", groupID))
      return false;
  }
  std::vector<WellRecord> wells;
  if (!LoadGroupWells(project, groupID.c_str(), wells)) return false;
  AppendDisplayNames(wells, names);
  return true;
}

bool CBasicWellData::GetProjectWellNames(const char* project, std::vector<std::string>& names) {
  std::vector<WellRecord> wells;
  CDbManage db(connectionString.c_str());
  const bool ok = petrodb::AppendRecords(
      db, Format("select * from w_well_data where ProjectName = '%s' order by WellID", project), wells,
      [](CDbManage& row, WellRecord& w) { return row.GetFieldValue("WellName", w.WellName) &&
                                                 row.GetFieldValue("WellID", w.WellID); });
  AppendDisplayNames(wells, names);
  return ok;
}

bool CBasicWellData::LoadWellsByIDs(const std::vector<std::string>& ids, std::vector<WellRecord>& records) {
  CDbManage db(connectionString.c_str());
  return petrodb::ForEachBatch(
      ids, 10, [](const Fragment& list) { return Format("select * from w_well_data where WellID in ('%s')", list); },
      [&](const std::string& statement) { return petrodb::SelectRecords(db, statement, records, ReadWell); });
}

bool CBasicWellData::LoadWell(const char* wellID, WellRecord& record) {
  return LoadOneWell(Format("select * from w_well_data where WellID = '%s'", wellID), record);
}

bool CBasicWellData::LoadWellsByNames(const std::vector<std::string>& names, std::vector<WellRecord>& records) {
  records.clear();
  CDbManage db(connectionString.c_str());
  const petrodb::BatchRetry byID{"where WellName in", "where WellID in"};
  return petrodb::ForEachBatch(
      names, 10, [](const Fragment& list) { return Format("select * from w_well_data where WellName in ('%s')", list); },
      [&](const std::string& statement) { return petrodb::SelectRecords(db, statement, records, ReadWell); }, &byID);
}

bool CBasicWellData::LoadWellByName(const char* name, WellRecord& record) {
  CDbManage db(connectionString.c_str());
  auto found = db.GetDataFromDB(Format("select * from w_well_data where WellName = '%s'", name).c_str());
  if (found == kNoRows) found = db.GetDataFromDB(Format("select * from w_well_data where WellID = '%s'", name).c_str());
  return found == kRowsFound && ReadWell(db, record);
}

bool CBasicWellData::GetGroupedWellIDs(std::vector<std::string>& ids) {
  CDbManage db(connectionString.c_str());
  return petrodb::AppendColumn(db, "select WellID from w_groupwell order by WellID", "WellID", ids);
}

bool CBasicWellData::SaveWellsWithGroup(const char* project, const char* groupID,
                                        const std::vector<WellRecord>& records) {
  for (const auto& record : records)
    if (!SaveWellWithGroup(project, groupID, record)) return false;
  return true;
}

bool CBasicWellData::SaveWellWithGroup(const char* project, const char* groupID, const WellRecord& record) {
  if (!SaveWell(project, record)) return false;
  // The group's naming policy may already have taken the well in.
  return IsWellInGroup(groupID, record.WellID.c_str()) || AddWellToGroup(groupID, record.WellID.c_str());
}

bool CBasicWellData::SaveWells(const char* project, const std::vector<WellRecord>& records) {
  for (const auto& record : records)
    if (!SaveWell(project, record)) return false;
  return true;
}

bool CBasicWellData::SaveWell(const char* project, const WellRecord& record) {
  if (!DeleteWell(project, record.WellID.c_str())) return false;
  CDbManage db(connectionString.c_str());
  db.BeginSaveData("w_well_data");
  db.AddNew();
  WriteWell(db, project, record);
  if (!db.SaveData()) return false;
  JoinGroupsByPolicy(db, project, record);
  return true;
}

// A saved well joins every group of the project whose naming policy its ID
// (policy 0) or name (positive policy) contains.
void CBasicWellData::JoinGroupsByPolicy(CDbManage& db, const char* project, const WellRecord& record) {
  const DataClassRecord* groupClass = petrodb::FindClassRecord("IWellGroupData");
  if (!groupClass) return;
  std::unique_ptr<IWellGroupData> groupData(static_cast<IWellGroupData*>(groupClass->createFunction()));
  if (!groupData) return;
  groupData->SetConnection(connectionString.c_str());
  std::vector<WellGroupRecord> groups;
  groupData->LoadProjectGroups(project, groups);
  if (petrodb::TableMissing(db, "w_groupwell")) return;
  db.BeginSaveData("w_groupwell");
  for (const auto& group : groups) {
    if (!PolicyTakes(group, record)) continue;
    db.AddNew();
    FieldWriter{db}("GroupID", group.GroupID)("WellID", record.WellID);
  }
  db.SaveData();
}

bool CBasicWellData::DeleteProjectWells(const char* project) {
  CDbManage db(connectionString.c_str());
  if (!db.ExecuteSQL(Format("delete from w_well_data where ProjectName = '%s'", project).c_str())) return false;
  return db.ExecuteSQL("delete from w_groupwell");
}

bool CBasicWellData::DeleteWells(const char* project, const std::vector<std::string>& ids) {
  for (const auto& id : ids)
    if (!DeleteWell(project, id.c_str())) return false;
  return true;
}

bool CBasicWellData::DeleteWell(const char* project, const char* wellID) {
  CDbManage db(connectionString.c_str());
  if (!db.ExecuteSQL(
          Format("delete from w_well_data where ProjectName = '%s' and WellID = '%s'", project, wellID).c_str()))
    return false;
  return db.ExecuteSQL(Format("delete from w_groupwell where WellID = '%s'", wellID).c_str());
}

bool CBasicWellData::AddWellsToGroup(const char* groupID, const std::vector<std::string>& ids) {
  CDbManage db(connectionString.c_str());
  db.BeginSaveData("w_groupwell");
  for (const auto& id : ids) {
    db.AddNew();
    FieldWriter{db}("GroupID", groupID ? groupID : "")("WellID", id);
  }
  return db.SaveData();
}

bool CBasicWellData::AddWellToGroup(const char* groupID, const char* wellID) {
  return AddWellsToGroup(groupID, {wellID ? wellID : ""});
}

bool CBasicWellData::RemoveWellsFromGroup(const char* groupID, const std::vector<std::string>& ids) {
  return Execute(Format("delete from w_groupwell where GroupID = '%s' and WellID in ('%s')", groupID,
                        petrodb::sql::JoinQuotedValues(ids)));
}

bool CBasicWellData::RemoveWellFromGroup(const char* groupID, const char* wellID) {
  return Execute(Format("delete from w_groupwell where GroupID = '%s' and WellID = '%s'", groupID, wellID));
}

bool CBasicWellData::ClearGroup(const char* groupID) {
  return Execute(Format("delete from w_groupwell where GroupID = '%s'", groupID));
}

// ---- compact operations ----

bool CBasicWellData::ListWellIDs(const char* project, std::vector<std::string>& ids) {
  CDbManage db(connectionString.c_str());
  return petrodb::AppendColumn(
      db, Format("select WellID from w_well_data where ProjectName='%s'order by WellID", project), "WellID", ids);
}

bool CBasicWellData::LoadWellList(const char* idList, std::vector<WellRecord>& records) {
  return LoadWells(Format("select * from w_well_data where WellID in (%s)", Raw{idList ? idList : ""}), records);
}

bool CBasicWellData::LoadWellRow(const char* wellID, WellRecord& record) {
  return LoadOneWell(Format("select * from w_well_data where WellID='%s'", wellID), record);
}

bool CBasicWellData::LoadAllWells(const char* project, std::vector<WellRecord>& records) {
  return LoadWells(Format("select * from w_well_data where ProjectName='%s'order by WellID", project), records);
}

bool CBasicWellData::WellExists(const char* wellID, const char* project) {
  return Exists(Format("select WellID from  w_well_data where WellID='%s' and ProjectName='%s'", wellID, project));
}

bool CBasicWellData::ReplaceWell(const char* project, const WellRecord& record) {
  if (record.WellID.empty()) {
    AfxMessageBox("井号不能为空！");
    return false;
  }
  CDbManage db(connectionString.c_str());
  db.ExecuteSQL(Format("delete from  w_well_data where WellID='%s'", record.WellID).c_str());
  db.BeginSaveData("w_well_data");
  db.AddNew();
  WriteWell(db, project, record);
  return db.SaveData();
}

bool CBasicWellData::FilterExistingWells(const char* project, const std::vector<std::string>& ids,
                                         std::vector<std::string>& found) {
  if (ids.empty()) return true;
  CDbManage db(connectionString.c_str());
  return petrodb::AppendColumn(db,
                               Format("select wellid from w_well_data where  ProjectName = '%s' and wellid in (%s)",
                                      project, petrodb::sql::QuoteEach(ids, ",")),
                               "wellid", found);
}

bool CBasicWellData::AppendWells(const char* project, const std::vector<WellRecord>& records) {
  CDbManage db(connectionString.c_str());
  db.BeginSaveData("w_well_data");
  for (const auto& record : records) {
    db.AddNew();
    WriteWell(db, project, record);
  }
  return db.SaveData();
}

bool CBasicWellData::RemoveWell(const char* wellID, const char* project) {
  return Execute(Format("delete from w_well_data where WellID='%s' and ProjectName='%s'", wellID, project));
}

bool CBasicWellData::RemoveWells(const char* idList, const char* project) {
  return Execute(
      Format("delete from  w_well_data where WellID in (%s) AND ProjectName='%s'", Raw{idList ? idList : ""}, project));
}

bool CBasicWellData::RemoveProjectWells(const char* project) {
  return Execute(Format("delete from  w_well_data where ProjectName='%s'", project));
}
