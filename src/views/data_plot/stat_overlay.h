// Statistics of the one curve of a time history, drawn over it: lines with their names, and a block of values. Pure
// texts and values; plot_history.cpp draws them.
#pragma once

#include <span>
#include <string_view>

#include "views/state/data_plot_state.h"

namespace zaview {

inline constexpr std::string_view kOverlaySkipped =
    "ERROR - Too many steps skipped or trimmed - overlay statistics punted";
inline constexpr std::string_view kNoPeaks = "No peaks found";

// show_stats 1 to 4: 1/3rd peaks, 1/10th peaks, standard deviation, extremes; any other: nothing. x: the points that
// statistics take, at least one. prob: confidence, only looked at as an argument of the statistics.
void MakeStatOverlay(int show_stats, std::span<const float> x, float prob, StatOverlay& out);

}  // namespace zaview
