#include "stats/highest_peaks.h"

#include <array>

#include <gtest/gtest.h>

#include "stats/record_stats.h"
#include "worked_records.h"

namespace zaview {
namespace {

TEST(HighestPeaks, WorkedRecords) {
  const int N[] = {3, 10, 100};
  // clang-format off
  const struct { int record; std::array<double, 3> top, bot, amp; double avgc, avgp; } cases[] = {
      {1, {3.763, 4.273, 0.41592675}, {-3.62175, -4.882, 0.41592675}, {3.7114816, 4.542976, 0}, 0.45314613, 0.41467643},
      {2, {1.3646001, 1.4413333, 0.23818752}, {-0.89039993, -0.93866664, 0.23818752}, {1.1241815, 1.1899999, 1.2408124},
       0.23851667, 0.23851667},
  };
  // clang-format on
  for (const auto& c : cases) {
    const std::span<const float> x = WorkedRecord(c.record);
    std::array<HighestPeaks, 3> out;
    CalcAvgHighestPeaks(N, x, MeanOf(x), out);
    for (std::size_t j = 0; j < out.size(); ++j) {
      ExpectClose(out[j].top, c.top[j], "top");
      ExpectClose(out[j].bot, c.bot[j], "bot");
      ExpectClose(out[j].amp, c.amp[j], "amp");
      HighestPeaks alone;  // shared sorting must not change a sum
      CalcAvgHighestPeaks(std::span(N).subspan(j, 1), x, MeanOf(x), std::span(&alone, 1));
      EXPECT_TRUE(alone.top == out[j].top && alone.bot == out[j].bot && out[j].iflag == 2);
    }
    BetweenAverages between;
    CalcAvgBetween(WorkedTimes(x.size()), x, MeanOf(x), between);
    ExpectClose(between.avgc, c.avgc, "avgc");
    ExpectClose(between.avgp, c.avgp, "avgp");
  }
}

TEST(HighestPeaks, SegmentsAboutTheMean) {
  // clang-format off
  const struct { const char* name; std::vector<float> x; float xm, top, bot, amp; int iflag; } cases[] = {
      {"a bottom alone", {1, -2, 3}, 0.0F, 0.0F, -2.0F, 2.0F, 1},
      {"top and bottom", {-1, 2, 5, -3, 1}, 0.0F, 5.0F, -3.0F, 4.0F, 2},
      {"0 and -0 are plus", {-1, 0, -0.0F, -1, 1}, 0.0F, 0.0F, -0.5F, 0.5F, 1},
      {"about another mean", {9, 12, 15, 7, 11}, 10.0F, 15.0F, 7.0F, 4.0F, 2},
      {"no samples", {}, 1.5F, 1.5F, 1.5F, 0.0F, 1},
  };
  // clang-format on
  const int N[] = {1};
  for (const auto& c : cases) {
    HighestPeaks out;
    CalcAvgHighestPeaks(N, c.x, c.xm, std::span(&out, 1));
    EXPECT_EQ((std::array{out.top, out.bot, out.amp}), (std::array{c.top, c.bot, c.amp})) << c.name;
    EXPECT_EQ(out.iflag, c.iflag) << c.name;
  }
}

TEST(AvgBetween, IntervalsOfNoLength) {
  // clang-format off
  const struct { const char* name; std::vector<float> x; float avgc, avgp; } cases[] = {
      {"up once", {-1, 2, 3}, 0.0F, 0.0F},
      // Upcrossings at 2 and 4: (3 - 1)/2 and (-1 + 5)/2; the last half cycle has no downcrossing, so one top only.
      {"up twice, one top", {-1, 3, -1, 5}, 1.5F, 0.0F},
      // Tops at 3 (the first of equals) and 6: 4, 1 and 2 by trapezoids over 3 steps; from 3 over 4 steps 3.5 more.
      {"two tops", {-1, 3, 4, 4, -2, 6, -1}, 2.625F, 2.3333333F}, {"x equal to the mean", {0, 1, 0, 1, 0}, 0.5F, 0.5F},
  };
  // clang-format on
  for (const auto& c : cases) {
    BetweenAverages out;
    CalcAvgBetween(WorkedTimes(c.x.size()), c.x, 0.0F, out);
    EXPECT_EQ(out.avgc, c.avgc) << c.name;
    EXPECT_EQ(out.avgp, c.avgp) << c.name;
  }
}

}  // namespace
}  // namespace zaview
