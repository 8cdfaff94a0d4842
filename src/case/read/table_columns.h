// The text of a table of measured data: fields parted by comma, semicolon or tab, a heading with the names of the
// columns and their units, then a row a time. Says nothing; faults have their line and column.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/line_source.h"

namespace zaview {

struct TableHead {
  char separator = ',';
  std::int64_t line = 0;                  // of the heading, from 1
  std::string title;                      // the line ahead of it, else the first comment; blank: none
  std::vector<std::string> names, units;  // of all columns; without quotes; unit blank: none
  std::size_t time_column = 0;            // index
};

struct TableRows {
  std::vector<double> time;              // as it stands there
  std::vector<std::int64_t> line;        // of each row
  std::vector<std::vector<float>> cell;  // a column each, that of the times empty; NaN: a gap
  int decimals = -1, digits = 0;         // the most that a time is printed with: behind the point (-1: only with
                                         // exponents), in all
  std::int64_t cut_line = 0;             // above 0: the last row, which lacks fields, is left out
  std::int64_t further_line = 0;         // above 0: here begins something that is no row, behind an empty line
};

enum class TableFaultKind : std::uint8_t {
  none,
  empty,             // no line with text
  no_text,           // zero bytes: another coding of letters
  no_heading,        // numbers without one
  no_separator,      // a heading in one piece
  no_time,           // no column of times in the heading
  only_time,         // no other column
  no_name,           // a column without a name
  too_many_columns,  // above kMostTableColumns
  fields,            // a row with fewer or more fields than the heading
  number,            // no number and no gap
  no_time_value,     // a gap in the times
  not_increasing,    // a time that isn't above the one before
  no_rows,
  too_many_rows,
  out_of_memory,
  read_error
};

struct TableFault {
  TableFaultKind kind = TableFaultKind::none;
  std::int64_t line = 0;
  std::size_t column = 0;  // from 1; 0: of the whole line
  std::string text = {};   // what stands there
  std::size_t count = 0;   // fields: how many there are
};

inline constexpr std::size_t kMostTableColumns = 1000;

// The heading is the last line ahead of the numbers that has a field named time or t. Ahead of it: empty lines,
// comments
// (#, %, !; a heading may stand in one), a title. A byte order mark is dropped. A unit stands behind a name as [m],
// (m),
// ", m" or _m, or in a line of units alone below. The separator is the tab if there is one, else the semicolon, else
// the comma.
[[nodiscard]] TableFault ReadTableHead(LineSource& source, TableHead& head);

// The rows behind the heading. Fields may stand in double quotes; in a table without commas between fields the point of
// a number may be a comma. A gap is an empty field or NaN, NA, N/A, NULL, -, of any case. Empty lines and comments are
// passed over.
[[nodiscard]] TableFault ReadTableRows(LineSource& source, const TableHead& head, TableRows& rows);

}  // namespace zaview
