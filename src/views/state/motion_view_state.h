// What scripts and menus have set for the motion animation. Data only.
#pragma once

#include <array>
#include <cstdint>

#include "case/plot_data.h"

namespace zaview {

inline constexpr int kGraphs = 4;  // overlay graphs
inline constexpr int kColours = 16;

struct MotionGraph {
  bool on = false;
  QuantityRequest request;
  int colour = 1;  // index into the colour names
  bool blank = true, scroll = false, time_bar = true, mark = false, value = false;
};

struct MotionViewState {
  bool show_rudders = false;
  bool show_title = true, show_time = true;
  bool perspective = true;
  bool shading_on = true;
  bool body_transparent = false;
  bool hull_solid = true;  // else wire frame
  bool fs_transparent = false;
  float fs_opacity = 0.5F;                       // 0 to 1
  float ambient = 0.3F;                          // 0 to 1
  float view_width = 30;                         // aperture, degrees, 0 to 90
  float view_radius = 0;                         // 0: to fit the ship
  float view_azimuth = 45, view_elevation = 30;  // degrees
  bool run_sync = false;                         // in step with the wall clock
  bool sync_real_time = true;                    // the factor counts against real time
  float run_sync_factor = 1;
  float fs_grid_size = 0;  // 0: by the ship
  float line_thickness = 0;
  int initial_step = 0;  // 0: the first in use
  std::array<MotionGraph, kGraphs> graphs;
};

}  // namespace zaview
