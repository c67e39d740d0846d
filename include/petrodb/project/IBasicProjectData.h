#pragma once
// Projects (work areas): the catalogue in b_project_data, the recently used
// list in b_project_recent, and the storage of new projects.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct EllipsoidRecord {
  int EllipsoidID = 1021;
  std::string EllipsoidDescription = "Krassovsky 1940/北京54";
  std::string EllipsoidName = "Krasovsky_1940";  // not stored
  double SemiMajor = 6378245.0;                  // metres
  double Flattering = 298.3;                     // inverse flattening
};

struct ProjectionRecord {
  int ProjectionType = 4;
  std::string ProjectionDescription = "高斯克吕格[横切椭圆柱等角]投影/横轴墨卡托投影";
  std::string ProjectionName = "高斯克吕格[横切椭圆柱等角]投影/横轴墨卡托投影";  // not stored
  double CentralMeridian = 0.0;
  double OriginLatitude = 0.0;
  double FalseEasting = 500000.0;
  double FalseNorthing = 0.0;
  double StdParallel1 = 0.0;
  double StdParallel2 = 0.0;
  double ScaleFactor = 1.0;
  double Azimuth = 0.0;
  int ZoneType = 6;  // zone width in degrees
  int indexZone = 13;
};

struct ProjectRecord {
  std::string ProjectName;
  std::string Description;
  char AutoCalcMinMax = '0';
  double SNmin = 0.0;
  double SNmax = 0.0;
  double EWmin = 0.0;
  double EWmax = 0.0;
  std::string CreatedDate;
  int DepthUnit = 0;  // 0 = metres, non-zero = feet
  EllipsoidRecord Ellipsoid;
  ProjectionRecord Projection;
  int CooridnateType = 0;
  // Carried for hosts; not stored by IBasicProjectData.
  std::string ProjectDirectory;
  std::string ProjectRemark;
};

class PETRODB_API IBasicProjectData : public IDataBase {
 public:
  // Names of all projects; true when there is at least one.
  virtual bool GetProjectNames(std::vector<std::string>& names) = 0;
  // Creates <parentDirectory>/<name>/<name>.mdb from <templateDirectory>/Projects.mdb.
  // Does not use the connection string.
  virtual bool CreateProject(const char* name, const char* parentDirectory,
                             const char* templateDirectory) = 0;
  // Creates <parentDirectory>/<name>; true if it is already a directory.
  virtual bool CreateProjectDirectory(const char* name, const char* parentDirectory) = 0;
  // Creates a server database <name> from the backup beside the program,
  // through a session on serverConnection; false at once if it exists.
  virtual bool CreateProjectDatabase(const char* name, const char* serverConnection) = 0;
  // Reads the project's row; false if missing or a stored column is unreadable
  // (DepthUnit alone falls back to 0).
  virtual bool LoadProject(const char* name, ProjectRecord& record) = 0;
  virtual bool IsProjectExist(const char* name) = 0;
  // Replaces the project's row, stamping CreatedDate with the current time.
  virtual bool SaveProject(const ProjectRecord& record) = 0;
  virtual bool DeleteProject(const char* name) = 0;
  // Most recent first.
  virtual bool GetRecentProjects(std::vector<std::string>& names) = 0;
  // Records that the project was opened now; each name appears once.
  virtual bool TouchRecentProject(const char* name, int ignored) = 0;
};
