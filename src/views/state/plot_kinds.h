// What is true of each kind of data plot, a row each. How a kind is made and drawn is told in data_plot/plot_type.h.
#pragma once

#include "views/state/data_plot_state.h"

namespace zaview {

enum class Averages : unsigned char { no, if_asked, always };  // over the records of an ensemble

struct PlotKindRow {
  PlotKind kind = PlotKind::none;
  bool shows_all = false;     // component 0: all components
  bool by_component = true;   // the chosen component alone decides on data and limits
  bool of_quantity = true;    // else always the track, or
  bool of_panels = false;     // the panels of the last analysis
  bool makes_panels = false;  // an analysis of the curve, made as panels
  bool of_loads = false;      // quantities of sectional loads alone
  bool of_functions = false;  // the functions of an impulsive run too
  Averages averages = Averages::no;
  bool units_as_long = false;    // on both axes, if keep_aspect is set
  bool by_step = false;          // shows one step of the case
  bool keys_fit_curves = false;  // x, y and Y fit the curves themselves
  AxesLength DataPlotState::*length = &DataPlotState::axis_length;
  PlotKind other = PlotKind::none;  // of the key that switches between curves and histogram
};

[[nodiscard]] const PlotKindRow& RowOf(PlotKind kind);
[[nodiscard]] inline AxesLength LengthOf(const DataPlotState& plot) {
  return plot.*RowOf(plot.kind).length;
}
// Does this plot show the records of an ensemble together?
[[nodiscard]] bool ShowsEnsemble(const DataPlotState& plot);

}  // namespace zaview
