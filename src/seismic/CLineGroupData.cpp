#include "dbaccess/DataObject.h"
#include "petrodb/seismic/ILineGroupData.h"
#include "seismic/SeismicCodecs.h"

using namespace petrodb;

namespace {

constexpr Pattern<"select distinct CurveName from w_linegroup_data where WellName = '%s'"> kCurveNames;
constexpr Pattern<"select * from w_linegroup_data where WellName = '%s' and CurveName = '%s'"> kGroupsOfCurve;
constexpr Pattern<"select * from w_linegroup_data where WellName = '%s' and CurveName = '%s' and LineGroupName = '%s'">
    kLoadGroup;
constexpr Pattern<"delete from w_linegroup_data where WellName = '%s' and CurveName = '%s' and LineGroupName = '%s'">
    kDeleteGroup;

// The stored row: the pairs as their text.
struct GroupRow {
  std::string WellName;
  std::string CurveName;
  std::string LineGroupName;
  std::string LineGroupData;
};
const ColumnTable<GroupRow> kColumns{"w_linegroup_data", {
    Col("WellName", &GroupRow::WellName).WriteOnly(),
    Col("CurveName", &GroupRow::CurveName).WriteOnly(),
    Col("LineGroupName", &GroupRow::LineGroupName).WriteOnly(),
    Col("LineGroupData", &GroupRow::LineGroupData),
}};

}  // namespace

class CLineGroupData final : public CDataObject<ILineGroupData> {
 public:
  bool GetCurveNames(const char* well, std::vector<std::string>& curves) override {
    return ListColumn(kCurveNames(well), "CurveName", curves, Fill::Append).ran();
  }

  bool GetLineGroupNames(const char* well, const char* curve, std::vector<std::string>& groups) override {
    return ListColumn(kGroupsOfCurve(well, curve), "LineGroupName", groups, Fill::Append).ran();
  }

  bool LoadLineGroup(const char* well, const char* curve, const char* group, LineGroupRecord& record) override {
    GroupRow row;
    if (!LoadOne(kLoadGroup(well, curve, group), kColumns, row)) return false;
    record.WellName = well;
    record.CurveName = curve;
    record.LineGroupName = group;
    seismic::DecodePairs(row.LineGroupData, record.First, record.Second);
    return true;
  }

  bool SaveLineGroup(const char* well, const char* curve, const LineGroupRecord& record) override {
    const GroupRow row{well, curve, record.LineGroupName, seismic::EncodePairs(record.First, record.Second)};
    return Replace(ReplaceSteps{kColumns.table()}, kDeleteGroup(well, curve, record.LineGroupName),
                   [&](CDbManage& db) { kColumns.AddRow(db, row); });
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CLineGroupData, ILineGroupData)
