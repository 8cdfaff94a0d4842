// The ship as meshes of the scene: ship axes, from the CG, output lengths.
#pragma once

#include "case/case_store.h"
#include "geometry/closed_hull.h"
#include "gks/scene/scene_mesh.h"
#include "views/state/motion_view_state.h"

namespace zaview {

inline constexpr SceneColour kHullInk{191, 56, 43, 255}, kHullWire{66, 18, 14, 255}, kFinInk{222, 165, 50, 255},
    kWetInk{70, 64, 160, 255}, kWasWetInk{160, 84, 150, 255};

// The longest edge of faces where they tell of the water.
[[nodiscard]] double SmallEdge(const HullExtent& extent);

// The cells of the hull, four triangles about the mean of the corners with one normal a cell, and their edges as
// wires. longest: faces are parted until no edge is longer; 0: they are not. False: memory is out.
[[nodiscard]] bool MakeHullMesh(const CaseStore& store, double length, SceneColour colour, double longest,
                                SceneMesh& mesh);

// Colours its vertices by where it is wet at a step, and has been: scene.hull_points and scene.wetness. False: memory
// is out.
[[nodiscard]] bool ColourByWetness(const CaseStore& store, double length, int step, MotionSceneState& scene);

// What closes the hull where it is open, to be drawn unseen.
[[nodiscard]] bool MakeStrips(const CaseStore& store, double length, const ClosedHull& closed, SceneMesh& mesh);

// Fins at the rudder angle of the step, and plates.
[[nodiscard]] bool MakeFins(const CaseStore& store, double length, int step, SceneMesh& mesh);
[[nodiscard]] bool MakePlates(const CaseStore& store, double length, SceneMesh& mesh);

}  // namespace zaview
