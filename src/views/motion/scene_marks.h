// Marks over the scene: the marked point, the centre of gravity and that of buoyancy.
#pragma once

#include <array>

#include "gks/plot/plot_layer.h"
#include "views/motion/motion_stage.h"
#include "views/state/motion_view_state.h"

namespace zaview {

// On the page as it is set. They are seen through hull and sea. point: the one to mark, INPUT axes and units.
void DrawSceneMarks(const MotionViewState& view, const CaseStore& store, const std::array<double, 3>& point,
                    const MotionStage& stage, PlotDraw draw);

}  // namespace zaview
