#include <filesystem>

#include "dbaccess/DataObject.h"
#include "petrodb/DateTime.h"
#include "petrodb/Host.h"
#include "petrodb/project/IBasicProjectData.h"

using petrodb::AfxMessageBox;
using petrodb::FieldReader;
using petrodb::FieldWriter;
using petrodb::sql::Format;
namespace fs = std::filesystem;

class CBasicProjectData final : public petrodb::CDataObject<IBasicProjectData> {
 public:
  bool GetProjectNames(std::vector<std::string>& names) override;
  bool CreateProject(const char* name, const char* parentDirectory, const char* templateDirectory) override;
  bool CreateProjectDirectory(const char* name, const char* parentDirectory) override;
  bool CreateProjectDatabase(const char* name, const char* serverConnection) override;
  bool LoadProject(const char* name, ProjectRecord& record) override;
  bool IsProjectExist(const char* name) override;
  bool SaveProject(const ProjectRecord& record) override;
  bool DeleteProject(const char* name) override;
  bool GetRecentProjects(std::vector<std::string>& names) override;
  bool TouchRecentProject(const char* name, int ignored) override;
  PETRODB_DATA_CLASS

 private:
  bool ReadNames(const char* statement, const char* column, std::vector<std::string>& names);
};

PETRODB_REGISTER_CLASS(CBasicProjectData, IBasicProjectData)

namespace {
std::string Text(const char* s) { return s ? s : ""; }
}  // namespace

bool CBasicProjectData::ReadNames(const char* statement, const char* column, std::vector<std::string>& names) {
  names.clear();
  CDbManage db(connectionString.c_str());
  const auto result = petrodb::ForEachRow(db, statement, false, [&](CDbManage& row) {
    std::string name;
    if (row.GetFieldValue(column, name)) names.push_back(name);
    return true;
  });
  return result == kRowsFound && !names.empty();
}

bool CBasicProjectData::GetProjectNames(std::vector<std::string>& names) {
  return ReadNames("select ProjectName from b_project_data", "ProjectName", names);
}

bool CBasicProjectData::GetRecentProjects(std::vector<std::string>& names) {
  return ReadNames("select projectName from b_project_recent order by accessTime desc", "projectName", names);
}

bool CBasicProjectData::LoadProject(const char* name, ProjectRecord& record) {
  CDbManage db(connectionString.c_str());
  if (db.GetDataFromDB(Format("select * from b_project_data where ProjectName='%s'", name).c_str()) != kRowsFound)
    return false;
  record.ProjectName = Text(name);
  auto& e = record.Ellipsoid;
  auto& p = record.Projection;
  FieldReader in(db);
  in("Description", record.Description)("AutoCalcMinMax", record.AutoCalcMinMax)("EWmin", record.EWmin)(
      "EWmax", record.EWmax)("SNmin", record.SNmin)("SNmax", record.SNmax)("SNmax", record.SNmax)(
      "CreatedDate", record.CreatedDate)("EllipsoidID", e.EllipsoidID)("EllipsoidDescription", e.EllipsoidDescription)(
      "SemiMajor", e.SemiMajor)("Flattering", e.Flattering)("ProjectionType", p.ProjectionType)(
      "CentralMeridian", p.CentralMeridian)("ProjectionDescription", p.ProjectionDescription)(
      "OriginLatitude", p.OriginLatitude)("FalseEasting", p.FalseEasting)("FalseNorthing", p.FalseNorthing)(
      "StdParallel1", p.StdParallel1)("StdParallel2", p.StdParallel2)("ScaleFactor", p.ScaleFactor)(
      "Azimuth", p.Azimuth)("ZoneType", p.ZoneType)("indexZone", p.indexZone)("CooridnateType", record.CooridnateType);
  if (!in.ok()) return false;
  in.Optional("DepthUnit", record.DepthUnit, 0);
  return true;
}

bool CBasicProjectData::IsProjectExist(const char* name) {
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, "b_project_data")) return false;
  return db.GetDataFromDB(Format("select ProjectName from b_project_data where ProjectName='%s'", name).c_str()) ==
         kRowsFound;
}

