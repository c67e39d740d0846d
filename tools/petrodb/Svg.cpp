#include "Svg.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <fstream>

#include "TextTable.h"

namespace petrodb::cli::svg {

std::string Num(double value, int decimals) {
  if (!std::isfinite(value)) return "0";
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
  std::string text = buffer;
  if (text.find('.') != std::string::npos) {
    while (text.back() == '0') text.pop_back();
    if (text.back() == '.') text.pop_back();
  }
  if (text == "-0") text = "0";
  return text;
}

std::string Escape(const std::string& text) {
  std::string out;
  out.reserve(text.size());
  for (const char c : text) {
    switch (c) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      case '"': out += "&quot;"; break;
      case '\'': out += "&apos;"; break;
      default:
        // Control characters other than tab cannot appear in XML 1.0.
        if (static_cast<unsigned char>(c) >= 0x20 || c == '\t') out += c;
        else out += ' ';
    }
  }
  return out;
}

double TextWidth(const std::string& text, double fontSize) {
  return static_cast<double>(DisplayWidth(text)) * fontSize * 0.6;
}

Document::Document(double width, double height, const std::string& title, const std::string& css) {
  head_ = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" "
          "xmlns:xlink=\"http://www.w3.org/1999/xlink\" version=\"1.1\" width=\"" +
          Num(width, 0) + "\" height=\"" + Num(height, 0) + "\" viewBox=\"0 0 " + Num(width, 0) + " " +
          Num(height, 0) + "\">\n<title>" + Escape(title) + "</title>\n<style>\n" + css + "\n</style>\n";
  body_ = "<rect x=\"0\" y=\"0\" width=\"" + Num(width, 0) + "\" height=\"" + Num(height, 0) +
          "\" fill=\"white\"/>\n";
}

void Document::Attributes(std::string& out, const Attrs& attrs) {
  for (const auto& [name, value] : attrs) out += " " + name + "=\"" + Escape(value) + "\"";
}

void Document::Defs(const std::string& content) { defs_ += content; }

void Document::Open(const std::string& cls, const Attrs& attrs) {
  body_ += "<g";
  if (!cls.empty()) body_ += " class=\"" + cls + "\"";
  Attributes(body_, attrs);
  body_ += ">\n";
}

void Document::Close() { body_ += "</g>\n"; }

namespace {
std::string ClassAttr(const std::string& cls) { return cls.empty() ? "" : " class=\"" + cls + "\""; }
}  // namespace

void Document::Rect(double x, double y, double w, double h, const std::string& cls, const Attrs& attrs) {
  body_ += "<rect x=\"" + Num(x) + "\" y=\"" + Num(y) + "\" width=\"" + Num(std::max(w, 0.0)) + "\" height=\"" +
           Num(std::max(h, 0.0)) + "\"" + ClassAttr(cls);
  Attributes(body_, attrs);
  body_ += "/>\n";
}

void Document::Line(double x1, double y1, double x2, double y2, const std::string& cls, const Attrs& attrs) {
  body_ += "<line x1=\"" + Num(x1) + "\" y1=\"" + Num(y1) + "\" x2=\"" + Num(x2) + "\" y2=\"" + Num(y2) + "\"" +
           ClassAttr(cls);
  Attributes(body_, attrs);
  body_ += "/>\n";
}

void Document::Circle(double cx, double cy, double r, const std::string& cls, const Attrs& attrs) {
  body_ += "<circle cx=\"" + Num(cx) + "\" cy=\"" + Num(cy) + "\" r=\"" + Num(r) + "\"" + ClassAttr(cls);
  Attributes(body_, attrs);
  body_ += "/>\n";
}

namespace {
void PointList(std::string& out, const std::vector<Point>& points) {
  out += " points=\"";
  bool first = true;
  for (const Point& p : points) {
    if (!first) out += ' ';
    first = false;
    out += Num(p.x, 1) + "," + Num(p.y, 1);
  }
  out += "\"";
}
}  // namespace

void Document::Polyline(const std::vector<Point>& points, const std::string& cls, const Attrs& attrs) {
  if (points.size() < 2) return;
  body_ += "<polyline";
  PointList(body_, points);
  body_ += ClassAttr(cls);
  Attributes(body_, attrs);
  body_ += "/>\n";
}

void Document::Polygon(const std::vector<Point>& points, const std::string& cls, const Attrs& attrs) {
  if (points.size() < 3) return;
  body_ += "<polygon";
  PointList(body_, points);
  body_ += ClassAttr(cls);
  Attributes(body_, attrs);
  body_ += "/>\n";
}

