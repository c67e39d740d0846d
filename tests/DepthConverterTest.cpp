// Measured depth to TVD, TVDSS and map position, against cases worked out by hand
// and by numerical integration of the well path.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <numbers>

#include "petrodb/welllog/DepthConverter.h"

namespace petrodb::test {
namespace {

constexpr double kPi = std::numbers::pi;

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

TEST(DepthConverterTest, QuarterCircleBuildsToHorizontal) {
  const WellHead head{1000.0, 2000.0, 50.0};
  const auto s = Angles({0, 1000}, {0, 90}, {0, 0});
  const double r = 2000.0 / kPi;  // a 1000 m arc through 90 degrees
  const DepthPoint end = At(head, s, 1000);
  EXPECT_NEAR(end.TVD, r, 1e-9);
  EXPECT_NEAR(end.Y - 1000.0, r, 1e-9);
  EXPECT_NEAR(end.X, 2000.0, 1e-9);
  EXPECT_NEAR(end.TVDSS, r - 50.0, 1e-9);
  const DepthPoint mid = At(head, s, 500);
  EXPECT_NEAR(mid.Y - 1000.0, r * (1 - std::cos(kPi / 4)), 1e-9);  // 186.46
  EXPECT_NEAR(mid.TVD, r * std::sin(kPi / 4), 1e-9);               // 450.16
  // Past the last station the hole runs on horizontally.
  const DepthPoint beyond = At(head, s, 1100);
  EXPECT_NEAR(beyond.TVD, r, 1e-9);
  EXPECT_NEAR(beyond.Y - 1000.0, r + 100, 1e-9);
}

TEST(DepthConverterTest, StraightAndVerticalSections) {
  const WellHead head{0, 0, 0};
  // Vertical to 500, then a straight slant at 30 degrees due east.
  const auto s = Angles({500, 600, 700}, {30, 30, 30}, {90, 90, 90});
  EXPECT_NEAR(At(head, s, 200).TVD, 200, 1e-12);
  EXPECT_NEAR(At(head, s, 200).X, 0, 1e-12);
  const DepthPoint p = At(head, s, 650);
  EXPECT_NEAR(p.TVD, 500 + 150 * std::cos(kPi / 6), 1e-9);
  EXPECT_NEAR(p.X, 150 * std::sin(kPi / 6), 1e-9);
  EXPECT_NEAR(p.Y, 0, 1e-9);
  const DepthPoint q = At(head, s, 900);
  EXPECT_NEAR(q.X, 400 * 0.5, 1e-9);
}

TEST(DepthConverterTest, TurningArcMatchesNumericalIntegration) {
  const WellHead head{0, 0, 0};
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
      const double sigma = k * h / length;
      const double w = (k == 0 || k == n) ? 1 : (k % 2 ? 4 : 2);
      for (int j = 0; j < 3; ++j) {
        const double v = beta == 0
                             ? t1[j]
                             : (std::sin((1 - sigma) * beta) * t1[j] + std::sin(sigma * beta) * t2[j]) / std::sin(beta);
        sum[j] += w * v;
      }
    }
    for (double& v : sum) v *= h / 3;
    return sum;
  };
  const auto first = integrate(t(0, 0), t(20, 30), 1000, 1000);
  const auto part = integrate(t(20, 30), t(60, 120), 300, 170);
  const DepthPoint p = At(head, s, 1170);
  EXPECT_NEAR(p.Y, first[0] + part[0], 1e-6);
  EXPECT_NEAR(p.X, first[1] + part[1], 1e-6);
  EXPECT_NEAR(p.TVD, first[2] + part[2], 1e-6);
}

TEST(DepthConverterTest, StoredStationPositionsAreUsedAsGiven) {
  const WellHead head{100, 200, 10};
  auto s = Angles({0, 100, 200}, {0, 0, 0}, {0, 0, 0});
  s.Tvd = {0, 95};  // the second station was surveyed at TVD 95, 3 m north, 4 m east
  s.Xcoor = {200, 204};
  s.Ycoor = {100, 103};
  const DepthPoint p = At(head, s, 150);
  EXPECT_NEAR(p.TVD, 145, 1e-9);  // vertical from the stored station
  EXPECT_NEAR(p.X, 204, 1e-9);
  EXPECT_NEAR(p.Y, 103, 1e-9);
  EXPECT_NEAR(p.TVDSS, 135, 1e-9);
}

TEST(DepthConverterTest, WithoutAnglesStoredDepthsAreInterpolated) {
  const WellHead head{5000, 7000, 20};
  DeviationSurvey s;
  s.Md = {0, 1000, 2000};
  s.Tvd = {0, 900, 1700};
  s.Xcoor = {7000, 7300, 7600};
  s.Ycoor = {5000, 5400, 5800};
  DepthPoint p = At(head, s, 500);
  EXPECT_DOUBLE_EQ(p.TVD, 450);
  EXPECT_DOUBLE_EQ(p.X, 7150);
  EXPECT_DOUBLE_EQ(p.Y, 5200);
  EXPECT_DOUBLE_EQ(p.TVDSS, 430);
  EXPECT_DOUBLE_EQ(At(head, s, 2100).TVD, 1780);
  s.Tvdss = {-30, 870, 1670};  // a datum 30 m above the head's
  EXPECT_DOUBLE_EQ(At(head, s, 1500).TVDSS, 1300 - 30);
}

TEST(DepthConverterTest, NoSurveyIsAVerticalWellAtTheHead) {
  const DepthPoint p = At(WellHead{10, 20, 5}, DeviationSurvey{}, 1234.5);
  EXPECT_EQ(p.TVD, 1234.5);
  EXPECT_EQ(p.TVDSS, 1229.5);
  EXPECT_EQ(p.X, 20);
  EXPECT_EQ(p.Y, 10);
}

TEST(DepthConverterTest, TheComponentCanBeMissing) {
  SetDepthConverterAvailable(false);
  EXPECT_EQ(GetDepthConverter(), nullptr);
  SetDepthConverterAvailable(true);
  EXPECT_NE(GetDepthConverter(), nullptr);
  setenv("PETRODB_NO_DEPTH_CONVERTER", "1", 1);
  EXPECT_EQ(GetDepthConverter(), nullptr);
  unsetenv("PETRODB_NO_DEPTH_CONVERTER");
}

}  // namespace
}  // namespace petrodb::test
