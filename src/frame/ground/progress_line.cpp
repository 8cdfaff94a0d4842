#include "frame/ground/progress_line.h"

#include <fmt/format.h>

namespace zaview {
namespace {

constexpr double kQuietTime = 2.0;  // seconds
constexpr double kShowEvery = 0.2;

}  // namespace

ProgressLine StartProgress(const Platform& platform, std::string_view words) {
  return {&platform, std::string(words), platform.clock.seconds(platform.clock.self) + kQuietTime};
}

void ShowProgress(ProgressLine& line, double part) {
  const Clock& clock = line.platform->clock;
  const double now = clock.seconds(clock.self);
  if (now < line.next) return;
  line.next = now + kShowEvery;
  const int percent = part > 0.0 ? static_cast<int>((part < 1.0 ? part : 1.0) * 100.0) : 0;
  const Console& console = line.platform->console;
  console.show_progress(console.self, fmt::format("{} {:>3} %", line.words, percent));
}

void EndProgress(const ProgressLine& line) {
  line.platform->console.remove_progress(line.platform->console.self);
}

}  // namespace zaview
