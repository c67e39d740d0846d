#include "dbaccess/DataObject.h"
#include "petrodb/welllog/ICurveDictionary.h"
#include "welllog/WellLogCommon.h"

using namespace petrodb;

namespace {

constexpr Pattern<"select distinct CurveName from w_curve_dictionary order by w_curve_dictionary.curvename">
    kCurveNames;
constexpr Pattern<"select distinct DisplayName from w_curve_dictionary"> kDisplayNames;
constexpr Pattern<"select * from w_curve_dictionary where CurveName='%s'"> kSelectTemplate;
constexpr Pattern<"select * from w_curve_dictionary where CurveName in (select all distinct CurveName from "
                  "w_curvealias_data where CurveAlias = '%s') or CurveName = '%s'">
    kSelectByAlias;
constexpr Pattern<"select * from w_curve_dictionary"> kSelectAll;
constexpr Pattern<"select * from  w_curve_dictionary where CurveName='%s'"> kTemplateExists;
constexpr Pattern<"delete from  w_curve_dictionary where CurveName='%s'"> kReplaceTemplate;
constexpr Pattern<"delete from w_curve_dictionary where CurveName='%s'"> kDeleteTemplate;
constexpr Pattern<"delete from  w_curve_dictionary where CurveName in (%s)"> kDeleteTemplates;
constexpr Pattern<"delete * from w_curve_dictionary "> kDeleteAll;

constexpr const char* kTable = "w_curve_dictionary";

const ColumnTable<CurveTemplate> kTemplateColumns{kTable, {
    Col("CurveName", &CurveTemplate::CurveName),
    Col("DisplayName", &CurveTemplate::DisplayName),
    Col("CurveUnit", &CurveTemplate::CurveUnit),
    Col("LeftValue", &CurveTemplate::LeftValue),
    Col("RightValue", &CurveTemplate::RightValue),
    Col("CurveType", &CurveTemplate::CurveType),
    Col("Color", &CurveTemplate::Color),
    Col("CurveWidth", &CurveTemplate::CurveWidth),
    Col("CoorType", &CurveTemplate::CoorType),
}};

const ReplaceSteps kSaveOne{kTable};
const ReplaceSteps kSaveAfterDelete{kTable, Probe::AfterDelete};

constexpr Message kEmptyCurve = AppMessage("曲线名称不能为空！");

std::vector<std::string> Names(const std::vector<CurveTemplate>& entries) {
  std::vector<std::string> names;
  for (const auto& e : entries) names.push_back(e.CurveName);
  return names;
}

}  // namespace

class CCurveDictionary final : public CDataObject<ICurveDictionary> {
 public:
  bool GetCurveNames(std::vector<std::string>& names) override {
    return ListColumn(kCurveNames(), "CurveName", names, Fill::Clear).found();
  }

  bool GetDisplayNames(std::vector<std::string>& names) override {
    return ListColumn(kDisplayNames(), "DisplayName", names, Fill::Clear).found();
  }

  bool LoadTemplate(const char* curveName, CurveTemplate& entry) override {
    if (!LoadOne(kSelectTemplate(curveName), kTemplateColumns, entry)) return false;
    entry.CurveName = curveName;  // the key as the caller spells it
    return true;
  }

  bool LoadTemplateByAlias(const char* name, CurveTemplate& entry) override {
    return LoadOne(kSelectByAlias(name, name), kTemplateColumns, entry);
  }

  bool LoadAllTemplates(std::vector<CurveTemplate>& entries) override {
    return LoadAll(kSelectAll(), kTemplateColumns, entries, Fill::Clear).found();
  }

  bool IsTemplateExist(const char* curveName) override { return Exists(kTemplateExists(curveName)); }

  bool SaveTemplate(const CurveTemplate& entry) override {
    return Replace(kSaveOne, kReplaceTemplate(entry.CurveName),
                   [&](CDbManage& db) { kTemplateColumns.AddRow(db, entry); });
  }

  // The names go through DeleteTemplates, whose result is not looked at; a name
  // that cannot be spliced fails the save before anything is deleted.
  bool SaveTemplates(int, const std::vector<CurveTemplate>& entries) override {
    const auto names = Names(entries);
    if (kDeleteTemplates(sql::QuoteEach(names)).refused()) return false;
    return ReplaceAfter(kSaveAfterDelete, Regardless([&] { DeleteTemplates(names); }),
                        [&](CDbManage& db) { kTemplateColumns.AddRows(db, entries); });
  }

  bool DeleteTemplate(const char* curveName) override {
    return KeyGiven(curveName, kEmptyCurve) && ExecuteOnTable(kTable, kDeleteTemplate(curveName));
  }

  bool DeleteTemplates(std::vector<std::string> names) override {
    return ExecuteOnTable(kTable, kDeleteTemplates(sql::QuoteEach(names)));
  }

  // The project is only checked for being given: the dictionary is global.
  bool DeleteAllTemplates(const char* projectName) override {
    return KeyGiven(projectName, welllog::kEmptyProject) && ExecuteOnTable(kTable, kDeleteAll());
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CCurveDictionary, ICurveDictionary)
