#pragma once
// Keeps a project's "global" area of interest in step with its map extent.
#include "petrodb/IDataBase.h"
#include "petrodb/project/IBasicProjectData.h"

class PETRODB_API IUpdateProjectArea : public IDataBase {
 public:
  // Updates the project's "global" row of b_aoi_data in place: X from EWmin /
  // EWmax, Y from SNmin / SNmax. True when the statement ran (also when the
  // project has no "global" row).
  virtual bool UpdateProjectArea(const char* projectName, const ProjectRecord& project) = 0;
};
