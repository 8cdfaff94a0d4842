// The four cells of an interval row: half width, low, estimate, high. One record and ensembles print the same.
#pragma once

#include <array>

#include "stats/peak_stats.h"
#include "stats/record_stats.h"

namespace zaview {

using IntervalCells = std::array<float, 4>;

struct IntervalValues {
  RecordStats record;
  RecordPeakStats third, nth;
};

// number: of a statistic that has an interval (statistic_table.h). The low end of what can't be negative is at least 0.
[[nodiscard]] IntervalCells IntervalCellsOf(int number, const IntervalValues& values);

// Does this statistic, or the table of all, need the averages of highest peaks?
[[nodiscard]] bool IntervalNeedsPeaks(int number);

}  // namespace zaview
