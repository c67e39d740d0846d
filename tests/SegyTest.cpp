// SEG-Y headers read through segyio from files segyio writes, and the host's
// segy commands.
#include <segyio/segy.h>

#include <cstring>
#include <fstream>
#include <tuple>

#include "TestSupport.h"
#include "formats/Segy.h"
#include "petrodb/seismic/ILineCoor2DData.h"

namespace petrodb::test {
namespace {

struct TraceSpec {
  int line, cdp, scalar;
  int x, y;  // stored integers
};

// Writes a SEG-Y file with segyio: 4 ms, `samples` IEEE samples a trace, the
// coordinates at 81/85 or, with `cdpXY`, at 181/185 (the others left zero).
void WriteSegy(const std::string& path, const std::vector<TraceSpec>& traces, bool cdpXY, int samples = 50) {
  segy_file* fp = segy_open(path.c_str(), "w+b");
  ASSERT_NE(fp, nullptr);
  char text[SEGY_TEXT_HEADER_SIZE + 1];
  std::memset(text, ' ', sizeof text);
  ASSERT_EQ(segy_write_textheader(fp, 0, text), SEGY_OK);
  char bin[SEGY_BINARY_HEADER_SIZE] = {};
  segy_set_bfield(bin, SEGY_BIN_INTERVAL, 4000);
  segy_set_bfield(bin, SEGY_BIN_SAMPLES, samples);
  segy_set_bfield(bin, SEGY_BIN_FORMAT, SEGY_IEEE_FLOAT_4_BYTE);
  ASSERT_EQ(segy_write_binheader(fp, bin), SEGY_OK);
  const int size = segy_trsize(SEGY_IEEE_FLOAT_4_BYTE, samples);
  std::vector<float> data(samples, 0.5f);
  segy_from_native(SEGY_IEEE_FLOAT_4_BYTE, samples, data.data());
  for (std::size_t i = 0; i < traces.size(); ++i) {
    char h[SEGY_TRACE_HEADER_SIZE] = {};
    const auto& t = traces[i];
    segy_set_field(h, SEGY_TR_FIELD_RECORD, t.line);
    segy_set_field(h, SEGY_TR_ENSEMBLE, t.cdp);
    segy_set_field(h, SEGY_TR_SOURCE_GROUP_SCALAR, t.scalar);
    segy_set_field(h, cdpXY ? SEGY_TR_CDP_X : SEGY_TR_GROUP_X, t.x);
    segy_set_field(h, cdpXY ? SEGY_TR_CDP_Y : SEGY_TR_GROUP_Y, t.y);
    ASSERT_EQ(segy_write_traceheader(fp, static_cast<int>(i), h, 3600, size), SEGY_OK);
    ASSERT_EQ(segy_writetrace(fp, static_cast<int>(i), data.data(), 3600, size), SEGY_OK);
  }
  segy_close(fp);
}

std::vector<TraceSpec> Line(int n, int scalar) {
  std::vector<TraceSpec> traces;
  for (int i = 0; i < n; ++i) traces.push_back({12, 1001 + i, scalar, 61234567 + i * 1250, 498765432 - i * 25});
  return traces;
}

class SegyTest : public ProjectTest {};

TEST_F(SegyTest, ScalarsAndLayoutsPlaceTheCoordinates) {
  const std::string scaled = (dir_ / "scaled.sgy").string(), cdp = (dir_ / "cdp.sgy").string();
  WriteSegy(scaled, Line(100, -100), false);
  WriteSegy(cdp, Line(3, 10), true);

  segy::Headers h;
  std::string error;
  ASSERT_TRUE(segy::ReadHeaders(scaled, SegyFormat(), h, error)) << error;
  ASSERT_EQ(h.traces.size(), 100u);
  EXPECT_DOUBLE_EQ(h.traces[99].y, 4987629.57);  // scaled by 1/100

  // The standard layout finds nothing at 81/85 in the second file; its layout does.
  ASSERT_TRUE(segy::ReadHeaders(cdp, SegyFormat(), h, error)) << error;
  EXPECT_EQ(h.traces[0].x, 0);
  SegyFormat layout;
  ASSERT_TRUE(layout.ReadText("3200 400 1 0 2 XCoordinate 181 4  YCoordinate 185 4  "));
  ASSERT_TRUE(segy::ReadHeaders(cdp, layout, h, error)) << error;
  EXPECT_EQ(std::tie(h.traces[2].x, h.traces[2].y), std::make_tuple(612370670.0, 4987653820.0));

  // A position segyio does not know is read at the layout's width.
  layout.Trace("CDPNumber") = {23, 2};
  ASSERT_TRUE(segy::ReadHeaders(cdp, layout, h, error)) << error;
  EXPECT_EQ(h.traces[1].cdp, 1002);
  EXPECT_EQ(segy::Scaled(-5, 0), -5);
}

TEST_F(SegyTest, FilesThatAreNoSegyAreRefusedWithTheirReason) {
  const std::string text = (dir_ / "notes.sgy").string(), cut = (dir_ / "cut.sgy").string();
  std::ofstream(text) << "not seismic\n";
  WriteSegy(cut, Line(2, 1), false);
  std::filesystem::resize_file(cut, std::filesystem::file_size(cut) - 7);
  segy::Headers h;
  std::string error;
  EXPECT_FALSE(segy::ReadHeaders(text, SegyFormat(), h, error));
  EXPECT_NE(error.find("too short"), std::string::npos) << error;
  EXPECT_FALSE(segy::ReadHeaders(cut, SegyFormat(), h, error));
  EXPECT_NE(error.find("do not fill the file"), std::string::npos) << error;
  EXPECT_FALSE(segy::ReadHeaders(dir_.string(), SegyFormat(), h, error));
  EXPECT_EQ(error, dir_.string() + ": a directory, not a SEG-Y file");
}

TEST_F(SegyTest, ScanPrintsTheHeadersAndImportStoresTheLine) {
  if (onServer()) GTEST_SKIP() << "the host commands open project files";
  const std::string path = (dir_ / "line.sgy").string();
  WriteSegy(path, Line(3000, -100), false);
  CliRun run = RunPetrodb("segy scan " + path);
  ASSERT_EQ(run.code, 0) << run.output;
  EXPECT_EQ(run.output, "file: " + path +
                            "\ntraces: 3000\nsample interval: 4000 us\nsamples: 50\nformat: 5\nline: 12\n"
                            "cdp: 1001-4000\ncoordinate scalar: -100\nfirst trace: cdp 1001  x 612345.67  y 4987654.32\n"
                            "last trace: cdp 4000  x 649833.17  y 4986904.57\n");
  EXPECT_EQ(RunPetrodb("segy scan " + path + " --layout nonsense").code, 2);

  run = RunPetrodb("segy import-2d " + file_ + " P S1 L12 " + path);
  ASSERT_EQ(run.code, 0) << run.output;
  EXPECT_EQ(run.output, "imported 3000 trace positions (cdp 1001-4000) of line L12 into survey S1\n");
  auto lines = Make<ILineCoor2DData>("ILineCoor2DData");
  Line2DRecord line;
  ASSERT_TRUE(lines->LoadLine("P", "S1", "L12", line));
  ASSERT_EQ(std::make_tuple(line.SegYFile, line.Points.size()), std::make_tuple(path, 3000u));
  EXPECT_EQ(line.Points[2999], (Line2DPoint{4000, 649833.17, 4986904.57}));
}

}  // namespace
}  // namespace petrodb::test
