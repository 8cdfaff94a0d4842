// How long do all lags up to half of a record of 20 000 samples take: one lag at a time, and in lanes? And the lags
// that a confidence interval of 200 000 samples needs?
#include <cmath>
#include <cstdlib>
#include <random>
#include <span>
#include <vector>

#include <benchmark/benchmark.h>

#include "stats/autocovariance.h"

namespace zaview {
namespace {

constexpr std::size_t kSamples = 20'000;
constexpr std::size_t kLags = kSamples / 2 + 1;
constexpr std::size_t kLongSamples = 200'000;
constexpr std::size_t kIntervalLags = 448;  // int(sqrt(200 000)) + 1

std::vector<float> Record(std::size_t n) {
  std::mt19937 random(11);
  std::normal_distribution<float> noise(0.0F, 0.3F);
  std::vector<float> c(n);
  for (std::size_t i = 0; i < n; ++i) c[i] = std::sin(0.11F * static_cast<float>(i)) + noise(random);
  return c;
}

void PlainLags(std::span<const float> c, std::span<float> sums) {
  for (std::size_t k = 0; k < sums.size(); ++k) {
    float sum = 0.0F;
    for (std::size_t i = 0; i + k < c.size(); ++i) sum += c[i] * c[i + k];
    sums[k] = sum;
  }
}

void CheckBits(std::size_t samples, std::size_t lags) {
  const std::vector<float> c = Record(samples);
  std::vector<float> plain(lags);
  std::vector<float> lanes(lags);
  PlainLags(c, plain);
  LagSums(c, 0, lanes);
  if (plain != lanes) std::abort();
}

void PlainLoop(benchmark::State& state) {
  const std::vector<float> c = Record(kSamples);
  std::vector<float> sums(kLags);
  for (auto _ : state) {
    PlainLags(c, sums);
    benchmark::DoNotOptimize(sums.data());
  }
}
BENCHMARK(PlainLoop)->Unit(benchmark::kMillisecond)->UseRealTime();

void AllLags(benchmark::State& state) {
  CheckBits(kSamples, kLags);
  const std::vector<float> c = Record(kSamples);
  std::vector<float> sums(kLags);
  for (auto _ : state) {
    LagSums(c, 0, sums);
    benchmark::DoNotOptimize(sums.data());
  }
}
BENCHMARK(AllLags)->Unit(benchmark::kMillisecond)->UseRealTime();

void IntervalLags(benchmark::State& state) {
  CheckBits(kLongSamples, kIntervalLags);
  const std::vector<float> c = Record(kLongSamples);
  std::vector<float> sums(kIntervalLags);
  for (auto _ : state) {
    LagSums(c, 0, sums);
    benchmark::DoNotOptimize(sums.data());
  }
}
BENCHMARK(IntervalLags)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace zaview
