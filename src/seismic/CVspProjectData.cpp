#include "dbaccess/DataObject.h"
#include "petrodb/seismic/IVspProjectData.h"

using namespace petrodb;

namespace {

constexpr const char* kTable = "vsp_project";

constexpr Pattern<"select Distinct Vsp_ProjName from vsp_project where WellID ='%s' order by Vsp_ProjName"> kNames;
constexpr Pattern<"select  * from vsp_project where  WellID = '%s'"> kLoadWell;
constexpr Pattern<"select  * from vsp_project where Vsp_ProjID = %d"> kLoadByID;
constexpr Pattern<"select  Description, Create_time, Create_user, Proj_type from vsp_project where Vsp_ProjName = "
                  "'%s'">
    kLoadByName;
constexpr Pattern<"delete from vsp_project where  WellID = '%s'"> kDeleteWell;
constexpr Pattern<"delete from vsp_project where Vsp_ProjName = '%s' and WellID = '%s'"> kDeleteOne;
constexpr Pattern<"select  Vsp_ProjName from vsp_project where Vsp_ProjName = '%s'"> kExists;
constexpr Pattern<"select  Vsp_ProjID from vsp_project where Vsp_ProjName = '%s'"> kProjectID;
constexpr Pattern<"select  Proj_type from vsp_project where Vsp_ProjName = '%s'"> kProjectType;

const Message kEmptyWellOrName = AppMessage("井号或Vsp工区名称不能为空！");
const Message kEmptyWell = AppMessage("井号不能为空！");

// The whole row; the database numbers Vsp_ProjID.
const ColumnTable<VspProjectRecord> kProjectColumns{kTable, {
    Col("Vsp_ProjID", &VspProjectRecord::Vsp_ProjID).ReadOnly(),
    Col("Vsp_ProjName", &VspProjectRecord::Vsp_ProjName),
    Col("WellID", &VspProjectRecord::WellID),
    Col("Description", &VspProjectRecord::Description),
    Col("Create_time", &VspProjectRecord::Create_time),
    Col("Create_user", &VspProjectRecord::Create_user),
    Col("Proj_type", &VspProjectRecord::Proj_type),
}};
// What the loads by name and by well read besides the name.
const ColumnTable<VspProjectRecord> kDetailColumns{kTable, {
    Col("Description", &VspProjectRecord::Description),
    Col("Create_time", &VspProjectRecord::Create_time),
    Col("Create_user", &VspProjectRecord::Create_user),
    Col("Proj_type", &VspProjectRecord::Proj_type),
}};

}  // namespace

class CVspProjectData final : public CDataObject<IVspProjectData> {
 public:
  bool GetVspProjectNames(const char* wellID, std::vector<std::string>& names) override {
    return ListColumn(kNames(wellID), "Vsp_ProjName", names, Fill::Clear).found();
  }

  bool LoadWellVspProjects(const char* wellID, std::vector<VspProjectRecord>& projects) override {
    return LoadRows(kLoadWell(wellID), projects, Fill::Clear, [](CDbManage& db, VspProjectRecord& p) {
             return columns::ReadValue(db, "Vsp_ProjName", p.Vsp_ProjName) && kDetailColumns.Read(db, p);
           }).found();
  }

  bool LoadVspProject(int projectID, VspProjectRecord& project) override {
    return LoadOne(kLoadByID(projectID), kProjectColumns, project);
  }

  bool LoadVspProjectByName(const char* name, VspProjectRecord& project) override {
    return LoadOne(kLoadByName(name), kDetailColumns, project);
  }

  // A key holding a quote could never be deleted again: such a save writes nothing.
  bool SaveVspProjects(const std::vector<VspProjectRecord>& projects) override {
    for (const auto& p : projects)
      if (kDeleteOne(p.Vsp_ProjName, p.WellID).refused()) return false;
    return ReplaceAfter(
        ReplaceSteps{kTable},
        [&](CDbManage&) {
          for (const auto& p : projects) DeleteVspProject(p.WellID.c_str(), p.Vsp_ProjName.c_str());
          return true;
        },
        [&](CDbManage& db) { kProjectColumns.AddRows(db, projects); });
  }

  bool SaveVspProject(const VspProjectRecord& project) override {
    if (!KeyGiven(project.WellID, kEmptyWellOrName) || !KeyGiven(project.Vsp_ProjName, kEmptyWellOrName))
      return false;
    if (kDeleteOne(project.Vsp_ProjName, project.WellID).refused()) return false;
    return ReplaceAfter(ReplaceSteps{kTable},
                        Regardless([&] { DeleteVspProject(project.WellID.c_str(), project.Vsp_ProjName.c_str()); }),
                        [&](CDbManage& db) { kProjectColumns.AddRow(db, project); });
  }

  bool DeleteWellVspProjects(const char* wellID) override {
    return KeyGiven(wellID, kEmptyWell) && ExecuteOnTable(kTable, kDeleteWell(wellID));
  }

  bool DeleteVspProject(const char* wellID, const char* name) override {
    return KeyGiven(wellID, kEmptyWellOrName) && KeyGiven(name, kEmptyWellOrName) &&
           ExecuteOnTable(kTable, kDeleteOne(name, wellID));
  }

  bool IsVspProjectExist(const char* name) override { return Exists(kExists(name)); }

  int GetVspProjectId(const char* name) override {
    int id = -1;
    return LoadField(kProjectID(name), "Vsp_ProjID", id) ? id : -1;
  }

  bool GetVspProjectType(const char* name, std::string& type) override {
    return LoadField(kProjectType(name), "Proj_type", type);
  }
  PETRODB_DATA_CLASS
};

PETRODB_REGISTER_CLASS(CVspProjectData, IVspProjectData)
