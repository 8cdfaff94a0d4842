// How long do extremes and rainflow counts of one curve of 200 000 steps take, and extremes of a hundred records of 20
// 000?
#include <cmath>
#include <cstdlib>
#include <random>

#include <benchmark/benchmark.h>

#include "analysis/curves/curve_extremes.h"
#include "analysis/curves/rainflow_report.h"

namespace zaview {
namespace {

// Lightly damped and driven at random: about 20 steps a cycle.
CaseStore RandomCase(std::size_t n, unsigned seed) {
  std::mt19937 random(seed);
  CaseStore c;
  c.has_case = true;
  c.last_read = c.last_step = static_cast<int>(n);
  c.time.component.assign(1, std::vector<float>(n));
  c.pmgg.component.assign(6, std::vector<float>(n));
  double a = 0, b = 0;
  for (std::size_t i = 0; i < n; ++i) {
    const double next = 1.9 * std::cos(0.31) * a - 0.9025 * b + static_cast<double>(random()) / 4294967296.0 - 0.5;
    b = a;
    a = next;
    c.time.component[0][i] = 0.5F * static_cast<float>(i);
    c.pmgg.component[0][i] = static_cast<float>(a);
  }
  return c;
}

template <typename Run>
void Of(benchmark::State& state, std::size_t steps, int records, const Run& run) {
  CaseStore c = RandomCase(steps, 1);
  EnsembleStore ensemble;
  if (records > 1) {
    ensemble.nrec = records;
    ensemble.irec = 1;
    ensemble.record.resize(static_cast<std::size_t>(records));
    for (int i = 1; i < records; ++i)
      ensemble.record[static_cast<std::size_t>(i)] = RandomCase(steps, static_cast<unsigned>(i + 1));
  }
  Platform platform;
  platform.console.write = [](void*, std::string_view) {};
  platform.console.flush = [](void*) {};
  const OutputSettings settings;
  for (auto _ : state) {
    StatisticsState kept;
    if (!run({platform, settings, {c, ensemble}, kept})) std::abort();
  }
}

bool Extremes(const StatWork& work) {
  CurveExtremes extremes;
  return FindExtremes(work, {.iqnt = 1, .curve = 1}, extremes) == DataFault::none && extremes.fits[3].refused.empty();
}

bool Rainflow(const StatWork& work) {
  ResultPlot plot;
  return MakeRainflowPlot(work, {.iqnt = 1, .curve = 1}, plot) == DataFault::none;
}

void ExtremesOfOneRecord(benchmark::State& state) {
  Of(state, 200'000, 1, Extremes);
}
BENCHMARK(ExtremesOfOneRecord)->Unit(benchmark::kMillisecond)->UseRealTime();

void ExtremesOfAHundred(benchmark::State& state) {
  Of(state, 20'000, 100, Extremes);
}
BENCHMARK(ExtremesOfAHundred)->Unit(benchmark::kMillisecond)->UseRealTime();

void RainflowOfOneRecord(benchmark::State& state) {
  Of(state, 200'000, 1, Rainflow);
}
BENCHMARK(RainflowOfOneRecord)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace zaview
