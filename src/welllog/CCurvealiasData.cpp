#include "dbaccess/DataObject.h"
#include "petrodb/welllog/ICurvealiasData.h"

using namespace petrodb;

namespace {

constexpr Pattern<"select * from w_curvealias_data"> kSelectAll;
constexpr Pattern<"select * from w_curvealias_data where CurveName='%s'"> kSelectOfCurve;
constexpr Pattern<"delete from w_curvealias_data"> kDeleteAll;

const ColumnTable<CurveAliasEntry> kAliasColumns{"w_curvealias_data", {
    Col("CurveName", &CurveAliasEntry::CurveName),
    Col("CurveAlias", &CurveAliasEntry::CurveAlias),
}};

const ReplaceSteps kSaveAll{"w_curvealias_data", Probe::First, {}, AppMessage("保存出错！")};

}  // namespace

class CCurvealiasData final : public CDataObject<ICurvealiasData> {
 public:
  bool LoadAllAliases(std::vector<CurveAliasEntry>& aliases) override {
    return LoadAll(kSelectAll(), kAliasColumns, aliases, Fill::Clear).found();
  }

  bool GetAliasesOfCurve(const char* curveName, std::vector<std::string>& aliases) override {
    return ListColumn(kSelectOfCurve(curveName), "CurveAlias", aliases, Fill::Clear).found();
  }

  bool SaveAllAliases(const std::vector<CurveAliasEntry>& aliases) override {
    return Replace(kSaveAll, kDeleteAll(), [&](CDbManage& db) { kAliasColumns.AddRows(db, aliases); });
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CCurvealiasData, ICurvealiasData)
