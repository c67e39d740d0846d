// 2D lines, 3D grids, line groups and profile lines in a project.
#include <algorithm>
#include <tuple>

#include "TestSupport.h"
#include "petrodb/seismic/ILineCoor2DData.h"
#include "petrodb/seismic/ILineGrid3DData.h"
#include "petrodb/seismic/ILineGroupData.h"
#include "petrodb/seismic/IProfileLineData.h"

namespace petrodb::test {
namespace {

using Texts = std::vector<std::string>;

Line2DRecord MakeLine(const std::string& name, int firstCdp, int count, double x0) {
  Line2DRecord line;
  line.LineName = name;
  line.SegYFile = "/data/" + name + ".sgy";
  line.FileFormat.Trace("XCoordinate") = {181, 4};
  // Written out of CDP order: loads order them.
  for (int i = count - 1; i >= 0; --i) line.Points.push_back({firstCdp + i, x0 + i * 12.5, 4.5e6 + i * 0.25});
  return line;
}

// The line as a load gives it back.
Line2DRecord ByCdp(Line2DRecord line) {
  std::sort(line.Points.begin(), line.Points.end(), [](const auto& a, const auto& b) { return a.CDP < b.CDP; });
  return line;
}

using Lines2DTest = ObjectTest<ILineCoor2DData, "ILineCoor2DData">;

TEST_F(Lines2DTest, SurveysOfThousandsOfPointsComeBackByLineAndCdp) {
  Survey2DLines survey{"S1", {MakeLine("L2", 1000, 1500, 5e5), MakeLine("L1", 1, 2000, 6e5), MakeLine("L3", 7, 3, 0)}};
  sql_.clear();
  ASSERT_TRUE(object_->SaveSurvey("P", survey));
  // The first line alone, its number read back, then the rest with every point.
  const std::string insertLine =
      "insert into s_linecoor2d_data (S2d_name, LineName, SegYFile, FileFormat, ProjectName) values (?, ?, ?, ?, ?)";
  EXPECT_EQ(
      sql_.texts(),
      (Texts{"s_linecoor2d_data",
             "delete from s_linecoor2d_data where S2d_name='S1' and ProjectName = 'P' and  LineName in "
             "('L2','L1','L3')",
             "s_linecoor2d_data", insertLine, "select max(S2d_no)  as A   from   s_linecoor2d_data", "s_2dlinegrid_nav",
             insertLine, "insert into s_2dlinegrid_nav (S2d_no, CDP, X, Y) values (?, ?, ?, ?)"}));
  const auto numbers = Query("select S2d_no from s_linecoor2d_data order by LineName");
  ASSERT_EQ(numbers.size(), 3u);
  EXPECT_EQ(std::stoi(numbers[1]) + 1, std::stoi(numbers[0]));  // L2 saved first, L1 next

  std::vector<Line2DRecord> lines{Line2DRecord{"kept", "", {}, {}}};  // appended to
  ASSERT_TRUE(object_->LoadSurvey("P", "S1", lines));
  EXPECT_EQ(lines, (std::vector<Line2DRecord>{Line2DRecord{"kept", "", {}, {}}, ByCdp(survey.Lines[1]),
                                              ByCdp(survey.Lines[0]), ByCdp(survey.Lines[2])}));

  Line2DRecord one;
  one.Points.push_back({});
  ASSERT_TRUE(object_->LoadLine("P", "S1", "L3", one));
  EXPECT_EQ(one, ByCdp(survey.Lines[2]));

  std::map<std::string, std::vector<Line2DRecord>> surveys;
  ASSERT_TRUE(object_->SaveSurvey("P", Survey2DLines{"S0", {MakeLine("L1", 5, 2, 1)}}));
  ASSERT_TRUE(object_->LoadProjectSurveys("P", surveys));
  EXPECT_EQ(std::make_tuple(surveys.size(), surveys["S0"].size(), surveys["S1"].at(1)),
            std::make_tuple(2u, 1u, ByCdp(survey.Lines[0])));
}

TEST_F(Lines2DTest, SavingReplacesLinesOfTheSameNameOnly) {
  ASSERT_TRUE(object_->SaveSurvey("P", Survey2DLines{"S1", {MakeLine("A", 1, 3, 0), MakeLine("B", 1, 3, 0)}}));
  ASSERT_TRUE(object_->SaveSurvey("P", Survey2DLines{"S2", {MakeLine("A", 1, 3, 0)}}));
  ASSERT_TRUE(object_->SaveSurvey("Q", Survey2DLines{"S1", {MakeLine("A", 1, 3, 0)}}));
  ASSERT_TRUE(object_->SaveSurvey("P", Survey2DLines{"S1", {MakeLine("A", 50, 2, 9)}}));
  std::vector<Line2DRecord> lines;
  ASSERT_TRUE(object_->LoadSurvey("P", "S1", lines));
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0], ByCdp(MakeLine("A", 50, 2, 9)));
  EXPECT_EQ(Query("select count(*) from s_linecoor2d_data"), (Texts{"4"}));

