// How fast is a companion of 256 MB read into columns, against reading the same file into memory that is as fresh, and
// how much of that is left when a step is short or long?
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <string>
#include <unistd.h>

#include <benchmark/benchmark.h>

#include "base/platform_posix.h"
#include "case/read/unformatted_steps.h"

namespace zaview {
namespace {

constexpr std::size_t kBytes = 256U << 20;

void Append(std::string& bytes, const void* value, std::size_t size) {
  bytes.append(static_cast<const char*>(value), size);
}

struct CompanionFile {
  std::string name;
  int cuts = 0;
  int steps = 0;
  std::size_t bytes = 0;
  ~CompanionFile() {
    if (!name.empty()) std::remove(name.c_str());
  }
};

constexpr int BodyReals(int cuts) {
  return 51 + 2 * cuts;
}

void AppendStep(int step, int cuts, std::string& bytes) {
  const std::int32_t header = 12, body = 4 * BodyReals(cuts), zero = 0;
  const float time = 0.05F * static_cast<float>(step);
  Append(bytes, &header, 4);
  Append(bytes, &step, 4);
  Append(bytes, &time, 4);
  Append(bytes, &zero, 4);
  Append(bytes, &header, 4);
  Append(bytes, &body, 4);
  for (int i = 0; i < BodyReals(cuts); ++i) {
    const float value = static_cast<float>(step % 1000) + static_cast<float>(i) / 1024;
    Append(bytes, &value, 4);
  }
  Append(bytes, &body, 4);
}

const CompanionFile& MakeFile(int cuts) {
  static CompanionFile file;
  if (!file.name.empty() && file.cuts == cuts) return file;
  file.name = "/tmp/companion_bench." + std::to_string(getpid());
  file.cuts = cuts;
  std::string bytes;
  bytes.reserve(kBytes + 65'536);
  const std::int32_t four = 4, version = 417;
  for (const std::int32_t word : {four, version, four}) Append(bytes, &word, 4);
  for (file.steps = 0; bytes.size() < kBytes; ++file.steps) AppendStep(file.steps + 1, cuts, bytes);
  file.bytes = bytes.size();
  std::FILE* const out = std::fopen(file.name.c_str(), "wb");
  if (out == nullptr || std::fwrite(bytes.data(), 1, bytes.size(), out) != bytes.size()) file.steps = -1;
  if (out != nullptr) std::fclose(out);
  return file;
}

CompanionRead ReadFile(const CompanionFile& file, CaseStore& fresh) {
  const Platform platform = PosixPlatform();
  const FileHandle handle = platform.files.open_read(platform.files.self, file.name);
  BlockStream stream;
  StartStream(stream, platform.files, handle);
  fresh.control.NSTEP = 1'000'000'000;
  fresh.control.AUXOUT[0] = 1;
  fresh.loads.NBCA = file.cuts;
  fresh.loads.x_kinds = {1};
  int version = 0;
  CompanionRead read;
  if (ReadCompanionVersion(stream, version))
    read = ReadUnformattedSteps(stream, static_cast<std::int64_t>(file.bytes), fresh, {});
  (void)platform.files.close(platform.files.self, handle);
  return read;
}

bool AllThere(const CompanionFile& file) {
  CaseStore fresh;
  if (ReadFile(file, fresh).steps.kept != file.steps) return false;
  for (int step = 1; step <= file.steps; ++step) {
    const auto whole = static_cast<float>(step % 1000);
    if (fresh.pmgg.at(1, step) != whole ||
        fresh.prop_rps.at(1, step) != whole + static_cast<float>(BodyReals(file.cuts) - 1) / 1024)
      return false;
  }
  return true;
}

void Companion(benchmark::State& state) {
  const CompanionFile& file = MakeFile(static_cast<int>(state.range(0)));
  if (!AllThere(file)) {
    state.SkipWithError("the steps differ");
    return;
  }
  for (auto _ : state) {
    CaseStore fresh;
    benchmark::DoNotOptimize(ReadFile(file, fresh).steps.kept);
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(file.bytes));
}

void PlainRead(benchmark::State& state) {
  const CompanionFile& file = MakeFile(static_cast<int>(state.range(0)));
  for (auto _ : state) {
    const std::unique_ptr<char[]> memory(new char[file.bytes]);
    const int handle = open(file.name.c_str(), O_RDONLY);
    std::size_t at = 0;
    for (ssize_t n = 1; n > 0 && at < file.bytes; at += static_cast<std::size_t>(n > 0 ? n : 0))
      n = read(handle, memory.get() + at, file.bytes - at);
    close(handle);
    benchmark::DoNotOptimize(memory.get());
    if (at != file.bytes) state.SkipWithError("the file can't be read");
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(file.bytes));
}

BENCHMARK(PlainRead)->ArgName("cuts")->Arg(0)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Companion)->ArgName("cuts")->Arg(0)->Arg(25)->Arg(1000)->UseRealTime()->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zaview
