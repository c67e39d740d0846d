// The petrodb host's LAS commands, run as a user runs them.
#include <fstream>
#include <iterator>

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
    WellRecord w1, w2;
    w1.WellID = "W1";
    w2.WellID = "W2";
    ASSERT_TRUE(Make<IBasicWellData>("IBasicWellData")->AppendWells("P1", {w1, w2}));
  }
  void SaveLog(const std::string& wellID, const std::vector<std::string>& names) {
    WellLog log;
    log.WellID = wellID;
    log.NullValue = -999.25;
    std::vector<std::string> depthNames;
    for (const auto& name : names) {
      log.Curves.push_back(LogCurve{name, "M", nullptr, {1000, 1000.5, 1001}});
      depthNames.push_back(names.front());
    }
    log.Link(depthNames);
    auto logs = Make<ILogData>("ILogData");
    ASSERT_TRUE(logs->SaveWellLog(log));
  }
  // Every stored curve of the well has as many samples as its depth curve.
  void ExpectConsistent(const std::string& wellID) {
    WellLog log;
    ASSERT_TRUE(Make<ILogData>("ILogData")->LoadWellLog(wellID.c_str(), log));
    for (const auto& curve : log.Curves) {
      ASSERT_NE(curve.DepthCurve, nullptr) << curve.CurveName;
      EXPECT_EQ(curve.Values.size(), curve.DepthCurve->Values.size()) << curve.CurveName;
    }
  }
};

TEST_F(LasCommandsTest, ImportReadsOldMacLineEnds) {
  const std::string path = (dir_ / "mac.las").string();
  std::ofstream(path, std::ios::binary) << "~V\r VERS. 2.0 :\r~W\r NULL. -999.25 :\r~C\r DEPT.M :\r GR.API :\r"
                                           "~A\r1000 45.5\r1000.5 -999.25\r";
  const CliRun run = RunPetrodb("las import " + file_ + " W1 " + path);
  ASSERT_EQ(run.code, 0) << run.output;
  EXPECT_EQ(run.output, "imported 2 curves of 2 samples into well W1 (index DEPT)\n");
  // An older version is read as 2.0, said only when asked.
  const std::string old = (dir_ / "old.las").string();
  std::ofstream(old, std::ios::binary) << "~V\n VERS. 1.2 :\n~C\n DEPT.M :\n GR.API :\n~A\n1000 45.5\n";
  EXPECT_EQ(RunPetrodb("las import " + file_ + " W2 " + old).output,
            "imported 2 curves of 1 samples into well W2 (index DEPT)\n");
  EXPECT_NE(RunPetrodb("las import -v " + file_ + " W2 " + old).output.find(old + ": version 1.2 read as 2.0\n"),
            std::string::npos);
  auto logs = Make<ILogData>("ILogData");
  WellLog back;
  ASSERT_TRUE(logs->LoadCurves("W1", {"GR"}, back));
  ASSERT_NE(back.Find("GR"), nullptr);
  EXPECT_EQ(back.Find("GR")->Values, (std::vector<double>{45.5, -999.25}));
}

TEST_F(LasCommandsTest, InputsThatAreNoLasFileFailWithTheirName) {
  const std::string text = (dir_ / "notes.txt").string();
  std::ofstream(text) << "nothing of a log\n";
  const struct {
    std::string path;
    std::string error;
  } cases[] = {
      {dir_.string(), "petrodb: " + dir_.string() + ": " + dir_.string() + " is a directory, not a LAS file"},
      {(dir_ / "missing.las").string(), "cannot open " + (dir_ / "missing.las").string() + ": No such file"},
      {text, "petrodb: " + text + ": not a LAS file (no ~V or ~A section)"},
  };
  for (const auto& c : cases) {
    const CliRun run = RunPetrodb("las import " + file_ + " W1 " + c.path);
    EXPECT_EQ(run.code, 1) << run.output;
    EXPECT_NE(run.output.find(c.error), std::string::npos) << run.output;
  }
  // A mistyped well is named, and nothing is written.
  const CliRun typo = RunPetrodb("las import " + file_ + " W9 " + text);
  EXPECT_EQ(typo.code, 1);
  EXPECT_NE(typo.output.find("petrodb: no well \"W9\" in " + file_), std::string::npos) << typo.output;
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
    ExpectConsistent("W1");
  }
  WellLog gr;
  ASSERT_TRUE(Make<ILogData>("ILogData")->LoadCurves("W1", {"GR"}, gr));
  EXPECT_EQ(gr.Find("GR")->Values, (std::vector<double>{1}));
  EXPECT_EQ(RunPetrodb("las export " + file_ + " W1 --out " + (dir_ / "w1.las").string()).code, 0);
}

