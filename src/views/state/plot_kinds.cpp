#include "views/state/plot_kinds.h"

#include <array>
#include <cstddef>

namespace zaview {

namespace {

constexpr AxesLength DataPlotState::*kOwn = &DataPlotState::histogram_length;

// In the order of PlotKind.
constexpr std::array<PlotKindRow, kPlotKinds> kRows = {{
    {.kind = PlotKind::none},
    {.kind = PlotKind::history,
     .shows_all = true,
     .by_component = false,
     .of_functions = true,
     .keys_fit_curves = true,
     .other = PlotKind::histogram},
    {.kind = PlotKind::trajectory,
     .by_component = false,
     .of_quantity = false,
     .units_as_long = true,
     .keys_fit_curves = true},
    {.kind = PlotKind::load_dist, .shows_all = true, .by_component = false, .of_loads = true, .by_step = true},
    {.kind = PlotKind::histogram, .averages = Averages::if_asked, .length = kOwn, .other = PlotKind::history},
    {.kind = PlotKind::autocovariance, .averages = Averages::if_asked},
    {.kind = PlotKind::autocorrelation, .averages = Averages::if_asked},
    {.kind = PlotKind::interval, .averages = Averages::always},
    {.kind = PlotKind::result, .shows_all = true, .by_component = false, .of_quantity = false, .of_panels = true},
    {.kind = PlotKind::spectrum, .makes_panels = true, .averages = Averages::always},
    {.kind = PlotKind::extremes, .makes_panels = true, .averages = Averages::always},
    {.kind = PlotKind::rainflow, .makes_panels = true},
}};

constexpr bool InOrder() {
  for (std::size_t i = 0; i < kRows.size(); ++i)
    if (kRows[i].kind != static_cast<PlotKind>(i)) return false;
  return true;
}
static_assert(InOrder());

}  // namespace

const PlotKindRow& RowOf(PlotKind kind) {
  return kRows[static_cast<std::size_t>(kind)];
}

bool ShowsEnsemble(const DataPlotState& plot) {
  const Averages averages = RowOf(plot.kind).averages;
  return averages == Averages::always || (averages == Averages::if_asked && plot.of_ensemble);
}

}  // namespace zaview
