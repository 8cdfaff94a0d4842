// Where hull and sea are seen, against places computed here by the formulas of projection, rotation and waves.
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>
#include <vector>

#define GL_GLEXT_PROTOTYPES
#include <GL/gl.h>
#include <GL/glext.h>
#include <gtest/gtest.h>

#include "unit/views/motion_view.h"
#include "views/motion/hull_parts.h"

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

// Long crests from ahead, an open box with a deep floor: the sea covers its side up to the elevation there, where the
// waterline is, and nothing of its inside.
TEST(MotionScene, HullStandsInTheWater) {
  const std::vector<WaveOfTest> waves = {{0.8, 180, 2, 75}};
  MotionView v;
  v.MakeCase();
  v.AddBox({-30, -10, -8}, {30, 10, 6}, false);
  v.AddSea(waves);
  v.SetTime(1, 3);
  v.SetPose(1, {500, 0, -0.5}, {0, 0, 0});
  const auto show = [&](float opacity, bool waterline) {
    v.view().fs_opacity = opacity;
    v.view().show_waterline = waterline;
    v.Show();
    return static_cast<const Picture&>(v);
  };
  const HandCamera beam{90, 6, 150, 30, false};
  beam.Set(v.view().view);
  const Picture dry = show(0, false), wet = show(1, false), line = show(1, true);
  double sum = 0;
  int columns = 0;
  for (double x = -29; x < 30; x += 1, ++columns) {
    const Pixel want = beam.At({x, 10, MotionView::Elevation(waves, 500 + x, 10, 3)}, v.width, v.height);
    const int column = static_cast<int>(want.x);
    int top = static_cast<int>(beam.At({x, 10, -3.5}, v.width, v.height).y);  // under water
    ASSERT_NE(dry.At(column, top), wet.At(column, top)) << x;
    while (dry.At(column, top) != wet.At(column, top)) --top;
    EXPECT_NEAR(top + 1, want.y, 3) << x;
    sum += std::abs(top + 1 - want.y);
    int yellow = 0;
    for (int y = top - 3; y <= top + 3; ++y)
      if (line.At(column, y) != wet.At(column, y)) ++yellow;
    EXPECT_GE(yellow, 1) << x;
  }
  EXPECT_LT(sum / columns, 1);

  const HandCamera above{40, 45, 150, 30, true};
  above.Set(v.view().view);
  const Picture empty = show(0, false), full = show(1, false);
  std::vector<Pixel> rim;
  for (const double x : {-29.5, 29.5})
    for (const double y : {-9.5, 9.5}) rim.push_back(above.At({x, y, 5.5}, v.width, v.height));
  rim = ConvexOutline(rim);
  int inside = 0, different = 0;
  for (int y = 0; y < v.height; ++y)
    for (int x = 0; x < v.width; ++x)
      if (IsInside(rim, {x + 0.5, y + 0.5})) ++inside, different += empty.At(x, y) != full.At(x, y) ? 1 : 0;
  EXPECT_GT(inside, 10000);
  EXPECT_EQ(different, 0);
}

int Different(const Picture& a, const Picture& b) {
  int count = 0;
  for (int y = 0; y < a.height; ++y)
    for (int x = 0; x < a.width; ++x) count += a.At(x, y) != b.At(x, y) ? 1 : 0;
  return count;
}

