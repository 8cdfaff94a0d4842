// What stands where at a step: the ship, the eye, the size of the sea around. Scene: global axes turned nowhere, output
// lengths, the origin below the CG on the still water, so that a ship far down its track is drawn as well as one at the
// start.
#pragma once

#include "base/rotation.h"
#include "case/case_store.h"
#include "case/ship_pose.h"
#include "gks/scene/camera.h"
#include "views/state/motion_view_state.h"

namespace zaview {

struct StageInput {
  const CaseStore& store;     // its hull is there, or it has none
  double length = 1;          // of the output scale
  int width = 1, height = 1;  // of the picture, pixels
};

struct MotionStage {
  int step = 0;
  double length = 1;
  ShipPose pose;       // non-dimensional
  Vector3 cg{};        // global, output lengths
  double grid = 0;     // the sea reaches that far ahead and astern, and 2/3 of it to the sides
  double horizon = 0;  // and that far, coarser; 0: no farther
  Eye eye;
};

// Of the hull of the case; without one as long and wide as an ordinary ship of the reference length.
[[nodiscard]] HullExtent ExtentOf(const StageInput& input);

// As they are drawn: what is to fit or goes by the ship is a number here.
[[nodiscard]] double ShownRadius(const MotionViewState& view, const StageInput& input);
[[nodiscard]] double ShownGridSize(const MotionViewState& view, const StageInput& input);

// view.scene.extent is made. The current step is one in store.
[[nodiscard]] MotionStage StageOf(const MotionViewState& view, const StageInput& input);

// A global point in output lengths, as the scene has it.
[[nodiscard]] ScenePoint InScene(const MotionStage& stage, const Vector3& global);

}  // namespace zaview
