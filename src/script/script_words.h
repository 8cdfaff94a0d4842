// Words and numbers of script lines. Both go on to the next lines when a line is used up, without a word about it.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/platform.h"
#include "script/script_state.h"

namespace zaview {

inline constexpr std::size_t kKeyword = 80;          // columns of a keyword
inline constexpr std::size_t kFreeText = 1024;       // of a label, a file name
inline constexpr std::size_t kScriptFileName = 128;  // a longer file name fails to open; it is never cut

struct WordScanner {
  const Console* console = nullptr;
  std::span<const ScriptLine> lines;  // where further lines come from
  std::size_t* next_line = nullptr;
  std::string_view line;     // the line in use, of `lines` or of the caller
  std::size_t position = 0;  // columns of it that are used up
  std::string carried{};     // the last free text that came without quotes from a further line
};

// The next word, cut to `limit` characters. One that begins with a quote runs to the next same quote (no escape); if
// that is missing it takes the rest of the line and says so. False at the end of the text.
[[nodiscard]] bool NextLoopWord(WordScanner& scanner, std::size_t limit, std::string& word);

// The same; blank at the end of the text. Free text from a further line becomes `carried`.
[[nodiscard]] std::string NextScriptWord(WordScanner& scanner, std::size_t limit);

// The same, and it stays where it is.
[[nodiscard]] std::string PeekScriptWord(const WordScanner& scanner, std::size_t limit);

// What is not read of the line in use, without the blanks around it.
[[nodiscard]] std::string_view RestOfLine(const WordScanner& scanner);

// Numbers apart by blanks or tabs. n > 0: exactly n of them, over as many lines as it takes. n < 0: those on this line,
// at most -n. Each must be a number from end to end. False: a bad number, or (n > 0) the text ends.
[[nodiscard]] bool ParseRealList(WordScanner& scanner, int n, std::vector<float>& values);

// Step counts: x + 0.5 with its fraction dropped, downwards, so that -1 stays a negative count and can be refused.
// Limited to the range of int.
[[nodiscard]] int StepCount(float value);

}  // namespace zaview
