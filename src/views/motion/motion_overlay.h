// What stands over the scene of the animation: title and time, graphs, the bar of events, the popup.
#pragma once

#include <string_view>

#include "views/motion/overlay_text.h"
#include "views/state/motion_view_state.h"
#include "views/state/plot_source.h"

namespace zaview {

inline constexpr std::string_view kMotionPopup[] = {"Run Menu", "Options Menu", "Help"};

// The page of 11 by 8.5 over the whole window, longer one way where the window is: letters are as large as in a data
// plot. Behind dgFrame(2).
void SetMotionPage(PlotDraw draw);

// Ahead of it: UpdateMotionGraphs, and UpdateMotionEvents if events are shown. Sets the page.
void DrawMotionOverlay(const MotionViewState& view, const PlotFacts& facts, PlotDraw draw);

}  // namespace zaview
