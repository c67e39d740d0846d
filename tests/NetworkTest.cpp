// Pipeline networks: headers, nodes, pipes, the node hierarchy and the device
// performance curves.
#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>

#include "TestSupport.h"
#include "network/NodeHierarchy.h"
#include "petrodb/network/IEpaCurve.h"
#include "petrodb/network/INode.h"
#include "petrodb/network/IPipe.h"
#include "petrodb/network/IPipenet.h"

namespace petrodb::test {
namespace {

using Strings = std::vector<std::string>;

Strings Names(const std::vector<NodeRecord>& nodes) {
  Strings names;
  for (const auto& n : nodes) names.push_back(n.NodeName);
  return names;
}

class NetworkTest : public ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    network::ResetNodeHierarchy();  // the hierarchy is kept for the process
    nets_ = Make<IPipenet>("IPipenet");
    nodes_ = Make<INode>("INode");
    pipes_ = Make<IPipe>("IPipe");
    ASSERT_TRUE(nets_ && nodes_ && pipes_);
  }
  static PipenetRecord Header(const std::string& name, const std::string& unit, const std::string& type) {
    return {name, unit, "", "张三", "北区", 10, 20, 0.5, 1e5, 2e5, 3e5, 4e5, 3, 7, type};
  }
  static NodeRecord Node(const std::string& net, const std::string& name, int type, const std::string& parent) {
    return {.PipenetName = net, .NodeName = name, .NodeType = type, .ParentNodeName = parent};
  }
  static PipeRecord Pipe(const std::string& name, int type, double diameter) {
    return {.PipenetName = "ignored", .PipeName = name, .PipeType = type, .Diameter = diameter};
  }
  std::unique_ptr<IPipenet> nets_;
  std::unique_ptr<INode> nodes_;
  std::unique_ptr<IPipe> pipes_;
};

TEST_F(NetworkTest, HeadersAreReplacedListedAndDatedByTheDatabase) {
  ASSERT_TRUE(nets_->SavePipenet(Header("N2", "一矿", "注水")));
  ASSERT_TRUE(nets_->SavePipenet(Header("N1", "二矿", "注水")));
  sql_.clear();
  ASSERT_TRUE(nets_->SavePipenet(Header("N1", "一矿", "输油")));
  // The table is probed, then DeletePipenet probes it again; the creation date
  // is never written.
  EXPECT_EQ(sql_.texts("GetDataFromDB"), (Strings{"n_pipenet", "n_pipenet"}));
  EXPECT_EQ(sql_.texts("SaveData").at(0).find("CreateDate"), std::string::npos);

  Strings names{"stale"};
  ASSERT_TRUE(nets_->ListPipenetNames(names));
  EXPECT_EQ(names, (Strings{"N1", "N2"}));
  sql_.clear();
  ASSERT_TRUE(nets_->ListPipenetNamesByUnitAndType("一矿", "输油", names));
  EXPECT_EQ(names, Strings{"N1"});
  EXPECT_EQ(sql_.texts(), Strings{"select PipenetName from n_pipenet where UnitName ='一矿' and PipenetType='输油' "
                                  "order by PipenetName"});
  ASSERT_TRUE(nets_->ListUnitNames(names));
  EXPECT_EQ(names, Strings{"一矿"});

  PipenetRecord loaded;
  ASSERT_TRUE(nets_->LoadPipenet("N1", loaded));
  EXPECT_EQ(loaded.CreateDate.size(), 19u) << loaded.CreateDate;  // the database's current time
  // Only the type may be unreadable; any other NULL fails the loads.
  Exec("update n_pipenet set PipenetType = NULL");
  loaded.PipenetType = "kept";
  ASSERT_TRUE(nets_->LoadPipenet("N1", loaded));
  EXPECT_EQ(loaded.PipenetType, "kept");
  Exec("update n_pipenet set Creator = NULL");
  std::vector<PipenetRecord> all;
  EXPECT_FALSE(nets_->LoadPipenet("N1", loaded));
  EXPECT_FALSE(nets_->LoadAllPipenets(all));

  // An empty name: the delete refuses silently, the save says so in its own words.
  sql_.clear();
  EXPECT_FALSE(nets_->DeletePipenet(""));
  EXPECT_TRUE(sql_.texts().empty());
  EXPECT_FALSE(nets_->SavePipenet(Header("", "一矿", "")));
  ASSERT_EQ(messages_.messages().size(), 1u);
  EXPECT_EQ(std::tie(messages_.messages()[0].text, messages_.messages()[0].style, messages_.messages()[0].caption),
            std::make_tuple("管网名称不能为空。", MessageStyle::Application, ""));
}

