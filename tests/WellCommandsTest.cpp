// The petrodb host's well and table import commands, run as a user runs them.
#include <fstream>
#include <iterator>

#include "TestSupport.h"
#include "dbaccess/Pool.h"
#include "petrodb/project/IBasicProjectData.h"
#include "petrodb/project/IBasicWellData.h"
#include "petrodb/project/IWellGroupData.h"

namespace petrodb::test {
namespace {

namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

class WellCommandsTest : public ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    if (!jet()) GTEST_SKIP() << "the host commands open project files";
    ProjectRecord project{};
    project.ProjectName = "P1";
    ASSERT_TRUE(Make<IBasicProjectData>("IBasicProjectData")->SaveProject(project));
  }
  // Runs the host and expects it to end with `code`, saying `said`.
  static void ExpectSays(const std::string& arguments, int code, const std::string& said) {
    const CliRun run = RunPetrodb(arguments);
    EXPECT_EQ(run.code, code) << arguments;
    EXPECT_NE(run.output.find(said), std::string::npos) << arguments << "\n" << run.output;
  }
  std::string Csv(const std::string& name, const std::string& text) {
    const std::string path = (dir_ / name).string();
    std::ofstream(path, std::ios::binary) << text;
    return path;
  }
};

TEST_F(WellCommandsTest, WellsImportSavesRowsAndGroupsTakeThemByPolicy) {
  auto groups = Make<IWellGroupData>("IWellGroupData");
  ASSERT_TRUE(groups->SaveGroup("P1", WellGroupRecord{"GN", "north", 1, "", "North"}, {}));
  const auto csv = Csv("wells.csv",
                       "\xEF\xBB\xBFWellID,WellName,Well_SN,Well_EW,WellFlag,WellSymbol,Kb,WellDepth\r\n"
                       "A-1,\"North, 1\",4300000.5,20500000,Y,3,1200.5,3000\r\n"
                       "\r\n"
                       "A-2,South,,,,,1190,2900\r\n");
  // A mistyped project writes nothing.
  ExpectSays("wells import " + file_ + " P2 " + csv, 1, "no project \"P2\" in " + file_ + " (its projects: P1)");
  EXPECT_TRUE(Query("select WellID from w_well_data").empty());
  const CliRun run = RunPetrodb("wells import " + file_ + " P1 " + csv);
  ASSERT_EQ(run.code, 0) << run.output;
  EXPECT_EQ(run.output, "imported 2 well(s) into project P1\n");

  WellRecord w;
  ASSERT_TRUE(Make<IBasicWellData>("IBasicWellData")->LoadWell("A-1", w));
  EXPECT_EQ(std::tie(w.WellName, w.Well_SN, w.WellFlag, w.WellSymbol, w.Kb),
            std::make_tuple("North, 1", 4300000.5, 'Y', 3, 1200.5));
  EXPECT_EQ(Query("select WellID from w_groupwell where GroupID = 'GN'"), Texts{"A-1"});
  // A file naming only some columns of a well updates those and keeps the rest.
  ASSERT_EQ(RunPetrodb("wells import " + file_ + " P1 " + Csv("two.csv", "WellID,WellType\nA-1,gas\n")).code, 0);
  EXPECT_EQ(Query("select WellName || '/' || WellType || '/' || Kb from w_well_data where WellID = 'A-1'"),
            Texts{"North, 1/gas/1200.5"});
  EXPECT_NE(RunPetrodb("wells list " + file_ + " P1").output.find("A-1          North, 1"), std::string::npos);
}