// What is drawn beside, beneath and through other things, told by pictures that are the same or not.
TEST(MotionScene, LooksActAsTheyAreCalled) {
  const std::vector<WaveOfTest> waves = {{0.7, 120, 2, 0}};
  MotionView v(500, 400);
  v.MakeCase(3);
  v.AddBox({-30, -10, -6}, {30, 10, 6});
  v.AddSea(waves);
  for (int step = 1; step <= 3; ++step) v.SetPose(step, {20.0 * step, 0, -1}, {0, 0, 0});
  v.store().current_step = 3;
  const auto show = [&](auto change) {
    static const MotionViewState fresh;
    v.view() = fresh;
    v.view().show_title = v.view().show_time = false;
    change(v.view());
    v.Show();
    return static_cast<const Picture&>(v);
  };
  const auto hull_alone = [](MotionViewState& m) { m.fs_opacity = 0; };
  const Picture plain = show([](auto&) {}), hull = show(hull_alone);
  EXPECT_EQ(Different(plain, show([](auto&) {})), 0);  // the same once more
  EXPECT_EQ(Different(hull, show([](auto& m) { m.fs_opacity = 0.04F; })), 0);
  EXPECT_EQ(Different(hull, show([](auto& m) { m.fs_solid = false; })), 0);
  // At full opacity nothing that is under water shows: a keel makes no difference.
  const auto solid = [](MotionViewState& m) { m.fs_opacity = 1, m.view.view_radius = 250, m.shading_on = false; };
  const Picture shallow = show(solid);
  v.AddBox({-30, -10, -20}, {30, 10, 6});
  EXPECT_LT(Different(shallow, show(solid)), 10);
  v.AddBox({-30, -10, -6}, {30, 10, 6});
  const struct {
    const char* name;
    void (*change)(MotionViewState& m);
    int least;  // pixels that differ from the plain picture
  } looks[] = {
      {"wire", [](auto& m) { m.hull_wire = true; }, 300},
      {"wire sea", [](auto& m) { m.fs_wire = true; }, 5000},
      {"through the hull", [](auto& m) { m.body_transparent = true; }, 5000},
      {"no light", [](auto& m) { m.shading_on = false; }, 50000},
      {"more light", [](auto& m) { m.ambient = 0.8F; }, 50000},
      {"track", [](auto& m) { m.show_track = true; }, 50},
      {"centres", [](auto& m) { m.show_centres = true; }, 60},
      {"marked point", [](auto& m) { m.mark_point = true; }, 17},
      {"horizon", [](auto& m) { m.horizon = true; }, 10000},
      {"orthographic", [](auto& m) { m.view.perspective = false; }, 5000},
  };
  for (const auto& look : looks) EXPECT_GT(Different(plain, show(look.change)), look.least) << look.name;
}

// Roll 10, pitch 5, yaw 30: the global X and Y of a ship point, seen on a map.
TEST(MotionScene, MarksThePointOfShipFixedQuantities) {
  MotionView v;
  v.MakeCase();
  v.SetPose(1, {0, 0, 0}, {10, 5, 30});
  v.view().fs_opacity = 0;
  v.view().mark_point = true;
  v.view().view = {{}, 270, 90, 30, 200, false};
  v.session.output.point.point = {40 / MotionView::kLength, -8 / MotionView::kLength, 3 / MotionView::kLength};
  v.Show();
  const Box cross = v.BoxOf([&v](unsigned of) { return of == v.Ink(1) ? 1.0 : 0.0; });
  constexpr double kX = 0.862730 * 40 + 0.479297 * 8 + 0.161156 * 3, kY = 0.498097 * 40 - 0.860436 * 8 - 0.107468 * 3;
  EXPECT_NEAR(cross.x, 400 + 5.598076 * kX, 1);
  EXPECT_NEAR(cross.y, 300 - 5.598076 * kY, 1);
}

// What the driver keeps is gone with the context; a window that replaces another one shows the same.
TEST(MotionScene, IsMadeAnewInAnotherContext) {
  MotionView v(300, 200);
  v.MakeCase();
  v.AddBox({-30, -10, -6}, {30, 10, 6});
  v.Show();
  const Picture before = v;
  glDeleteBuffers(3, v.view().scene.hull.kept.data());
  FeedEvent(*v.windows, {FedEvent::Kind::close, 1});
  const WindowSystem& window = v.session.platform.window;
  window.main_loop(window.self);
  EXPECT_EQ(window.create_window(window.self, "again", 0, 0, 300, 200), 1);
  v.Show();
  EXPECT_EQ(Different(before, v), 0);
}

// Brightness of the lid: ambient + (1 - ambient) |n.v|, whichever way its corners go round.
TEST(MotionScene, LightIsAtTheEyeAndOnBothSides) {
  MotionView v(200, 200);
  v.MakeCase();
  v.view().fs_opacity = 0;
  v.view().view = {{}, 20, 90, 3, 3000, true};
  for (const bool turned : {false, true}) {
    v.AddBox({-30, -30, -6}, {30, 30, 6});
    if (turned)
      for (HullElement& element : v.store().hull.mesh.elements) std::swap(element.node[0], element.node[2]);
    for (const double elevation : {90.0, 30.0, -30.0, -90.0}) {
      v.view().view.view_elevation = elevation;
      v.Show();
      const double light = 0.3 + 0.7 * std::abs(std::sin(elevation * kDegree));
      const unsigned middle = v.At(100, elevation > 0 ? 99 : 101);
      EXPECT_NEAR(middle >> 16U, kHullInk[0] * light, 2.5) << elevation << turned;
      EXPECT_NEAR(middle & 0xFFU, kHullInk[2] * light, 2.5) << elevation << turned;
    }
  }
}

