#include "views/state/geometry_settings.h"

#include <algorithm>

#include "views/state/axes_limits.h"

namespace zaview {

bool TakeComponent(GeometryViewState& view, int count, int component) {
  if (component < 0 || component > count) return false;
  view.geo_component = component;
  return true;
}

bool NextComponent(GeometryViewState& view, int count, int direction) {
  const int all = count + 1;
  view.geo_component = ((view.geo_component + direction) % all + all) % all;
  return true;
}

bool TakePlane(GeometryViewState& view, GeometryPlane plane) {
  view.geo_plane = plane;
  return true;
}

bool TakeMirror(GeometryViewState& view, bool on) {
  view.geo_mirror = on;
  view.mirror_chosen = true;
  return true;
}

bool TakeColouring(GeometryViewState& view, GeometryColour colour) {
  view.geo_colour_by = colour;
  if (colour != GeometryColour::same) view.last_colouring = colour;
  return true;
}

bool SwitchColours(GeometryViewState& view) {
  const bool same = view.geo_colour_by == GeometryColour::same;
  return TakeColouring(view, same ? view.last_colouring : GeometryColour::same);
}

bool SwitchColouring(GeometryViewState& view) {
  const bool by_component = view.geo_colour_by == GeometryColour::by_component;
  return TakeColouring(view, by_component ? GeometryColour::by_type : GeometryColour::by_component);
}

bool SwitchPoints(GeometryViewState& view, const ControlRecords& control) {
  const bool any = view.geo_weight_points || view.geo_x_cuts || view.geo_y_cuts;
  view.geo_weight_points = !any && !control.mass_points.empty();
  view.geo_x_cuts = !any && !control.XMC.empty();
  view.geo_y_cuts = !any && !control.ycut.XMCY.empty();
  return true;
}

bool SwitchLines(GeometryViewState& view, GeometryLines only) {
  view.geo_draw = view.geo_draw == only ? GeometryLines::both : only;
  return true;
}

bool SwitchMarks(GeometryViewState& view, PointMarks marks) {
  view.geo_mark_points = view.geo_mark_points == marks ? PointMarks::none : marks;
  return true;
}

bool SwitchOutlineInk(GeometryViewState& view, OutlineInk ink) {
  view.outline_ink = view.outline_ink == ink ? OutlineInk::darker : ink;
  return true;
}

bool SwitchSpaceAxes(GeometryViewState& view, SpaceAxes axes) {
  view.space_axes = view.space_axes == axes ? SpaceAxes::none : axes;
  return true;
}

bool FitPlotted(GeometryViewState& view) {
  if (!view.geo_3d) return ForgetLimits(view.axes);
  view.own_radius = view.own_centre = false;
  view.space_fit = {};
  return true;
}

bool KeepSpaceView(GeometryViewState& view) {
  view.own_radius = view.own_centre = true;
  return true;
}

bool ZoomSpace(GeometryViewState& view, double factor) {
  constexpr double kFarthest = 1.0e9, kNearest = 1.0e-6;
  view.view.view_radius = std::clamp(view.view.view_radius * factor, kNearest, kFarthest);
  return KeepSpaceView(view);
}

bool MoveCentre(GeometryViewState& view, ScenePoint parts) {
  ScenePoint& c = view.view.view_centre;
  const double R = view.view.view_radius;
  c = {c.x + R * parts.x, c.y + R * parts.y, c.z + R * parts.z};
  return KeepSpaceView(view);
}

bool TakeCentre(GeometryViewState& view, double ScenePoint::*coordinate, double value) {
  view.view.view_centre.*coordinate = value;
  return KeepSpaceView(view);
}

bool TakeRadius(GeometryViewState& view, double radius) {
  if (!(radius > 0)) return false;
  view.view.view_radius = radius;
  view.own_radius = true;
  return true;
}

}  // namespace zaview
