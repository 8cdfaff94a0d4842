// The small time histories of the animation, each in a part of the window of its own.
#pragma once

#include <cstddef>

#include "views/motion/overlay_text.h"
#include "views/state/motion_view_state.h"
#include "views/state/plot_source.h"

namespace zaview {

// Data of the graphs that are on, over all steps in use: made once, and again when case, units, range or smoothing
// change. A graph that the case has no data for is switched off, with a line.
void UpdateMotionGraphs(const PlotSource& source, MotionViewState& view);

// Where graph 0 to 5 stands on the page: left, right, left below, right below, between these, between the first two.
// foot: what stays free below the lower ones.
[[nodiscard]] PageBox PlaceOfGraph(std::size_t graph, float foot, PlotDraw draw);

// As the current step has them. A graph without data isn't drawn.
void DrawMotionGraphs(const MotionViewState& view, const PlotFacts& facts, float foot, PlotDraw draw);

[[nodiscard]] float OutputTime(const PlotFacts& facts, int step);  // of a step in store
// Decimals by which the times of neighbouring steps differ: at least 2, at most 6.
[[nodiscard]] int TimeDecimals(const PlotFacts& facts);

}  // namespace zaview
