// What does a bootstrap of intervals cost? All statistics of one record of 20 000 samples, and of an ensemble of 100
// such records, by 1000 resamples; beside them the formula.
#include <cmath>
#include <cstdlib>
#include <random>
#include <span>
#include <vector>

#include <benchmark/benchmark.h>

#include "stats/tables/find_intervals.h"

namespace zaview {
namespace {

// Lightly damped and driven at random: about 20 samples a wave.
std::vector<float> Waves(std::size_t n, unsigned seed) {
  std::mt19937 random(seed);
  std::normal_distribution<float> noise;
  std::vector<float> x(n);
  for (std::size_t i = 2; i < n; ++i) x[i] = 1.808F * x[i - 1] - 0.9025F * x[i - 2] + noise(random);
  return x;
}

void AllStatistics(benchmark::State& state, IntervalMethod method) {
  std::vector<std::vector<float>> records;
  for (int i = 0; i < state.range(0); ++i) records.push_back(Waves(20'000, static_cast<unsigned>(i + 1)));
  const std::vector<std::span<const float>> X(records.begin(), records.end());
  Platform platform;
  platform.console.write = [](void*, std::string_view) {};
  platform.console.flush = [](void*) {};
  platform.console.show_progress = [](void*, std::string_view) {};
  platform.console.remove_progress = [](void*) {};
  platform.clock.seconds = [](void*) { return 0.0; };
  StatisticSettings settings;
  settings.interval_method = method;
  StatisticName all;
  all.number = kStatTable;
  all.interval = true;
  for (auto _ : state) {
    IntervalValues values;
    if (!FindEnsembleIntervals(platform, settings, all, X, 0, values)) std::abort();
    if (method == IntervalMethod::bootstrap && !values.blocks.nth[3].told) std::abort();
  }
}

BENCHMARK_CAPTURE(AllStatistics, formula, IntervalMethod::formula)
    ->Arg(1)
    ->Arg(100)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(AllStatistics, bootstrap, IntervalMethod::bootstrap)
    ->Arg(1)
    ->Arg(100)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
}  // namespace zaview
