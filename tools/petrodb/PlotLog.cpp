// petrodb plot log: a well's curves in tracks beside a depth column, in the
// layout geoscientists read logs in: measured depth down the page (with TVD
// beside it when the well has a survey), curve names, units and scales in the
// track headers, resistivities on a logarithmic scale, null samples as gaps,
// formation tops across the tracks, cores and perforations in the depth column.
#include <algorithm>
#include <cctype>
#include <cmath>
#include <map>
#include <set>

#include "Plot.h"
#include "Svg.h"
#include "petrodb/project/IBasicWellData.h"
#include "petrodb/welllog/DepthConverter.h"
#include "petrodb/welllog/ICurveDictionary.h"
#include "petrodb/welllog/IDeviateData.h"
#include "petrodb/welllog/ILogData.h"
#include "petrodb/welllog/IMarkerData.h"
#include "petrodb/welllog/IPerforatedSec.h"
#include "petrodb/welllog/ITakeCoreData.h"

namespace petrodb::cli {
namespace {

using svg::Num;
using svg::Point;

constexpr double kMargin = 10, kTitle = 46, kTrack = 150, kMd = 64, kTvd = 56, kTopsColumn = 110;
constexpr double kCurveHeader = 30;
constexpr int kMostPerLogTrack = 4;
const char* const kPalette[] = {"#1b7f1b", "#c0392b", "#1f5fbf", "#8e44ad", "#d35400", "#16a085", "#7f6000", "#444"};

const char* const kCss =
    "text{font-family:sans-serif;font-size:11px;fill:#222}"
    ".title{font-size:15px;font-weight:bold}.sub{font-size:11px;fill:#555}"
    ".frame{fill:none;stroke:#333;stroke-width:1}.grid{stroke:#bbb;stroke-width:0.6}"
    ".grid2{stroke:#e2e2e2;stroke-width:0.5}.name{font-weight:bold;font-size:12px}"
    ".scale{font-size:10px;fill:#444}.depth{font-size:10px}.tvd{font-size:10px;fill:#555}"
    ".curve{fill:none;stroke-width:1.1;stroke-linejoin:round}"
    ".marker{stroke:#b03a2e;stroke-width:1.2;stroke-dasharray:6 3}.mlabel{fill:#b03a2e;font-size:11px}"
    ".depth,.tvd{paint-order:stroke;stroke:#fff;stroke-width:3px;stroke-linejoin:round}"
    ".core{fill:#6d4c2f}.perf{fill:#d62728}.note{font-size:10px;fill:#777}";

// Whether a unit is one of resistivity (ohm-metres in its usual spellings).
bool ResistivityUnit(const std::string& unit) {
  std::string u;
  for (const char c : unit)
    if (std::isalnum(static_cast<unsigned char>(c))) u += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  const bool omega = unit.find("\xCE\xA9") != std::string::npos;  // Ω
  return u == "ohmm" || u == "ohmmeter" || u == "ohmmetre" || u == "ohmms" || (omega && u == "m");
}

struct CurvePlot {
  const LogCurve* curve = nullptr;
  std::string unit;
  bool logarithmic = false;
  double left = 0, right = 1;
  bool fromDictionary = false;
  std::string color;
};

struct Track {
  std::vector<CurvePlot*> curves;
  bool logarithmic = false;
};

bool IsNull(double v, double nullValue) { return !std::isfinite(v) || v == nullValue; }

// The fraction of the track width a value takes on the curve's scale (outside
// [0, 1] when off scale); NaN for a value a log scale cannot show.
double Fraction(const CurvePlot& c, double v) {
  if (c.logarithmic) {
    if (!(v > 0)) return std::nan("");
    return std::log10(v / c.left) / std::log10(c.right / c.left);
  }
  return (v - c.left) / (c.right - c.left);
}

// Scales from the data where the dictionary gives none: a linear scale
// rounded outwards to a nice step, a log scale to whole decades (shared by the
// curves of a log track).
void DataScales(std::vector<CurvePlot>& plots, double from, double to, double nullValue) {
  double logLo = INFINITY, logHi = -INFINITY;
  for (auto& p : plots) {
    if (p.fromDictionary) continue;
    double lo = INFINITY, hi = -INFINITY;
    const auto& depth = p.curve->DepthCurve->Values;
    for (std::size_t k = 0; k < p.curve->Values.size() && k < depth.size(); ++k) {
      const double v = p.curve->Values[k];
      if (IsNull(v, nullValue) || depth[k] < from || depth[k] > to || (p.logarithmic && !(v > 0))) continue;
      lo = std::min(lo, v);
      hi = std::max(hi, v);
    }
    if (p.logarithmic) {
      logLo = std::min(logLo, lo);
      logHi = std::max(logHi, hi);
      continue;
    }
    if (!(hi >= lo)) lo = 0, hi = 1;
    if (hi == lo) lo -= 1, hi += 1;
    const double step = svg::NiceStep(hi - lo, 4);
    p.left = std::floor(lo / step) * step;
    p.right = std::ceil(hi / step) * step;
  }
  if (!(logHi >= logLo)) logLo = 0.2, logHi = 2000;
  double lo = std::pow(10.0, std::floor(std::log10(logLo))), hi = std::pow(10.0, std::ceil(std::log10(logHi)));
  if (hi <= lo) hi = lo * 10;
  for (auto& p : plots)
    if (p.logarithmic && !p.fromDictionary) p.left = lo, p.right = hi;
}

struct Marks {
  std::vector<MarkerRecord> markers;
  std::vector<CoreInterval> cores;
  std::vector<std::pair<double, double>> perforations;  // top, bottom
};

// What the well has besides curves; a load that finds nothing leaves a list empty.
Marks LoadMarks(IDataFactory& factory, const std::string& wellID) {
  Marks marks;
  Create<IMarkerData>(factory, "IMarkerData")->LoadWellMarkers(wellID.c_str(), marks.markers);
  std::erase_if(marks.markers, [](const MarkerRecord& m) { return m.TopMD == kNullDepth; });
  WellCores cores;
  Create<ITakeCoreData>(factory, "ITakeCoreData")->LoadWellCores(wellID.c_str(), cores);
  marks.cores = std::move(cores.Cores);
  // A perforated section starts at its section depth and is as long as its
  // perforated thickness.
  std::vector<PerforatedSection> rows;
  Create<IPerforatedSec>(factory, "IPerforatedSec")->LoadPerforatedSections(wellID.c_str(), rows);
  for (const auto& r : rows)
    if (r.Perf_section > 0 && r.Perf_thickness > 0)
      marks.perforations.emplace_back(r.Perf_section, r.Perf_section + r.Perf_thickness);
  return marks;
}

}  // namespace

int DrawLogPlot(IDataFactory& factory, const LogPlotRequest& request) {
  const std::string& wellID = request.wellID;
  WellRecord well;
  if (!Create<IBasicWellData>(factory, "IBasicWellData")->LoadWell(wellID.c_str(), well)) {
    PrintNotFound("no well \"" + wellID + "\" in " + request.file + " (see petrodb wells list)", wellID);
    return kFailed;
  }
  // The well's curves, without the depth curves that index them.
  auto logs = Create<ILogData>(factory, "ILogData");
  std::vector<std::string> names, depthNames, available;
  logs->GetCurveAndDepthNames(wellID.c_str(), names, depthNames);
  const std::set<std::string> depthSet(depthNames.begin(), depthNames.end());
  for (const auto& n : names)
    if (!depthSet.count(n)) available.push_back(n);
  std::vector<std::string> wanted = request.curves.empty() ? available : request.curves;
  if (!HasCurves(wellID, request.curves, available)) return kFailed;
  WellLog log;
  if (!wanted.empty() && !logs->LoadCurves(wellID.c_str(), wanted, log)) {
    PrintFailure("cannot read the curves of well " + wellID);
    return kFailed;
  }
  const Marks marks = LoadMarks(factory, wellID);

  // The curves in the order asked for, each with its scale.
  auto dictionary = Create<ICurveDictionary>(factory, "ICurveDictionary");
  std::vector<CurvePlot> plots;
  for (const auto& name : wanted) {
    const LogCurve* curve = log.Find(name);
    if (!curve || !curve->DepthCurve || curve->DepthCurve == curve) continue;
    CurvePlot p;
    p.curve = curve;
    p.unit = curve->Measure;
    CurveTemplate t;
    const bool known = dictionary && dictionary->LoadTemplateByAlias(name.c_str(), t);
    if (known && p.unit.empty()) p.unit = t.CurveUnit;
    p.logarithmic = (known && t.CoorType == 1) || ResistivityUnit(p.unit) || (known && ResistivityUnit(t.CurveUnit));
    if (known && t.LeftValue != t.RightValue && (!p.logarithmic || (t.LeftValue > 0 && t.RightValue > 0))) {
      p.left = t.LeftValue;
      p.right = t.RightValue;
      p.fromDictionary = true;
    }
    p.color = kPalette[plots.size() % std::size(kPalette)];
    plots.push_back(p);
  }

  // The depth range: as asked, else what the curves cover, else the marks, else the well's depth.
  double lo = INFINITY, hi = -INFINITY;
  auto cover = [&](double d) {
    if (std::isfinite(d) && d != kNullDepth) lo = std::min(lo, d), hi = std::max(hi, d);
  };
  for (const auto& p : plots) {
    const auto& depth = p.curve->DepthCurve->Values;
    for (std::size_t k = 0; k < p.curve->Values.size() && k < depth.size(); ++k)
      if (!IsNull(p.curve->Values[k], log.NullValue)) cover(depth[k]);
  }
  if (!(hi > lo)) {
    for (const auto& m : marks.markers) cover(m.TopMD), cover(m.BottomMD);
    for (const auto& c : marks.cores) cover(c.TopDepth), cover(c.BottomDepth);
    for (const auto& [top, bottom] : marks.perforations) cover(top), cover(bottom);
  }
  if (!(hi > lo) && well.WellDepth > 0) lo = 0, hi = well.WellDepth;
  const double from = request.from.value_or(lo), to = request.to.value_or(hi);
  if (!(to > from)) {
    PrintError(request.from || request.to
                   ? "the depth range " + Num(from) + " to " + Num(to) + " is empty"
                   : "well " + wellID + " has no curves, markers, cores or depth to draw");
    return kFailed;
  }
  DataScales(plots, from, to, log.NullValue);

  // Tracks: one per linear curve; the logarithmic curves share tracks of a
  // few, the first where the first of them comes.
  std::vector<Track> tracks;
  for (auto& p : plots) {
    auto room = std::find_if(tracks.begin(), tracks.end(), [](const Track& t) {
      return t.logarithmic && t.curves.size() < kMostPerLogTrack;
    });
    if (!p.logarithmic || room == tracks.end()) room = tracks.insert(tracks.end(), Track{{}, p.logarithmic});
    room->curves.push_back(&p);
  }

  // The survey, for true vertical depths beside the measured ones.
  DeviationSurvey survey;
  std::unique_ptr<IDepthConverter> converter;
  if (Create<IDeviateData>(factory, "IDeviateData")->LoadSurvey(wellID.c_str(), survey) && survey.Md.size() >= 2) {
    converter = GetDepthConverter();
    if (converter) converter->SetWell(WellHead{well.Well_SN, well.Well_EW, well.Kb}, survey);
  }

  // Layout.
  std::size_t most = 1;
  for (const auto& t : tracks) most = std::max(most, t.curves.size());
  const double header = 8 + kCurveHeader * static_cast<double>(most);
  const double top = kTitle + header;
  const double plotH = std::clamp((to - from) * 2.0, 600.0, 6000.0);
  const double xMd = kMargin, xTvd = xMd + kMd, xTracks = xTvd + (converter ? kTvd : 0);
  const double xEnd = xTracks + kTrack * static_cast<double>(tracks.size());
  const double width = std::max(xEnd + kTopsColumn + kMargin, 520.0), height = top + plotH + 30;
  auto y = [&](double md) { return top + (md - from) / (to - from) * plotH; };

  svg::Document doc(width, height, "log of well " + wellID, kCss);
  doc.Text(kMargin, 20, "Well " + wellID + (well.WellName.empty() || well.WellName == wellID ? "" : "  " + well.WellName),
           "title");
  doc.Text(kMargin, 36,
           "MD " + Num(from) + " to " + Num(to) + (converter ? "; TVD from the deviation survey" : "") + "; " +
               std::to_string(plots.size()) + " curve(s), " + std::to_string(marks.markers.size()) + " marker(s)",
           "sub");
  // Under the plot, what the marks in the depth column are.
  double kx = kMargin;
  const double ky = top + plotH + 12;
  if (!marks.cores.empty()) {
    doc.Rect(kx, ky, 10, 10, "core");
    doc.Text(kx + 14, ky + 9, "core", "note");
    kx += 60;
  }
  if (!marks.perforations.empty()) {
    doc.Rect(kx, ky, 10, 10, "perf");
    doc.Text(kx + 14, ky + 9, "perforated section", "note");
  }

  // The plotting area, with what a reader needs to turn a y back into a depth.
  doc.Rect(xMd, top, xEnd - xMd, plotH, "frame",
           {{"id", "log-area"}, {"data-from", Num(from, 6)}, {"data-to", Num(to, 6)}});

  // Depth ticks and grid across the tracks.
  const int labels = std::max(2, static_cast<int>(plotH / 60));
  const double major = svg::NiceStep(to - from, labels), minor = major / 5;
  doc.Open("grid-lines");
  if (plotH / ((to - from) / minor) >= 6)
    for (double d = std::ceil(from / minor) * minor; d <= to; d += minor) doc.Line(xTracks, y(d), xEnd, y(d), "grid2");
  for (double d : svg::NiceTicks(from, to, labels)) doc.Line(xTracks, y(d), xEnd, y(d), "grid");
  doc.Close();
  doc.Open("depth-column");
  doc.Rect(xMd, kTitle, kMd, header, "frame");
  doc.Text(xMd + kMd / 2, kTitle + header / 2 + 4, "MD", "name", "middle");
  for (double d : svg::NiceTicks(from, to, labels)) {
    doc.Line(xMd, y(d), xMd + 6, y(d), "grid");
    doc.Line(xTvd - 6, y(d), xTvd, y(d), "grid");
    doc.Text(xMd + kMd / 2, std::clamp(y(d) + 4, top + 11, top + plotH - 3), Num(d), "depth", "middle", 0,
             {{"data-md", Num(d, 6)}});
  }
  if (converter) {
    doc.Rect(xTvd, kTitle, kTvd, header, "frame");
    doc.Rect(xTvd, top, kTvd, plotH, "frame");
    doc.Text(xTvd + kTvd / 2, kTitle + header / 2 + 4, "TVD", "name", "middle");
    for (double d : svg::NiceTicks(from, to, labels))
      doc.Text(xTvd + kTvd / 2, std::clamp(y(d) + 4, top + 11, top + plotH - 3), Num(converter->Convert(d).TVD, 1),
               "tvd", "middle");
  }
  // Cores at the left edge of the depth column, perforations at its right edge.
  auto interval = [&](double a, double b) { return std::pair{std::clamp(a, from, to), std::clamp(b, from, to)}; };
  for (const auto& c : marks.cores) {
    const auto [a, b] = interval(std::min(c.TopDepth, c.BottomDepth), std::max(c.TopDepth, c.BottomDepth));
    if (b > a)
      doc.Rect(xMd + 1, y(a), 8, std::max(y(b) - y(a), 1.0), "core",
               {{"data-name", c.CoreName}, {"data-top", Num(c.TopDepth, 6)}, {"data-bottom", Num(c.BottomDepth, 6)}});
  }
  for (const auto& [t, b] : marks.perforations) {
    const auto [a, c] = interval(t, b);
    if (c > a)
      doc.Rect(xTvd - 9, y(a), 8, std::max(y(c) - y(a), 1.0), "perf",
               {{"data-top", Num(t, 6)}, {"data-bottom", Num(b, 6)}});
  }
  doc.Close();

  // Tracks: header with each curve's name, unit and scale, then the curve.
  for (std::size_t ti = 0; ti < tracks.size(); ++ti) {
    const Track& track = tracks[ti];
    const double x0 = xTracks + kTrack * static_cast<double>(ti);
    doc.Open("track", {{"data-scale", track.logarithmic ? "log" : "linear"}});
    doc.Rect(x0, kTitle, kTrack, header, "frame");
    doc.Rect(x0, top, kTrack, plotH, "frame");
    if (track.logarithmic) {
      const CurvePlot& first = *track.curves.front();
      for (double decade = std::pow(10.0, std::ceil(std::log10(first.left) - 1e-9)); decade < first.right * 0.999;
           decade *= 10) {
        for (int m = 1; m < 10; ++m) {
          const double f = Fraction(first, decade * m);
          if (f > 0 && f < 1) doc.Line(x0 + f * kTrack, top, x0 + f * kTrack, top + plotH, m == 1 ? "grid" : "grid2");
        }
      }
    } else {
      for (int k = 1; k < 4; ++k) doc.Line(x0 + kTrack * k / 4, top, x0 + kTrack * k / 4, top + plotH, "grid2");
    }
    for (std::size_t ci = 0; ci < track.curves.size(); ++ci) {
      const CurvePlot& p = *track.curves[ci];
      const double hy = kTitle + 6 + kCurveHeader * static_cast<double>(ci);
      doc.Text(x0 + kTrack / 2, hy + 9, p.curve->CurveName, "name", "middle", 0, {{"fill", p.color}});
      doc.Line(x0 + 4, hy + 13, x0 + kTrack - 4, hy + 13, "curve", {{"stroke", p.color}});
      doc.Text(x0 + 3, hy + 24, Num(p.left, 3), "scale");
      doc.Text(x0 + kTrack / 2, hy + 24, p.unit, "scale", "middle");
      doc.Text(x0 + kTrack - 3, hy + 24, Num(p.right, 3), "scale", "end");
      // The samples in range as runs between nulls, thinned per pixel row.
      doc.Open("curve-samples", {{"data-name", p.curve->CurveName},
                                 {"data-unit", p.unit},
                                 {"data-scale", p.logarithmic ? "log" : "linear"},
                                 {"data-left", Num(p.left, 6)},
                                 {"data-right", Num(p.right, 6)}});
      const auto& depth = p.curve->DepthCurve->Values;
      std::vector<Point> run;
      auto flush = [&] {
        if (run.size() == 1) doc.Circle(run[0].x, run[0].y, 1.2, "", {{"fill", p.color}});
        doc.Polyline(svg::ThinByRow(run), "curve", {{"stroke", p.color}});
        run.clear();
      };
      for (std::size_t k = 0; k < p.curve->Values.size() && k < depth.size(); ++k) {
        const double d = depth[k], v = p.curve->Values[k];
        if (!std::isfinite(d) || d < from || d > to) {
          flush();
          continue;
        }
        const double f = IsNull(v, log.NullValue) ? std::nan("") : Fraction(p, v);
        if (std::isnan(f)) {
          flush();
          continue;
        }
        run.push_back(Point{x0 + std::clamp(f, 0.0, 1.0) * kTrack, y(d)});
      }
      flush();
      doc.Close();
    }
    doc.Close();
  }
  if (tracks.empty())
    doc.Text(xTracks + 10, top + 20, wanted.empty() ? "the well has no curves" : "no samples to draw", "note");

  // Formation tops across the tracks, named in the column on the right where
  // the names do not cover each other.
  svg::LabelPlacer placer(32);
  doc.Open("markers");
  for (const auto& m : marks.markers) {
    if (m.TopMD < from || m.TopMD > to) continue;
    const double my = y(m.TopMD);
    doc.Line(xMd, my, xEnd + 4, my, "marker", {{"data-name", m.MarkerName}, {"data-md", Num(m.TopMD, 6)}});
    const double w = svg::TextWidth(m.MarkerName, 11);
    if (placer.Place(xEnd + 6, my - 6, w, 12)) doc.Text(xEnd + 6, my + 4, m.MarkerName, "mlabel");
  }
  doc.Close();

  return WritePicture(doc, request.out);
}

}  // namespace petrodb::cli
