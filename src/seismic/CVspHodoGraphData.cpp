#include "seismic/CVspHodoGraphData.h"

namespace petrodb::seismic {
namespace {

constexpr const char* kTable = "vsp_hodograph";

constexpr Pattern<"select Distinct Hg_name from vsp_hodograph where Vsp_ProjID=%d  and LineDataType='%s' order by "
                  "Hg_name">
    kNames;
constexpr Pattern<"select Hg_name, Hg_data,Segy_file  from vsp_hodograph where Vsp_ProjID=%d and LineDataType='%s' "
                  "order by Hg_name">
    kLoadType;
constexpr Pattern<"select  Hg_data, Segy_file from vsp_hodograph where Hg_name = '%s' and  Vsp_ProjID = %d  and "
                  "LineDataType='%s'">
    kLoadOne;
constexpr Pattern<"delete from vsp_hodograph where Vsp_ProjID=%d   and LineDataType='%s'"> kDeleteType;
constexpr Pattern<"delete from vsp_hodograph where Hg_name = '%s' and  Vsp_ProjID = %d  and LineDataType='%s'">
    kDeleteOne;
constexpr Pattern<"select  Vsp_ProjID from vsp_hodograph where Hg_name = '%s' and  Vsp_ProjID = %d and "
                  "LineDataType='%s'">
    kExists;

const Message kEmptyName = AppMessage("初置名称不能为空！");

const ColumnTable<VspHodographRecord> kLineColumns{kTable, {
    Col("Vsp_ProjID", &VspHodographRecord::Vsp_ProjID),
    Col("Hg_name", &VspHodographRecord::Hg_name),
    Col("Hg_data", &VspHodographRecord::Hg_data).EmptyAsZeroLength(),
    Col("Segy_file", &VspHodographRecord::Segy_file),
    Col("LineDataType", &VspHodographRecord::LineDataType),
}};
// What the loads read.
const ColumnTable<VspHodographRecord> kNamedLineColumns{kTable, {
    Col("Hg_name", &VspHodographRecord::Hg_name),
    Col("Hg_data", &VspHodographRecord::Hg_data),
    Col("Segy_file", &VspHodographRecord::Segy_file),
}};
const ColumnTable<VspHodographRecord> kLineDataColumns{kTable, {
    Col("Hg_data", &VspHodographRecord::Hg_data),
    Col("Segy_file", &VspHodographRecord::Segy_file),
}};

}  // namespace

std::unique_ptr<CVspHodoGraphData> CVspHodoGraphData::Open(const std::string& connection) {
  auto object = std::make_unique<CVspHodoGraphData>();
  object->SetConnection(connection.c_str());
  return object;
}

bool CVspHodoGraphData::GetHodographNames(int projectID, const char* lineType, std::vector<std::string>& names) const {
  return ListColumn(kNames(projectID, lineType), "Hg_name", names, Fill::Clear).found();
}

bool CVspHodoGraphData::LoadHodographs(int projectID, const char* lineType,
                                       std::vector<VspHodographRecord>& lines) const {
  return LoadAll(kLoadType(projectID, lineType), kNamedLineColumns, lines, Fill::Clear, true).found();
}

bool CVspHodoGraphData::LoadHodograph(int projectID, const char* lineType, const char* name,
                                      VspHodographRecord& line) const {
  return LoadOne(kLoadOne(name, projectID, lineType), kLineDataColumns, line, true);
}

bool CVspHodoGraphData::SaveHodographs(const std::vector<VspHodographRecord>& lines) const {
  for (const auto& line : lines)
    if (!KeyGiven(line.Hg_name, kEmptyName)) return false;
  return Save(ReplaceSteps{kTable}, [&](CDbManage& db) { kLineColumns.AddRows(db, lines); });
}

bool CVspHodoGraphData::SaveHodograph(const VspHodographRecord& line) const { return SaveHodographs({line}); }

bool CVspHodoGraphData::DeleteHodographType(int projectID, const char* lineType) const {
  return ExecuteOnTable(kTable, kDeleteType(projectID, lineType));
}

bool CVspHodoGraphData::DeleteHodograph(int projectID, const char* lineType, const char* name) const {
  return KeyGiven(name, kEmptyName) && ExecuteOnTable(kTable, kDeleteOne(name, projectID, lineType));
}

bool CVspHodoGraphData::IsHodographExist(int projectID, const char* lineType, const char* name) const {
  return Exists(kExists(name, projectID, lineType));
}

}  // namespace petrodb::seismic
