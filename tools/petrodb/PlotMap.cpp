// petrodb plot map: a base map of a project: wells at their surface
// positions with symbols by well type and names where they fit, deviated
// wells' paths in plan view, areas of interest, 2D seismic lines and 3D grid
// outlines, with coordinates on the frame, a scale bar and a north arrow.
#include <map>
#include <memory>

#include "Plot.h"
#include "petrodb/project/IAOIData.h"
#include "petrodb/project/IBasicProjectData.h"
#include "petrodb/project/IBasicWellData.h"
#include "petrodb/seismic/ILineCoor2DData.h"
#include "petrodb/seismic/ILineGrid3DData.h"
#include "petrodb/welllog/DepthConverter.h"
#include "petrodb/welllog/IDeviateData.h"

namespace petrodb::cli {

using svg::Num;
using svg::Point;

int WritePicture(const svg::Document& doc, const std::string& path) {
  std::string error;
  if (doc.Write(path, error)) return kOk;
  PrintError(error);
  return kFailed;
}

MapFrame FitFrame(Extent e, double left, double top, double size) {
  if (e.Empty()) e.Add(0, 0), e.Add(1000, 1000);
  // A margin around what is drawn, and at least a kilometre of it.
  double cx = (e.xmin + e.xmax) / 2, cy = (e.ymin + e.ymax) / 2;
  double sx = std::max((e.xmax - e.xmin) * 1.08, 1000.0), sy = std::max((e.ymax - e.ymin) * 1.08, 1000.0);
  const double scale = size / std::max(sx, sy);
  // Neither side thinner than a third of the longer one.
  sx = std::max(sx, std::max(sx, sy) / 3), sy = std::max(sy, std::max(sx, sy) / 3);
  MapFrame f;
  f.xmin = cx - sx / 2, f.xmax = cx + sx / 2, f.ymin = cy - sy / 2, f.ymax = cy + sy / 2;
  f.left = left, f.top = top, f.width = sx * scale, f.height = sy * scale;
  return f;
}

void DrawFrame(svg::Document& doc, const MapFrame& f, bool northArrow) {
  const double right = f.left + f.width, bottom = f.top + f.height;
  doc.Open("frame-coordinates");
  for (double x : svg::NiceTicks(f.xmin, f.xmax, std::max(2, static_cast<int>(f.width / 150)))) {
    const double px = f.At(x, f.ymin).x;
    doc.Line(px, f.top, px, bottom, "grid2");
    doc.Line(px, bottom, px, bottom + 5, "tick");
    doc.Line(px, f.top - 5, px, f.top, "tick");
    doc.Text(px, bottom + 17, Num(x), "coord", "middle");
  }
  for (double y : svg::NiceTicks(f.ymin, f.ymax, std::max(2, static_cast<int>(f.height / 150)))) {
    const double py = f.At(f.xmin, y).y;
    doc.Line(f.left, py, right, py, "grid2");
    doc.Line(f.left - 5, py, f.left, py, "tick");
    doc.Line(right, py, right + 5, py, "tick");
    doc.Text(f.left - 9, py, Num(y), "coord", "middle", -90);
  }
  doc.Close();
  doc.Rect(f.left, f.top, f.width, f.height, "frame",
           {{"id", "map-area"},
            {"data-xmin", Num(f.xmin, 6)},
            {"data-xmax", Num(f.xmax, 6)},
            {"data-ymin", Num(f.ymin, 6)},
            {"data-ymax", Num(f.ymax, 6)}});
  // A scale bar of about a fifth of the frame, in four blocks.
  const double length = svg::NiceStep((f.xmax - f.xmin) / 5, 1), px = length * f.PixelsPerUnit();
  const double sy = bottom + 34;
  doc.Open("scale-bar", {{"data-length", Num(length, 6)}});
  for (int k = 0; k < 4; ++k) doc.Rect(f.left + px * k / 4, sy, px / 4, 6, k % 2 ? "bar-light" : "bar-dark");
  doc.Text(f.left, sy + 18, "0", "coord", "middle");
  doc.Text(f.left + px, sy + 18, length >= 1000 ? Num(length / 1000, 3) + " km" : Num(length, 3) + " m", "coord",
           "middle");
  doc.Close();
  if (northArrow) {
    const double ax = right + 26, ay = f.top;
    doc.Open("north-arrow");
    doc.Polygon({{ax, ay}, {ax + 8, ay + 26}, {ax, ay + 20}, {ax - 8, ay + 26}}, "arrow");
    doc.Text(ax, ay + 40, "N", "north", "middle");
    doc.Close();
  }
}

namespace {

const char* const kCss =
    "text{font-family:sans-serif;font-size:10px;fill:#222}"
    ".title{font-size:16px;font-weight:bold}.sub{font-size:11px;fill:#555}"
    ".frame{fill:none;stroke:#222;stroke-width:1.2}.grid2{stroke:#e6e6e6;stroke-width:0.6}"
    ".tick{stroke:#222;stroke-width:1}.coord{font-size:10px;fill:#333}"
    ".bar-dark{fill:#222;stroke:#222}.bar-light{fill:#fff;stroke:#222}"
    ".arrow{fill:#222}.north{font-size:13px;font-weight:bold}"
    ".aoi{fill:#f5b041;fill-opacity:0.08;stroke:#d68910;stroke-width:1.2}"
    ".aoi-global{fill:none;stroke:#aaa;stroke-width:1;stroke-dasharray:8 4}.aoi-name{fill:#b9770e;font-size:11px}"
    ".line2d{fill:none;stroke:#7d3c98;stroke-width:1.1}.line2d-name{fill:#7d3c98;font-size:9px}"
    ".grid3d{fill:#76448a;fill-opacity:0.06;stroke:#76448a;stroke-width:1.2;stroke-dasharray:5 3}"
    ".grid3d-name{fill:#76448a;font-size:11px}"
    ".path{fill:none;stroke:#555;stroke-width:0.9}.bottom{fill:#555}.label{font-size:10px}"
    ".label,.aoi-name,.line2d-name,.grid3d-name{paint-order:stroke;stroke:#fff;stroke-width:2.5px;stroke-linejoin:round}"
    ".legend{font-size:11px}.legend-title{font-size:12px;font-weight:bold}.note{font-size:10px;fill:#777}";

const char* const kSymbols =
    "<g id=\"w-oil\"><circle r=\"4\" fill=\"#111\"/></g>\n"
    "<g id=\"w-gas\"><circle r=\"4\" fill=\"#d62728\"/><path d=\"M-7 0H7M0 -7V7\" stroke=\"#d62728\" "
    "stroke-width=\"1.2\"/></g>\n"
    "<g id=\"w-inj\"><circle r=\"4.5\" fill=\"#fff\" stroke=\"#1f5fbf\" stroke-width=\"1.5\"/><circle r=\"1.8\" "
    "fill=\"#1f5fbf\"/></g>\n"
    "<g id=\"w-dry\"><circle r=\"4\" fill=\"#fff\" stroke=\"#555\"/><path d=\"M-3 -3L3 3M-3 3L3 -3\" "
    "stroke=\"#555\"/></g>\n"
    "<g id=\"w-other\"><rect x=\"-3.5\" y=\"-3.5\" width=\"7\" height=\"7\" fill=\"#fff\" stroke=\"#333\"/></g>\n";

struct WellKind {
  const char* symbol;
  const char* legend;
};
const WellKind kKinds[] = {{"w-oil", "oil well"},
                           {"w-gas", "gas well"},
                           {"w-inj", "injection or water well"},
                           {"w-dry", "dry or abandoned well"},
                           {"w-other", "other or untyped well"}};

// The symbol of a well type as projects write it, in English or Chinese.
int KindOf(const std::string& type) {
  std::string t;
  for (const char c : type) t += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  auto has = [&t](std::initializer_list<const char*> words) {
    for (const char* w : words)
      if (t.find(w) != std::string::npos) return true;
    return false;
  };
  if (has({"gas", "气"})) return 1;
  if (has({"inj", "water", "注", "水"})) return 2;
  if (has({"dry", "aband", "干", "废"})) return 3;
  if (has({"oil", "prod", "油", "采"})) return 0;
  return 4;
}

bool Valid(double x, double y) { return x != -99999.0 && y != -99999.0 && std::isfinite(x) && std::isfinite(y); }

// The corners of a 3D grid from its three control points: the affine map
// from (inline, crossline) to (X, Y) they fix, at the ends of both ranges.
// Empty when the control points lie on one line.
std::vector<Point> GridCorners(const LineGrid3DRecord& g) {
  const double l1 = g.LineNo1, c1 = g.CDPNo1, dl2 = g.LineNo2 - l1, dc2 = g.CDPNo2 - c1, dl3 = g.LineNo3 - l1,
               dc3 = g.CDPNo3 - c1;
  const double det = dl2 * dc3 - dl3 * dc2;
  if (std::abs(det) < 1e-12) return {};
  auto solve = [&](double v1, double v2, double v3) {  // coefficients of inline and crossline
    const double a = ((v2 - v1) * dc3 - (v3 - v1) * dc2) / det, b = (dl2 * (v3 - v1) - dl3 * (v2 - v1)) / det;
    return std::pair{a, b};
  };
  const auto [ax, bx] = solve(g.Xcoor1, g.Xcoor2, g.Xcoor3);
  const auto [ay, by] = solve(g.Ycoor1, g.Ycoor2, g.Ycoor3);
  auto at = [&](double line, double cdp) {
    return Point{g.Xcoor1 + ax * (line - l1) + bx * (cdp - c1), g.Ycoor1 + ay * (line - l1) + by * (cdp - c1)};
  };
  return {at(g.Line_Begin, g.CDP_P_Begin), at(g.Line_Begin, g.CDP_P_End), at(g.Line_End, g.CDP_P_End),
          at(g.Line_End, g.CDP_P_Begin)};
}

}  // namespace

int DrawMapPlot(IDataFactory& factory, const std::string& file, const std::string& project, const std::string& out) {
  if (!CheckProjectName(factory, file, project)) return kFailed;
  const char* p = project.c_str();
  std::vector<WellRecord> wells;
  if (!Create<IBasicWellData>(factory, "IBasicWellData")->LoadProjectWells(p, wells) && !EngineError().empty()) {
    PrintFailure("cannot read the wells of project " + project);
    return kFailed;
  }
  std::vector<DeviationSurvey> surveys;
  Create<IDeviateData>(factory, "IDeviateData")->LoadProjectSurveys(p, surveys);
  std::vector<AOIRecord> areas;
  Create<IAOIData>(factory, "IAOIData")->GetAOIList(p, areas);
  std::map<std::string, std::vector<Line2DRecord>> lines;
  Create<ILineCoor2DData>(factory, "ILineCoor2DData")->LoadProjectSurveys(p, lines);
  std::vector<LineGrid3DRecord> grids;
  Create<ILineGrid3DData>(factory, "ILineGrid3DData")->LoadAllGrids(p, grids);

  // Plan-view paths of the surveyed wells, from their stored positions or
  // else computed along the survey.
  std::map<std::string, const WellRecord*> byID;
  for (const auto& w : wells) byID.emplace(w.WellID, &w);
  std::vector<std::pair<std::string, std::vector<Point>>> paths;
  auto converter = GetDepthConverter();
  for (const auto& s : surveys) {
    const auto it = byID.find(s.WellID);
    if (it == byID.end() || s.Md.empty()) continue;
    const WellRecord& w = *it->second;
    std::vector<Point> path{{w.Well_EW, w.Well_SN}};
    if (s.Xcoor.size() == s.Md.size() && s.Ycoor.size() == s.Md.size()) {
      for (std::size_t k = 0; k < s.Md.size(); ++k)
        if (Valid(s.Xcoor[k], s.Ycoor[k])) path.push_back({s.Xcoor[k], s.Ycoor[k]});
    } else if (converter) {
      converter->SetWell(WellHead{w.Well_SN, w.Well_EW, w.Kb}, s);
      for (double md : s.Md) {
        const DepthPoint d = converter->Convert(md);
        path.push_back({d.X, d.Y});
      }
    }
    paths.emplace_back(w.WellID, std::move(path));
  }

  Extent extent;
  for (const auto& w : wells) extent.Add(w.Well_EW, w.Well_SN);
  for (const auto& [id, path] : paths)
    for (const auto& q : path) extent.Add(q.x, q.y);
  for (const auto& a : areas) extent.Add(a.Xmin, a.Ymin), extent.Add(a.Xmax, a.Ymax);
  for (const auto& [survey, list] : lines)
    for (const auto& l : list)
      for (const auto& q : l.Points)
        if (Valid(q.X, q.Y)) extent.Add(q.X, q.Y);
  for (const auto& g : grids)
    for (const auto& q : GridCorners(g)) extent.Add(q.x, q.y);
  if (extent.Empty()) {
    ProjectRecord record;
    if (Create<IBasicProjectData>(factory, "IBasicProjectData")->LoadProject(p, record) && record.EWmax > record.EWmin &&
        record.SNmax > record.SNmin)
      extent.Add(record.EWmin, record.SNmin), extent.Add(record.EWmax, record.SNmax);
  }

  const MapFrame f = FitFrame(extent, 80, 62, 1400);
  const double legendX = f.left + f.width + 36;
  svg::Document doc(legendX + 230, std::max(f.top + f.height + 96, 420.0), "map of project " + project, kCss);
  doc.Defs(kSymbols);
  doc.Text(f.left, 24, "Project " + project, "title");
  doc.Text(f.left, 42,
           std::to_string(wells.size()) + " well(s), " + std::to_string(paths.size()) + " survey(s), " +
               std::to_string(areas.size()) + " area(s), " + std::to_string(lines.size()) + " 2D survey(s), " +
               std::to_string(grids.size()) + " 3D grid(s)",
           "sub");
  DrawFrame(doc, f, true);

  svg::LabelPlacer placer(48);
  doc.Open("areas");
  for (const auto& a : areas) {
    const Point lo = f.At(a.Xmin, a.Ymax), hi = f.At(a.Xmax, a.Ymin);
    const bool global = a.AOIName == "global";
    doc.Rect(lo.x, lo.y, hi.x - lo.x, hi.y - lo.y, global ? "aoi-global" : "aoi", {{"data-name", a.AOIName}});
    if (placer.Place(lo.x + 3, lo.y + 2, svg::TextWidth(a.AOIName, 11), 13))
      doc.Text(lo.x + 3, lo.y + 13, a.AOIName, "aoi-name");
  }
  doc.Close();
  doc.Open("grids-3d");
  for (const auto& g : grids) {
    auto corners = GridCorners(g);
    if (corners.empty()) continue;
    for (auto& q : corners) q = f.At(q.x, q.y);
    doc.Polygon(corners, "grid3d", {{"data-name", g.LineGrid3DName}});
    if (placer.Place(corners[0].x + 3, corners[0].y - 14, svg::TextWidth(g.LineGrid3DName, 11), 13))
      doc.Text(corners[0].x + 3, corners[0].y - 3, g.LineGrid3DName, "grid3d-name");
  }
  doc.Close();
  doc.Open("lines-2d");
  for (const auto& [survey, list] : lines)
    for (const auto& l : list) {
      std::vector<Point> points;
      for (const auto& q : l.Points)
        if (Valid(q.X, q.Y)) points.push_back(f.At(q.X, q.Y));
      if (points.size() < 2) continue;
      doc.Polyline(svg::ThinByDistance(points, 1.0), "line2d", {{"data-name", l.LineName}, {"data-survey", survey}});
      if (placer.Place(points[0].x + 2, points[0].y - 11, svg::TextWidth(l.LineName, 9), 11))
        doc.Text(points[0].x + 2, points[0].y - 2, l.LineName, "line2d-name");
    }
  doc.Close();
  doc.Open("well-paths");
  std::size_t drawnPaths = 0;
  for (const auto& [id, path] : paths) {
    std::vector<Point> points;
    double reach = 0;
    for (const auto& q : path) {
      points.push_back(f.At(q.x, q.y));
      reach = std::max(reach, std::hypot(points.back().x - points[0].x, points.back().y - points[0].y));
    }
    if (reach < 1.5) continue;  // a vertical well, as far as the map can show
    doc.Polyline(svg::ThinByDistance(points, 0.75), "path", {{"data-name", id}});
    ++drawnPaths;
    doc.Circle(points.back().x, points.back().y, 1.6, "bottom");
  }
  doc.Close();

  // Symbols first, so that names avoid every symbol, then the names that fit.
  int counts[std::size(kKinds)] = {};
  std::vector<Point> at;
  for (const auto& w : wells) {
    at.push_back(f.At(w.Well_EW, w.Well_SN));
    placer.Place(at.back().x - 4.5, at.back().y - 4.5, 9, 9);
  }
  doc.Open("wells");
  for (std::size_t i = 0; i < wells.size(); ++i) {
    const WellRecord& w = wells[i];
    const int kind = KindOf(w.WellType);
    ++counts[kind];
    doc.Use(kKinds[kind].symbol, at[i].x, at[i].y, "well",
            {{"data-name", w.WellID}, {"data-type", w.WellType}, {"data-x", Num(w.Well_EW, 6)}, {"data-y", Num(w.Well_SN, 6)}});
  }
  doc.Close();
  doc.Open("well-names");
  std::size_t named = 0;
  for (std::size_t i = 0; i < wells.size(); ++i) {
    const std::string& name = wells[i].WellName.empty() ? wells[i].WellID : wells[i].WellName;
    const double w = svg::TextWidth(name, 10), x = at[i].x, y = at[i].y;
    // To the right, the left, above, below.
    const Point spots[] = {{x + 7, y + 3.5}, {x - 7 - w, y + 3.5}, {x - w / 2, y - 8}, {x - w / 2, y + 15}};
    for (const Point& s : spots) {
      if (s.x < f.left || s.x + w > f.left + f.width || s.y - 10 < f.top || s.y > f.top + f.height) continue;
      if (!placer.Place(s.x, s.y - 9, w, 11)) continue;
      doc.Text(s.x, s.y, name, "label", "start", 0, {{"data-name", wells[i].WellID}});
      ++named;
      break;
    }
  }
  doc.Close();

  // The legend: the symbols in use, with their counts.
  doc.Open("legend");
  double ly = f.top + 72;  // under the north arrow
  doc.Text(legendX, ly, "Wells", "legend-title");
  for (std::size_t k = 0; k < std::size(kKinds); ++k) {
    if (!counts[k]) continue;
    ly += 20;
    doc.Use(kKinds[k].symbol, legendX + 6, ly - 4, "");
    doc.Text(legendX + 18, ly, std::string(kKinds[k].legend) + " (" + std::to_string(counts[k]) + ")", "legend");
  }
  if (named < wells.size()) {
    ly += 20;
    doc.Text(legendX, ly, std::to_string(wells.size() - named) + " name(s) left out where they", "note");
    doc.Text(legendX, ly + 13, "would cover others", "note");
    ly += 13;
  }
  auto entry = [&](const char* cls, const char* text, bool line) {
    ly += 22;
    if (line) doc.Line(legendX, ly - 4, legendX + 14, ly - 4, cls);
    else doc.Rect(legendX, ly - 10, 14, 10, cls);
    doc.Text(legendX + 18, ly, text, "legend");
  };
  if (drawnPaths) entry("path", "well path (plan view)", true);
  if (!areas.empty()) entry("aoi", "area of interest", false);
  if (!lines.empty()) entry("line2d", "2D seismic line", true);
  if (!grids.empty()) entry("grid3d", "3D seismic grid", false);
  doc.Close();
  if (extent.Empty()) doc.Text(f.left + 10, f.top + 20, "the project has nothing with coordinates to draw", "note");

  return WritePicture(doc, out);
}

}  // namespace petrodb::cli
