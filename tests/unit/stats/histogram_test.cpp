#include "stats/histogram.h"

#include <array>
#include <cmath>
#include <utility>

#include <gtest/gtest.h>

#include "worked_records.h"

namespace zaview {
namespace {

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
