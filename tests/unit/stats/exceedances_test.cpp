#include "stats/exceedances.h"

#include <array>
#include <cmath>

#include <gtest/gtest.h>

#include "stats/histogram.h"
#include "stats/upcrossings.h"
#include "worked_records.h"

namespace zaview {
namespace {

constexpr float kTotalTime = 178.5F;

ExceedanceCount Count(EnsembleRecords X, float v, Direction option, int ndep) {
  std::vector<std::vector<float>> times;
  for (const auto& x : X) times.push_back(WorkedTimes(x.size()));
  ExceedanceCount out;
  CountExceedances(X, ViewsOf(times), v, option, ndep, out);
  EXPECT_EQ(static_cast<int>(out.list.size()), out.nind);
  return out;
}

TEST(Exceedances, WorkedEnsemble) {
  // clang-format off
  const struct {
    float v; Direction option; int ndep, nind, total; double rate_low, rate_high, Tex;
    std::size_t j; Exceedance want;  // entry j of the list
  } cases[] = {
      {2, Direction::both, 7, 29, 37, 0.105765566, 0.2191644, 58.702152, 12, {3, 20, 9.450557F}},
      {1.5F, Direction::up, 0, 27, 27, 0.09638612, 0.20613489, 55.054634, 26, {4, 90, 44.484077F}},
      {-1.5F, Direction::down, 5, 18, 18, 0.055434156, 0.14624652, 29.608982, 0, {1, 6, 2.3824317F}},
      {1.5F, Direction::up, 7, 25, 27, 0.08709479, 0.19301724, 55.054634, 20, {4, 33, 15.780462F}}};
  // clang-format on
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Tex);
    const ExceedanceCount out = Count(WorkedEnsemble(), c.v, c.option, c.ndep);
    ASSERT_EQ((std::array{out.nind, out.total}), (std::array{c.nind, c.total}));
    ExpectClose(out.Tex, c.Tex, "Tex");
    const Exceedance& entry = out.list[c.j];
    EXPECT_TRUE(entry.record == c.want.record && entry.position == c.want.position);
    ExpectClose(entry.time, static_cast<double>(c.want.time), "time");
    const ExceedanceLimits limits = LimitsOf(out.nind, 360, 0.95F);
    ExpectClose(limits.low / kTotalTime, c.rate_low, "low");
    ExpectClose(limits.high / kTotalTime, c.rate_high, "high");
  }
  EXPECT_EQ(LimitsOf(0, 360, 0.95F).high, 0.0F);
  EXPECT_EQ(LimitsOf(1, 360, 0.95F).low, 0.0F);
}

// By hand, steps 0.5 s apart.
TEST(Exceedances, EdgesOfTheState) {
  // clang-format off
  const struct { const char* what; std::vector<float> x; float v; Direction option; int total; float Tex; } cases[] = {
      {"starts and ends beyond: one entry", {3, 3, 0, 0, 2, 3}, 1, Direction::up, 1, 0.8333333F + 0.75F},
      {"starts below -v", {-3, -1, 1, 0}, 2, Direction::both, 0, 0.25F},
      {"jumps from one side to the other", {0, 4, -4, 0}, 2, Direction::both, 2, 0.375F + 0.375F},
      {"reaches the level, then higher: once", {0, 1, 2, 0}, 1, Direction::up, 1, 0.75F},
      {"leaves from the level exactly", {0, 2, 1, 0}, 1, Direction::up, 1, 0.25F + 0.5F},
      {"one sample is no walk", {5}, 1, Direction::up, 0, 0}};
  // clang-format on
  for (const auto& c : cases) {
    const std::span<const float> x = c.x;
    const ExceedanceCount out = Count(std::span(&x, 1), c.v, c.option, 1);
    EXPECT_EQ(out.total, c.total) << c.what;
    EXPECT_FLOAT_EQ(out.Tex, c.Tex) << c.what;
  }
}

TEST(Exceedances, BlocksOfTheWorkedEnsemble) {
  // clang-format off
  const struct { float v; Direction option; int ndep; std::size_t blocks; int exceeding; double min, max; } cases[] = {
      {2, Direction::both, 7, 50, 43, -1.6411002, 2.32186},
      {3.6F, Direction::up, 25, 13, 6, -2.765231, 3.643461},
      {-4.5F, Direction::down, 500, 3, 1, -4.147, 4.253},
      {2, Direction::up, 0, 360, 81, 0.41798905, 0.41798905}};
  // clang-format on
  BlockCount out;
  for (const auto& c : cases) {
    SCOPED_TRACE(c.ndep);
    CountBlocks(WorkedEnsemble(), c.v, c.option, c.ndep, out);
    EXPECT_EQ(out.blocks.size(), c.blocks);
    EXPECT_EQ(out.exceeding, c.exceeding);
    ExpectClose(out.average_min, c.min, "min");
    ExpectClose(out.average_max, c.max, "max");
  }
  CountBlocks(WorkedEnsemble(), 2, Direction::up, 7, out);  // 150 = 21 blocks of 7 or 8
  EXPECT_TRUE(out.blocks[1].first == 8 && out.blocks[1].last == 14 && out.blocks[20].last == 150);
  EXPECT_TRUE(out.blocks[21].record == 3 && out.blocks[21].first == 1);
}

