#include "stats/autocovariance.h"

#include <random>

#include <gtest/gtest.h>

#include "near.h"
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

TEST(AutoCovariance, WorkedRecord) {
  const double want[] = {0.9242445,   0.61062235,  0.033654116,  -0.42525348, -0.6010325,  -0.43294102,
                         -0.06104121, 0.20932157,  0.35513368,   0.34496114,  0.058749016, -0.4303945,
                         -0.7270527,  -0.63189125, -0.067610264, 0.5881169,   0.80943465,  0.5078917,
                         0.030351434, -0.3456306,  -0.4587146,   -0.23790687, 0.46326172,  0.0};
  std::vector<float> t = WorkedTimes(24);
  for (float& v : t) v += 10.0F;
  std::vector<float> dtau, R;
  ASSERT_TRUE(AutoCovariance(t, WorkedRecord(5), dtau, R));
  ASSERT_EQ(R.size(), 24U);
  for (std::size_t k = 0; k < R.size(); ++k) ExpectClose(R[k], want[k], "R");
  EXPECT_EQ(dtau, WorkedTimes(24));
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

}  // namespace
}  // namespace zaview
