#include "case/read/table_columns.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

#include "base/grow.h"
#include "base/number_parse.h"
#include "base/text.h"
#include "case/read/table_units.h"

namespace zaview {
namespace {

using Kind = TableFaultKind;

constexpr std::size_t kFewRows = 1024;  // room to begin with
constexpr std::size_t kMostRows = static_cast<std::size_t>(std::numeric_limits<int>::max());
constexpr std::size_t kShownText = 40;  // columns of a text in a message
constexpr float kLargest = std::numeric_limits<float>::max();
constexpr std::string_view kZeroByte("\0", 1);
constexpr char kQuote = '"';

constexpr std::string_view kTimeNames[] = {"TIME", "T"};
constexpr std::string_view kGapWords[] = {"NAN", "NA", "N/A", "NULL", "-"};

bool IsComment(std::string_view line) {
  return !line.empty() && (line[0] == '#' || line[0] == '%' || line[0] == '!');
}

// What a terminal or a picture would take for something else than a letter becomes a blank.
std::string Printable(std::string_view text) {
  std::string shown(text);
  for (char& c : shown)
    if (static_cast<unsigned char>(c) < ' ' || c == '\x7F') c = ' ';
  return shown;
}

std::string Clipped(std::string_view text) {
  return Printable(Trim(text).substr(0, kShownText));
}

// ---- Fields

// Where the field that begins at `begin` ends: the next separator outside of quotes, or the end of the line.
std::size_t FieldEnd(std::string_view line, char separator, std::size_t begin) {
  const std::size_t end = std::min(line.find(separator, begin), line.size());
  if (line.substr(begin, end - begin).find(kQuote) == std::string_view::npos) return end;
  bool quoted = false;
  for (std::size_t i = begin; i < line.size(); ++i) {
    if (line[i] == kQuote) quoted = !quoted;
    else if (line[i] == separator && !quoted) return i;
  }
  return line.size();
}

// Without the quotes around it, and one for two inside.
std::string Unquoted(std::string_view field) {
  field = Trim(field);
  if (field.size() < 2 || field.front() != kQuote || field.back() != kQuote) return std::string(field);
  std::string text;
  const std::string_view inside = field.substr(1, field.size() - 2);
  for (std::size_t i = 0; i < inside.size(); ++i) {
    text += inside[i];
    if (inside[i] == kQuote && i + 1 < inside.size() && inside[i + 1] == kQuote) ++i;
  }
  return std::string(Trim(text));
}

std::vector<std::string> Fields(std::string_view line, char separator) {
  std::vector<std::string> fields;
  for (std::size_t begin = 0; begin <= line.size();) {
    const std::size_t end = FieldEnd(line, separator, begin);
    fields.push_back(Unquoted(line.substr(begin, end - begin)));
    begin = end + 1;
  }
  return fields;
}

char SeparatorOf(std::string_view line) {
  for (const char separator : {'\t', ';'})
    if (FieldEnd(line, separator, 0) < line.size()) return separator;
  return ',';
}

bool IsGap(std::string_view field) {
  if (field.empty()) return true;
  if (field.size() > 4) return false;
  const std::string word = Capitals(field);
  return std::find(std::begin(kGapWords), std::end(kGapWords), word) != std::end(kGapWords);
}

void CommaToPoint(std::string& number) {
  std::replace(number.begin(), number.end(), ',', '.');
}

// A field in quotes, or with a comma for the point.
std::string PlainNumber(std::string_view field, char separator) {
  std::string number = Unquoted(field);
  if (separator != ',' && std::count(number.begin(), number.end(), ',') == 1 && !Contains(number, "."))
    CommaToPoint(number);
  return number;
}

template <typename Real>
bool ParsePlain(std::string_view field, Real& value) {
  if (field.size() > 1 && field[0] == '+' && field[1] != '-') field.remove_prefix(1);
  const auto [end, fault] = std::from_chars(field.data(), field.data() + field.size(), value);
  return fault == std::errc() && end == field.data() + field.size() && std::fabs(value) <= kLargest;
}

bool Parse(std::string_view text, float& value) {
  return ParseFloat(text, value);
}
bool Parse(std::string_view text, double& value) {
  return ParseDouble(text, value);
}

// NaN for a gap, and for what isn't finite; false: neither a number nor a gap.
template <typename Real>
bool ParseField(std::string_view field, char separator, Real& value) {
  field = Trim(field);
  if (!ParsePlain(field, value)) {
    const std::string number = PlainNumber(field, separator);
    if (IsGap(number)) value = std::numeric_limits<Real>::quiet_NaN();
    else if (!Parse(number, value)) return false;
  }
  if (!std::isfinite(value)) value = std::numeric_limits<Real>::quiet_NaN();
  return true;
}

bool IsNumber(const std::string& field, char separator) {
  double value = 0;
  return ParseField(std::string_view(field), separator, value) && std::isfinite(value);
}

// ---- The heading

bool IsTimeName(std::string_view field) {
  std::string name, unit;
  SplitHeading(field, name, unit);
  const TableUnitKind kind = FindTableUnit(unit).kind;
  if (kind != TableUnitKind::time && !unit.empty()) return false;
  const std::string capitals = Capitals(name);
  return std::find(std::begin(kTimeNames), std::end(kTimeNames), capitals) != std::end(kTimeNames);
}

std::string Unbracketed(std::string_view unit) {
  if (unit.size() >= 2 && (unit.front() == '[' || unit.front() == '(')) unit = unit.substr(1, unit.size() - 2);
  return unit == "-" ? std::string{} : Printable(Trim(unit));
}

// The unit of the times, or nothing but units.
bool IsUnitLine(const std::vector<std::string>& fields, const TableHead& head) {
  if (fields.size() != head.names.size()) return false;
  if (FindTableUnit(Unbracketed(fields[head.time_column])).kind == TableUnitKind::time) return true;
  bool any = false;
  for (const std::string& field : fields) {
    const bool bracketed = field.size() >= 2 && (field.front() == '[' || field.front() == '(');
    if (!field.empty() && field != "-" && !bracketed && FindTableUnit(field).kind == TableUnitKind::none) return false;
    any = any || bracketed || FindTableUnit(field).kind != TableUnitKind::none;
  }
  return any;
}

// Is it a heading with times? Then it takes the place of the one before.
bool TakeHeading(std::string_view line, std::int64_t number, TableHead& head) {
  const char separator = SeparatorOf(line);
  const std::vector<std::string> fields = Fields(line, separator);
  const auto time = std::find_if(fields.begin(), fields.end(), IsTimeName);
  if (time == fields.end()) return false;
  head.separator = separator;
  head.line = number;
  head.time_column = static_cast<std::size_t>(time - fields.begin());
  head.names.resize(fields.size());
  head.units.resize(fields.size());
  for (std::size_t i = 0; i < fields.size(); ++i) SplitHeading(fields[i], head.names[i], head.units[i]);
  for (std::string& name : head.names) name = Printable(name);
  for (std::string& unit : head.units) unit = PlainUnit(Printable(unit));
  while (head.names.size() > head.time_column + 1 && head.names.back().empty()) {  // separators at the end of the line
    head.names.pop_back();
    head.units.pop_back();
  }
  return true;
}

TableFault CheckHead(const TableHead& head, std::string_view line) {
  const std::int64_t at = head.line;
  if (head.names.size() > kMostTableColumns) return {Kind::too_many_columns, at, 0, "", head.names.size()};
  if (head.names.size() < 2)
    return {FieldEnd(line, head.separator, 0) < line.size() ? Kind::only_time : Kind::no_separator, at, 0,
            Clipped(line)};
  for (std::size_t i = 0; i < head.names.size(); ++i)
    if (head.names[i].empty()) return {Kind::no_name, at, i + 1, ""};
  return {};
}

// The line behind the heading: units alone, or the first row, which is given once more.
void TakeUnitLine(std::string_view line, LineSource& source, TableHead& head) {
  std::vector<std::string> fields = Fields(line, head.separator);
  while (fields.size() > head.names.size() && fields.back().empty()) fields.pop_back();
  if (!IsUnitLine(fields, head)) {
    source.again = true;
    return;
  }
  for (std::size_t i = 0; i < fields.size(); ++i)
    if (const std::string unit = Unbracketed(fields[i]); !unit.empty()) head.units[i] = PlainUnit(unit);
}

struct TextLine {
  std::string text;
  std::int64_t line = 0;
};

bool InOnePiece(std::string_view line) {
  return FieldEnd(line, SeparatorOf(line), 0) == line.size();
}

// Numbers alone, parted by separators or blanks.
bool IsNumbers(std::string_view line) {
  const char separator = InOnePiece(line) ? ' ' : SeparatorOf(line);
  const std::vector<std::string> fields = Fields(Trim(line), separator);
  const auto number = [&](const std::string& field) { return IsNumber(field, separator); };
  return std::any_of(fields.begin(), fields.end(), number) &&
         std::all_of(fields.begin(), fields.end(), [&](const std::string& f) { return IsGap(f) || number(f); });
}

// What a line that isn't a heading says of the table: numbers end the search.
TableFault NoHeading(std::string_view line, std::int64_t number, const TextLine& last) {
  if (!IsNumbers(line)) return {};
  if (last.line == 0) return {Kind::no_heading, number, 0, Clipped(line)};
  return {InOnePiece(last.text) ? Kind::no_separator : Kind::no_time, last.line, 0, Clipped(last.text)};
}

TableFault HeadAtEnd(const LineSource& source, const TableHead& head, const TextLine& last) {
  if (source.stream->fault) return {Kind::read_error};
  if (head.line > 0) return {Kind::no_rows};
  return last.line == 0 ? TableFault{Kind::empty} : TableFault{Kind::no_time, last.line, 0, Clipped(last.text)};
}

// ---- Rows

// The most digits a time is printed with, and the most behind its point.
void CountDigits(std::string_view field, char separator, TableRows& rows) {
  int digits = 0, decimals = 0;
  bool point = false, zero = true, exponent = false;
  for (const char c : field) {
    exponent = exponent || c == 'e' || c == 'E';
    if (c == '.' || (c == ',' && separator != ',')) point = true;
    if (c < '0' || c > '9' || exponent) continue;
    zero = zero && c == '0';
    digits += zero ? 0 : 1;
    decimals += point ? 1 : 0;
  }
  rows.digits = std::max(rows.digits, digits);
  if (!exponent) rows.decimals = std::max(rows.decimals, decimals);
}

bool MoreRoom(TableRows& rows, std::size_t n) {
  if (n < rows.time.capacity()) return true;
  const std::size_t room = std::max(kFewRows, 2 * n);
  bool there = Reserve(rows.time, room) && Reserve(rows.line, room);
  for (std::size_t i = 0; i < rows.cell.size(); ++i) there = there && Reserve(rows.cell[i], room);
  return there;
}

TableFault TakeTime(std::string_view field, std::int64_t line, const TableHead& head, TableRows& rows) {
  double time = 0;
  const std::size_t column = head.time_column + 1;
  if (!ParseField(field, head.separator, time)) return {Kind::number, line, column, Clipped(field)};
  if (std::isnan(time)) return {Kind::no_time_value, line, column, Clipped(field)};
  if (!rows.time.empty() && !(time > rows.time.back())) return {Kind::not_increasing, line, column, Clipped(field)};
  CountDigits(field, head.separator, rows);
  rows.time.push_back(time);
  return {};
}

std::size_t CountFields(std::string_view line, char separator) {
  std::size_t count = 0;
  for (std::size_t begin = 0; begin <= line.size(); ++count) begin = FieldEnd(line, separator, begin) + 1;
  return count;
}

TableFault TakeRow(std::string_view line, std::int64_t number, const TableHead& head, TableRows& rows) {
  const std::size_t columns = head.names.size();
  std::size_t begin = 0, i = 0;
  for (; begin <= line.size() && i < columns; ++i) {
    const std::size_t end = FieldEnd(line, head.separator, begin);
    const std::string_view field = line.substr(begin, end - begin);
    begin = end + 1;
    if (i == head.time_column) {
      if (TableFault fault = TakeTime(field, number, head, rows); fault.kind != Kind::none) return fault;
      continue;
    }
    float value = 0;
    if (!ParseField(field, head.separator, value)) return {Kind::number, number, i + 1, Clipped(field)};
    rows.cell[i].push_back(value);
  }
  const bool more = begin <= line.size() && !std::all_of(line.begin() + static_cast<std::ptrdiff_t>(begin), line.end(),
                                                         [&](char c) { return IsWhite(c) || c == head.separator; });
  if (i < columns || more) return {Kind::fields, number, 0, "", CountFields(line, head.separator)};
  rows.line.push_back(number);
  return {};
}

// Takes back what a row with a fault has given.
void DropRow(TableRows& rows) {
  const std::size_t n = rows.line.size();
  rows.time.resize(std::min(n, rows.time.size()));
  for (std::vector<float>& column : rows.cell) column.resize(std::min(n, column.size()));
}

bool BeginsWithNumber(std::string_view line, char separator) {
  float value = 0;
  return ParseField(line.substr(0, FieldEnd(line, separator, 0)), separator, value);
}

}  // namespace

TableFault ReadTableHead(LineSource& source, TableHead& head) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  std::string heading, note;
  TextLine last;
  std::string_view line;
  head = {};
  while (NextRawLine(source, line)) {
    if (source.line_number == 1 && StartsWith(line, kByteOrderMark)) line.remove_prefix(kByteOrderMark.size());
    if (Contains(line, kZeroByte)) return {Kind::no_text, source.line_number};
    if (IsBlank(line)) continue;
    const bool comment = IsComment(line);
    if (TakeHeading(comment ? line.substr(1) : line, source.line_number, head)) {
      heading = line.substr(comment ? 1 : 0);
      continue;
    }
    if (comment) {
      if (head.line == 0 && note.empty()) note = Printable(Trim(line.substr(1)));
      continue;
    }
    if (head.line > 0) {
      if (TableFault fault = CheckHead(head, heading); fault.kind != Kind::none) return fault;
      head.title = last.line > 0 ? Printable(last.text) : note;
      TakeUnitLine(line, source, head);
      return {};
    }
    if (TableFault fault = NoHeading(line, source.line_number, last); fault.kind != Kind::none) return fault;
    last = {std::string(line), source.line_number};
  }
  return HeadAtEnd(source, head, last);
}

