#include "dbaccess/CodeTable.h"
#include "dbaccess/RecordLists.h"
#include "petrodb/project/ISectionWellListData.h"

using petrodb::AfxMessageBox;
using petrodb::FieldReader;
using petrodb::FieldWriter;
using petrodb::sql::Format;

class CSectionWellListData final : public petrodb::CDataObject<ISectionWellListData> {
 public:
  bool GetSectionNames(std::vector<std::string>& names) override;
  bool LoadSectionWellList(const char* name, SectionWellListRecord& record) override;
  bool GetSectionWellLists(std::vector<SectionWellListRecord>& list) override;
  bool SaveSectionWellList(const SectionWellListRecord& record) override;
  bool SaveSectionWellLists(const std::vector<SectionWellListRecord>& list) override;
  bool DeleteSectionWellList(const char* name) override;
  bool DeleteAllSectionWellLists() override;
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CSectionWellListData, ISectionWellListData)

namespace {
constexpr const char* kTable = "b_sectionwelllist_data";
constexpr const char* kEmptyName = "剖面名称不能为空！";

void WriteSection(CDbManage& db, const SectionWellListRecord& r) {
  db.AddNew();
  FieldWriter{db}("Setction_Name", r.Setction_Name)("Section_WellList", r.Section_WellList);
}
}  // namespace

bool CSectionWellListData::GetSectionNames(std::vector<std::string>& names) {
  CDbManage db(connectionString.c_str());
  return petrodb::SelectColumn(db, "select Setction_Name from b_sectionwelllist_data order by Setction_Name",
                               "Setction_Name", names) == kRowsFound;
}

bool CSectionWellListData::LoadSectionWellList(const char* name, SectionWellListRecord& record) {
  CDbManage db(connectionString.c_str());
  return db.GetDataFromDB(Format("select * from b_sectionwelllist_data where Setction_Name='%s'", name).c_str()) ==
             kRowsFound &&
         db.GetFieldValue("Section_WellList", record.Section_WellList);
}

bool CSectionWellListData::GetSectionWellLists(std::vector<SectionWellListRecord>& list) {
  CDbManage db(connectionString.c_str());
  return petrodb::AppendRecords(db, "select * from b_sectionwelllist_data", list,
                                [](CDbManage& row, SectionWellListRecord& r) {
                                  return FieldReader{row}("Setction_Name", r.Setction_Name)(
                                             "Section_WellList", r.Section_WellList)
                                      .ok();
                                });
}

bool CSectionWellListData::SaveSectionWellList(const SectionWellListRecord& record) {
  if (record.Setction_Name.empty()) {
    AfxMessageBox(kEmptyName);
    return false;
  }
  if (record.Section_WellList.empty()) {
    AfxMessageBox("井名组合不能为空！");
    return false;
  }
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, kTable)) return false;
  db.ExecuteSQL(
      Format("delete from b_sectionwelllist_data where Setction_Name='%s'", record.Setction_Name).c_str());
  db.BeginSaveData(kTable);
  WriteSection(db, record);
  return db.SaveData();
}

// One save for all sections; each section's old row is deleted as it is added.
bool CSectionWellListData::SaveSectionWellLists(const std::vector<SectionWellListRecord>& list) {
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, kTable)) return false;
  db.BeginSaveData(kTable);
  for (const auto& record : list) {
    db.ExecuteSQL(
        Format("delete from  b_sectionwelllist_data where Setction_Name='%s'", record.Setction_Name).c_str());
    WriteSection(db, record);
  }
  return db.SaveData();
}

bool CSectionWellListData::DeleteSectionWellList(const char* name) {
  return petrodb::DeleteNamedRows(connectionString, kTable, name, kEmptyName,
                                  Format("delete from b_sectionwelllist_data where Setction_Name='%s'", name));
}

bool CSectionWellListData::DeleteAllSectionWellLists() {
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, kTable)) return false;
  db.ExecuteSQL("delete from  b_sectionwelllist_data");
  return true;
}
