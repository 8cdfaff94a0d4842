#include "waves/incident_wave.h"

#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "waves/dispersion.h"
#include "waves/phase_reduction.h"
#include "waves/regular_wave.h"

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

TEST(IncidentWave, TwoComponentsByHand) {
  // clang-format off
  const struct {
    double h;
    int stretch;
    double eta, phi, phi_t, phi_x, phi_z, phi_xz, phi_zz;
  } cases[] = {
      {0, 0, -5.258143e-4, -8.567539e-3, 4.998515e-4, 4.567218e-4, -1.774669e-3, 4.985202e-4, 5.131672e-3},
      {0, 1, -5.258143e-4, -8.568471e-3, 5.001161e-4, 4.569840e-4, -1.771969e-3, 4.988713e-4, 5.138972e-3},
      {0.4, 0, -1.181212e-3, -8.424586e-3, 1.170493e-3, 1.984204e-3, -1.345750e-3, 4.204865e-4, -1.924102e-3},
      {0.4, 1, -1.181212e-3, -8.425982e-3, 1.170708e-3, 1.984640e-3, -1.347735e-3, 4.213505e-4, -1.905912e-3},
  };
  // clang-format on
  for (const auto& c : cases) {
    WaveOptions options;
    options.stretch = c.stretch;
    const Values v = At(Prepared(TwoComponents(c.h)), {{0.2, -0.1, -0.05}}, {2.5, 1.0}, options);
    const double got[] = {v.one[0][0], v.one[3][0], v.one[4][0], v.one[5][0], v.one[7][0], v.second[2], v.second[8]};
    const double want[] = {c.eta, c.phi, c.phi_t, c.phi_x, c.phi_z, c.phi_xz, c.phi_zz};
    for (int i = 0; i < 7; ++i) EXPECT_NEAR(got[i], want[i], 1e-8) << c.h << ' ' << c.stretch << ' ' << i;
  }
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

TEST(RegularWave, WaveNumberSolvesTheDispersionRelation) {
  // clang-format off
  const struct { double w, h, k; } cases[] = {  // k by bisection in another program
      {0.8, 0.4, 1.3214820856266472}, {1.3, 0.4, 2.3175835887719467}, {0.05, 0.01, 0.500002083342882},  // shallow
      {0.001, 2.0, 0.0007071070168888944},  // k h far below 1
      {3.2, 0.001, 101.36591223551446}, {1.0, 1.0, 1.199678640257734}, {5.0, 3.0, 25.0},  // as deep as deep water
      {0.8, 0.0, 0.64}, {0.8, 1e-6, 0.64}, {0.0, 1.0, 0.0}};  // counts as deep
  // clang-format on
  for (const auto& c : cases) EXPECT_NEAR(WaveNumber(c.w, c.h), c.k, 4e-15 * c.k) << c.w << ' ' << c.h;
  for (double w = 1e-3; w < 1e3; w *= 1.7) {
    for (double h = 1e-5; h < 1e4; h *= 2.3) {
      const double k = WaveNumber(w, h);
      EXPECT_NEAR(k * std::tanh(k * h), w * w, 4e-15 * w * w) << w << ' ' << h;
    }
  }
}

ControlRecords OneWave(int ISEA, const WaveComponentInput& wave) {
  ControlRecords r;
  r.GRAVIN = 9.81;
  r.LENIN = 100;
  r.seaway.ISEA = ISEA;
  r.seaway.waves = {wave};
  return r;
}

TEST(RegularWave, LinearWaveInFiniteDepth) {
  ControlRecords r = OneWave(1, {0.6, 30, 2.0, 150});
  r.WDEPTH = 40;
  RegularWave wave;
  ASSERT_TRUE(FindRegularWave(r, wave));
  EXPECT_NEAR(wave.w, 1.9156525704423024, 1e-14);
  EXPECT_NEAR(wave.k, 3.985425195704715, 1e-13);
  EXPECT_NEAR(wave.A, 0.02, 1e-16);
  EXPECT_NEAR(wave.beta, 2.6179938779914944, 1e-15);
}

TEST(RegularWave, StokesOrderDecidesTheFrequency) {
  // clang-format off
  const struct { int order; double w; } cases[] = {  // of nominal w 3.2, A 0.02
      {0, 3.2}, {1, 3.2}, {2, 3.26641955810946}, {3, 3.26641955810946}, {4, 3.269864634466823}, {5, 3.269864634466823}};
  // clang-format on
  for (const auto& c : cases) {
    ControlRecords r = OneWave(3, {3.2, 45, 0.02, 180});
    r.GRAVIN = r.LENIN = 1;
    r.seaway.WSPEC = c.order;
    RegularWave wave;
    ASSERT_TRUE(FindRegularWave(r, wave));
    EXPECT_NEAR(wave.w, c.w, 1e-14) << c.order;
    EXPECT_NEAR(wave.k, 10.24, 1e-14) << c.order;
  }
}

TEST(RegularWave, OtherSeawaysAreNone) {
  ControlRecords two = OneWave(1, {1, 0, 1, 0}), with_second_sea = two;
  two.seaway.waves.push_back({1, 0, 1, 0});
  with_second_sea.added_seaway.resize(1);
  RegularWave wave;
  for (const ControlRecords& records : {OneWave(0, {1, 0, 1, 0}), OneWave(8, {1, 0, 1, 0}), OneWave(1, {0, 0, 1, 0}),
                                        OneWave(3, {-1, 0, 1, 0}), OneWave(1, {NAN, 0, 1, 0}), two, with_second_sea})
    EXPECT_FALSE(FindRegularWave(records, wave)) << records.seaway.ISEA;
}

}  // namespace
}  // namespace zaview
