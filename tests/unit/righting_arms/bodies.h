// Hulls of the tests, by a length of 100 m, and a section of them as a polygon.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string>
#include <vector>

#include <fmt/format.h>
#include <gtest/gtest.h>

#include "analysis/righting_arms/righting_arm_curve.h"
#include "fake_platform.h"
#include "geometry/case_geometry.h"

namespace zaview {

inline constexpr double kRad = std::numbers::pi / 180;

// n by m cells on the patch a + u (c - a) + v (b - a), in the SIMPLE form.
inline std::string PatchText(const Vector3& a, const Vector3& b, const Vector3& c, int n, int m) {
  std::string text = fmt::format("{} {}\n", n + 1, m + 1);
  for (int i = 0; i <= n; ++i)
    for (int j = 0; j <= m; ++j) {
      for (std::size_t k = 0; k < 3; ++k)
        text += fmt::format("{} ", a[k] + (c[k] - a[k]) * i / n + (b[k] - a[k]) * j / m);
      text += '\n';
    }
  return text;
}

// One half of a barge 100 x 20 x 10, keel at z = 0, open at the top: nx cells along, m across.
inline std::string HalfBargeText(int nx, int m) {
  return PatchText({50, 10, 0}, {50, 10, 10}, {-50, 10, 0}, nx, m) +
         PatchText({50, 10, 0}, {50, 0, 0}, {-50, 10, 0}, nx, m) +
         PatchText({50, 0, 0}, {50, 10, 0}, {50, 0, 10}, m, m) +
         PatchText({-50, 0, 0}, {-50, 10, 0}, {-50, 0, 10}, m, m);
}

struct HullRequest {
  std::string text;
  Triple GSHIFT{}, GROT_deg{};
  bool half = true;
  std::string format = "SIMPLE";
  std::vector<AddedGeometryInput> added{};  // of the same file
};

// As a run has it: moved and turned by record 24.
inline Hull ReadHull(const HullRequest& request) {
  FakePlatform fake;
  fake.Put("/hull", request.text);
  ControlRecords records;
  records.FGEOM = request.format + ":/hull";
  records.SYMINP = request.half ? 1 : 0;
  records.LENIN = 100;
  records.ANGIN = 1 / kRad;
  records.GSHIFT = request.GSHIFT;
  records.GROT = request.GROT_deg;
  records.added_geometry = request.added;
  for (AddedGeometryInput& added : records.added_geometry) added.CADDGEOMFILE = records.FGEOM;
  Hull hull;
  EXPECT_TRUE(ReadCaseGeometry(fake.Get(), records, "", hull)) << fake.output;
  return hull;
}

inline HydrostaticBody BodyOf(const Hull& hull, const Vector3& centre) {
  HydrostaticBody body;
  EXPECT_EQ(MakeHydrostaticBody(hull, centre, body), BodyFault::none);
  return body;
}

// n stations around a closed body of revolution about the x axis, its radius told by x from -1 to 1.
template <typename Radius>
HydrostaticBody Revolved(int along, int around, const Vector3& centre, Radius radius) {
  Hull hull;
  for (int i = 0; i <= along; ++i)
    for (int j = 0; j < around; ++j) {
      const auto [x, r] = radius(i, along);
      const double a = 2 * std::numbers::pi * j / around;
      hull.mesh.nodes.push_back({x, r * std::cos(a), r * std::sin(a)});
    }
  const auto node = [around](int i, int j) { return 1 + i * around + j % around; };
  for (int i = 0; i < along; ++i)
    for (int j = 0; j < around; ++j)
      hull.mesh.elements.push_back({{node(i, j), node(i + 1, j), node(i + 1, j + 1), node(i, j + 1)}});
  for (HullElement& e : hull.mesh.elements) std::reverse(e.node.begin(), e.node.end());
  return BodyOf(hull, centre);
}

using Point2 = std::array<double, 2>;  // y, z
struct Area {
  double A = 0, y = 0;  // and y of its centre
};

// Of the part of a polygon below z = level.
inline Area AreaBelow(const std::vector<Point2>& polygon, double level) {
  std::vector<Point2> wet;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const Point2 a = polygon[i], b = polygon[(i + 1) % polygon.size()];
    if (a[1] <= level) wet.push_back(a);
    if ((a[1] <= level) != (b[1] <= level)) {
      const double t = (level - a[1]) / (b[1] - a[1]);
      wet.push_back({a[0] + t * (b[0] - a[0]), level});
    }
  }
  Area area;
  double moment = 0;
  for (std::size_t i = 0; i < wet.size(); ++i) {
    const Point2 a = wet[i], b = wet[(i + 1) % wet.size()];
    const double cross = a[0] * b[1] - b[0] * a[1];
    area.A += cross / 2;
    moment += cross * (a[0] + b[0]) / 6;
  }
  if (area.A != 0) area.y = moment / area.A;
  return area;
}

// Righting arm of a prism at a heel: its section about the centre of gravity turned, the level found by halving.
inline double PrismArm(std::vector<Point2> section, double A, double heel) {
  double low = 0, high = 0;
  for (Point2& p : section) {
    p = {p[0] * std::cos(heel) - p[1] * std::sin(heel), p[0] * std::sin(heel) + p[1] * std::cos(heel)};
    low = std::min(low, p[1]), high = std::max(high, p[1]);
  }
  for (int i = 0; i < 200; ++i) (AreaBelow(section, (low + high) / 2).A < A ? low : high) = (low + high) / 2;
  return -AreaBelow(section, low).y;
}

}  // namespace zaview
