// The host's pictures, run as a user runs them: each is read back as XML and
// rasterised, and its marks are checked against the data they were drawn from.
#include <libxml/parser.h>
#include <libxml/xpath.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>

#include "TestSupport.h"
#include "petrodb/network/INode.h"
#include "petrodb/network/IPipe.h"
#include "petrodb/network/IPipenet.h"
#include "petrodb/network/IProject.h"
#include "petrodb/network/ISimuNode.h"
#include "petrodb/project/IBasicProjectData.h"
#include "petrodb/project/IBasicWellData.h"
#include "petrodb/welllog/ILogData.h"
#include "petrodb/welllog/IMarkerData.h"

namespace petrodb::test {
namespace {

// A parsed picture and the elements an XPath finds in it.
struct Picture {
  xmlDocPtr doc = nullptr;
  ~Picture() { xmlFreeDoc(doc); }
  std::vector<xmlNodePtr> Find(const std::string& path) const {
    std::vector<xmlNodePtr> found;
    xmlXPathContextPtr context = xmlXPathNewContext(doc);
    xmlXPathObjectPtr result = xmlXPathEvalExpression(reinterpret_cast<const xmlChar*>(path.c_str()), context);
    if (result && result->nodesetval)
      for (int i = 0; i < result->nodesetval->nodeNr; ++i) found.push_back(result->nodesetval->nodeTab[i]);
    xmlXPathFreeObject(result);
    xmlXPathFreeContext(context);
    return found;
  }
  static std::string Attr(xmlNodePtr node, const char* name) {
    xmlChar* value = xmlGetProp(node, reinterpret_cast<const xmlChar*>(name));
    std::string text = value ? reinterpret_cast<const char*>(value) : "";
    xmlFree(value);
    return text;
  }
  static double Num(xmlNodePtr node, const char* name) { return std::stod(Attr(node, name)); }
};

bool HaveRasteriser() { return std::system("command -v rsvg-convert >/dev/null 2>&1") == 0; }

// Parses the picture (an SVG root) and rasterises it when rsvg-convert is there.
void Load(const std::filesystem::path& svg, Picture& picture) {
  picture.doc = xmlReadFile(svg.c_str(), nullptr, XML_PARSE_NONET);
  ASSERT_NE(picture.doc, nullptr) << svg << " is not well-formed XML";
  ASSERT_STREQ(reinterpret_cast<const char*>(xmlDocGetRootElement(picture.doc)->name), "svg");
  EXPECT_LT(std::filesystem::file_size(svg), 8u << 20) << svg;
  if (!HaveRasteriser()) return;
  const std::string png = svg.string() + ".png";
  EXPECT_EQ(std::system(("rsvg-convert -o '" + png + "' '" + svg.string() + "' 2>&1").c_str()), 0) << svg;
  EXPECT_GT(std::filesystem::file_size(png), 1000u) << png;
}

// The pixel the map frame of a picture gives a world position.
std::pair<double, double> MapPixel(const Picture& p, double x, double y) {
  const xmlNodePtr area = p.Find("//*[@id='map-area']").at(0);
  const auto n = [&](const char* name) { return Picture::Num(area, name); };
  return {n("x") + (x - n("data-xmin")) / (n("data-xmax") - n("data-xmin")) * n("width"),
          n("y") + (n("data-ymax") - y) / (n("data-ymax") - n("data-ymin")) * n("height")};
}

class PlotTest : public ProjectTest {
 protected:
  void SetUp() override {
    ProjectTest::SetUp();
    if (!jet()) GTEST_SKIP() << "the host commands open project files";
  }