// A network of a few hundred nodes and pipes, saved, listed, loaded and deleted
// in the three steps: header, nodes, pipes.
TEST_F(NetworkTest, AWholeNetworkInThreeSteps) {
  std::vector<NodeRecord> nodes;
  std::vector<PipeRecord> pipes;
  for (int i = 0; i < 360; ++i) {
    nodes.push_back(Node("ignored", "J" + std::to_string(i), (i * 7) % 13, i ? "J0" : "-1"));
    pipes.push_back(Pipe("P" + std::to_string(i), i % 5, 50 + 25 * (i % 4)));
  }
  ASSERT_TRUE(nets_->SavePipenet(Header("北1", "一矿", "注水")));
  sql_.clear();
  ASSERT_TRUE(nodes_->SaveNodes("北1", nodes));
  ASSERT_TRUE(pipes_->SavePipes("北1", pipes));
  ASSERT_TRUE(nodes_->SaveNodes("南2", {Node("", "J0", 0, "-1")}));
  EXPECT_TRUE(sql_.texts("ExecuteSQL").empty());  // bulk saves delete nothing

  std::vector<NodeRecord> loadedNodes;
  ASSERT_TRUE(nodes_->LoadNodes("北1", loadedNodes));
  ASSERT_EQ(loadedNodes.size(), 360u);
  // Ordered by type; the twelve known types have a name.
  for (std::size_t i = 0; i < loadedNodes.size(); ++i) {
    const NodeRecord& n = loadedNodes[i];
    if (i) {
      ASSERT_LE(loadedNodes[i - 1].NodeType, n.NodeType);
    }
    EXPECT_EQ(std::make_tuple(n.PipenetName, n.TypeName.empty()), std::make_tuple("北1", n.NodeType >= 12)) << n.NodeType;
  }
  std::vector<PipeRecord> loadedPipes;
  ASSERT_TRUE(pipes_->LoadPipes("北1", loadedPipes));
  ASSERT_EQ(loadedPipes.size(), 360u);
  for (const auto& p : loadedPipes) {
    EXPECT_EQ(std::make_tuple(p.TypeName.empty(), p.Status), std::make_tuple(p.PipeType >= 4, 1)) << p.PipeType;
  }
  ASSERT_TRUE(pipes_->LoadPipesOfType("北1", 4, loadedPipes));
  EXPECT_EQ(loadedPipes.size(), 72u);
  std::vector<double> diameters{1};
  ASSERT_TRUE(pipes_->ListDiameters("北1", diameters));
  EXPECT_EQ(diameters, (std::vector<double>{50, 75, 100, 125}));
  Strings names;
  ASSERT_TRUE(nodes_->ListNodeNamesOfType(0, names));
  EXPECT_EQ(names.size(), 29u);  // 28 of the first network, J0 of the second
  ASSERT_TRUE(nodes_->ListPipenetsOfNode("J0", 0, names));
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names, (Strings{"北1", "南2"}));

  ASSERT_TRUE(nodes_->DeletePipenetNodes("北1"));
  ASSERT_TRUE(pipes_->DeletePipenetPipes("北1"));
  EXPECT_FALSE(nodes_->LoadNodes("北1", loadedNodes));
  EXPECT_FALSE(pipes_->LoadPipes("北1", loadedPipes));
}

