// Calculation cases and their results: one suite over the tables keyed by case
// and element, the joins with the network, the deletes under second column
// names, the cases themselves with the tables of one row per case, and the
// host's report of a case.
#include <tuple>

#include "TestSupport.h"
#include "petrodb/network/INode.h"
#include "petrodb/network/IOptPump.h"
#include "petrodb/network/IOptSta.h"
#include "petrodb/network/IOptSys.h"
#include "petrodb/network/IPipe.h"
#include "petrodb/network/IPipeCheckResults.h"
#include "petrodb/network/IProject.h"
#include "petrodb/network/ISimuEff.h"
#include "petrodb/network/ISimuNode.h"
#include "petrodb/network/ISimuPipe.h"
#include "petrodb/network/ISimuSta.h"

namespace petrodb::test {
namespace {

using Strings = std::vector<std::string>;

// ---- results keyed by case and element ----
// Each kind names its operations, messages, and the statements checked where they are
// the family's representative or odd; Make(element, v) gives a record whose values in
// Tie (case, element, first and last value columns) depend on v, its case name left
// for the save to set.

// The operations of a kind whose element is named by one key.
template <class Interface, class Record, auto load, auto loadCase, auto exists, auto remove, auto save, auto removeCase>
struct Ops {
  using I = Interface;
  using R = Record;
  static constexpr const char* kCaseColumn = "ProjName";
  static bool Load(I& o, const char* c, const std::string& e, R& r) { return (o.*load)(c, e.c_str(), r); }
  static bool LoadCase(I& o, const char* c, std::vector<R>& rs) { return (o.*loadCase)(c, rs); }
  static bool Exists(I& o, const char* c, const std::string& e) { return (o.*exists)(c, e.c_str()); }
  static bool Delete(I& o, const char* c, const std::string& e) { return (o.*remove)(c, e.c_str()); }
  static bool Save(I& o, const char* c, const std::vector<R>& rs) { return (o.*save)(c, rs); }
  static bool DeleteCase(I& o, const char* c) { return (o.*removeCase)(c); }
};

struct NodeKind : Ops<ISimuNode, SimuNodeRecord, &ISimuNode::LoadNodeResult, &ISimuNode::LoadCaseNodeResults,
                      &ISimuNode::NodeResultExists, &ISimuNode::DeleteNodeResult, &ISimuNode::SaveNodeResults,
                      &ISimuNode::DeleteCaseNodeResults> {
  static constexpr const char *kInterface = "ISimuNode", *kTable = "r_simu_node", *kElementColumn = "NodeName";
  static constexpr const char* kLoadCase =
      "select a.*,b.NodeType from r_simu_node AS a  ,n_nodes AS b where a.ProjName = 'c1' and a.NodeName = "
      "b.NodeName order by b.NodeType ";
  static constexpr const char* kDeleteOne = "delete from r_simu_node where ProjName = 'c1' and NodeName = 'E1'";
  static constexpr const char *kEmptyCase = "工况名称不能为空！", *kEmptyKey = "节点名称不能为空！";
  static constexpr const char *kDeleteMissing = "节点仿真结果表为空！", *kSaveMissing = "节点仿真结果数据表为空！";
  static R Make(const std::string& e, double v) { return {"ignored", e, "sub " + e, 1, 2, v, 1, 2, 3, 4, 5, 6, 7, 8, "S" + e, 0, ""}; }
  static auto Tie(R& r) { return std::tie(r.ProjName, r.NodeName, r.Pp0, r.Station); }
};

struct PipeKind : Ops<ISimuPipe, SimuPipeRecord, &ISimuPipe::LoadPipeResult, &ISimuPipe::LoadCasePipeResults,
                      &ISimuPipe::PipeResultExists, &ISimuPipe::DeletePipeResult, &ISimuPipe::SavePipeResults,
                      &ISimuPipe::DeleteCasePipeResults> {
  static constexpr const char *kInterface = "ISimuPipe", *kTable = "r_simu_pipe", *kElementColumn = "PipeName";
  static constexpr const char *kLoadCase = nullptr, *kDeleteOne = nullptr;  // the node's shapes
  static constexpr const char *kEmptyCase = "工况名称不能为空！", *kEmptyKey = "管子代码不能为空！";
  static constexpr const char *kDeleteMissing = "管子仿真结果表为空！", *kSaveMissing = "管子仿真结果数据表为空！";
  static R Make(const std::string& e, double v) { return {"ignored", e, v, v + 1, v + 2, v + 3, "S" + e, 0, ""}; }
  static auto Tie(R& r) { return std::tie(r.ProjName, r.PipeName, r.Detap, r.Station); }
};

// The two station tables share their operations' names.
template <class I, class R>
using StationOps = Ops<I, R, &I::LoadStationResult, &I::LoadCaseStationResults, &I::StationResultExists,
                       &I::DeleteStationResult, &I::SaveStationResults, &I::DeleteCaseStationResults>;

struct SimuStaKind : StationOps<ISimuSta, SimuStaRecord> {
  static constexpr const char *kInterface = "ISimuSta", *kTable = "r_simu_sta", *kElementColumn = "StaName";
  static constexpr const char* kLoadCase = "select * from r_simu_sta where ProjName = 'c1' order by StaName";
  static constexpr const char* kDeleteOne = "delete from r_simu_sta where ProjName='c1' and StaName = 'E1'";
  static constexpr const char *kEmptyCase = "工况名称不能为空！", *kEmptyKey = "注水站名称不能为空！";
  static constexpr const char *kDeleteMissing = "注水站仿真结果表为空！", *kSaveMissing = "注水站仿真结果数据表为空！";
  static R Make(const std::string& e, double v) { return {"ignored", e, v, v + 1, v + 2}; }
  static auto Tie(R& r) { return std::tie(r.ProjName, r.StaName, r.Eff, r.Dh, r.SumEff); }
};

struct OptStaKind : StationOps<IOptSta, OptStaRecord> {
  static constexpr const char *kInterface = "IOptSta", *kTable = "r_opt_sta", *kElementColumn = "StaName";
  static constexpr const char *kLoadCase = nullptr, *kDeleteOne = nullptr;  // the simulated station's shapes
  static constexpr const char *kEmptyCase = "注水站优化约束条件及名称不能为空！", *kEmptyKey = nullptr;  // not refused
  static constexpr const char* kDeleteMissing = "注水站优化约束条件及结果表为空！";
  static constexpr const char* kSaveMissing = "注水站优化约束条件及结果数据表为空！";
  static R Make(const std::string& e, double v) { return {"ignored", e, v, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, v}; }
  static auto Tie(R& r) { return std::tie(r.ProjName, r.StaName, r.MaxQ, r.StaPower); }
};

// Pumps are keyed by station and code: the element "E1" is the pump E1 of station ST.
// The row compared whole carries the flag '0', which must not come back as set.
struct OptPumpKind {
  using I = IOptPump;
  using R = OptPumpRecord;
  static constexpr const char *kInterface = "IOptPump", *kTable = "r_opt_pump", *kElementColumn = "PumpCode";
  static constexpr const char* kCaseColumn = "ProjName";
  static constexpr const char* kLoadCase =
      "select * from r_opt_pump where ProjName = 'c1' order by StaName, PumpCode, PumpModel";
  static constexpr const char* kDeleteOne =
      "delete from r_opt_pump where ProjName = 'c1' and StaName = 'ST' and PumpCode = 'E1'";
  static constexpr const char *kEmptyCase = "工况名称不能为空！", *kEmptyKey = "泵号不能为空！";
  static constexpr const char *kDeleteMissing = "注水泵优化约束条件及结果表为空！", *kSaveMissing = "注水站优化约束条件及结果数据表为空！";
  static R Make(const std::string& e, double v) {
    return {"ignored", "ST", e, "M" + e, v, 1, 2, 3, 4, v > 3 ? '0' : '1', 5, 6, 7, 8, v};
  }
  static auto Tie(R& r) { return std::tie(r.ProjName, r.StaName, r.PumpCode, r.MaxQ, r.IsFreq, r.PumpDh); }
  static bool Load(I& o, const char* c, const std::string& e, R& r) { return o.LoadPumpResult(c, "ST", e.c_str(), r); }
  static bool LoadCase(I& o, const char* c, std::vector<R>& rs) { return o.LoadCasePumpResults(c, rs); }
  static bool Exists(I& o, const char* c, const std::string& e) { return o.PumpResultExists(c, "ST", e.c_str()); }
  static bool Delete(I& o, const char* c, const std::string& e) { return o.DeletePumpResult(c, "ST", e.c_str()); }
  static bool Save(I& o, const char* c, const std::vector<R>& rs) { return o.SavePumpResults(c, rs); }
  static bool DeleteCase(I& o, const char* c) { return o.DeleteCasePumpResults(c); }
};

struct PipeCheckKind : Ops<IPipeCheckResults, PipeCheckRecord, &IPipeCheckResults::LoadPipeCheckResult,
                           &IPipeCheckResults::LoadCasePipeCheckResults, &IPipeCheckResults::PipeCheckResultExists,
                           &IPipeCheckResults::DeletePipeCheckResult, &IPipeCheckResults::SavePipeCheckResults,
                           &IPipeCheckResults::DeleteCasePipeCheckResults> {
  static constexpr const char *kInterface = "IPipeCheckResults", *kTable = "r_pipe_check_results";
  static constexpr const char *kElementColumn = "Pipe_Name", *kCaseColumn = "Proj_name";
  static constexpr const char* kLoadCase =
      "select * from r_pipe_check_results where Proj_name='c1' order by Pipe_Name";
  static constexpr const char* kDeleteOne =
      "delete from r_pipe_check_results where Proj_name='c1' and Pipe_name='E1'";
  static constexpr const char *kEmptyCase = "工况名称不能为空", *kEmptyKey = "工况名称或管子名称不能为空";
  static constexpr const char *kDeleteMissing = nullptr, *kSaveMissing = nullptr;  // silent
  static R Make(const std::string& e, double v) { return {"ignored", e, v, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, v}; }
  static auto Tie(R& r) { return std::tie(r.Proj_name, r.Pipe_Name, r.Length_before_check, r.Corrosion_thick); }
};

template <class K>
class ElementResultSuite : public ProjectTest {
 protected:
  using R = typename K::R;
  void SetUp() override {
    ProjectTest::SetUp();
    object_ = Make<typename K::I>(K::kInterface);
    ASSERT_TRUE(object_);
    // The joined loads find elements of these names in a network.
    for (const char* t : {"nodes (PipenetName, NodeName, NodeType", "pipes (PipenetName, PipeName, PipeType"})
      Exec(std::string("insert into n_") + t + ") values ('N', 'E1', 2), ('N', 'E2', 3)");
  }
  // "case/element" of every row, ordered.
  Strings Rows() {
    const std::string row = std::string(K::kCaseColumn) + " || '/' || " + K::kElementColumn;
    return Query("select " + row + " from " + K::kTable + " order by " + row);
  }
  std::unique_ptr<typename K::I> object_;
};

using ElementKinds = ::testing::Types<NodeKind, PipeKind, SimuStaKind, OptStaKind, OptPumpKind, PipeCheckKind>;
TYPED_TEST_SUITE(ElementResultSuite, ElementKinds);

TYPED_TEST(ElementResultSuite, SavingReplacesByCaseAndElementAndLoadsReadTheRowBack) {
  using K = TypeParam;
  auto& o = *this->object_;
  ASSERT_TRUE(K::Save(o, "c1", {K::Make("E1", 1), K::Make("E2", 2)}));
  ASSERT_TRUE(K::Save(o, "c2", {K::Make("E1", 3)}));
  this->sql_.clear();
  ASSERT_TRUE(K::Save(o, "c1", {K::Make("E1", 4)}));
  if (K::kDeleteOne) { EXPECT_EQ(this->sql_.texts("ExecuteSQL"), Strings{K::kDeleteOne}); }
  EXPECT_EQ(this->Rows(), (Strings{"c1/E1", "c1/E2", "c2/E1"}));

  typename K::R back;
  ASSERT_TRUE(K::Load(o, "c1", "E1", back));
  auto expected = K::Make("E1", 4);
  std::get<0>(K::Tie(expected)) = "c1";  // the case column takes the save's argument
  EXPECT_EQ(K::Tie(back), K::Tie(expected));
  EXPECT_TRUE(K::Exists(o, "c2", "E1"));
  EXPECT_FALSE(K::Exists(o, "c2", "E2"));

  std::vector<typename K::R> all;
  this->sql_.clear();
  ASSERT_TRUE(K::LoadCase(o, "c1", all));
  if (K::kLoadCase) { EXPECT_EQ(this->sql_.texts(), Strings{K::kLoadCase}); }
  ASSERT_EQ(all.size(), 2u);
  EXPECT_EQ(K::Tie(all[0]), K::Tie(expected));

  EXPECT_TRUE(K::Delete(o, "c1", "E1"));
  EXPECT_TRUE(K::DeleteCase(o, "c1"));
  EXPECT_EQ(this->Rows(), Strings{"c2/E1"});
}

TYPED_TEST(ElementResultSuite, EmptyKeysAndAMissingTableShowTheirMessages) {
  using K = TypeParam;
  auto& o = *this->object_;
  typename K::R r;
  std::vector<typename K::R> rs;
  this->sql_.clear();
  EXPECT_FALSE(K::Save(o, "", {K::Make("E1", 1)}));
  EXPECT_FALSE(K::DeleteCase(o, ""));
  Strings expected{K::kEmptyCase, K::kEmptyCase};
  if (K::kEmptyKey) {
    EXPECT_FALSE(K::Save(o, "c1", {K::Make("E1", 1), K::Make("", 2)}));  // the whole list is refused
    EXPECT_FALSE(K::Load(o, "c1", "", r));
    expected.insert(expected.end(), {K::kEmptyKey, K::kEmptyKey});
  }
  EXPECT_FALSE(K::Save(o, "c1", {K::Make("E'1", 1)}));  // a quote refuses the save before anything is sent
  EXPECT_TRUE(this->sql_.texts().empty());
  EXPECT_EQ(this->messages_.texts(), expected);
  this->messages_.clear();

  this->Exec(std::string("drop table ") + K::kTable);
  EXPECT_FALSE(K::Delete(o, "c1", "E1"));
  EXPECT_FALSE(K::DeleteCase(o, "c1"));
  EXPECT_FALSE(K::Save(o, "c1", {K::Make("E1", 1)}));
  EXPECT_FALSE(K::LoadCase(o, "c1", rs));
  Strings missing;
  if (K::kDeleteMissing) missing = {K::kDeleteMissing, K::kDeleteMissing, K::kSaveMissing};
  EXPECT_EQ(this->messages_.texts(), missing);
}

// ---- the joins with the network, and the deletes under second column names ----

class NodeResultTest : public ObjectTest<ISimuNode, "ISimuNode"> {
 protected:
  static SimuNodeRecord Result(const std::string& node, double pressure) {
    SimuNodeRecord r;
    r.NodeName = node, r.Pp = pressure;
    return r;
  }
};

TEST_F(NodeResultTest, TheJoinedLoadComesOncePerNodeOfTheNameInAnyNetwork) {
  // W1 is also in N2; 17 is a type number without a name.
  Exec("insert into n_nodes (PipenetName, NodeName, NodeType) values ('N1', 'W1', 2), ('N1', 'S1', 0), "
       "('N2', 'W1', 9), ('N1', 'X1', 17)");
  ASSERT_TRUE(object_->SaveNodeResults("c1", {Result("W1", 10), Result("S1", 20), Result("X1", 1), Result("Z", 2)}));
  std::vector<SimuNodeRecord> rs;
  ASSERT_TRUE(object_->LoadCaseNodeResults("c1", rs));
  // Z is in no network and is left out; W1 comes once per node of that name.
  Strings named;
  for (const auto& r : rs) named.push_back(r.NodeName + ":" + std::to_string(r.NodeType) + ":" + r.TypeName);
  EXPECT_EQ(named, (Strings{"S1:0:注水站", "W1:2:注水井", "W1:9:虚拟井", "X1:17:"}));
  EXPECT_EQ(rs[1].Pp, 10);
}

TEST_F(NodeResultTest, DeletesUnderTheSecondNamesWorkOnlyWhereTheTableHasThem) {
  ASSERT_TRUE(object_->SaveNodeResults("c1", {Result("A", 1), Result("B", 2), Result("C", 3)}));
  sql_.clear();
  EXPECT_TRUE(object_->DeleteSimuNodeResult("c1", "A"));
  EXPECT_TRUE(object_->DeleteNodeResults("c1", {"B", "nothing"}));
  EXPECT_EQ(sql_.texts("ExecuteSQL"), (Strings{"delete from r_simu_node where ProjName = 'c1' and SimuNode = 'A'",
                                               "delete from r_simu_node where ProjeName = 'c1' and NodeName = 'B'",
                                               "delete from r_simu_node where ProjeName = 'c1' and NodeName = 'nothing'"}));
  EXPECT_EQ(Query("select NodeName from r_simu_node"), Strings{"C"});

  // A table with only its own columns, as projects made before the second names have.
  Exec("alter table r_simu_node drop column SimuNode");
  Exec("alter table r_simu_node drop column ProjeName");
  EXPECT_FALSE(object_->DeleteSimuNodeResult("c1", "C"));
  EXPECT_FALSE(object_->DeleteNodeResults("c1", {"C"}));
  EXPECT_TRUE(object_->DeleteNodeResult("c1", "C"));
  EXPECT_TRUE(Query("select NodeName from r_simu_node").empty());
}

// ---- the cases ----

using CaseTest = ObjectTest<IProject, "IProject">;

TEST_F(CaseTest, ACaseIsAddedOnceAndDeletingItLeavesItsResults) {
  ASSERT_TRUE(object_->SaveCase({"c1", "N1", "2024-01-05", "张三", "初算", "2024-02-01"}));
  ASSERT_TRUE(object_->SaveCase({"a0", "N2", "", "", "", ""}) && object_->SaveCase({"b0", "N1", "", "", "", ""}));
  sql_.clear();
  EXPECT_FALSE(object_->SaveCase({"c1", "N9", "", "", "", ""}));
  EXPECT_EQ(sql_.texts(), Strings{"select * from r_project where projname='c1'"});
  EXPECT_FALSE(object_->SaveCase({"", "N9", "", "", "", ""}));
  EXPECT_FALSE(object_->SaveCase({"q'1", "N9", "", "", "", ""}));
  EXPECT_EQ(messages_.texts(), (Strings{"工况 c1 已经存在！", "工况名称不能为空！"}));

  std::vector<CaseRecord> cases;
  sql_.clear();
  ASSERT_TRUE(object_->LoadNetworkCases("N1", cases));
  EXPECT_EQ(cases.at(0).ProjName, "b0");
  ASSERT_TRUE(object_->LoadAllCases(cases));
  EXPECT_EQ(cases.size(), 3u);
  EXPECT_EQ(sql_.texts(), (Strings{"select * from r_project where PipenetName = 'N1' order by  ProjName",
                                   "select * from r_project order by projname"}));

  auto eff = Make<ISimuEff>("ISimuEff");
  ASSERT_TRUE(eff->SaveSimuEff("c1", SimuEffRecord{}));
  EXPECT_TRUE(object_->DeleteCase("c1"));
  EXPECT_FALSE(object_->CaseExists("c1"));
  EXPECT_TRUE(eff->SimuEffExists("c1"));
}

TEST_F(CaseTest, ResultsOfOneRowPerCaseAreReplacedByCase) {
  auto eff = Make<ISimuEff>("ISimuEff");
  auto sys = Make<IOptSys>("IOptSys");
  SimuEffRecord e;
  OptSysRecord s;
  for (const auto& [c, v] : {std::pair{"c1", 1}, {"c2", 2}, {"c1", 5}}) {
    e.WellDayKw = s.OpenedPumps = v;
    ASSERT_TRUE(eff->SaveSimuEff(c, e) && sys->SaveOptSys(c, s));
  }
  ASSERT_TRUE(eff->LoadSimuEff("c1", e) && sys->LoadOptSys("c1", s));
  EXPECT_EQ(std::tie(e.ProjName, e.WellDayKw, s.ProjName, s.OpenedPumps), std::tuple("c1", 5.0, "c1", 5));
  EXPECT_TRUE(eff->DeleteSimuEff("c1") && sys->DeleteOptSys("c1"));
  EXPECT_FALSE(eff->SimuEffExists("c1") || sys->OptSysExists("c1"));
  EXPECT_TRUE(eff->SimuEffExists("c2") && sys->OptSysExists("c2"));
}

// ---- the host ----

using ResultsCommandTest = ProjectTest;

TEST_F(ResultsCommandTest, PrintsACaseAsTablesAndAsCsv) {
  PETRODB_SKIP_ON_SERVER();
  // W1 is also a node of N2, of a type the joined load gives first.
  auto nodes = Make<INode>("INode");
  for (const auto& [net, name, type] : {std::tuple{"N1", "S1", 0}, {"N1", "W1", 2}, {"N2", "W1", 1}}) {
    NodeRecord n;
    n.PipenetName = net, n.NodeName = name, n.NodeType = type;
    ASSERT_TRUE(nodes->SaveNode(n));
  }
  PipeRecord pipe;
  pipe.PipenetName = "N1", pipe.PipeName = "P1", pipe.PipeType = 1, pipe.Diameter = 114, pipe.Thickness = 7;
  ASSERT_TRUE(Make<IPipe>("IPipe")->SavePipe(pipe));
  ASSERT_TRUE(Make<IProject>("IProject")->SaveCase({"c1", "N1", "2024-01-05", "张三", "a, b", ""}));
  SimuNodeRecord s1, w1;
  s1.NodeName = "S1", s1.Pp = 16.5, s1.Pq = 1200, s1.Station = "S1";
  w1.NodeName = "W1", w1.Pp = 15.25, w1.Pq = -300;
  ASSERT_TRUE(Make<ISimuNode>("ISimuNode")->SaveNodeResults("c1", {w1, s1}));
  SimuPipeRecord p1;
  p1.PipeName = "P1", p1.PipeQ = 1200;
  ASSERT_TRUE(Make<ISimuPipe>("ISimuPipe")->SavePipeResults("c1", {p1}));
  OptPumpRecord pump;
  pump.StaName = "S1", pump.PumpCode = "1", pump.PumpModel = "D155", pump.IsFreq = '1', pump.PumpQ = 1200;
  ASSERT_TRUE(Make<IOptPump>("IOptPump")->SavePumpResults("c1", {pump}));
  SimuEffRecord eff;
  eff.SysEff = 0.55;
  ASSERT_TRUE(Make<ISimuEff>("ISimuEff")->SaveSimuEff("c1", eff));

  const auto text = RunPetrodb("results " + file_ + " c1");
  ASSERT_EQ(text.code, 0) << text.output;
  // W1 once, with the type of its node in the case's network; P1 at 1200 m3/d
  // through a 100 mm bore.
  for (const char* line : {"case c1 of network N1\n  creator 张三, created 2024-01-05, tested -\n  memo a, b\n",
                           "nodes (2)\n  node type   station Pp0 Bp    Pp   Pq Sp Jp Jp0 Jq Tzsl\n"
                           "  S1   注水站 S1        0  0  16.5 1200  0  0   0  0    0\n"
                           "  W1   注水井           0  0 15.25 -300  0  0   0  0    0\npipes (1)\n",
                           "  P1   注水干线          1200        1.768     0  0       0\n",
                           "stations, optimised (0)\npumps, optimised (1)\n", "  simulated SysEff      0.55\n"})
    EXPECT_NE(text.output.find(line), std::string::npos) << line << "\n" << text.output;

  const auto csv = RunPetrodb("results --csv " + file_ + " c1");
  ASSERT_EQ(csv.code, 0) << csv.output;
  EXPECT_EQ(csv.output.substr(0, csv.output.find("\nsection,station,")),
            "section,case,network,creator,created,tested,memo\n"
            "case,c1,N1,张三,2024-01-05,,\"a, b\"\n\n"
            "section,node,type,station,Pp0,Bp,Pp,Pq,Sp,Jp,Jp0,Jq,Tzsl\n"
            "node,S1,注水站,S1,0,0,16.5,1200,0,0,0,0,0\n"
            "node,W1,注水井,,0,0,15.25,-300,0,0,0,0,0\n\n"
            "section,pipe,type,station,PipeQ,velocity m/s,Detap,Kf,Deltpow\n"
            "pipe,P1,注水干线,,1200,1.768,0,0,0\n");

  for (const std::string name : {"c9", "c'1"}) {
    const auto missing = RunPetrodb("results " + file_ + " \"" + name + "\"");
    EXPECT_EQ(missing.output, "petrodb: no case \"" + name + "\" in " + file_ + " (its cases: c1)\n");
  }
  EXPECT_EQ(RunPetrodb("results " + file_ + " c1 --tsv").code, 2);
}

}  // namespace
}  // namespace petrodb::test
