#include "control/control_lines.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <variant>

#include <fmt/format.h>

#include "base/text.h"
#include "control/control_text.h"

namespace zaview {
namespace {

// Bare, the reader would take it for something else. `!` and what is behind it can't be said: quotes do not protect it,
// but a line that began with it would not count as one.
bool NeedsQuotes(std::string_view text, std::string_view ahead) {
  if (text.empty()) return false;
  constexpr std::string_view kAhead = " '\"$!";
  return kAhead.find(text.front()) != std::string_view::npos || ahead.find(text.front()) != std::string_view::npos ||
         text.back() == ' ' || StartsWith(text, kEndOfText);
}

std::string ItemText(const ListItem& item) {
  if (const auto* real = std::get_if<double*>(&item)) return ControlReal(**real);
  return fmt::format("{}", *std::get<int*>(item));
}

}  // namespace

std::string ControlReal(double value) {
  if (std::isnan(value)) return std::signbit(value) ? "-NaN" : "NaN";
  if (std::isinf(value)) return value < 0 ? "-Inf" : "Inf";
  std::string text = fmt::format("{}", value);
  if (text.find_first_of(".e") == std::string::npos) text += ".0";
  return text;
}

void AppendControlItem(const ListItem& item, std::string& text) {
  fmt::format_to(std::back_inserter(text), "{:>{}}", ItemText(item), kControlColumn);
}

void AppendControlList(std::span<const ListItem> items, std::size_t a_line, std::string& text) {
  std::size_t on_line = 0;
  for (const ListItem& item : items) {
    if (on_line == a_line) {
      text += '\n';
      on_line = 0;
    }
    const std::string word = ItemText(item);
    if (on_line > 0 && word.size() >= kControlColumn) text += ' ';
    fmt::format_to(std::back_inserter(text), "{:>{}}", word, kControlColumn);
    ++on_line;
  }
  text += '\n';
}

void AppendControlText(std::string_view value, std::string& text, std::string_view ahead) {
  const char quote =
      std::count(value.begin(), value.end(), '\'') > std::count(value.begin(), value.end(), '"') ? '"' : '\'';
  const bool quoted = NeedsQuotes(value, ahead);
  if (quoted) text += quote;
  for (const char c : value) {
    if (quoted && c == quote) text += quote;
    text += c == '\n' || c == '\r' ? ' ' : c;
  }
  if (quoted) text += quote;
  text += '\n';
}

}  // namespace zaview
