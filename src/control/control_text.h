// The text rules of a run file's header, shared by the control text, the parsing data and the derived data: a line with
// `!` in column 1 does not exist, in any other line the text from the first `!` on is cut (quotes do not protect it), a
// delimiter is found anywhere in the raw line, and END_OF_FILE in column 1 ends a control text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/line_source.h"
#include "base/list_read.h"

namespace zaview {

enum class Delimiter : std::uint8_t { none, input_file_echo, file_parsing_data, derived_data_echo, end_of_header };

// The delimiter that a raw line holds; case counts.
[[nodiscard]] Delimiter DelimiterOf(std::string_view raw_line);

inline constexpr std::string_view kEndOfText = "END_OF_FILE";  // in column 1 ends a control text
inline constexpr std::size_t kControlLine = 256;               // columns of a control line; the rest is dropped
inline constexpr std::size_t kTitleLength = 80;                // longer titles are cut
inline constexpr std::size_t kNameLength = 256;                // longer file names are cut
inline constexpr std::int64_t kSectionLines = 1000000;  // lines of a section; more than any writer makes: too_long

enum class TextEvent : std::uint8_t {
  line,
  end_of_text,  // END_OF_FILE
  delimiter,    // any but INPUT_FILE_ECHO
  end_of_file,
  too_long
};

struct HeaderText {  // one section that is being read
  LineSource* source = nullptr;
  std::int64_t lines_left = kSectionLines;
  TextEvent ended = TextEvent::line;  // what ended the section, told again on every call; line: still going on
  Delimiter delimiter = Delimiter::none;
  std::size_t columns = kControlLine;  // longer lines are cut; kKeptLine where a list may stand on one line
};

// The next line cut at text.columns, comments included. The view lives until the next call.
[[nodiscard]] TextEvent NextTextLine(HeaderText& text, std::string_view& line);
// The next line that exists, without its comment.
[[nodiscard]] TextEvent NextDataLine(HeaderText& text, std::string_view& line);

[[nodiscard]] bool IsCommentLine(std::string_view line);
[[nodiscard]] std::string_view WithoutComment(std::string_view line);

// Lists of the section; whatever ends it, short of the end of the file, is a stop.
[[nodiscard]] ListLines ListsOf(HeaderText& text);

// A data line as a text field: trimmed, tabs as blanks; if it begins with ' or ", what stands up to the next same quote
// (a doubled one standing for one). Cut at `length` characters.
[[nodiscard]] std::string TextField(std::string_view line, std::size_t length);

}  // namespace zaview