TEST_F(NetworkTest, NodeStatementsAndMessages) {
  NodeRecord a = Node("N", "A", 2, "-1");
  a.Memo = "备注", a.CoorelateData = "c", a.BoundaryCondition = "b";
  ASSERT_TRUE(nodes_->SaveNode(a));
  a.NodeColor = 255;
  sql_.clear();
  ASSERT_TRUE(nodes_->SaveNode(a));
  NodeRecord loaded;
  ASSERT_TRUE(nodes_->LoadNode("N", "A", loaded));
  EXPECT_EQ(sql_.texts("ExecuteSQL"), Strings{"delete from n_nodes where PipenetName ='N'and NodeName = 'A'"});
  EXPECT_EQ(sql_.texts("GetDataFromDB"),
            (Strings{"n_nodes", "select * from n_nodes where PipenetName = 'N'and NodeName = 'A'"}));
  EXPECT_EQ(std::tie(loaded.NodeColor, loaded.TypeName, loaded.Memo, loaded.CoorelateData, loaded.BoundaryCondition),
            std::make_tuple(255, std::string("注水井"), std::string("备注"), std::string("c"), std::string("b")));
  EXPECT_EQ(Query("select NodeName from n_nodes"), Strings{"A"});
  EXPECT_TRUE(nodes_->NodeExists("N", "A") && !nodes_->NodeExists("M", "A"));
  Strings names;
  sql_.clear();
  ASSERT_TRUE(nodes_->ListNodeNames("N", 2, names));
  EXPECT_FALSE(nodes_->ListPipenetsOfNode("A", 3, names));
  EXPECT_FALSE(nodes_->ListNodeNamesOfType(5, names));
  EXPECT_EQ(sql_.texts(), (Strings{"select distinct NodeName from n_nodes where PipenetName = 'N'and NodeType = 2",
                                   "select PipenetName from n_nodes where NodeName = 'A'and NodeType = 3",
                                   "select * from n_nodes where NodeType =5"}));

  EXPECT_FALSE(nodes_->SaveNode(Node("", "A", 0, "-1")));
  EXPECT_FALSE(nodes_->DeleteNode("N", ""));
  EXPECT_EQ(messages_.texts(), (Strings{"管网名称不能为空！", "管网节点名称不能为空！"}));
  ASSERT_TRUE(nodes_->SaveNodes("N", {Node("", "B", 1, "A"), Node("", "C", 1, "A")}));
  // Every name is tried; a refused one fails the whole call.
  EXPECT_FALSE(nodes_->DeleteNodes("N", {"B", "x'y", "C"}));
  EXPECT_EQ(Query("select NodeName from n_nodes"), Strings{"A"});

  Exec("drop table n_nodes");
  messages_.clear();
  EXPECT_FALSE(nodes_->SaveNode(a));
  EXPECT_FALSE(nodes_->NodeExists("N", "A"));
  EXPECT_EQ(messages_.texts(), Strings{"管网节点数据表为空！"});
}

TEST_F(NetworkTest, PipeStatementsAndMessages) {
  PipeRecord p = Pipe("P1", 2, 100);
  p.PipenetName = "N", p.InThkness = 0.003, p.PNum = 2, p.AppendID = "x", p.Status = 0, p.Node1 = "a";
  ASSERT_TRUE(pipes_->SavePipe(p));
  p.Length = 1250.5;
  ASSERT_TRUE(pipes_->SavePipe(p));
  ASSERT_TRUE(pipes_->SavePipes("N", {Pipe("P2", 0, 1)}));
  EXPECT_EQ(Query("select PipeName from n_pipes order by PipeName"), (Strings{"P1", "P2"}));
  PipeRecord loaded;
  sql_.clear();
  // The diameter is matched as its three-decimal text.
  ASSERT_TRUE(pipes_->LoadPipeOfDiameter("N", "P1", 100.0004, loaded));
  EXPECT_FALSE(pipes_->LoadPipeOfDiameter("N", "P1", 100.0006, loaded));
  EXPECT_TRUE(pipes_->PipeExists("N", "P1"));
  EXPECT_EQ(sql_.texts(), (Strings{"select * from n_pipes where PipenetName = 'N' and PipeName = 'P1' and Diameter = 100.000",
                                   "select * from n_pipes where PipenetName = 'N' and PipeName = 'P1' and Diameter = 100.001",
                                   "select * from n_pipes where PipenetName ='N' and PipeName='P1'"}));
  EXPECT_EQ(std::tie(loaded.TypeName, loaded.InThkness, loaded.PNum, loaded.AppendID, loaded.Status, loaded.Length,
                     loaded.Node1),
            std::make_tuple(std::string("支线"), 0.003, 2, std::string("x"), 0, 1250.5, std::string("a")));

  // Unlike the nodes' delete, names that match nothing do not fail it.
  EXPECT_TRUE(pipes_->DeletePipes("N", {"P1", "none"}));
  EXPECT_EQ(Query("select PipeName from n_pipes"), Strings{"P2"});
}

