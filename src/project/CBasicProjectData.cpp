#include <filesystem>
#include <optional>

#include "petrodb/DateTime.h"
#include "petrodb/Host.h"
#include "petrodb/project/IBasicProjectData.h"
#include "project/ProjectData.h"

using namespace petrodb;
namespace fs = std::filesystem;

namespace {

constexpr Pattern<"select ProjectName from b_project_data"> kProjectNames;
constexpr Pattern<"select projectName from b_project_recent order by accessTime desc"> kRecentNames;
constexpr Pattern<"select * from b_project_data where ProjectName='%s'"> kLoadProject;
constexpr Pattern<"select ProjectName from b_project_data where ProjectName='%s'"> kProjectExists;
constexpr Pattern<"delete from b_project_data where ProjectName='%s'"> kDeleteProject;
constexpr Pattern<"select * from b_project_recent where projectName ='%s'"> kFindRecent;
constexpr Pattern<"delete from b_project_recent where projectName ='%s'"> kDeleteRecent;
constexpr Pattern<"select * from sysdatabases where name='%s'"> kServerDatabase;
constexpr Pattern<"RESTORE FILELISTONLY FROM DISK = '%s' RESTORE DATABASE %s FROM DISK = '%s' WITH MOVE '%s' TO "
                  "'%s',MOVE '%s' TO '%s'">
    kRestore;

// The load copies the name it was given instead of reading ProjectName, and
// reads CentralMeridian before ProjectionDescription while the save writes it
// after; DepthUnit alone may be missing (metres).
const ColumnTable<ProjectRecord> kProjectColumns{"b_project_data", {
    Col("ProjectName", &ProjectRecord::ProjectName).WriteOnly(),
    Col("Description", &ProjectRecord::Description),
    Col("AutoCalcMinMax", &ProjectRecord::AutoCalcMinMax),
    Col("EWmin", &ProjectRecord::EWmin),
    Col("EWmax", &ProjectRecord::EWmax),
    Col("SNmin", &ProjectRecord::SNmin),
    Col("SNmax", &ProjectRecord::SNmax),
    Col("CreatedDate", &ProjectRecord::CreatedDate),
    Col("EllipsoidID", &ProjectRecord::Ellipsoid, &EllipsoidRecord::EllipsoidID),
    Col("EllipsoidDescription", &ProjectRecord::Ellipsoid, &EllipsoidRecord::EllipsoidDescription),
    Col("SemiMajor", &ProjectRecord::Ellipsoid, &EllipsoidRecord::SemiMajor),
    Col("Flattering", &ProjectRecord::Ellipsoid, &EllipsoidRecord::Flattering),
    Col("ProjectionType", &ProjectRecord::Projection, &ProjectionRecord::ProjectionType),
    Col("CentralMeridian", &ProjectRecord::Projection, &ProjectionRecord::CentralMeridian).ReadOnly(),
    Col("ProjectionDescription", &ProjectRecord::Projection, &ProjectionRecord::ProjectionDescription),
    Col("CentralMeridian", &ProjectRecord::Projection, &ProjectionRecord::CentralMeridian).WriteOnly(),
    Col("OriginLatitude", &ProjectRecord::Projection, &ProjectionRecord::OriginLatitude),
    Col("FalseEasting", &ProjectRecord::Projection, &ProjectionRecord::FalseEasting),
    Col("FalseNorthing", &ProjectRecord::Projection, &ProjectionRecord::FalseNorthing),
    Col("StdParallel1", &ProjectRecord::Projection, &ProjectionRecord::StdParallel1),
    Col("StdParallel2", &ProjectRecord::Projection, &ProjectionRecord::StdParallel2),
    Col("ScaleFactor", &ProjectRecord::Projection, &ProjectionRecord::ScaleFactor),
    Col("Azimuth", &ProjectRecord::Projection, &ProjectionRecord::Azimuth),
    Col("ZoneType", &ProjectRecord::Projection, &ProjectionRecord::ZoneType),
    Col("indexZone", &ProjectRecord::Projection, &ProjectionRecord::indexZone),
    Col("CooridnateType", &ProjectRecord::CooridnateType),
    Col("DepthUnit", &ProjectRecord::DepthUnit).Or(0),
}};

struct RecentRow {
  std::string projectName;
  DateTime accessTime;
};
const ColumnTable<RecentRow> kRecentColumns{"b_project_recent", {
    Col("projectName", &RecentRow::projectName),
    Col("accessTime", &RecentRow::accessTime),
}};

const ReplaceSteps kSaveProject{"b_project_data", Probe::First, AppMessage("数据库连接失败或工区表不存在！"),
                                AppMessage("保存数据库出错！")};

std::string Text(const char* s) { return s ? s : ""; }

}  // namespace

class CBasicProjectData final : public ProjectDataObject<IBasicProjectData> {
 public:
  bool GetProjectNames(std::vector<std::string>& names) override {
    return ReadableNames(kProjectNames(), "ProjectName", names);
  }

  bool GetRecentProjects(std::vector<std::string>& names) override {
    return ReadableNames(kRecentNames(), "projectName", names);
  }

