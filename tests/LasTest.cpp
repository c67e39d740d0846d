// LAS 2.0: the lenient reader, the strict writer, and the round trip through a well.
#include <cstring>
#include <sstream>

#include "TestSupport.h"
#include "formats/Las.h"
#include "petrodb/welllog/ILogData.h"

namespace petrodb::test {
namespace {

las::File ReadText(const std::string& text) {
  las::File file;
  std::string error;
  std::istringstream in(text);
  EXPECT_TRUE(las::Read(in, file, error)) << error;
  return file;
}

TEST(LasTest, ReadsUnwrappedAndWrappedData) {
  const std::string header =
      "~Version\n VERS. 2.0 : CWLS\n WRAP. NO : one line\n"
      "~Well\n STRT.M 1000 : start\n NULL. -999.25 : null\n"
      "~Curve\n DEPT.M : depth\n GR.GAPI : gamma\n RT.OHMM : resistivity\n";
  const las::File flat = ReadText(header + "~A\n1000 45.5 -999.25\n1000.5 47 2.25\n");
  ASSERT_EQ(flat.curves.size(), 3u);
  EXPECT_EQ(flat.curves[1].mnemonic, "GR");
  EXPECT_EQ(flat.curves[1].unit, "GAPI");
  EXPECT_EQ(flat.curves[2].description, "resistivity");
  EXPECT_EQ(flat.curves[0].values, (std::vector<double>{1000, 1000.5}));
  EXPECT_EQ(flat.curves[2].values, (std::vector<double>{-999.25, 2.25}));
  EXPECT_TRUE(flat.IsNull(flat.curves[2].values[0]));

  std::string wrapped = header;
  wrapped.replace(wrapped.find("WRAP. NO"), 8, "WRAP. YES");
  const las::File folded = ReadText(wrapped + "~ASCII\n1000\n45.5 -999.25\n1000.5\n47\n2.25\n");
  EXPECT_TRUE(folded.wrapped);
  for (int c = 0; c < 3; ++c) EXPECT_EQ(folded.curves[c].values, flat.curves[c].values);
}

TEST(LasTest, ToleratesOddHeaders) {
  const std::string text =
      "# exported by some tool\r\n"
      "~V\r\n VERS.   2.0 :\r\n"
      "~W  whatever follows\r\n NULL .   -999.2500 : NULL\r\n  WELL.   A-1 : WELL\r\n TIME.  10:30 : LOGGING TIME\r\n"
      "~c\r\n DEPT.M : \r\n GR .API :\r\n GR .API : second run\r\n\r\n"
      "~Other\r\n anything: at all\r\n"
      "~a depth GR GR\r\n"
      "# a comment among the data\r\n"
      "-999.25 -999.25 1\r\n 10 20 30\r\n 11 21\r\n\x1a";
  const las::File file = ReadText(text);
  ASSERT_EQ(file.curves.size(), 3u);
  EXPECT_EQ(file.curves[1].mnemonic, "GR");
  EXPECT_EQ(file.curves[2].mnemonic, "GR_2");
  EXPECT_EQ(file.nullValue, -999.25);  // "-999.2500" compared as a number
  EXPECT_EQ(file.WellItem("well")->value, "A-1");
  EXPECT_EQ(file.WellItem("TIME")->value, "10:30");  // the description starts after the last colon
  // The incomplete last step is dropped; the index keeps a value equal to NULL.
  EXPECT_EQ(file.curves[0].values, (std::vector<double>{-999.25, 10}));
  EXPECT_EQ(file.curves[2].values, (std::vector<double>{1, 30}));
  EXPECT_EQ(file.warnings.size(), 2u);

  las::File bad;
  std::string error;
  std::istringstream garbage("just some text\n");
  EXPECT_FALSE(las::Read(garbage, bad, error));
  std::istringstream letters("~V\n~C\n D.M :\n~A\n1 x\n");
  EXPECT_FALSE(las::Read(letters, bad, error));
  EXPECT_EQ(error, "line 5: not a number: x");
}

TEST(LasTest, WriterRefusesWhatItCannotReadBack) {
  las::File file;
  std::string error;
  std::ostringstream out;
  EXPECT_FALSE(las::Write(out, file, error));
  file.curves = {{"DEPT", "M", "", {1, 2}}, {"GR", "API", "", {1}}};
  EXPECT_FALSE(las::Write(out, file, error));
  file.curves[1] = {"G R", "API", "", {1, 2}};
  EXPECT_FALSE(las::Write(out, file, error));
  file.curves[1] = {"dept", "API", "", {1, 2}};
  EXPECT_FALSE(las::Write(out, file, error));
  EXPECT_TRUE(out.str().empty());
}

class LasRoundTripTest : public ProjectTest {};

TEST_F(LasRoundTripTest, ExportThenImportGivesTheSameBits) {
  las::File file;
  file.nullValue = -999.25;
  file.hasNull = true;
  std::vector<double> depth, gr, odd;
  for (int i = 0; i < 200; ++i) {
    depth.push_back(1500.0 + i * 0.1);  // steps that are not exact in binary
    gr.push_back(i % 17 == 0 ? -999.25 : 1.0 / (i + 3));
    odd.push_back(i % 2 ? 1e-310 : -0.0);
  }
  file.curves = {{"DEPT", "M", "depth", depth}, {"GR", "API", "", gr}, {"ODD", "", "", odd}};
  std::ostringstream first;
  std::string error;
  ASSERT_TRUE(las::Write(first, file, error)) << error;

  WellLog log;
  las::ToWellLog(ReadText(first.str()), "W1", log);
  auto logs = Make<ILogData>("ILogData");
  ASSERT_TRUE(logs->SaveWellLog(log));
  WellLog back;
  ASSERT_TRUE(logs->LoadCurves("W1", {"GR", "ODD"}, back));
  EXPECT_EQ(back.NullValue, -999.25);
  for (const auto& [name, values] : {std::pair{"DEPT", &depth}, {"GR", &gr}, {"ODD", &odd}}) {
    const LogCurve* curve = back.Find(name);
    ASSERT_NE(curve, nullptr) << name;
    ASSERT_EQ(curve->Values.size(), values->size());
    EXPECT_EQ(std::memcmp(curve->Values.data(), values->data(), values->size() * sizeof(double)), 0) << name;
    EXPECT_EQ(curve->DepthCurve, back.Find("DEPT"));
  }
  EXPECT_EQ(back.Find("GR")->Measure, "API");
}

}  // namespace
}  // namespace petrodb::test
