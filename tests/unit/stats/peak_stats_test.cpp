#include "stats/peak_stats.h"

#include <array>
#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "stats/peaks.h"
#include "worked_records.h"

namespace zaview {
namespace {

constexpr int kIntervals = 0, kAveragesOnly = 1;
constexpr float kCoef95 = 1.9599957F;

PeakList ListOf(const std::vector<float>& values, const std::vector<int>& steps) {
  return {std::vector<int>(values.size(), 1), steps, values};
}

TEST(RecordPeakStats, WorkedRecords) {
  // clang-format off
  // Npks Npksb Npkst ndti, npN Nclpks Mclmax; xpkN xpkNb xpkNt xpkNci xpkNbci xpkNtci
  const struct { int record, N; std::array<int, 7> counts; std::array<double, 6> want; } cases[] = {
      {1, 1, {25, 13, 12, 51, 25, 1, 25}, {2.409637, -2.0356925, 2.7800834, 0.41365057, 0.70616627, 0.37227938}},
      {1, 3, {25, 13, 12, 51, 8, 1, 8}, {3.7114816, -3.6217499, 3.763, 0.5192446, 0.88004476, 0.3804367}},
      {1, 10, {25, 13, 12, 51, 3, 2, 2}, {4.542976, -4.882, 4.273, 0.66792816, 0, 0}},
      {2, 1, {62, 31, 31, 32, 62, 1, 62}, {0.9871773, -0.74583864, 1.2285162, 0.022177456, 0.032160208, 0.036581874}},
      {2, 3, {62, 31, 31, 32, 21, 1, 21}, {1.1241816, -0.89039993, 1.3646001, 0.017338235, 0.019696115, 0.030932505}},
      {2, 10, {62, 31, 31, 32, 6, 1, 6}, {1.19, -0.93866664, 1.4413334, 0.023211062, 0.01834766, 0.032983005}},
  };
  // clang-format on
  for (const auto& c : cases) {
    SCOPED_TRACE(c.record * 100 + c.N);
    const std::span<const float> x = WorkedRecord(c.record);
    RecordPeakStats s, without;
    ASSERT_EQ(CalcRecordPeakStats(c.N, kIntervals, x, 0.95F, s), StatFault::none);
    const float got[] = {s.xpkN, s.xpkNb, s.xpkNt, s.xpkNci, s.xpkNbci, s.xpkNtci};
    for (std::size_t i = 0; i < c.want.size(); ++i) ExpectClose(got[i], c.want[i], std::to_string(i).c_str());

    Peaks peaks;
    GetPeaks(std::span(&x, 1), MeanOf(x), peaks);
    PeakAverage all;
    CalcPeakAvgN(c.N, kIntervals, peaks.all, 1.0F, s.ndti, kCoef95, all);
    EXPECT_EQ((std::array{s.Npks, s.Npksb, s.Npkst, s.ndti, all.npN, all.Nclpks, all.Mclmax}), c.counts);
    EXPECT_EQ(all.xpkN, s.xpkN);

    const int several[] = {c.N, 7};  // at once they are the single ones
    std::array<RecordPeakStats, 2> many;
    ASSERT_EQ(CalcRecordPeakStats(several, kIntervals, x, 0.95F, many), StatFault::none);
    EXPECT_TRUE(many[0].xpkN == s.xpkN && many[0].xpkNbci == s.xpkNbci && many[0].xpkNtci == s.xpkNtci);
    ASSERT_EQ(CalcRecordPeakStats(c.N, kAveragesOnly, x, 0.95F, without), StatFault::none);
    EXPECT_TRUE(without.xpkN == s.xpkN && without.xpkNb == s.xpkNb && without.xpkNci == 0.0F && without.ndti == 0);
  }
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
  ASSERT_EQ(CalcRecordPeakStats(1, kIntervals, x, 0.95F, s), StatFault::none);
  EXPECT_TRUE(s.Npks == 18 || s.Npks == 19) << s.Npks;
  EXPECT_NEAR(s.xpkN, 1.0, 1e-3);
  ASSERT_EQ(CalcRecordPeakStats(s.Npks, kIntervals, x, 0.95F, s), StatFault::none);
  EXPECT_EQ(s.xpkN, 0.0F);
  ASSERT_EQ(CalcRecordPeakStats(s.Npks - 1, kIntervals, x, 0.95F, s), StatFault::none);
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
    CalcPeakAvgN(c.N, kIntervals, ListOf(c.values, c.steps), c.fact, c.ndti, 1.0F, out);
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
  CalcPeakAvgN(1, kIntervals, ListOf(d, steps), 1.0F, 1, 1.0F, out);
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
  const struct {
    const char* name; std::vector<float> x; std::vector<int> bottom_steps, top_steps; std::vector<double> bottoms, tops;
    bool crossing;
  } cases[] = {
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

}  // namespace
}  // namespace zaview
