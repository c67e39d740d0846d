#pragma once
// 2D seismic lines of a project (s_linecoor2d_data, one row per line, numbered
// by the database in S2d_no) with their trace positions (s_2dlinegrid_nav, one
// row per CDP). Lines are grouped in named surveys.
//
// Reads append to the caller's lists and answer true when the query ran and
// every row could be read (an empty result included). Deletes remove line rows
// only; the trace positions of deleted lines stay in s_2dlinegrid_nav, where no
// read reaches them.
#include <map>
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"
#include "petrodb/seismic/SegyFormat.h"

struct Line2DPoint {
  int CDP = 0;            // 0 when the row holds NULL
  double X = -99999.0;    // -99999.0 when the row holds NULL
  double Y = -99999.0;
  bool operator==(const Line2DPoint&) const = default;
};

struct Line2DRecord {
  std::string LineName;
  std::string SegYFile;
  SegyFormat FileFormat;
  std::vector<Line2DPoint> Points;  // ascending CDP when loaded
  bool operator==(const Line2DRecord&) const = default;
};

struct Survey2DLines {
  std::string S2d_name;
  std::vector<Line2DRecord> Lines;
};

class PETRODB_API ILineCoor2DData : public IDataBase {
 public:
  // Distinct names of the survey's lines.
  virtual bool GetLineNames(const char* project, const char* survey, std::vector<std::string>& names) = 0;
  // One line with its points (the point list is emptied first, the name set).
  // False when the query fails or a row cannot be read; a line without points
  // loads nothing and is true.
  virtual bool LoadLine(const char* project, const char* survey, const char* line, Line2DRecord& record) = 0;
  // Removes every line of the project. Empty project: "工区名称不能为空！".
  virtual bool DeleteProjectLines(const char* project) = 0;
  virtual bool GetSurveyNames(const char* project, std::vector<std::string>& names) = 0;
  // The survey's lines by name, each with its points by CDP, appended.
  virtual bool LoadSurvey(const char* project, const char* survey, std::vector<Line2DRecord>& lines) = 0;
  // Every survey of the project by name, its lines appended under the name.
  virtual bool LoadProjectSurveys(const char* project, std::map<std::string, std::vector<Line2DRecord>>& surveys) = 0;
  virtual bool IsSurveyExist(const char* project, const char* survey) = 0;
  // Replaces the survey's lines of the same names (other lines stay) and writes
  // each line with its points. The database numbers the first line; the lines
  // after it are taken to follow it one by one. False when the line table is
  // missing or a save fails.
  virtual bool SaveSurvey(const char* project, const Survey2DLines& survey) = 0;
  // The first n - k distinct candidate names, k being the number of them the
  // project does not have (the list is cut at its end, whichever names are
  // missing). False when the line table is missing.
  virtual bool GetExistingSurveys(const char* project, const std::vector<Survey2DLines>& candidates,
                                  std::vector<std::string>& existing) = 0;
  // SaveSurvey for each, in order; true whatever each answers.
  virtual bool SaveSurveys(const char* project, const std::vector<Survey2DLines>& surveys) = 0;
  // Deletes with an empty project or survey name show "工区名称\测网名称不能为空！".
  virtual bool DeleteSurvey(const char* project, const char* survey) = 0;
  virtual bool DeleteLine(const char* project, const char* survey, const char* line) = 0;
  virtual bool DeleteSurveys(const char* project, const std::vector<std::string>& surveys) = 0;
  // The same operation as DeleteProjectLines.
  virtual bool DeleteProjectLines2(const char* project) = 0;
  virtual bool DeleteLines(const char* project, const char* survey, const std::vector<std::string>& lines) = 0;
};
