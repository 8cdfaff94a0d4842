// How long do the tables of one curve of 200 000 steps take: statistics, a single mean, intervals; and the
// autocorrelation of 20 000?
#include <cmath>
#include <cstdlib>
#include <random>

#include <benchmark/benchmark.h>

#include "stats/tables/autocorrelation_table.h"
#include "stats/tables/interval_table.h"
#include "stats/tables/stat_table.h"

namespace zaview {
namespace {

// Six components of an irregular motion of about a hundred steps a cycle.
CaseStore LongCase(std::size_t n) {
  constexpr float kFrequencies[] = {0.043F, 0.051F, 0.062F, 0.067F, 0.083F};
  CaseStore c;
  c.has_case = true;
  c.file_name = "run.out";
  c.last_read = c.last_step = static_cast<int>(n);
  c.time.component.assign(1, std::vector<float>(n));
  c.pmgg.component.assign(6, std::vector<float>(n));
  for (std::size_t i = 0; i < n; ++i) {
    const float t = static_cast<float>(i);
    c.time.component[0][i] = 0.05F * t;
    for (std::size_t j = 0; j < 6; ++j) {
      float x = 0.0F;
      for (const float w : kFrequencies) x += std::sin(w * t + w * 1000.0F * static_cast<float>(j));
      c.pmgg.component[j][i] = x;
    }
  }
  return c;
}

// A console that only counts what it is given.
Console Counter(std::size_t& bytes) {
  Console console;
  console.self = &bytes;
  console.write = [](void* self, std::string_view text) { *static_cast<std::size_t*>(self) += text.size(); };
  console.flush = [](void*) {};
  return console;
}

template <typename Write>
void Run(benchmark::State& state, std::size_t n, const Write& write) {
  CaseStore c = LongCase(n);
  std::size_t bytes = 0;
  Platform platform;
  platform.console = Counter(bytes);
  const OutputSettings settings;
  EnsembleStore none;
  StatisticsState kept;
  const StatWork work{platform, settings, {c, none}, kept};
  for (auto _ : state) {
    OutputFile out;
    out.platform = &platform;
    if (write(work, out) != DataFault::none || bytes == 0) std::abort();
  }
}

StatRequest RequestOf(std::string_view word, int curve) {
  StatRequest request;
  request.statistic = FindStatistic(word);
  request.quantity.curve = curve;
  return request;
}

void Statistics(benchmark::State& state, const char* word, int curve) {
  Run(state, 200'000, [&](const StatWork& work, OutputFile& out) { return WRSTAT(work, RequestOf(word, curve), out); });
}
BENCHMARK_CAPTURE(Statistics, table_of_one_curve, "TABLE", 3)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(Statistics, table_of_six_curves, "TABLE", 0)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(Statistics, mean, "MEAN", 3)->Unit(benchmark::kMillisecond)->UseRealTime();

void Intervals(benchmark::State& state, const char* word) {
  Run(state, 200'000,
      [&](const StatWork& work, OutputFile& out) { return WriteIntervals(work, RequestOf(word, 3), out); });
}
BENCHMARK_CAPTURE(Intervals, table_of_one_curve, "TABLE_CI")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(Intervals, significant_amplitude, "SIG_CI")->Unit(benchmark::kMillisecond)->UseRealTime();

void Autocorrelation(benchmark::State& state) {
  Run(state, 20'000, [&](const StatWork& work, OutputFile& out) {
    QuantityRequest request;
    request.curve = 3;
    return WriteAutocorrelation(work, request, out);
  });
}
BENCHMARK(Autocorrelation)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace zaview
