// The text of a script on its way through the passes: each line remembers where the user wrote it. A script can make
// any amount of text out of a few lines, so every store has one limit and the passes count their work.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "script/script_state.h"

namespace zaview {

inline constexpr std::size_t kScriptLine = 1024;         // columns; the rest of a line is dropped without a word
inline constexpr std::size_t kScriptWord = 80;           // loop variables, loop values, names of variables
inline constexpr std::size_t kScriptLines = 1'000'000;   // lines of a text, values of a loop
inline constexpr std::size_t kScriptBytes = 64U << 20U;  // characters of a text

inline constexpr std::string_view kScriptTooLong = "ERROR - script text grows beyond {} lines or {} characters";

struct ScriptText {
  std::vector<ScriptLine> lines;
  std::size_t bytes = 0;
};

// False: the text is at its limit, or memory is out; the line is still whole then.
[[nodiscard]] bool AddScriptLine(ScriptText& text, ScriptLine&& line);

// What stopped a pass: two lines, and the line of the script it is about.
struct PassMessage {
  std::string first, second;
  ScriptOrigin origin;
  std::string line;
};

[[nodiscard]] std::string TooLongMessage();

// "        at line 12 of s.script : WRITE_STAT MEAN MOT 9": the line behind every error.
[[nodiscard]] std::string AtLine(const std::vector<std::string>& files, ScriptOrigin origin, std::string_view line);

}  // namespace zaview
