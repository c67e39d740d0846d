// VSP processing projects: projects, the algorithm catalogue, algorithm runs,
// data sets and lines, and the objects that fix a type code.
#include <algorithm>
#include <set>
#include <tuple>

#include "TestSupport.h"
#include "petrodb/seismic/IVspAlgoPathData.h"
#include "petrodb/seismic/IVspDeteData.h"
#include "petrodb/seismic/IVspGeneralData.h"
#include "petrodb/seismic/IVspHodoGraphData.h"
#include "petrodb/seismic/IVspParamData.h"
#include "petrodb/seismic/IVspProjectData.h"
#include "petrodb/seismic/IVspSegyLineData.h"
#include "petrodb/seismic/IVspVelData.h"

namespace petrodb::test {
namespace {

using Texts = std::vector<std::string>;
using VspProjectTest = ObjectTest<IVspProjectData, "IVspProjectData">;

VspProjectRecord Project(const std::string& name, const std::string& well) {
  return {0, name, well, "desc " + name, "2024-1-2", "me", "zero-offset"};
}

TEST_F(VspProjectTest, SavingAgainReplacesTheRowAndTheDatabaseNumbersIt) {
  ASSERT_TRUE(object_->SaveVspProject(Project("A", "W1")));
  ASSERT_TRUE(object_->SaveVspProjects({Project("B", "W1"), Project("C", "W2")}));
  const int first = object_->GetVspProjectId("A");
  ASSERT_TRUE(object_->SaveVspProject(Project("A", "W1")));
  EXPECT_EQ(Query("select count(*) from vsp_project where Vsp_ProjName = 'A'"), Texts{"1"});
  const int id = object_->GetVspProjectId("A");
  EXPECT_GT(id, first);
  EXPECT_EQ(object_->GetVspProjectId("none"), -1);

  VspProjectRecord loaded, expected = Project("A", "W1");
  ASSERT_TRUE(object_->LoadVspProject(id, loaded));
  expected.Vsp_ProjID = id;
  EXPECT_EQ(loaded, expected);
  VspProjectRecord byName;
  ASSERT_TRUE(object_->LoadVspProjectByName("B", byName));
  EXPECT_EQ(std::tie(byName.Description, byName.Vsp_ProjName), std::make_tuple("desc B", ""));  // name not selected
  std::vector<VspProjectRecord> ofWell;
  ASSERT_TRUE(object_->LoadWellVspProjects("W1", ofWell));
  EXPECT_EQ(std::make_tuple(ofWell.size(), ofWell[0].WellID), std::make_tuple(2u, ""));  // name and details only
  Texts names;
  std::string type;
  ASSERT_TRUE(object_->GetVspProjectNames("W1", names) && object_->GetVspProjectType("C", type));
  EXPECT_EQ(std::tie(names, type), std::make_tuple(Texts{"A", "B"}, "zero-offset"));
  ASSERT_TRUE(object_->DeleteWellVspProjects("W1"));
  EXPECT_TRUE(!object_->IsVspProjectExist("A") && object_->IsVspProjectExist("C"));
}

TEST_F(VspProjectTest, EmptyKeysShowTheirMessagesAndTouchNothing) {
  EXPECT_FALSE(object_->SaveVspProject(Project("A", "")));
  EXPECT_FALSE(object_->DeleteWellVspProjects(""));
  EXPECT_EQ(Query("select count(*) from vsp_project"), Texts{"0"});
  // The list save deletes through the single delete, whatever it answers.
  ASSERT_TRUE(object_->SaveVspProjects({Project("", "W1")}));
  EXPECT_EQ(messages_.texts(), (Texts{"井号或Vsp工区名称不能为空！", "井号不能为空！", "井号或Vsp工区名称不能为空！"}));
  EXPECT_EQ(Query("select count(*) from vsp_project"), Texts{"1"});
  Exec("drop table vsp_project");
  messages_.clear();
  EXPECT_FALSE(object_->SaveVspProject(Project("A", "W1")));
  EXPECT_FALSE(object_->DeleteWellVspProjects("W1"));
  EXPECT_TRUE(messages_.messages().empty());
}

using VspAlgoPathTest = ObjectTest<IVspAlgoPathData, "IVspAlgoPathData">;

TEST_F(VspAlgoPathTest, CatalogueByTypeAndPath) {
  ASSERT_TRUE(object_->SaveAlgoCatalogue({{"pre", "filter", "T", "1", "f.out"},
                                          {"pre", "gain", "T", "1", "g.out"},
                                          {"stack", "sum", "T", "2", "s.out"},
                                          {"other", "x", "U", "9", "x.out"}}));
  ASSERT_TRUE(object_->SaveAlgoPath({"pick", "first", "T", "0", "p.out"}));
  Texts paths, algos;
  std::string path;
  ASSERT_TRUE(object_->GetAlgoPathsOrdered("T", paths) && object_->GetPathAlgorithms("T", "pre", algos) &&
              object_->GetAlgorithmPath("T", "sum", path));
  EXPECT_EQ(std::tie(paths, algos, path),
            std::make_tuple(Texts{"pick", "pre", "stack"}, Texts{"filter", "gain"}, "stack"));
  std::vector<VspAlgoPathRecord> records;
  ASSERT_TRUE(object_->LoadAlgoCatalogue("T", records));
  EXPECT_EQ(std::make_tuple(records.size(), records[0]), std::make_tuple(4u, VspAlgoPathRecord{"pick", "first", "T", "0", "p.out"}));
  ASSERT_TRUE(object_->GetPathDefaultOutputs("U", records));
  EXPECT_EQ(records, (std::vector<VspAlgoPathRecord>{{"other", "", "", "", "x.out"}}));

  // Selects two columns and reads three others: the read fails.
  sql_.clear();
  EXPECT_FALSE(object_->LoadPathAlgorithms("T", "pre", records));
  EXPECT_EQ(sql_.texts().at(0),
            "select Algo_name, Proj_type from vsp_algo_path where Proj_type ='T' and Algo_path ='pre'");

  EXPECT_FALSE(object_->DeleteAlgorithm("T", "", "gain"));
  EXPECT_FALSE(object_->DeleteAlgoPath("T", ""));
  EXPECT_EQ(messages_.texts(), (Texts{"算法路径或算法名称不能为空！", "算法路径不能为空！"}));
  ASSERT_TRUE(object_->DeleteAlgorithm("T", "pre", "gain"));
  ASSERT_TRUE(object_->DeleteAlgoPath("T", "stack"));
  ASSERT_TRUE(object_->DeleteProjectTypeAlgos("U"));
  EXPECT_EQ(Query("select Algo_name from vsp_algo_path order by Algo_name"), (Texts{"filter", "first"}));
}

// Runs of project 1: a filter run feeds a stack run; the catalogue has paths
// "pre" (filter) and "stack" (sum), and another type's path with a greater order.
class VspParamTest : public ObjectTest<IVspParamData, "IVspParamData"> {
 protected:
  void SetUp() override {
    ObjectTest::SetUp();
    auto algos = Make<IVspAlgoPathData>("IVspAlgoPathData");
    ASSERT_TRUE(algos->SaveAlgoCatalogue(
        {{"pre", "filter", "T", "1", ""}, {"stack", "sum", "T", "2", ""}, {"x", "other", "U", "3", ""}}));
    ASSERT_TRUE(object_->SaveParams({Run("filter", "f1.out", "raw.sgy", "p1", {2024, 1, 5, 9, 3, 7}),
                                     Run("filter", "f2.out", "raw.sgy", "p2", {2024, 2, 1, 0, 0, 0}),
                                     Run("sum", "s.out", "f2.out", "q", {2024, 1, 9, 0, 0, 0})}));
  }
  static VspParamRecord Run(const std::string& algo, const std::string& out, const std::string& in,
                            const std::string& params, DateTime t) {
    return {1, out, in, algo, params, t};
  }
  Texts Outputs(const char* algo) {
    Texts outputs;
    return object_->GetAlgoOutputs(1, algo, outputs) ? outputs : Texts{"(none)"};
  }
};

TEST_F(VspParamTest, RunsByOutputAlgorithmAndTime) {
  std::string params;
  ASSERT_TRUE(object_->GetLatestAlgoParams(1, "filter", params));
  EXPECT_EQ(params, "p2");
  VspParamRecord run;
  ASSERT_TRUE(object_->LoadParamByOutput(1, "s.out", run));
  EXPECT_EQ(run, (VspParamRecord{0, "", "f2.out", "sum", "q", {2024, 1, 9, 0, 0, 0}}));
  std::vector<VspParamRecord> runs;
  ASSERT_TRUE(object_->GetAlgoOutputsByTime(1, "filter", runs));
  EXPECT_EQ(std::make_tuple(runs.size(), runs[0].Output_file), std::make_tuple(2u, "f2.out"));  // latest first
  EXPECT_TRUE(object_->IsOutputExist(1, "s.out") && !object_->IsOutputExist(2, "s.out"));

  // The time goes in unpadded between '#' signs: an Access literal.
  sql_.clear();
  const bool found = object_->LoadParamBySaveTime(1, {2024, 1, 5, 9, 3, 7}, run);
  EXPECT_EQ(sql_.texts().at(0), "select  * from vsp_param where Save_time = #2024-1-5 9:3:7# and Vsp_ProjID = 1");
  EXPECT_EQ(found, jet());
  if (jet()) { EXPECT_EQ(run, Run("filter", "f1.out", "raw.sgy", "p1", {2024, 1, 5, 9, 3, 7})); }

  EXPECT_FALSE(object_->SaveParam(Run("sum", "", "a", "b", {})));
  EXPECT_FALSE(object_->DeleteAlgoParams(1, ""));
  EXPECT_EQ(messages_.texts(), (Texts{"算法文件名称不能为空！", "算法名称不能为空！"}));
  ASSERT_TRUE(object_->DeleteAlgoParams(1, "filter"));
  Texts outputs;
  EXPECT_TRUE(object_->GetOutputFiles(1, outputs) && outputs == Texts{"s.out"});
}

// The rename is an Access multi-table update: bridged on project files; a
// server refuses it and the delete before it is undone.
TEST_F(VspParamTest, RenamingAnOutputReplacesTheRunsHoldingTheNewName) {
  sql_.clear();
  const bool renamed = object_->RenameOutputInPath(1, "pre", "f1.out", "f2.out");
  const Texts sent = sql_.texts();
  ASSERT_EQ(sent.size(), 3u);
  EXPECT_EQ(sent[0].substr(0, 7) + sent[1].substr(0, 7), "select delete ");
  EXPECT_EQ(sent[2],
            "update vsp_param A, vsp_algo_path B set Output_file = 'f2.out' where A.Vsp_ProjID = 1  and "
            "B.Algo_path ='pre' and A.Output_file = 'f1.out' and A.Algo_name = B.Algo_name");
  EXPECT_EQ(renamed, jet());
  std::string params;
  ASSERT_TRUE(object_->GetOutputParams(1, "f2.out", params));
  EXPECT_EQ(Outputs("filter"), jet() ? Texts{"f2.out"} : (Texts{"f1.out", "f2.out"}));
  EXPECT_EQ(params, jet() ? "p1" : "p2");
  EXPECT_FALSE(object_->RenameOutputInPath(1, "pre", "", "x"));
  EXPECT_EQ(messages_.texts(), Texts{"算法文件名称不能为空！"});
}

TEST_F(VspParamTest, OutputsOfPathsAndTypesAndRelocatingThePathsFiles) {
  Texts outputs;
  ASSERT_TRUE(object_->GetPathOutputs(1, "pre", "", outputs));
  EXPECT_EQ(outputs.size(), 2u);
  ASSERT_TRUE(object_->GetPathOutputs(1, "pre", "f2.out", outputs));
  EXPECT_EQ(outputs, Texts{"f2.out"});
  EXPECT_FALSE(object_->GetPathOutputs(1, "pre", "s.out", outputs));
  ASSERT_TRUE(object_->SaveParam(Run("filter", "f1.out", "raw.sgy", "again", {2024, 3, 1, 0, 0, 0})));
  ASSERT_TRUE(object_->GetTypePathOutputs(1, "T", "pre", outputs));
  EXPECT_EQ(outputs.size(), 3u);
  std::set<std::string> once;
  ASSERT_TRUE(object_->GetTypePathOutputs(1, "T", "pre", once));
  EXPECT_EQ(once, (std::set<std::string>{"f1.out", "f2.out"}));
  // The greatest sort order is another type's: type T has no final outputs.
  std::vector<VspOutputOrder> final;
  EXPECT_FALSE(object_->GetFinalOutputs(1, "T", final));
  Exec("delete from vsp_algo_path where Proj_type = 'U'");
  ASSERT_TRUE(object_->GetFinalOutputs(1, "T", final) && object_->GetFinalOutputs(1, "T", outputs));
  EXPECT_EQ(final, (std::vector<VspOutputOrder>{{"s.out", "2"}}));
  EXPECT_EQ(outputs, Texts{"s.out"});

  // Relocating moves line files, inputs, parameters and the path's outputs.
  const std::string sep(1, std::filesystem::path::preferred_separator);
  const std::string from = "/old" + sep + "raw.sgy", to = "/new" + sep + "raw.sgy";
  auto lines = Make<IVspSegyLineData>("IVspSegyLineData");
  ASSERT_TRUE(lines->SaveHodographs({{1, "L1", {1}, from, ""}, {2, "L2", {1}, from, ""}}));
  ASSERT_TRUE(object_->SaveParams({Run("filter", from, from, "in=" + from + " gain=2", {2024, 4, 1, 0, 0, 0}),
                                   Run("sum", from, "x", "q", {2024, 4, 2, 0, 0, 0})}));
  ASSERT_TRUE(object_->RelocateProjectFiles(1, "pre", "/old", "/new", {"raw.sgy"}));
  EXPECT_EQ(Query("select Segy_File from vsp_hodograph order by Hg_name"), (Texts{to, from}));  // L2: another project's
  std::string params;
  ASSERT_TRUE(object_->GetLatestAlgoParams(1, "filter", params));
  EXPECT_EQ(params, "in=" + to + " gain=2");
  const Texts filtered = Outputs("filter"), summed = Outputs("sum");  // "sum" is not in path "pre"
  EXPECT_NE(std::find(filtered.begin(), filtered.end(), to), filtered.end());
  EXPECT_NE(std::find(summed.begin(), summed.end(), from), summed.end());
  EXPECT_FALSE(object_->RelocateProjectFiles(1, "pre", "/new", "/it's", {"raw.sgy"}));
  EXPECT_EQ(Query("select Segy_File from vsp_hodograph where Hg_name = 'L1'"), Texts{to});
}

using VspGeneralTest = ObjectTest<IVspGeneralData, "IVspGeneralData">;

TEST_F(VspGeneralTest, SetsByTypeAndTheDeleteThatCannotRun) {
  ASSERT_TRUE(object_->SaveGeneralSets({{1, "v1", 0, {1, 2, 3}}, {1, "g1", 1, {}}, {1, "v2", 0, {4}}}));
  std::map<std::string, std::vector<double>> sets;
  ASSERT_TRUE(object_->LoadGeneralSets(1, 0, sets));
  EXPECT_EQ(sets, (std::map<std::string, std::vector<double>>{{"v1", {1, 2, 3}}, {"v2", {4}}}));
  std::vector<double> data{9};
  ASSERT_TRUE(object_->LoadGeneralSet(1, 1, "g1", data));
  EXPECT_TRUE(data.empty());
  sql_.clear();
  EXPECT_FALSE(object_->DeleteGeneralType(1, 0));
  EXPECT_EQ(sql_.texts("ExecuteSQL"),
            Texts{"delete from vsp_general_data where general_type = 0' and  Vsp_ProjID = 1"});
  EXPECT_TRUE(object_->IsGeneralSetExist(1, 0, "v1"));
  ASSERT_TRUE(object_->DeleteGeneralSet(1, 0, "v1"));
  EXPECT_FALSE(object_->IsGeneralSetExist(1, 0, "v1"));
  EXPECT_FALSE(object_->SaveGeneralSet({1, "", 0, {}}));
  EXPECT_EQ(messages_.texts(), Texts{"VSP常用数据名称不能为空！"});  // each front names its own data
}

// Each front writes its own code and sees only its own rows.
TEST_F(VspGeneralTest, FrontsFixTheirCodeAndMessages) {
  auto velocity = Make<IVspVelData>("IVspVelData");
  auto geophones = Make<IVspDeteData>("IVspDeteData");
  ASSERT_TRUE(velocity->SaveGeneralSet({1, "model", 7, {1500, 2500}}));
  ASSERT_TRUE(geophones->SaveGeneralSets({{1, "layout", 0, {10, 20}}}));
  Texts names;
  ASSERT_TRUE(object_->GetGeneralNames(1, 0, names));
  EXPECT_EQ(names, Texts{"model"});
  ASSERT_TRUE(geophones->GetGeneralNames(1, names));
  EXPECT_EQ(names, Texts{"layout"});
  EXPECT_FALSE(velocity->IsGeneralSetExist(1, "layout"));

  auto curves = Make<IVspHodoGraphData>("IVspHodoGraphData");
  auto segy = Make<IVspSegyLineData>("IVspSegyLineData");
  ASSERT_TRUE(curves->SaveHodograph({1, "c", {1, 2}, "", "9"}));
  ASSERT_TRUE(segy->SaveHodographs({{1, "s", {}, "a.sgy", ""}, {1, "c", {3}, "b.sgy", ""}}));
  EXPECT_EQ(Query("select LineDataType from vsp_hodograph order by Segy_file"), (Texts{"0", "2", "2"}));
  std::vector<VspHodographRecord> lines;
  ASSERT_TRUE(segy->LoadHodographs(1, lines));
  EXPECT_EQ(lines, (std::vector<VspHodographRecord>{{0, "c", {3}, "b.sgy", ""}, {0, "s", {}, "a.sgy", ""}}));
  ASSERT_TRUE(curves->GetHodographNames(1, names));
  EXPECT_EQ(names, Texts{"c"});
  EXPECT_FALSE(segy->DeleteHodograph(1, ""));
  EXPECT_EQ(messages_.texts(), Texts{"初置名称不能为空！"});
  ASSERT_TRUE(segy->DeleteHodographType(1));
  EXPECT_TRUE(!segy->IsHodographExist(1, "s") && curves->IsHodographExist(1, "c"));
}

}  // namespace
}  // namespace petrodb::test
