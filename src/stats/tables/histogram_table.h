// The histogram of the current record or of the whole ensemble as a table.
#pragma once

#include <string>
#include <vector>

#include "frame/ground/output_file.h"
#include "stats/histogram.h"
#include "stats/tables/ensemble_data.h"
#include "stats/tables/stat_table.h"

namespace zaview {

// The histogram with the settings of the state; the data plot takes it as well. "chi2=" goes to the console.
[[nodiscard]] DataFault MakeHistogram(const StatWork& work, const QuantityRequest& request, bool of_ensemble,
                                      Histogram& histogram);

// The name of the theoretical distribution and what it was fitted by, a line each: of the table and of the plot.
[[nodiscard]] std::vector<std::string> DistributionLines(Overlay overlay, const Histogram& histogram);

[[nodiscard]] DataFault WriteHistogram(const StatWork& work, const QuantityRequest& request, bool of_ensemble,
                                       OutputFile& out);

}  // namespace zaview
