// What the user has set for the geometry views, plane and in space. Data only.
#pragma once

#include <cstdint>

#include "gks/scene/camera.h"
#include "views/state/axes_state.h"

namespace zaview {

enum class GeometryPlane : std::uint8_t { x_y, x_z, y_z };
enum class GeometryLines : std::uint8_t { both, stations, waterlines };
enum class GeometryColour : std::uint8_t { same, by_component, by_type };
enum class SpaceAxes : std::uint8_t { none, lines, numbered_lines, box, box_with_grid };

struct GeometryViewState {
  bool geo_3d = false;
  int geo_component = 0;  // 0: all
  GeometryLines geo_draw = GeometryLines::both;
  bool geo_mirror = false;  // each surface also at -y
  GeometryColour geo_colour_by = GeometryColour::same, last_colouring = GeometryColour::by_component;
  bool colour_on = true;
  bool normals_on = false, cg_on = false;
  bool points_on = false, loads_on = false, load_numbers_on = false;  // weights and load calculation points
  bool appendages_on = true, appendage_numbers_on = false;
  bool show_title = true;
  int mark_every = 0;  // as in the data plot
  float mark_size = 1, line_thickness = 0;
  float annot_size = 0.14F;  // page units

  // In two dimensions; limits in input lengths.
  GeometryPlane plane = GeometryPlane::x_z;
  AxesState axes;
  bool aspect_adjust = true;
  int axis_option = 0;
  bool grid_on = false;

  // In space.
  bool solid = true, outlined = true, shaded = true, grey_backs = false, z_buffered = true;
  SpaceAxes space_axes = SpaceAxes::none;
  Camera view{{}, 45, 30, 30, 0, false};  // to be measured: not in perspective; input axes and lengths
  bool backs_told = false, normals_told = false, fitted = false;  // notes said; the first view fitted
};

}  // namespace zaview
