// run_writer: the samples by name, or a run of a given size.
#include <charconv>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include <fmt/format.h>

#include "run_writer.h"

namespace {

constexpr std::string_view kUsage =
    "usage : run_writer --sample NAME DIR                   one sample, as DIR/NAME.out; sea_N for any N\n"
    "        run_writer --all DIR                           every sample\n"
    "        run_writer --list                              their names and titles\n"
    "        run_writer --bytes N [--cuts M] [--line] FILE  a run of about N bytes with loads at M X cuts;\n"
    "                                                       --line: each step on one line\n"
    "        run_writer --steps N [--cuts M] [--line] FILE  a run of N steps\n";

constexpr std::int64_t kMostSteps = 100'000'000;
constexpr std::int64_t kMostCuts = 25;

int Write(const run_writer::RunSpec& spec, const std::string& path) {
  if (run_writer::WriteRunFile(spec, path)) return 0;
  fmt::print(stderr, "run_writer: {} can't be written\n", path);
  return 1;
}

int WriteSample(std::string_view name, const std::filesystem::path& folder) {
  run_writer::RunSpec spec;
  if (!run_writer::SampleSpec(name, spec)) {
    fmt::print(stderr, "run_writer: no sample {}\n", name);
    return 2;
  }
  std::error_code error;
  std::filesystem::create_directories(folder, error);
  return Write(spec, (folder / name).string() + ".out");
}

int WriteAll(const std::filesystem::path& folder) {
  for (const std::string_view name : run_writer::SampleNames()) {
    if (const int status = WriteSample(name, folder); status != 0) return status;
  }
  return 0;
}

int List() {
  for (const std::string_view name : run_writer::SampleNames()) {
    run_writer::RunSpec spec;
    if (run_writer::SampleSpec(name, spec)) fmt::print("{:<22}{}\n", name, spec.title);
  }
  return 0;
}

int Usage() {
  fmt::print(stderr, "{}", kUsage);
  return 2;
}

bool Parse(const std::string& text, std::int64_t least, std::int64_t most, std::int64_t& value) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && end == text.data() + text.size() && value >= least && value <= most;
}

int WriteBenchmark(const std::vector<std::string>& args) {
  std::int64_t bytes = 0, steps = 0, cuts = 0;
  bool on_one_line = false;
  std::string path;
  for (size_t i = 0; i < args.size(); ++i) {
    const bool more = i + 1 < args.size();
    if (args[i] == "--line") {
      on_one_line = true;
    } else if (args[i] == "--bytes" && more) {
      if (!Parse(args[++i], 1, INT64_MAX, bytes)) return Usage();
    } else if (args[i] == "--steps" && more) {
      if (!Parse(args[++i], 1, kMostSteps, steps)) return Usage();
    } else if (args[i] == "--cuts" && more) {
      if (!Parse(args[++i], 0, kMostCuts, cuts)) return Usage();
    } else if (!more && !args[i].starts_with("--")) {
      path = args[i];
    } else {
      return Usage();
    }
  }
  if (path.empty() || (bytes == 0) == (steps == 0)) return Usage();
  run_writer::RunSpec spec = run_writer::BenchmarkSpec(bytes, static_cast<int>(cuts));
  if (steps > 0) spec.nstep = spec.steps = static_cast<int>(steps);
  if (on_one_line) spec.values_per_line = 0;
  return Write(spec, path);
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> args(argv + 1, argv + argc);
  if (args.size() == 3 && args[0] == "--sample") return WriteSample(args[1], args[2]);
  if (args.size() == 2 && args[0] == "--all") return WriteAll(args[1]);
  if (args.size() == 1 && args[0] == "--list") return List();
  return WriteBenchmark(args);
}
