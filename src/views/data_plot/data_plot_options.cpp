// The options of the data plot: the rows of its menu, in their order.
#include "views/data_plot/data_plot.h"

namespace zaview {

namespace {

constexpr OptionItem kRows[] = {
    Row(),
    Check("Grid", Flag<&Session::data_plot, &DataPlotState::grid_on>),
};

constexpr OptionBlock kBlocks[] = {{kRows}};

}  // namespace

ViewOptions DataPlotOptions(const Session&) {
  return {kBlocks, kAlways};
}

}  // namespace zaview
