// The petrodb host's LAS commands, run as a user runs them.
#include <fstream>
#include <iterator>
#include <tuple>

#include "TestSupport.h"
#include "petrodb/project/IBasicWellData.h"
#include "dbaccess/SqlText.h"
#include "formats/Las.h"
#include "petrodb/welllog/ICurveDictionary.h"
#include "petrodb/welllog/ILogData.h"

namespace petrodb::test {
namespace {

namespace fs = std::filesystem;

class LasCommandsTest : public ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    if (onServer()) GTEST_SKIP() << "the host commands open project files";
    std::vector<WellRecord> wells(3);
    for (std::size_t i = 0; i < wells.size(); ++i) wells[i].WellID = "W" + std::to_string(i + 1);
    ASSERT_TRUE(Make<IBasicWellData>("IBasicWellData")->AppendWells("P1", wells));
  }
  void SaveLog(const std::string& wellID, const std::vector<std::string>& names) {
    WellLog log;
    log.WellID = wellID;
    log.NullValue = -999.25;
    for (const auto& name : names) log.Curves.push_back(LogCurve{name, "M", nullptr, {1000, 1000.5, 1001}});
    log.Link(std::vector<std::string>(names.size(), names.front()));
    ASSERT_TRUE(Make<ILogData>("ILogData")->SaveWellLog(log));
  }
  // Exports the well to `out` and reads the file back; `said` gets what the host said.
  las::File Export(const std::string& well, const std::string& out, std::string* said = nullptr) {
    const CliRun run = RunPetrodb("las export " + file_ + " " + well + " --out " + out);
    EXPECT_EQ(run.code, 0) << run.output;
    if (said) *said = run.output;
    las::File file;
    std::string error;
    EXPECT_TRUE(las::ReadFile(out, file, error)) << error;
    return file;
  }
};

TEST_F(LasCommandsTest, ImportSaysWhatItRenamesAndReaderNotesOnlyWhenAsked) {
  const CliRun run = RunPetrodb("las import " + file_ + " W1 " + PETRODB_TEST_SOURCE_DIR + "/tests/las/apostrophe.las");
  EXPECT_NE(run.output.find("curve \"3'AMP\" stored as 3_AMP"), std::string::npos) << run.output;
  const std::string old = (dir_ / "old.las").string();
  std::ofstream(old, std::ios::binary) << "~V\n VERS. 1.2 :\n~C\n DEPT.M :\n GR.API :\n~A\n1000 45.5\n";
  EXPECT_EQ(RunPetrodb("las import " + file_ + " W2 " + old).output,
            "imported 2 curves of 1 samples into well W2 (index DEPT)\n");
  EXPECT_NE(RunPetrodb("las import -v " + file_ + " W2 " + old).output.find(old + ": version 1.2 read as 2.0\n"),
            std::string::npos);
}

TEST_F(LasCommandsTest, InputsThatAreNoLasFileFailWithTheirName) {
  const std::string text = (dir_ / "notes.txt").string(), missing = (dir_ / "missing.las").string();
  const std::string zero = std::string(PETRODB_TEST_SOURCE_DIR) + "/tests/las/zero-samples.las";
  std::ofstream(text) << "nothing of a log\n";
  const struct {
    std::string arguments, error;
  } cases[] = {
      {"W1 " + dir_.string(), "petrodb: " + dir_.string() + ": a directory, not a LAS file"},
      {"W1 " + missing, "petrodb: " + missing + ": cannot read the file (No such file"},
      {"W1 " + text, "petrodb: " + text + ": not a LAS file (no ~V or ~A section)"},
      {"W1 " + zero, "zero-samples.las: no samples (the data section holds no depth step); nothing imported"},
      {"W9 " + text, "petrodb: no well \"W9\" in " + file_},  // a mistyped well is named first
  };
  for (const auto& c : cases) {
    const CliRun run = RunPetrodb("las import " + file_ + " " + c.arguments);
    EXPECT_EQ(run.code, 1) << run.output;
    EXPECT_NE(run.output.find(c.error), std::string::npos) << run.output;
  }
  EXPECT_TRUE(Query("select CurveName from w_log_data").empty());
}