using Rows = std::vector<std::array<int, 4>>;  // total, least, most, independent

Rows Count(EnsembleRecords X, float mean, std::span<const float> thresholds, int ndti) {
  std::vector<UpcrossingRow> rows;
  UpCrossing(X, mean, thresholds, ndti, rows);
  Rows counts;
  for (const UpcrossingRow& row : rows) counts.push_back({row.total, row.min_record, row.max_record, row.independent});
  return counts;
}

TEST(UpCrossing, WorkedEnsemble) {
  const std::vector<float> v = Thresholds(4.0F, -4.0F, 1.5F);
  EXPECT_EQ(v, (std::vector<float>{-4, -2.5, -1, 0.5, 2, 4}));
  const Rows want = {{2, 0, 2, 2}, {11, 0, 5, 11}, {24, 0, 11, 24}, {30, 0, 13, 30}, {23, 0, 10, 23}, {4, 0, 3, 4}};
  EXPECT_EQ(Count(WorkedEnsemble(), 0.41798905F, v, 7), want);
}

TEST(UpCrossing, ThresholdsAreClamped) {
  // clang-format off
  const struct { float min, max, increment; std::size_t count; } cases[] = {
      {1, 1, 1, 1}, {0, 1, 0, 2}, {0, 1, -1, 2}, {0, 1, 9, 2}, {0, 1, 0.25F, 5}, {0, 1, 1e-30F, 999}, {0, 1, INFINITY, 2},
      {-INFINITY, INFINITY, 1, 999}, {NAN, 1, 1, 1}, {0, 1, NAN, 2}, {-3e38F, 3e38F, 1, 999}};
  // clang-format on
  for (const auto& c : cases) {
    const std::vector<float> v = Thresholds(c.min, c.max, c.increment);
    EXPECT_EQ(v.size(), c.count) << c.min << ' ' << c.max << ' ' << c.increment;
    EXPECT_TRUE(c.count == 1 || (v.front() == c.min && v.back() == c.max));
  }
}

// The definition, threshold by threshold, on samples that often equal a threshold or the mean.
TEST(UpCrossing, SearchFindsWhatEachThresholdFinds) {
  std::vector<float> x(5000);
  unsigned random = 12345;
  for (float& v : x) {
    random = random * 1664525U + 1013904223U;
    v = random % 97U == 0 ? NAN : static_cast<float>((random >> 16U) % 21U) * 0.25F - 2.5F;
  }
  const std::vector<float> v = Thresholds(-3.0F, 3.0F, 0.125F);
  const std::span<const float> record = x;
  for (const float mean : {0.25F, 0.3F, -9.0F, 9.0F, NAN}) {
    Rows want;
    for (const float level : v) {
      int total = 0, independent = 0;
      std::size_t before = 0;
      const float s = mean <= level ? 1.0F : -1.0F;
      for (std::size_t i = 0; i + 1 < x.size() && mean == mean; ++i) {
        if (!(s * x[i] <= s * level && s * level < s * x[i + 1])) continue;
        if (++total == 1 || i - before >= 5) ++independent;
        before = i;
      }
      want.push_back({total, total, total, independent});
    }
    const Rows got = Count(std::span(&record, 1), mean, v, 5);
    EXPECT_EQ(got, mean == mean ? want : Rows(v.size())) << mean;
  }
}

Histogram Of(const HistogramRequest& request, std::span<const float> x, int skip = 0) {
  Histogram h;
  EXPECT_TRUE(SetHistogramData(request, std::span(&x, 1), skip, h));
  return h;
}

