// What scripts and menus have set for the data plot. Data only.
#pragma once

#include <cstdint>

namespace zaview {

enum class HistogramStyle : std::uint8_t { line, filled, outlined };

struct DataPlotState {
  float axis_x_length = 9, axis_y_length = 5.5F;  // page units; the page is 11 by 8.5
  float histogram_x_length = 9, histogram_y_length = 5.5F;
  HistogramStyle hist_rendering = HistogramStyle::outlined;
  bool grid_on = false;
  bool match_scales = false;  // the same limits on all graphs
  bool show_ship = true;      // on trajectories
  int show_stats = 0;         // 0 none, 1 1/3rd peaks, 2 1/10th peaks, 3 standard deviation, 4 minimum and maximum
  int window_width = 0, window_height = 0;  // pixels; 0: as the window system has it
};

}  // namespace zaview
