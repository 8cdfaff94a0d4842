#include "waves/incident_wave.h"

#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "waves/dispersion.h"
#include "waves/elevation_grid.h"
#include "waves/phase_reduction.h"
#include "waves/regular_wave.h"
#include "waves/wave_elevation.h"
#include "waves/wave_interp.h"

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

IncidentWave OneWave(int ISEA = 1) {
  Seaway seaway;
  seaway.ISEA = ISEA;
  seaway.waves = {{2.0F}, {20}, {0.01F}, {160}};
  IncidentWave wave;
  EXPECT_TRUE(PrepareIncidentWave(seaway, wave));
  return wave;
}

TEST(WaveInterp, RectangleOfTheTable) {
  WaveTableRequest ship;
  ship.centre_x = 99, ship.centre_y = 5;
  ship.ship_x_min = 2, ship.ship_x_max = 3;
  WaveTableRequest sized = ship;
  sized.NBASEX = 5, sized.NBASEY = 3;
  sized.XINTRP = 4, sized.YINTRP = 1;
  const struct {
    WaveTableRequest request;
    int nx, ny;
    double x0, y0, dx, dy;
  } cases[] = {{ship, 81, 41, 1.9, 4.4, 1.2 / 80, 1.2 / 40}, {sized, 5, 3, 97, 4.5, 1, 0.5}};
  for (const auto& c : cases) {
    WaveTable table;
    ASSERT_TRUE(SetupIncidentWaveInterpHS(OneWave(), {1.0, 1.0}, c.request, table));
    EXPECT_EQ(table.nx, c.nx);
    EXPECT_EQ(table.ny, c.ny);
    EXPECT_NEAR(table.x0, c.x0, 1e-12);
    EXPECT_NEAR(table.y0, c.y0, 1e-12);
    EXPECT_NEAR(table.dx, c.dx, 1e-12);
    EXPECT_NEAR(table.dy, c.dy, 1e-12);
  }
  for (int which = 0; which < 3; ++which) {
    WaveTableRequest bad = sized;
    if (which == 0) bad.NBASEX = 82;
    if (which == 1) bad.NBASEY = 42;
    WaveTable table;
    EXPECT_FALSE(SetupIncidentWaveInterpHS(OneWave(which == 2 ? 9 : 1), {}, bad, table)) << which;
    EXPECT_EQ(table.nx, 0);
  }
}

TEST(WaveInterp, BilinearInsideAndNothingOutside) {
  WaveTable table{2.5, 10, -1, 0.5, 2, 3, 2, {1, 2, 4, 8, 16, 32}};
  const struct {
    double x, y;
    float eta;
  } inside[] = {{10, -1, 1},       {11, -1, 4},  {10, 1, 8},          {11, 1, 32},
                {10.25, -1, 1.5F}, {10.5, 0, 9}, {10.75, 0.5, 18.75F}};  // 3 + 0.75 (24 - 3)
  std::vector<Vector3> points;
  for (const auto& c : inside) points.push_back({c.x, c.y, -3});
  std::vector<float> eta(points.size(), 7);
  ASSERT_TRUE(ElevationFromTable(table, 2.5 + 0.9e-5, points, eta));
  for (std::size_t i = 0; i < points.size(); ++i) EXPECT_FLOAT_EQ(eta[i], inside[i].eta) << i;

  const double nan = std::numeric_limits<double>::quiet_NaN();
  eta.assign(eta.size(), 7);
  for (const Vector3& outside : {Vector3{9.999, 0, 0}, Vector3{11.001, 0, 0}, Vector3{10, -1.001, 0},
                                 Vector3{10, 1.001, 0}, Vector3{nan, 0, 0}, Vector3{1e300, 0, 0}}) {
    points.back() = outside;
    EXPECT_FALSE(ElevationFromTable(table, 2.5, points, eta)) << outside[0];
  }
  points.pop_back();
  EXPECT_FALSE(ElevationFromTable(table, 2.5 + 1.1e-5, points, eta));
  EXPECT_FALSE(ElevationFromTable(table, nan, points, eta));
  EXPECT_FALSE(ElevationFromTable(WaveTable{}, 0.0, points, eta));
  EXPECT_EQ(eta, std::vector<float>(eta.size(), 7)) << "nothing is taken";
}

TEST(WaveInterp, NodesAndBorderAreTheWave) {
  const WaveMoment moment{1.5, 0.5};
  WaveTableRequest request;
  request.XINTRP = 0.7, request.YINTRP = 0.3;
  request.centre_x = 0.1, request.centre_y = 1.0 / 3;
  WaveTable table;
  ASSERT_TRUE(SetupIncidentWaveInterpHS(OneWave(), moment, request, table));
  const std::vector<Vector3> points = {
      {0.1, 1.0 / 3, 0}, {0.1 - 0.35, 1.0 / 3 - 0.15, 0}, {0.1 + 0.35, 1.0 / 3 + 0.15, 0}, {0.2345, 0.4, 0}};
  std::vector<float> direct(points.size()), taken(points.size());
  WaveOutputs out;
  out.eta = direct;
  ASSERT_EQ(EvalIncidentWave(OneWave(), moment, {}, points, out), WaveFault::none);
  ASSERT_TRUE(ElevationFromTable(table, 1.5, points, taken));
  for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(taken[i], direct[i], 2e-9) << i;
  EXPECT_NEAR(taken[3], direct[3], 0.005 * 16 / 8 * (0.00875 * 0.00875 + 0.0075 * 0.0075)) << "second derivatives";

  request.NBASEX = request.NBASEY = 1;
  ASSERT_TRUE(SetupIncidentWaveInterpHS(OneWave(), moment, request, table));
  EXPECT_TRUE(ElevationFromTable(table, 1.5, {&points[1], 1}, taken));
  EXPECT_FALSE(ElevationFromTable(table, 1.5, {&points[0], 1}, taken));
}

}  // namespace
}  // namespace zaview
