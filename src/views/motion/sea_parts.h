// The surface of the sea as meshes of the scene.
#pragma once

#include "case/case_store.h"
#include "views/motion/motion_stage.h"
#include "views/state/motion_view_state.h"

namespace zaview {

struct SeaLooks {
  float opacity = 1;
  bool lit = true;
  float ambient = 0.3F;
};

// 61 by 41 points about the CG, in steps of 1/30 of the grid size both ways; with a horizon coarser ones around, where
// the waves die away and the water fades. Elevations: of the seaway at the time of the step; without one the sea is
// flat. Colours from trough to crest by a scale that stays the same over the run, as the light at the eye shows them,
// and with the sky in them where the eye looks along the water; from below darker. False: memory is out.
[[nodiscard]] bool MakeSea(const CaseStore& store, const MotionStage& stage, const SeaLooks& looks,
                           MotionSceneState& scene);

}  // namespace zaview
