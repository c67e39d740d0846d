// Measured depth to vertical depth and map position: minimum curvature over the
// well's deviation survey, or linear interpolation of stored vertical depths.
#include "petrodb/welllog/DepthConverter.h"

#include <array>
#include <atomic>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <numbers>

namespace {

using Vec = std::array<double, 3>;  // north, east, down

Vec operator+(const Vec& a, const Vec& b) { return {a[0] + b[0], a[1] + b[1], a[2] + b[2]}; }
Vec operator-(const Vec& a, const Vec& b) { return {a[0] - b[0], a[1] - b[1], a[2] - b[2]}; }
Vec operator*(double k, const Vec& a) { return {k * a[0], k * a[1], k * a[2]}; }
double Norm(const Vec& a) { return std::sqrt(a[0] * a[0] + a[1] * a[1] + a[2] * a[2]); }

constexpr double kRadian = std::numbers::pi / 180.0;

Vec Tangent(double inclination, double azimuth) {
  const double i = inclination * kRadian, a = azimuth * kRadian;
  return {std::sin(i) * std::cos(a), std::sin(i) * std::sin(a), std::cos(i)};
}

double Dogleg(const Vec& t1, const Vec& t2) {
  const double sum = Norm(t1 + t2);
  return sum == 0.0 ? std::numbers::pi : 2.0 * std::atan(Norm(t2 - t1) / sum);
}

double RatioFactor(double beta) { return beta == 0.0 ? 1.0 : 2.0 / beta * std::tan(beta / 2.0); }

// The tangent a fraction sigma of the way along the arc from t1 to t2.
Vec ArcTangent(const Vec& t1, const Vec& t2, double beta, double sigma) {
  const double s = std::sin(beta);
  if (std::abs(s) < 1e-12) {  // straight (or folded back): blend and normalise
    const Vec t = (1.0 - sigma) * t1 + sigma * t2;
    const double n = Norm(t);
    return n > 0 ? (1.0 / n) * t : t1;
  }
  return (1.0 / s) * (std::sin((1.0 - sigma) * beta) * t1 + std::sin(sigma * beta) * t2);
}

double Lerp(double x0, double y0, double x1, double y1, double x) {
  return x1 == x0 ? y0 : y0 + (y1 - y0) * (x - x0) / (x1 - x0);
}

class CDepthConverter final : public IDepthConverter {
 public:
  void SetWell(const WellHead& head, const DeviationSurvey& survey) override;
  DepthPoint Convert(double md) const override;

 private:
  enum class Mode { Vertical, Curvature, Table };
  Vec Offset(double md) const;  // (north, east, TVD) relative to the head
  Vec CurvatureOffset(double md) const;
  Vec TableOffset(double md) const;
  double DatumShift(double md) const;

