// The table of the kinds of data plot.
#include <cstddef>

#include "views/data_plot/plot_type.h"

namespace zaview {

namespace {

const PlotType kAxesOnly{};

// In the order of PlotKind.
const PlotType* const kTypes[] = {&kAxesOnly,      &kHistoryPlot,        &kTrajectoryPlot,      &kLoadPlot,
                                  &kHistogramPlot, &kAutocovariancePlot, &kAutocorrelationPlot, &kIntervalPlot,
                                  &kResultPlot,    &kSpectrumPlot,       &kExtremesPlot,        &kRainflowPlot};
static_assert(std::size(kTypes) == kPlotKinds);

}  // namespace

const PlotType& PlotTypeOf(PlotKind kind) {
  return *kTypes[static_cast<std::size_t>(kind)];
}

}  // namespace zaview
