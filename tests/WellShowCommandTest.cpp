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
    WellRecord w;
    w.WellID = "W1";
    w.WellName = "North 1";
    w.WellType = "oil";
    w.Kb = 12.5;
    ProjectRecord project;
    project.ProjectName = "P";
    ASSERT_TRUE(Make<IBasicProjectData>("IBasicProjectData")->SaveProject(project));
    ASSERT_TRUE(Make<IWellGroupData>("IWellGroupData")->SaveGroup("P", WellGroupRecord{"G1", "North", 1, "", "North"}, {}));
    ASSERT_TRUE(Make<IBasicWellData>("IBasicWellData")->SaveWell("P", w));
    WellMarkers markers{"W1", {}};
    MarkerRecord m;
    m.WellID = "W1";
    m.MarkerName = "Ng";
    m.TopMD = 1180;
    m.BottomMD = 1200;
    markers.Markers.push_back(m);
    ASSERT_TRUE(Make<IMarkerData>("IMarkerData")->SaveWellMarkers(markers));
    WellCores cores;
    cores.WellID = "W1";
    CoreInterval c;
    c.CoreName = "C1";
    c.TopDepth = 1500;
    c.BottomDepth = 1508.5;
    c.LithName = "sandstone";
    cores.Cores.push_back(c);
    ASSERT_TRUE(Make<ITakeCoreData>("ITakeCoreData")->SaveWellCores(cores));
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
}

TEST_F(WellShowCommandTest, AnUnknownWellOrBadUsageFails) {
  CliRun run = RunPetrodb("well show '" + file_ + "' W9");
  EXPECT_EQ(run.code, 1);
  EXPECT_NE(run.output.find("petrodb: no well \"W9\" in " + file_), std::string::npos) << run.output;
  EXPECT_EQ(RunPetrodb("well show '" + file_ + "'").code, 2);
  EXPECT_EQ(RunPetrodb("well show /nonexistent/x.mdb W1").code, 1);
}

}  // namespace
}  // namespace petrodb::test
