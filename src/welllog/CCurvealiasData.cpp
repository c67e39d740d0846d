#include "dbaccess/DataObject.h"
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
  bool complete = true;
  const auto result = ForEachRow(db, "select * from w_curvealias_data", false, [&](CDbManage& row) {
    CurveAliasEntry e;
    FieldReader in(row);
    in("CurveName", e.CurveName)("CurveAlias", e.CurveAlias);
    complete = in.ok();
    if (complete) aliases.push_back(std::move(e));
    return complete;
  });
  return result == kRowsFound && complete;
}

bool CCurvealiasData::GetAliasesOfCurve(const char* curveName, std::vector<std::string>& aliases) {
  aliases.clear();
  CDbManage db(connectionString.c_str());
  return ForEachRow(db, Format("select * from w_curvealias_data where CurveName='%s'", curveName), false,
                    [&](CDbManage& row) {
                      std::string alias;
                      if (!row.GetFieldValue("CurveAlias", alias)) return false;
                      aliases.push_back(alias);
                      return true;
                    }) == kRowsFound;
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