TEST_F(LasCommandsTest, ImportRenamesWhatCannotBeAKeyAndKeepsAnIndexAlone) {
  const std::string dir = std::string(PETRODB_TEST_SOURCE_DIR) + "/tests/las/";
  CliRun run = RunPetrodb("las import " + file_ + " W1 " + dir + "apostrophe.las");
  ASSERT_EQ(run.code, 0) << run.output;
  EXPECT_NE(run.output.find("curve \"3'AMP\" stored as 3_AMP"), std::string::npos) << run.output;

  run = RunPetrodb("las import " + file_ + " W2 " + dir + "index-only.las");
  ASSERT_EQ(run.code, 0) << run.output;
  EXPECT_NE(run.output.find("imported 1 curves of 3 samples into well W2 (index DEPT)"), std::string::npos);
  const std::string out = (dir_ / "w2.las").string();
  run = RunPetrodb("las export " + file_ + " W2 --out " + out);  // the load drops unused depth curves first
  ASSERT_EQ(run.code, 0) << run.output;
  las::File file;
  std::string error;
  ASSERT_TRUE(las::ReadFile(out, file, error)) << error;
  ASSERT_EQ(file.curves.size(), 1u);
  EXPECT_EQ(file.curves[0].values, (std::vector<double>{1000, 1000.5, 1001}));

  run = RunPetrodb("las import " + file_ + " W1 " + dir + "zero-samples.las");
  EXPECT_EQ(run.code, 1);
  EXPECT_NE(run.output.find("zero-samples.las: no samples (the data section holds no depth step); nothing imported"),
            std::string::npos)
      << run.output;
}

// Each readable file of tests/las: imported, exported, imported into another
// well and exported again gives the same text, with the file's curve order,
// units, descriptions and ~W/~P items.
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
  for (std::size_t i = 0; i < paths.size(); ++i) {
    SCOPED_TRACE(paths[i]);
    const std::string well = "F" + std::to_string(i + 1), first = (dir_ / (well + "a.las")).string(),
                      second = (dir_ / (well + "b.las")).string();
    ASSERT_EQ(RunPetrodb("las import " + file_ + " " + well + "a " + paths[i]).code, 0);
    ASSERT_EQ(RunPetrodb("las export " + file_ + " " + well + "a --out " + first).code, 0);
    ASSERT_EQ(RunPetrodb("las import " + file_ + " " + well + "b " + first).code, 0);
    ASSERT_EQ(RunPetrodb("las export " + file_ + " " + well + "b --out " + second).code, 0);
    auto text = [](const std::string& path) {
      std::ifstream in(path, std::ios::binary);
      return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    };
    EXPECT_EQ(text(second), text(first));

    las::File original, exported;
    std::string error;
    ASSERT_TRUE(las::ReadFile(paths[i], original, error) && las::ReadFile(first, exported, error)) << error;
    ASSERT_EQ(exported.curves.size(), original.curves.size());
    for (std::size_t c = 0; c < original.curves.size(); ++c) {
      EXPECT_EQ(exported.curves[c].mnemonic, las::StorableName(original.curves[c].mnemonic));
      EXPECT_EQ(exported.curves[c].unit, original.curves[c].unit);
      EXPECT_EQ(exported.curves[c].description, original.curves[c].description);
    }
    auto copied = [](const std::vector<las::Item>& items, bool dropWell) {
      std::vector<std::string> out;
      for (const auto& item : items) {
        const std::string key = sql::AsciiLower(item.mnemonic);
        if (key == "strt" || key == "stop" || key == "step" || key == "null" || (dropWell && key == "well")) continue;
        out.push_back(item.mnemonic + "." + item.unit + " " + item.value + " : " + item.description);
      }
      return out;
    };
    const bool hadWell = original.WellItem("WELL") != nullptr;
    EXPECT_EQ(copied(exported.well, !hadWell), copied(original.well, false));
    EXPECT_EQ(copied(exported.parameters, false), copied(original.parameters, false));
  }
}

TEST_F(LasCommandsTest, ExportSkipsNamesALasFileCannotCarryAndCleansDictionaryTexts) {
  SaveLog("W1", {"DEPT", "GR", "G R", "#"});
  auto dictionary = Make<ICurveDictionary>("ICurveDictionary");
  CurveTemplate gamma;
  gamma.CurveName = "GR";
  gamma.DisplayName = "Gamma: natural\r\nray ";
  gamma.CurveUnit = "API";
  ASSERT_TRUE(dictionary->SaveTemplate(gamma));

  const std::string out = (dir_ / "w1.las").string();
  const CliRun run = RunPetrodb("las export " + file_ + " W1 --out " + out);
  ASSERT_EQ(run.code, 0) << run.output;
  EXPECT_NE(run.output.find("skipped \"G R\": the name holds a blank"), std::string::npos) << run.output;
  EXPECT_NE(run.output.find("skipped \"#\": the name begins with '#'"), std::string::npos) << run.output;
  las::File file;
  std::string error;
  ASSERT_TRUE(las::ReadFile(out, file, error)) << error;
  ASSERT_EQ(file.curves.size(), 2u);
  EXPECT_EQ(file.curves[1].mnemonic, "GR");
  EXPECT_EQ(file.curves[1].unit, "API");
  EXPECT_EQ(file.curves[1].description, "Gamma; natural  ray");

  // The file goes back in as it came out.
  const CliRun again = RunPetrodb("las import " + file_ + " W2 " + out);
  ASSERT_EQ(again.code, 0) << again.output;
  EXPECT_EQ(again.output, "imported 2 curves of 3 samples into well W2 (index DEPT)\n");
}

TEST_F(LasCommandsTest, AnIndexThatCannotBeWrittenFailsAndWritesNoFile) {
  SaveLog("W1", {"D.EPTH", "GR"});
  const std::string out = (dir_ / "w1.las").string();
  const CliRun run = RunPetrodb("las export " + file_ + " W1 --out " + out);
  EXPECT_EQ(run.code, 1);
  EXPECT_NE(run.output.find("petrodb: the depth curve \"D.EPTH\" of well W1 cannot be exported: the name holds a '.'"),
            std::string::npos)
      << run.output;
  EXPECT_FALSE(fs::exists(out));
}

}  // namespace
}  // namespace petrodb::test
