// VSP time-depth runs, wavelets and perforation shots. (The seismic-body outline
// is made of shared operations only and has no test of its own.)
#include <algorithm>
#include <fstream>
#include <tuple>

#include "TestSupport.h"
#include "petrodb/project/IBasicWellData.h"
#include "petrodb/seismic/ISeismicVSPData.h"
#include "petrodb/seismic/IShotData.h"
#include "petrodb/seismic/IWaveletData.h"

namespace petrodb::test {
namespace {

using Texts = std::vector<std::string>;

using VspRunTest = ObjectTest<ISeismicVSPData, "ISeismicVSPData">;

TEST_F(VspRunTest, RunsAreNumberedAfterTheGreatestIDUnlessTheyCarryTheWellPrefix) {
  WellVspRecord run{"W1", "X_7", {0.5, -1, 3}, {1.0, 2.0}};  // lengths differ: nothing checks them
  sql_.clear();
  ASSERT_TRUE(object_->SaveVsp(run));
  EXPECT_EQ(run.VSPID, "W1_1");  // the empty table's max(ID) is NULL
  EXPECT_EQ(sql_.texts("GetDataFromDB"), (Texts{"select max(ID) as A from b_seismic_well_vsp", "b_seismic_well_vsp"}));
  WellVspRecord second{"W1", "", {5}, {6}};
  ASSERT_TRUE(object_->SaveVsp(second));
  EXPECT_EQ(second.VSPID, "W1_2");
  WellVspRecord kept{"W1", "W1_7", {7}, {8}};
  ASSERT_TRUE(object_->SaveVsp(kept) && object_->SaveVsp(kept));  // no delete first: two rows with that identifier
  EXPECT_EQ(kept.VSPID, "W1_7");
  EXPECT_EQ(Query("select count(*) from b_seismic_well_vsp where VSPID = 'W1_7'"), Texts{"2"});
  WellVspRecord next{"W1", "", {}, {}};
  ASSERT_TRUE(object_->SaveVsp(next));
  EXPECT_EQ(next.VSPID, "W1_5");  // four rows numbered so far

  WellVspRecord loaded;
  loaded.VSPID = "untouched";
  ASSERT_TRUE(object_->LoadVsp("W1_1", loaded));
  EXPECT_EQ(std::tie(loaded.WellID, loaded.VSPID, loaded.TVDSSDepth, loaded.TWTDepth),
            std::make_tuple("W1", "untouched", std::vector<double>{0.5, -1, 3}, std::vector<double>{1.0, 2.0}));
  ASSERT_TRUE(object_->LoadVsp("W1_5", loaded));
  EXPECT_TRUE(loaded.TVDSSDepth.empty() && loaded.TWTDepth.empty());
}

// The project's wells with runs: the statement never closes its subquery. A
// missing table fails without a message and the run is still named.
TEST_F(VspRunTest, ListsLoadsAndDeletesByWellAndTheStatementsThatFail) {
  Exec("insert into w_well_data (ProjectName, WellID) values ('P', 'W1')");
  for (const char* well : {"W2", "W1", "W2"}) {
    WellVspRecord run{well, "", {1, 2}, {3, 4}};
    ASSERT_TRUE(object_->SaveVsp(run));
  }
  Texts ids{"stale"};
  ASSERT_TRUE(object_->GetWellVspIds("W2", ids));
  std::sort(ids.begin(), ids.end());
  EXPECT_EQ(ids, (Texts{"W2_1", "W2_3"}));

  std::vector<WellVspRecord> runs;
  ASSERT_TRUE(object_->LoadWellVsp("W1", runs));
  EXPECT_EQ(runs, (std::vector<WellVspRecord>{{"W1", "W1_2", {1, 2}, {3, 4}}}));

  std::map<std::string, std::vector<WellVspRecord>> all;
  Texts wells{"stale"};
  sql_.clear();
  ASSERT_TRUE(object_->LoadAllVsp(all));
  EXPECT_FALSE(object_->GetVspWells("P", wells));
  EXPECT_TRUE(wells.empty());
  EXPECT_EQ(sql_.texts().at(1),
            "select w_well_data.wellid from w_well_data where w_well_data.ProjectName = 'P' and exists ( select "
            "b_seismic_well_vsp.wellid from b_seismic_well_vsp where b_seismic_well_vsp.wellid = "
            "w_well_data.wellid order by w_well_data.wellid");
  ASSERT_EQ(all.size(), 2u);
  EXPECT_EQ(all["W2"].at(1).VSPID, "W2_3");

  EXPECT_TRUE(object_->DeleteVsp("W2", "W2_1"));
  EXPECT_TRUE(object_->DeleteWellVsp("W1"));
  ASSERT_TRUE(object_->GetAllVspIds(ids));
  EXPECT_EQ(ids, Texts{"W2_3"});

  Exec("drop table b_seismic_well_vsp");
  WellVspRecord run{"W1", "", {1}, {2}};
  EXPECT_FALSE(object_->SaveVsp(run));
  EXPECT_EQ(run.VSPID, "W1_1");  // the max query failed
  EXPECT_TRUE(messages_.messages().empty());
}

using WaveletTest = ObjectTest<IWaveletData, "IWaveletData">;

WaveletRecord Wavelet(int project, const std::string& survey, const std::string& name, int type) {
  return {project, survey, name, "d " + name, type, "p " + name, {0.5, 2}, {1, -1}};
}

TEST_F(WaveletTest, OnlyTheSingleSaveKeepsParam) {
  ASSERT_TRUE(object_->SaveWavelet(Wavelet(1, "S", "ricker", 2)));
  ASSERT_TRUE(object_->SaveWavelets({Wavelet(1, "S", "zero", 3), Wavelet(1, "T", "min", 2)}));
  ASSERT_TRUE(object_->SaveSurveyWavelets({Wavelet(2, "S", "other", 2)}));
  std::vector<WaveletRecord> loaded;
  ASSERT_TRUE(object_->LoadSurveyWavelets(1, "S", loaded));
  ASSERT_EQ(loaded.size(), 2u);
  std::sort(loaded.begin(), loaded.end(), [](auto& a, auto& b) { return a.WaveletName < b.WaveletName; });
  EXPECT_EQ(loaded[0], Wavelet(1, "S", "ricker", 2));
  WaveletRecord expected = Wavelet(1, "S", "zero", 3);
  expected.Param.clear();
  EXPECT_EQ(loaded[1], expected);

  // Loading one by its key reads its body only.
  WaveletRecord one;
  one.Param = "mine";
  ASSERT_TRUE(object_->LoadWavelet(1, "S", "ricker", one));
  EXPECT_EQ(std::tie(one.Param, one.WaveletName, one.Description, one.WaveletType),
            std::make_tuple("mine", "", "d ricker", 2));
}

TEST_F(WaveletTest, NamesTypesListsAndDeletes) {
  ASSERT_TRUE(object_->SaveWavelets(
      {Wavelet(1, "S", "b", 2), Wavelet(1, "S", "a", 3), Wavelet(1, "T", "a", 2), Wavelet(2, "S", "c", 2)}));
  Texts names;
  ASSERT_TRUE(object_->GetWaveletNames(1, names));
  EXPECT_EQ(names, (Texts{"a", "b"}));
  sql_.clear();
  ASSERT_TRUE(object_->GetSurveyWaveletNames(1, "T", names));  // no blank before "order by"
  EXPECT_EQ(sql_.texts().at(0),
            "select Distinct WaveletName from s_wavelet_data where ProjectID = 1 and  "
            "Survey_Name='T'order by WaveletName");
  ASSERT_TRUE(object_->GetTypeWaveletNames(1, 2, names));
  EXPECT_EQ(names, (Texts{"a", "b"}));
  std::vector<WaveletRecord> loaded;
  ASSERT_TRUE(object_->LoadSurveyTypeWavelets(1, "S", 2, loaded));
  EXPECT_EQ(loaded.size(), 1u);

  Texts existing;
  sql_.clear();
  ASSERT_TRUE(object_->GetExistingWavelets(1, "S", {"a", "x", "b"}, existing));
  EXPECT_EQ(sql_.texts().at(0),
            "select WaveletName from s_wavelet_data where ProjectID = 1 and Survey_Name='S'and WaveletName in "
            "('a','x','b')");
  EXPECT_EQ(existing.size(), 2u);
  ASSERT_TRUE(object_->DeleteWavelets(1, "S", {"a", "b"}) && object_->DeleteWavelet(1, "T", "a"));
  EXPECT_FALSE(object_->LoadProjectWavelets(1, loaded));
  EXPECT_TRUE(object_->DeleteSurveyWavelets(2, "S"));
  EXPECT_EQ(Query("select count(*) from s_wavelet_data"), Texts{"0"});
  EXPECT_FALSE(object_->GetExistingWavelets(1, "S", {}, existing));  // "in ()" cannot run
}

using ShotTest = ObjectTest<IShotData, "IShotData">;

ShotRecord Shot(double top, float rate) {
  return {"", "2021-3-4", top, top + 3, 2, 5, 3, "油管传输", "102", "127", 16, rate, "w", 1.1f, "j", "油层", "备注"};
}

// The shots are rows of the per-well detail layout. What they add: the list save
// appends, the project's shots come by well, and the rate is single precision.
TEST_F(ShotTest, ShotsAppendComeByWellAndKeepTheirRateInSinglePrecision) {
  Exec("insert into w_well_data (ProjectName, WellID) values ('P', 'W1'), ('Q', 'W3')");
  const float rate = 0.123456789f;
  ASSERT_TRUE(object_->SaveShots({{"W1", {Shot(1, rate)}}, {"W3", {Shot(2, 1), Shot(3, 1)}}}));
  ASSERT_TRUE(object_->SaveShots({{"W1", {Shot(4, 1)}}}));
  std::map<std::string, std::vector<ShotRecord>> byWell;
  ASSERT_TRUE(object_->LoadProjectShots("P", byWell));
  ASSERT_EQ(byWell.size(), 1u);
  ASSERT_EQ(byWell["W1"].size(), 2u);
  EXPECT_EQ(byWell["W1"][0], Shot(1, rate));  // WellID is not read; the rate keeps all its float bits

  EXPECT_FALSE(object_->DeleteProjectShots(""));
  EXPECT_EQ(messages_.texts(), Texts{"工区名称不能为空！"});
  ASSERT_TRUE(object_->DeleteProjectShots("P"));
  EXPECT_TRUE(!object_->HasWellShots("W1") && object_->HasWellShots("W3"));
}

// The host: checkshots from CSV and LAS become VSP runs.
class VspImportTest : public ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    if (onServer()) GTEST_SKIP() << "the host commands open project files";
    WellRecord well;
    well.WellID = "W1";
    well.WellName = "W1";
    well.Kb = 30;
    ASSERT_TRUE(Make<IBasicWellData>("IBasicWellData")->ReplaceWell("P", well));
  }
  std::string Write(const char* name, const std::string& text) {
    const std::string path = (dir_ / name).string();
    std::ofstream(path, std::ios::binary) << text;
    return path;
  }
  WellVspRecord Stored(const char* id) {
    WellVspRecord run;
    auto vsp = Make<ISeismicVSPData>("ISeismicVSPData");
    EXPECT_TRUE(vsp->LoadVsp(id, run));
    return run;
  }
};

