// The four cells of an interval row: half width, low, estimate, high. One record and ensembles print the same.
#pragma once

#include <array>

#include "stats/block_bootstrap.h"
#include "stats/peak_stats.h"
#include "stats/record_stats.h"

namespace zaview {

using IntervalCells = std::array<float, 4>;

struct IntervalValues {
  RecordStats record;
  RecordPeakStats third, nth;
  bool by_blocks = false;  // the intervals are those below; of what is above only the estimates count
  BootstrapIntervals blocks;
};

// number: of a statistic that has an interval (statistic_table.h). The low end of what can't be negative is at least 0.
// Records that are too short for an interval: the estimate stands, the other three are no numbers (IsTold).
[[nodiscard]] IntervalCells IntervalCellsOf(int number, const IntervalValues& values);

[[nodiscard]] bool IsTold(const IntervalCells& cells);

// Does this statistic, or the table of all, need the averages of highest peaks?
[[nodiscard]] bool IntervalNeedsPeaks(int number);

}  // namespace zaview
