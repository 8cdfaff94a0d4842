// The ship as meshes of the scene: ship axes, from the CG, output lengths.
#pragma once

#include "case/case_store.h"
#include "geometry/closed_hull.h"
#include "gks/scene/scene_mesh.h"

namespace zaview {

inline constexpr SceneColour kHullInk{191, 56, 43, 255}, kHullWire{66, 18, 14, 255}, kFinInk{222, 165, 50, 255};

// The cells of the hull, four triangles about the mean of the corners with one normal a cell, and their edges as
// wires. False: memory is out.
[[nodiscard]] bool MakeHullMesh(const CaseStore& store, double length, SceneColour colour, SceneMesh& mesh);

// What closes the hull where it is open, to be drawn unseen.
[[nodiscard]] bool MakeStrips(const CaseStore& store, double length, const ClosedHull& closed, SceneMesh& mesh);

// Fins at the rudder angle of the step, and plates.
[[nodiscard]] bool MakeFins(const CaseStore& store, double length, int step, SceneMesh& mesh);
[[nodiscard]] bool MakePlates(const CaseStore& store, double length, SceneMesh& mesh);

}  // namespace zaview