TEST_F(LasCommandsTest, LaterImportsIntoAWellKeepItConsistent) {
  auto las = [&](const std::string& name, const std::string& curves, const std::string& data) {
    const std::string path = (dir_ / name).string();
    std::ofstream(path, std::ios::binary) << "~V\n VERS. 2.0 :\n~W\n NULL. -999.25 :\n~C\n DEPT.M :\n" << curves
                                          << "~A\n" << data;
    return path;
  };
  const std::string first = las("a.las", " GR.API :\n RT.OHMM :\n", "1000 1 2\n1000.5 3 4\n");
  const struct {
    std::string path;
    std::string output;  // what the import says on stdout and stderr
    std::vector<std::pair<std::string, std::string>> rows;  // (curve, depth curve) of the well afterwards
  } steps[] = {
      {first, "imported 3 curves of 2 samples into well W1 (index DEPT)\n",
       {{"DEPT", "DEPT"}, {"GR", "DEPT"}, {"RT", "DEPT"}}},
      // Other depths: the index gets its own name, nothing of the first file changes.
      {las("b.las", " SP.MV :\n", "900 5\n901 6\n902 7\n"),
       "the index DEPT is stored as DEPT_2: the well's depth curve DEPT indexes other curves (GR, RT) at other depths",
       {{"DEPT", "DEPT"}, {"DEPT_2", "DEPT_2"}, {"GR", "DEPT"}, {"RT", "DEPT"}, {"SP", "DEPT_2"}}},
      // The same depths: the curves share the depth curve; GR is replaced.
      {las("c.las", " GR.API :\n", "1000 8\n1000.5 9\n"), "replaced the well's curves GR",
       {{"DEPT", "DEPT"}, {"DEPT_2", "DEPT_2"}, {"GR", "DEPT"}, {"RT", "DEPT"}, {"SP", "DEPT_2"}}},
      // Every curve of DEPT replaced: DEPT itself may change; a curve named like a
      // depth curve still in use is renamed.
      {las("d.las", " GR.API :\n RT.OHMM :\n DEPT_2.M :\n", "2000 1 2 3\n"),
       "curve DEPT_2 is stored as DEPT_2_2: the well's depth curve DEPT_2 indexes other curves (SP)",
       {{"DEPT", "DEPT"}, {"DEPT_2", "DEPT_2"}, {"DEPT_2_2", "DEPT"}, {"GR", "DEPT"}, {"RT", "DEPT"}, {"SP", "DEPT_2"}}},
  };
  for (const auto& step : steps) {
    const CliRun run = RunPetrodb("las import " + file_ + " W1 " + step.path);
    EXPECT_EQ(run.code, 0) << run.output;
    EXPECT_NE(run.output.find(step.output), std::string::npos) << run.output;
    std::vector<std::string> names, depths;
    ASSERT_TRUE(Make<ILogData>("ILogData")->GetCurveAndDepthNames("W1", names, depths));
    std::vector<std::pair<std::string, std::string>> rows;
    for (std::size_t i = 0; i < names.size(); ++i) rows.emplace_back(names[i], depths[i]);
    EXPECT_EQ(rows, step.rows) << step.path;
    // Every stored curve has as many samples as its depth curve.
    WellLog log;
    ASSERT_TRUE(Make<ILogData>("ILogData")->LoadWellLog("W1", log));
    for (const auto& curve : log.Curves)
      EXPECT_TRUE(curve.DepthCurve && curve.Values.size() == curve.DepthCurve->Values.size()) << curve.CurveName;
  }
  WellLog gr;
  ASSERT_TRUE(Make<ILogData>("ILogData")->LoadCurves("W1", {"GR"}, gr));
  EXPECT_EQ(gr.Find("GR")->Values, (std::vector<double>{1}));
  Export("W1", (dir_ / "w1.las").string());
}

