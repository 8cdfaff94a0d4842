#include "waves/incident_wave.h"

#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "waves/phase_reduction.h"

namespace zaview {
namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

IncidentWave Prepared(const Seaway& seaway) {
  IncidentWave wave;
  EXPECT_TRUE(PrepareIncidentWave(seaway, wave));
  return wave;
}

Seaway TwoComponents(double depth) {
  Seaway seaway;
  seaway.ISEA = 1;
  seaway.WDEPTH = depth;
  seaway.waves = {{0.8F, 1.3F}, {30, -60}, {0.01F, 0.005F}, {180, 150}};
  return seaway;
}

struct Values {  // all outputs at n points
  std::vector<float> one[8], second;
  WaveOutputs out;
  explicit Values(std::size_t n, float fill = 7.0F) : second(9 * n, fill) {
    for (std::vector<float>& values : one) values.assign(n, fill);
    out = {one[0], one[1], one[2], one[3], one[4], one[5], one[6], one[7], second};
  }
};

Values At(const IncidentWave& wave, const std::vector<Vector3>& points, WaveMoment moment, WaveOptions options = {}) {
  Values values(points.size());
  EXPECT_EQ(EvalIncidentWave(wave, moment, options, points, values.out), WaveFault::none);
  return values;
}

TEST(IncidentWave, SineAndCosineOfAPhase) {
  double worst = 0.0;
  std::mt19937 random(3);
  for (const double range : {3.2, 100.0, 2e5, 1e6}) {
    std::uniform_real_distribution<double> phases(-range, range);
    for (int i = 0; i < 400'000; ++i) {
      const double psi = phases(random);
      worst = std::max(worst, std::abs(static_cast<double>(QuarterSine(CosQuarter(psi))) - std::cos(psi)));
      worst = std::max(worst, std::abs(static_cast<double>(QuarterSine(SinQuarter(psi))) - std::sin(psi)));
    }
  }
  EXPECT_LT(worst, 1.3e-7);
  for (const double psi : {1e17, -1e17, 1e40, 1e300}) {
    EXPECT_LE(std::abs(QuarterSine(CosQuarter(psi))), 1.000001F) << psi;
    EXPECT_LE(std::abs(QuarterSine(SinQuarter(psi))), 1.000001F) << psi;
  }
  EXPECT_TRUE(std::isnan(QuarterSine(CosQuarter(kInfinity))));
}

TEST(IncidentWave, DepthOfEvaluation) {
  Seaway deep = TwoComponents(1e-6);
  deep.waves = {{1.0F}, {90}, {0.5F}, {0}};
  // At x = 0, t = 0: eta = 0, phi = a E. At x = -pi/2: eta = a on the crest.
  const double h = 0.4, k = 1.6;  // of any wave: the depth limits z alone
  // clang-format off
  const struct { double z; int stretch, IEKZOPT; double phi; } cases[] = {
      {-0.5, 0, 1, 0.5 * std::exp(-0.5)}, {-0.5, 0, -1, 0.5 * std::exp(-0.5)}, {-0.5, 0, 0, 0.5}, {-0.5, 0, 2, 0.5},
      {0.7, 0, 1, 0.5}, {0.7, 1, 1, 0.5}, {-31, 0, 1, 0}, {-31, 0, 2, 0.5}};
  // clang-format on
  for (const auto& c : cases) {
    const WaveOptions options{c.IEKZOPT, c.stretch, false};
    EXPECT_NEAR(At(Prepared(deep), {{0, 0, c.z}}, {}, options).one[3][0], c.phi, 1e-7) << c.z << ' ' << c.IEKZOPT;
  }
  EXPECT_GT(At(Prepared(deep), {{0, 0, -29}}, {}, {1, 0, false}).one[3][0], 0.0F);
  // Short waves in deep but finite water decay as in deep water; below the bottom the bottom holds.
  Seaway finite = deep;
  finite.WDEPTH = 50;
  EXPECT_NEAR(At(Prepared(finite), {{0, 0, -2}}, {}, {0, 0, false}).one[3][0], 0.5 * std::exp(-2.0), 1e-7);
  finite = TwoComponents(h);
  const Values bottom = At(Prepared(finite), {{0, 0, -h}, {0, 0, -k}}, {});
  EXPECT_EQ(bottom.one[3][0], bottom.one[3][1]);
}

TEST(IncidentWave, EachKindOfSeaway) {
  Seaway seaway = TwoComponents(0.4);
  seaway.waves = {{0.8F, 0.0F, -1.0F, kNaN, 1.3F}, {30, 1, 2, 3, -60}, {0.01F, 1, 1, 1, 0.005F}, {180, 1, 2, 3, 150}};
  const std::vector<Vector3> points = {{0.2, -0.1, -0.05}, {3, 4, 0}};
  const Values want = At(Prepared(TwoComponents(0.4)), points, {2.5, 1.0});
  EXPECT_EQ(At(Prepared(seaway), points, {2.5, 1.0}).second, want.second) << "components without a wave";

  EXPECT_EQ(Prepared(seaway).left_out, 3U);
  Seaway modes;
  modes.ISEA = 5;
  modes.modes = {{1, 0, 2}, {0, 0, 0}, {-1, 0, 1}, 0};
  EXPECT_EQ(Prepared(modes).left_out, 1U) << "one without an amplitude is not missed";
  const IncidentWave one = Prepared(TwoComponents(0.4));
  Seaway four;
  four.ISEA = 4;
  four.WDEPTH = 0.4;
  four.alternative.FREQ = {0.8F, 0.0F};
  four.alternative.PHASE = {30, -60};
  four.alternative.AMP = {0.01F, 0.005F};
  four.alternative.HEAD = {1, 2};
  for (std::size_t i = 0; i < 2; ++i) {
    four.alternative.KX.push_back(static_cast<float>(one.kx[i]));
    four.alternative.KY.push_back(static_cast<float>(one.ky[i]));
  }
  const Values got = At(Prepared(four), points, {2.5, 1.0});
  for (std::size_t i = 0; i < 8; ++i) EXPECT_NEAR(got.one[i][1], want.one[i][1], 5e-9F) << i;

  four.alternative.FREQ[0] = 0.9F;
  EXPECT_EQ(Prepared(four).w[0], static_cast<double>(0.9F)) << "as given, whatever its wave number";

  Seaway calm;
  for (const float value : At(Prepared(calm), points, {2.5, 1.0}).second) EXPECT_EQ(value, 0.0F);
  Seaway unknown = TwoComponents(0);
  unknown.ISEA = 9;
  Values left(2);
  EXPECT_EQ(EvalIncidentWave(Prepared(unknown), {}, {}, points, left.out), WaveFault::unknown_kind);
  EXPECT_EQ(left.one[0], std::vector<float>(2, 0.0F));
}

TEST(IncidentWave, OrderOfTheSumAndFarPhases) {
  std::mt19937 random(5);
  std::uniform_real_distribution<float> unit(0.0F, 1.0F);
  Seaway seaway;
  seaway.ISEA = 1;
  for (int i = 0; i < 301; ++i) {
    seaway.waves.FREQW.push_back(0.4F + 2 * unit(random));
    seaway.waves.PHASEW.push_back(360 * unit(random));
    seaway.waves.AMPW0.push_back(0.01F * unit(random));
    seaway.waves.HEADW.push_back(360 * unit(random));
  }
  const IncidentWave wave = Prepared(seaway);
  std::vector<Vector3> points;
  for (int i = 0; i < 37; ++i) points.push_back({300.0 * unit(random), 40.0 * unit(random), -0.1 * unit(random)});
  const WaveMoment moment{8e4, 0.75};  // phases up to 2e5
  const Values all = At(wave, points, moment);
  WaveOptions bare;
  bare.elevation_only = true;
  EXPECT_EQ(At(wave, points, moment, bare).one[0], all.one[0]);
  for (std::size_t n = 0; n < points.size(); ++n) {
    const Values alone = At(wave, {points[n]}, moment);
    for (std::size_t i = 0; i < 8; ++i) EXPECT_EQ(alone.one[i][0], all.one[i][n]);
    float lane[4] = {};
    double exact = 0.0, amplitudes = 0.0;
    for (std::size_t i = 0; i < wave.size(); ++i) {
      const double psi = wave.kx[i] * points[n][0] + wave.ky[i] * points[n][1] - wave.w[i] * moment.time + wave.p[i];
      lane[i % 4] += (wave.a[i] * 0.75F) * QuarterSine(CosQuarter(psi));
      exact += wave.a[i] * 0.75 * std::cos(psi);
      amplitudes += wave.a[i] * 0.75;
    }
    EXPECT_EQ(all.one[0][n], (lane[0] + lane[1]) + (lane[2] + lane[3]));
    EXPECT_NEAR(all.one[0][n], exact, 2e-7 * amplitudes);
  }
}

TEST(IncidentWave, AnyNumbersAreData) {
  for (const int ISEA : {1, 3, 4, 5}) {
    for (const float bad : {kNaN, std::numeric_limits<float>::infinity(), 1e38F, -1e38F}) {
      for (int field = 0; field < 4; ++field) {
        Seaway seaway = TwoComponents(field == 0 ? static_cast<double>(bad) : 0.4);
        seaway.ISEA = ISEA;
        seaway.WSPEC = 5;
        std::vector<float>* lists[] = {&seaway.waves.FREQW, &seaway.waves.PHASEW, &seaway.waves.AMPW0,
                                       &seaway.waves.HEADW};
        (*lists[field])[1] = bad;
        const WaveComponents& w = seaway.waves;
        seaway.alternative = {w.FREQW, w.HEADW, w.AMPW0, w.PHASEW, w.FREQW, w.HEADW, 1, 2};
        seaway.modes = {w.AMPW0, w.PHASEW, w.FREQW, w.HEADW[1]};
        const IncidentWave wave = Prepared(seaway);
        const std::vector<Vector3> points = {{0, 0, 0}, {kInfinity, 1e300, -1e300}, {kNaN, 0, kNaN}};
        for (const double time : {0.0, 1e300, kInfinity}) EXPECT_EQ(At(wave, points, {time, 1e300}).one[0].size(), 3U);
      }
    }
  }
}

}  // namespace
}  // namespace zaview