  Texts names{"x"};
  ASSERT_TRUE(object_->GetLineNames("P", "S1", names));
  std::sort(names.begin() + 1, names.end());
  EXPECT_EQ(names, (Texts{"x", "A", "B"}));
  EXPECT_FALSE(object_->IsSurveyExist("Q", "S2"));

  // Deletes leave the trace positions, which no read reaches any more.
  ASSERT_TRUE(object_->DeleteLines("P", "S1", {"A", "B"}));
  lines.clear();
  ASSERT_TRUE(object_->LoadSurvey("P", "S1", lines));
  EXPECT_TRUE(lines.empty());
  EXPECT_EQ(Query("select count(*) from s_2dlinegrid_nav"), (Texts{"14"}));
  ASSERT_TRUE(object_->DeleteSurveys("P", {"S2"}));
  ASSERT_TRUE(object_->DeleteProjectLines2("Q"));
  EXPECT_EQ(Query("select count(*) from s_linecoor2d_data"), (Texts{"0"}));
}

TEST_F(Lines2DTest, ExistingSurveysAreCutAtTheEndAndNullPositionsKeepTheirPresets) {
  for (const char* s : {"B", "C"}) ASSERT_TRUE(object_->SaveSurvey("P", Survey2DLines{s, {MakeLine("L", 1, 1, 0)}}));
  const std::vector<Survey2DLines> candidates{{"A", {}}, {"B", {}}, {"A", {}}, {"C", {}}};
  Texts existing{"old"};
  ASSERT_TRUE(object_->GetExistingSurveys("P", candidates, existing));
  EXPECT_EQ(existing, (Texts{"A", "B"}));  // A is the one missing, C is cut

  Exec("update s_2dlinegrid_nav set CDP = NULL, X = NULL, Y = NULL");
  Line2DRecord line;
  ASSERT_TRUE(object_->LoadLine("P", "B", "L", line));
  EXPECT_EQ(line.Points, (std::vector<Line2DPoint>{{0, -99999.0, -99999.0}}));
}

TEST_F(Lines2DTest, DeletesNeedTheirNamesAndFailWithoutTheTable) {
  EXPECT_FALSE(object_->DeleteProjectLines(""));
  EXPECT_FALSE(object_->DeleteLine("", "S", "L"));
  EXPECT_EQ(messages_.texts(), (Texts{"工区名称不能为空！", "工区名称\\测网名称不能为空！"}));
  EXPECT_TRUE(sql_.texts().empty());
  messages_.clear();
  // A name holding a quote cannot be deleted by name, so its line is not written either.
  EXPECT_FALSE(object_->SaveSurvey("P", Survey2DLines{"S", {MakeLine("O'Hare", 1, 1, 0)}}));
  EXPECT_EQ(Query("select count(*) from s_linecoor2d_data"), (Texts{"0"}));
  Exec("drop table s_linecoor2d_data");
  EXPECT_FALSE(object_->DeleteSurvey("P", "S"));
  EXPECT_FALSE(object_->SaveSurvey("P", Survey2DLines{"S", {MakeLine("L", 1, 1, 0)}}));
  EXPECT_TRUE(messages_.texts().empty());
}

