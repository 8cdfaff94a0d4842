// What the mouse has marked in a plane plot, drawn the same in every view that has axes.
#pragma once

#include "gks/plot/plot_layer.h"
#include "views/state/axes_state.h"

namespace zaview {

// The first corner of a zoom; the measured point, with its values at the lower right corner of the page, in letters of
// `height` page units. Into the graph that is set up.
// log_y: y is the logarithm of what is measured.
void DrawAxesMarks(const AxesState& axes, float height, PlotDraw draw, bool log_y = false);

}  // namespace zaview
