#include "gks/kernel/clip_segment.h"

#include <cmath>
#include <numbers>
#include <random>

#include <gtest/gtest.h>

namespace zaview {
namespace {

constexpr GksRectangle kWindow{0, 10, 0, 10};

TEST(ClipSegment, FindsThePartInsideAndTheEdgesCrossed) {
  using enum WindowEdge;
  // clang-format off
  const struct { GksPoint a, b; bool visible; GksPoint from, to; WindowEdge in, out; } cases[] = {
      {{1, 1}, {9, 2}, true, {1, 1}, {9, 2}, none, none}, {{-5, 5}, {5, 5}, true, {0, 5}, {5, 5}, left, none},
      {{5, 5}, {5, 20}, true, {5, 5}, {5, 10}, none, top},
      {{-10, 0}, {30, 20}, true, {0, 5}, {10, 10}, left, top},  // through a corner: the last edge met
      {{15, 2}, {-5, 4}, true, {10, 2.5F}, {0, 3.5F}, right, left},
      {{-1, 1}, {1, -3}, false, {}, {}, none, none},  // cuts the corner off outside
      {{11, 0}, {11, 9}, false, {}, {}, none, none},  // beside, parallel
      {{0, 2}, {0, 8}, true, {0, 2}, {0, 8}, none, none},  // on the edge
      {{10, 5}, {15, 5}, true, {10, 5}, {10, 5}, none, right}, {{3, 3}, {3, 3}, true, {3, 3}, {3, 3}, none, none},
      {{NAN, 3}, {3, 3}, false, {}, {}, none, none}, {{3, 3}, {INFINITY, 3}, false, {}, {}, none, none},
  };
  // clang-format on
  for (const auto& c : cases) {
    const ClippedSegment part = CLIPSEG(kWindow, c.a, c.b);
    ASSERT_EQ(part.visible, c.visible) << c.a.x << " " << c.a.y;
    EXPECT_NEAR(part.from.x, c.from.x, 1e-5);
    EXPECT_NEAR(part.from.y, c.from.y, 1e-5);
    EXPECT_NEAR(part.to.x, c.to.x, 1e-5);
    EXPECT_NEAR(part.to.y, c.to.y, 1e-5);
    if (!c.visible) continue;
    EXPECT_EQ(part.in, c.in) << c.a.x << " " << c.a.y;
    EXPECT_EQ(part.out, c.out) << c.a.x << " " << c.a.y;
  }
}

double Area(const std::vector<GksPoint>& p) {
  double twice = 0;
  for (std::size_t i = 0; i < p.size(); ++i) {
    const GksPoint &a = p[i], &b = p[(i + 1) % p.size()];
    twice += static_cast<double>(a.x) * b.y - static_cast<double>(b.x) * a.y;
  }
  return std::abs(twice) / 2;
}

// Half plane by half plane (I. E. Sutherland, G. W. Hodgman, 1974): right for the area of any polygon.
double ReferenceArea(std::vector<GksPoint> p) {
  const double plane[4][3] = {{1, 0, 0}, {-1, 0, 10}, {0, 1, 0}, {0, -1, 10}};
  for (const auto& side : plane) {
    std::vector<GksPoint> next;
    for (std::size_t i = 0; i < p.size(); ++i) {
      const GksPoint a = p[i], b = p[(i + 1) % p.size()];
      const double da = side[0] * a.x + side[1] * a.y + side[2], db = side[0] * b.x + side[1] * b.y + side[2];
      const double t = da / (da - db);
      if (da >= 0) next.push_back(a);
      if ((da >= 0) != (db >= 0))
        next.push_back({static_cast<float>(a.x + t * (b.x - a.x)), static_cast<float>(a.y + t * (b.y - a.y))});
    }
    p = next;
  }
  return Area(p);
}

double ClippedArea(const std::vector<GksPoint>& p) {
  std::vector<float> x, y;
  for (const GksPoint& point : p) x.push_back(point.x), y.push_back(point.y);
  std::vector<GksPoint> out;
  EXPECT_TRUE(ClipPolygon(kWindow, x, y, out));
  for (const GksPoint& point : out) EXPECT_TRUE(gksInside(kWindow, point)) << point.x << " " << point.y;
  return Area(out);
}

TEST(ClipPolygon, HasTheAreaOfAnyConvexPolygonInTheWindow) {
  std::mt19937 random(7);
  std::uniform_real_distribution<float> centre(-6, 16), size(0.5F, 14), turn(0, 6.28F);
  for (int n = 0; n < 3000; ++n) {
    std::vector<GksPoint> p;
    const float x = centre(random), y = centre(random), rx = size(random), ry = size(random), start = turn(random);
    const int corners = 3 + n % 7;
    for (int i = 0; i < corners; ++i) {
      const float angle = (n % 2 == 0 ? 1.0F : -1.0F) * 2 * std::numbers::pi_v<float> * static_cast<float>(i) /
                              static_cast<float>(corners) +
                          start;
      p.push_back({x + rx * std::cos(angle), y + ry * std::sin(angle)});
    }
    ASSERT_NEAR(ClippedArea(p), ReferenceArea(p), 1e-3) << n;
  }
}

TEST(ClipPolygon, FollowsTheWindowBetweenExitAndReturn) {
  // clang-format off
  const struct { std::vector<GksPoint> p; double area; } cases[] = {
      {{{2, 2}, {14, 2}, {14, 4}, {2, 4}}, 16},  // out and back by one edge, no corner
      // a notch of 5 by 2: four corners
      {{{-5, -5}, {15, -5}, {15, 4}, {5, 4}, {5, 6}, {15, 6}, {15, 15}, {-5, 15}}, 90},
      {{{0, 0}, {10, 0}, {10, 10}, {0, 10}}, 100},  // the window itself
      {{{10, 0}, {20, 0}, {20, 10}, {10, 10}}, 0},  // touches it
      {{{2, 2}, {2, 2}, {2, 2}}, 0}, {{{1, 1}, {9, 9}}, 0}, {{}, 0}, {{{-5, -5}, {15, -5}, {15, 15}, {NAN, 15}}, 0},
  };
  // clang-format on
  for (const auto& c : cases) {
    EXPECT_NEAR(ClippedArea(c.p), c.area, 1e-4);
    EXPECT_NEAR(ClippedArea({c.p.rbegin(), c.p.rend()}), c.area, 1e-4);
  }
}

}  // namespace
}  // namespace zaview
