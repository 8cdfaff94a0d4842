// Fitted distributions: another program's estimates (scipy 1.10, its likelihood taken to its maximum and twice
// differentiated), known parameters of random samples, and what has no distribution.
#include "stats/extreme_fits.h"

#include <cmath>
#include <random>

#include <gtest/gtest.h>

namespace zaview {
namespace {

double Weibull(double F, double a, double k) {
  return a * std::pow(-std::log1p(-F), 1 / k);
}
double Gumbel(double F, double u, double b) {
  return u - b * std::log(-std::log(F));
}

// Values at the probabilities (i - 0.3)/(n + 0.2), not in their order.
template <typename Inverse>
std::vector<float> Sample(int n, Inverse inverse) {
  std::vector<float> x;
  for (int i = 1; i <= n; ++i) x.push_back(static_cast<float>(inverse((((i * 37) % n) + 0.7) / (n + 0.2))));
  return x;
}

void ExpectEstimate(const Estimate& got, double value, double low, double high) {
  EXPECT_NEAR(got.value, value, 1e-5 * std::abs(value));
  EXPECT_NEAR(got.low, low, 1e-4 * std::abs(low));
  EXPECT_NEAR(got.high, high, 1e-4 * std::abs(high));
}

TEST(ExtremeFits, AgreeWithAnotherProgram) {
  WeibullFit w;
  ASSERT_EQ(FitWeibull(Sample(101, [](double F) { return Weibull(F, 1.5, 2.2); }), {}, {}, w), FitFault::none);
  EXPECT_NEAR(w.scale, 1.5029675380, 1e-6);
  EXPECT_NEAR(w.shape, 2.2307921502, 1e-6);
  EXPECT_NEAR(w.scale_error, 0.07062456, 1e-6);
  EXPECT_NEAR(w.shape_error, 0.17328401, 1e-5);
  ExpectEstimate(MostProbableMaximum(w, {500, 0.99, 2}), 3.4088993, 3.4088993 * std::exp(-2 * 0.2254577 / 3.4088993),
                 3.4088993 * std::exp(2 * 0.2254577 / 3.4088993));
  ExpectEstimate(QuantileOfMaximum(w, {500, 0.99, 2}), 4.3698827, 4.3698827 * std::exp(-2 * 0.3558294 / 4.3698827),
                 4.3698827 * std::exp(2 * 0.3558294 / 4.3698827));
  ASSERT_EQ(FitWeibull(Sample(101, [](double F) { return Weibull(F, 1.5, 2.2); }), {}, {0.5, 0}, w), FitFault::none);
  EXPECT_EQ(w.fitted, 51);
  EXPECT_NEAR(w.scale, 1.5062133254, 1e-6);
  EXPECT_NEAR(w.shape, 2.2395820342, 1e-6);
  EXPECT_NEAR(w.scale_error, 0.0772483788, 1e-6);
  EXPECT_NEAR(w.shape_error, 0.2367394194, 1e-5);
  GumbelFit g;
  ASSERT_EQ(FitGumbel(Sample(50, [](double F) { return Gumbel(F, -3, 0.4); }), 20, g), FitFault::none);
  EXPECT_NEAR(g.location, -2.9942530781, 1e-6);
  EXPECT_NEAR(g.scale, 0.3895191753, 1e-6);
  EXPECT_NEAR(g.location_error, 0.05799892, 1e-6);
  EXPECT_NEAR(g.scale_error, 0.04336117, 1e-6);
  ExpectEstimate(MostProbableMaximum(g, {10, 0.99, 2}), -2.0973520, -2.0973520 - 2 * 0.1302170, -2.0973520 + 0.2604340);
  ExpectEstimate(QuantileOfMaximum(g, {10, 0.99, 2}), -0.3055057, -0.3055057 - 2 * 0.3222031, -0.3055057 + 0.6444062);
}

// 400 samples each: the mean of the deviations in standard errors is about 0, their spread about 1, in any unit.
TEST(ExtremeFits, KnownParametersComeBackWithinTheirErrors) {
  std::mt19937 random(7);
  const auto F = [&] { return (static_cast<double>(random()) + 0.5) / 4294967296.0; };
  double sums[4] = {}, squares[4] = {};
  for (int run = 0; run < 400; ++run) {
    const double unit = std::pow(10.0, run % 13 - 6), k = run % 2 == 0 ? 0.8 : 2.5;
    std::vector<float> h(100), x(100);
    for (float& value : h) value = static_cast<float>(Weibull(F(), 2 * unit, k));
    for (float& value : x) value = static_cast<float>(Gumbel(F(), 5 * unit, 1.5 * unit));
    WeibullFit w;
    GumbelFit g;
    ASSERT_EQ(FitWeibull(h, {}, {}, w), FitFault::none);
    ASSERT_EQ(FitGumbel(x, 20, g), FitFault::none);
    const double off[] = {(w.scale - 2 * unit) / w.scale_error, (w.shape - k) / w.shape_error,
                          (g.location - 5 * unit) / g.location_error, (g.scale - 1.5 * unit) / g.scale_error};
    for (int i = 0; i < 4; ++i) sums[i] += off[i], squares[i] += off[i] * off[i];
  }
  for (int i = 0; i < 4; ++i) {
    EXPECT_NEAR(sums[i] / 400, 0, 0.25) << i;
    EXPECT_NEAR(squares[i] / 400, 1, 0.2) << i;
  }
}

TEST(ExtremeFits, PeaksThatDependTellLess) {
  std::mt19937 random(3);
  std::vector<float> h;
  std::vector<int> record;
  for (int i = 0; i < 1000; ++i) {
    const double value = Weibull((static_cast<double>(random()) + 0.5) / 4294967296.0, 1, 2);
    for (int again = 0; again < 3; ++again) h.push_back(static_cast<float>(value)), record.push_back(3 * i + again);
  }
  WeibullFit one, several, apart;
  ASSERT_EQ(FitWeibull(h, {}, {}, one), FitFault::none);
  ASSERT_EQ(FitWeibull(h, {}, {1, 8}, several), FitFault::none);
  ASSERT_EQ(FitWeibull(h, record, {1, 8}, apart), FitFault::none);  // each a record of its own
  EXPECT_NEAR(several.scale_error / one.scale_error, std::sqrt(3.0), 0.3);
  EXPECT_NEAR(several.shape_error / one.shape_error, std::sqrt(3.0), 0.3);
  EXPECT_NEAR(apart.scale_error / one.scale_error, 1, 0.1);
}

// The most probable largest of n peaks of a narrow band is sigma sqrt(2 ln n).
TEST(ExtremeFits, OfANarrowBandAndOfNothing) {
  WeibullFit w;
  w.scale = std::sqrt(2.0) * 1.7;
  w.shape = 2;
  EXPECT_NEAR(MostProbableMaximum(w, {1000, 0.99, 2}).value, 1.7 * std::sqrt(2 * std::log(1000.0)), 1e-12);
  EXPECT_EQ(MostProbableMaximum(w, {0.5, 0.99, 2}).high, 0);
  GumbelFit g;
  EXPECT_EQ(FitWeibull(std::vector<float>(19, 1), {}, {}, w), FitFault::few_values);
  EXPECT_EQ(FitWeibull(std::vector<float>(40, 1), {}, {1, 5}, w), FitFault::no_spread);
  EXPECT_EQ(FitGumbel(std::vector<float>(20, 1e30F), 21, g), FitFault::few_values);
  EXPECT_EQ(FitGumbel(std::vector<float>(20, 1e30F), 20, g), FitFault::no_spread);
  EXPECT_EQ(FitGumbel(std::vector<float>(20, 0), 20, g), FitFault::no_spread);
}

TEST(ExtremeFits, BlocksAreEqualParts) {
  const std::vector<float> a{1, 5, 2, 0, 9, 3, 4}, b{7, 8};
  const std::span<const float> stretches[] = {a, b};
  std::vector<float> high, low;
  std::int64_t used = 0;
  BlockMaxima(stretches, 3, high, low, used);  // 3 and 4 samples; the other is too short
  EXPECT_EQ(high, (std::vector<float>{5, 9}));
  EXPECT_EQ(low, (std::vector<float>{1, 0}));
  EXPECT_EQ(used, 7);
}

}  // namespace
}  // namespace zaview
