#include "dbaccess/RecordLists.h"
#include "petrodb/IDataBaseVersion.h"

using petrodb::AfxMessageBox;
using petrodb::FieldReader;
using petrodb::sql::Format;

class CDataBaseVersion final : public petrodb::CDataObject<IDataBaseVersion> {
 public:
  bool GetVersions(std::vector<VersionRecord>& list) override;
  bool SetImageType(const VersionRecord& record) override;
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CDataBaseVersion, IDataBaseVersion)

bool CDataBaseVersion::GetVersions(std::vector<VersionRecord>& list) {
  CDbManage db(connectionString.c_str());
  return petrodb::SelectRecords(db, "select * from Version", list, [](CDbManage& row, VersionRecord& r) {
           return FieldReader{row}("DBNO", r.DBNO)("ImageType", r.ImageType).ok();
         }) == kRowsFound;
}

bool CDataBaseVersion::SetImageType(const VersionRecord& record) {
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, "Version")) {
    AfxMessageBox("请先更新数据库！");
    return false;
  }
  db.ExecuteSQL(Format("update Version set ImageType = '%s' where DBNO is not null", record.ImageType).c_str());
  return true;
}