// ---- the node hierarchy ----

TEST_F(NetworkTest, TheHierarchyIsReadOnceAndIgnoresNetworks) {
  ASSERT_TRUE(nodes_->SaveNodes("A", {Node("", "S1", 0, "-1"), Node("", "R1", 1, "S1"), Node("", "W1", 2, "R1"),
                                      Node("", "W2", 2, "R1"), Node("", "orphan", 2, "(无)"),
                                      Node("", "under-orphan", 2, "orphan")}));
  ASSERT_TRUE(nodes_->SaveNodes("B", {Node("", "S2", 0, "-1"), Node("", "R1", 1, "S2"), Node("", "W3", 2, "R1")}));
  std::vector<NodeRecord> list{Node("", "stale", 0, "")};
  sql_.clear();
  ASSERT_TRUE(nodes_->LoadTopNodes(list));
  EXPECT_EQ(Names(list), (Strings{"S1", "S2"}));
  EXPECT_EQ(sql_.texts(), Strings{"select * from n_nodes "});
  // R1 is met first under S1 of network A; its children are every R1's.
  ASSERT_TRUE(nodes_->LoadChildNodes(Node("B", "R1", 1, ""), list));
  EXPECT_EQ(Names(list), (Strings{"W1", "W2", "W3"}));
  EXPECT_EQ(list[2].PipenetName, "B");
  // A parent outside the hierarchy has no children in it.
  ASSERT_TRUE(nodes_->LoadChildNodes(Node("A", "orphan", 0, ""), list));
  EXPECT_TRUE(list.empty());

  // Kept for the process: a node saved now is missing, for every object.
  ASSERT_TRUE(nodes_->SaveNode(Node("B", "S3", 0, "-1")));
  auto other = Make<INode>("INode");
  sql_.clear();
  ASSERT_TRUE(other->LoadTopNodes(list));
  EXPECT_EQ(Names(list), (Strings{"S1", "S2"}));
  EXPECT_TRUE(sql_.texts().empty());
  network::ResetNodeHierarchy();
  ASSERT_TRUE(other->LoadTopNodes(list));
  EXPECT_EQ(Names(list), (Strings{"S1", "S2", "S3"}));
}

TEST_F(NetworkTest, ParentChainsThatLoopEnd) {
  // X -> Y -> X across two networks, and a loop no top node leads to.
  ASSERT_TRUE(nodes_->SaveNodes("A", {Node("", "X", 0, "-1"), Node("", "Y", 1, "X"), Node("", "P", 1, "Q")}));
  ASSERT_TRUE(nodes_->SaveNodes("B", {Node("", "X", 3, "Y"), Node("", "Q", 1, "P"), Node("", "Z", 2, "X")}));
  std::vector<NodeRecord> list;
  ASSERT_TRUE(nodes_->LoadChildNodes(Node("", "X", 0, ""), list));
  EXPECT_EQ(Names(list), (Strings{"Y", "Z"}));
  ASSERT_TRUE(nodes_->LoadChildNodes(Node("", "Y", 0, ""), list));
  ASSERT_EQ(Names(list), Strings{"X"});
  EXPECT_EQ(list[0].PipenetName, "B");
  ASSERT_TRUE(nodes_->LoadChildNodes(Node("", "P", 0, ""), list));
  EXPECT_TRUE(list.empty());
}

TEST(NodeHierarchy, ConcurrentFirstCallsBuildItOnce) {
  network::ResetNodeHierarchy();
  std::atomic<int> builds{0};
  auto load = [&] {
    ++builds;
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    return std::vector<NodeRecord>{};
  };
  std::vector<std::shared_ptr<const network::NodeHierarchy>> seen(8);
  std::vector<std::thread> threads;
  for (auto& s : seen) threads.emplace_back([&s, &load] { s = network::SharedNodeHierarchy(load); });
  for (auto& t : threads) t.join();
  EXPECT_EQ(builds.load(), 1);
  for (const auto& s : seen) EXPECT_EQ(s, seen[0]);
  network::ResetNodeHierarchy();
}

