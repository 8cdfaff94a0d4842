#include "stats/welch_spectrum.h"

#include <cmath>
#include <cstdint>
#include <numbers>
#include <vector>

#include <gtest/gtest.h>

namespace zaview {
namespace {

constexpr double kTwoPi = 2.0 * std::numbers::pi;

std::vector<float> Wave(std::size_t n, double dt, double a, double w, double mean) {
  std::vector<float> x(n);
  for (std::size_t i = 0; i < n; ++i) x[i] = static_cast<float>(mean + a * std::cos(w * dt * static_cast<double>(i)));
  return x;
}

// A line of the transform: its neighbours have a quarter of it, all three together the variance a^2/2.
TEST(WelchSpectrum, OneWaveGivesBackVarianceAndPeriod) {
  constexpr double dt = 0.5, a = 2, dw = kTwoPi / (256 * dt);
  const std::vector<float> x = Wave(4096, dt, a, 20 * dw, 7);
  const std::span<const float> all[] = {x};
  WelchSpectrum s;
  ASSERT_TRUE(FindWelchSpectrum(all, dt, 257, s));
  EXPECT_EQ(s.segment, 256U);
  EXPECT_EQ(s.segments, 31);
  EXPECT_NEAR(s.dw, dw, 1e-12);
  EXPECT_NEAR(s.S[20] * dw, a * a / 2 * 2 / 3, 1e-5);
  EXPECT_NEAR(s.S[19], s.S[20] / 4, 1e-5);
  const SpectralMoments m = MomentsOf(s);
  EXPECT_NEAR(4 * std::sqrt(m.m0), 4 * a / std::sqrt(2.0), 1e-4);
  EXPECT_NEAR(m.w_peak, 20 * dw, 1e-6);
  EXPECT_NEAR(m.m1 / m.m0, 20 * dw, 1e-5);
  EXPECT_LT(BandwidthEpsilon(m), 0.1);
}

// White noise: the density is level, its integral the variance; stretches count alike.
TEST(WelchSpectrum, NoiseGivesItsVarianceOverAllLines) {
  std::vector<float> x(60'000);
  std::uint64_t state = 1;
  double squares = 0;
  for (float& v : x) {
    state = state * 6364136223846793005U + 1442695040888963407U;
    v = static_cast<float>(static_cast<double>(state >> 11U) / 9007199254740992.0 - 0.5);
    squares += static_cast<double>(v) * static_cast<double>(v);
  }
  const std::span<const float> whole(x), parts[] = {whole.first(20'000), whole.subspan(20'000)};
  WelchSpectrum s;
  ASSERT_TRUE(FindWelchSpectrum(parts, 0.1, 200, s));
  EXPECT_EQ(s.segments, 199 + 399);
  const double variance = squares / 60'000;
  EXPECT_NEAR(MomentsOf(s).m0, variance, 0.02 * variance);
  EXPECT_NEAR(s.S[40], variance / (std::numbers::pi / 0.1), 0.2 * variance / (std::numbers::pi / 0.1));
  EXPECT_GT(s.freedom, 2 * s.segments * 0.94);
}

// Tabulated quantiles of chi^2; of two degrees of freedom in closed form, of many near to the normal distribution.
TEST(WelchSpectrum, LimitsAreThoseOfChiSquare) {
  const DensityLimits ten = LimitsOfDensity(10, 0.95), two = LimitsOfDensity(2, 0.9), many = LimitsOfDensity(1e5, 0.95);
  EXPECT_NEAR(10 / ten.low, 20.483177, 1e-6);
  EXPECT_NEAR(10 / ten.high, 3.246973, 1e-6);
  EXPECT_NEAR(2 / two.low, -2 * std::log(0.05), 1e-9);
  EXPECT_NEAR(2 / two.high, -2 * std::log(0.95), 1e-9);
  EXPECT_NEAR(1 / many.high, 1 - 1.959964 * std::sqrt(2 / 1e5), 3e-5);
}

// Bretschneider's sea on every fourth line: tapers part its variance among three lines, so m0 and m1 are exact and m2
// is larger by m0 dw^2/3.
TEST(WelchSpectrum, KnownSeaGivesBackHeightAndPeriods) {
  constexpr double dt = 0.25, dw = kTwoPi / (2048 * dt), wp = 60 * dw, hs = 4;
  std::vector<float> x(8192);
  double m0 = 0, m1 = 0, m2 = 0;
  for (int k = 32; k < 480; k += 4) {
    const double w = k * dw, r = std::pow(wp / w, 4);
    const double part = 5.0 / 16 * hs * hs * r / w * std::exp(-1.25 * r) * 4 * dw;
    m0 += part, m1 += part * w, m2 += part * (w * w + dw * dw / 3);
    const std::vector<float> wave = Wave(x.size(), dt, std::sqrt(2 * part), w, 0);
    for (std::size_t i = 0; i < x.size(); ++i) x[i] += wave[i];
  }
  const std::span<const float> all[] = {x};
  WelchSpectrum s;
  ASSERT_TRUE(FindWelchSpectrum(all, dt, 2048, s));
  const SpectralMoments m = MomentsOf(s);
  EXPECT_NEAR(4 * std::sqrt(m.m0), 4 * std::sqrt(m0), 1e-5 * hs);
  EXPECT_NEAR(m.m1 / m.m0 / (m1 / m0), 1, 1e-5);
  EXPECT_NEAR(m.m2 / m.m0 / (m2 / m0), 1, 1e-5);
  EXPECT_NEAR(4 * std::sqrt(m.m0), hs, 0.02 * hs);
  EXPECT_NEAR(m.w_peak / wp, 1, 0.03);
}

TEST(WelchSpectrum, RefusesWhatHoldsNoSegment) {
  const std::vector<float> x(100, 1.0F);
  const std::span<const float> all[] = {x};
  WelchSpectrum s;
  EXPECT_FALSE(FindWelchSpectrum(all, 1, 102, s));
  EXPECT_FALSE(FindWelchSpectrum(all, 1, 2, s));
  EXPECT_FALSE(FindWelchSpectrum(all, 0, 50, s));
  EXPECT_FALSE(FindWelchSpectrum({}, 1, 50, s));
  ASSERT_TRUE(FindWelchSpectrum(all, 1, 50, s));  // nothing moves
  EXPECT_EQ(MomentsOf(s).m0, 0);
  EXPECT_EQ(BandwidthNu(MomentsOf(s)), 0);
}

}  // namespace
}  // namespace zaview