// Each readable file of tests/las: imported, exported, imported into another
// well and exported again gives the same text, with the file's curve order,
// units, descriptions, samples and ~W/~P items.
TEST_F(LasCommandsTest, ExportImportExportKeepsTheTextOfEveryFile) {
  std::vector<WellRecord> wells;
  std::vector<std::string> paths;
  for (const auto& entry : fs::directory_iterator(fs::path(PETRODB_TEST_SOURCE_DIR) / "tests/las")) {
    las::File file;
    std::string error;
    if (entry.path().extension() != ".las" || !las::ReadFile(entry.path().string(), file, error) ||
        file.curves[0].values.empty())
      continue;
    paths.push_back(entry.path().string());
    for (const char* suffix : {"a", "b"}) {
      wells.emplace_back();
      wells.back().WellID = "F" + std::to_string(paths.size()) + suffix;
    }
  }
  ASSERT_GE(paths.size(), 15u);
  ASSERT_TRUE(Make<IBasicWellData>("IBasicWellData")->AppendWells("P1", wells));
  auto text = [](const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  };
  // The items an export writes from the file, not those it makes itself.
  auto copied = [](const std::vector<las::Item>& items, bool dropWell) {
    std::vector<std::string> out;
    for (const auto& item : items) {
      const std::string key = sql::AsciiLower(item.mnemonic);
      if (key == "strt" || key == "stop" || key == "step" || key == "null" || (dropWell && key == "well")) continue;
      out.push_back(item.mnemonic + "." + item.unit + " " + item.value + " : " + item.description);
    }
    return out;
  };
  for (std::size_t i = 0; i < paths.size(); ++i) {
    SCOPED_TRACE(paths[i]);
    const std::string well = "F" + std::to_string(i + 1), first = (dir_ / (well + "a.las")).string();
    ASSERT_EQ(RunPetrodb("las import " + file_ + " " + well + "a " + paths[i]).code, 0);
    const las::File exported = Export(well + "a", first);
    ASSERT_EQ(RunPetrodb("las import " + file_ + " " + well + "b " + first).code, 0);
    Export(well + "b", first + ".again");
    EXPECT_EQ(text(first + ".again"), text(first));

    las::File original;
    std::string error;
    ASSERT_TRUE(las::ReadFile(paths[i], original, error)) << error;
    ASSERT_EQ(exported.curves.size(), original.curves.size());
    for (std::size_t c = 0; c < original.curves.size(); ++c) {
      const las::Curve &a = original.curves[c], &b = exported.curves[c];
      EXPECT_EQ(std::tie(b.mnemonic, b.unit, b.description, b.values),
                std::make_tuple(las::StorableName(a.mnemonic), a.unit, a.description, a.values));
    }
    EXPECT_EQ(copied(exported.well, !original.WellItem("WELL")), copied(original.well, false));
    EXPECT_EQ(copied(exported.parameters, false), copied(original.parameters, false));
  }
}

TEST_F(LasCommandsTest, ExportSkipsNamesALasFileCannotCarryAndCleansDictionaryTexts) {
  SaveLog("W1", {"DEPT", "GR", "G R", "#"});
  CurveTemplate gamma;
  gamma.CurveName = "GR";
  gamma.DisplayName = "Gamma: natural\r\nray ";
  gamma.CurveUnit = "API";
  ASSERT_TRUE(Make<ICurveDictionary>("ICurveDictionary")->SaveTemplate(gamma));
  const std::string out = (dir_ / "w1.las").string();
  std::string said;
  const las::File file = Export("W1", out, &said);
  EXPECT_NE(said.find("skipped \"G R\": the name holds a blank"), std::string::npos) << said;
  EXPECT_NE(said.find("skipped \"#\": the name begins with '#'"), std::string::npos) << said;
  ASSERT_EQ(file.curves.size(), 2u);
  EXPECT_EQ(std::tie(file.curves[1].mnemonic, file.curves[1].unit, file.curves[1].description),
            std::make_tuple("GR", "API", "Gamma; natural  ray"));

  // An index the file cannot carry fails the export, and no file is written.
  SaveLog("W3", {"D.EPTH", "GR"});
  const CliRun run = RunPetrodb("las export " + file_ + " W3 --out " + out + "2");
  EXPECT_EQ(run.code, 1);
  EXPECT_NE(run.output.find("petrodb: the depth curve \"D.EPTH\" of well W3 cannot be exported: the name holds a '.'"),
            std::string::npos)
      << run.output;
  EXPECT_FALSE(fs::exists(out + "2"));

  // A curve asked for that the well lacks fails the export; names match ignoring case.
  const CliRun missing = RunPetrodb("las export " + file_ + " W3 gr XX --out " + out + "3");
  EXPECT_EQ(missing.code, 1);
  EXPECT_EQ(missing.output, "petrodb: no curve \"XX\" in well W3 (its curves: D.EPTH, GR)\n");
  EXPECT_FALSE(fs::exists(out + "3"));
}

}  // namespace
}  // namespace petrodb::test
