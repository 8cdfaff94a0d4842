// The spectrum of a curve, averaged over the records of an ensemble, as table and plot, with its moments and what
// follows from them.
#pragma once

#include "analysis/result_plot.h"
#include "case/plot_data.h"
#include "frame/ground/output_file.h"
#include "stats/tables/ensemble_data.h"

namespace zaview {

// request.curve: the one curve. The plot is in the unit of the curve, squared, by frequency in output units.
[[nodiscard]] DataFault MakeSpectrumPlot(const StatWork& work, const QuantityRequest& request, ResultPlot& plot);
[[nodiscard]] DataFault WriteSpectrum(const StatWork& work, const QuantityRequest& request, OutputFile& out);

}  // namespace zaview
