// Says on a terminal how far a long work is: not before it has lasted a while, then now and then.
#pragma once

#include <string>
#include <string_view>

#include "base/platform.h"

namespace zaview {

struct ProgressLine {
  const Platform* platform = nullptr;
  std::string words;  // ahead of the percentage: "Reading run.out"
  double next = 0;    // when to show it again, seconds of the clock
};

[[nodiscard]] ProgressLine StartProgress(const Platform& platform, std::string_view words);
// part: 0 to 1; what lies outside, and NaN, counts as the nearer end.
void ShowProgress(ProgressLine& line, double part);
void EndProgress(const ProgressLine& line);

}  // namespace zaview