// The hull alone, by where the camera stands.
TEST(MotionScene, CameraGoesAlong) {
  MotionView v(400, 300);
  v.MakeCase(2);
  v.AddBox({-30, -10, -6}, {30, 10, 6});
  v.view().fs_opacity = 0;
  const auto show = [&](CameraStand stand, const Vector3& cg, const Vector3& turn) {
    v.view().stand = stand;
    v.SetPose(1, cg, turn);
    v.Show();
    return static_cast<const Picture&>(v);
  };
  using enum CameraStand;
  v.view().view.view_centre = {5, 3, 1};
  const Picture upright = show(heading, {0, 0, 0}, {0, 0, 0});
  EXPECT_LT(Different(upright, show(heading, {80, 5, 0}, {0, 0, 70})), 60);  // pixels at edges
  EXPECT_GT(Different(upright, show(ship, {80, 5, 0}, {0, 0, 70})), 2000);
  EXPECT_EQ(Different(upright, show(ship, {9000, 5, 0}, {0, 0, 0})), 0);
  v.view().view = {{}, 90, 0, 30, 300, false};
  const Picture first = show(earth, {100, 0, 0}, {0, 0, 0}), moved = show(earth, {110, 0, 0}, {0, 0, 0});
  const auto lit = [](unsigned of) { return of != 0 ? 1.0 : 0.0; };
  EXPECT_NEAR(first.BoxOf(lit).x - moved.BoxOf(lit).x, 10 * 300 / (600 * std::tan(15 * kDegree)), 1);
  EXPECT_EQ(Different(first, show(ship, {500, 0, 0}, {0, 0, 0})), 0);
  const Picture watch = show(bridge, {0, 0, 0}, {0, 0, 0});
  EXPECT_NEAR(watch.BoxOf(lit).x, 199.5, 0.6);  // the deck ahead
  EXPECT_LT(Different(watch, show(bridge, {3000, 70, 2}, {25, -8, 130})), 60);
}

// Colours of the side by height: wet up to the sea of the step, been wet up to that of the step before, then dry.
TEST(MotionScene, HullTellsWhereItIsWet) {
  MotionView v;
  v.MakeCase(3);
  v.AddBox({-30, -10, -6}, {30, 10, 6});
  const double height[] = {2, -4, -1};  // of the box's middle above the still water
  for (int step = 1; step <= 3; ++step) v.SetPose(step, {0, 0, height[step - 1]}, {0, 0, 0});
  v.store().last_step = 3;
  v.store().current_step = 3;
  v.view().hull_colour = HullColour::wetness;
  v.view().fs_opacity = 0;
  v.view().shading_on = false;
  const HandCamera beam{90, 0, 100, 30, false};
  beam.Set(v.view().view);
  v.Show();
  const auto at = [&](double above_middle) {
    const Pixel p = beam.At({5, 10, above_middle + height[2]}, v.width, v.height);
    return v.At(static_cast<int>(p.x), static_cast<int>(p.y));
  };
  const auto ink = [](const SceneColour& c) {
    return static_cast<unsigned>(c[0]) << 16U | static_cast<unsigned>(c[1]) << 8U | c[2];
  };
  EXPECT_EQ(at(-5), ink(kWetInk));
  EXPECT_EQ(at(2.5), ink(kWasWetInk));  // up to 4 at step 2
  EXPECT_EQ(at(5.5), ink(kHullInk));
}

// Corners c +- span/2 +- chord/2; the chord of a rudder turned by its deflection and the angle of the step, that of
// another fin by its deflection alone.
TEST(MotionScene, RudderTurnsAndOtherFinsStandStill) {
  const struct {
    Vector3 centre;
    double turned;  // degrees
  } fins[] = {{{-48, 0, 3}, 35}, {{20, 4, 1}, 10}};
  MotionView v;
  v.MakeCase();
  ControlRecords& control = v.store().control;
  control.LENIN = MotionView::kLength;
  control.ANGIN = 1 / kDegree;
  v.store().rudder_ang.component[0][0] = static_cast<float>(25 * kDegree);
  v.view().fs_opacity = 0;
  v.view().shading_on = false;
  for (const auto& fin : fins) {
    control.fins = {{{fin.centre[0], fin.centre[1], fin.centre[2]}, {0, 0, 1}, {1, 0, 0}, 6, 4, 10}};
    v.view().view.view_centre = {fin.centre[0], fin.centre[1], fin.centre[2]};
    const HandCamera camera{270, 45, 20, 30, false};
    camera.Set(v.view().view);
    std::vector<Pixel> corners;
    for (const double z : {-3.0, 3.0})
      for (const double x : {-2.0, 2.0}) corners.push_back(camera.At(Turned({x, 0, z}, {0, 0, fin.turned}), 800, 600));
    v.Show();
    ExpectOutline(v, ConvexOutline(corners));
    v.view().show_rudders = false;
    v.Show();
    EXPECT_EQ(v.BoxOf([](unsigned of) { return of != 0 ? 1.0 : 0.0; }).count, 0);
    v.view().show_rudders = true;
  }
}

