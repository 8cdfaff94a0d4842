// Where hull and sea are seen, against places computed here by the formulas of projection, rotation and waves.
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include <gtest/gtest.h>

#include "unit/views/motion_view.h"

namespace zaview {
namespace {

constexpr double kDegree = std::numbers::pi / 180.0;

struct Pixel {
  double x = 0, y = 0;
};

// The eye at a distance R from (x_cg, y_cg, 0): x = W/2 + s t q.r, y = H/2 - s t q.u, s = H / (2 R tan(aperture/2)), in
// perspective t = R / (R + q.d).
struct HandCamera {
  double azimuth, elevation, R, aperture;
  bool perspective;

  [[nodiscard]] Pixel At(const Vector3& q, int W, int H) const {
    const double a = azimuth * kDegree, e = elevation * kDegree;
    const auto dot = [&](double x, double y, double z) { return q[0] * x + q[1] * y + q[2] * z; };
    const double right = dot(-std::sin(a), std::cos(a), 0);
    const double up = dot(-std::sin(e) * std::cos(a), -std::sin(e) * std::sin(a), std::cos(e));
    const double into = -dot(std::cos(e) * std::cos(a), std::cos(e) * std::sin(a), std::sin(e));
    const double s = H / (2 * R * std::tan(aperture * kDegree / 2)) * (perspective ? R / (R + into) : 1);
    return {W / 2.0 + s * right, H / 2.0 - s * up};
  }
  void Set(Camera& camera) const {
    camera.view_azimuth = azimuth;
    camera.view_elevation = elevation;
    camera.view_radius = R;
    camera.view_width = aperture;
    camera.perspective = perspective;
  }
};

// Roll about x first, then pitch about y, then yaw about z; degrees.
Vector3 Turned(const Vector3& v, const Vector3& roll_pitch_yaw) {
  const double r = roll_pitch_yaw[0] * kDegree, p = roll_pitch_yaw[1] * kDegree, w = roll_pitch_yaw[2] * kDegree;
  const double y1 = std::cos(r) * v[1] - std::sin(r) * v[2], z1 = std::sin(r) * v[1] + std::cos(r) * v[2];
  const double x2 = std::cos(p) * v[0] + std::sin(p) * z1, z2 = -std::sin(p) * v[0] + std::cos(p) * z1;
  return {std::cos(w) * x2 - std::sin(w) * y1, std::sin(w) * x2 + std::cos(w) * y1, z2};
}

double Turn(Pixel a, Pixel b, Pixel c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

std::vector<Pixel> ConvexOutline(std::vector<Pixel> points) {
  std::sort(points.begin(), points.end(), [](Pixel a, Pixel b) { return a.x != b.x ? a.x < b.x : a.y < b.y; });
  std::vector<Pixel> ring;
  for (const bool back : {false, true}) {
    const std::size_t start = ring.size();
    for (const Pixel p : points) {
      while (ring.size() >= start + 2 && Turn(ring[ring.size() - 2], ring.back(), p) <= 0) ring.pop_back();
      ring.push_back(p);
    }
    ring.pop_back();
    if (!back) std::reverse(points.begin(), points.end());
  }
  return ring;
}

bool IsInside(const std::vector<Pixel>& ring, Pixel p) {
  for (std::size_t i = 0; i < ring.size(); ++i)
    if (Turn(ring[i], ring[(i + 1) % ring.size()], p) < 0) return false;
  return true;
}

// What is lit against a convex outline: edges within 2 pixels, centre within 1, common area 97.5 %.
void ExpectOutline(MotionView& v, const std::vector<Pixel>& ring) {
  const unsigned paper = v.Ink(0);
  Box lit, want;
  int common = 0;
  lit = v.BoxOf([paper](unsigned of) { return of != paper ? 1.0 : 0.0; });
  for (int y = 0; y < v.height; ++y) {
    for (int x = 0; x < v.width; ++x) {
      if (!IsInside(ring, {x + 0.5, y + 0.5})) continue;
      want.left = std::min(want.left, x), want.right = std::max(want.right, x);
      want.top = std::min(want.top, y), want.bottom = std::max(want.bottom, y);
      want.x += x, want.y += y, ++want.count;
      if (v.At(x, y) != paper) ++common;
    }
  }
  ASSERT_GT(want.count, 1000);
  EXPECT_NEAR(lit.left, want.left, 2);
  EXPECT_NEAR(lit.right, want.right, 2);
  EXPECT_NEAR(lit.top, want.top, 2);
  EXPECT_NEAR(lit.bottom, want.bottom, 2);
  EXPECT_NEAR(lit.x, want.x / want.count, 1);
  EXPECT_NEAR(lit.y, want.y / want.count, 1);
  EXPECT_GE(common, 0.975 * want.count);
  EXPECT_GE(common, 0.975 * lit.count);
}

std::vector<Pixel> BoxOutline(const HandCamera& camera, const Vector3& half, double z, const Vector3& turn, int W,
                              int H) {
  std::vector<Pixel> corners;
  for (const double x : {-half[0], half[0]})
    for (const double y : {-half[1], half[1]})
      for (const double h : {-half[2], half[2]}) {
        Vector3 q = Turned({x, y, h}, turn);
        q[2] += z;
        corners.push_back(camera.At(q, W, H));
      }
  return ConvexOutline(corners);
}

// Rolled, pitched and yawed together: a wrong order of the turns, or a wrong sign, is seen from one side or another.
// Extents of some pictures are known from another program.
TEST(MotionScene, HullStandsWhereItsMotionsTell) {
  struct Extents {
    double left, right, top, bottom;
  };
  const struct {
    HandCamera camera;
    Extents known;
    bool white;
  } cases[] = {
      {{90, 0, 160, 30, false}, {206.6, 593.4, 223.8, 397.2}, false},
      {{0, 0, 160, 30, false}, {}, true},
      {{35, 20, 160, 30, false}, {268.7, 531.3, 200.4, 419.3}, false},
      {{35, 20, 160, 30, true}, {286.7, 555.0, 215.6, 444.2}, true},
      {{215, -25, 160, 30, true}, {}, false},
      {{270, 10, 300, 20, false}, {}, false},
      {{270, 90, 160, 30, false}, {}, true},
      {{0, -90, 160, 30, true}, {}, false},
  };
  const Vector3 half{30, 10, 6}, turn{18, -7, 50};
  MotionView v;
  v.MakeCase(2);
  v.AddBox({-30, -10, -6}, {30, 10, 6});
  v.SetPose(2, {98765.4, -4321, -1.5}, turn);
  v.store().current_step = 2;
  v.view().shading_on = false;
  v.view().fs_opacity = 0;
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.camera.azimuth << ' ' << c.camera.elevation << ' ' << c.camera.perspective);
    gksSetReverse(v.session.gks, c.white);
    c.camera.Set(v.view().view);
    v.Show();
    const std::vector<Pixel> ring = BoxOutline(c.camera, half, -1.5, turn, v.width, v.height);
    ExpectOutline(v, ring);
    if (c.known.right == 0) continue;
    const auto [left, right] = std::minmax_element(ring.begin(), ring.end(), [](auto p, auto q) { return p.x < q.x; });
    const auto [top, bottom] = std::minmax_element(ring.begin(), ring.end(), [](auto p, auto q) { return p.y < q.y; });
    EXPECT_NEAR(left->x, c.known.left, 0.1);
    EXPECT_NEAR(right->x, c.known.right, 0.1);
    EXPECT_NEAR(top->y, c.known.top, 0.1);
    EXPECT_NEAR(bottom->y, c.known.bottom, 0.1);
  }
}

// By column: upper and lower edge of the sea, half its depth of s (2 g / 3) sin e from eta s cos e above the middle.
TEST(MotionScene, SeaStandsWhereItsWavesTell) {
  const std::vector<WaveOfTest> head = {{0.9, 180, 2.2, 20}, {0.55, 180, 1.5, -60}},
                                crossing = {{0.9, 20, 2.2, 180}, {0.55, -60, 1.5, 180}};
  EXPECT_NEAR(MotionView::Elevation(head, 76, -9, 15.1), 2.6955, 1e-3);
  const struct {
    std::vector<WaveOfTest> waves;
    double azimuth;
  } cases[] = {{head, 270}, {crossing, 270}, {{{0.7, 90, 2, 30}}, 0}, {{{0.8, 180, 2, 75}}, 90}};
  for (const auto& c : cases) {
    MotionView v(1200, 900);
    v.MakeCase();
    v.AddSea(c.waves);
    v.SetTime(1, 15.1);
    v.SetPose(1, {36, -9, 0}, {0, 0, 30});
    v.view().fs_grid_size = 100;
    const HandCamera camera{c.azimuth, 12, 320, 30, false};
    camera.Set(v.view().view);
    for (const float opacity : {0.6F, 1.0F}) {
      v.view().fs_opacity = opacity;
      v.Show();
      const bool along_x = c.azimuth != 0;  // the columns go along the ship's way
      const double half = along_x ? 200.0 / 3 : 100, reach = along_x ? 100 : 200.0 / 3;
      double sum = 0;
      int count = 0;
      for (double along = -0.95 * reach; along < 0.95 * reach; along += reach / 15) {
        const auto edge = [&](double side) {
          const double a = c.azimuth * kDegree, across = side * half;  // away from the eye is up
          const double x = along_x ? along : -across * std::cos(a), y = along_x ? -across * std::sin(a) : along;
          return camera.At({x, y, MotionView::Elevation(c.waves, 36 + x, -9 + y, 15.1)}, v.width, v.height);
        };
        const Pixel top = edge(1), bottom = edge(-1);
        const int column = static_cast<int>(top.x);
        int first = 0, last = v.height - 1;
        while (first < last && v.At(column, first) == v.Ink(0)) ++first;
        while (last > first && v.At(column, last) == v.Ink(0)) --last;
        EXPECT_NEAR(first, top.y, 3) << c.azimuth << ' ' << along;
        EXPECT_NEAR(last + 1, bottom.y, 3) << c.azimuth << ' ' << along;
        sum += std::abs(first - top.y) + std::abs(last + 1 - bottom.y);
        count += 2;
      }
      EXPECT_LT(sum / count, 1);
    }
  }
}

}  // namespace
}  // namespace zaview