  WellHead head_;
  Mode mode_ = Mode::Vertical;
  std::vector<double> md_;
  std::vector<Vec> tangent_;   // Curvature mode
  std::vector<Vec> position_;  // station positions, both modes
  std::vector<double> shift_;  // Tvdss - Tvd per station, when given
};

void CDepthConverter::SetWell(const WellHead& head, const DeviationSurvey& s) {
  head_ = head;
  md_ = s.Md;
  tangent_.clear();
  position_.clear();
  shift_.clear();
  const std::size_t n = s.Md.size();
  const auto has = [n](const std::vector<double>& v) { return n > 0 && v.size() >= n; };
  if (has(s.Inclination) && has(s.Azimuth)) {
    mode_ = Mode::Curvature;
    for (std::size_t i = 0; i < n; ++i) {
      tangent_.push_back(Tangent(s.Inclination[i], s.Azimuth[i]));
      if (s.Tvd.size() > i && s.Xcoor.size() > i && s.Ycoor.size() > i) {
        position_.push_back({s.Ycoor[i] - head.Well_SN, s.Xcoor[i] - head.Well_EW, s.Tvd[i]});
      } else if (i == 0) {
        position_.push_back({0.0, 0.0, s.Md[0]});
      } else {
        const Vec& t1 = tangent_[i - 1];
        const Vec& t2 = tangent_[i];
        const double rf = RatioFactor(Dogleg(t1, t2));
        position_.push_back(position_[i - 1] + ((s.Md[i] - s.Md[i - 1]) / 2.0 * rf) * (t1 + t2));
      }
    }
  } else if (has(s.Tvd)) {
    mode_ = Mode::Table;
    for (std::size_t i = 0; i < n; ++i) {
      const double north = s.Ycoor.size() > i ? s.Ycoor[i] - head.Well_SN : 0.0;
      const double east = s.Xcoor.size() > i ? s.Xcoor[i] - head.Well_EW : 0.0;
      position_.push_back({north, east, s.Tvd[i]});
    }
  } else {
    mode_ = Mode::Vertical;
    md_.clear();
  }
  if (mode_ != Mode::Vertical && has(s.Tvdss))
    for (std::size_t i = 0; i < n; ++i) shift_.push_back(s.Tvdss[i] - position_[i][2]);
}

Vec CDepthConverter::CurvatureOffset(double md) const {
  const std::size_t n = md_.size();
  if (md <= md_[0]) return position_[0] - Vec{0.0, 0.0, md_[0] - md};
  if (md >= md_[n - 1]) return position_[n - 1] + (md - md_[n - 1]) * tangent_[n - 1];
  std::size_t i = 1;
  while (md_[i] < md) ++i;
  const double md1 = md_[i - 1], md2 = md_[i];
  const Vec& t1 = tangent_[i - 1];
  const Vec& t2 = tangent_[i];
  const double beta = Dogleg(t1, t2);
  const double sigma = md2 == md1 ? 0.0 : (md - md1) / (md2 - md1);
  const Vec t = ArcTangent(t1, t2, beta, sigma);
  return position_[i - 1] + ((md - md1) / 2.0 * RatioFactor(sigma * beta)) * (t1 + t);
}

Vec CDepthConverter::TableOffset(double md) const {
  const std::size_t n = md_.size();
  if (md <= md_[0]) return position_[0] - Vec{0.0, 0.0, md_[0] - md};
  if (n == 1) return position_[0] + Vec{0.0, 0.0, md - md_[0]};
  std::size_t i = 1;
  while (i < n - 1 && md_[i] < md) ++i;
  Vec p;
  for (int k = 0; k < 3; ++k) p[k] = Lerp(md_[i - 1], position_[i - 1][k], md_[i], position_[i][k], md);
  return p;
}

Vec CDepthConverter::Offset(double md) const {
  switch (mode_) {
    case Mode::Curvature:
      return CurvatureOffset(md);
    case Mode::Table:
      return TableOffset(md);
    case Mode::Vertical:
      break;
  }
  return {0.0, 0.0, md};
}

double CDepthConverter::DatumShift(double md) const {
  if (shift_.empty()) return -head_.Kb;
  const std::size_t n = md_.size();
  if (md <= md_[0]) return shift_[0];
  if (md >= md_[n - 1]) return shift_[n - 1];
  std::size_t i = 1;
  while (md_[i] < md) ++i;
  return Lerp(md_[i - 1], shift_[i - 1], md_[i], shift_[i], md);
}

DepthPoint CDepthConverter::Convert(double md) const {
  const Vec p = Offset(md);
  DepthPoint out;
  out.TVD = p[2];
  out.TVDSS = p[2] + DatumShift(md);
  out.X = head_.Well_EW + p[1];
  out.Y = head_.Well_SN + p[0];
  return out;
}

std::atomic<bool> g_available{true};

}  // namespace

namespace petrodb {

std::unique_ptr<IDepthConverter> GetDepthConverter() {
  const char* off = std::getenv("PETRODB_NO_DEPTH_CONVERTER");
  if (!g_available || (off && *off && std::strcmp(off, "0") != 0)) return nullptr;
  return std::make_unique<CDepthConverter>();
}

void SetDepthConverterAvailable(bool available) { g_available = available; }

}  // namespace petrodb
