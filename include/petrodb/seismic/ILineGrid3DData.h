#pragma once
// 3D seismic grids of a project: the grid header with its three control points
// and its inline/crossline ranges (s_linegrid3d_data, one row per grid) and
// the SEG-Y files that hold it (s_3dlinegrid_fileinfo, one row per file).
// Values are stored and returned as given; nothing is extrapolated.
//
// Reads append to the caller's lists and answer true when the query ran and
// every row could be read (an empty result included).
#include <map>
#include <string>
#include <vector>

#include "petrodb/IDataBase.h"
#include "petrodb/seismic/SegyFormat.h"

struct LineGrid3DRecord {
  std::string LineGrid3DName;
  int LineNo1 = 0, CDPNo1 = 0;  // control point 1: inline, crossline (CDP)
  double Xcoor1 = 0, Ycoor1 = 0;
  int LineNo2 = 0, CDPNo2 = 0;
  double Xcoor2 = 0, Ycoor2 = 0;
  int LineNo3 = 0, CDPNo3 = 0;
  double Xcoor3 = 0, Ycoor3 = 0;
  int CDP_P_Begin = 0, CDP_P_End = 0, CDP_Inc = 0;  // crossline range
  int Line_Begin = 0, Line_End = 0, Line_Inc = 0;   // inline range
  std::string ProjectName;                          // written from the project argument
  bool operator==(const LineGrid3DRecord&) const = default;
};

struct LineGrid3DFile {
  std::string LineGrid3DName;  // loads fill it from the grid argument
  std::string SegYFile;
  SegyFormat FileFormat;
  int InLine_Start = 0, InLine_End = 0, InLine_Inc = 0;
  std::string ProjectName;  // loads fill it from the project argument
  bool operator==(const LineGrid3DFile&) const = default;
};

// What the files of one grid cover, built while they are loaded.
struct LineGrid3DSummary {
  std::string LineGrid3DName;
  int FileCount = 0;
  int InLine_Start = 0;  // smallest first inline of the files (0 without files)
  int InLine_End = 0;    // largest last inline of the files
  bool operator==(const LineGrid3DSummary&) const = default;
};

class PETRODB_API ILineGrid3DData : public IDataBase {
 public:
  virtual bool GetGridNames(const char* project, std::vector<std::string>& names) = 0;
  // The grid's files ordered by first inline, appended to `files`; `summary`
  // is set from the same rows.
  virtual bool LoadGridFiles(const char* project, const char* grid, LineGrid3DSummary& summary,
                             std::vector<LineGrid3DFile>& files) = 0;
  // False when no row is found or a column cannot be read.
  virtual bool LoadGrid(const char* project, const char* grid, LineGrid3DRecord& record) = 0;
  // LoadGridFiles for every grid name, filed under the name; grids whose files
  // cannot be loaded are skipped.
  virtual bool LoadProjectGrids(const char* project, std::map<std::string, LineGrid3DSummary>& summaries,
                                std::map<std::string, std::vector<LineGrid3DFile>>& files) = 0;
  virtual bool LoadAllGrids(const char* project, std::vector<LineGrid3DRecord>& grids) = 0;
  // Asks the table under its older name b_LineGrid3D_data (after checking that
  // s_linegrid3d_data answers): false where that name does not exist.
  virtual bool IsGridExist(const char* project, const char* grid) = 0;
  virtual bool GetExistingGrids(const char* project, const std::vector<std::string>& names,
                                std::vector<std::string>& existing) = 0;
  // Appends one file row (nothing is replaced).
  virtual bool SaveGridFile(const char* project, const char* grid, const LineGrid3DFile& file) = 0;
  // Replaces the grid of the same name. Empty name: "三维地震测网数据名称不能为空！";
  // missing table: "三维地震测网数据表为空！"; failed save: "保存数据库出错！".
  virtual bool SaveGrid(const char* project, const LineGrid3DRecord& record) = 0;
  // Append rows in one batch; nothing is deleted first.
  virtual bool SaveGridFiles(const char* project, const char* grid, const std::vector<LineGrid3DFile>& files) = 0;
  virtual bool SaveGrids(const char* project, const std::vector<LineGrid3DRecord>& grids) = 0;
  // Removes the grid and its files. Empty grid name: "LineGrid3D区域名不能为空！".
  virtual bool DeleteGrid(const char* project, const char* grid) = 0;
  // Removes the grids only; their file rows stay.
  virtual bool DeleteGrids(const char* project, const std::vector<std::string>& names) = 0;
  // Removes every grid of the project and their files.
  virtual bool DeleteProjectGrids(const char* project) = 0;
};
