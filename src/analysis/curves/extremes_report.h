// The largest values to be expected of a curve: Weibull and Gumbel distributions fitted to the current record or to an
// ensemble, as table and plot.
#pragma once

#include "analysis/result_plot.h"
#include "case/plot_data.h"
#include "frame/ground/output_file.h"
#include "stats/tables/ensemble_data.h"

namespace zaview {

// request.curve: the one curve. Settings: extreme_hours, extreme_quantile, confidence_probability.
[[nodiscard]] DataFault MakeExtremesPlot(const StatWork& work, const QuantityRequest& request, ResultPlot& plot);
[[nodiscard]] DataFault WriteExtremes(const StatWork& work, const QuantityRequest& request, OutputFile& out);

}  // namespace zaview
