#include "views/geometry/geometry_switches.h"

#include <cstddef>
#include <string_view>

#include "base/message.h"
#include "views/geometry/geometry_items.h"

namespace zaview {

namespace {

constexpr std::string_view kColouring[] = {"Components colored the same", "Components now colored by index",
                                           "Components now colored by type"};
constexpr std::string_view kNoNormals = "NOTE: surface normals not available for unstructured geometry";
constexpr std::string_view kNormals = "NOTE: ZAVO surface normals should point INTO body";
constexpr std::string_view kBuffered = " Z-buffering is ENABLED for wireframe plots";
constexpr std::string_view kNotBuffered = " Z-buffering is DISABLED for wireframe plots";

}  // namespace

void SayColouring(Session& session) {
  SayLine(session.platform.console, kColouring[static_cast<std::size_t>(session.geometry_view.geo_colour_by)]);
}

bool SwitchNormals(Session& session) {
  GeometryViewState& view = session.geometry_view;
  const Hull input = ShownHull(session.case_store);
  const bool structured = !input.surfaces.empty() && !IsMesh(input, view.geo_component);
  if (!structured && ComponentCount(input) > 0) return SayLine(session.platform.console, kNoNormals), false;
  if (!view.normals_told) SayLine(session.platform.console, kNormals);
  view.normals_told = true;
  view.geo_normals = !view.geo_normals;
  return true;
}

bool SwitchBuffer(Session& session) {
  bool& on = session.geometry_view.zbuffer_wire;
  on = !on;
  SayLine(session.platform.console, on ? kBuffered : kNotBuffered);
  return true;
}

}  // namespace zaview
