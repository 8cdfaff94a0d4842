// How long do the statistics of 100 records of 20 000 steps take: means and variances with their intervals together
// with the averages of the highest 1/3, 1/10 and all peaks; the averaged lags, of which numpy makes the same; and 100
// thresholds of exceedance, 999 of upcrossing, a histogram?
#include <cmath>
#include <cstdlib>
#include <random>
#include <span>
#include <vector>

#include <benchmark/benchmark.h>

#include "stats/dependence_time.h"
#include "stats/ensemble_stats.h"
#include "stats/exceedances.h"
#include "stats/histogram.h"
#include "stats/upcrossings.h"

namespace zaview {
namespace {

constexpr std::size_t kRecords = 100;
constexpr std::size_t kSamples = 20'000;
constexpr int kStatsLags = 141;  // int(sqrt(kSamples)), for x and for its squares
constexpr int kAveragedLags = 400;

struct Ensemble {
  std::vector<std::vector<float>> x, t;
  std::vector<std::span<const float>> X, times;
};

// A narrow band of waves of about 20 steps.
const Ensemble& Waves() {
  static const Ensemble ensemble = [] {
    Ensemble e;
    std::mt19937 random(11);
    std::normal_distribution<float> noise;
    for (std::size_t i = 0; i < kRecords; ++i) {
      std::vector<float> x(kSamples), t(kSamples);
      float before = 0.0F, last = 0.0F;
      for (std::size_t j = 0; j < kSamples; ++j) {
        const float next = 1.86F * last - 0.96F * before + 0.1F * noise(random);
        before = last;
        x[j] = last = next;
        t[j] = 0.5F * static_cast<float>(j);
      }
      e.x.push_back(std::move(x));
      e.t.push_back(std::move(t));
    }
    e.X.assign(e.x.begin(), e.x.end());
    e.times.assign(e.t.begin(), e.t.end());
    return e;
  }();
  return ensemble;
}

std::vector<float> PlainAverage(std::span<const std::vector<float>> x, int lags) {
  std::vector<float> Rax(static_cast<std::size_t>(lags), 0.0F);
  for (const std::vector<float>& c : x) {
    for (std::size_t k = 0; k < Rax.size(); ++k) {
      float sum = 0.0F;
      for (std::size_t i = 0; i + k < c.size(); ++i) sum += c[i] * c[i + k];
      Rax[k] += (1.0F / static_cast<float>(x.size())) * ((1.0F / static_cast<float>(c.size())) * sum);
    }
  }
  return Rax;
}

void CalcAll() {
  EnsembleStats stats;
  const int N[] = {3, 10, 1};
  RecordPeakStats peaks[3];
  if (CalcEnsembleStats(1, Waves().X, 0.95F, 0, stats) != StatFault::none) std::abort();
  if (CalcEnsemblePeakStats(N, 0, Waves().X, 0.95F, peaks) != StatFault::none) std::abort();
  if (!(stats.xmeci > 0.0F && peaks[0].xpkN > 1.0F * stats.xse && peaks[0].ndti > 0)) std::abort();
}

void StatsAndPeaks(benchmark::State& state) {
  (void)Waves();
  for (auto _ : state) CalcAll();
}
BENCHMARK(StatsAndPeaks)->Unit(benchmark::kMillisecond)->UseRealTime();

void AveragedLags(benchmark::State& state) {
  const std::vector<float> w(kRecords, 1.0F / static_cast<float>(kRecords));
  std::vector<float> Rax(static_cast<std::size_t>(state.range(0)));
  AverageLags(Waves().X, w, 0, std::span(Rax).first(3));
  const std::vector<float> plain = PlainAverage(Waves().x, 3);
  if (!std::equal(plain.begin(), plain.end(), Rax.begin())) std::abort();
  for (auto _ : state) {
    AverageLags(Waves().X, w, 0, Rax);
    benchmark::DoNotOptimize(Rax.data());
  }
}
BENCHMARK(AveragedLags)->Arg(kStatsLags)->Arg(kAveragedLags)->Unit(benchmark::kMillisecond)->UseRealTime();

void Thresholds100(benchmark::State& state) {
  const auto option = static_cast<Direction>(state.range(0));
  ExceedanceCount out;
  for (auto _ : state) {
    for (int i = 0; i < 100; ++i)
      CountExceedances(Waves().X, Waves().times, 0.03F * static_cast<float>(i), option, 40, out);
  }
}
BENCHMARK(Thresholds100)->DenseRange(1, 3)->Unit(benchmark::kMillisecond)->UseRealTime();

void Upcrossings999(benchmark::State& state) {
  const std::vector<float> v = Thresholds(-3.0F, 3.0F, 1.0e-6F);
  std::vector<UpcrossingRow> rows;
  for (auto _ : state) UpCrossing(Waves().X, 0.0F, v, 40, rows);
}
BENCHMARK(Upcrossings999)->Unit(benchmark::kMillisecond)->UseRealTime();

void HistogramOfAll(benchmark::State& state) {
  Histogram out;
  for (auto _ : state) {
    if (!SetHistogramData({.overlay = Overlay::gramm_charlier}, Waves().X, 0, out)) std::abort();
  }
}
BENCHMARK(HistogramOfAll)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace zaview
