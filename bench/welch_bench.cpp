// How long does the spectrum of 200 000 samples take, by the segments that nobody chose?
#include <cmath>
#include <cstdlib>
#include <random>
#include <vector>

#include <benchmark/benchmark.h>

#include "stats/welch_spectrum.h"

namespace zaview {
namespace {

void Spectrum(benchmark::State& state) {
  std::mt19937 random(1);
  std::vector<float> x(200'000);
  double squares = 0;
  for (float& v : x) {
    v = static_cast<float>(random()) / 4294967296.0F - 0.5F;
    squares += static_cast<double>(v) * static_cast<double>(v);
  }
  const std::span<const float> all[] = {x};
  WelchSpectrum spectrum;
  for (auto _ : state)
    if (!FindWelchSpectrum(all, 0.5, UsualSegment(x.size()), spectrum)) std::abort();
  const double variance = squares / static_cast<double>(x.size());
  if (std::abs(MomentsOf(spectrum).m0 / variance - 1) > 0.05) std::abort();
}
BENCHMARK(Spectrum)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zaview
