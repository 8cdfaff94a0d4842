#include <cmath>
#include <cstring>
#include <numbers>
#include <random>

#include <gtest/gtest.h>

#include "analysis/sea_view/plot3d_file.h"
#include "analysis/sea_view/wave_analysis.h"
#include "analysis/sea_view/wave_shift.h"
#include "fake_platform.h"
#include "waves/incident_wave.h"

namespace zaview {
namespace {

float ElevationAt(const Seaway& seaway, const Vector3& point, double time) {
  IncidentWave wave;
  EXPECT_TRUE(PrepareIncidentWave(seaway, wave));
  float eta = 0;
  WaveOutputs out;
  out.eta = {&eta, 1};
  EXPECT_EQ(EvalIncidentWave(wave, {time, 1.0}, {}, {&point, 1}, out), WaveFault::none);
  return eta;
}

TEST(WaveShift, PhasesOfOneComponent) {
  Seaway seaway;
  seaway.ISEA = 1;
  seaway.waves = {{std::sqrt(8.0F)}, {-60.0F}, {0.01F}, {150.0F}};
  Seaway shifted;
  ASSERT_TRUE(ShiftWaves(seaway, {1, 4.2, 1.3, 0.0}, shifted));
  EXPECT_NEAR(shifted.waves.PHASEW[0], -176.682981, 5e-5);
  EXPECT_NEAR(InDefinition(-176.682981, PhaseDefinition::negative_sine), -93.317019, 1e-6);
  EXPECT_EQ(InDefinition(-176.682981, PhaseDefinition::cosine), -176.682981);
  ASSERT_TRUE(ShiftWaves(seaway, {1, 0.0, 0.0, 0.0}, shifted));
  EXPECT_EQ(shifted.waves.PHASEW[0], -60.0F);
}

// The same sea at 20 points and times, deep and shallow; the negative sine of the other definition is it as well. A
// Stokes wave goes on as a linear one: the phase of the crest agrees where it begins.
TEST(WaveShift, TheSameSea) {
  std::mt19937 random(5);
  std::uniform_real_distribution<float> unit(0.0F, 1.0F);
  for (const double depth : {0.0, 0.05}) {
    Seaway seaway, shifted;
    seaway.ISEA = 1;
    seaway.WDEPTH = depth;
    for (int i = 0; i < 25; ++i) {
      seaway.waves.FREQW.push_back(0.5F + 4.0F * unit(random));
      seaway.waves.PHASEW.push_back(360.0F * unit(random) - 180.0F);
      seaway.waves.AMPW0.push_back(0.01F * unit(random));
      seaway.waves.HEADW.push_back(360.0F * unit(random));
    }
    const ShiftOrigin origin{1, 21.5, 5.25, -1.75};
    ASSERT_TRUE(ShiftWaves(seaway, origin, shifted));
    for (int i = 0; i < 20; ++i) {
      const double x = 4.0 * static_cast<double>(unit(random)) - 2.0;
      const double y = 2.0 * static_cast<double>(unit(random)) - 1.0;
      const double t = 10.0 * static_cast<double>(unit(random));
      const float eta = ElevationAt(seaway, {origin.x + x, origin.y + y, 0.0}, origin.time + t);
      EXPECT_NEAR(ElevationAt(shifted, {x, y, 0.0}, t), eta, 2e-6);
    }
  }
  Seaway stokes, linear;
  stokes.ISEA = 3;
  stokes.WSPEC = 3;
  stokes.waves = {{2.0F}, {30.0F}, {0.02F}, {0.0F}};
  ASSERT_TRUE(ShiftWaves(stokes, {1, 50.0, 3.0, 0.0}, linear));
  const double crest = -static_cast<double>(linear.waves.PHASEW[0]) * std::numbers::pi / 180.0 / 4.0;
  const float top = ElevationAt(stokes, {3.0 + crest, 0.0, 0.0}, 50.0);
  for (const double aside : {-0.02, 0.02}) EXPECT_GT(top, ElevationAt(stokes, {3.0 + crest + aside, 0.0, 0.0}, 50.0));
}

TEST(WaveFeatures, NearestAndLargest) {
  std::vector<double> s, crests, slopes;
  for (int i = 0; i <= 100; ++i) {
    s.push_back(0.01 * i - 0.5);
    crests.push_back((1.0 + s.back()) * std::cos(20.0 * s.back()));
    slopes.push_back(std::sin(20.0 * s.back()) * (1.2 - s.back()));
  }
  const WaveFeature largest = FindFeature(s, crests, {});
  EXPECT_NEAR(largest.s, std::numbers::pi / 10.0, 3e-3);
  EXPECT_NEAR(largest.value, 1.0 + std::numbers::pi / 10.0, 1e-3);
  EXPECT_NEAR(FindFeature(s, crests, {true, -0.1, false}).s, 0.0, 4e-3);
  EXPECT_NEAR(FindFeature(s, slopes, {false, 0.0, true}).value, -(1.2 + std::numbers::pi / 8.0), 2e-3);
  EXPECT_NEAR(FindFeature(s, slopes, {true, -0.1, true}).value, -(1.2 + std::numbers::pi / 40.0), 2e-3);
  EXPECT_FALSE(FindFeature(s, std::vector<double>(101), {}).there);
}

TEST(WaveAnalysisPlot, SpikesLeaveRoom) {
  const std::vector<float> t = {1, 2, 3, 4}, c = {-10, 12, -4000, 11};
  const ResultPlot plot = WaveAnalysisPlot({t, t, c, c});
  ASSERT_EQ(plot.panels.size(), 2U);
  EXPECT_TRUE(std::isnan(plot.panels[0].curves[0].y[2]));
  EXPECT_EQ(plot.panels[0].curves[1].y[1], 12.0F);
}

TEST(Plot3dFile, RecordsOfOneBlock) {
  FakePlatform fake;
  const Platform platform = fake.Get();
  OutputFile out;
  ASSERT_TRUE(OpenOutput(platform, "f", OpenHow::replace, out));
  WritePlot3dFunctions({{2, 1, 1}, {{1.0F, 2.0F}, {-1.5F, 0.0F}}}, out);
  ASSERT_TRUE(CloseOutput(out));
  const float reals[] = {1.0F, 2.0F, -1.5F, 0.0F};
  std::int32_t words[] = {4, 1, 4, 16, 2, 1, 1, 2, 16, 16, 0, 0, 0, 0, 16};
  std::memcpy(words + 10, reals, sizeof reals);
  EXPECT_EQ(fake.Bytes("f"), std::string(reinterpret_cast<const char*>(words), sizeof words));
}

}  // namespace
}  // namespace zaview
