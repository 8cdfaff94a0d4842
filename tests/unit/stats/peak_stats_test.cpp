#include "stats/peak_stats.h"

#include <array>
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "stats/highest_peaks.h"
#include "stats/peaks.h"
#include "stats/record_stats.h"
#include "worked_records.h"

namespace zaview {
namespace {

PeakList ListOf(const std::vector<float>& values, const std::vector<int>& steps) {
  return {std::vector<int>(values.size(), 1), steps, values};
}

TEST(RecordPeakStats, RefusedArguments) {
  const std::string where = "ERROR in CalcRecordPeakStats: invalid ";
  RecordPeakStats s;
  s.xpkN = 7.0F;
  const StatFault faults = CalcRecordPeakStats(0, 7, WorkedRecord(1), 0.0F, s);
  EXPECT_EQ(s.xpkN, 0.0F);
  EXPECT_EQ(StatFaultLines(faults, "CalcRecordPeakStats", 0, 7, 0.0F),
            (std::vector<std::string>{where + "peak frequency= 0", where + "statistics option= 7",
                                      where + "confidence probability = 0"}));
}

// A sine of 10 cycles: the first and the last half cycle are dropped. N must lie below the count.
TEST(RecordPeakStats, PeaksMustOutnumberN) {
  std::vector<float> x(1000);
  for (std::size_t i = 0; i < x.size(); ++i) x[i] = std::sin(6.2831855F * (static_cast<float>(i) + 0.5F) / 100.0F);
  RecordPeakStats s;
  ASSERT_EQ(CalcRecordPeakStats(1, kPeakHalfWidths, x, 0.95F, s), StatFault::none);
  EXPECT_TRUE(s.Npks == 18 || s.Npks == 19) << s.Npks;
  EXPECT_NEAR(s.xpkN, 1.0, 1e-3);
  ASSERT_EQ(CalcRecordPeakStats(s.Npks, kPeakHalfWidths, x, 0.95F, s), StatFault::none);
  EXPECT_EQ(s.xpkN, 0.0F);
  ASSERT_EQ(CalcRecordPeakStats(s.Npks - 1, kPeakHalfWidths, x, 0.95F, s), StatFault::none);
  EXPECT_TRUE(s.xpkN > 0.9F && s.xpkNci == 0.0F && s.xpkNt == 0.0F);  // one peak; tops alone are too few
}

TEST(PeakAverage, TiesAndClusters) {
  // clang-format off
  const struct {  // half width of a multiplier 1
    const char* name; int N; std::vector<float> values; std::vector<int> steps; float fact; int ndti;
    double average, half_width; int kept, clusters, largest;
  } cases[] = {
      // Of three tied at 2 only the earliest is kept beside the 5: (5 + 2)/2, R(0) = 2.25, 2.25/2.
      {"ties", 3, {2, 5, 2, 1, 2, 0}, {1, 9, 17, 25, 33, 41}, 1.0F, 0, 3.5, 1.0606602, 2, 2, 1},
      {"most negative", 2, {-2, -5, -1, -3}, {1, 9, 17, 25}, -1.0F, 0, -4.0, 0.7071068, 2, 2, 1},
      // mc = 2 lags: R(0) = 1, R(1) = -3/4: (1 + (1/2) 2 4 (-3/4)/4)/4 = 1/16.
      {"lags in a cluster", 1, {1, 3, 1, 3}, {1, 2, 3, 4}, 1.0F, 1, 2.0, 0.25, 4, 1, 4},
      {"steps too far", 1, {1, 3, 1, 3}, {1, 3, 5, 7}, 1.0F, 1, 2.0, 0.5, 4, 4, 1},
      {"three have no lag", 1, {1, 3, 2, 2}, {1, 2, 3, 9}, 1.0F, 1, 2.0, 0.3535534, 4, 2, 3},
      {"rounded count", 4, {4, 1, 2, 3, 1, 1}, {1, 2, 3, 4, 5, 6}, 1.0F, 0, 3.5, 0.3535534, 2, 2, 1},
  };
  // clang-format on
  for (const auto& c : cases) {
    PeakAverage out;
    CalcPeakAvgN(c.N, kPeakHalfWidths, ListOf(c.values, c.steps), c.fact, c.ndti, 1.0F, out);
    ExpectClose(out.xpkN, c.average, c.name);
    ExpectClose(out.xpkNci, c.half_width, c.name);
    EXPECT_EQ((std::array{out.npN, out.Nclpks, out.Mclmax}), (std::array{c.kept, c.clusters, c.largest})) << c.name;
  }
}

// Two clusters, 300 and 100 peaks, have 17 and 10 lags: the sums of the plain loop, to the last digit.
TEST(PeakAverage, LongClusters) {
  std::vector<float> d(400);
  std::vector<int> steps(d.size());
  for (std::size_t i = 0; i < d.size(); ++i) {
    d[i] = std::sin(static_cast<float>(i * i));
    steps[i] = static_cast<int>(i < 300 ? i : i + 50);
  }
  PeakAverage out;
  CalcPeakAvgN(1, kPeakHalfWidths, ListOf(d, steps), 1.0F, 1, 1.0F, out);
  for (float& v : d) v -= out.xpkN;
  std::array<float, 17> R{};
  for (std::size_t k = 0; k < R.size(); ++k) {
    for (std::size_t i = 0; i + k < 400; ++i) R[k] += i + k < 300 || i >= 300 ? d[i] * d[i + k] : 0.0F;
    R[k] *= 1.0F / 400.0F;
  }
  float sum = R[0];
  for (const int nc : {300, 100}) {
    const int mc = static_cast<int>(std::sqrt(static_cast<float>(nc)));
    for (int k = 1; k < mc; ++k)
      sum += ((1.0F - static_cast<float>(k) / static_cast<float>(mc)) * 2.0F * static_cast<float>(nc) *
              R[static_cast<std::size_t>(k)]) /
             400.0F;
  }
  ASSERT_GT(sum, 0.0F);
  EXPECT_EQ(out.xpkNci, std::sqrt(sum / 400.0F));
}

void ExpectList(const PeakList& got, const std::vector<int>& steps, const std::vector<double>& values) {
  EXPECT_EQ(got.step, steps);
  ASSERT_EQ(got.value.size(), values.size());
  for (std::size_t i = 0; i < values.size(); ++i) EXPECT_NEAR(static_cast<double>(got.value[i]), values[i], 1e-6) << i;
}

TEST(GetPeaks, HalfCyclesAboutZero) {
  constexpr float tiny = std::numeric_limits<float>::min();
  constexpr float nan = std::numeric_limits<float>::quiet_NaN();
  // clang-format off
  const struct { const char* name; std::vector<float> x; std::vector<int> bottom_steps, top_steps;
                 std::vector<double> bottoms, tops; bool crossing; } cases[] = {
      {"a half cycle from 0 on is below", {1, 0, 2, -1}, {2}, {3}, {0.0}, {2.0}, true},
      {"0 belongs to the running one", {0, 1, 2, 0, -1, -3, 0, 2, 1, -1}, {6}, {3, 8}, {-3.0}, {2.0, 2.0}, true},
      {"the first of equal extremes", {-1, 1, 2, 2, -1, -1, 1}, {5}, {3}, {-1.0}, {2.0}, true},
      {"what is open at the end is none", {-1, 1, 5}, {}, {}, {}, {}, true},
      {"touching the last sample", {1, 2, 0}, {}, {}, {}, {}, false},
      {"on one side", {1, 2, 1, 2}, {}, {}, {}, {}, false},
      {"everywhere 0", {0, 0, 0, 0}, {}, {}, {}, {}, true},
      {"a product that underflows", {tiny, tiny, -1, 1, -1}, {3}, {2, 4}, {-1.0}, {0.0, 1.0}, true},
      {"none", {}, {}, {}, {}, {}, false},
      {"not a number", {nan, 1, nan, -1}, {}, {}, {}, {}, false},
  };
  // clang-format on
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    const std::span<const float> x = c.x;
    Peaks peaks;
    std::vector<int> none;
    GetPeaks(std::span(&x, 1), 0.0F, peaks, &none);
    ExpectList(peaks.bottom, c.bottom_steps, c.bottoms);
    ExpectList(peaks.top, c.top_steps, c.tops);
    EXPECT_EQ(peaks.all.step.size(), c.bottom_steps.size() + c.top_steps.size());
    EXPECT_EQ(none.empty(), c.crossing);
  }
}

TEST(GetPeaks, RecordsKeepTheirNumbers) {
  const float a[] = {-1, 2, -3, 1}, b[] = {1, 1, 1};
  const std::span<const float> records[] = {a, {}, b, a};
  Peaks peaks;
  std::vector<int> none;
  GetPeaks(records, 0.0F, peaks, &none);
  EXPECT_EQ(peaks.all.record, (std::vector<int>{1, 1, 4, 4}));
  EXPECT_EQ(peaks.all.step, (std::vector<int>{2, 3, 2, 3}));
  EXPECT_EQ(none, (std::vector<int>{2, 3}));
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
