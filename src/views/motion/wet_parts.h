// The hull in the water of the moment: the waterline on it and the centre of its buoyancy.
#pragma once

#include "views/motion/motion_stage.h"
#include "views/state/motion_view_state.h"

namespace zaview {

// Height of the sea as it is drawn, flat in each of its triangles, at x, y of the scene; at the edge beyond it.
// MakeSea was called.
[[nodiscard]] double DrawnSeaAt(const MotionSceneState& scene, double x, double y);

// Parts triangles until no edge is longer: a waterline is straight in each of them. False: memory is out.
[[nodiscard]] bool RefineHull(double longest, ClosedHull& hull);

// scene.wetted, waterline and wet_sums, in lengths of the scene, of scene.closed under that sea. False: memory is out.
[[nodiscard]] bool MakeWettedHull(const MotionStage& stage, const Vector3& centre, MotionSceneState& scene);

}  // namespace zaview
