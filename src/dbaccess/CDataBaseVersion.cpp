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

  // The update's own result is not looked at: only the probe decides the answer.
  bool SetImageType(const VersionRecord& record) override {
    return ExecuteIfTable("Version", kSetImageType(record.ImageType), kUpdateFirst);
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CDataBaseVersion, IDataBaseVersion)
