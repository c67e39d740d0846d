#include "dbaccess/DataObject.h"
#include "petrodb/IDataBaseVersion.h"

using namespace petrodb;

namespace {

constexpr Pattern<"select * from Version"> kSelectAll;
constexpr Pattern<"update Version set ImageType = '%s' where DBNO is not null"> kSetImageType;

const ColumnTable<VersionRecord> kVersionColumns{"Version", {
    Col("DBNO", &VersionRecord::DBNO),
    Col("ImageType", &VersionRecord::ImageType),
}};

constexpr Message kUpdateFirst = AppMessage("请先更新数据库！");

}  // namespace

class CDataBaseVersion final : public CDataObject<IDataBaseVersion> {
 public:
  bool GetVersions(std::vector<VersionRecord>& list) override {
    return LoadAll(kSelectAll(), kVersionColumns, list, Fill::Clear).found();
  }

  bool SetImageType(const VersionRecord& record) override {
    // Only the probe decides the answer: the update's own result is not looked at.
    CDbManage db(connectionString.c_str());
    if (TableMissing(db, "Version")) {
      kUpdateFirst.Show();
      return false;
    }
    db.ExecuteSQL(kSetImageType(record.ImageType).c_str());
    return true;
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CDataBaseVersion, IDataBaseVersion)
