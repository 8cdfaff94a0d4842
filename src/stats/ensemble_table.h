// Ensemble statistics: tables with and without intervals, single statistics, the averaged autocorrelation.
#pragma once

#include "frame/output_file.h"
#include "stats/ensemble_data.h"
#include "stats/stat_table.h"

namespace zaview {

// request.statistic 0: the table; with `interval` the one with intervals. request.quantity.curve 0: all curves, a block
// each. Statistics that an ensemble doesn't have are said (ERR494, ERR496).
[[nodiscard]] TableFault EnsembleStat(const Console& console, const OutputSettings& settings,
                                      const StatRequest& request, const EnsembleCases& cases, StatisticsState& state,
                                      OutputFile& out);

// The table of Rax and its envelope, or the line of the dependence time alone.
[[nodiscard]] TableFault EnsembleAutoCorrelation(const Console& console, const OutputSettings& settings,
                                                 const QuantityRequest& request, bool dependence_only,
                                                 const EnsembleCases& cases, StatisticsState& state, OutputFile& out);

}  // namespace zaview
