#pragma once
// The pictures of a project the host draws as SVG: a well's log tracks, a map
// of a project's wells, areas and seismic lines, and a pipeline network with
// the figures of a calculation case. Each reads through the data factory,
// prints why it cannot draw (naming what is missing), and answers an exit code.
#include <algorithm>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "Command.h"
#include "Svg.h"

namespace petrodb::cli {

struct LogPlotRequest {
  std::string file;                   // for messages
  std::string wellID;
  std::vector<std::string> curves;    // empty: every curve of the well
  std::optional<double> from, to;     // measured depth range
  std::string out;
};
int DrawLogPlot(IDataFactory& factory, const LogPlotRequest& request);

int DrawMapPlot(IDataFactory& factory, const std::string& file, const std::string& project, const std::string& out);

int DrawNetworkPlot(IDataFactory& factory, const std::string& file, const std::string& network,
                    const std::string& caseName, const std::string& out);

// Map coordinates (X east, Y north, one scale on both axes) in a pixel frame.
struct MapFrame {
  double xmin = 0, xmax = 1, ymin = 0, ymax = 1;  // the world extent the frame shows
  double left = 0, top = 0, width = 1, height = 1;  // the frame in pixels
  svg::Point At(double x, double y) const {
    return {left + (x - xmin) / (xmax - xmin) * width, top + (ymax - y) / (ymax - ymin) * height};
  }
  double PixelsPerUnit() const { return width / (xmax - xmin); }
};

// Collects the world extent of what a map shows.
struct Extent {
  double xmin = INFINITY, xmax = -INFINITY, ymin = INFINITY, ymax = -INFINITY;
  void Add(double x, double y) {
    if (!std::isfinite(x) || !std::isfinite(y)) return;
    xmin = std::min(xmin, x), xmax = std::max(xmax, x), ymin = std::min(ymin, y), ymax = std::max(ymax, y);
  }
  bool Empty() const { return !(xmax >= xmin); }
};

// A frame at (left, top) whose longer side is `size` pixels, showing the
// extent with a margin around it at one scale on both axes.
MapFrame FitFrame(Extent extent, double left, double top, double size);
// The frame's border (id "map-area", with its world extent in data-xmin,
// data-xmax, data-ymin, data-ymax), coordinates along its sides, a scale bar
// under it and, when asked, a north arrow beside its upper right corner.
void DrawFrame(svg::Document& doc, const MapFrame& frame, bool northArrow);
// Writes the picture to `path`: kOk, or kFailed with the reason printed.
int WritePicture(const svg::Document& doc, const std::string& path);

}  // namespace petrodb::cli
