// Statistics with confidence intervals: 12 rows for each curve, or one bare line of one statistic.
#pragma once

#include "stats/stat_table.h"

namespace zaview {

// The statistics that have an interval: mean to 1/nth double amplitude, SSA, and 0, the table of all.
[[nodiscard]] bool HasInterval(int number);

// request.statistic 0: the table (request.text not blank, or several curves: with the column "Quantity"); 1 to 11 and
// 24: one line, text, half width, low, estimate, high.
[[nodiscard]] TableFault WriteIntervals(const Console& console, const OutputSettings& settings,
                                        const StatRequest& request, CaseStore& case_store, OutputFile& out);

}  // namespace zaview
