#include "analysis/sea_view/sight_line.h"

#include <cmath>
#include <numbers>
#include <random>

#include <gtest/gtest.h>

#include "waves/incident_wave.h"

namespace zaview {
namespace {

constexpr double kEarth = 6.371e6;

// In metres: components of a, k, heading and phase. Frequencies only matter ahead of time 0.
IncidentWave Sea(const std::vector<std::array<double, 4>>& components) {
  Seaway seaway;
  seaway.ISEA = components.empty() ? 0 : 1;
  for (const auto& [a, k, heading, phase] : components) {
    seaway.waves.FREQW.push_back(static_cast<float>(std::sqrt(k)));
    seaway.waves.AMPW0.push_back(static_cast<float>(a));
    seaway.waves.HEADW.push_back(static_cast<float>(heading));
    seaway.waves.PHASEW.push_back(static_cast<float>(phase));
  }
  IncidentWave wave;
  EXPECT_TRUE(PrepareIncidentWave(seaway, wave));
  return wave;
}

IncidentWave RandomSea(std::size_t n) {
  std::mt19937 random(3);
  std::uniform_real_distribution<double> unit(0.0, 1.0);
  std::vector<std::array<double, 4>> components;
  for (std::size_t i = 0; i < n; ++i)
    components.push_back({unit(random), 0.01 + unit(random), 90.0 * unit(random), 360.0 * unit(random)});
  return Sea(components);
}

SeaLine LineOn(const IncidentWave& wave, Vector3 origin = {}, double heading = 0.0) {
  const double direction[2] = {std::cos(heading), std::sin(heading)};
  SeaLine line;
  EXPECT_TRUE(SetSeaLine(wave, {7.0, 0.5}, origin, direction, line));
  return line;
}

TEST(SeaLine, TurnedComponentsAreTheirCosines) {
  const IncidentWave wave = RandomSea(50);
  const SeaLine line = LineOn(wave, {-3.0, 8.0, 0.0}, 0.4);
  for (const std::size_t n : {1U, 15U, 17U, 1024U, 1025U, 9000U}) {
    std::vector<double> eta(n);
    ASSERT_TRUE(ElevationsAlong(line, 2.5, 0.3, eta));
    for (std::size_t i = 0; i<n; i += n> 100 ? 37 : 1) {
      const double s = 2.5 + 0.3 * static_cast<double>(i);
      double sum = 0.0;
      for (std::size_t c = 0; c < wave.size(); ++c) {
        const double x = -3.0 + s * std::cos(0.4);
        const double y = 8.0 + s * std::sin(0.4);
        sum += 0.5 * static_cast<double>(wave.a[c]) *
               std::cos(wave.kx[c] * x + wave.ky[c] * y - wave.w[c] * 7.0 + wave.p[c]);
      }
      ASSERT_NEAR(eta[i], sum, 3e-11) << n << " " << i;  // amplitudes: 12 in all, phases up to 3000
      ASSERT_NEAR(SlopesAt(line, s).eta, sum, 1e-11);
    }
  }
}

TEST(SightLine, HeightsBehindOneWave) {
  IncidentWave wave = Sea({{2.0, 2.0 * std::numbers::pi / 100.0, 0.0, 0.0}});
  wave.w[0] = 0.0;  // a crest at the sensor, whatever the time
  const double along[2] = {1.0, 0.0};
  SeaLine line;
  ASSERT_TRUE(SetSeaLine(wave, {0.0, 1.0}, {}, along, line));
  const Sensor sensor{15.0, kEarth, 100.0};
  // Of 400 samples a wave, by another program.
  const std::vector<double> distance = {50, 120, 150, 250, 500, 1050, 5050, 10050, 18050};
  const double expected[] = {-2.0, 0.618, -2.0, -0.9207, 2.0, 1.3652, 1.8901, 1.9745, 4.1054};
  std::vector<double> eta;
  for (const double s : distance) eta.push_back(SlopesAt(line, s).eta);
  LineSamples samples;
  ASSERT_TRUE(SampleLine(line, sensor, SampleStep(wave, 50.0, 18050.0), 18050.0, samples));
  std::vector<float> z(distance.size());
  VisibleHeights(sensor, samples, distance, eta, z);
  for (std::size_t j = 0; j < z.size(); ++j) EXPECT_NEAR(z[j], expected[j], 1e-4) << distance[j];

  std::vector<Crest> crests;
  ASSERT_TRUE(FindCrests(line, samples, crests));
  EXPECT_EQ(crests.size(), 180U);
  EXPECT_NEAR(crests[4].s, 500.0, 1e-4);
  EXPECT_NEAR(crests[4].eta, 2.0, 1e-9);
  VisibleHeights({1.9, kEarth, 100.0}, samples, distance, eta, z);  // under the wave at its own place
  EXPECT_EQ(z[0], 100.0F);
}

TEST(SightLine, HeightsOverACalmSea) {
  const IncidentWave calm = Sea({});
  const SeaLine line = LineOn(calm);
  const Sensor sensor{15.0, kEarth, 1.3};
  const double edge = std::sqrt(2.0 * kEarth * 15.0);
  const std::vector<double> distance = {100.0, 1000.0, edge - 1.0, 14825.0, 17800.0, 18000.0};
  const std::vector<double> eta(distance.size());
  LineSamples samples;
  ASSERT_TRUE(SampleLine(line, sensor, SampleStep(calm, 100.0, 18000.0), 18000.0, samples));
  std::vector<float> z(distance.size());
  VisibleHeights(sensor, samples, distance, eta, z);
  for (std::size_t j = 0; j < z.size(); ++j) {
    const double behind = std::max(distance[j] - edge, 0.0);
    EXPECT_NEAR(z[j], std::min(behind * behind / (2.0 * kEarth), 1.3), 1e-4) << distance[j];
  }
  EXPECT_EQ(samples.touches.size(), 1U);
}

// The highest ray over any place ahead, of 40 places a sample.
TEST(SightLine, HeightsBehindManyWaves) {
  const IncidentWave wave = RandomSea(30);
  const SeaLine line = LineOn(wave, {10.0, 20.0, 0.0}, 0.7);
  const Sensor sensor{12.0, kEarth, 1e6};
  constexpr double kFar = 600.0;
  const double step = SampleStep(wave, 5.0, kFar);
  LineSamples samples;
  ASSERT_TRUE(SampleLine(line, sensor, step, kFar, samples));
  std::vector<double> distance, eta, fine(static_cast<std::size_t>(kFar / (step / 40.0)));
  ASSERT_TRUE(ElevationsAlong(line, 0.0, step / 40.0, fine));
  for (double s = 5.0; s <= kFar; s += 3.7) distance.push_back(s);
  eta.resize(distance.size());
  ASSERT_TRUE(ElevationsAlong(line, 5.0, 3.7, eta));
  std::vector<float> z(distance.size());
  VisibleHeights(sensor, samples, distance, eta, z);
  for (std::size_t j = 0; j < z.size(); ++j) {
    double M = -1e30;
    for (std::size_t i = 1; i < fine.size(); ++i) {
      const double s = static_cast<double>(i) * step / 40.0;
      if (!(s < distance[j])) break;
      M = std::max(M, (fine[i] - s * s / (2.0 * kEarth) - 12.0) / s);
    }
    const double s = distance[j];
    EXPECT_NEAR(z[j], std::max(eta[j], 12.0 + M * s + s * s / (2.0 * kEarth)), 2e-3) << s;
  }
}

TEST(SightLine, HorizonAndLookdown) {
  const struct {
    double h, distance, angle;
  } horizons[] = {{5.0, 5644.0256, 0.10151574}, {20.0, 11288.0645, 0.20303084}, {0.0, 0.0, 0.0}, {-3.0, 0.0, 0.0}};
  for (const auto& c : horizons) {
    const Horizon horizon = HorizonOf(c.h, kEarth);
    EXPECT_NEAR(horizon.distance, c.distance, 1e-3);
    EXPECT_NEAR(horizon.angle_deg, c.angle, 1e-7);
  }
  constexpr double kRadians = std::numbers::pi / 180.0;
  const Rotation R = ShipToGlobal(5.0 * kRadians, 2.0 * kRadians, 30.0 * kRadians);
  const struct {
    double azimuth, level, down;  // look-down angle 0 and 10
  } angles[] = {{0.0, 2.0, 11.9613}, {90.0, -4.9969, 4.9969}, {180.0, -2.0, 7.9618}, {-90.0, 4.9969, 14.9906}};
  for (const auto& c : angles) {
    EXPECT_NEAR(LookdownAngle(R, c.azimuth, 0.0), c.level, 6e-5);
    EXPECT_NEAR(LookdownAngle(R, c.azimuth, 10.0), c.down, 6e-5);
  }
}

}  // namespace
}  // namespace zaview
