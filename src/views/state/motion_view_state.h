// What scripts and menus have set for the motion animation. Data only.
#pragma once

#include <array>
#include <cstdint>

#include "case/plot_data.h"

namespace zaview {

inline constexpr int kGraphs = 6;          // overlay graphs
inline constexpr int kScriptedGraphs = 4;  // those that a script reaches
inline constexpr int kColours = 16;

struct MotionGraph {
  bool on = false;
  QuantityRequest request;
  int colour = 1;  // index into the colour names
  bool blank = true, scroll = false, time_bar = true, mark = false, value = false;
  float scroll_time = 60;  // output time units, above 0
};

struct MotionViewState {
  bool show_rudders = false;
  bool show_title = true, show_time = true;
  bool perspective = true;
  bool shading_on = true;
  bool body_transparent = false;
  bool hull_solid = true, hull_wire = false;  // both off: no hull
  bool fs_solid = true, fs_wire = false;      // free surface
  bool fs_transparent = false;
  float fs_opacity = 0.5F;                       // 0 to 1
  float ambient = 0.3F;                          // 0 to 1
  float view_width = 30;                         // aperture, degrees, 0 to 90
  float view_radius = 0;                         // 0: to fit the ship
  float view_azimuth = 45, view_elevation = 30;  // degrees
  std::array<double, 3> view_centre{};  // from (x, y) of the CG on the still water; global axes, output lengths
  float fs_grid_size = 0;               // 0: by the ship
  float line_thickness = 0, graph_thickness = 0;  // page units
  bool thick_frames = false;                      // the frames of graphs, too
  float text_size = 0.14F;                        // page units
  bool show_track = false;                        // of the CG
  bool mark_point = false;                        // on the ship: the point of `point`
  std::array<double, 3> point{};                  // INPUT axes and units
  int initial_step = 0;                           // 0: the first in use
  std::array<MotionGraph, kGraphs> graphs;
};

}  // namespace zaview
