// Bootstrap intervals: errors that are known (of independent samples, of a record with a known dependence), the same
// digits from any threads, the mirrored record, and what is too short. How often they hold: bench/interval_study.cpp.
#include "stats/block_bootstrap.h"

#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

namespace zaview {
namespace {

// x(i) = along x(i-1) + noise, of variance 1/(1 - along^2).
std::vector<float> Record(std::size_t n, double along, unsigned seed) {
  std::mt19937 random(seed);
  std::normal_distribution<double> noise;
  std::vector<float> x(n);
  double last = 0;
  for (float& value : x) {
    last = along * last + noise(random);
    value = static_cast<float>(last);
  }
  return x;
}

// Twice damped noise: waves of about 20 samples.
std::vector<float> Waves(std::size_t n, unsigned seed) {
  const std::vector<float> noise = Record(n, 0, seed);
  std::vector<float> x(n);
  for (std::size_t i = 2; i < n; ++i) x[i] = 1.808F * x[i - 1] - 0.9025F * x[i - 2] + noise[i];
  return x;
}

BootstrapIntervals Intervals(EnsembleRecords X, const BootstrapRequest& request = {}, int batch = 100) {
  Bootstrap b;
  BeginBootstrap(X, request, b);
  while (MakeResamples(b, batch)) continue;
  return IntervalsOf(b);
}

BootstrapIntervals Intervals(const std::vector<float>& x, const BootstrapRequest& request = {}, int batch = 100) {
  const std::span<const float> X[] = {x};
  return Intervals(X, request, batch);
}

double HalfWidth(const BootstrapInterval& interval) {
  return static_cast<double>(interval.high - interval.low) / 2;
}

std::vector<BootstrapInterval> All(const BootstrapIntervals& of) {
  std::vector<BootstrapInterval> all = {of.mean, of.variance};
  all.insert(all.end(), of.third.begin(), of.third.end());
  all.insert(all.end(), of.nth.begin(), of.nth.end());
  return all;
}

TEST(BlockBootstrap, FindsKnownErrorsOfMeanAndVariance) {
  struct Known {
    double along;
    std::size_t n;
  };
  for (const auto& [along, n] : {Known{0, 20'000}, Known{0.6, 20'000}, Known{0.9, 100'000}}) {
    const double variance = 1 / (1 - along * along), count = static_cast<double>(n);
    const double mean_error = 1 / (1 - along) / std::sqrt(count);
    const double variance_error = variance * std::sqrt(2 / count * (1 + along * along) / (1 - along * along));
    BootstrapRequest request;
    request.peaks = false;
    const std::vector<float> x = Record(n, along, 3);
    const BootstrapIntervals got = Intervals(x, request);
    EXPECT_NEAR(HalfWidth(got.mean), 1.96 * mean_error, 0.3 * mean_error) << along;
    EXPECT_NEAR(HalfWidth(got.variance), 1.96 * variance_error, 0.3 * variance_error) << along;
    // Ten pieces of it know as much.
    std::vector<std::span<const float>> pieces;
    for (std::size_t i = 0; i < 10; ++i) pieces.push_back(std::span(x).subspan(i * n / 10, n / 10));
    const BootstrapIntervals same = Intervals(pieces, request);
    EXPECT_NEAR(HalfWidth(same.mean), HalfWidth(got.mean), 0.3 * mean_error) << along;
    EXPECT_NEAR(HalfWidth(same.variance), HalfWidth(got.variance), 0.3 * variance_error) << along;
  }
}

TEST(BlockBootstrap, GivesTheSameDigitsByAnyThreadsAndBatches) {
  const std::vector<float> x = Waves(6000, 1);
  BootstrapRequest request{.resamples = 333, .seed = 5, .threads = 1};
  const std::vector<BootstrapInterval> one = All(Intervals(x, request, 333));
  request.threads = 2;
  const std::vector<BootstrapInterval> two = All(Intervals(x, request, 50));
  request.seed = 6;
  const std::vector<BootstrapInterval> other = All(Intervals(x, request));
  for (std::size_t i = 0; i < one.size(); ++i) {
    ASSERT_TRUE(one[i].told) << i;
    EXPECT_EQ(one[i].low, two[i].low) << i;
    EXPECT_EQ(one[i].high, two[i].high) << i;
    EXPECT_NE(one[i].low, other[i].low) << i;
    EXPECT_NEAR(one[i].low, other[i].low, 0.5F * (one[i].high - one[i].low)) << i;
  }
}

TEST(BlockBootstrap, FollowsTheRecordMirroredAndInOtherUnits) {
  std::vector<float> x = Waves(6000, 2), down = x, large = x;
  for (std::size_t i = 0; i < x.size(); ++i) {
    down[i] = -x[i];
    large[i] = 16 * x[i];
  }
  const BootstrapIntervals a = Intervals(x), mirrored = Intervals(down), b = Intervals(large);
  for (const auto side : {&BootstrapIntervals::third, &BootstrapIntervals::nth}) {
    constexpr std::size_t kTop = 1, kBottom = 2;
    EXPECT_NEAR((a.*side)[kTop].low, -(mirrored.*side)[kBottom].high, 1e-5F);
    EXPECT_NEAR((a.*side)[kBottom].high, -(mirrored.*side)[kTop].low, 1e-5F);
    EXPECT_LT((a.*side)[kBottom].high, 0);
  }
  EXPECT_NEAR(a.mean.low, -mirrored.mean.high, 0.01F * (a.mean.high - a.mean.low));
  const std::vector<BootstrapInterval> small = All(a), big = All(b);
  for (std::size_t i = 0; i < small.size(); ++i) {
    const float factor = i == 1 ? 256.0F : 16.0F;
    EXPECT_NEAR(big[i].low, factor * small[i].low, 1e-4F * factor) << i;
    EXPECT_NEAR(big[i].high, factor * small[i].high, 1e-4F * factor) << i;
  }
}

TEST(BlockBootstrap, TellsNothingOfRecordsThatAreTooShort) {
  std::vector<float> gap = Waves(6000, 1);
  gap[3000] = std::numeric_limits<float>::quiet_NaN();
  std::vector<float> far = Waves(6000, 1);
  far[3000] = std::numeric_limits<float>::infinity();
  std::vector<float> straight(5000);
  for (std::size_t i = 0; i < straight.size(); ++i) straight[i] = static_cast<float>(i);
  for (const std::vector<float>& x : {std::vector<float>{}, std::vector<float>(3, 1.0F), std::vector<float>(5000, 2.5F),
                                      Waves(300, 1), gap, far, straight})
    for (const BootstrapInterval& interval : All(Intervals(x))) EXPECT_FALSE(interval.told);
  // Enough for the mean and the highest third, not for the highest hundredth.
  BootstrapRequest request;
  request.N = 100;
  const BootstrapIntervals some = Intervals(Waves(3000, 1), request);
  EXPECT_TRUE(some.mean.told && some.variance.told && some.third[0].told && some.third[3].told);
  EXPECT_FALSE(some.nth[0].told || some.nth[3].told);
  EXPECT_LT(some.dependence_times, FewestDependenceTimes(100));
}

TEST(BlockBootstrap, MakesAsManyResamplesAsTheProbabilityNeeds) {
  EXPECT_EQ(ResamplesFor(0.95F, 1), kFewestBootstrapResamples);
  EXPECT_EQ(ResamplesFor(0.95F, 1000), 1000);
  EXPECT_NEAR(ResamplesFor(0.9999F, 1000), 20'000, 10);
  EXPECT_EQ(ResamplesFor(0.9999999F, 1000), kMostBootstrapResamples);
  EXPECT_EQ(ResamplesFor(1.0F, 1000), 1000);
}

}  // namespace
}  // namespace zaview