TEST_F(VspImportTest, CsvAndLasCheckshotsBecomeRuns) {
  // Measured depth below a 30 m kelly bushing of a well without survey: TVDSS = MD - 30.
  CliRun run = RunPetrodb("vsp import " + file_ + " W1 " + Write("md.csv", "MD,TWT\n1000,800.5\n1500,1100\n"));
  ASSERT_EQ(run.code, 0) << run.output;
  EXPECT_NE(run.output.find("W1_1"), std::string::npos) << run.output;
  EXPECT_EQ(Stored("W1_1"), (WellVspRecord{"W1", "", {970, 1470}, {800.5, 1100}}));
  run = RunPetrodb("vsp import " + file_ + " W1 " + Write("tvdss.csv", "twt,TVDSS\n700,900\n"));
  ASSERT_EQ(run.code, 0) << run.output;
  EXPECT_EQ(Stored("W1_2").TVDSSDepth, std::vector<double>{900});
  const std::string las = Write("shot.las",
                                "~V\n VERS. 2.0 :\n~W\n NULL. -999.25 :\n~C\n DEPT.M :\n TWT.MS :\n"
                                "~A\n1000 800\n1100 -999.25\n1200 950\n");
  run = RunPetrodb("las import " + file_ + " W1 " + las + " --checkshot");
  ASSERT_EQ(run.code, 0) << run.output;
  EXPECT_EQ(Stored("W1_3"), (WellVspRecord{"W1", "", {970, 1170}, {800, 950}}));
}

TEST_F(VspImportTest, BadInputWritesNothing) {
  const std::string good = Write("ok.csv", "MD,TWT\n1000,800\n");
  EXPECT_EQ(RunPetrodb("vsp import " + file_ + " W9 " + good).code, 1);  // unknown well
  EXPECT_EQ(RunPetrodb("vsp import " + file_ + " W1 " + Write("a.csv", "MD,TWT\n1000,x\n")).code, 1);
  EXPECT_EQ(RunPetrodb("vsp import " + file_ + " W1 " + Write("b.csv", "MD,TVDSS,TWT\n1,2,3\n")).code, 1);
  const std::string noTime = Write("d.las", "~V\n VERS. 2.0 :\n~C\n DEPT.M :\n GR.API :\n~A\n1 2\n");
  EXPECT_EQ(RunPetrodb("las import " + file_ + " W1 " + noTime + " --checkshot").code, 1);
  EXPECT_EQ(Query("select count(*) from b_seismic_well_vsp"), Texts{"0"});
}

}  // namespace
}  // namespace petrodb::test
