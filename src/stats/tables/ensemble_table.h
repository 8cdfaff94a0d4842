// Ensemble statistics: tables with and without intervals, single statistics, the averaged autocorrelation.
#pragma once

#include <string>
#include <string_view>

#include "frame/ground/output_file.h"
#include "stats/tables/ensemble_data.h"
#include "stats/tables/stat_table.h"

namespace zaview {

// request.statistic 0: the table, a block a curve; with `interval` the one with intervals. Else one bare line: text,
// separator, value, or half width, low, estimate, high. request.quantity.curve 0: all curves. Statistics that an
// ensemble doesn't have are said (ERR494, ERR496).
[[nodiscard]] DataFault EnsembleStat(const StatWork& work, const StatRequest& request, OutputFile& out);

// The table of Rax and its envelope, or the line of the dependence time alone.
[[nodiscard]] DataFault EnsembleAutoCorrelation(const StatWork& work, const QuantityRequest& request,
                                                bool dependence_only, OutputFile& out);

}  // namespace zaview
