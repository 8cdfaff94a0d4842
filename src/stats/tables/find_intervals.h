// Statistics with their confidence intervals, of a record and of an ensemble, by the method that the settings choose.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "base/platform.h"
#include "case/output_settings.h"
#include "stats/ensemble_stats.h"
#include "stats/interval_cells.h"
#include "stats/statistic_table.h"

namespace zaview {

// The values of one record that a statistic takes; of number 0 those of all. False: an argument was refused, or the
// user broke the work off, and it has been said. A bootstrap shows on a terminal how far it is.
[[nodiscard]] bool FindIntervals(const Platform& platform, const StatisticSettings& settings,
                                 const StatisticName& statistic, std::span<const float> x, IntervalValues& out);

// The same of all records together; statistic.interval false: without the half widths. nmany: of the formula alone.
[[nodiscard]] bool FindEnsembleIntervals(const Platform& platform, const StatisticSettings& settings,
                                         const StatisticName& statistic, EnsembleRecords X, int nmany,
                                         IntervalValues& out);

// Of a bootstrap: those of the settings, or more if the probability needs more.
[[nodiscard]] int ResamplesInForce(const StatisticSettings& settings);

// "Confidence Interval Probability= 0.95" as a line; of a bootstrap a second one tells resamples and seed.
[[nodiscard]] std::string IntervalMethodLines(const StatisticSettings& settings);

// What stands in a table in place of an interval that records are too short for; blank: the method has one always.
[[nodiscard]] std::string_view NoInterval(const StatisticSettings& settings);
// Says how long they should be.
void WarnIfTooShort(const Console& console, const StatisticName& statistic, const IntervalValues& values);

}  // namespace zaview
