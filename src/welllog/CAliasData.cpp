#include "dbaccess/DataObject.h"
#include "dbaccess/RecordLists.h"
#include "dbaccess/TableStatements.h"
#include "petrodb/welllog/IAliasData.h"

using petrodb::FieldReader;
using petrodb::FieldWriter;
using petrodb::ForEachRow;
using petrodb::sql::Format;

class CAliasData final : public petrodb::CDataObject<IAliasData> {
 public:
  bool LoadImageAliases(std::vector<ImageAlias>& aliases) override;
  bool LoadImageAliasesOfFacet(int facet, std::vector<ImageAlias>& aliases) override;
  bool SaveImageAlias(const ImageAlias& alias) override;
  bool SaveImageAliases(const std::vector<ImageAlias>& aliases) override;
  bool DeleteAllImageAliases() override;
  PETRODB_DATA_CLASS

 private:
  bool Load(const std::string& statement, std::vector<ImageAlias>& aliases);
};

PETRODB_REGISTER_CLASS(CAliasData, IAliasData)

namespace {

// ImageType is written but never read back: loads leave it at 0.
void WriteRow(CDbManage& db, const ImageAlias& a) {
  db.AddNew();
  FieldWriter{db}("AliasName", a.AliasName)("ImageType", a.ImageType)("ImageFacet", a.ImageFacet)("ImageName",
                                                                                                  a.ImageName);
}

}  // namespace

bool CAliasData::Load(const std::string& statement, std::vector<ImageAlias>& aliases) {
  aliases.clear();
  CDbManage db(connectionString.c_str());
  return petrodb::SelectRecords(db, statement, aliases, [](CDbManage& row, ImageAlias& a) {
           return FieldReader(row)("AliasName", a.AliasName)("ImageFacet", a.ImageFacet)("ImageName", a.ImageName).ok();
         }) == kRowsFound;
}

bool CAliasData::LoadImageAliases(std::vector<ImageAlias>& aliases) {
  return Load("select * from b_image_alias", aliases);
}

bool CAliasData::LoadImageAliasesOfFacet(int facet, std::vector<ImageAlias>& aliases) {
  return Load(Format("select * from b_image_alias where ImageFacet=%d", facet), aliases);
}

bool CAliasData::SaveImageAlias(const ImageAlias& alias) {
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, "b_image_alias")) return false;
  db.ExecuteSQL(Format("delete from b_image_alias where AliasName='%s'", alias.AliasName).c_str());
  db.BeginSaveData("b_image_alias");
  WriteRow(db, alias);
  return db.SaveData();
}

bool CAliasData::SaveImageAliases(const std::vector<ImageAlias>& aliases) {
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, "b_image_alias")) return false;
  db.BeginSaveData("b_image_alias");
  for (const auto& a : aliases) WriteRow(db, a);
  return db.SaveData();
}

bool CAliasData::DeleteAllImageAliases() {
  return petrodb::ExecuteOnTable(connectionString, "b_image_alias", "delete from  b_image_alias");
}
