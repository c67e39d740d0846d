#include <algorithm>

#include "dbaccess/DataObject.h"
#include "petrodb/seismic/ILineCoor2DData.h"
#include "seismic/SeismicCodecs.h"

using namespace petrodb;
using seismic::KeyChanges;

namespace {

constexpr Pattern<"select distinct LineName from s_linecoor2d_data where S2d_name='%s' and ProjectName = '%s' ">
    kLineNames;
constexpr Pattern<"select * from s_linecoor2d_data a, s_2dlinegrid_nav b where a.S2d_name='%s' and a.LineName ='%s' "
                  "and a.ProjectName = '%s' and a.S2d_no = b.S2d_no  order by CDP">
    kLoadLine;
constexpr Pattern<"delete from  s_linecoor2d_data where ProjectName = '%s'"> kDeleteProject;
constexpr Pattern<"select distinct S2d_name from s_linecoor2d_data where ProjectName = '%s'"> kSurveyNames;
constexpr Pattern<"select * from s_linecoor2d_data a,s_2dlinegrid_nav b where a.S2d_name='%s' and a.ProjectName = "
                  "'%s' and a.S2d_no = b.S2d_no order by LineName, CDP">
    kLoadSurvey;
constexpr Pattern<"select * from s_linecoor2d_data a,s_2dlinegrid_nav b  where  a.ProjectName = '%s' and a.S2d_no = "
                  "b.S2d_no order by S2d_name, LineName, CDP">
    kLoadProject;
constexpr Pattern<"select S2d_name from s_linecoor2d_data where S2d_name='%s' and ProjectName = '%s'"> kSurveyExists;
constexpr Pattern<"select max(S2d_no)  as A   from   s_linecoor2d_data"> kLastNumber;
constexpr Pattern<"delete from s_linecoor2d_data where S2d_name='%s' and ProjectName = '%s'"> kDeleteSurvey;
constexpr Pattern<"delete from s_linecoor2d_data where S2d_name='%s' and LineName ='%s' and ProjectName = '%s'">
    kDeleteLine;
constexpr Pattern<"delete from  s_linecoor2d_data where ProjectName = '%s' and S2d_name in (%s)"> kDeleteSurveys;
constexpr Pattern<"delete from s_linecoor2d_data where S2d_name='%s' and ProjectName = '%s' and  LineName in (%s)">
    kDeleteLines;

constexpr const char* kLineTable = "s_linecoor2d_data";
constexpr const char* kNavTable = "s_2dlinegrid_nav";

// One row of s_linecoor2d_data as written; the database numbers S2d_no.
struct LineRow {
  std::string S2d_name;
  std::string LineName;
  std::string SegYFile;
  std::string FileFormat;  // SegyFormat's text
  std::string ProjectName;
};
const ColumnTable<LineRow> kLineColumns{kLineTable, {
    Col("S2d_name", &LineRow::S2d_name),
    Col("LineName", &LineRow::LineName),
    Col("SegYFile", &LineRow::SegYFile),
    Col("FileFormat", &LineRow::FileFormat),
    Col("ProjectName", &LineRow::ProjectName).WriteOnly(),
}};

// One trace position; a NULL leaves the point's preset (CDP 0, X and Y -99999.0).
struct NavRow {
  int S2d_no = 0;
  Line2DPoint point;
};
const ColumnTable<NavRow> kNavColumns{kNavTable, {
    Col("S2d_no", &NavRow::S2d_no).WriteOnly(),
    Col("CDP", &NavRow::point, &Line2DPoint::CDP).Optional(),
    Col("X", &NavRow::point, &Line2DPoint::X).Optional(),
    Col("Y", &NavRow::point, &Line2DPoint::Y).Optional(),
}};

// A row of the join of a line and its trace positions.
struct JoinedRow {
  LineRow line;
  NavRow nav;
};
bool ReadJoined(const CDbManage& db, JoinedRow& row) {
  return kLineColumns.Read(db, row.line) && kNavColumns.Read(db, row.nav);
}

// The line's file and layout from a row (the layout read over the defaults).
void TakeFile(const LineRow& row, Line2DRecord& line) {
  line.SegYFile = row.SegYFile;
  line.FileFormat = SegyFormat();
  line.FileFormat.ReadText(row.FileFormat);
}

// Rows ordered by line name (within one survey) become one record per line.
void GroupLines(const std::vector<JoinedRow>& rows, std::vector<Line2DRecord>& lines) {
  KeyChanges<std::string> name;
  for (const auto& row : rows) {
    if (name.Next(row.line.LineName)) lines.push_back(Line2DRecord{row.line.LineName, {}, {}, {}});
    TakeFile(row.line, lines.back());
    lines.back().Points.push_back(row.nav.point);
  }
}

constexpr Message kEmptyProject = AppMessage("工区名称不能为空！");
constexpr Message kEmptyProjectOrSurvey = AppMessage("工区名称\\测网名称不能为空！");

}  // namespace

class CLineCoor2DData final : public CDataObject<ILineCoor2DData> {
 public:
  bool GetLineNames(const char* project, const char* survey, std::vector<std::string>& names) override {
    return ListColumn(kLineNames(survey, project), "LineName", names, Fill::Append).ran();
  }

  bool LoadLine(const char* project, const char* survey, const char* line, Line2DRecord& record) override {
    record.Points.clear();
    record.LineName = line;
    std::vector<JoinedRow> rows;
    const Loaded loaded = LoadRows(kLoadLine(survey, line, project), rows, Fill::Clear, ReadJoined);
    for (const auto& row : rows) {
      TakeFile(row.line, record);
      record.Points.push_back(row.nav.point);
    }
    return loaded.ran();
  }

