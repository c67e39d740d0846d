#include "petrodb/project/IUnitCode.h"
#include "project/ProjectData.h"

using namespace petrodb;

namespace {

constexpr Pattern<"select UnitName from b_unit_code where UnitCode like '%s%%' order by UnitName"> kNamesUnder;
constexpr Pattern<"select UnitName from b_unit_code where UnitCode like '%s%%' and ParentCode in ( select UnitCode "
                  "from  b_unit_code where UnitName ='%s' ) order by UnitName">
    kChildNamesUnder;
constexpr Pattern<"select * from b_unit_code where UnitCode = '%s'"> kLoadUnit;
constexpr Pattern<"select count(*) as A from b_unit_code where UnitCode like '%s%%' "> kCountUnder;
constexpr Pattern<"select UnitCode from b_unit_code where UnitCode like '%s%%'   order by UnitCode desc ">
    kHighestUnder;
constexpr Pattern<"select UnitCode from b_unit_code where  UnitName ='%s'"> kCodeOfName;
constexpr Pattern<"delete from b_unit_code where UnitCode = '%s'"> kDeleteUnit;

const ColumnTable<UnitRecord> kUnitColumns{"b_unit_code", {
    Col("UnitCode", &UnitRecord::UnitCode),
    Col("UnitName", &UnitRecord::UnitName),
    Col("ParentCode", &UnitRecord::ParentCode),
    Col("Memo", &UnitRecord::Memo),
}};

constexpr CodeTable kUnits = CodeTableOf("b_unit_code", "单位代码名不能为空！", "单位代码表为空！");
constexpr const char* kTable = kUnits.save.table;

}  // namespace

class CUnitCode final : public ProjectDataObject<IUnitCode> {
 public:
  bool GetUnitNames(const char* codePrefix, const char* parentName, std::vector<std::string>& names) override {
    const Statement statement =
        parentName && *parentName ? kChildNamesUnder(codePrefix, parentName) : kNamesUnder(codePrefix);
    return ListColumn(statement, "UnitName", names, Fill::Clear).found();
  }

  bool LoadUnitCode(const char* unitCode, UnitRecord& record) override {
    return LoadOne(kLoadUnit(unitCode), kUnitColumns, record);
  }

  bool IsUnitCodeExist(const char* unitCode) override { return ExistsInTable(kTable, kLoadUnit(unitCode)); }

  // The record holds the prefix and the parent's name; the row gets a new code
  // under the prefix and the parent's code. The parent is looked up before the
  // row is begun, so an unknown parent writes nothing.
  bool SaveUnitCode(const UnitRecord& record) override {
    UnitRecord row{"", record.UnitName, "", record.Memo};
    return SaveCodeRow(
        kUnits, record.UnitCode,
        [&] {
          return MakeChildUnitCode(record.UnitCode, row.UnitCode) && DeleteUnitCode(row.UnitCode.c_str()) &&
                 GetUnitCodeByName(record.ParentCode, row.ParentCode);
        },
        kUnitColumns, row);
  }

  bool DeleteUnitCode(const char* unitCode) override { return DeleteCodeRow(kUnits, unitCode, kDeleteUnit(unitCode)); }

  // The next code under a prefix: the highest code under it, less its first
  // character, read as a number, plus one, written after the prefix. With
  // one-character prefixes (as codes are made) that counts on after the
  // prefix; "1" gives "10", "11", "12" ...; a prefix without units ends in 0.
  bool MakeChildUnitCode(const std::string& prefix, std::string& code) {
    if (!TableAnswers(kTable)) return false;
    long count = 0;
    LoadField(kCountUnder(prefix), "A", count);
    int next = 0;
    if (count > 0) {
      std::string highest;
      if (!LoadField(kHighestUnder(prefix), "UnitCode", highest)) return false;
      next = sql::CAtoi(highest.empty() ? highest : highest.substr(1)) + 1;
    }
    code = prefix + std::to_string(next);
    return true;
  }

  // The code of the unit with this name; an empty name gives an empty code.
  bool GetUnitCodeByName(const std::string& name, std::string& code) {
    code.clear();
    if (name.empty()) return true;
    return TableAnswers(kTable) && LoadField(kCodeOfName(name), "UnitCode", code);
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CUnitCode, IUnitCode)
