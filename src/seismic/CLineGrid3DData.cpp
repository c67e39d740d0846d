#include <algorithm>

#include "dbaccess/DataObject.h"
#include "petrodb/seismic/ILineGrid3DData.h"

using namespace petrodb;

namespace {

constexpr Pattern<"select LineGrid3DName from s_linegrid3d_data where ProjectName = '%s'"> kGridNames;
constexpr Pattern<"select * from s_3dlinegrid_fileinfo where LineGrid3DName='%s' and ProjectName='%s' order by "
                  "InLine_Start">
    kLoadFiles;
constexpr Pattern<"select * from s_linegrid3d_data where LineGrid3DName='%s' and ProjectName = '%s'"> kLoadGrid;
constexpr Pattern<"select * from s_linegrid3d_data where ProjectName = '%s'"> kLoadAll;
constexpr Pattern<"select LineGrid3DName from b_LineGrid3D_data where LineGrid3DName='%s' and ProjectName = '%s'">
    kGridExists;
constexpr Pattern<"select LineGrid3DName from  s_linegrid3d_data where ProjectName = '%s'and LineGrid3DName in (%s)">
    kExistingGrids;
constexpr Pattern<"delete from s_linegrid3d_data where LineGrid3DName='%s' and ProjectName = '%s'"> kDeleteGrid;
constexpr Pattern<"delete from s_3dlinegrid_fileinfo where LineGrid3DName='%s' and ProjectName = '%s'"> kDeleteFiles;
constexpr Pattern<"delete from  s_linegrid3d_data where  ProjectName='%s' and LineGrid3DName in (%s)"> kDeleteGrids;
constexpr Pattern<"delete from  s_linegrid3d_data where ProjectName='%s'"> kDeleteProjectGrids;
constexpr Pattern<"delete from  s_3dlinegrid_fileinfo where ProjectName='%s'"> kDeleteProjectFiles;

constexpr const char* kGridTable = "s_linegrid3d_data";
constexpr const char* kFileTable = "s_3dlinegrid_fileinfo";

const ColumnTable<LineGrid3DRecord> kGridColumns{kGridTable, {
    Col("LineGrid3DName", &LineGrid3DRecord::LineGrid3DName),
    Col("LineNo1", &LineGrid3DRecord::LineNo1),
    Col("CDPNo1", &LineGrid3DRecord::CDPNo1),
    Col("Xcoor1", &LineGrid3DRecord::Xcoor1),
    Col("Ycoor1", &LineGrid3DRecord::Ycoor1),
    Col("LineNo2", &LineGrid3DRecord::LineNo2),
    Col("CDPNo2", &LineGrid3DRecord::CDPNo2),
    Col("Xcoor2", &LineGrid3DRecord::Xcoor2),
    Col("Ycoor2", &LineGrid3DRecord::Ycoor2),
    Col("LineNo3", &LineGrid3DRecord::LineNo3),
    Col("CDPNo3", &LineGrid3DRecord::CDPNo3),
    Col("Xcoor3", &LineGrid3DRecord::Xcoor3),
    Col("Ycoor3", &LineGrid3DRecord::Ycoor3),
    Col("CDP_P_Begin", &LineGrid3DRecord::CDP_P_Begin),
    Col("CDP_P_End", &LineGrid3DRecord::CDP_P_End),
    Col("CDP_Inc", &LineGrid3DRecord::CDP_Inc),
    Col("Line_Begin", &LineGrid3DRecord::Line_Begin),
    Col("Line_End", &LineGrid3DRecord::Line_End),
    Col("Line_Inc", &LineGrid3DRecord::Line_Inc),
    Col("ProjectName", &LineGrid3DRecord::ProjectName),
}};

// One file row as stored: the layout as its text.
struct FileRow {
  std::string LineGrid3DName;
  std::string SegYFile;
  std::string FileFormat;
  int InLine_Start = 0, InLine_End = 0, InLine_Inc = 0;
  std::string ProjectName;
};
const ColumnTable<FileRow> kFileColumns{kFileTable, {
    Col("LineGrid3DName", &FileRow::LineGrid3DName).WriteOnly(),
    Col("SegYFile", &FileRow::SegYFile),
    Col("FileFormat", &FileRow::FileFormat),
    Col("InLine_Start", &FileRow::InLine_Start),
    Col("InLine_End", &FileRow::InLine_End),
    Col("InLine_Inc", &FileRow::InLine_Inc),
    Col("ProjectName", &FileRow::ProjectName).WriteOnly(),
}};

FileRow ToRow(const char* project, const char* grid, const LineGrid3DFile& f) {
  return {grid, f.SegYFile, f.FileFormat.ToText(), f.InLine_Start, f.InLine_End, f.InLine_Inc, project};
}

constexpr Message kEmptyProject = AppMessage("工区名称不能为空！");
constexpr Message kEmptyGrid = AppMessage("LineGrid3D区域名不能为空！");
constexpr Message kEmptyGridName = AppMessage("三维地震测网数据名称不能为空！");
constexpr Message kGridTableMissing = AppMessage("三维地震测网数据表为空！");
constexpr Message kSaveFailed = AppMessage("保存数据库出错！");

}  // namespace

