// Measured depth to TVD, TVDSS and map position, against cases worked out by hand
// and by numerical integration of the well path.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <numbers>

#include "petrodb/welllog/DepthConverter.h"

namespace petrodb::test {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kAny = std::numeric_limits<double>::quiet_NaN();  // not checked

DeviationSurvey Angles(std::vector<double> md, std::vector<double> inc, std::vector<double> az) {
  DeviationSurvey s;
  s.Md = std::move(md);
  s.Inclination = std::move(inc);
  s.Azimuth = std::move(az);
  return s;
}

DepthPoint At(const WellHead& head, const DeviationSurvey& s, double md) {
  auto c = GetDepthConverter();
  EXPECT_NE(c, nullptr);
  if (!c) return {};
  c->SetWell(head, s);
  return c->Convert(md);
}

TEST(DepthConverterTest, CasesWorkedOutByHand) {
  const double r = 2000.0 / kPi;  // a 1000 m arc through 90 degrees
  const auto quarter = Angles({0, 1000}, {0, 90}, {0, 0});
  // Vertical to 500, then a straight slant at 30 degrees due east.
  const auto slant = Angles({500, 600, 700}, {30, 30, 30}, {90, 90, 90});
  // The second station was surveyed at TVD 95, 3 m north, 4 m east.
  auto stored = Angles({0, 100, 200}, {0, 0, 0}, {0, 0, 0});
  stored.Tvd = {0, 95};
  stored.Xcoor = {200, 204};
  stored.Ycoor = {100, 103};
  // No angles: the stored depths are interpolated; then with a datum 30 m above the head's.
  DeviationSurvey depths;
  depths.Md = {0, 1000, 2000};
  depths.Tvd = {0, 900, 1700};
  depths.Xcoor = {7000, 7300, 7600};
  depths.Ycoor = {5000, 5400, 5800};
  DeviationSurvey datum = depths;
  datum.Tvdss = {-30, 870, 1670};
  const DeviationSurvey none;
  const struct {
    const char* what;
    WellHead head;
    const DeviationSurvey& survey;
    double md, tvd, x, y, tvdss;
  } cases[] = {
      {"quarter circle, end", {1000, 2000, 50}, quarter, 1000, r, 2000, 1000 + r, r - 50},
      {"quarter circle, half way", {1000, 2000, 50}, quarter, 500, r * std::sin(kPi / 4), 2000,
       1000 + r * (1 - std::cos(kPi / 4)), kAny},
      {"past the last station the hole runs on", {1000, 2000, 50}, quarter, 1100, r, kAny, 1000 + r + 100, kAny},
      {"vertical above the first station", {}, slant, 200, 200, 0, kAny, kAny},
      {"straight slant", {}, slant, 650, 500 + 150 * std::cos(kPi / 6), 150 * std::sin(kPi / 6), 0, kAny},
      {"straight slant past the end", {}, slant, 900, kAny, 200, kAny, kAny},
      {"on from a stored station", {100, 200, 10}, stored, 150, 145, 204, 103, 135},
      {"interpolated", {5000, 7000, 20}, depths, 500, 450, 7150, 5200, 430},
      {"extrapolated", {5000, 7000, 20}, depths, 2100, 1780, kAny, kAny, kAny},
      {"stored TVDSS", {5000, 7000, 20}, datum, 1500, kAny, kAny, kAny, 1300 - 30},
      {"no survey: vertical at the head", {10, 20, 5}, none, 1234.5, 1234.5, 20, 10, 1229.5},
  };
  for (const auto& c : cases) {
    const DepthPoint p = At(c.head, c.survey, c.md);
    for (const auto& [got, want] : {std::pair{p.TVD, c.tvd}, {p.X, c.x}, {p.Y, c.y}, {p.TVDSS, c.tvdss}})
      EXPECT_TRUE(std::isnan(want) || std::abs(got - want) < 1e-9) << c.what << ": " << got << " for " << want;
  }
}

TEST(DepthConverterTest, TurningArcMatchesNumericalIntegration) {
  const auto s = Angles({0, 1000, 1300}, {0, 20, 60}, {0, 30, 120});
  auto t = [](double inc, double az) {
    const double i = inc * kPi / 180, a = az * kPi / 180;
    return std::array<double, 3>{std::sin(i) * std::cos(a), std::sin(i) * std::sin(a), std::cos(i)};
  };
  // Integrate the unit tangent along each great-circle arc with Simpson's rule.
  auto integrate = [](std::array<double, 3> t1, std::array<double, 3> t2, double length, double upTo) {
    const double dot = t1[0] * t2[0] + t1[1] * t2[1] + t1[2] * t2[2];
    const double beta = std::acos(std::clamp(dot, -1.0, 1.0));
    std::array<double, 3> sum{};
    const int n = 20000;
    const double h = upTo / n;
    for (int k = 0; k <= n; ++k) {
      const double sigma = k * h / length, w = (k == 0 || k == n) ? 1 : (k % 2 ? 4 : 2);
      for (int j = 0; j < 3; ++j)
        sum[j] += w * (beta == 0 ? t1[j]
                                 : (std::sin((1 - sigma) * beta) * t1[j] + std::sin(sigma * beta) * t2[j]) / std::sin(beta));
    }
    for (double& v : sum) v *= h / 3;
    return sum;
  };
  const auto first = integrate(t(0, 0), t(20, 30), 1000, 1000), part = integrate(t(20, 30), t(60, 120), 300, 170);
  const DepthPoint p = At(WellHead{}, s, 1170);
  EXPECT_NEAR(p.Y, first[0] + part[0], 1e-6);
  EXPECT_NEAR(p.X, first[1] + part[1], 1e-6);
  EXPECT_NEAR(p.TVD, first[2] + part[2], 1e-6);
}

TEST(DepthConverterTest, TheEnvironmentCanHideTheComponent) {
  setenv("PETRODB_NO_DEPTH_CONVERTER", "1", 1);
  EXPECT_EQ(GetDepthConverter(), nullptr);
  unsetenv("PETRODB_NO_DEPTH_CONVERTER");
  EXPECT_NE(GetDepthConverter(), nullptr);
}

}  // namespace
}  // namespace petrodb::test
