// What do all lags of 20 000 samples, and the sqrt(n) lags of 200 000, cost one lag at a time and side by side?
#include <cstdlib>
#include <cstring>
#include <random>
#include <vector>

#include <benchmark/benchmark.h>

#include "stats/autocovariance.h"

namespace zaview {
namespace {

std::vector<float> Record(std::size_t n) {
  std::mt19937 random(3);
  std::normal_distribution<float> value(0.0F, 1.0F);
  std::vector<float> c(n);
  float before = 0.0F;
  for (float& v : c) v = before = 0.9F * before + value(random);
  return c;
}

void PlainLags(const std::vector<float>& c, std::vector<float>& sums) {
  for (std::size_t k = 0; k < sums.size(); ++k) {
    float sum = 0.0F;
    for (std::size_t i = 0; i + k < c.size(); ++i) sum += c[i] * c[i + k];
    sums[k] = sum;
  }
}

void OneLagAtATime(benchmark::State& state) {
  const std::vector<float> c = Record(static_cast<std::size_t>(state.range(0)));
  std::vector<float> sums(static_cast<std::size_t>(state.range(1)));
  for (auto _ : state) {
    PlainLags(c, sums);
    benchmark::DoNotOptimize(sums.data());
  }
}

void SideBySide(benchmark::State& state) {
  const std::vector<float> c = Record(static_cast<std::size_t>(state.range(0)));
  std::vector<float> plain(static_cast<std::size_t>(state.range(1)));
  std::vector<float> sums(plain.size());
  PlainLags(c, plain);
  LagSums(c, 0, sums);
  if (std::memcmp(plain.data(), sums.data(), plain.size() * sizeof(float)) != 0) std::abort();
  for (auto _ : state) {
    LagSums(c, 0, sums);
    benchmark::DoNotOptimize(sums.data());
  }
}

constexpr auto kReal = benchmark::kMillisecond;
BENCHMARK(OneLagAtATime)->Args({20000, 10001})->Args({200000, 448})->Unit(kReal)->UseRealTime();
BENCHMARK(SideBySide)->Args({20000, 10001})->Args({200000, 448})->Unit(kReal)->UseRealTime();

}  // namespace
}  // namespace zaview
