#include "stats/fourier.h"

#include <cmath>
#include <numbers>
#include <vector>

#include <gtest/gtest.h>

#include "stats/record_stats.h"

namespace zaview {
namespace {

struct Record {
  std::vector<float> t, x;
};

// x = 2 + 3 cos 2wt + 4 sin 2wt over the period of w.
Record TwoTurns(int n, double T) {
  Record record;
  for (int i = 0; i < n; ++i) {
    const double t = T * i / (n - 1);
    const double angle = 2 * 2 * std::numbers::pi * t / T;
    record.t.push_back(static_cast<float>(t));
    record.x.push_back(static_cast<float>(2 + 3 * std::cos(angle) + 4 * std::sin(angle)));
  }
  return record;
}

TEST(Fourier, CoefficientsOfAKnownRecord) {
  for (const FourierRule rule : {FourierRule::trapezoid, FourierRule::simpson})
    for (const int n : {401, 400}) {  // an even count ends with one trapezoid
      const double T = 20;
      const Record record = TwoTurns(n, T);
      FourierRequest request;
      request.mode = 3, request.rule = rule, request.nfreq = 3;
      FourierSeries series;
      ASSERT_TRUE(FourierCoefficients(request, T / (n - 1), record.t, record.x, series));
      EXPECT_NEAR(series.a0, 4, 1e-4);
      EXPECT_NEAR(series.w[1], 2 * 2 * std::numbers::pi / T, 1e-12);
      EXPECT_NEAR(series.a[1], 3, 2e-3);
      EXPECT_NEAR(series.b[1], 4, 2e-3);
      EXPECT_NEAR(series.amp[1], 5, 2e-3);
      EXPECT_NEAR(series.phase[1], std::atan2(4.0, 3.0), 1e-3);
      EXPECT_NEAR(series.a[0], 0, 3e-3);
      EXPECT_NEAR(series.b[2], 0, 3e-3);
    }
}

// (n - 1)/4 frequencies up to pi/(2 dt), none lost by rounding; maxfrq cuts them and tells how many there were.
TEST(Fourier, CountOfFrequencies) {
  // clang-format off
  const struct { int n, maxfrq; double wmax; std::size_t count; int nskip; } rows[] = {
      {401, 200, -1, 100, 0}, {400, 200, -1, 99, 0}, {401, 60, -1, 60, 100},
      {5, 200, -1, 1, 0},     {4, 200, -1, 0, 0},    {401, 200, 1.0, 3, 0},
  };
  // clang-format on
  for (const auto& row : rows) {
    const double dt = 0.05;
    const Record record = TwoTurns(row.n, dt * (row.n - 1));
    FourierRequest request;
    request.maxfrq = row.maxfrq;
    request.wmax = row.wmax;
    FourierSeries series;
    ASSERT_TRUE(FourierCoefficients(request, dt, record.t, record.x, series));
    EXPECT_EQ(series.w.size(), row.count) << row.n;
    EXPECT_EQ(series.nskip, row.nskip) << row.n;
  }
  FourierSeries series;
  const float one[] = {1};
  EXPECT_FALSE(FourierCoefficients({}, 0.1, one, one, series));
  const Record still = TwoTurns(10, 0);
  EXPECT_FALSE(FourierCoefficients({}, 0, still.t, still.x, series));
}

// One period of the wave and of a record behind it; signs and the fold to 0..360 are what can go wrong.
TEST(Fourier, PhaseLagBehindTheWave) {
  const int n = 241;
  double T = 12;
  WavePhase kept;
  for (const double lag : {30.0, 90.0, 200.0, 350.0}) {
    T += 3;
    std::vector<float> t, x, wave;
    for (int i = 0; i < n; ++i) {
      const double at = T * i / (n - 1), angle = 2 * std::numbers::pi * at / T;
      t.push_back(static_cast<float>(at));
      wave.push_back(static_cast<float>(1.5 * std::cos(angle - 1.0)));
      x.push_back(static_cast<float>(7 + 0.2 * std::cos(angle - 1.0 - lag * std::numbers::pi / 180)));
    }
    const std::vector<float> still(t.size(), 3.0F);
    EXPECT_FALSE(FindWavePhase(t, still, kept));
    ASSERT_TRUE(FindWavePhase(t, wave, kept));  // other waves and other times than before
    EXPECT_NEAR(PhaseLag(kept, x, MeanOf(x)), lag, 0.2);
    EXPECT_EQ(PhaseLag(kept, wave, MeanOf(wave)), 360.0F);
    EXPECT_EQ(PhaseLag(kept, still, 3.0F), 0.0F);
  }
}

}  // namespace
}  // namespace zaview
