// What the user has set for the geometry views, plane and in space, and which of their limits are fitted to what. Data
// only. Lengths are those of the input.
#pragma once

#include <cstdint>

#include "gks/scene/camera.h"
#include "views/state/axes_state.h"

namespace zaview {

enum class GeometryPlane : std::uint8_t { x_y, x_z, y_z };
enum class GeometryLines : std::uint8_t { both, stations, waterlines };
enum class GeometryColour : std::uint8_t { same, by_component, by_type };
enum class PointMarks : std::uint8_t { none, with_lines, alone };
enum class OutlineInk : std::uint8_t { darker, foreground, background };  // of faces: darker than they are
enum class SpaceAxes : std::uint8_t { none, lines, numbered_lines, box, box_with_grid };

// What limits and views that the user hasn't chosen were fitted to: another one, and they are fitted anew.
struct GeometryFit {
  double low[3]{}, high[3]{};  // box about all that is shown
  GeometryPlane plane{};       // of the plane view
  SpaceAxes axes{};            // of the view in space
  int width = 0, height = 0;   // of the window, for the view in space
  bool operator==(const GeometryFit&) const = default;
};

struct GeometryViewState {
  bool geo_3d = false;
  int geo_component = 0;  // 0: all
  GeometryLines geo_draw = GeometryLines::both;
  bool geo_mirror = false, mirror_chosen = false;  // each surface also at -y; until it is chosen as the input wants it
  GeometryColour geo_colour_by = GeometryColour::same, last_colouring = GeometryColour::by_component;
  bool geo_normals = false, geo_mark_cg = false;
  PointMarks geo_mark_points = PointMarks::none;
  bool geo_weight_points = false, geo_x_cuts = false, geo_y_cuts = false, geo_load_numbers = false;
  bool geo_appendages = true, geo_appendage_labels = false, geo_component_labels = false;
  bool show_title = true, show_file = false, show_mode = true;  // mode: which lines and component, with the title
  float mark_size = 1, line_thickness = 0;
  float annot_size = 0.14F;  // page units

  // In two dimensions.
  GeometryPlane geo_plane = GeometryPlane::x_z;
  AxesState axes;  // its popup is that of both views
  bool aspect_adjust = true;
  int axis_option = 0;  // as in the data plot
  bool horizontal_zero = true, vertical_zero = true, grid_on = false;
  GeometryFit plane_fit;

  // In space.
  bool geo_solid = true, geo_outline = true, geo_shading = true, geo_backface = false, zbuffer_wire = true;
  bool appendages_solid = true;  // where the hull is
  OutlineInk outline_ink = OutlineInk::darker;
  SpaceAxes space_axes = SpaceAxes::none;
  Camera view{{}, 45, 30, 30, 0, false};        // to be measured: not in perspective
  bool own_radius = false, own_centre = false;  // chosen by the user, else fitted
  GeometryFit space_fit;
  bool point_measured = false;
  ScenePoint measured;

  bool backs_told = false, normals_told = false;  // notes said
};

}  // namespace zaview