bool CBasicProjectData::SaveProject(const ProjectRecord& record) {
  if (record.ProjectName.empty()) {
    AfxMessageBox("工区名不能为空！");
    return false;
  }
  const DateTime now = DateTime::Now();
  const std::string created =
      Format("%d-%d-%d %d:%d:%d", now.year, now.month, now.day, now.hour, now.minute, now.second);
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, "b_project_data")) {
    AfxMessageBox("数据库连接失败或工区表不存在！");
    return false;
  }
  if (!DeleteProject(record.ProjectName.c_str())) return false;
  const auto& e = record.Ellipsoid;
  const auto& p = record.Projection;
  db.BeginSaveData("b_project_data");
  db.AddNew();
  FieldWriter out(db);
  out("ProjectName", record.ProjectName)("Description", record.Description)(
      "AutoCalcMinMax", record.AutoCalcMinMax)("EWmin", record.EWmin)("EWmax", record.EWmax)("SNmin", record.SNmin)(
      "SNmax", record.SNmax)("CreatedDate", created)("EllipsoidID", e.EllipsoidID)(
      "EllipsoidDescription", e.EllipsoidDescription)("SemiMajor", e.SemiMajor)("Flattering", e.Flattering)(
      "ProjectionType", p.ProjectionType)("ProjectionDescription", p.ProjectionDescription)(
      "CentralMeridian", p.CentralMeridian)("OriginLatitude", p.OriginLatitude)("FalseEasting", p.FalseEasting)(
      "FalseNorthing", p.FalseNorthing)("StdParallel1", p.StdParallel1)("StdParallel2", p.StdParallel2)(
      "ScaleFactor", p.ScaleFactor)("Azimuth", p.Azimuth)("ZoneType", p.ZoneType)("indexZone", p.indexZone)(
      "CooridnateType", record.CooridnateType)("DepthUnit", record.DepthUnit);
  if (!db.SaveData()) {
    AfxMessageBox("保存数据库出错！");
    return false;
  }
  return true;
}

bool CBasicProjectData::DeleteProject(const char* name) {
  if (!name || !*name) {
    AfxMessageBox("工区名称不能为空！");
    return false;
  }
  CDbManage db(connectionString.c_str());
  if (petrodb::TableMissing(db, "b_project_data")) return false;
  db.ExecuteSQL(Format("delete from b_project_data where ProjectName='%s'", name).c_str());
  return true;
}

bool CBasicProjectData::TouchRecentProject(const char* name, int) {
  CDbManage db(connectionString.c_str());
  const auto found = db.GetDataFromDB(Format("select * from b_project_recent where projectName ='%s'", name).c_str());
  if (found == kFailed) return false;
  if (found == kRowsFound)
    db.ExecuteSQL(Format("delete from b_project_recent where projectName ='%s'", name).c_str());
  db.BeginSaveData("b_project_recent");
  db.AddNew();
  db.SetFieldValue("projectName", Text(name));
  db.SetFieldValue("accessTime", DateTime::Now());
  db.SaveData();
  return true;
}

bool CBasicProjectData::CreateProjectDirectory(const char* name, const char* parentDirectory) {
  const fs::path directory = fs::path(Text(parentDirectory)) / Text(name);
  std::error_code ec;
  if (fs::is_directory(directory, ec)) return true;
  if (!name || !*name || !fs::create_directory(directory, ec)) {
    AfxMessageBox("创建工区失败!\n工区目录下可能已有名为" + Text(name) + "的工区。");
    return false;
  }
  return true;
}

bool CBasicProjectData::CreateProject(const char* name, const char* parentDirectory, const char* templateDirectory) {
  const fs::path directory = fs::path(Text(parentDirectory)) / Text(name);
  const fs::path file = directory / (Text(name) + ".mdb");
  std::error_code ec;
  if (fs::exists(file, ec)) {
    AfxMessageBox("该工区已经存在，请重新操作！");
    return false;
  }
  if (!CreateProjectDirectory(name, parentDirectory)) return false;
  const fs::path source = fs::path(Text(templateDirectory)) / "Projects.mdb";
  if (!fs::copy_file(source, file, fs::copy_options::none, ec)) {
    AfxMessageBox("创建工区失败!\n因为无法拷贝缺省数据库。");
    return false;
  }
  fs::permissions(file, fs::perms::owner_write, fs::perm_options::add, ec);
  return true;
}

bool CBasicProjectData::CreateProjectDatabase(const char* name, const char* serverConnection) {
  CDbManage db(serverConnection);
  if (db.GetDataFromDB(Format("select * from sysdatabases where name='%s'", name).c_str()) == kRowsFound) return false;
  const int waiting = petrodb::BeginWaitingDlg("系统正在创建数据库，请耐心等候...", 0);
  const std::string directory = petrodb::ProgramDirectory();
  const std::string backup = (fs::path(directory) / "orvex.bak").string();
  const std::string dataFile = (fs::path(directory) / (Text(name) + ".mdf")).string();
  const std::string logFile = (fs::path(directory) / (Text(name) + ".ldf")).string();
  const bool restored = db.ExecuteSQL(
      Format("RESTORE FILELISTONLY FROM DISK = '%s' RESTORE DATABASE %s FROM DISK = '%s' WITH MOVE '%s' TO "
             "'%s',MOVE '%s' TO '%s'",
             backup, name, backup, "orvex_Data", dataFile, "orvex_Log", logFile)
          .c_str());
  if (restored) AfxMessageBox("数据库创建成功结束！");
  petrodb::EndWaitingDlg(waiting);
  return restored;
}