TableFault ReadTableRows(LineSource& source, const TableHead& head, TableRows& rows) {
  rows = {};
  if (!Grow(rows.cell, head.names.size())) return {Kind::out_of_memory};
  TableFault unfinished;
  bool behind_empty = false;
  std::string_view line;
  while (NextRawLine(source, line)) {
    const bool empty = IsBlank(line);
    if (empty || IsComment(line)) {
      behind_empty = behind_empty || empty;
      continue;
    }
    if (unfinished.kind != Kind::none) return unfinished;  // not the last row
    if (behind_empty && !rows.time.empty() && !BeginsWithNumber(line, head.separator)) {
      rows.further_line = source.line_number;
      break;
    }
    behind_empty = false;
    if (rows.time.size() == kMostRows) return {Kind::too_many_rows, source.line_number};
    if (!MoreRoom(rows, rows.time.size())) return {Kind::out_of_memory};
    unfinished = TakeRow(line, source.line_number, head, rows);
    if (unfinished.kind == Kind::none) continue;
    DropRow(rows);
    if (unfinished.kind != Kind::fields || unfinished.count > head.names.size()) return unfinished;
  }
  if (source.stream->fault) return {Kind::read_error};
  rows.cut_line = unfinished.line;
  return rows.time.empty() ? TableFault{Kind::no_rows} : TableFault{};
}

}  // namespace zaview