TEST_F(WellCommandsTest, BadCellsNameTheirLineAndColumnAndImportNothing) {
  const struct {
    const char* text;
    const char* error;
  } cases[] = {
      {"WellID,Kb\nA-1,1\n\nA-2,12abc\n", "line 4, column Kb: \"12abc\" is not a number"},
      {"WellID,WellSymbol\nA-1,2.5\n", "line 2, column WellSymbol: \"2.5\" is not a whole number"},
      {"WellID,WellFlag\nA-1,YY\n", "line 2, column WellFlag: \"YY\" is not one character"},
      {"WellID,Depth\nA-1,1\n", "line 1, column 2: \"Depth\" is not a column of a well"},
      {"WellName\nx\n", "line 1: the header has no WellID column"},
      {"WellID,Kb\nA-1,1,2\n", "line 2, column 3: more cells than the header has"},
      {"WellID,Kb\n,1\n", "line 2, column WellID: \"\" is not a well ID (not empty, without a single quote)"},
      {"WellID,WellName\nA-1,\"open\n", "line 2: a quoted field is not closed"},
      {"WellID,Kb\nA-1,1\nB'2,1\n", "line 3, column WellID: \"B'2\" is not a well ID (not empty, without a single quote)"},
  };
  for (const auto& c : cases) ExpectSays("wells import " + file_ + " P1 " + Csv("bad.csv", c.text), 1, c.error);
  ExpectSays("wells import " + file_ + " P1 " + dir_.string(), 1, dir_.string() + ": a directory, not a CSV file");
  EXPECT_TRUE(Query("select WellID from w_well_data").empty());
  EXPECT_EQ(RunPetrodb("wells import " + file_ + " P1").code, 2);  // usage
  ExpectSays("wells frobnicate", 2, "unknown command \"wells frobnicate\": petrodb wells takes import, list");
}

TEST_F(WellCommandsTest, NulBytesRefuseTheFileWithTheirPlace) {
  using namespace std::string_literals;
  const struct {
    std::string text;
    std::string error;
  } cases[] = {
      // A NUL would cut the key short in one statement and not in another.
      {"WellID,Kb\nA-1,1\n\nA-1\0x,2\n"s, "w.csv: line 4, column WellID: a NUL byte"},
      {"WellID,Kb\nA-1,1\n\nA-2,1\0\n"s, "w.csv: line 4, column Kb: a NUL byte"},
      {"WellID,WellName\nA-1,\"two\nlines\0\"\n"s, "w.csv: line 3, column WellName: a NUL byte"},
      {"WellID,K\0b\nA-1,1\n"s, "w.csv: line 1, column 2: a NUL byte"},
      {"WellID,Kb\nA-1,1,\0\n"s, "w.csv: line 2, column 3: a NUL byte"},
  };
  for (const auto& c : cases) ExpectSays("wells import " + file_ + " P1 " + Csv("w.csv", c.text), 1, c.error);
  ExpectSays("import " + file_ + " w_well_data " + Csv("w.csv", cases[0].text), 1, cases[0].error);
  EXPECT_TRUE(Query("select WellID from w_well_data").empty());
}

TEST_F(WellCommandsTest, WellsListShowsGroupsReadOncePerGroup) {
  ASSERT_TRUE(Make<IBasicWellData>("IBasicWellData")->SaveWells("P1", {{"W-1"}, {"W-2"}, {"W-3"}}));
  ASSERT_TRUE(Make<IWellGroupData>("IWellGroupData")
                  ->SaveGroups("P1", {{"G1", "", -1, "", ""}, {"G2", "second", -1, "", ""}}, {{"W-1", "W-3"}, {"W-3"}}));
  const CliRun run = RunPetrodb("wells list " + file_ + " P1");
  ASSERT_EQ(run.code, 0) << run.output;
  auto line = [&](const std::string& id) {
    const auto at = run.output.find("\n" + id + " ");
    return at == std::string::npos ? std::string() : run.output.substr(at + 1, run.output.find('\n', at + 1) - at - 1);
  };
  EXPECT_TRUE(line("W-1").ends_with("  G1")) << run.output;
  EXPECT_TRUE(line("W-2").ends_with("  ")) << run.output;
  EXPECT_TRUE(line("W-3").ends_with("  G1, second")) << run.output;
  EXPECT_NE(run.output.find("3 well(s)\n"), std::string::npos);
}

