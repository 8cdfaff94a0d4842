// How long does the sea along a line of 9000 places take, 500 components turned from place to place or by a cosine
// each? And a grid of visible heights, 360 azimuths by 200 distances to 5 km, a step, with its file, on both
// processors: the 100 steps of a long table are that many times it.
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "analysis/sea_view/sea_line.h"
#include "analysis/sea_view/sensor_view.h"
#include "base/platform_posix.h"
#include "random_sea.h"

namespace zaview {
namespace {

constexpr std::size_t kPlaces = 9000;
constexpr int kSteps = 100;

// Lengths by 100 m: waves from 2.6 to 600 m.
IncidentWave Sea() {
  return MakeSea({.components = 500, .least_frequency = 1.0F, .band = 7.5F});
}

void Cosines(const SeaLine& line, double step, std::vector<double>& eta) {
  for (std::size_t n = 0; n < eta.size(); ++n) {
    const double s = static_cast<double>(n) * step;
    eta[n] = 0.0;
    for (std::size_t i = 0; i < line.a.size(); ++i) eta[n] += line.a[i] * std::cos(line.K[i] * s + line.p[i]);
  }
}

void SeaAlongALine(benchmark::State& state) {
  constexpr double kStep = 0.0054;
  const IncidentWave wave = Sea();
  const double direction[2] = {0.8, 0.6};
  SeaLine line;
  if (!SetSeaLine(wave, {1000.0, 1.0}, {250.0, 3.0, 0.0}, direction, line)) std::abort();
  std::vector<double> turned(kPlaces), plain(kPlaces);
  if (!ElevationsAlong(line, 0.0, kStep, turned)) std::abort();
  Cosines(line, kStep, plain);
  double amplitudes = 0.0, worst = 0.0;
  for (const double a : line.a) amplitudes += a;
  for (std::size_t n = 0; n < kPlaces; ++n) worst = std::max(worst, std::abs(turned[n] - plain[n]));
  if (!(worst <= 1e-12 * amplitudes)) std::abort();
  for (auto _ : state) {
    if (state.range(0) == 0) Cosines(line, kStep, plain);
    else if (!ElevationsAlong(line, 0.0, kStep, turned)) std::abort();
    benchmark::DoNotOptimize(turned.data());
    benchmark::DoNotOptimize(plain.data());
  }
  state.counters["worst"] = worst / amplitudes;
}
BENCHMARK(SeaAlongALine)->ArgName("turned")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();

CaseStore CaseInWaves() {
  CaseStore c;
  c.has_case = true;
  c.file_name = "run.out";
  c.last_read = c.last_step = kSteps;
  c.control.LENIN = 100.0;
  c.ships.resize(1);
  c.time.component.assign(1, std::vector<float>(kSteps));
  c.pmgg.component.assign(6, std::vector<float>(kSteps));
  for (int i = 0; i < kSteps; ++i) c.time.component[0][static_cast<std::size_t>(i)] = 0.08F * static_cast<float>(i);
  c.seaway.ISEA = 1;
  c.seaway_tried = Tried::there;
  c.wave = Sea();
  return c;
}

void GridOfVisibleHeights(benchmark::State& state) {
  const Platform platform = PosixPlatform();
  CaseStore c = CaseInWaves();
  OutputSettings settings;
  settings.units.LENOUT = 100.0F;
  SensorRequest request;
  request.mode = SensorMode::grid;
  request.steps = {1, static_cast<int>(state.range(0)), 1};
  request.sensor = {{0.0F, 0.0F, 25.0F}, 10.0F};
  for (int i = 0; i < 360; ++i) request.azimuths.push_back(i);
  for (int i = 1; i <= 200; ++i) request.distances.push_back(25.0 * i);
  const std::string root = std::filesystem::temp_directory_path() / "sensor_view_bench";
  SensorViewResult result;
  for (auto _ : state) {
    if (!WriteSensorView(platform, settings, {}, request, root, c, result)) std::abort();
  }
  std::filesystem::remove(root + ".vis_grid");
  state.counters["samples"] = std::ceil(50.0 / SampleStep(c.wave, 0.25, 50.0));
}
BENCHMARK(GridOfVisibleHeights)
    ->ArgName("steps")
    ->Arg(1)
    ->Arg(kSteps)
    ->Iterations(1)
    ->Unit(benchmark::kSecond)
    ->UseRealTime();

}  // namespace
}  // namespace zaview
