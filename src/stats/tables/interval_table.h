// Statistics with confidence intervals: 12 rows for each curve, or one bare line of one statistic.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "base/table_text.h"
#include "stats/interval_cells.h"
#include "stats/tables/stat_table.h"

namespace zaview {

// The statistics that have an interval: mean to 1/nth double amplitude, SSA, and 0, the table of all.
[[nodiscard]] bool HasInterval(int number);
inline constexpr std::string_view kHasNoInterval = "ERROR - statistic {} has no confidence interval";

// request.statistic 0: the table (request.text not blank, or several curves: with the column "Quantity"); 1 to 11 and
// 24: one line, text, half width, low, estimate, high.
[[nodiscard]] DataFault WriteIntervals(const StatWork& work, const StatRequest& request, OutputFile& out);

// ---- What the table of an ensemble has in common with this one

enum class IntervalWords : std::uint8_t { record, ensemble };  // their row labels differ in a letter or two

void AppendIntervalHeading(Separator separator, bool quantity_column, std::string& text);
// The 12 rows; quantity: what stands in that column, blank: there is none.
void AppendIntervalRows(const OutputSettings& settings, std::string_view quantity, IntervalWords words,
                        const IntervalValues& values, std::string& text);

}  // namespace zaview
