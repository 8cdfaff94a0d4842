// Text files with comments: `!` starts one, wherever it stands; END_OF_FILE in column 1 (capitals only) ends the text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/line_source.h"
#include "base/platform.h"

namespace zaview {

inline constexpr std::size_t kCleanLine = 256;         // columns of a line; the rest is dropped without a word
inline constexpr std::size_t kCleanLines = 1'000'000;  // a text with more lines or bytes is refused
inline constexpr std::size_t kCleanBytes = 64U << 20U;

struct CleanLine {
  std::string text;
  int number = 0;  // in its file, from 1
};

// The next line, cut to kCleanLine columns. False at END_OF_FILE and at the end of the file.
[[nodiscard]] bool NextTextLine(LineSource& source, std::string& line);

// The text ahead of the first `!`. False: `!` stands in column 1, the line doesn't reach the clean text at all.
[[nodiscard]] bool WithoutComment(std::string_view line, std::string_view& text);

enum class CleanFault : std::uint8_t { none, cannot_open, read_error, too_long };

// Lines of the file `name` without comments; full (may be null) takes every line as it stands.
[[nodiscard]] CleanFault CopyCleanText(const Files& files, const std::string& name, std::vector<std::string>* full,
                                       std::vector<CleanLine>& clean);

}  // namespace zaview
