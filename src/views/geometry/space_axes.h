// The axes about a body in space.
#pragma once

#include "geometry/input_hull.h"
#include "gks/zb3d/zb3d.h"
#include "views/state/geometry_view_state.h"

namespace zaview {

// Lines through the origin go into the tables of the 3-D layer; a box about the body is drawn at once, what of it lies
// behind the body ahead of it, the rest and all numbers in front of it. grid_pen: as zb3dPen takes it.
struct SpaceFrame {
  ZbDraw draw;
  SpaceAxes axes;
  HullBox box;  // about the body
  int grid_pen;
};
void DrawFrameBehind(const SpaceFrame& frame);   // ahead of zb3dFlush
void AddFrameLines(const SpaceFrame& frame);     // with the other entries
void DrawFrameInFront(const SpaceFrame& frame);  // behind zb3dFlush

[[nodiscard]] HullBox WithSpaceAxes(const HullBox& box, SpaceAxes axes);  // the box about body, axes and their numbers

}  // namespace zaview
