// The petrodb host's LAS commands, run as a user runs them.
#include <fstream>

#include "TestSupport.h"
#include "petrodb/project/IBasicWellData.h"
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