TEST_F(WellCommandsTest, ADamagedFileNeverListsPartOfTheWells) {
  auto wells = Make<IBasicWellData>("IBasicWellData");
  std::vector<WellRecord> many(999);
  for (std::size_t i = 0; i < many.size(); ++i) {
    const std::string number = std::to_string(i);
    many[i].WellID = "W-" + std::string(4 - number.size(), '0') + number;
    many[i].WellName = std::string(60, 'n');
  }
  ASSERT_TRUE(wells->SaveWells("P1", many));
  ASSERT_EQ(RunPetrodb("wells list " + file_ + " P1").code, 0);
  db::ClearConnectionPool();  // the log folded back into the file
  ASSERT_FALSE(fs::exists(file_ + "-wal"));

  // The page holding a well in the middle of the list gets a page type that
  // does not exist; the file's header and schema stay intact.
  std::fstream io(file_, std::ios::binary | std::ios::in | std::ios::out);
  std::string bytes((std::istreambuf_iterator<char>(io)), std::istreambuf_iterator<char>());
  const std::size_t field = static_cast<unsigned char>(bytes[16]) << 8 | static_cast<unsigned char>(bytes[17]);
  const std::size_t pageSize = field == 1 ? 65536 : field;  // the header's page size; 1 stands for 65536
  const std::size_t at = bytes.find("W-0500");
  ASSERT_NE(at, std::string::npos);
  ASSERT_GT(at / pageSize, 0u);
  io.clear();
  io.seekp(static_cast<std::streamoff>(at / pageSize * pageSize));
  io.put('\x7f');
  io.close();

  const CliRun run = RunPetrodb("wells list " + file_ + " P1");
  EXPECT_EQ(run.code, 1) << run.output;
  EXPECT_EQ(run.output.find("well(s)"), std::string::npos) << run.output;
  const std::string said = "petrodb: cannot read the wells of project P1: ";
  const auto where = run.output.find(said);
  ASSERT_NE(where, std::string::npos) << run.output;
  EXPECT_GT(run.output.size(), where + said.size() + 1) << "no reason from the engine: " << run.output;
}

TEST_F(WellCommandsTest, ImportTakesColumnTypesFromTheSchema) {
  const auto csv = Csv("aoi.csv",
                       "AOIName,ProjectName,Xmin,Xmax,Ymin,Ymax,DESCRIPTION\n"
                       "zone a,P1,1.5,2,3,4,first\n"
                       "zone b,P1,,,,,\n");
  const CliRun run = RunPetrodb("import " + file_ + " B_AOI_DATA " + csv);
  ASSERT_EQ(run.code, 0) << run.output;
  EXPECT_EQ(run.output, "imported 2 row(s) into b_aoi_data\n");
  EXPECT_EQ(Query("select Xmin from b_aoi_data order by AOIName"), (Texts{"1.5", "NULL"}));
  EXPECT_EQ(Query("select DESCRIPTION from b_aoi_data order by AOIName"), (Texts{"first", ""}));

  ExpectSays("import " + file_ + " b_welllist_data " +
                 Csv("list.csv", "WellListName,WellID,WellNumber\nL,A,1\nL,B,two\n"),
             1, "line 3, column WellNumber: \"two\" is not a number");
  EXPECT_TRUE(Query("select WellID from b_welllist_data").empty());
  ExpectSays("import " + file_ + " no_table " + csv, 1, "no table no_table");
  ExpectSays("import " + file_ + " b_aoi_data " + Csv("x.csv", "AOIName,Area\n"), 1,
             "line 1, column 2: \"Area\" is not a column of b_aoi_data");
  ExpectSays("import " + file_ + " n_pipenet " + Csv("n.csv", "PipenetName,CreateDate\nN,2023-2-29\n"), 1,
             "line 2, column CreateDate: \"2023-2-29\" is not a date");
  EXPECT_EQ(RunPetrodb("import " + file_ + " n_pipenet " + Csv("n.csv", "PipenetName,CreateDate\nN,2024-2-29 3:4:5\n")).code, 0);
}

}  // namespace
}  // namespace petrodb::test
