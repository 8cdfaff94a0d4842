// How long do 500 wave components take: at a point that moves through 200 000 steps, on one thread and on two, and at
// the 61 x 41 points of a sea that is drawn again and again, elevation alone and with slopes and potential, with split
// phases and by the plain sum in double?
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

#include <benchmark/benchmark.h>

#include "random_sea.h"
#include "waves/elevation_grid.h"
#include "waves/incident_wave.h"
#include "waves/wave_elevation.h"

namespace zaview {
namespace {

constexpr std::size_t kComponents = 500;
constexpr std::size_t kSteps = 200'000;
constexpr int kPointsX = 61;
constexpr int kPointsY = 41;

IncidentWave Sea() {
  return MakeSea({.components = kComponents});
}

void CheckElevation(const IncidentWave& wave, double x, double y, double t, float eta) {
  double exact = 0.0;
  double amplitudes = 0.0;
  for (std::size_t i = 0; i < wave.size(); ++i) {
    const auto a = static_cast<double>(wave.a[i]);
    exact += a * std::cos(wave.kx[i] * x + wave.ky[i] * y - wave.w[i] * t + wave.p[i]);
    amplitudes += a;
  }
  if (!(std::abs(static_cast<double>(eta) - exact) <= 1e-6 * amplitudes)) std::abort();
}

void MovingPoint(benchmark::State& state) {
  const IncidentWave wave = Sea();
  std::vector<float> time, x, y, eta(kSteps);
  for (std::size_t i = 0; i < kSteps; ++i) {
    time.push_back(0.05F * static_cast<float>(i));
    x.push_back(0.3F * time[i]);
    y.push_back(0.1F * std::sin(time[i]));
  }
  const int threads = static_cast<int>(state.range(0));
  for (auto _ : state) {
    if (ElevationHistory(wave, time, x, y, {}, eta, threads) != WaveFault::none) std::abort();
    benchmark::DoNotOptimize(eta.data());
  }
  for (std::size_t i = 0; i < kSteps; i += 997) {
    CheckElevation(wave, static_cast<double>(x[i]), static_cast<double>(y[i]), static_cast<double>(time[i]), eta[i]);
  }
}
BENCHMARK(MovingPoint)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->UseRealTime();

void DrawnSea(benchmark::State& state) {
  const IncidentWave wave = Sea();
  std::vector<Vector3> points;
  for (int j = 0; j < kPointsY; ++j) {
    for (int i = 0; i < kPointsX; ++i) points.push_back({0.05 * i - 1.5, 0.05 * j - 1.0, -0.01});
  }
  const std::size_t n = points.size();
  std::vector<float> values[8], second(9 * n);
  for (std::vector<float>& one : values) one.resize(n);
  WaveOptions options;
  WaveOutputs out;
  out.eta = values[0];
  options.elevation_only = state.range(0) == 0;
  if (!options.elevation_only) {
    out = {values[0], values[1], values[2], values[3], values[4], values[5], values[6], values[7], second};
  }
  WaveMoment moment{1000.0, 1.0};
  for (auto _ : state) {
    moment.time += 0.05;
    if (EvalIncidentWave(wave, moment, options, points, out) != WaveFault::none) std::abort();
    benchmark::DoNotOptimize(values[0].data());
  }
  for (std::size_t i = 0; i < n; i += 97) CheckElevation(wave, points[i][0], points[i][1], moment.time, values[0][i]);
}
BENCHMARK(DrawnSea)->ArgName("full")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

void GridOfASea(benchmark::State& state) {
  const IncidentWave wave = Sea();
  std::vector<double> x, y;
  for (int i = 0; i < kPointsX; ++i) x.push_back(300.0 + 0.05 * i - 1.5);
  for (int j = 0; j < kPointsY; ++j) y.push_back(0.05 * j - 1.0);
  std::vector<float> eta(x.size() * y.size());
  std::vector<double> plain(eta.size());
  const bool split = state.range(0) == 1;
  double time = 1000.0;
  const auto sum = [&] {
    for (std::size_t n = 0; n < plain.size(); ++n) {
      plain[n] = 0.0;
      for (std::size_t i = 0; i < wave.size(); ++i) {
        const double psi = wave.kx[i] * x[n % x.size()] + wave.ky[i] * y[n / x.size()] - wave.w[i] * time + wave.p[i];
        plain[n] += static_cast<double>(wave.a[i]) * std::cos(psi);
      }
    }
  };
  for (auto _ : state) {
    time += 0.05;
    if (split && ElevationGrid(wave, {time, 1.0}, x, y, eta) != WaveFault::none) std::abort();
    if (!split) sum();
    benchmark::DoNotOptimize(eta.data());
    benchmark::DoNotOptimize(plain.data());
  }
  if (!split) return;
  sum();
  double largest = 0.0, worst = 0.0;
  for (std::size_t n = 0; n < plain.size(); ++n) {
    largest = std::max(largest, std::abs(plain[n]));
    worst = std::max(worst, std::abs(static_cast<double>(eta[n]) - plain[n]));
  }
  state.counters["worst"] = worst / largest;
  if (!(worst <= 1e-6 * largest)) std::abort();
}
BENCHMARK(GridOfASea)->ArgName("split")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace zaview
