#include "control/control_text.h"

#include <algorithm>

#include "base/text.h"

namespace zaview {
namespace {

struct DelimiterRow {
  Delimiter delimiter;
  std::string_view word;
};
constexpr DelimiterRow kDelimiters[] = {
    {Delimiter::input_file_echo, "INPUT_FILE_ECHO"},
    {Delimiter::file_parsing_data, "FILE_PARSING_DATA"},
    {Delimiter::derived_data_echo, "DERIVED_DATA_ECHO"},
    {Delimiter::end_of_header, "END_OF_HEADER"},
};

TextEvent End(HeaderText& text, TextEvent event) {
  text.ended = event;
  return event;
}

ListLines::Next NextListLine(void* self, std::string_view& line) {
  switch (NextDataLine(*static_cast<HeaderText*>(self), line)) {
    case TextEvent::line:
      return ListLines::Next::line;
    case TextEvent::end_of_file:
      return ListLines::Next::end_of_file;
    default:
      return ListLines::Next::stop;
  }
}

std::string QuotedText(std::string_view line) {
  const char quote = line.front();
  std::string text;
  for (std::size_t i = 1; i < line.size(); ++i) {
    if (line[i] == quote) {
      if (i + 1 == line.size() || line[i + 1] != quote) break;
      ++i;
    }
    text += line[i];
  }
  return text;
}

}  // namespace

Delimiter DelimiterOf(std::string_view raw_line) {
  for (const DelimiterRow& row : kDelimiters) {
    if (Contains(raw_line, row.word)) return row.delimiter;
  }
  return Delimiter::none;
}

TextEvent NextTextLine(HeaderText& text, std::string_view& line) {
  if (text.ended != TextEvent::line) return text.ended;
  if (text.lines_left <= 0) return End(text, TextEvent::too_long);
  --text.lines_left;

  std::string_view raw;
  if (!NextRawLine(*text.source, raw)) return End(text, TextEvent::end_of_file);
  const Delimiter delimiter = DelimiterOf(raw);
  if (delimiter != Delimiter::none && delimiter != Delimiter::input_file_echo) {
    text.delimiter = delimiter;
    return End(text, TextEvent::delimiter);
  }
  if (StartsWith(raw, kEndOfText)) return End(text, TextEvent::end_of_text);
  line = raw.substr(0, text.columns);
  return TextEvent::line;
}

TextEvent NextDataLine(HeaderText& text, std::string_view& line) {
  for (;;) {
    const TextEvent event = NextTextLine(text, line);
    if (event != TextEvent::line) return event;
    if (IsCommentLine(line)) continue;
    line = WithoutComment(line);
    return event;
  }
}

bool IsCommentLine(std::string_view line) {
  return !line.empty() && line.front() == '!';
}

std::string_view WithoutComment(std::string_view line) {
  return line.substr(0, line.find('!'));
}

ListLines ListsOf(HeaderText& text) {
  return {&text, NextListLine};
}

std::string TextField(std::string_view line, std::size_t length) {
  line = Trim(line);
  if (line.empty()) return {};
  const bool quoted = line.front() == '\'' || line.front() == '"';
  std::string text = quoted ? QuotedText(line) : std::string(line);
  std::replace(text.begin(), text.end(), '\t', ' ');
  if (text.size() > length) text.resize(length);
  text.resize(TrimEnd(text).size());
  return text;
}

}  // namespace zaview
