// How fast are 16 MB of reals in the form of a run file converted: by the block scanner, token by token through the
// general path, and by fast_float on tokens found by hand?
#include <cstring>
#include <fast_float/fast_float.h>
#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include "base/number_parse.h"
#include "base/real_scan.h"

namespace zaview {
namespace {

constexpr std::size_t kReals = 1'000'000;

const std::string& Text() {
  static const std::string text = [] {
    std::string out;
    std::mt19937 random(7);
    std::normal_distribution<double> value(0.0, 1.0);
    for (std::size_t i = 0; i < kReals; ++i) {
      fmt::format_to(std::back_inserter(out), " {:15.8E}", value(random) * (i % 3 == 0 ? 1E-3 : 1.0));
      if (i % 6 == 5) out += '\n';
    }
    return out + '\n';
  }();
  return text;
}

template <typename Convert>
void EachToken(const std::string& text, const Convert& convert) {
  for (std::size_t i = text.find_first_not_of(" \n"); i != std::string::npos; i = text.find_first_not_of(" \n", i)) {
    const std::size_t end = text.find_first_of(" \n", i);
    convert(std::string_view(text).substr(i, end - i));
    i = end;
  }
}

void ByTokens(std::vector<float>& values) {
  std::size_t n = 0;
  EachToken(Text(), [&](std::string_view token) {
    if (!ParseFloat(token, values[n++])) std::abort();
  });
}

void ByFastFloat(std::vector<float>& values) {
  std::size_t n = 0;
  EachToken(Text(), [&](std::string_view token) {
    fast_float::from_chars(token.data(), token.data() + token.size(), values[n++]);
  });
}

void ByScanner(std::vector<float>& values) {
  ListScan list;
  const char* const begin = Text().data();
  if (ScanReals(begin, begin + Text().size(), true, values, list).end != ScanEnd::complete) std::abort();
}

void Run(benchmark::State& state, void (*way)(std::vector<float>&)) {
  std::vector<float> values(kReals), expected(kReals);
  ByFastFloat(expected);
  way(values);
  if (std::memcmp(values.data(), expected.data(), kReals * sizeof(float)) != 0) {
    state.SkipWithError("the values differ");
    return;
  }
  for (auto _ : state) {
    way(values);
    benchmark::DoNotOptimize(values.data());
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(Text().size()));
}

BENCHMARK_CAPTURE(Run, scanner, ByScanner)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Run, fast_float, ByFastFloat)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Run, general_path, ByTokens)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zaview
