#include "geometry/closed_hull.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include <gtest/gtest.h>

#include "geometry/deck_edge.h"
#include "geometry/reflect_geometry.h"
#include "geometry/wetted_hull.h"
#include "meshes.h"

namespace zaview {
namespace {

using Depth = std::function<double(const Vector3&)>;

// n by m cells between a, b (station ahead, first to last waterline) and c (the last station's first point).
HullSurface Patch(const Vector3& a, const Vector3& b, const Vector3& c, int n, int m) {
  HullSurface surface;
  surface.KSTA = n + 1, surface.KWL = m + 1;
  for (int i = 0; i <= n; ++i)
    for (int j = 0; j <= m; ++j) {
      Vector3 p{};
      for (std::size_t k = 0; k < 3; ++k) p[k] = a[k] + (c[k] - a[k]) * i / n + (b[k] - a[k]) * j / m;
      surface.points.push_back(p);
    }
  return surface;
}

void Complete(Hull& hull) {
  FakePlatform fake;
  ASSERT_TRUE(ReflectGeometry(fake.Get().console, 100, hull));
}

// 100 x 20 x 10, open at the top and, in one form, at the stern; half, with cells in its centreplane.
Hull Barge(bool open_stern) {
  Hull hull;
  hull.surfaces = {
      Patch({50, 10, 0}, {50, 10, 10}, {-50, 10, 0}, 10, 4), Patch({-50, 0, 0}, {-50, 10, 0}, {50, 0, 0}, 10, 4),
      Patch({50, 0, 0}, {50, 10, 0}, {50, 0, 10}, 4, 4), Patch({50, 0, 0}, {50, 0, 10}, {-50, 0, 0}, 3, 3)};
  if (!open_stern) hull.surfaces.push_back(Patch({-50, 0, 0}, {-50, 10, 0}, {-50, 0, 10}, 4, 4));
  Complete(hull);
  return hull;
}

Hull WithFarNode(Hull hull) {  // which no element uses: it must not tell which way surfaces face
  hull.mesh.nodes.push_back({5000, 0, 5000});
  return hull;
}

Hull BoxMesh() {
  Hull hull;
  AddBox({-50, -10, 0}, {50, 10, 10}, hull.mesh);
  return hull;
}

// L 100, B 10, T 6.25 (keel at z = 0), vertical sides up to 10: y = (B/2) (1 - (2x/L)^2) (1 - (z'/T)^2). 41 x 17
// points.
Hull Wigley() {
  Hull hull;
  HullSurface surface;
  surface.KSTA = 41, surface.KWL = 17;
  for (int i = 0; i < 41; ++i)
    for (int j = 0; j < 17; ++j) {
      const double x = 50 - 2.5 * i, z = j < 10 ? 6.25 * j / 9 : 6.25 + 3.75 * (j - 9) / 7;
      const double below = std::max(0.0, 1 - z / 6.25);
      surface.points.push_back({x, 5 * (1 - x * x / 2500) * (1 - below * below), z});
    }
  hull.surfaces = {surface};
  Complete(hull);
  return hull;
}

Hull Reversed(Hull hull) {  // from the other end, and from deck to keel
  for (HullSurface& surface : hull.surfaces) std::reverse(surface.points.begin(), surface.points.end());
  return hull;
}

WettedHull Wetted(const ClosedHull& hull, const Depth& depth) {
  std::vector<double> d;
  for (const Vector3& p : hull.vertices) d.push_back(depth(p));
  WettedHull wet;
  EXPECT_TRUE(WetHull(hull, hull.vertices, d, wet));
  return wet;
}

double LengthOf(const WettedHull& wet, std::size_t from, std::size_t to) {
  double length = 0;
  for (std::size_t i = from; i < to; ++i) {
    const auto& [a, b] = wet.waterline[i];
    length += std::hypot(b[0] - a[0], b[1] - a[1], b[2] - a[2]);
  }
  return length;
}

TEST(ClosedHull, AreasAddToNothing) {
  const struct {
    const char* what;
    Hull hull;
    double volume, strip_area;
  } cases[] = {{"open at the top", Barge(false), 20000, 2000},
               {"and astern", Barge(true), 20000, 2200},
               {"the other way round", Reversed(Barge(true)), 20000, 2200},
               {"closed as it is", BoxMesh(), 20000, 0},
               {"beside a node of no element", WithFarNode(Barge(false)), 20000, 2000}};
  for (const auto& c : cases) {
    ClosedHull closed;
    ASSERT_TRUE(CloseHull(c.hull, 100, closed));
    Vector3 area{};
    double strips = 0, volume = 0;
    for (std::size_t i = 0; i < closed.triangles.size(); ++i) {
      const auto& [a, b, d] = closed.triangles[i];
      const Vector3 &p = closed.vertices[a], &q = closed.vertices[b], &r = closed.vertices[d];
      const Vector3 n = Cross({q[0] - p[0], q[1] - p[1], q[2] - p[2]}, {r[0] - p[0], r[1] - p[1], r[2] - p[2]});
      for (std::size_t k = 0; k < 3; ++k) area[k] += n[k] / 2;
      volume += (p[0] * n[0] + p[1] * n[1] + p[2] * n[2]) / 6;
      if (i >= closed.strips) strips += std::hypot(n[0], n[1], n[2]) / 2;
    }
    EXPECT_NEAR(std::hypot(area[0], area[1], area[2]), 0, 1e-9) << c.what;
    EXPECT_NEAR(volume, c.volume, 1e-8) << c.what;
    EXPECT_NEAR(strips, c.strip_area, 1e-9) << c.what;
    for (const Vector3& p : closed.vertices) EXPECT_LT(std::abs(p[0]), 51) << c.what;
  }
}

TEST(WettedHull, VolumesAndWaterplanes) {
  const double I = 100.0 * 20 * 20 * 20 / 12, slope = 0.2;  // the wedge formula: B moves I tan a / V, half of that up
  const double up = I * slope * slope / (2 * 12000);
  const double V = 2767.474, zB = 6.25 - 2.341331;  // of the same points, by another program
  const struct {
    const char* what;
    Hull hull;
    Depth depth;
    WetSums want;
    double within;
  } cases[] = {
      {"upright",
       Barge(false),
       [](const Vector3& p) { return 6 - p[2]; },
       {12000, {0, 0, 3}, 2000, 0, 0, I, 20.0 * 1e6 / 12},
       1e-9},
      {"heeled",
       Barge(true),
       [](const Vector3& p) { return 6 + 0.2 * p[1] - p[2]; },
       {12000, {0, I * slope / 12000, 3 + up}, 2000, 0, 0, I, 20.0 * 1e6 / 12},
       1e-9},
      {"the deck under water",
       BoxMesh(),
       [](const Vector3& p) { return 13 - p[2]; },
       {20000, {0, 0, 5}, 0, 0, 0, 0, 0},
       1e-8},
      {"dry", BoxMesh(), [](const Vector3& p) { return -p[2]; }, {}, 1e-12},
      {"to one side",
       BoxMesh(),
       [](const Vector3& p) { return p[0] / 10 - p[2]; },
       {2500, {50 - 50.0 / 3, 0, 5.0 / 3}, 1000, 25000, 0, 50 * 8000 / 12.0, 1000 * 2500 / 3.0},
       1e-9},
      {"parabolic", Wigley(), [](const Vector3& p) { return 6.25 - p[2]; }, {V, {0, 0, zB}, 666.25, 0, 0, 0, 0}, 2e-7},
      {"its other order",
       Reversed(Wigley()),
       [](const Vector3& p) { return 6.25 - p[2]; },
       {V, {0, 0, zB}, 666.25, 0, 0, 0, 0},
       2e-7},
  };
  for (const auto& c : cases) {
    ClosedHull closed;
    ASSERT_TRUE(CloseHull(c.hull, 100, closed));
    const WetSums got = SumWetHull(Wetted(closed, c.depth));
    EXPECT_NEAR(got.V, c.want.V, c.within * 20000) << c.what;
    for (std::size_t k = 0; k < 3; ++k) EXPECT_NEAR(got.B[k], c.want.B[k], c.within * 10) << c.what << k;
    EXPECT_NEAR(got.Awp, c.want.Awp, c.within * 2000) << c.what;
    EXPECT_NEAR(got.Sx, c.want.Sx, c.within * 1e5) << c.what;
    EXPECT_NEAR(got.Sy, c.want.Sy, c.within * 1e5) << c.what;
    if (c.want.Awp == 666.25) continue;
    EXPECT_NEAR(got.Ixx, c.want.Ixx, c.within * 1e6) << c.what;
    EXPECT_NEAR(got.Iyy, c.want.Iyy, c.within * 1e7) << c.what;
  }
}

TEST(WettedHull, Waterline) {
  ClosedHull closed;
  ASSERT_TRUE(CloseHull(Barge(true), 100, closed));
  WettedHull wet = Wetted(closed, [](const Vector3& p) { return 6 - p[2]; });
  EXPECT_NEAR(LengthOf(wet, 0, wet.shown_segments), 220, 1e-9) << "no stern";
  EXPECT_NEAR(LengthOf(wet, wet.shown_segments, wet.waterline.size()), 20, 1e-9) << "what closes it";
  for (const WaterlineSegment& segment : wet.waterline) EXPECT_NEAR(segment[0][2], 6, 1e-12);
  wet = Wetted(closed, [](const Vector3& p) { return 10 + p[0] - p[2]; });
  EXPECT_NEAR(LengthOf(wet, wet.shown_segments, wet.waterline.size()), 20, 1e-9) << "water across the deck";
  EXPECT_FALSE(WetHull(closed, closed.vertices, std::vector<double>(3), wet));
}

TEST(DeckEdge, HighestOutboardPoints) {
  const struct {
    const char* what;
    Hull hull;
    std::size_t points;
    double (*half)(double x);
  } cases[] = {{"open", Barge(true), 42, [](double) { return 10.0; }},
               {"with a deck", BoxMesh(), 42, [](double) { return 10.0; }},
               {"pointed", Wigley(), 42, [](double x) { return 5 * (1 - x * x / 2500); }}};
  for (const auto& c : cases) {
    ClosedHull closed;
    std::vector<Vector3> edge;
    ASSERT_TRUE(CloseHull(c.hull, 100, closed));
    ASSERT_TRUE(FindDeckEdge(closed, 100, edge));
    EXPECT_EQ(edge.size(), c.points) << c.what;
    double port = 0;
    for (const Vector3& p : edge) {
      EXPECT_NEAR(p[2], 10, 1e-3) << c.what << p[0];
      EXPECT_NEAR(std::abs(p[1]), c.half(p[0]), 1e-3) << c.what << p[0];
      port += p[1];
    }
    EXPECT_NEAR(port, 0, 1e-9) << c.what << ": as many on either side";
  }
}

}  // namespace
}  // namespace zaview
