#include "stats/autocovariance.h"

#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "stats/dependence_time.h"
#include "stats/highest_peaks.h"
#include "stats/peak_stats.h"
#include "stats/record_stats.h"
#include "worked_records.h"

namespace zaview {
namespace {

// One lag at a time: what the lanes must give to the last bit.
float PlainLag(std::span<const float> c, std::size_t k) {
  float sum = 0.0F;
  for (std::size_t i = 0; i + k < c.size(); ++i) sum += c[i] * c[i + k];
  return sum;
}

std::vector<float> RandomRecord(std::size_t n) {
  std::mt19937 random(static_cast<unsigned>(n) + 1);
  std::normal_distribution<float> value(0.0F, 3.0F);
  std::vector<float> x(n);
  for (float& v : x) v = value(random);
  return x;
}

// Sizes about the number of lanes, and one that is shared between threads; lags up to and beyond the record.
TEST(LagSums, SameBitsAsThePlainLoop) {
  // clang-format off
  const std::tuple<std::size_t, int, std::size_t> cases[] = {
      {1, 0, 1}, {2, 0, 3}, {63, 0, 63}, {64, 0, 64}, {65, 0, 66}, {127, 1, 64}, {128, 63, 65}, {300, 290, 20},
      {5000, 0, 2501}, {5000, 7, 1},
  };
  // clang-format on
  for (const auto& [n, first, count] : cases) {
    const std::vector<float> x = RandomRecord(n);
    std::vector<float> sums(count, -1.0F);
    LagSums(x, first, sums);
    for (std::size_t j = 0; j < sums.size(); ++j)
      ASSERT_EQ(sums[j], PlainLag(x, static_cast<std::size_t>(first) + j)) << n << ' ' << first << ' ' << j;
  }
}

TEST(AutoCovariance, ShortRecords) {
  std::vector<float> dtau, R;
  EXPECT_FALSE(AutoCovariance({}, {}, dtau, R));
  const float t[] = {2.0F, 3.0F}, x[] = {1.0F, 5.0F};
  ASSERT_TRUE(AutoCovariance(std::span(t).first(1), std::span(x).first(1), dtau, R));
  EXPECT_EQ(R, std::vector<float>{0.0F});
  ASSERT_TRUE(AutoCovariance(t, x, dtau, R));
  EXPECT_EQ(R, (std::vector<float>{4.0F, 0.0F}));  // the last sample stays out: (1 - 3)^2
}

TEST(EnvelopeExtremes, EqualityCountsAndEndsDoNot) {
  const float R[] = {9.0F, 1.0F, 1.0F, 2.0F, 2.0F, 2.0F, -1.0F, 0.0F, -3.0F, -5.0F};
  std::vector<int> upper, lower;
  EnvelopeExtremes(R, upper, lower);
  EXPECT_EQ(upper, (std::vector<int>{1, 2, 3, 4, 5}));  // each inner point of the plateaus
  EXPECT_EQ(lower, (std::vector<int>{6, 7}));           // 0 is not above 0
  EnvelopeExtremes(std::span(R).first(2), upper, lower);
  EXPECT_TRUE(upper.empty() && lower.empty());
}

TEST(EnvelopeRule, WalksFromTheSecondPoint) {
  // clang-format off
  const struct { const char* name; std::vector<float> R; float cutoff; int ndti; double lag; bool reached; } cases[] = {
      // Points (2, 0.8), (5, 0.2): d 0.6, d1 0.5, d2 0.5.
      {"between two points", {1, 0, -0.8F, 0, 0.1F, 0.2F, 0.1F}, 0.5F, 3, 3.5, true},
      {"at the cut-off", {1, 0, -0.75F, 0, 0.1F, 0.25F, 0.1F}, 0.25F, 5, 5.0, true},
      {"not reached", {1, 0, -0.75F, 0, 0.1F, 0.25F, 0.1F}, 0.2F, 0, 0.0, false},
      {"one point", {1, 0.5F, 0, 0.01F, 0}, 0.05F, 0, 0.0, false},
      {"no point", {1, 0.5F, 0.25F, 0.1F, 0.05F}, 0.5F, 0, 0.0, false},
      // The first point lies below already: (2, 0.25), (4, 0.125), cut-off 0.5: 4 (-2) + 2 (3) = -2, kept at 0.
      {"below at the first", {1, 0, 0.25F, 0, 0.125F, 0}, 0.5F, 0, 0.0, true},
      {"equal points", {1, 0, 0.25F, 0, 0.25F, 0}, 0.5F, 4, 4.0, true},
      {"scaled by R(0)", {4, 0, -3.2F, 0, 0.4F, 0.8F, 0.4F}, 0.5F, 3, 3.5, true},
  };
  // clang-format on
  for (const auto& c : cases) {
    Dependence out;
    EnvelopeRule(c.R, c.cutoff, out);
    EXPECT_EQ(out.ndti, c.ndti) << c.name;
    EXPECT_NEAR(static_cast<double>(out.lag), c.lag, 1e-5) << c.name;
    EXPECT_EQ(out.reached, c.reached) << c.name;
  }
}

// Lags made in growing blocks must end where all lags at once do, also if the walk ends at the border of a block.
TEST(RecordDependence, SameAsTheRuleOnAllLags) {
  std::vector<std::vector<float>> records{{}, {0}, {0, 0}, std::vector<float>(600)};
  for (const int number : {1, 2, 3, 4, 5})
    records.emplace_back(WorkedRecord(number).begin(), WorkedRecord(number).end());
  for (const float period : {17.0F, 60.0F, 120.0F, 250.0F}) {
    for (const float decay : {200.0F, 400.0F, 2000.0F}) {
      std::vector<float> x(4001);
      for (std::size_t i = 0; i < x.size(); ++i)
        x[i] = std::exp(-static_cast<float>(i) / decay) * std::cos(6.2831855F * static_cast<float>(i) / period);
      records.push_back(x);
    }
  }
  for (const std::vector<float>& x : records) {
    const std::vector<float> c = Centred(x, MeanOf(x));
    std::vector<float> Rx;
    RecordLags(c, static_cast<int>(x.size() / 2), Rx);
    for (const float cutoff : {0.8F, 0.4F, 0.05F, 0.001F}) {
      Dependence all, blocks;
      EnvelopeRule(Rx, cutoff, all);
      RecordDependence(c, cutoff, blocks);
      EXPECT_EQ(blocks.reached, all.reached) << x.size() << ' ' << cutoff;
      EXPECT_EQ(blocks.ndti, all.reached ? all.ndti : static_cast<int>(x.size() / 2)) << x.size() << ' ' << cutoff;
    }
  }
}

constexpr float kInfinity = std::numeric_limits<float>::infinity();
constexpr float kOdd[] = {
    std::numeric_limits<float>::quiet_NaN(), kInfinity, -kInfinity, 0.0F, -0.0F, 3.0e38F, 1.0e-45F};

// Small whole numbers, so that ties are many, and one odd value in `every`.
std::vector<float> OddRecord(std::mt19937& random, unsigned every) {
  std::vector<float> x(random() % 300);
  for (float& v : x)
    v = random() % every == 0 ? kOdd[random() % std::size(kOdd)] : static_cast<float>(random() % 9) - 4.0F;
  return x;
}

TEST(AnySamples, EveryRoutineEnds) {
  std::mt19937 random(11);
  const int N[] = {1, 3, std::numeric_limits<int>::max()};
  for (unsigned trial = 0; trial < 400; ++trial) {
    const std::vector<float> x = OddRecord(random, trial % 2 == 0 ? 4 : 200);
    const std::span<const float> record = x;
    const float threshold = kOdd[trial % std::size(kOdd)];

    Peaks peaks;
    GetPeaks(std::span(&record, 1), threshold, peaks);
    PeakAverage average;
    CalcPeakAvgN(3, 0, peaks.all, trial % 3 == 0 ? -1.0F : 1.0F, 5, 1.96F, average);
    EXPECT_LE(average.npN, static_cast<int>(peaks.all.value.size()));

    RecordPeakStats peak_stats[std::size(N)];
    EXPECT_EQ(StatFault::none, CalcRecordPeakStats(N, 0, x, 0.95F, peak_stats));
    RecordStats stats;
    EXPECT_EQ(StatFault::none, CalcRecordStats(1, x, 0.95F, stats));

    HighestPeaks highest[std::size(N)];
    CalcAvgHighestPeaks(N, x, threshold, highest);
    BetweenAverages between;
    CalcAvgBetween(x, x, threshold, between);

    Dependence dependence;
    RecordDependence(x, 0.05F, dependence);
    EXPECT_TRUE(0 <= dependence.ndti && dependence.ndti <= static_cast<int>(x.size() / 2)) << dependence.ndti;
  }
}

}  // namespace
}  // namespace zaview