// By the CG of every step up to now, seen through whatever hides it.
TEST(MotionScene, TrackGoesThroughHullAndSea) {
  MotionView v(500, 400);
  v.MakeCase(4);
  const Vector3 way[] = {{-60, 40, 0}, {-40, 20, 0}, {0, 0, 0}, {60, 0, 0}};
  for (int step = 1; step <= 4; ++step) v.SetPose(step, way[step - 1], {0, 0, 0});
  v.AddBox({-10, -10, -6}, {10, 10, 6});
  v.store().current_step = 3;
  v.view().show_track = true;
  const HandCamera map{270, 90, 400, 30, false};
  map.Set(v.view().view);
  for (const float opacity : {0.0F, 1.0F}) {
    v.view().fs_opacity = opacity;
    v.Show();
    const Box box = v.BoxOf([](unsigned of) { return (of >> 16U) > 110 && (of >> 8U & 0xFFU) > 105 ? 1.0 : 0.0; });
    const Pixel first = map.At(way[0], 500, 400), last = map.At(way[2], 500, 400);
    EXPECT_NEAR(box.left, first.x, 4) << opacity;
    EXPECT_NEAR(box.top, first.y, 4) << opacity;
    EXPECT_NEAR(box.right, last.x, 4) << opacity;
    EXPECT_NEAR(box.bottom, last.y, 4) << opacity;
  }
}

TEST(MotionScene, EntryTellsKeysAndTakesTheFirstStepOnce) {
  MotionView v(200, 150);
  v.MakeCase(9);
  v.store().last_step = 7;
  v.view().initial_step = 8;
  v.session.run.script_active = false;
  KinoPlotInit(v.session);
  EXPECT_EQ(v.store().current_step, 7);
  EXPECT_EQ(v.fake.output,
            "Hit the 'q' key to exit the plot and return to the text menu\nHit the 'h' key for HELP\n"
            "Hit 'Alt-o' to invoke the plot options menu,\n which includes time-history overlay plots\n"
            "Hit 'Alt-space' to invoke the time stepping menu\n"
            "Mouse click with Alt or Ctrl keys will invoke pop-up menu\n");
  v.store().current_step = 3;
  v.session.run.script_active = true;
  KinoPlotInit(v.session);
  EXPECT_EQ(v.store().current_step, 3);
}

TEST(MotionScene, TheSeaIsMadeOfNumbersWhateverItsSize) {
  for (const float size : {std::numeric_limits<float>::denorm_min(), std::numeric_limits<float>::max()}) {
    MotionView v(100, 75);
    v.MakeCase();
    v.AddSea({{0.8, 180, 2, 75}});
    v.view().fs_grid_size = size;
    v.view().horizon = true;
    v.Show();
    for (const SceneVertex& vertex : v.view().scene.sea.vertices)
      ASSERT_TRUE(std::isfinite(vertex.place[0]) && std::isfinite(vertex.normal[2])) << size;
  }
}

TEST(MotionScene, DoesWithoutWhatIsMissing) {
  MotionView v(200, 150);
  v.MakeCase();
  v.store().seaway_tried = Tried::not_yet;
  v.store().control.seaway.ISEA = 99;
  v.Show();
  v.Show();
  const Box sea = v.BoxOf([](unsigned of) { return of != 0 ? 1.0 : 0.0; });
  EXPECT_GT(sea.count, 5000);
  EXPECT_EQ(v.fake.output.find("Incident wave data will not be available"),
            v.fake.output.rfind("Incident wave data will not be available"));
  v.session.platform.window.begin_scene = [](void*, int, bool, std::string& why) {
    why = "no OpenGL configuration";
    return false;
  };
  v.fake.output.clear();
  v.Show();
  EXPECT_EQ(v.session.run.plot_module, PlotModule::none);
  EXPECT_EQ(v.fake.output, "GLGKS - no OpenGL configuration\n");
}

}  // namespace
}  // namespace zaview