using Grids3DTest = ObjectTest<ILineGrid3DData, "ILineGrid3DData">;

LineGrid3DRecord MakeGrid(const std::string& name) {
  return {name, 100, 200, 5e5, 4e6, 100, 900, 5.1e5, 4e6, 400, 200, 5e5, 4.05e6, 200, 900, 2, 100, 400, 1, ""};
}

TEST_F(Grids3DTest, GridsAndTheirFilesRoundTripAndDeleteAsTheySay) {
  LineGrid3DRecord grid = MakeGrid("G1");
  ASSERT_TRUE(object_->SaveGrid("P", grid));
  grid.Line_End = 500;
  ASSERT_TRUE(object_->SaveGrid("P", grid));  // replaces
  ASSERT_TRUE(object_->SaveGrids("P", {MakeGrid("G2")}));
  LineGrid3DRecord back;
  ASSERT_TRUE(object_->LoadGrid("P", "G1", back));
  grid.ProjectName = "P";
  EXPECT_EQ(back, grid);

  LineGrid3DFile f1{"", "/d/b.sgy", SegyFormat(), 300, 400, 1, ""}, f2{"", "/d/a.sgy", SegyFormat(), 100, 299, 1, ""};
  f2.FileFormat.flag = false;
  ASSERT_TRUE(object_->SaveGridFiles("P", "G1", {f1}));
  ASSERT_TRUE(object_->SaveGridFile("P", "G1", f2));
  ASSERT_TRUE(object_->SaveGridFile("P", "G2", f1));
  LineGrid3DSummary summary;
  std::vector<LineGrid3DFile> files;
  ASSERT_TRUE(object_->LoadGridFiles("P", "G1", summary, files));
  f1.LineGrid3DName = f2.LineGrid3DName = "G1";
  f1.ProjectName = f2.ProjectName = "P";
  EXPECT_EQ(files, (std::vector<LineGrid3DFile>{f2, f1}));  // by first inline
  EXPECT_EQ(summary, (LineGrid3DSummary{"G1", 2, 100, 400}));

  std::map<std::string, LineGrid3DSummary> summaries;
  std::map<std::string, std::vector<LineGrid3DFile>> byGrid;
  ASSERT_TRUE(object_->LoadProjectGrids("P", summaries, byGrid));
  EXPECT_EQ(std::make_tuple(byGrid["G1"], summaries["G2"].FileCount), std::make_tuple(files, 1));

  // DeleteGrids keeps the files; DeleteGrid removes them.
  ASSERT_TRUE(object_->DeleteGrids("P", {"G2"}));
  EXPECT_EQ(Query("select count(*) from s_3dlinegrid_fileinfo where LineGrid3DName = 'G2'"), (Texts{"1"}));
  ASSERT_TRUE(object_->DeleteGrid("P", "G1"));
  EXPECT_EQ(Query("select count(*) from s_3dlinegrid_fileinfo"), (Texts{"1"}));
  ASSERT_TRUE(object_->DeleteProjectGrids("P"));
  EXPECT_EQ(Query("select count(*) from s_3dlinegrid_fileinfo"), (Texts{"0"}));
}

