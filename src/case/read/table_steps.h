// From the rows of a table to steps of one length: times that are even but for the digits they are printed with, rows
// left out, times that really are uneven; gaps in columns. Pure.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "case/read/table_columns.h"

namespace zaview {

// Steps that are filled in at a stretch, by a straight line from the value before to the one behind; at the ends of a
// column by the value next to them. More at a stretch are told and not made up.
inline constexpr std::size_t kMostFilled = 10;

enum class Spacing : std::uint8_t {
  even,
  rows_missing,  // even, but for rows left out
  uneven         // resampled at the mean step
};

struct TableSampling {
  Spacing spacing = Spacing::even;
  double first = 0, step = 0;  // times first + i step, i = 0 .. steps - 1, in the unit of the rows
  std::size_t steps = 0;
  double shortest = 0, longest = 0;  // step between two rows
  std::size_t missing = 0;           // steps without a row
  std::size_t hole = 0;        // the most of these at a stretch; uneven: whole mean steps between two rows, less one
  std::int64_t hole_line = 0;  // of the row behind it
};

// Times are even if each is within what its printed digits leave open: one unit of the last place that the times of the
// table have, or the accuracy of a 4-byte real; at most 0.3 of a step.
[[nodiscard]] TableSampling FindSampling(const TableRows& rows);

struct ColumnGaps {
  std::size_t cells = 0;    // without a value
  std::size_t longest = 0;  // steps at a stretch
  std::int64_t line = 0;    // where the longest begins
};

// The samples of a column (indexed as the heading) at all steps. False: memory is out. A column without any value gives
// none, and gaps of its whole length.
[[nodiscard]] bool SampleColumn(const TableRows& rows, const TableSampling& sampling, std::size_t column,
                                std::vector<float>& samples, ColumnGaps& gaps);

}  // namespace zaview
