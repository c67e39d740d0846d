// petrodb well show: one well's records across the subsystems, as a user sees them.
#include "TestSupport.h"
#include "petrodb/project/IBasicProjectData.h"
#include "petrodb/project/IBasicWellData.h"
#include "petrodb/project/IWellGroupData.h"
#include "petrodb/welllog/IMarkerData.h"
#include "petrodb/welllog/ITakeCoreData.h"
#include "petrodb/welllog/IWellBoreStructural.h"

namespace petrodb::test {
namespace {

class WellShowCommandTest : public ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    if (!jet()) GTEST_SKIP() << "the host commands open project files";
    ASSERT_TRUE(Make<IBasicProjectData>("IBasicProjectData")->SaveProject(ProjectRecord{.ProjectName = "P"}));
    ASSERT_TRUE(Make<IWellGroupData>("IWellGroupData")->SaveGroup("P", WellGroupRecord{"G1", "North", 1, "", "North"}, {}));
    ASSERT_TRUE(Make<IBasicWellData>("IBasicWellData")
                    ->SaveWell("P", WellRecord{.WellID = "W1", .WellName = "North 1", .WellType = "oil", .Kb = 12.5}));
    ASSERT_TRUE(Make<IMarkerData>("IMarkerData")
                    ->SaveWellMarkers({"W1", {{.WellID = "W1", .MarkerName = "Ng", .TopMD = 1180, .BottomMD = 1200}}}));
    ASSERT_TRUE(Make<ITakeCoreData>("ITakeCoreData")
                    ->SaveWellCores({"W1", {{.CoreName = "C1", .TopDepth = 1500, .BottomDepth = 1508.5, .LithName = "sandstone"}}}));
    ASSERT_TRUE(Make<IWellBoreStructural>("IWellBoreStructural")->SaveBoreSection(BoreSection{"W1", "surface", 0.444, 0, 300}));
  }
};

TEST_F(WellShowCommandTest, ShowsEachSubsystemsRecordsOfTheWell) {
  const CliRun run = RunPetrodb("well show '" + file_ + "' W1");
  ASSERT_EQ(run.code, 0) << run.output;
  for (const char* line : {"well W1  North 1\n", "elevations     Kb 12.50  Ekb 0.00  depth 0.00\n",
                           "project        P  groups: North\n", "curves         none\n", "markers        1\n",
                           "  Ng               top    1180.00  bottom    1200.00\n", "cores          1\n",
                           "  C1                  1500.00 to    1508.50  sandstone\n", "bore sections  1\n",
                           "  surface          bit 0.444        0.00 to     300.00\n", "layers         none\n"})
    EXPECT_NE(run.output.find(line), std::string::npos) << "missing: " << line << "in:\n" << run.output;
  const CliRun unknown = RunPetrodb("well show '" + file_ + "' W9");
  EXPECT_EQ(unknown.code, 1);
  EXPECT_NE(unknown.output.find("petrodb: no well \"W9\" in " + file_), std::string::npos) << unknown.output;
  EXPECT_EQ(RunPetrodb("well show '" + file_ + "' \"W'1\"").output, "petrodb: no well \"W'1\" in " + file_ + "\n");
}

}  // namespace
}  // namespace petrodb::test
