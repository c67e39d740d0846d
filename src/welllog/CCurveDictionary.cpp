#include "dbaccess/DataObject.h"
#include "dbaccess/RecordLists.h"
#include "dbaccess/TableStatements.h"
#include "petrodb/welllog/ICurveDictionary.h"

using petrodb::AfxMessageBox;
using petrodb::FieldReader;
using petrodb::FieldWriter;
using petrodb::ForEachRow;
using petrodb::sql::Format;
using petrodb::sql::QuoteEach;

class CCurveDictionary final : public petrodb::CDataObject<ICurveDictionary> {
 public:
  bool GetCurveNames(std::vector<std::string>& names) override;
  bool GetDisplayNames(std::vector<std::string>& names) override;
  bool LoadTemplate(const char* curveName, CurveTemplate& entry) override;
  bool LoadTemplateByAlias(const char* name, CurveTemplate& entry) override;
  bool LoadAllTemplates(std::vector<CurveTemplate>& entries) override;
  bool IsTemplateExist(const char* curveName) override;
  bool SaveTemplate(const CurveTemplate& entry) override;
  bool SaveTemplates(int ignored, const std::vector<CurveTemplate>& entries) override;
  bool DeleteTemplate(const char* curveName) override;
  bool DeleteTemplates(std::vector<std::string> names) override;
  bool DeleteAllTemplates(const char* projectName) override;
  PETRODB_DATA_CLASS

 private:
  bool ReadNames(const char* statement, const char* column, std::vector<std::string>& names);
};

PETRODB_REGISTER_CLASS(CCurveDictionary, ICurveDictionary)

namespace {

// The eight fields after the name.
bool ReadDisplay(CDbManage& row, CurveTemplate& e) {
  FieldReader in(row);
  in("DisplayName", e.DisplayName)("CurveUnit", e.CurveUnit)("LeftValue", e.LeftValue)("RightValue", e.RightValue)(
      "CurveType", e.CurveType)("Color", e.Color)("CurveWidth", e.CurveWidth)("CoorType", e.CoorType);
  return in.ok();
}

bool ReadAll(CDbManage& row, CurveTemplate& e) {
  return row.GetFieldValue("CurveName", e.CurveName) && ReadDisplay(row, e);
}

void WriteRow(CDbManage& db, const CurveTemplate& e) {
  db.AddNew();
  FieldWriter out(db);
  out("CurveName", e.CurveName)("DisplayName", e.DisplayName)("CurveUnit", e.CurveUnit)("LeftValue", e.LeftValue)(
      "RightValue", e.RightValue)("CurveType", e.CurveType)("Color", e.Color)("CurveWidth", e.CurveWidth)("CoorType",
                                                                                                          e.CoorType);
}

std::vector<std::string> Names(const std::vector<CurveTemplate>& entries) {
  std::vector<std::string> names;
  for (const auto& e : entries) names.push_back(e.CurveName);
  return names;
}

}  // namespace

bool CCurveDictionary::ReadNames(const char* statement, const char* column, std::vector<std::string>& names) {
  CDbManage db(connectionString.c_str());
  return petrodb::SelectColumn(db, statement, column, names) == kRowsFound;
}

bool CCurveDictionary::GetCurveNames(std::vector<std::string>& names) {
  names.clear();
  return ReadNames("select distinct CurveName from w_curve_dictionary order by w_curve_dictionary.curvename",
                   "CurveName", names);
}

bool CCurveDictionary::GetDisplayNames(std::vector<std::string>& names) {
  names.clear();
  return ReadNames("select distinct DisplayName from w_curve_dictionary", "DisplayName", names);
}

bool CCurveDictionary::LoadTemplate(const char* curveName, CurveTemplate& entry) {
  CDbManage db(connectionString.c_str());
  if (db.GetDataFromDB(Format("select * from w_curve_dictionary where CurveName='%s'", curveName).c_str()) !=
      kRowsFound)
    return false;
  entry.CurveName = curveName;
  return ReadDisplay(db, entry);
}

bool CCurveDictionary::LoadTemplateByAlias(const char* name, CurveTemplate& entry) {
  CDbManage db(connectionString.c_str());
  if (db.GetDataFromDB(Format("select * from w_curve_dictionary where CurveName in (select all distinct CurveName "
                              "from w_curvealias_data where CurveAlias = '%s') or CurveName = '%s'",
                              name, name)
                           .c_str()) != kRowsFound)
    return false;
  return ReadAll(db, entry);
}

bool CCurveDictionary::LoadAllTemplates(std::vector<CurveTemplate>& entries) {
  entries.clear();
  CDbManage db(connectionString.c_str());
  return petrodb::SelectRecords(db, "select * from w_curve_dictionary", entries, ReadAll) == kRowsFound;
}

bool CCurveDictionary::IsTemplateExist(const char* curveName) {
  CDbManage db(connectionString.c_str());
  return db.GetDataFromDB(Format("select * from  w_curve_dictionary where CurveName='%s'", curveName).c_str()) ==
         kRowsFound;
}

bool CCurveDictionary::SaveTemplate(const CurveTemplate& entry) {
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, "w_curve_dictionary")) return false;
  db.ExecuteSQL(Format("delete from  w_curve_dictionary where CurveName='%s'", entry.CurveName).c_str());
  db.BeginSaveData("w_curve_dictionary");
  WriteRow(db, entry);
  return db.SaveData();
}

bool CCurveDictionary::SaveTemplates(int, const std::vector<CurveTemplate>& entries) {
  DeleteTemplates(Names(entries));
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, "w_curve_dictionary")) return false;
  db.BeginSaveData("w_curve_dictionary");
  for (const auto& e : entries) WriteRow(db, e);
  return db.SaveData();
}

bool CCurveDictionary::DeleteTemplate(const char* curveName) {
  return petrodb::KeyGiven(curveName, "曲线名称不能为空！") &&
         petrodb::ExecuteOnTable(connectionString, "w_curve_dictionary",
                                 Format("delete from w_curve_dictionary where CurveName='%s'", curveName));
}

bool CCurveDictionary::DeleteTemplates(std::vector<std::string> names) {
  return petrodb::ExecuteOnTable(connectionString, "w_curve_dictionary",
                                 Format("delete from  w_curve_dictionary where CurveName in (%s)", QuoteEach(names)));
}

bool CCurveDictionary::DeleteAllTemplates(const char* projectName) {
  // The project is only checked for being given: the dictionary is global.
  return petrodb::KeyGiven(projectName, "工区名称不能为空！") &&
         petrodb::ExecuteOnTable(connectionString, "w_curve_dictionary", "delete * from w_curve_dictionary ");
}
