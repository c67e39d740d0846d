// The petrodb host's pipeline network commands, run as a user runs them, on
// networks saved through the library's own objects.
#include <sstream>

#include "TestSupport.h"
#include "petrodb/network/INode.h"
#include "petrodb/network/IPipe.h"
#include "petrodb/network/IPipenet.h"

namespace petrodb::test {
namespace {

using Lines = std::vector<std::string>;

Lines SplitLines(const std::string& text) {
  Lines lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

NodeRecord Node(const char* name, int type, const char* parent) {
  return {.NodeName = name, .NodeType = type, .ParentNodeName = parent};
}
PipeRecord Pipe(const char* name, int type, const char* from, const char* to) {
  return {.PipeName = name, .Node1 = from, .Node2 = to, .PipeType = type, .Diameter = 100};
}

class NetworkCommandsTest : public ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    if (!jet()) GTEST_SKIP() << "the host commands open project files";
  }

  // Two networks. The west one holds a parent chain that comes back to a name
  // above it (间1 under 回1 under 井1 under 间1), a node of a type without a
  // name, and a node whose parent names no node. The east one shares the name
  // 间1 as a top node, and two nodes that are each other's parent.
  void SaveNetworks() {
    auto networks = Make<IPipenet>("IPipenet");
    auto nodes = Make<INode>("INode");
    auto pipes = Make<IPipe>("IPipe");
    // name, unit, date, creator, memo, left and top margin, ratio, X and Y extent, sub-items, stations, type
    ASSERT_TRUE(networks->SavePipenet({"西区", "一厂", "", "张三", "", 10, 20, 1.5, 0, 1000.5, -20, 500, 3, 1, "注水"}));
    ASSERT_TRUE(networks->SavePipenet({"东区", "二厂", "", "李四", "", 0, 0, 0, 0, 0, 0, 0, 0, 0, ""}));
    ASSERT_TRUE(nodes->SaveNodes("西区", {Node("站1", 0, "-1"), Node("间1", 1, "站1"), Node("井1", 2, "间1"),
                                          Node("井2", 2, "间1"), Node("回1", 3, "井1"), Node("间1", 3, "回1"),
                                          Node("X9", 17, "站1"), Node("孤1", 4, "(无)")}));
    ASSERT_TRUE(nodes->SaveNodes("东区", {Node("间1", 1, "-1"), Node("E井", 2, "间1"), Node("L1", 3, "L2"),
                                          Node("L2", 3, "L1")}));
    ASSERT_TRUE(pipes->SavePipes("西区", {Pipe("P1", 0, "站1", "间1"), Pipe("P2", 2, "间1", "井1"),
                                          Pipe("P3", 2, "间1", "井2"), Pipe("P4", 9, "井1", "回1")}));
    ASSERT_TRUE(pipes->SavePipes("东区", {Pipe("Q1", 1, "间1", "E井")}));
    // The database dates a header when it is written; a fixed date keeps the output exact.
    Exec("update n_pipenet set CreateDate = '2024-01-05 08:30:00'");
  }
};

TEST_F(NetworkCommandsTest, ListShowsEveryHeaderWithItsCountsAligned) {
  SaveNetworks();
  const CliRun run = RunPetrodb("network list " + file_);
  ASSERT_EQ(run.code, 0) << run.output;
  // Ordered by name; a Chinese character takes two columns.
  EXPECT_EQ(SplitLines(run.output), (Lines{
                                        "network  unit  creator  nodes  pipes",
                                        "东区     二厂  李四         4      1",
                                        "西区     一厂  张三         8      4",
                                        "2 network(s)",
                                    }));
}

TEST_F(NetworkCommandsTest, ShowPrintsHeaderCountsAndTheHierarchyCuttingTheLoop) {
  SaveNetworks();
  const CliRun run = RunPetrodb("network show " + file_ + " 西区");
  ASSERT_EQ(run.code, 0) << run.output;
  EXPECT_EQ(run.output.substr(0, run.output.find('\n')), "network    西区");
  // One line of each kind, whole: counts by type with their gloss or the want of
  // one, the chain down to the loop it cuts, and the node no top node leads to.
  for (const char* lines : {"extent     X 0 .. 1000.5, Y -20 .. 500",
                            "8 node(s)\n  1  注水站 (injection station)",
                            "  1  type 17 (no such type)\n4 pipe(s)",
                            "  1  type 9 (no such type)\nhierarchy",
                            "      井1 [注水井]\n        回1 [管汇点]\n"
                            "          间1 [管汇点]  (loop: 间1 is already above; not expanded)\n      井2 [注水井]",
                            "    X9 [type 17]\nnot under a top node of this network: 1 node(s)\n  孤1 (parent (无))"}) {
    EXPECT_NE(run.output.find("\n" + std::string(lines) + "\n"), std::string::npos) << lines << "\n" << run.output;
  }

  // The hierarchy gives 间1 the children of both networks; only the east's are shown,
  // and the two nodes that are each other's parent are listed, not walked.
  const CliRun east = RunPetrodb("network show " + file_ + " 东区");
  ASSERT_EQ(east.code, 0) << east.output;
  EXPECT_NE(east.output.find("hierarchy\n  间1 [配水间]\n    E井 [注水井]\nnot under a top node of this network: 2 node(s)\n"
                             "  L1 (parent L2)\n  L2 (parent L1)\n"),
            std::string::npos)
      << east.output;
}

TEST_F(NetworkCommandsTest, UnknownNetworksAndUnreadableHeadersAreReported) {
  EXPECT_EQ(RunPetrodb("network list " + file_).output, "0 network(s)\n");
  const CliRun none = RunPetrodb("network show " + file_ + " 西区");
  EXPECT_EQ(none.code, 1);
  EXPECT_EQ(none.output, "petrodb: no network \"西区\" in " + file_ + " (it has no networks)\n");
  SaveNetworks();
  EXPECT_EQ(RunPetrodb("network show " + file_ + " 北区").output,
            "petrodb: no network \"北区\" in " + file_ + " (its networks: 东区, 西区)\n");
  // A name holding a quote, which no statement carries, is one more name that is not there.
  EXPECT_EQ(RunPetrodb("network show " + file_ + " \"东'区\"").output,
            "petrodb: no network \"东'区\" in " + file_ + " (its networks: 东区, 西区)\n");

  // A header that cannot be read fails the command rather than dropping a
  // network, the first of the list (where the load stops with nothing) or a later one.
  for (const char* network : {"东区", "西区"}) {
    Exec("update n_pipenet set Creator = NULL where PipenetName = '" + std::string(network) + "'");
    const CliRun broken = RunPetrodb("network list " + file_);
    EXPECT_EQ(broken.code, 1) << network;
    EXPECT_EQ(broken.output, "petrodb: cannot read the networks of " + file_ + "\n") << network;
    Exec("update n_pipenet set Creator = 'x'");
  }
}

TEST_F(NetworkCommandsTest, WrongUsageExitsTwoWithTheUsage) {
  const std::string both = "usage: petrodb network list <file>\n       petrodb network show <file> <network>\n";
  const struct {
    std::string arguments, output;
  } cases[] = {
      {"network show " + file_, "usage: petrodb network show <file> <network>\n"},
      {"network", both},
      {"network drop " + file_, "petrodb: unknown network command \"drop\"\n" + both},
  };
  for (const auto& c : cases) {
    const CliRun run = RunPetrodb(c.arguments);
    EXPECT_EQ(run.code, 2) << c.arguments;
    EXPECT_EQ(run.output, c.output) << c.arguments;
  }
}

}  // namespace
}  // namespace petrodb::test
