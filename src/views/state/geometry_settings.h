// What keys, scripts and menus set of the geometry views. Each verb takes the state alone and what the case has; true:
// the picture is to be drawn again.
#pragma once

#include "control/control_records.h"
#include "views/state/geometry_view_state.h"

namespace zaview {

// Components count from 1 to `count`; 0: all of them.
bool TakeComponent(GeometryViewState& view, int count, int component);  // false: there is no such one
bool NextComponent(GeometryViewState& view, int count, int direction);  // 1, 2 .. count, all, 1 ..

bool TakePlane(GeometryViewState& view, GeometryPlane plane);
bool TakeMirror(GeometryViewState& view, bool on);
bool TakeColouring(GeometryViewState& view, GeometryColour colour);
bool SwitchColours(GeometryViewState& view);    // all the same, or as they last differed
bool SwitchColouring(GeometryViewState& view);  // by component, or by type
// Weights and both kinds of cuts: off, or all that the case has.
bool SwitchPoints(GeometryViewState& view, const ControlRecords& control);

bool SwitchLines(GeometryViewState& view, GeometryLines only);  // these only, or both again
bool SwitchMarks(GeometryViewState& view, PointMarks marks);    // these, or none again
bool SwitchOutlineInk(GeometryViewState& view, OutlineInk ink);
bool SwitchSpaceAxes(GeometryViewState& view, SpaceAxes axes);

bool FitPlotted(GeometryViewState& view);  // limits, or the view in space, at the next display

// ---- The view in space
inline constexpr double kSpaceZoom = 1.414, kSpaceTurn = 5.0, kSpaceWidthStep = 5.0;  // of one key; degrees
bool KeepSpaceView(GeometryViewState& view);                 // as it stands: it is fitted to nothing any more
bool ZoomSpace(GeometryViewState& view, double factor);      // of the radius
bool MoveCentre(GeometryViewState& view, ScenePoint parts);  // by parts of the radius, along the axes
bool TakeCentre(GeometryViewState& view, double ScenePoint::*coordinate, double value);
bool TakeRadius(GeometryViewState& view, double radius);  // false: not above 0

}  // namespace zaview
