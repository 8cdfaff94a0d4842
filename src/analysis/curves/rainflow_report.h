// The cycles of a curve of the current record, counted by the rainflow method, as table and plot.
#pragma once

#include "analysis/result_plot.h"
#include "case/plot_data.h"
#include "frame/ground/output_file.h"
#include "stats/tables/ensemble_data.h"

namespace zaview {

// request.curve: the one curve. Setting: rainflow_bins.
[[nodiscard]] DataFault MakeRainflowPlot(const StatWork& work, const QuantityRequest& request, ResultPlot& plot);
[[nodiscard]] DataFault WriteRainflow(const StatWork& work, const QuantityRequest& request, OutputFile& out);

}  // namespace zaview