  // A project "Test" of `wells` wells on a grid, a well DEEP logged over
  // `depth` m with 20 curves (two resistivities; GR has a null run in the
  // middle) and markers, and a network "Big" of `nodes` nodes in a chain
  // with a case "Run" giving each node a pressure.
  void Generate(int wells, double depth, int nodes) {
    ASSERT_TRUE(Make<IBasicProjectData>("IBasicProjectData")->SaveProject(ProjectRecord{.ProjectName = "Test"}));
    std::vector<WellRecord> records(wells);
    const char* types[] = {"oil", "gas", "water injection", "dry", ""};
    for (int i = 0; i < wells; ++i) {
      WellRecord& w = records[i];
      w.WellID = i ? "G" + std::to_string(10000 + i) : "DEEP";
      w.WellName = "Well " + std::to_string(i);
      w.WellType = types[i % 5];
      w.Well_EW = 20500000 + (i % 50) * 180.0 + (i % 7) * 11;
      w.Well_SN = 4300000 + (i / 50) * 170.0;
    }
    ASSERT_TRUE(Make<IBasicWellData>("IBasicWellData")->AppendWells("Test", records));

    WellLog log;
    log.WellID = "DEEP";
    log.NullValue = -999.25;
    log.Curves.push_back({"DEPT", "m", nullptr, {}});
    for (double d = 0; d <= depth; d += 0.5) log.Curves[0].Values.push_back(d);
    const std::size_t n = log.Curves[0].Values.size();
    for (int c = 0; c < 20; ++c) {
      const std::string name = c == 0 ? "GR" : c == 1 ? "RT" : c == 2 ? "RXO" : "C" + std::to_string(c);
      auto& curve = log.Curves.emplace_back(LogCurve{name, c == 1 || c == 2 ? "OHMM" : "API", nullptr, {}});
      for (std::size_t k = 0; k < n; ++k)
        curve.Values.push_back(c == 0 && k > n / 3 && k < n / 2 ? -999.25 : 2 + std::sin(k * 0.01 + c));
    }
    log.Link(std::vector<std::string>(log.Curves.size(), "DEPT"));
    ASSERT_TRUE(Make<ILogData>("ILogData")->SaveWellLog(log));
    WellMarkers tops{"DEEP", std::vector<MarkerRecord>(5)};
    for (int m = 0; m < 5; ++m) {
      tops.Markers[m].MarkerName = "Top" + std::to_string(m + 1);
      tops.Markers[m].TopMD = depth * (m + 1) / 6 + 0.25;
    }
    ASSERT_TRUE(Make<IMarkerData>("IMarkerData")->SaveWellMarkers(tops));

    ASSERT_TRUE(Make<IPipenet>("IPipenet")->SavePipenet(PipenetRecord{.PipenetName = "Big"}));
    std::vector<NodeRecord> chain(nodes);
    std::vector<PipeRecord> pipes(nodes - 1);
    std::vector<SimuNodeRecord> results(nodes);
    for (int i = 0; i < nodes; ++i) {
      NodeRecord& node = chain[i];
      node.NodeName = results[i].NodeName = "N" + std::to_string(i);
      node.NodeType = i % 12;
      node.NodeX = 1000 + (i % 70) * 40.0;
      node.NodeY = 5000 + (i / 70) * 45.0;
      results[i].Pp = 10 + i * 0.001;
      if (i == 0) continue;
      PipeRecord& pipe = pipes[i - 1];
      pipe.PipeName = "P" + std::to_string(i);
      pipe.Node1 = chain[i - 1].NodeName;
      pipe.Node2 = node.NodeName;
      pipe.PipeType = i % 4;
      pipe.Diameter = 50.0 + i % 200;
    }
    ASSERT_TRUE(Make<INode>("INode")->SaveNodes("Big", chain));
    ASSERT_TRUE(Make<IPipe>("IPipe")->SavePipes("Big", pipes));
    ASSERT_TRUE(Make<IProject>("IProject")->SaveCase(CaseRecord{.ProjName = "Run", .PipenetName = "Big"}));
    ASSERT_TRUE(Make<ISimuNode>("ISimuNode")->SaveNodeResults("Run", results));
  }
};

TEST_F(PlotTest, LargeProjectMarksSitWhereTheDataSays) {
  Generate(2000, 10000, 5000);
  Picture log, map, net;
  for (const auto& [picture, what] : {std::pair{&log, "log"}, {&map, "map"}, {&net, "network"}}) {
    const std::string out = (dir_ / (std::string(what) + ".svg")).string();
    const std::string subject = picture == &log ? "DEEP" : picture == &map ? "Test" : "Big --case Run";
    ASSERT_EQ(RunPetrodb(std::string("plot ") + what + " '" + file_ + "' " + subject + " --out " + out).code, 0);
    Load(out, *picture);
  }

  // A marker's line at the y of its depth; resistivities on a log scale; the
  // null run of GR splits it in two.
  const xmlNodePtr area = log.Find("//*[@id='log-area']").at(0);  // the whole log, 0 to 10000 m
  const xmlNodePtr top3 = log.Find("//*[@class='marker' and @data-name='Top3']").at(0);
  EXPECT_NEAR(Picture::Num(top3, "y1"), Picture::Num(area, "y") + 5000.25 / 10000 * Picture::Num(area, "height"), 0.01);
  const std::string samples = "//*[@class='curve-samples' and @data-name=";
  EXPECT_EQ(Picture::Attr(log.Find(samples + "'RT']").at(0), "data-scale"), "log");
  EXPECT_EQ(Picture::Attr(log.Find(samples + "'GR']").at(0), "data-scale"), "linear");
  EXPECT_EQ(log.Find(samples + "'GR']/*").size(), 2u);

  // Wells at their coordinates; names thinned where they would collide.
  for (int i : {1, 777, 1999}) {
    const auto [x, y] = MapPixel(map, 20500000 + (i % 50) * 180.0 + (i % 7) * 11, 4300000 + (i / 50) * 170.0);
    const xmlNodePtr well = map.Find("//*[@class='well' and @data-name='G" + std::to_string(10000 + i) + "']").at(0);
    EXPECT_NEAR(Picture::Num(well, "x"), x, 0.01) << i;
    EXPECT_NEAR(Picture::Num(well, "y"), y, 0.01) << i;
  }
  const std::size_t names = map.Find("//*[@class='label']").size();
  EXPECT_TRUE(names > 20 && names < 2000) << names;

  // Nodes at their coordinates, with the case's pressure.
  const xmlNodePtr node = net.Find("//*[@class='node' and @data-name='N4321']").at(0);
  const auto [nx, ny] = MapPixel(net, 1000 + (4321 % 70) * 40.0, 5000 + (4321 / 70) * 45.0);
  EXPECT_NEAR(Picture::Num(node, "x"), nx, 0.01);
  EXPECT_NEAR(Picture::Num(node, "y"), ny, 0.01);
  EXPECT_NEAR(Picture::Num(node, "data-pressure"), 14.321, 1e-9);
  EXPECT_EQ(net.Find("//*[@class='pipe p1' or @class='pipe p0' or @class='pipe p2' or @class='pipe p3']").size(), 4999u);
  if (!HaveRasteriser()) GTEST_SKIP() << "rsvg-convert is not installed: the pictures were parsed, not rasterised";
}

TEST_F(PlotTest, ErrorsNameWhatIsMissing) {
  Generate(3, 100, 3);
  const std::string f = "'" + file_ + "' ";
  const struct {
    std::string arguments;
    int code;
    std::string says;
  } cases[] = {
      {"plot log " + f + "NOPE --out x.svg", 1, "no well \"NOPE\""},
      {"plot log " + f + "DEEP GR XX --out x.svg", 1, "no curve \"XX\" in well DEEP (its curves: C10"},
      {"plot log " + f + "DEEP --from 50 --to 20 --out x.svg", 1, "the depth range 50 to 20 is empty"},
      {"plot log " + f + "DEEP --from abc --out x.svg", 2, "--from takes a depth, not \"abc\""},
      {"plot map " + f + "Test", 2, "plot map needs --out <file.svg>"},
      {"plot map " + f + "Test --out /nonexistent/m.svg", 1, "cannot write /nonexistent/m.svg: No such file"},
      {"plot network " + f + "Big --case Walk --out x.svg", 1, "no case \"Walk\" in " + file_ + " (its cases: Run)"},
  };
  for (const auto& c : cases) {
    const CliRun run = RunPetrodb(c.arguments);
    EXPECT_EQ(run.code, c.code) << c.arguments << "\n" << run.output;
    EXPECT_NE(run.output.find(c.says), std::string::npos) << c.arguments << "\n" << run.output;
  }
  EXPECT_FALSE(std::filesystem::exists("x.svg"));
}

}  // namespace
}  // namespace petrodb::test
