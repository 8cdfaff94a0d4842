// How fast are the steps of a 64 MB run read into their columns, by one thread and by two, six reals a line and a
// whole step on one line?
#include <algorithm>
#include <cmath>
#include <cstring>
#include <string>

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include "case/time_steps.h"

namespace zaview {
namespace {

constexpr int kCuts = 2;
constexpr int kReals = 52 + 2 * kCuts;

const std::string& RunText(int per_line) {
  static std::string text;
  static int made = 0;
  if (made == per_line) return text;
  constexpr std::size_t kBytes = 64U << 20;
  made = per_line;
  text.clear();
  text.reserve(kBytes + 2000);
  for (int step = 0; text.size() < kBytes; ++step) {
    for (int i = 0; i < kReals; ++i) {
      const double value = i == 0 ? 0.05 * step : std::sin(0.01 * step * (1 + 0.1 * i)) * std::pow(10.0, -(i % 5));
      fmt::format_to(std::back_inserter(text), " {:15.8E}", value);
      if (i % per_line == per_line - 1 && i != kReals - 1) text += '\n';
    }
    text += '\n';
  }
  return text;
}

struct MemoryFile {
  const std::string* text = nullptr;
  std::size_t at = 0;
};

std::int64_t ReadMemory(void* self, FileHandle, char* to, std::size_t size) {
  auto& file = *static_cast<MemoryFile*>(self);
  const std::size_t n = std::min(size, file.text->size() - file.at);
  std::memcpy(to, file.text->data() + file.at, n);
  file.at += n;
  return static_cast<std::int64_t>(n);
}

CaseStore ReadRun(const std::string& text, unsigned threads) {
  MemoryFile memory{&text};
  Files files;
  files.self = &memory;
  files.read = ReadMemory;
  BlockStream stream;
  StartStream(stream, files, 0);
  CaseStore fresh;
  fresh.control.NSTEP = 1'000'000'000;
  fresh.loads.NBCA = kCuts;
  fresh.loads.x_kinds = {1};
  const StepsRead read = ReadTimeSteps(stream, static_cast<std::int64_t>(text.size()), fresh, {}, threads);
  fresh.last_read = read.kept;
  return fresh;
}

void ReadSteps(benchmark::State& state) {
  const std::string& text = RunText(static_cast<int>(state.range(1)));
  const auto threads = static_cast<unsigned>(state.range(0));
  const CaseStore one = ReadRun(text, 1), other = ReadRun(text, threads);
  if (one.last_read == 0 || one.force.component != other.force.component ||
      one.time.component != other.time.component) {
    state.SkipWithError("the steps differ");
    return;
  }
  for (auto _ : state) {
    const CaseStore fresh = ReadRun(text, threads);
    benchmark::DoNotOptimize(fresh.last_read);
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(ReadSteps)
    ->ArgNames({"threads", "per_line"})
    ->Args({1, 6})
    ->Args({2, 6})
    ->Args({1, 1000})
    ->Args({2, 1000})
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zaview
