// The histogram of the current record or of the whole ensemble as a table.
#pragma once

#include "frame/output_file.h"
#include "stats/ensemble_data.h"
#include "stats/histogram.h"
#include "stats/stat_table.h"

namespace zaview {

// The histogram with the settings of the state; the data plot takes it as well. "chi2=" goes to the console.
[[nodiscard]] TableFault MakeHistogram(const Console& console, const OutputSettings& settings,
                                       const QuantityRequest& request, bool of_ensemble, const EnsembleCases& cases,
                                       StatisticsState& state, Histogram& histogram);

[[nodiscard]] TableFault WriteHistogram(const Console& console, const OutputSettings& settings,
                                        const QuantityRequest& request, bool of_ensemble, const EnsembleCases& cases,
                                        StatisticsState& state, OutputFile& out);

}  // namespace zaview
