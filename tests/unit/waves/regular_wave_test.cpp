#include "waves/regular_wave.h"

#include <cmath>

#include <gtest/gtest.h>

#include "waves/dispersion.h"

namespace zaview {
namespace {

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
