#include "petrodb/project/IAOIData.h"
#include "project/ProjectData.h"

using namespace petrodb;
using sql::AsciiLower;

const char* const kNoAOIName = "";

namespace {

constexpr Pattern<"select * from b_aoi_data where AOIName='%s' and ProjectName = '%s'"> kLoadAOI;
constexpr Pattern<"select AOIName from b_aoi_data"> kAOINames;
constexpr Pattern<"select * from b_aoi_data where ProjectName='%s'"> kProjectAOIs;
constexpr Pattern<"select AOIName from b_aoi_data where lcase(AOIName)='%s' and \t\t\tProjectName = '%s'"> kExistsJet;
constexpr Pattern<"select AOIName from b_aoi_data where lower(AOIName)='%s' and \t\t\tProjectName='%s'"> kExistsServer;
constexpr Pattern<"delete from b_aoi_data where AOIName='%s'"> kDeleteAOI;

// AOIName is set from the lowered argument by the load and read first by the
// list; the row's ProjectName is the save's argument, not the record's field.
const ColumnTable<AOIRecord> kAOIColumns{"b_aoi_data", {
    Col("ProjectName", &AOIRecord::ProjectName),
    Col("AOIName", &AOIRecord::AOIName).WriteOnly(),
    Col("DESCRIPTION", &AOIRecord::Description).Optional(),
    Col("Xmin", &AOIRecord::Xmin),
    Col("Xmax", &AOIRecord::Xmax),
    Col("Ymin", &AOIRecord::Ymin),
    Col("Ymax", &AOIRecord::Ymax),
}};

constexpr Message kEmptyName = AppMessage("AOI区域名不能为空！");
constexpr Message kTableMissing = AppMessage("AOI区域表为空！");
const ReplaceSteps kSaveAOI{"b_aoi_data", Probe::First, kTableMissing, AppMessage("保存数据库出错！")};

std::string Lowered(const char* name) { return AsciiLower(name ? name : ""); }

}  // namespace

class CAOIData final : public ProjectDataObject<IAOIData> {
 public:
  bool LoadAOI(const char* projectName, const char* aoiName, AOIRecord& record) override {
    const std::string name = Lowered(aoiName);
    return LoadOneAfter(kLoadAOI(name, projectName), kAOIColumns, record, [&] { record.AOIName = name; });
  }

  bool GetAOINames(const char*, std::vector<std::string>& names) override {
    return ListColumn(kAOINames(), "AOIName", names, Fill::Clear).found();
  }

  bool GetAOIList(const char* projectName, std::vector<AOIRecord>& list) override {
    return LoadRows(kProjectAOIs(projectName), list, Fill::Clear, [](CDbManage& row, AOIRecord& r) {
             return row.GetFieldValue("AOIName", r.AOIName) && kAOIColumns.Read(row, r);
           }).ran();
  }

  bool IsAOIExist(const char* projectName, const char* aoiName) override {
    const std::string name = Lowered(aoiName);
    return ExistsInTable("b_aoi_data", IsJet() ? kExistsJet(name, projectName) : kExistsServer(name, projectName));
  }

  bool SaveGlobalAOI(const char* projectName, const ProjectRecord& project) override {
    const AOIRecord global{"Global", "", "", project.EWmin, project.EWmax, project.SNmin, project.SNmax};
    return SaveAOI(projectName, global);
  }

  // The name is removed from every project before it is stored in this one.
  bool SaveAOI(const char* projectName, const AOIRecord& record) override {
    AOIRecord row = record;
    row.AOIName = AsciiLower(record.AOIName);
    row.ProjectName = projectName ? projectName : "";
    if (!KeyGiven(row.AOIName, kEmptyName)) return false;
    return Replace(kSaveAOI, kDeleteAOI(row.AOIName), [&](CDbManage& db) { kAOIColumns.AddRow(db, row); });
  }

  // Only the shared empty name is refused (by address); the delete's result is
  // not looked at.
  bool DeleteAOI(const char* aoiName) override {
    if (aoiName == kNoAOIName) {
      kEmptyName.Show();
      return false;
    }
    return ExecuteIfTable("b_aoi_data", kDeleteAOI(Lowered(aoiName)), kTableMissing);
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CAOIData, IAOIData)