// ---- performance curves ----

using CurveTest = ObjectTest<IEpaCurve, "IEpaCurve">;

TEST_F(CurveTest, CurvesAreFoundByIdTypeAndDevice) {
  const std::vector<double> h1{0, 30.5, 100, 1.0 / 3};
  CurveMap curves{{"H-1", {"ignored", "", 1, h1}}, {"E-1", {"", "", 2, {0, 0.5, 10, 0.8}}}};
  ASSERT_TRUE(object_->SaveCurves("泵A", curves));
  ASSERT_TRUE(object_->SaveCurve("泵B", {"H-2", "ignored", 1, {1, 2}}));
  EXPECT_TRUE(sql_.texts("ExecuteSQL").empty());

  sql_.clear();
  CurveRecord one;
  one.Device_Model = "kept";
  ASSERT_TRUE(object_->LoadCurve("H-1", one));
  EXPECT_EQ(std::tie(one.CurveXY, one.CurveType, one.Device_Model), std::make_tuple(h1, 1, "kept"));
  CurveMap loaded{{"stale", {}}};
  ASSERT_TRUE(object_->LoadCurves({"H-1", "H-2"}, loaded));
  ASSERT_EQ(loaded.size(), 2u);
  EXPECT_EQ(loaded["H-1"].CurveXY, h1);
  ASSERT_TRUE(object_->LoadCurvesById({"E-1"}, loaded));
  EXPECT_EQ(loaded["E-1"].CurveXY, (std::vector<double>{0, 0.5, 10, 0.8}));
  ASSERT_TRUE(object_->LoadCurvesOfType(1, loaded));
  ASSERT_EQ(loaded.size(), 2u);
  EXPECT_EQ(loaded["H-2"].CurveType, 1);
  Strings ids;
  ASSERT_TRUE(object_->ListCurveIdsOfDevice("泵A", ids));
  EXPECT_EQ(ids, (Strings{"E-1", "H-1"}));
  ASSERT_TRUE(object_->ListCurveIdsOfType(1, ids));
  EXPECT_EQ(ids, (Strings{"H-1", "H-2"}));
  EXPECT_TRUE(object_->CurveExists("E-1"));
  const Strings sent = sql_.texts();
  ASSERT_EQ(sent.size(), 7u);
  EXPECT_EQ(sent[1], "select CurveID, CurveType,CurveXY from b_curve where CurveID in ('H-1','H-2')");
  EXPECT_EQ(sent[6], "select CurveID from  b_curve where CurveID='E-1'");
  // An empty identifier list is a statement that cannot run.
  EXPECT_FALSE(object_->LoadCurves({}, loaded));
  EXPECT_TRUE(loaded.empty());
}

TEST_F(CurveTest, SavesNeedIdentifiersAndDeletesAll) {
  EXPECT_FALSE(object_->SaveCurves("泵A", {{"H-1", {}}, {"", {}}}));
  EXPECT_FALSE(object_->SaveCurve("泵A", {"", "", 0, {1}}));
  EXPECT_EQ(messages_.texts(), (Strings{"曲线ID不能为空！", "曲线ID不能为空！"}));
  EXPECT_TRUE(sql_.texts().empty());
  ASSERT_TRUE(object_->SaveCurves("泵A", {{"A", {"", "", 0, {1}}}, {"B", {"", "", 0, {2}}}}));
  // An empty point list is stored as NULL, which no load can read.
  ASSERT_TRUE(object_->SaveCurve("泵A", {"C", "", 0, {}}));
  CurveRecord c;
  EXPECT_FALSE(object_->LoadCurve("C", c));
  EXPECT_TRUE(object_->CurveExists("C"));
  sql_.clear();
  ASSERT_TRUE(object_->DeleteCurve("A"));
  EXPECT_EQ(object_->DeleteAllCurves(), jet());
  EXPECT_EQ(sql_.texts(), (Strings{"delete from b_curve where CurveID='A'", "delete * from b_curve"}));
  EXPECT_EQ(Query("select CurveID from b_curve order by CurveID"), jet() ? Strings{} : (Strings{"B", "C"}));
}

}  // namespace
}  // namespace petrodb::test
