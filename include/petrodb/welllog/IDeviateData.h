#pragma once
// Deviation surveys (w_deviate_well): one row per well, each survey quantity a
// whole array of doubles; station i of every array is the same station. Values
// are stored and returned as given.
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"

struct DeviationSurvey {
  std::string WellID;
  std::vector<double> Md;           // measured depth
  std::vector<double> Azimuth;      // degrees, clockwise from grid north
  std::vector<double> Inclination;  // degrees from vertical
  std::vector<double> Xoffset;      // east offset from the well head
  std::vector<double> Yoffset;      // north offset from the well head
  std::vector<double> Xcoor;        // map X
  std::vector<double> Ycoor;        // map Y
  std::vector<double> Tvd;          // true vertical depth
  std::vector<double> Tvdss;        // vertical depth below sea level
};

class PETRODB_API IDeviateData : public IDataBase {
 public:
  // IDs of the project's wells that have a survey, ordered by ID.
  virtual bool GetSurveyedWellIDs(const char* projectName, std::vector<std::string>& wellIDs) = 0;
  virtual bool LoadSurveys(const std::vector<std::string>& wellIDs, std::vector<DeviationSurvey>& surveys) = 0;
  // False when the well has no row or one of its arrays is null.
  virtual bool LoadSurvey(const char* wellID, DeviationSurvey& survey) = 0;
  virtual bool LoadProjectSurveys(const char* projectName, std::vector<DeviationSurvey>& surveys) = 0;
  virtual bool IsSurveyExist(const char* wellID) = 0;
  // Replaces the well's row; a survey without Md only removes the old row.
  virtual bool SaveSurvey(const DeviationSurvey& survey) = 0;
  // Appends to `found` those of `wellIDs` that have a row.
  virtual bool GetWellsWithSurvey(int ignored, const std::vector<std::string>& wellIDs,
                                  std::vector<std::string>& found) = 0;
  // Removes the rows of all listed wells, then writes those records that have
  // Md, Tvd and Xcoor.
  virtual bool SaveSurveys(int ignored, const std::vector<DeviationSurvey>& surveys) = 0;
  virtual bool DeleteSurvey(const char* wellID) = 0;
  virtual bool DeleteSurveys(std::vector<std::string> wellIDs) = 0;
  virtual bool DeleteProjectSurveys(const char* projectName) = 0;
};
