#include "dbaccess/DataObject.h"
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
  FieldWriter{db}("AliasName", a.AliasName)("ImageType", a.ImageType)("ImageFacet", a.ImageFacet)(
      "ImageName", a.ImageName);
}

}  // namespace

bool CAliasData::Load(const std::string& statement, std::vector<ImageAlias>& aliases) {
  aliases.clear();
  CDbManage db(connectionString.c_str());
  bool complete = true;
  const auto result = ForEachRow(db, statement, false, [&](CDbManage& row) {
    ImageAlias a;
    FieldReader in(row);
    in("AliasName", a.AliasName)("ImageFacet", a.ImageFacet)("ImageName", a.ImageName);
    complete = in.ok();
    if (complete) aliases.push_back(std::move(a));
    return complete;
  });
  return result == kRowsFound && complete;
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
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, "b_image_alias")) return false;
  return db.ExecuteSQL("delete from  b_image_alias");
}