TEST(Histogram, WorkedRecord) {
  using enum HistogramData;
  // clang-format off
  const struct {
    HistogramRequest request; int skip, trim, npts; float lower, upper; std::vector<float> rawcount;
    std::array<double, 8> want;  // mean variance skew excess lambda, first, sixth expected, chi2
  } cases[] = {
      {{signed_values, false, 1, 20, Overlay::normal}, 0, 0, 150, -5, 4.5F,
       {2, 1, 1, 3, 3, 5, 9, 6, 12, 11, 10, 17, 16, 10, 14, 12, 10, 3, 4, 1},
       {0.41592675, 3.6095755, -0.36752978, -0.28373504, 0.52634674, 0.0024302704, 0.03357967, 0.11710713}},
      {{signed_values, true, 1, 20, Overlay::gramm_charlier}, 10, 5, 135, -5, 4.5F,
       {2, 0, 0, 2, 2, 5, 8, 6, 12, 11, 9, 17, 16, 9, 9, 10, 9, 3, 4, 1},
       {0.4410445, 3.2982056, -0.23126346, -0.18361735, 0.5506316, 0.328426, 4.225741, 0.13797778}},
      {{absolute, false, 2, 20, Overlay::rayleigh}, 0, 0, 75, 0, 5,
       {8, 7, 8, 4, 11, 3, 3, 5, 5, 3, 6, 5, 3, 0, 0, 2, 0, 1, 0, 1},
       {1.5567465, 1.2631798, 0.6546949, -0.19562078, 0.8897488, 0.024586622, 0.12875651, 3.5627031}},
      {{positive, false, 1, 16, Overlay::exponential}, 0, 0, 150, 0, 4.5F,
       {9, 9, 8, 9, 10, 5, 8, 8, 6, 6, 7, 2, 1, 2, 2, 1},
       {0.41592675, 3.6095755, -0.36752978, -0.28373504, 0.52634674, 0.13747352, 0.06557905, 0.15713549}},
      {{signed_values, false, 1, 20, Overlay::uniform}, 0, 0, 150, -5, 4.5F,
       {2, 1, 1, 3, 3, 5, 9, 6, 12, 11, 10, 17, 16, 10, 14, 12, 10, 3, 4, 1},
       {0, 0, 0, 0, 0, 0.04999999, 0.04999999, 0.45955572}}};
  // clang-format on
  for (const auto& c : cases) {
    SCOPED_TRACE(c.want[7]);
    const auto x = WorkedRecord(1).subspan(static_cast<std::size_t>(c.skip));
    const Histogram h = Of(c.request, x.first(x.size() - static_cast<std::size_t>(c.trim)), c.skip);
    EXPECT_EQ(h.npts, c.npts);
    EXPECT_TRUE(h.edges.front() == c.lower && h.edges.back() == c.upper);
    EXPECT_EQ(h.rawcount, c.rawcount);
    EXPECT_EQ(h.count[5], c.request.counts ? c.rawcount[5] : c.rawcount[5] / static_cast<float>(c.npts));
    const float got[] = {h.mean, h.variance, h.skew, h.excess, h.lambda, h.expected[0], h.expected[5], h.chi2};
    for (std::size_t i = 0; i < c.want.size(); ++i) ExpectClose(got[i], c.want[i], std::to_string(i).c_str());
  }
}

TEST(Histogram, EdgesBelongToTheBucketBelow) {
  const float edge = 0.0F + 2 * (1.0F / 3.0F);
  const float x[] = {0, 1.0F / 3.0F, edge, std::nextafter(edge, 1.0F), 1, 2, -1, NAN};
  const Histogram h = Of({.counts = true, .nbuckets = 3, .lower = 0, .upper = 1}, x);
  EXPECT_EQ(h.npts, 8);
  EXPECT_EQ(h.count, (std::vector<float>{2, 1, 2}));
}

// Positions count skipped points and start anew in each record.
TEST(Histogram, RatePicksPositions) {
  const std::vector<std::vector<float>> records = {{1, 2, 3, 4, 5}, {}, {6, 7}};
  Histogram h;
  ASSERT_TRUE(
      SetHistogramData({.counts = true, .rate = 3, .nbuckets = 8, .lower = 0, .upper = 8}, ViewsOf(records), 1, h));
  EXPECT_EQ(h.count, (std::vector<float>{0, 1, 0, 0, 1, 0, 1, 0}));  // positions 3, 6 and 3: samples 2, 5, 7
}

TEST(Histogram, NothingToFit) {
  const std::span<const float> none;
  Histogram h;
  EXPECT_FALSE(SetHistogramData({}, std::span(&none, 1), 0, h));
  const float still[] = {2, 2, 2}, huge[] = {-INFINITY, INFINITY, 3e38F, NAN}, nan[] = {NAN};
  using Case = std::pair<std::span<const float>, int>;  // samples, rate
  for (const auto& [x, rate] : {Case{still, 1}, Case{still, 9}, Case{huge, 1}, Case{nan, 1}}) {
    h = Of({.rate = rate, .overlay = Overlay::gramm_charlier}, x);
    EXPECT_EQ(h.expected, std::vector<float>(kBuckets, 0.0F));
    EXPECT_TRUE(h.skew == 0.0F && h.chi2 == 0.0F);
  }
}

}  // namespace
}  // namespace zaview
