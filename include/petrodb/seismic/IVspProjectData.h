#pragma once
// VSP processing projects (vsp_project): one row per project, each belonging
// to a well and numbered by the database.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct VspProjectRecord {
  int Vsp_ProjID = 0;  // numbered by the database; never written
  std::string Vsp_ProjName;
  std::string WellID;
  std::string Description;
  std::string Create_time;  // the caller's text, stored unchanged
  std::string Create_user;
  std::string Proj_type;  // selects the algorithm catalogue

  bool operator==(const VspProjectRecord&) const = default;
};

// Lists and loads clear their output first and answer true when a row was
// found and read. A missing table makes saves and deletes answer false
// silently; empty keys show their message and touch nothing.
class PETRODB_API IVspProjectData : public IDataBase {
 public:
  virtual bool GetVspProjectNames(const char* wellID, std::vector<std::string>& names) = 0;
  // Fills Vsp_ProjName, Description, Create_time, Create_user and Proj_type;
  // Vsp_ProjID and WellID stay as constructed.
  virtual bool LoadWellVspProjects(const char* wellID, std::vector<VspProjectRecord>& projects) = 0;
  // Every column of the project's row.
  virtual bool LoadVspProject(int projectID, VspProjectRecord& project) = 0;
  // Fills Description, Create_time, Create_user and Proj_type only.
  virtual bool LoadVspProjectByName(const char* name, VspProjectRecord& project) = 0;
  // For each record DeleteVspProject (whatever it answers: an empty key shows its
  // message and the row is still written), then all rows in one batch.
  virtual bool SaveVspProjects(const std::vector<VspProjectRecord>& projects) = 0;
  // An empty well or name shows "井号或Vsp工区名称不能为空！"; otherwise replaces
  // the row of that name and well (the database numbers the new row).
  virtual bool SaveVspProject(const VspProjectRecord& project) = 0;
  // An empty well shows "井号不能为空！".
  virtual bool DeleteWellVspProjects(const char* wellID) = 0;
  // An empty well or name shows "井号或Vsp工区名称不能为空！".
  virtual bool DeleteVspProject(const char* wellID, const char* name) = 0;
  virtual bool IsVspProjectExist(const char* name) = 0;
  // The project's number, or -1 when no project has that name.
  virtual int GetVspProjectId(const char* name) = 0;
  virtual bool GetVspProjectType(const char* name, std::string& type) = 0;
};