class CLineGrid3DData final : public CDataObject<ILineGrid3DData> {
 public:
  bool GetGridNames(const char* project, std::vector<std::string>& names) override {
    return ListColumn(kGridNames(project), "LineGrid3DName", names, Fill::Append).ran();
  }

  bool LoadGridFiles(const char* project, const char* grid, LineGrid3DSummary& summary,
                     std::vector<LineGrid3DFile>& files) override {
    std::vector<FileRow> rows;
    const Loaded loaded = LoadAll(kLoadFiles(grid, project), kFileColumns, rows, Fill::Clear);
    summary = LineGrid3DSummary{grid, static_cast<int>(rows.size()), 0, 0};
    for (const auto& row : rows) {
      LineGrid3DFile file{grid, row.SegYFile, SegyFormat(), row.InLine_Start, row.InLine_End, row.InLine_Inc, project};
      file.FileFormat.ReadText(row.FileFormat);
      files.push_back(std::move(file));
      const bool first = &row == &rows.front();
      summary.InLine_Start = first ? row.InLine_Start : std::min(summary.InLine_Start, row.InLine_Start);
      summary.InLine_End = first ? row.InLine_End : std::max(summary.InLine_End, row.InLine_End);
    }
    return loaded.ran();
  }

  bool LoadGrid(const char* project, const char* grid, LineGrid3DRecord& record) override {
    return LoadOne(kLoadGrid(grid, project), kGridColumns, record);
  }

  bool LoadProjectGrids(const char* project, std::map<std::string, LineGrid3DSummary>& summaries,
                        std::map<std::string, std::vector<LineGrid3DFile>>& files) override {
    std::vector<std::string> names;
    if (!GetGridNames(project, names)) return false;
    for (const auto& name : names) {
      LineGrid3DSummary summary;
      std::vector<LineGrid3DFile> list;
      if (!LoadGridFiles(project, name.c_str(), summary, list)) continue;
      summaries[name] = summary;
      auto& filed = files[name];
      filed.insert(filed.end(), list.begin(), list.end());
    }
    return true;
  }

  bool LoadAllGrids(const char* project, std::vector<LineGrid3DRecord>& grids) override {
    return LoadAll(kLoadAll(project), kGridColumns, grids, Fill::Append).ran();
  }

  bool IsGridExist(const char* project, const char* grid) override {
    return ExistsInTable(kGridTable, kGridExists(grid, project));
  }

  bool GetExistingGrids(const char* project, const std::vector<std::string>& names,
                        std::vector<std::string>& existing) override {
    return ListColumn(kExistingGrids(project, sql::QuoteEach(names)), "LineGrid3DName", existing, Fill::Append).ran();
  }

  bool SaveGridFile(const char* project, const char* grid, const LineGrid3DFile& file) override {
    return Save(ReplaceSteps{kFileTable}, [&](CDbManage& db) { kFileColumns.AddRow(db, ToRow(project, grid, file)); });
  }

  bool SaveGrid(const char* project, const LineGrid3DRecord& record) override {
    if (!KeyGiven(record.LineGrid3DName, kEmptyGridName)) return false;
    return Replace(ReplaceSteps{kGridTable, Probe::First, kGridTableMissing, kSaveFailed},
                   kDeleteGrid(record.LineGrid3DName, project), [&](CDbManage& db) { AddGrid(db, project, record); });
  }

  bool SaveGridFiles(const char* project, const char* grid, const std::vector<LineGrid3DFile>& files) override {
    return Save(ReplaceSteps{kFileTable}, [&](CDbManage& db) {
      for (const auto& file : files) kFileColumns.AddRow(db, ToRow(project, grid, file));
    });
  }

  bool SaveGrids(const char* project, const std::vector<LineGrid3DRecord>& grids) override {
    return Save(ReplaceSteps{kGridTable}, [&](CDbManage& db) {
      for (const auto& grid : grids) AddGrid(db, project, grid);
    });
  }

  bool DeleteGrid(const char* project, const char* grid) override {
    return KeyGiven(project, kEmptyProject) && KeyGiven(grid, kEmptyGrid) && TableAnswers(kGridTable) &&
           ExecuteAll({kDeleteGrid(grid, project), kDeleteFiles(grid, project)});
  }

  bool DeleteGrids(const char* project, const std::vector<std::string>& names) override {
    return KeyGiven(project, kEmptyProject) &&
           ExecuteOnTable(kGridTable, kDeleteGrids(project, sql::QuoteEach(names)));
  }

  bool DeleteProjectGrids(const char* project) override {
    return KeyGiven(project, kEmptyProject) && TableAnswers(kGridTable) &&
           ExecuteAll({kDeleteProjectGrids(project), kDeleteProjectFiles(project)});
  }
  PETRODB_DATA_CLASS

 private:
  static void AddGrid(CDbManage& db, const char* project, LineGrid3DRecord grid) {
    grid.ProjectName = project;
    kGridColumns.AddRow(db, grid);
  }
};

PETRODB_REGISTER_CLASS(CLineGrid3DData, ILineGrid3DData)
