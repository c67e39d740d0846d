#pragma once
// Areas of interest: named rectangles in map coordinates in b_aoi_data. Names
// are stored and compared in lower case (ASCII letters only), and one name
// lives in one project at a time. "global" is the project's whole extent.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"
#include "petrodb/project/IBasicProjectData.h"

struct AOIRecord {
  std::string AOIName;
  std::string ProjectName;
  std::string Description;  // column DESCRIPTION; may be absent
  double Xmin = 0.0;
  double Xmax = 0.0;
  double Ymin = 0.0;
  double Ymax = 0.0;
};

class PETRODB_API IAOIData : public IDataBase {
 public:
  virtual bool LoadAOI(const char* projectName, const char* aoiName, AOIRecord& record) = 0;
  // The names of the AOIs of every project (projectName is not used).
  virtual bool GetAOINames(const char* projectName, std::vector<std::string>& names) = 0;
  virtual bool GetAOIList(const char* projectName, std::vector<AOIRecord>& list) = 0;
  virtual bool IsAOIExist(const char* projectName, const char* aoiName) = 0;
  // Saves "global" with the project's map extent (X from EW, Y from SN).
  virtual bool SaveGlobalAOI(const char* projectName, const ProjectRecord& project) = 0;
  // Removes the name from every project, then stores it in projectName.
  virtual bool SaveAOI(const char* projectName, const AOIRecord& record) = 0;
  // Deletes the name in every project. Only the library's shared empty text
  // (kNoAOIName) is refused; any other empty text passes.
  virtual bool DeleteAOI(const char* aoiName) = 0;
};

// The one name DeleteAOI refuses: compared by address, not by content.
extern const char* const kNoAOIName;
