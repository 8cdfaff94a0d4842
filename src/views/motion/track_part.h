// The path of the CG as a line of the scene.
#pragma once

#include <vector>

#include "case/case_store.h"
#include "gks/scene/scene_mesh.h"
#include "views/motion/motion_stage.h"

namespace zaview {

// From the first step in use to the step of the stage, at every stride, with the latter itself; one point a pixel.
// False: memory is out.
[[nodiscard]] bool MakeTrack(const MotionStage& stage, const StageInput& input, int stride,
                             std::vector<ScenePlace>& track);

}  // namespace zaview
