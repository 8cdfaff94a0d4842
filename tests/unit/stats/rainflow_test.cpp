// Rainflow counts of ASTM E1049-85's example, of records whose cycles are known, and against the definition by hand.
#include "stats/rainflow.h"

#include <cmath>
#include <map>
#include <random>

#include <gtest/gtest.h>

namespace zaview {
namespace {

using Counts = std::map<float, double>;  // by range

std::vector<RainflowCycle> CyclesOf(const std::vector<float>& x) {
  std::vector<RainflowCycle> cycles;
  CountRainflow(x, cycles);
  return cycles;
}

Counts CountsOf(const std::vector<float>& x) {
  Counts counts;
  for (const RainflowCycle& cycle : CyclesOf(x)) counts[cycle.range] += cycle.count();
  return counts;
}

TEST(Rainflow, CountsOfKnownRecords) {
  const struct {
    std::vector<float> x;
    Counts counts;
  } kCases[] = {
      {{-2, 1, -3, 5, -1, 3, -4, 4, -2}, {{3, 0.5}, {4, 1.5}, {6, 0.5}, {8, 1.0}, {9, 0.5}}},  // of the standard
      {{-2, -2, 0, 1, 1, -3, 5, 5, -1, 3, -4, 4, 4, -2, -2},
       {{3, 0.5}, {4, 1.5}, {6, 0.5}, {8, 1.0}, {9, 0.5}}},  // with level stretches and samples between
      {{0, 2, -2, 2, -2, 0}, {{2, 1.0}, {4, 1.5}}},          // equal ranges at the start and the end
      {{0, 9, 4, 6, 1}, {{2, 1.0}, {8, 0.5}, {9, 0.5}}},
      {{1, 2, 3}, {{2, 0.5}}},
      {{4, 4, 4}, {}},
      {{4}, {}},
      {{}, {}},
  };
  for (const auto& c : kCases) EXPECT_EQ(CountsOf(c.x), c.counts);
}

// 100 periods between two turning points: 99 cycles and halves, whatever the phase; damage as of one sine.
TEST(Rainflow, SineAndNoise) {
  std::vector<float> x;
  for (int i = 0; i <= 4000; ++i) x.push_back(static_cast<float>(3 * std::cos(i * 3.14159265358979 / 20)));
  const auto cycles = CyclesOf(x);
  EXPECT_EQ(TotalsOf(cycles).cycles, 100);
  EXPECT_NEAR(EquivalentRange(cycles, 4), 6, 1e-5);
  // Each turning point but the first closes half a cycle; the order of a million of them costs no square.
  std::mt19937 random(1);
  x.assign(1'000'000, 0);
  for (float& value : x) value = static_cast<float>(random() % 1000);
  std::vector<float> points;
  TurningPoints(x, points);
  EXPECT_EQ(2 * TotalsOf(CyclesOf(x)).cycles, static_cast<double>(points.size()) - 1);
  for (std::size_t i = 0; i < x.size(); ++i) x[i] = static_cast<float>(i) * (i % 2 == 0 ? 1.0F : -1.0F);
  EXPECT_EQ(2 * TotalsOf(CyclesOf(x)).cycles, 999'999);  // grows from the first to the last
}

TEST(Rainflow, BinsAndEquivalentRange) {
  const auto cycles = CyclesOf({-2, 1, -3, 5, -1, 3, -4, 4, -2});
  const std::vector<RangeBin> bins = BinRanges(cycles, 3);
  ASSERT_EQ(bins.size(), 3U);  // 0 to 3 to 6 to 9: a range on an edge belongs above it, the largest to the last
  const double counts[] = {0, 2, 2}, exceeding[] = {4, 4, 2};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(bins[i].cycles, counts[i]);
    EXPECT_EQ(bins[i].exceeding, exceeding[i]);
    EXPECT_EQ(bins[i].low, 3.0 * static_cast<double>(i));
  }
  EXPECT_EQ(bins[0].mean, 0);
  EXPECT_NEAR(bins[1].mean, (0.5 * -0.5 + 1 * 1 + 0.5 * -1) / 2, 1e-12);  // half of 4 stands about -1, another about 1
  EXPECT_NEAR(EquivalentRange(cycles, 3), std::cbrt((13.5 + 96 + 108 + 512 + 364.5) / 4), 1e-12);
  EXPECT_TRUE(BinRanges({}, 10).empty());
  EXPECT_EQ(EquivalentRange({}, 3), 0);
}

}  // namespace
}  // namespace zaview
