// The settings of the geometry views by name, as numbers.
#pragma once

#include <string_view>

#include "views/state/geometry_view_state.h"

namespace zaview {

struct GeometryField {
  std::string_view name;
  double (*value)(const GeometryViewState& v);
};
template <auto GeometryViewState::*field>
inline double Of(const GeometryViewState& v) {
  return static_cast<double>(v.*field);
}
template <double Camera::*field>
inline double OfEye(const GeometryViewState& v) {
  return v.view.*field;
}
using View = GeometryViewState;
// clang-format off
inline constexpr GeometryField kGeometryFields[] = {
    {"space", Of<&View::geo_3d>}, {"plane", Of<&View::geo_plane>}, {"component", Of<&View::geo_component>},
    {"lines", Of<&View::geo_draw>}, {"mirror", Of<&View::geo_mirror>}, {"colour", Of<&View::geo_colour_by>},
    {"normals", Of<&View::geo_normals>}, {"cg", Of<&View::geo_mark_cg>}, {"marks", Of<&View::geo_mark_points>},
    {"weights", Of<&View::geo_weight_points>}, {"x_cuts", Of<&View::geo_x_cuts>}, {"y_cuts", Of<&View::geo_y_cuts>},
    {"numbers", Of<&View::geo_load_numbers>}, {"fins", Of<&View::geo_appendages>}, {"labels", Of<&View::geo_appendage_labels>},
    {"title", Of<&View::show_title>}, {"size", Of<&View::mark_size>}, {"thick", Of<&View::line_thickness>},
    {"annot", Of<&View::annot_size>}, {"axis", Of<&View::axis_option>}, {"frame", Of<&View::space_axes>},
    {"solid", Of<&View::geo_solid>}, {"outline", Of<&View::geo_outline>}, {"shade", Of<&View::geo_shading>},
    {"backs", Of<&View::geo_backface>}, {"sorted", Of<&View::zbuffer_wire>},
    {"perspective", [](const View& v) { return v.view.perspective ? 1.0 : 0.0; }},
    {"radius", OfEye<&Camera::view_radius>}, {"azimuth", OfEye<&Camera::view_azimuth>},
    {"elevation", OfEye<&Camera::view_elevation>}, {"width", OfEye<&Camera::view_width>},
    {"cx", [](const View& v) { return v.view.view_centre.x; }}, {"cy", [](const View& v) { return v.view.view_centre.y; }},
    {"cz", [](const View& v) { return v.view.view_centre.z; }},
    {"file", Of<&View::show_file>}, {"mode", Of<&View::show_mode>}, {"grid", Of<&View::grid_on>},
    {"h_zero", Of<&View::horizontal_zero>}, {"v_zero", Of<&View::vertical_zero>}, {"aspect", Of<&View::aspect_adjust>},
    {"names", Of<&View::geo_component_labels>}, {"plates", Of<&View::appendages_solid>}, {"ink", Of<&View::outline_ink>},
    {"use", [](const View& v) { return static_cast<double>(v.axes.use); }},
    {"x0", [](const View& v) { return static_cast<double>(v.axes.limits.x_min); }},
    {"dx", [](const View& v) { return static_cast<double>(v.axes.limits.x_step); }},
    {"x1", [](const View& v) { return static_cast<double>(v.axes.limits.x_max); }},
    {"y0", [](const View& v) { return static_cast<double>(v.axes.limits.y_min); }},
    {"dy", [](const View& v) { return static_cast<double>(v.axes.limits.y_step); }},
    {"y1", [](const View& v) { return static_cast<double>(v.axes.limits.y_max); }},
    {"fitted_x0", [](const View& v) { return static_cast<double>(v.axes.fitted.x_min); }},
};
// clang-format on

}  // namespace zaview
