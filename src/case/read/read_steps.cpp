#include "case/read/read_steps.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <thread>

#include "base/message.h"
#include "case/read/step_columns.h"
#include "case/read/unformatted_steps.h"
#include "case/smoothing.h"
#include "frame/ground/progress_line.h"

namespace zaview {
namespace {

struct ReadProgress {
  ProgressLine line;
  std::int64_t size;  // bytes; below 1: unknown
};

void ShowTaken(void* self, std::int64_t bytes) {
  auto& progress = *static_cast<ReadProgress*>(self);
  ShowProgress(progress.line,
               progress.size > 0 ? static_cast<double>(bytes) / static_cast<double>(progress.size) : 0.0);
}

ReadProgress StartReading(const Platform& platform, std::string_view name) {
  return {StartProgress(platform, fmt::format("Reading {}", name)),
          platform.files.facts(platform.files.self, std::string(name)).size};
}

void SayVersions(const Console& console, int formatted, int unformatted) {
  SayLine(console, kVersionsDiffer[0]);
  Say(console, kVersionsDiffer[1], formatted);
  Say(console, kVersionsDiffer[2], unformatted);
  SayLine(console, kVersionsDiffer[3]);
}

void SmoothLoads(const Console& console, CaseStore& fresh) {
  constexpr int kOption = 1;  // what smooth_section_loads is
  for (auto* const loads : {&fresh.load_force, &fresh.load_moment})
    for (StepHistory& kind : *loads)
      if (!smooth_section_loads(kind)) return SayLine(console, SmoothingSkipped(kOption));
}

[[nodiscard]] bool ReadCompanionStream(const Platform& platform, const std::string& name, BlockStream& stream,
                                       CaseStore& fresh, StepsRead& steps) {
  const Console& console = platform.console;
  int version = 0;
  if (!ReadCompanionVersion(stream, version)) {
    Say(console, kCompanionUnparsed, name);
    return false;
  }
  if (VersionsDiffer(fresh.labels.VERSION, version)) SayVersions(console, fresh.labels.VERSION, version);
  if (stream.begin == stream.end && !FillStream(stream, kStepBlock)) {
    steps.end = stream.fault ? StepsEnd::bad_value : StepsEnd::no_record;
    return true;
  }
  Say(console, kReadingHistory, name);
  ReadProgress progress = StartReading(platform, name);
  const CompanionRead read = ReadUnformattedSteps(stream, progress.size, fresh, {&progress, ShowTaken});
  EndProgress(progress.line);
  if (read.bad_indices > 0) SayLine(console, kInvalidIndex);
  constexpr int kWithoutForces = 2;
  if (CompanionMode(fresh) == kWithoutForces && read.steps.kept > 0) SmoothLoads(console, fresh);
  steps = read.steps;
  return true;
}

}  // namespace

StepsRead ReadFormattedSteps(const Platform& platform, BlockStream& stream, CaseStore& fresh) {
  Say(platform.console, kReadingHistory, fresh.file_name);
  ReadProgress progress = StartReading(platform, fresh.file_name);
  const unsigned threads = std::clamp(std::thread::hardware_concurrency(), 1U, 2U);
  const StepsRead steps = ReadTimeSteps(stream, progress.size, fresh, {&progress, ShowTaken}, threads);
  EndProgress(progress.line);
  return steps;
}

bool ReadCompanion(const Platform& platform, CaseStore& fresh, StepsRead& steps) {
  const std::string name = CompanionName(fresh.file_name);
  const FileHandle file = platform.files.open_read(platform.files.self, name);
  if (file == kNoFile) {
    Say(platform.console, kCompanionUnopened, name, Because(platform.files.why(platform.files.self)));
    return false;
  }
  BlockStream stream;
  StartStream(stream, platform.files, file);
  const bool read = ReadCompanionStream(platform, name, stream, fresh, steps);
  (void)platform.files.close(platform.files.self, file);  // nothing was written
  return read;
}

}  // namespace zaview
