// What plot commands have in common.
#pragma once

#include "script/script_call.h"
#include "views/state/start_plot.h"

namespace zaview {

inline constexpr int kFromScript = 1;  // plot_suboption of what a script asks for

// Takes the dump word and asks for the plot. 0, or the status of the failure that has been said.
[[nodiscard]] int HandOverPlot(ScriptCall& call, const PlotRequest& wanted);
[[nodiscard]] int HandOverView(ScriptCall& call, PlotModule view);  // the same for the other views

}  // namespace zaview