  bool DeleteProjectLines(const char* project) override {
    return KeyGiven(project, kEmptyProject) && ExecuteOnTable(kLineTable, kDeleteProject(project));
  }

  bool GetSurveyNames(const char* project, std::vector<std::string>& names) override {
    return ListColumn(kSurveyNames(project), "S2d_name", names, Fill::Append).ran();
  }

  bool LoadSurvey(const char* project, const char* survey, std::vector<Line2DRecord>& lines) override {
    std::vector<JoinedRow> rows;
    const Loaded loaded = LoadRows(kLoadSurvey(survey, project), rows, Fill::Clear, ReadJoined);
    GroupLines(rows, lines);
    return loaded.ran();
  }

  bool LoadProjectSurveys(const char* project, std::map<std::string, std::vector<Line2DRecord>>& surveys) override {
    std::vector<JoinedRow> rows;
    const Loaded loaded = LoadRows(kLoadProject(project), rows, Fill::Clear, ReadJoined);
    KeyChanges<std::pair<std::string, std::string>> key;
    for (const auto& row : rows) {
      auto& lines = surveys[row.line.S2d_name];
      if (key.Next({row.line.S2d_name, row.line.LineName}))
        lines.push_back(Line2DRecord{row.line.LineName, {}, {}, {}});
      TakeFile(row.line, lines.back());
      lines.back().Points.push_back(row.nav.point);
    }
    return loaded.ran();
  }

  bool IsSurveyExist(const char* project, const char* survey) override {
    return Exists(kSurveyExists(survey, project));
  }

  // The first line is saved alone so that the database numbers it; the lines
  // after it take the following numbers, saved in one batch, then the points
  // of every line in another.
  bool SaveSurvey(const char* project, const Survey2DLines& survey) override {
    std::vector<std::string> names;
    for (const auto& line : survey.Lines) names.push_back(line.LineName);
    if (kDeleteLines(project, survey.S2d_name, sql::QuoteEach(names)).refused()) return false;
    return Atomically([&] {
      DeleteLines(project, survey.S2d_name.c_str(), names);
      if (!TableAnswers(kLineTable)) return false;
      if (survey.Lines.empty()) return true;
      auto addLine = [&](CDbManage& db, const Line2DRecord& line) {
        kLineColumns.AddRow(db, {survey.S2d_name, line.LineName, line.SegYFile, line.FileFormat.ToText(), project});
      };
      int first = 0;
      if (!Append(kLineTable, [&](CDbManage& db) { addLine(db, survey.Lines.front()); }) ||
          !LoadField(kLastNumber(), "A", first))
        return false;
      const bool withNav = TableAnswers(kNavTable);
      const bool linesSaved = Append(kLineTable, [&](CDbManage& db) {
        for (std::size_t i = 1; i < survey.Lines.size(); ++i) addLine(db, survey.Lines[i]);
      });
      const bool navSaved = !withNav || Append(kNavTable, [&](CDbManage& db) {
        for (std::size_t i = 0; i < survey.Lines.size(); ++i)
          for (const auto& p : survey.Lines[i].Points) kNavColumns.AddRow(db, {first + static_cast<int>(i), p});
      });
      return navSaved && linesSaved;
    });
  }

  bool GetExistingSurveys(const char* project, const std::vector<Survey2DLines>& candidates,
                          std::vector<std::string>& existing) override {
    if (!TableAnswers(kLineTable)) return false;
    std::vector<std::string> names;
    for (const auto& c : candidates)
      if (std::find(names.begin(), names.end(), c.S2d_name) == names.end()) names.push_back(c.S2d_name);
    std::vector<std::string> known;
    if (!ListColumn(kSurveyNames(project), "S2d_name", known, Fill::Clear).ran()) {
      existing = names;
      return !names.empty();
    }
    // Each name the project lacks shortens the list by one at its end.
    std::size_t kept = names.size();
    for (std::size_t i = names.size(); i-- > 0;)
      if (std::find(known.begin(), known.end(), names[i]) == known.end()) --kept;
    names.resize(kept);
    existing = names;
    return true;
  }

  bool SaveSurveys(const char* project, const std::vector<Survey2DLines>& surveys) override {
    for (const auto& survey : surveys) SaveSurvey(project, survey);
    return true;
  }

  bool DeleteSurvey(const char* project, const char* survey) override {
    return SurveyGiven(project, survey) && ExecuteOnTable(kLineTable, kDeleteSurvey(survey, project));
  }

  bool DeleteLine(const char* project, const char* survey, const char* line) override {
    return SurveyGiven(project, survey) && ExecuteOnTable(kLineTable, kDeleteLine(survey, line, project));
  }

  bool DeleteSurveys(const char* project, const std::vector<std::string>& surveys) override {
    return KeyGiven(project, kEmptyProject) &&
           ExecuteOnTable(kLineTable, kDeleteSurveys(project, sql::QuoteEach(surveys)));
  }

  bool DeleteProjectLines2(const char* project) override { return DeleteProjectLines(project); }

  bool DeleteLines(const char* project, const char* survey, const std::vector<std::string>& lines) override {
    return SurveyGiven(project, survey) &&
           ExecuteOnTable(kLineTable, kDeleteLines(survey, project, sql::QuoteEach(lines)));
  }
  PETRODB_DATA_CLASS

 private:
  static bool SurveyGiven(const char* project, const char* survey) {
    return KeyGiven(project, kEmptyProjectOrSurvey) && KeyGiven(survey, kEmptyProjectOrSurvey);
  }
};

PETRODB_REGISTER_CLASS(CLineCoor2DData, ILineCoor2DData)
