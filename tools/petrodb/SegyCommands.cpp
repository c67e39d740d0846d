// petrodb segy scan / segy import-2d: the headers of a SEG-Y file, read with
// segyio, and a 2D line's trace positions stored in a project.
#include <algorithm>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "Command.h"
#include "Progress.h"
#include "dbaccess/SqlText.h"
#include "formats/Segy.h"
#include "petrodb/seismic/ILineCoor2DData.h"

namespace petrodb::cli {
namespace {

// The layout named by --layout (its stored text, read over the standard one).
bool LayoutOption(const Options& options, SegyFormat& layout) {
  const std::string* text = options.Get("layout");
  if (!text || layout.ReadText(*text)) return true;
  PrintError("--layout: not a layout text (\"<text length> <binary length> <flag> <n binary> <n trace> "
             "<name> <byte> <width> ...\")");
  return false;
}

bool Read(const std::string& path, const SegyFormat& layout, segy::Headers& headers) {
  std::string error;
  // The trace count is known once the file header is read.
  std::optional<ProgressBar> bar;
  const auto step = [&bar](std::uint64_t done, std::uint64_t total) {
    if (!bar) bar.emplace("trace headers", total, "traces");
    bar->Set(done);
  };
  const bool read = segy::ReadHeaders(path, layout, headers, error, step);
  if (bar) bar->Finish();
  if (read) return true;
  PrintError(error);
  return false;
}

std::string Range(int low, int high) {
  return low == high ? std::to_string(low) : std::to_string(low) + "-" + std::to_string(high);
}

std::string Coordinates(const segy::TraceHeader& t) {
  return "cdp " + std::to_string(t.cdp) + "  x " + sql::ShortestText(t.x) + "  y " + sql::ShortestText(t.y);
}

int SegyScan(const std::vector<std::string>& args) {
  Options options;
  if (!ParseOptions(args, {"layout"}, options) || options.positional.size() != 1) return kUsage;
  SegyFormat layout;
  if (!LayoutOption(options, layout)) return kUsage;
  const std::string& path = options.positional[0];
  segy::Headers headers;
  if (!Read(path, layout, headers)) return kFailed;
  std::printf("file: %s\n", path.c_str());
  std::printf("traces: %zu\n", headers.traces.size());
  std::printf("sample interval: %d us\n", headers.sampleInterval);
  std::printf("samples: %d\n", headers.samples);
  std::printf("format: %d\n", headers.format);
  if (headers.traces.empty()) return kOk;
  const auto& traces = headers.traces;
  const auto [lineLow, lineHigh] = std::minmax_element(
      traces.begin(), traces.end(), [](const auto& a, const auto& b) { return a.line < b.line; });
  const auto [cdpLow, cdpHigh] = std::minmax_element(
      traces.begin(), traces.end(), [](const auto& a, const auto& b) { return a.cdp < b.cdp; });
  std::printf("line: %s\n", Range(lineLow->line, lineHigh->line).c_str());
  std::printf("cdp: %s\n", Range(cdpLow->cdp, cdpHigh->cdp).c_str());
  std::printf("coordinate scalar: %d\n", traces.front().scalar);
  std::printf("first trace: %s\n", Coordinates(traces.front()).c_str());
  std::printf("last trace: %s\n", Coordinates(traces.back()).c_str());
  return kOk;
}

int SegyImport2D(const std::vector<std::string>& args) {
  Options options;
  if (!ParseOptions(args, {"layout"}, options) || options.positional.size() != 5) return kUsage;
  SegyFormat layout;
  if (!LayoutOption(options, layout)) return kUsage;
  const std::string& file = options.positional[0];
  const std::string& project = options.positional[1];
  Survey2DLines survey;
  survey.S2d_name = options.positional[2];
  Line2DRecord line;
  line.LineName = options.positional[3];
  line.SegYFile = options.positional[4];
  line.FileFormat = layout;
  if (project.empty() || survey.S2d_name.empty() || line.LineName.empty()) {
    PrintError("the project, survey and line names must not be empty");
    return kUsage;
  }
  segy::Headers headers;
  if (!Read(line.SegYFile, layout, headers)) return kFailed;
  if (headers.traces.empty()) {
    PrintError(line.SegYFile + ": no traces");
    return kFailed;
  }
  if (!CheckProjectFile(file, Access::Write)) return kFailed;
  for (const auto& t : headers.traces) line.Points.push_back(Line2DPoint{t.cdp, t.x, t.y});
  survey.Lines.push_back(line);
  auto factory = MakeFactory(ProjectConnection(file), project);
  auto lines = Create<ILineCoor2DData>(*factory, "ILineCoor2DData");
  if (!lines || !lines->SaveSurvey(project.c_str(), survey)) {
    PrintFailure("cannot save line " + line.LineName + " of survey " + survey.S2d_name);
    return kFailed;
  }
  const auto [low, high] = std::minmax_element(line.Points.begin(), line.Points.end(),
                                               [](const auto& a, const auto& b) { return a.CDP < b.CDP; });
  std::printf("imported %zu trace positions (cdp %s) of line %s into survey %s\n", line.Points.size(),
              Range(low->CDP, high->CDP).c_str(), line.LineName.c_str(), survey.S2d_name.c_str());
  return kOk;
}

int SegyGroup(const std::vector<std::string>& args) {
  if (!args.empty()) PrintError("unknown segy command \"" + args[0] + "\"");
  std::fprintf(stderr,
               "usage: petrodb segy scan <file.sgy> [--layout <text>]\n"
               "       petrodb segy import-2d <project-file> <project> <survey> <line> <file.sgy> [--layout <text>]\n");
  return kUsage;
}

const CommandRegistration kScan{Command{
    "segy scan", "<file.sgy> [--layout <text>]",
    "read a SEG-Y file's headers: traces, sample interval and count, line and CDP range, first and last coordinates",
    &SegyScan, 1, 3}};
const CommandRegistration kImport2D{Command{
    "segy import-2d", "<project-file> <project> <survey> <line> <file.sgy> [--layout <text>]",
    "store a 2D line's trace positions (CDP, X, Y) from a SEG-Y file, replacing the line of that name",
    &SegyImport2D, 5, 7}};
const CommandRegistration kSegy{
    Command{"segy", "scan|import-2d ...", "the SEG-Y commands: segy scan, segy import-2d", &SegyGroup, 0, -1}};

}  // namespace
}  // namespace petrodb::cli
