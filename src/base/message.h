// Lines for the console. The text of a message is data and stands beside the family that says it; its slots are
// checked when compiling. No line ends in blanks.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <utility>

#include <fmt/format.h>

#include "base/platform.h"

namespace zaview {

// Writes one line (blanks at its end are dropped) and its line end, and flushes.
void SayLine(const Console& console, std::string_view line);
void SayLines(const Console& console, std::span<const std::string_view> lines);

template <typename... Args>
void Say(const Console& console, fmt::format_string<Args...> text, Args&&... args) {
  SayLine(console, fmt::format(text, std::forward<Args>(args)...));
}

// A line of -debug_flow.
template <typename... Args>
void Trace(const Console& console, fmt::format_string<Args...> text, Args&&... args) {
  if (console.trace) Say(console, text, std::forward<Args>(args)...);
}

// " (Permission denied)", to stand behind the text of a file that can't be opened; nothing without a reason.
[[nodiscard]] std::string Because(std::string_view why);
// The same of a file that could not be read; found out by one more try.
[[nodiscard]] std::string WhyNotOpened(const Files& files, const std::string& name);

}  // namespace zaview
