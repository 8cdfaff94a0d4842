#include "gks/plot/dense_curve.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <random>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "gks/kernel/gks_transform.h"

namespace zaview {
namespace {

GksState Graph(float x0, float x1, float y1) {
  GksState gks;
  gks.window.width = 200;
  gks.window.height = 100;
  EXPECT_TRUE(GSWKWN(gks, {0, 1, 0, 0.5F}));
  GSWN(gks, 2, {x0, x1, -y1, y1});
  GSVP(gks, 2, {0.1013F, 0.913F, 0.1F, 0.45F});
  GSELNT(gks, 2);
  return gks;
}

// What a polyline lights: the rows between both ends of its segments inside a column (a row is an edge between pixels,
// so the range has no end to leave out), and its segments from column to column as they are.
struct Lit {
  std::map<int, std::pair<int, int>> rows;
  std::vector<std::pair<GksPixel, GksPixel>> across;
};

Lit Raster(const GksState& gks, const std::vector<float>& x, const std::vector<float>& y) {
  const GksRectangle window = gks.transform[2].window;
  const int top = gksToPixel(gks, {0, window.ymax}).y, bottom = gksToPixel(gks, {0, window.ymin}).y;
  const auto row = [&](GksPixel at) { return std::clamp(at.y, top, bottom); };
  Lit out;
  for (std::size_t i = 1; i < x.size(); ++i) {
    const GksPixel a = gksToPixel(gks, {x[i - 1], y[i - 1]}), b = gksToPixel(gks, {x[i], y[i]});
    if (a.x != b.x) {
      out.across.emplace_back(a, b);
      continue;
    }
    auto& rows = out.rows.try_emplace(a.x, row(a), row(a)).first->second;
    rows = {std::min({rows.first, row(a), row(b)}), std::max({rows.second, row(a), row(b)})};
  }
  return out;
}

void ExpectSamePicture(const GksState& gks, const std::vector<float>& x, const std::vector<float>& y) {
  CurvePoints thin;
  ASSERT_TRUE(ThinCurve(gks, x, y, false, thin));
  const Lit want = Raster(gks, x, y), got = Raster(gks, thin.x, thin.y);
  for (const auto& [column, rows] : want.rows) {
    const auto found = got.rows.find(column);
    if (found == got.rows.end()) EXPECT_EQ(rows.first, rows.second) << column;
    else EXPECT_EQ(found->second, rows) << column;
  }
  ASSERT_EQ(got.across.size(), want.across.size());
  for (std::size_t i = 0; i < want.across.size(); ++i) {
    EXPECT_EQ(got.across[i].first.y, want.across[i].first.y) << i;
    EXPECT_EQ(got.across[i].second.x, want.across[i].second.x) << i;
    EXPECT_EQ(got.across[i].second.y, want.across[i].second.y) << i;
  }
}

TEST(DenseCurve, SamePicture) {
  std::mt19937 random(7);
  std::uniform_real_distribution<float> noise(-1.0F, 1.0F);
  std::vector<float> t, sine, rough, back, still;
  for (int i = 0; i < 20000; ++i) {
    const float time = 0.01F * static_cast<float>(i);
    t.push_back(time);
    sine.push_back(std::sin(time));
    rough.push_back(noise(random));
    back.push_back(100 + 100 * std::sin(0.01F * time));  // goes back and forth
    still.push_back(50);
  }
  for (const auto& [x0, x1] : {std::pair{0.0F, 200.0F}, {200.0F, 0.0F}, {50.03F, 60.07F}, {0.0F, 1e6F}}) {
    for (const float y1 : {1.0F, 0.4F})  // the second one clips
      for (const auto* x : {&t, &back, &still})
        for (const auto* y : {&sine, &rough}) ExpectSamePicture(Graph(x0, x1, y1), *x, *y);
  }
  CurvePoints thin;
  ASSERT_TRUE(ThinCurve(Graph(0, 200, 1.1F), t, rough, false, thin));
  EXPECT_LE(thin.x.size(), 4U * 164U);
}

TEST(DenseCurve, KeepsInOrder) {
  const float nan = std::numeric_limits<float>::quiet_NaN(), infinite = std::numeric_limits<float>::infinity();
  // clang-format off
  const struct { std::vector<float> y; bool log_y; std::vector<float> want; } cases[] = {
      {{}, false, {}}, {{3}, false, {3}}, {{1, 2, 9, 4, 0, 5, 6}, false, {1, 9, 0, 5, 6}},
      {{1, 2, 9, 4, 9}, false, {1, 9, 4, 9}},  // comes back to the highest: that row is drawn
      {{5, 7, nan, 8, 9, 8}, false, {5, 7, nan, 8, 9, 8}},
      {{5, 6, infinite, 7, 6.5F, 8}, false, {5, 6, infinite, 7, 6.5F, 8}},
      {{1, 0, -3, 2, 0.5F, 1.5F, 3}, true, {1, 0.5F, 3}},
  };
  // clang-format on
  for (const auto& c : cases) {
    const std::vector<float> x(c.y.size(), 50);
    CurvePoints thin;
    ASSERT_TRUE(ThinCurve(Graph(0, 100, c.log_y ? 1.0F : 10.0F), x, c.y, c.log_y, thin));
    ASSERT_EQ(thin.y.size(), c.want.size());
    for (std::size_t i = 0; i < c.want.size(); ++i)
      EXPECT_TRUE(thin.y[i] == c.want[i] || std::isnan(c.want[i])) << i << ' ' << thin.y[i];
  }
}

// Clipping starts at the window's edge, which lies inside a column: points beyond it must not stand for points within.
TEST(DenseCurve, EdgeOfTheWindow) {
  const GksState gks = Graph(0, 1e4F, 1);
  const std::vector<float> x = {-2, -1, -0.5F, 0.5F, 1, 1.5F}, y = {0.9F, -0.9F, 0, 0.1F, 0.2F, 0.1F};
  ASSERT_EQ(gksToPixel(gks, {-0.5F, 0}).x, gksToPixel(gks, {0.5F, 0}).x);
  CurvePoints thin;
  ASSERT_TRUE(ThinCurve(gks, x, y, false, thin));
  EXPECT_EQ(thin.x, (std::vector<float>{-2, -1, -0.5F, 0.5F, 1, 1.5F}));
}

TEST(DenseCurve, CoarseOnesKeepEachPeak) {
  std::mt19937 random(3);
  std::vector<float> x, y;
  for (int i = 0; i < 10'007; ++i) x.push_back(static_cast<float>(i)), y.push_back(static_cast<float>(random() % 1000));
  y[0] = std::numeric_limits<float>::quiet_NaN();
  CurvePoints coarse;
  ASSERT_TRUE(CoarseCurve(x, y, 100, coarse));
  EXPECT_LE(coarse.x.size(), 4U * 101);
  EXPECT_TRUE(std::is_sorted(coarse.x.begin(), coarse.x.end()));
  EXPECT_EQ(coarse.x.back(), x.back());
  for (std::size_t from = 1; from + 100 <= y.size(); from += 100) {
    const auto [low, high] = std::minmax_element(y.begin() + from, y.begin() + from + 99);
    for (const auto peak : {low, high})
      EXPECT_TRUE(std::any_of(coarse.y.begin(), coarse.y.end(), [peak](float kept) { return kept == *peak; }));
  }
}

}  // namespace
}  // namespace zaview
