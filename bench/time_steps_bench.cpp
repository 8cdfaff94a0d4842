// How fast are the steps of a 64 MB run read into their columns, by one thread and by two, six reals a line and a
// whole step on one line? And the same of other layouts: as many megabytes a second?
#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>
#include <string>

#include <benchmark/benchmark.h>
#include <fmt/format.h>

#include "case/read/step_columns.h"
#include "case/read/time_steps.h"

namespace zaview {
namespace {

constexpr int kWholeStep = 1000;  // reals a line

struct Layout {
  int VERSION, ships;
  bool gyre;
  int MOTYPE;
};
constexpr Layout kLayouts[] = {{417, 1, false, 0}, {290, 1, false, 0}, {291, 1, false, 0},
                               {361, 1, false, 0}, {417, 1, true, 0},  {357, 2, false, 0},
                               {361, 3, false, 0}, {417, 3, false, 0}, {417, 1, false, 1}};

CaseStore CaseOf(const Layout& layout) {
  CaseStore fresh;
  fresh.labels.VERSION = layout.VERSION;
  fresh.labels.gyre = layout.gyre;
  fresh.NSHIP = layout.ships;
  fresh.control.NSTEP = 1'000'000'000;
  fresh.control.MOTYPE = layout.MOTYPE;
  fresh.control.GRAVOUT = fresh.control.LENOUT = fresh.control.RHOOUT = 1;
  fresh.loads.NBCA = 2;
  fresh.loads.x_kinds = {1};
  return fresh;
}

void AppendList(int step, std::size_t list, std::size_t reals, int per_line, std::string& text) {
  for (std::size_t i = 0; i < reals; ++i) {
    const auto k = static_cast<int>(i);
    const double wave = std::sin(0.01 * step * (1 + 0.1 * k)) * std::pow(10.0, -(k % 5));
    fmt::format_to(std::back_inserter(text), " {:15.8E}", list == 0 && i == 0 ? 0.05 * step : wave);
    if (k % per_line == per_line - 1 && i + 1 < reals) text += '\n';
  }
  text += '\n';
}

const std::string& RunText(const Layout& layout, int per_line) {
  static std::string text;
  static const Layout* made = nullptr;
  static int made_per_line = 0;
  if (made == &layout && made_per_line == per_line) return text;
  constexpr std::size_t kBytes = 64U << 20;
  made = &layout;
  made_per_line = per_line;
  text.clear();
  text.reserve(kBytes + 20'000);
  CaseStore fresh = CaseOf(layout);
  StepColumns columns;
  if (!PrepareColumns(fresh, columns)) return text;
  for (int step = 0; text.size() < kBytes; ++step)
    for (std::size_t list = 0; list < columns.lists.size(); ++list)
      AppendList(step, list, columns.lists[list], per_line, text);
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

CaseStore ReadRun(const Layout& layout, const std::string& text, unsigned threads) {
  MemoryFile memory{&text};
  Files files;
  files.self = &memory;
  files.read = ReadMemory;
  BlockStream stream;
  StartStream(stream, files, 0);
  CaseStore fresh = CaseOf(layout);
  const StepsRead read = ReadTimeSteps(stream, static_cast<std::int64_t>(text.size()), fresh, {}, threads);
  fresh.last_read = read.kept;
  return fresh;
}

void ReadSteps(benchmark::State& state) {
  const Layout& layout = kLayouts[state.range(2)];
  const std::string& text = RunText(layout, static_cast<int>(state.range(1)));
  const auto threads = static_cast<unsigned>(state.range(0));
  const CaseStore one = ReadRun(layout, text, 1), other = ReadRun(layout, text, threads);
  if (one.last_read == 0 || one.force.component != other.force.component ||
      one.tadm.component != other.tadm.component || one.time.component != other.time.component) {
    state.SkipWithError("the steps differ");
    return;
  }
  for (auto _ : state) {
    const CaseStore fresh = ReadRun(layout, text, threads);
    benchmark::DoNotOptimize(fresh.last_read);
  }
  state.SetLabel(fmt::format("VERSION {}, {} ships{}{}", layout.VERSION, layout.ships, layout.gyre ? ", GYRE" : "",
                             layout.MOTYPE == 1 ? ", impulsive" : ""));
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(ReadSteps)
    ->ArgNames({"threads", "per_line", "layout"})
    ->ArgsProduct({{1, 2}, {6, kWholeStep}, {0}})
    ->ArgsProduct({{2}, {6}, benchmark::CreateDenseRange(1, std::ssize(kLayouts) - 1, 1)})
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zaview
