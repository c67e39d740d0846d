#include "dbaccess/DataObject.h"
#include "dbaccess/RecordLists.h"
#include "petrodb/welllog/ICurvealiasData.h"

using petrodb::AfxMessageBox;
using petrodb::FieldReader;
using petrodb::FieldWriter;
using petrodb::ForEachRow;
using petrodb::sql::Format;

class CCurvealiasData final : public petrodb::CDataObject<ICurvealiasData> {
 public:
  bool LoadAllAliases(std::vector<CurveAliasEntry>& aliases) override;
  bool GetAliasesOfCurve(const char* curveName, std::vector<std::string>& aliases) override;
  bool SaveAllAliases(const std::vector<CurveAliasEntry>& aliases) override;
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CCurvealiasData, ICurvealiasData)

bool CCurvealiasData::LoadAllAliases(std::vector<CurveAliasEntry>& aliases) {
  aliases.clear();
  CDbManage db(connectionString.c_str());
  return petrodb::SelectRecords(db, "select * from w_curvealias_data", aliases, [](CDbManage& row, CurveAliasEntry& e) {
           return FieldReader(row)("CurveName", e.CurveName)("CurveAlias", e.CurveAlias).ok();
         }) == kRowsFound;
}

bool CCurvealiasData::GetAliasesOfCurve(const char* curveName, std::vector<std::string>& aliases) {
  aliases.clear();
  CDbManage db(connectionString.c_str());
  return petrodb::SelectColumn(db, Format("select * from w_curvealias_data where CurveName='%s'", curveName),
                               "CurveAlias", aliases) == kRowsFound;
}

bool CCurvealiasData::SaveAllAliases(const std::vector<CurveAliasEntry>& aliases) {
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, "w_curvealias_data")) return false;
  db.ExecuteSQL("delete from w_curvealias_data");
  db.BeginSaveData("w_curvealias_data");
  for (const auto& e : aliases) {
    db.AddNew();
    FieldWriter{db}("CurveName", e.CurveName)("CurveAlias", e.CurveAlias);
  }
  if (!db.SaveData()) {
    AfxMessageBox("保存出错！");
    return false;
  }
  return true;
}
