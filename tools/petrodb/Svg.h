#pragma once
// The one drawing layer of the host's pictures: a plain SVG document built in
// memory, numbers written compactly, polylines thinned to what a pixel can
// show, labels placed only where they do not cover each other, and "nice"
// axis ticks.
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace petrodb::cli::svg {

struct Point {
  double x = 0, y = 0;
};

// Extra attributes of an element, written in order ({"data-name", "GR"}).
using Attrs = std::vector<std::pair<std::string, std::string>>;

// A number with at most `decimals` decimals and no trailing zeros ("12.5", "3").
std::string Num(double value, int decimals = 2);
// Text made safe for XML content and attribute values.
std::string Escape(const std::string& text);
// The width a text takes in a sans-serif font of this size (wide East Asian
// characters count double).
double TextWidth(const std::string& text, double fontSize);

class Document {
 public:
  // `css` goes into the document's style sheet; elements refer to its classes.
  Document(double width, double height, const std::string& title, const std::string& css);

  // <defs> content (symbols and the like), written as given.
  void Defs(const std::string& content);
  void Open(const std::string& cls, const Attrs& attrs = {});  // <g class=...>
  void Close();                                                // </g>
  void Rect(double x, double y, double w, double h, const std::string& cls, const Attrs& attrs = {});
  void Line(double x1, double y1, double x2, double y2, const std::string& cls, const Attrs& attrs = {});
  void Circle(double cx, double cy, double r, const std::string& cls, const Attrs& attrs = {});
  void Polyline(const std::vector<Point>& points, const std::string& cls, const Attrs& attrs = {});
  void Polygon(const std::vector<Point>& points, const std::string& cls, const Attrs& attrs = {});
  // A symbol of <defs> (by its id) drawn centred on (x, y).
  void Use(const std::string& symbol, double x, double y, const std::string& cls, const Attrs& attrs = {});
  // anchor: "start", "middle" or "end"; rotate: degrees about (x, y).
  void Text(double x, double y, const std::string& text, const std::string& cls, const char* anchor = "start",
            double rotate = 0, const Attrs& attrs = {});

  // The whole document.
  std::string Finish() const;
  // Writes the document; false with the path and the reason in `error`.
  bool Write(const std::string& path, std::string& error) const;

 private:
  std::string head_, defs_, body_;
  static void Attributes(std::string& out, const Attrs& attrs);
};

// Points along a curve whose y grows monotonically (a log against depth) kept
// to what each pixel row can show: per row its first, smallest-x, largest-x and
// last point, so spikes survive.
std::vector<Point> ThinByRow(const std::vector<Point>& points);
// Drops points closer than `tolerance` to the last kept one (the ends stay).
std::vector<Point> ThinByDistance(const std::vector<Point>& points, double tolerance);

// Remembers the boxes of the labels placed so far; a new one is placed only
// where it covers none of them.
class LabelPlacer {
 public:
  explicit LabelPlacer(double cell = 64) : cell_(cell) {}
  // True (and the box kept) when the box overlaps no kept box.
  bool Place(double x, double y, double w, double h);

 private:
  struct Box {
    double x, y, w, h;
  };
  double cell_;
  std::unordered_map<long long, std::vector<Box>> cells_;  // boxes by the grid cells they touch
};

// Tick values between lo and hi, about `count` of them, at steps of 1, 2 or 5
// times a power of ten.
std::vector<double> NiceTicks(double lo, double hi, int count);
// The step NiceTicks uses.
double NiceStep(double span, int count);

}  // namespace petrodb::cli::svg
