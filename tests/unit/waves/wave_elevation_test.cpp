#include "waves/wave_elevation.h"

#include <cmath>
#include <numbers>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "waves/elevation_grid.h"

namespace zaview {
namespace {

IncidentWave Prepared(const Seaway& seaway) {
  IncidentWave wave;
  EXPECT_TRUE(PrepareIncidentWave(seaway, wave));
  return wave;
}

Seaway SeawayOf(int ISEA, std::size_t components) {  // the same waves under every kind
  std::mt19937 random(7);
  std::uniform_real_distribution<float> unit(0.0F, 1.0F);
  Seaway seaway;
  seaway.ISEA = ISEA;
  seaway.WSPEC = 5;
  for (std::size_t i = 0; i < components; ++i) {
    seaway.waves.FREQW.push_back(0.5F + 2 * unit(random));
    seaway.waves.PHASEW.push_back(360 * unit(random));
    seaway.waves.AMPW0.push_back(0.004F * unit(random));
    seaway.waves.HEADW.push_back(180 + 40 * unit(random));
  }
  const WaveComponents& w = seaway.waves;
  seaway.alternative = {w.FREQW, w.AMPW0, w.AMPW0, w.PHASEW, {}, {}, 1, static_cast<int>(components)};
  seaway.alternative.FREQ.assign(components, 0.0F);
  seaway.modes = {w.AMPW0, w.PHASEW, w.FREQW, 170};
  return seaway;
}

TEST(WaveElevation, SlopesAlongADirection) {
  const IncidentWave wave = Prepared(SeawayOf(1, 9));
  const double direction[2] = {0.6, 0.8};
  const double d = 1e-3;
  const auto place = [&](double s) { return Vector3{1.5 + s * 0.6, -0.4 + s * 0.8, 0.0}; };
  const std::vector<Vector3> points = {place(0), place(d), place(-d)};
  std::vector<double> eta(3), d1(3), d2(3), d3(3);
  const WaveMoment moment{4.0, 1.5};
  ASSERT_EQ(IncidentWaveElev(wave, moment, points, direction, {eta, d1, d2, d3}), WaveFault::none);
  EXPECT_NEAR(d1[0], (eta[1] - eta[2]) / (2 * d), 1e-6);
  EXPECT_NEAR(d2[0], (d1[1] - d1[2]) / (2 * d), 1e-6);
  EXPECT_NEAR(d3[0], (d2[1] - d2[2]) / (2 * d), 1e-6);
  float same = 0;
  WaveOutputs out;
  out.eta = {&same, 1};
  ASSERT_EQ(EvalIncidentWave(wave, moment, {}, {points.data(), 1}, out), WaveFault::none);
  EXPECT_NEAR(eta[0], same, 1e-8);
}

TEST(WaveElevation, CelerityOfACrest) {
  Seaway seaway;
  seaway.ISEA = 3;  // of order 0: linear
  seaway.WDEPTH = 0.5;
  seaway.waves = {{1.2F}, {70}, {0.01F}, {150}};
  const IncidentWave wave = Prepared(seaway);
  double v[8] = {};
  const CelerityTerms out = {{v, 1},     {v + 1, 1}, {v + 2, 1}, {v + 3, 1},
                             {v + 4, 1}, {v + 5, 1}, {v + 6, 1}, {v + 7, 1}};
  const Vector3 point = {0.3, 0.2, 0};
  const double along[2] = {1, 0};
  ASSERT_EQ(IncidentWaveCelerity(wave, {3.0, 1.0}, {&point, 1}, along, out), WaveFault::none);
  const double K = wave.k[0] * std::cos(150 * std::numbers::pi / 180);
  EXPECT_NEAR(v[4], wave.w[0] / K, 1e-12);
  EXPECT_NEAR(v[5], wave.w[0], 1e-12);
  EXPECT_NEAR(v[6], K, 1e-12);
  EXPECT_NEAR(v[7], wave.w[0] / K, 1e-12);

  // Two waves: a crest moves so that the slope stays 0: -eta_st/eta_ss by differences.
  seaway.ISEA = 1;
  seaway.waves = {{1.2F, 0.9F}, {70, 10}, {0.01F, 0.02F}, {150, 200}};
  const IncidentWave two = Prepared(seaway);
  const auto slope = [&](double s, double t) {
    const Vector3 at = {0.3 + s, 0.2, 0};
    EXPECT_EQ(IncidentWaveCelerity(two, {3.0 + t, 1.0}, {&at, 1}, along, out), WaveFault::none);
    return v[1];
  };
  const double d = 1e-4;
  const double crest = -(slope(0, d) - slope(0, -d)) / (slope(d, 0) - slope(-d, 0));
  (void)slope(0, 0);
  EXPECT_NEAR(v[4], crest, 1e-6);

  const double celerity = v[7];
  ASSERT_EQ(IncidentWaveCelerity(two, {3.0, 1e-6}, {&point, 1}, along, out), WaveFault::none);
  EXPECT_NEAR(v[7], celerity, 1e-9 * std::abs(celerity));  // a small wave runs as fast
  ASSERT_EQ(IncidentWaveCelerity(two, {3.0, 0.0}, {&point, 1}, along, out), WaveFault::none);
  for (const double value : v) EXPECT_EQ(value, 0.0);  // no amplitude: every divisor is 0
}

TEST(WaveElevation, KindsWithoutSlopes) {
  const struct {
    int ISEA, order;
    WaveFault fault;
  } cases[] = {{0, 0, WaveFault::none},          {2, 0, WaveFault::none},          {3, 0, WaveFault::none},
               {3, 1, WaveFault::not_supported}, {4, 0, WaveFault::not_supported}, {5, 0, WaveFault::not_supported},
               {9, 0, WaveFault::unknown_kind},  {-1, 0, WaveFault::unknown_kind}};
  const Vector3 point = {};
  const double along[2] = {1, 0};
  for (const auto& c : cases) {
    Seaway seaway = SeawayOf(c.ISEA, 3);
    seaway.WSPEC = c.order;
    const IncidentWave wave = Prepared(seaway);
    double eta = 7, crest = 7;
    ElevationSlopes slopes;
    slopes.eta = {&eta, 1};
    CelerityTerms terms;
    terms.crest = {&crest, 1};
    EXPECT_EQ(IncidentWaveElev(wave, {}, {&point, 1}, along, slopes), c.fault) << c.ISEA;
    EXPECT_EQ(IncidentWaveCelerity(wave, {}, {&point, 1}, along, terms), c.fault) << c.ISEA;
    if (c.fault != WaveFault::none || c.ISEA == 0) {
      EXPECT_EQ(eta, 0.0);
      EXPECT_EQ(crest, 0.0);
    }
  }
}

TEST(WaveElevation, HistoryGivesTheSameBitsAsPointByPoint) {
  const std::size_t steps = 10'007;
  std::vector<float> time, x, y, scale;
  for (std::size_t i = 0; i < steps; ++i) {
    const auto t = 0.05F * static_cast<float>(i);
    time.push_back(t);
    x.push_back(0.2F * t);
    y.push_back(std::sin(t));
    scale.push_back(std::min(1.0F, 0.01F * t));
  }
  for (const int ISEA : {0, 1, 3, 4, 5}) {
    const IncidentWave wave = Prepared(SeawayOf(ISEA, 41));
    std::vector<float> one(steps, 7), two(steps, 7), unscaled(steps, 7);
    ASSERT_EQ(ElevationHistory(wave, time, x, y, scale, one, 1), WaveFault::none);
    ASSERT_EQ(ElevationHistory(wave, time, x, y, scale, two, 2), WaveFault::none);
    ASSERT_EQ(ElevationHistory(wave, time, x, y, {}, unscaled), WaveFault::none);
    EXPECT_EQ(one, two) << ISEA;
    WaveOptions options;
    options.elevation_only = true;
    for (std::size_t i = 0; i < steps; i += 97) {
      float eta = 0;
      WaveOutputs out;
      out.eta = {&eta, 1};
      const Vector3 point = {x[i], y[i], 0};
      ASSERT_EQ(EvalIncidentWave(wave, {time[i], scale[i]}, options, {&point, 1}, out), WaveFault::none);
      EXPECT_EQ(eta, one[i]) << ISEA << ' ' << i;
      ASSERT_EQ(EvalIncidentWave(wave, {time[i], 1.0}, options, {&point, 1}, out), WaveFault::none);
      EXPECT_EQ(eta, unscaled[i]) << ISEA << ' ' << i;
    }
  }
  std::vector<float> eta(3, 7);
  EXPECT_EQ(ElevationHistory(Prepared(SeawayOf(1, 3)), time, x, y, {scale.data(), 2}, eta), WaveFault::none);
  EXPECT_EQ(eta[2], 0.0F) << "a list is short";
  EXPECT_EQ(ElevationHistory(Prepared(SeawayOf(9, 3)), time, x, y, scale, eta), WaveFault::unknown_kind);
}

TEST(WaveElevation, GridAgreesWithThePlainSum) {
  std::vector<double> x, y;  // wider than what is taken at once, far down the track
  for (int i = 0; i < 67; ++i) x.push_back(1e5 + 0.07 * i);
  for (int j = 0; j < 130; ++j) y.push_back(-2e4 - 0.05 * j);
  for (const int ISEA : {0, 1, 3, 4, 5}) {
    const IncidentWave wave = Prepared(SeawayOf(ISEA, ISEA == 5 ? 5 : 75));
    const WaveMoment moment{8e4, 0.75};
    std::vector<float> eta(x.size() * y.size(), 7), one(1);
    ASSERT_EQ(ElevationGrid(wave, moment, x, y, eta), WaveFault::none);
    double largest = 0.0, worst = 0.0;
    for (std::size_t n = 0; n < eta.size(); n += 3) {
      const Vector3 at = {x[n % x.size()], y[n / x.size()], 0};
      double exact = 0.0;
      if (ISEA == 1 || ISEA == 4) {
        for (std::size_t i = 0; i < wave.size(); ++i)
          exact += wave.a[i] * 0.75 * std::cos(wave.kx[i] * at[0] + wave.ky[i] * at[1] - wave.w[i] * 8e4 + wave.p[i]);
      } else {
        WaveOutputs out;
        out.eta = one;
        ASSERT_EQ(EvalIncidentWave(wave, moment, {}, {&at, 1}, out), WaveFault::none);
        exact = one[0];
      }
      largest = std::max(largest, std::abs(exact));
      worst = std::max(worst, std::abs(eta[n] - exact));
    }
    EXPECT_EQ(largest > 0.0, ISEA != 0);
    EXPECT_LE(worst, 1e-6 * largest) << ISEA;
  }
  std::vector<float> eta(2, 7);
  EXPECT_EQ(ElevationGrid(Prepared(SeawayOf(9, 3)), {}, {x.data(), 2}, {y.data(), 1}, eta), WaveFault::unknown_kind);
  EXPECT_EQ(eta[1], 0.0F);
}

}  // namespace
}  // namespace zaview
