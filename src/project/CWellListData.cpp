#include "dbaccess/CodeTable.h"
#include "dbaccess/RecordLists.h"
#include "petrodb/project/IWellListData.h"

using petrodb::AfxMessageBox;
using petrodb::FieldWriter;
using petrodb::sql::Format;

class CWellListData final : public petrodb::CDataObject<IWellListData> {
 public:
  bool GetWellListNames(std::vector<std::string>& names) override;
  bool LoadWellList(const char* name, WellListRecord& record) override;
  bool SaveWellList(const WellListRecord& record) override;
  bool DeleteWellList(const char* name) override;
  bool IsWellListExist(const char* name) override;
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CWellListData, IWellListData)

namespace {
constexpr const char* kEmptyName = "井列表名称不能为空！";
}

bool CWellListData::GetWellListNames(std::vector<std::string>& names) {
  CDbManage db(connectionString.c_str());
  return petrodb::SelectColumn(db, "select Distinct WellListName from b_welllist_data order by WelllistName",
                               "WellListName", names) == kRowsFound;
}

// Members are appended in the database's order; the first unreadable row ends
// the list.
bool CWellListData::LoadWellList(const char* name, WellListRecord& record) {
  CDbManage db(connectionString.c_str());
  const int found = petrodb::SelectRecords(
      db, Format("select * from b_welllist_data where WelllistName='%s'", name), record.Wells,
      [](CDbManage& row, WellListItem& item) {
        return row.GetFieldValue("WellID", item.WellID) && row.GetFieldValue("WellNumber", item.WellNumber);
      });
  if (found != kRowsFound && found != petrodb::kRowUnreadable) return false;
  record.WellListName = name;
  return true;
}

bool CWellListData::SaveWellList(const WellListRecord& record) {
  if (record.WellListName.empty()) {
    AfxMessageBox(kEmptyName);
    return false;
  }
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, "b_welllist_data")) return false;
  db.ExecuteSQL(Format("delete from  b_welllist_data where WellListName='%s'", record.WellListName).c_str());
  db.BeginSaveData("b_welllist_data");
  for (const auto& item : record.Wells) {
    db.AddNew();
    FieldWriter{db}("WellListName", record.WellListName)("WellID", item.WellID)("WellNumber", item.WellNumber);
  }
  return db.SaveData();
}

bool CWellListData::DeleteWellList(const char* name) {
  return petrodb::DeleteNamedRows(connectionString, "b_welllist_data", name, kEmptyName,
                                  Format("delete from b_welllist_data where WellListName='%s'", name));
}

bool CWellListData::IsWellListExist(const char* name) {
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, "b_welllist_data")) return false;
  return db.GetDataFromDB(Format("select WellListName from  b_welllist_data where WellListName='%s'", name).c_str()) ==
         kRowsFound;
}
