// The events of the run that the animation shows, and the bar along the foot of the window that tells where they are.
#pragma once

#include "views/motion/overlay_text.h"
#include "views/state/motion_view_state.h"
#include "views/state/plot_source.h"

namespace zaview {

// view.events: made on first need, again for another case, other steps, or another marked point. Slams are those of the
// marked point, from Ochi's velocity on for the length of the hull; without a hull that of the reference length, and no
// water on deck. Without waves there is neither.
void UpdateMotionEvents(const PlotSource& source, MotionViewState& view);

[[nodiscard]] float EventBarDepth(const MotionViewState& view, PlotDraw draw);  // page units; 0: it isn't shown
// The steps in use from left to right, the current one, and a tick in a colour and with a letter an event.
void DrawEventBar(const MotionViewState& view, const PlotFacts& facts, PlotDraw draw);
// The step at a place of the page; 0: beside the bar.
[[nodiscard]] int StepOnEventBar(const MotionViewState& view, const PlotFacts& facts, float x, float y, PlotDraw draw);

}  // namespace zaview