void Document::Use(const std::string& symbol, double x, double y, const std::string& cls, const Attrs& attrs) {
  body_ += "<use xlink:href=\"#" + symbol + "\" x=\"" + Num(x) + "\" y=\"" + Num(y) + "\"" + ClassAttr(cls);
  Attributes(body_, attrs);
  body_ += "/>\n";
}

void Document::Text(double x, double y, const std::string& text, const std::string& cls, const char* anchor,
                    double rotate, const Attrs& attrs) {
  body_ += "<text x=\"" + Num(x) + "\" y=\"" + Num(y) + "\"" + ClassAttr(cls);
  if (std::strcmp(anchor, "start") != 0) body_ += std::string(" text-anchor=\"") + anchor + "\"";
  if (rotate != 0) body_ += " transform=\"rotate(" + Num(rotate) + " " + Num(x) + " " + Num(y) + ")\"";
  Attributes(body_, attrs);
  body_ += ">" + Escape(text) + "</text>\n";
}

std::string Document::Finish() const {
  return head_ + (defs_.empty() ? "" : "<defs>\n" + defs_ + "</defs>\n") + body_ + "</svg>\n";
}

bool Document::Write(const std::string& path, std::string& error) const {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  if (!out) {
    error = "cannot write " + path + ": " + std::strerror(errno);
    return false;
  }
  const std::string text = Finish();
  if (!out.write(text.data(), static_cast<std::streamsize>(text.size())) || !out.flush()) {
    error = "cannot write " + path + ": " + std::strerror(errno);
    return false;
  }
  return true;
}

std::vector<Point> ThinByRow(const std::vector<Point>& points) {
  std::vector<Point> out;
  std::size_t i = 0;
  while (i < points.size()) {
    const double row = std::floor(points[i].y);
    std::size_t j = i, lo = i, hi = i;
    for (; j < points.size() && std::floor(points[j].y) == row; ++j) {
      if (points[j].x < points[lo].x) lo = j;
      if (points[j].x > points[hi].x) hi = j;
    }
    // first, the extremes in the order met, last
    std::size_t keep[4] = {i, std::min(lo, hi), std::max(lo, hi), j - 1};
    std::size_t last = static_cast<std::size_t>(-1);
    for (std::size_t k : keep)
      if (k != last) {
        out.push_back(points[k]);
        last = k;
      }
    i = j;
  }
  return out;
}

std::vector<Point> ThinByDistance(const std::vector<Point>& points, double tolerance) {
  if (points.size() < 3) return points;
  std::vector<Point> out{points.front()};
  for (std::size_t i = 1; i + 1 < points.size(); ++i)
    if (std::hypot(points[i].x - out.back().x, points[i].y - out.back().y) >= tolerance) out.push_back(points[i]);
  out.push_back(points.back());
  return out;
}

bool LabelPlacer::Place(double x, double y, double w, double h) {
  const auto c0 = static_cast<long long>(std::floor(x / cell_)), c1 = static_cast<long long>(std::floor((x + w) / cell_));
  const auto r0 = static_cast<long long>(std::floor(y / cell_)), r1 = static_cast<long long>(std::floor((y + h) / cell_));
  auto key = [](long long c, long long r) { return (r << 32) ^ (c & 0xffffffffLL); };
  for (long long r = r0; r <= r1; ++r)
    for (long long c = c0; c <= c1; ++c) {
      const auto it = cells_.find(key(c, r));
      if (it == cells_.end()) continue;
      for (const Box& b : it->second)
        if (x < b.x + b.w && b.x < x + w && y < b.y + b.h && b.y < y + h) return false;
    }
  for (long long r = r0; r <= r1; ++r)
    for (long long c = c0; c <= c1; ++c) cells_[key(c, r)].push_back(Box{x, y, w, h});
  return true;
}

double NiceStep(double span, int count) {
  if (!(span > 0) || count < 1) return 1;
  const double raw = span / count;
  const double power = std::pow(10.0, std::floor(std::log10(raw)));
  const double f = raw / power;
  return (f < 1.5 ? 1 : f < 3.5 ? 2 : f < 7.5 ? 5 : 10) * power;
}

std::vector<double> NiceTicks(double lo, double hi, int count) {
  std::vector<double> ticks;
  if (!(hi > lo)) return ticks;
  const double step = NiceStep(hi - lo, count);
  for (double t = std::ceil(lo / step - 1e-9) * step; t <= hi + step * 1e-9; t += step)
    ticks.push_back(std::abs(t) < step * 1e-9 ? 0.0 : t);
  return ticks;
}

}  // namespace petrodb::cli::svg
