#include "control/write_control_records.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <new>

#include <fmt/format.h>

#include "base/text.h"
#include "control/record_rows.h"

namespace zaview {
namespace {

constexpr std::string_view kEndOfText = "END_OF_FILE";
constexpr std::string_view kLimitPassed = "!WRN359 - Dimensioning parameter {} exceeded - data echo not accurate\n";
constexpr std::size_t kColumn = 18;

// Bare, the reader would take it for something else. `!` and what is behind it can't be said: quotes do not protect it,
// but a line that began with it would not count as one.
bool NeedsQuotes(std::string_view text) {
  if (text.empty()) return false;
  constexpr std::string_view kAhead = " '\"$!";
  return kAhead.find(text.front()) != std::string_view::npos || text.back() == ' ' || StartsWith(text, kEndOfText);
}

void AppendTextLine(std::string_view value, std::string& text) {
  const char quote =
      std::count(value.begin(), value.end(), '\'') > std::count(value.begin(), value.end(), '"') ? '"' : '\'';
  const bool quoted = NeedsQuotes(value);
  if (quoted) text += quote;
  for (const char c : value) {
    if (quoted && c == quote) text += quote;
    text += c == '\n' || c == '\r' ? ' ' : c;
  }
  if (quoted) text += quote;
  text += '\n';
}

std::string ItemText(const ListItem& item) {
  if (const auto* real = std::get_if<double*>(&item)) return ControlReal(**real);
  return fmt::format("{}", *std::get<int*>(item));
}

void AppendList(const FieldList& fields, std::size_t a_line, std::string& text) {
  std::size_t on_line = 0;
  for (const ListItem& item : fields.items()) {
    if (on_line == a_line) {
      text += '\n';
      on_line = 0;
    }
    const std::string word = ItemText(item);
    if (on_line > 0 && word.size() >= kColumn) text += ' ';
    fmt::format_to(std::back_inserter(text), "{:>{}}", word, kColumn);
    ++on_line;
  }
  text += '\n';
}

void AppendComment(const RecordRow& row, std::int64_t count, std::string& text) {
  text += row.comment;
  text += '\n';
  if (!row.limit_name.empty() && count > row.limit)
    fmt::format_to(std::back_inserter(text), kLimitPassed, row.limit_name);
}

void AppendListRow(const RecordRow& row, RecordState& state, std::string& text) {
  const std::int64_t count = row.count == nullptr ? 1 : row.count(state);
  if (count <= 0) return;
  AppendComment(row, count, text);
  for (std::int64_t i = 0; i < count; ++i) {
    FieldList fields;
    if (!row.list(state, static_cast<std::size_t>(i), fields)) return;
    AppendList(fields, row.a_line, text);
  }
}

RecordState StateOf(ControlRecords& records) {
  const auto count = [](const auto& entries) { return static_cast<int>(entries.size()); };
  RecordState state{records};
  state.NWAVES = count(records.seaway.waves);
  if (records.seaway.ISEA == 5) state.WAVE_NMODE = count(records.seaway.modes);
  state.NCOMP0 = count(records.components);
  state.NBCA = count(records.XMC);
  state.NBMX = count(records.mass_points);
  state.NFIN = count(records.fins);
  state.NBK = count(records.bilge_keels);
  return state;
}

void AppendModules(const ControlRecords& records, std::string& text) {
  for (const ModuleText& module : records.modules) {
    text += module.header + '\n';
    for (const std::string& line : module.lines) text += line + '\n';
  }
}

void AppendRecords(const ControlRecords& records, std::string& text) {
  ControlRecords copy = records;  // the rows give places to write to
  RecordState state = StateOf(copy);
  for (const RecordRow& row : RecordRows()) {
    if (row.text == nullptr) {
      AppendListRow(row, state, text);
    } else {
      AppendComment(row, 1, text);
      AppendTextLine(copy.*row.text, text);
    }
  }
  AppendModules(records, text);
  text += kEndOfText;
  text += '\n';
}

}  // namespace

bool WriteControlRecords(const ControlRecords& records, std::string& text) {
  try {
    AppendRecords(records, text);
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

std::string ControlReal(double value) {
  if (std::isnan(value)) return std::signbit(value) ? "-NaN" : "NaN";
  if (std::isinf(value)) return value < 0 ? "-Inf" : "Inf";
  std::string text = fmt::format("{}", value);
  if (text.find_first_of(".e") == std::string::npos) text += ".0";
  return text;
}

}  // namespace zaview