  bool LoadProject(const char* name, ProjectRecord& record) override {
    return LoadOneAfter(kLoadProject(name), kProjectColumns, record, [&] { record.ProjectName = Text(name); });
  }

  bool IsProjectExist(const char* name) override { return ExistsInTable("b_project_data", kProjectExists(name)); }

  // Every save stamps the current time; the record's own CreatedDate is not used.
  bool SaveProject(const ProjectRecord& record) override {
    if (!KeyGiven(record.ProjectName, AppMessage("工区名不能为空！"))) return false;
    const DateTime now = DateTime::Now();
    ProjectRecord row = record;
    row.CreatedDate = sql::Format("%d-%d-%d %d:%d:%d", now.year, now.month, now.day, now.hour, now.minute, now.second);
    // The delete answers true even when it could not run: a name it cannot
    // hold must not be written.
    const bool nameFits = !kDeleteProject(record.ProjectName).refused();
    return ReplaceAfter(
        kSaveProject, [&](CDbManage&) { return nameFits && DeleteProject(record.ProjectName.c_str()); },
        [&](CDbManage& db) { kProjectColumns.AddRow(db, row); });
  }

  bool DeleteProject(const char* name) override {
    if (!KeyGiven(Text(name), AppMessage("工区名称不能为空！"))) return false;
    return ExecuteIfTable("b_project_data", kDeleteProject(name));
  }

  bool TouchRecentProject(const char* name, int) override {
    // The select's three answers decide: a row is deleted first, no row goes
    // straight to the insert, a failure gives up; the save's own result is not
    // looked at.
    const GetDataResult found = Answer(kFindRecent(name));
    if (found == kFailed) return false;
    if (found == kRowsFound) Execute(kDeleteRecent(name));
    Append(kRecentColumns.table(),
           [&](CDbManage& db) { kRecentColumns.AddRow(db, RecentRow{Text(name), DateTime::Now()}); });
    return true;
  }

  bool CreateProjectDirectory(const char* name, const char* parentDirectory) override {
    const fs::path directory = fs::path(Text(parentDirectory)) / Text(name);
    std::error_code ec;
    if (fs::is_directory(directory, ec)) return true;
    if (!name || !*name || !fs::create_directory(directory, ec)) {
      AfxMessageBox("创建工区失败!\n工区目录下可能已有名为" + Text(name) + "的工区。");
      return false;
    }
    return true;
  }

  bool CreateProject(const char* name, const char* parentDirectory, const char* templateDirectory) override {
    const fs::path file = fs::path(Text(parentDirectory)) / Text(name) / (Text(name) + ".mdb");
    std::error_code ec;
    if (fs::exists(file, ec)) {
      AfxMessageBox("该工区已经存在，请重新操作！");
      return false;
    }
    // A failed creation leaves nothing behind: neither a partly copied file nor
    // a project directory this call made.
    const bool directoryExisted = fs::is_directory(file.parent_path(), ec);
    if (!CreateProjectDirectory(name, parentDirectory)) return false;
    const fs::path source = fs::path(Text(templateDirectory)) / "Projects.mdb";
    if (!fs::copy_file(source, file, fs::copy_options::none, ec)) {
      fs::remove(file, ec);
      if (!directoryExisted) fs::remove(file.parent_path(), ec);
      AfxMessageBox("创建工区失败!\n因为无法拷贝缺省数据库。");
      return false;
    }
    fs::permissions(file, fs::perms::owner_write, fs::perm_options::add, ec);
    return true;
  }

  bool CreateProjectDatabase(const char* name, const char* serverConnection) override {
    // A session on the server the caller names, not on this object's project.
    CDbManage db(serverConnection);
    if (db.GetDataFromDB(kServerDatabase(name).c_str()) == kRowsFound) return false;
    const int waiting = BeginWaitingDlg("系统正在创建数据库，请耐心等候...", 0);
    const fs::path directory = ProgramDirectory();
    const std::string backup = (directory / "orvex.bak").string();
    const std::string dataFile = (directory / (Text(name) + ".mdf")).string();
    const std::string logFile = (directory / (Text(name) + ".ldf")).string();
    const bool restored = db.ExecuteSQL(
        kRestore(backup, Text(name), backup, "orvex_Data", dataFile, "orvex_Log", logFile).c_str());
    if (restored) AfxMessageBox("数据库创建成功结束！");
    EndWaitingDlg(waiting);
    return restored;
  }
  PETRODB_DATA_CLASS

 private:
  // The names of the select's rows that can be read (unreadable ones are
  // skipped); true when there is at least one.
  bool ReadableNames(const Statement& statement, const char* column, std::vector<std::string>& names) const {
    names.clear();
    std::vector<std::optional<std::string>> rows;
    const bool ran = LoadRows(statement, rows, Fill::Clear, [column](CDbManage& row, std::optional<std::string>& name) {
                       if (std::string value; row.GetFieldValue(column, value)) name = std::move(value);
                       return true;
                     }).found();
    for (auto& row : rows)
      if (row) names.push_back(std::move(*row));
    return ran && !names.empty();
  }
};

PETRODB_REGISTER_CLASS(CBasicProjectData, IBasicProjectData)
