#include "dbaccess/CodeTable.h"
#include "dbaccess/RecordLists.h"
#include "petrodb/project/IUnitCode.h"

using petrodb::FieldReader;
using petrodb::FieldWriter;
using petrodb::sql::Format;

class CUnitCode final : public petrodb::CDataObject<IUnitCode> {
 public:
  bool GetUnitNames(const char* codePrefix, const char* parentName, std::vector<std::string>& names) override;
  bool LoadUnitCode(const char* unitCode, UnitRecord& record) override;
  bool IsUnitCodeExist(const char* unitCode) override;
  bool SaveUnitCode(const UnitRecord& record) override;
  bool DeleteUnitCode(const char* unitCode) override;
  PETRODB_DATA_CLASS

  // The next code under a prefix: the highest code under it, less its first
  // character, read as a number, plus one, written after the prefix. With
  // one-character prefixes (as codes are made) that counts on after the
  // prefix; "1" gives "10", "11", "12" ...; a prefix without units ends in 0.
  bool MakeChildUnitCode(const std::string& prefix, std::string& code);
  // The code of the unit with this name; an empty name gives an empty code.
  bool GetUnitCodeByName(const std::string& name, std::string& code);
};

PETRODB_REGISTER_CLASS(CUnitCode, IUnitCode)

namespace {
const petrodb::CodeTable kTable{"b_unit_code", "单位代码名不能为空！", "单位代码表为空！"};

std::string SelectStatement(const char* code) {
  return Format("select * from b_unit_code where UnitCode = '%s'", code);
}
}  // namespace

bool CUnitCode::GetUnitNames(const char* codePrefix, const char* parentName, std::vector<std::string>& names) {
  names.clear();
  const std::string statement =
      parentName && *parentName
          ? Format("select UnitName from b_unit_code where UnitCode like '%s%%' and ParentCode in ( select UnitCode "
                   "from  b_unit_code where UnitName ='%s' ) order by UnitName",
                   codePrefix, parentName)
          : Format("select UnitName from b_unit_code where UnitCode like '%s%%' order by UnitName", codePrefix);
  CDbManage db(connectionString.c_str());
  return petrodb::SelectColumn(db, statement, "UnitName", names) == kRowsFound;
}

bool CUnitCode::LoadUnitCode(const char* unitCode, UnitRecord& r) {
  CDbManage db(connectionString.c_str());
  if (db.GetDataFromDB(SelectStatement(unitCode).c_str()) != kRowsFound) return false;
  return FieldReader{db}("UnitCode", r.UnitCode)("UnitName", r.UnitName)("ParentCode", r.ParentCode)("Memo", r.Memo)
      .ok();
}

bool CUnitCode::IsUnitCodeExist(const char* unitCode) {
  return petrodb::CodeRowExists(connectionString, kTable, SelectStatement(unitCode));
}

bool CUnitCode::MakeChildUnitCode(const std::string& prefix, std::string& code) {
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, "b_unit_code")) return false;
  long count = 0;
  if (db.GetDataFromDB(Format("select count(*) as A from b_unit_code where UnitCode like '%s%%' ", prefix).c_str()) ==
      kRowsFound)
    db.GetFieldValue("A", count);
  int next = 0;
  if (count > 0) {
    std::string highest;
    if (db.GetDataFromDB(
            Format("select UnitCode from b_unit_code where UnitCode like '%s%%'   order by UnitCode desc ", prefix)
                .c_str()) != kRowsFound ||
        !db.GetFieldValue("UnitCode", highest))
      return false;
    next = petrodb::sql::CAtoi(highest.empty() ? highest : highest.substr(1)) + 1;
  }
  code = Format("%s%d", petrodb::sql::Raw{prefix}, next);
  return true;
}

bool CUnitCode::GetUnitCodeByName(const std::string& name, std::string& code) {
  code.clear();
  if (name.empty()) return true;
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, "b_unit_code")) return false;
  if (db.GetDataFromDB(Format("select UnitCode from b_unit_code where  UnitName ='%s'", name).c_str()) != kRowsFound)
    return false;
  return db.GetFieldValue("UnitCode", code);
}

bool CUnitCode::SaveUnitCode(const UnitRecord& r) {
  std::string code;
  return petrodb::SaveCodeRow(
      connectionString, kTable, r.UnitCode,
      [&] { return MakeChildUnitCode(r.UnitCode, code) && DeleteUnitCode(code.c_str()); },
      [&](CDbManage& db) {
        FieldWriter{db}("UnitCode", code)("UnitName", r.UnitName);
        std::string parentCode;
        if (!GetUnitCodeByName(r.ParentCode, parentCode)) return false;
        FieldWriter{db}("ParentCode", parentCode)("Memo", r.Memo);
        return true;
      });
}

bool CUnitCode::DeleteUnitCode(const char* unitCode) {
  const std::string code = unitCode ? unitCode : "";
  return petrodb::DeleteCodeRow(connectionString, kTable, code,
                                Format("delete from b_unit_code where UnitCode = '%s'", code));
}
