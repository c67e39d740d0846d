#include "dbaccess/RecordLists.h"
#include "petrodb/project/IAOIData.h"

using petrodb::AfxMessageBox;
using petrodb::FieldReader;
using petrodb::FieldWriter;
using petrodb::sql::AsciiLower;
using petrodb::sql::Format;

const char* const kNoAOIName = "";

class CAOIData final : public petrodb::CDataObject<IAOIData> {
 public:
  bool LoadAOI(const char* projectName, const char* aoiName, AOIRecord& record) override;
  bool GetAOINames(const char* projectName, std::vector<std::string>& names) override;
  bool GetAOIList(const char* projectName, std::vector<AOIRecord>& list) override;
  bool IsAOIExist(const char* projectName, const char* aoiName) override;
  bool SaveGlobalAOI(const char* projectName, const ProjectRecord& project) override;
  bool SaveAOI(const char* projectName, const AOIRecord& record) override;
  bool DeleteAOI(const char* aoiName) override;
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CAOIData, IAOIData)

namespace {

// A missing table is reported to the user by the writing operations.
bool ReportMissingTable(CDbManage& db) {
  if (!petrodb::TableMissing(db, "b_aoi_data")) return false;
  AfxMessageBox("AOI区域表为空！");
  return true;
}

std::string Lowered(const char* name) { return AsciiLower(name ? name : ""); }

// The columns after the name and project; DESCRIPTION may be absent.
bool ReadExtent(CDbManage& db, AOIRecord& r) {
  std::string description;
  if (db.GetFieldValue("DESCRIPTION", description)) r.Description = description;
  return FieldReader{db}("Xmin", r.Xmin)("Xmax", r.Xmax)("Ymin", r.Ymin)("Ymax", r.Ymax).ok();
}

}  // namespace

bool CAOIData::LoadAOI(const char* projectName, const char* aoiName, AOIRecord& r) {
  const std::string name = Lowered(aoiName);
  CDbManage db(connectionString.c_str());
  if (db.GetDataFromDB(
          Format("select * from b_aoi_data where AOIName='%s' and ProjectName = '%s'", name, projectName).c_str()) !=
      kRowsFound)
    return false;
  r.AOIName = name;
  return db.GetFieldValue("ProjectName", r.ProjectName) && ReadExtent(db, r);
}

bool CAOIData::GetAOINames(const char*, std::vector<std::string>& names) {
  CDbManage db(connectionString.c_str());
  return petrodb::SelectColumn(db, "select AOIName from b_aoi_data", "AOIName", names) == kRowsFound;
}

bool CAOIData::GetAOIList(const char* projectName, std::vector<AOIRecord>& list) {
  CDbManage db(connectionString.c_str());
  return petrodb::AppendRecords(db, Format("select * from b_aoi_data where ProjectName='%s'", projectName), list,
                                [](CDbManage& row, AOIRecord& r) {
                                  return row.GetFieldValue("AOIName", r.AOIName) &&
                                         row.GetFieldValue("ProjectName", r.ProjectName) && ReadExtent(row, r);
                                });
}

bool CAOIData::IsAOIExist(const char* projectName, const char* aoiName) {
  const std::string name = Lowered(aoiName);
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, "b_aoi_data")) return false;
  const char* pattern = IsJet() ? "select AOIName from b_aoi_data where lcase(AOIName)='%s' and \t\t\tProjectName = '%s'"
                                : "select AOIName from b_aoi_data where lower(AOIName)='%s' and \t\t\tProjectName='%s'";
  return db.GetDataFromDB(Format(pattern, name, projectName).c_str()) == kRowsFound;
}

bool CAOIData::SaveGlobalAOI(const char* projectName, const ProjectRecord& project) {
  AOIRecord global;
  global.AOIName = "Global";
  global.Xmin = project.EWmin;
  global.Xmax = project.EWmax;
  global.Ymin = project.SNmin;
  global.Ymax = project.SNmax;
  return SaveAOI(projectName, global);
}

bool CAOIData::SaveAOI(const char* projectName, const AOIRecord& r) {
  const std::string name = AsciiLower(r.AOIName);
  if (name.empty()) {
    AfxMessageBox("AOI区域名不能为空！");
    return false;
  }
  CDbManage db(connectionString.c_str());
  if (ReportMissingTable(db)) return false;
  db.ExecuteSQL(Format("delete from b_aoi_data where AOIName='%s'", name).c_str());
  db.BeginSaveData("b_aoi_data");
  db.AddNew();
  FieldWriter{db}("ProjectName", projectName ? projectName : "")("AOIName", name)("DESCRIPTION", r.Description)(
      "Xmin", r.Xmin)("Xmax", r.Xmax)("Ymin", r.Ymin)("Ymax", r.Ymax);
  if (!db.SaveData()) {
    AfxMessageBox("保存数据库出错！");
    return false;
  }
  return true;
}

bool CAOIData::DeleteAOI(const char* aoiName) {
  if (aoiName == kNoAOIName) {
    AfxMessageBox("AOI区域名不能为空！");
    return false;
  }
  CDbManage db(connectionString.c_str());
  if (ReportMissingTable(db)) return false;
  db.ExecuteSQL(Format("delete from b_aoi_data where AOIName='%s'", Lowered(aoiName)).c_str());
  return true;
}