// Existence asks the older table name; without it a grid exists nowhere.
TEST_F(Grids3DTest, ExistenceAndTheMessagesOfSavesAndDeletes) {
  EXPECT_FALSE(object_->SaveGrid("P", MakeGrid("")));
  EXPECT_FALSE(object_->DeleteGrid("P", ""));
  ASSERT_TRUE(object_->SaveGrid("P", MakeGrid("G1")));
  sql_.clear();
  EXPECT_TRUE(object_->IsGridExist("P", "G1"));
  EXPECT_EQ(sql_.texts().back(),
            "select LineGrid3DName from b_LineGrid3D_data where LineGrid3DName='G1' and ProjectName = 'P'");
  Exec("drop view b_LineGrid3D_data");
  EXPECT_FALSE(object_->IsGridExist("P", "G1"));
  Texts names;
  ASSERT_TRUE(object_->GetGridNames("P", names));
  EXPECT_EQ(names, (Texts{"G1"}));
  Exec("drop table s_linegrid3d_data");
  EXPECT_FALSE(object_->SaveGrid("P", MakeGrid("G")));
  EXPECT_FALSE(object_->DeleteGrid("P", "G"));
  EXPECT_EQ(messages_.texts(),
            (Texts{"三维地震测网数据名称不能为空！", "LineGrid3D区域名不能为空！", "三维地震测网数据表为空！"}));
}

using LineGroupTest = ObjectTest<ILineGroupData, "ILineGroupData">;

TEST_F(LineGroupTest, GroupsAreReplacedByWellCurveAndNameAndKeepTheirPairs) {
  LineGroupRecord group{"", "", "G1", {1.5, 2}, {-3, 1e-7}};
  ASSERT_TRUE(object_->SaveLineGroup("W1", "GR", group));
  group.First = {7};
  group.Second = {8};
  ASSERT_TRUE(object_->SaveLineGroup("W1", "GR", group));
  ASSERT_TRUE(object_->SaveLineGroup("W1", "SP", LineGroupRecord{"", "", "empty", {}, {}}));
  LineGroupRecord back;
  ASSERT_TRUE(object_->LoadLineGroup("W1", "GR", "G1", back));
  EXPECT_EQ(back, (LineGroupRecord{"W1", "GR", "G1", {7}, {8}}));
  LineGroupRecord none;
  ASSERT_TRUE(object_->LoadLineGroup("W1", "SP", "empty", none));
  EXPECT_TRUE(none.First.empty() && none.Second.empty());
  Texts curves, groups;
  ASSERT_TRUE(object_->GetCurveNames("W1", curves) && object_->GetLineGroupNames("W1", "GR", groups));
  EXPECT_EQ(std::tie(curves, groups), std::make_tuple(Texts{"GR", "SP"}, Texts{"G1"}));
}

using ProfileLineTest = ObjectTest<IProfileLineData, "IProfileLineData">;

TEST_F(ProfileLineTest, ProfilesKeepTheirPointsAndWellsAsTextByNameAndType) {
  const ProfileLineRecord p{"AA", 1, {"W1"}, {1, 2.5}, {3, -4}};
  ASSERT_TRUE(object_->SaveProfile(p));
  ProfileLineRecord q{"BB", 2, {"W1", "W2"}, {}, {}};
  ASSERT_TRUE(object_->SaveProfiles({q, p, q}));  // q twice in one batch: both deletes run first
  ProfileLineRecord back;
  ASSERT_TRUE(object_->LoadProfile("AA", 1, back));
  EXPECT_EQ(back, p);
  std::vector<ProfileLineRecord> all;
  ASSERT_TRUE(object_->LoadAllProfiles(all));
  ASSERT_EQ(all.size(), 3u);
  EXPECT_EQ(all[1], q);
  Texts names;
  ASSERT_TRUE(object_->GetProfileNames(2, names));
  EXPECT_EQ(names, (Texts{"BB", "BB"}));

  EXPECT_FALSE(object_->SaveProfile(ProfileLineRecord{"CC", 1, {}, {}, {}}));
  EXPECT_FALSE(object_->DeleteProfile("", 1));
  EXPECT_EQ(messages_.texts(), (Texts{"井名组合不能为空！", "剖面名称不能为空！"}));
  ASSERT_TRUE(object_->DeleteProfile("AA", 1));
  ASSERT_TRUE(object_->DeleteProfilesOfType(2));
  EXPECT_EQ(Query("select count(*) from b_profileLine_data"), (Texts{"0"}));
}

}  // namespace
}  // namespace petrodb::test
