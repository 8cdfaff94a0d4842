// Righting arms as a picture.
#pragma once

#include "analysis/result_plot.h"
#include "analysis/righting_arms/righting_arms.h"

namespace zaview {

inline constexpr std::size_t kMostArmCurves = 12;  // in one picture; of more steps some are left out, evenly

// Arms over heel (trim), a curve a step, from the most negative angle to the most positive; the band is the range of
// positive stability that all steps have in common. Nothing of no steps.
[[nodiscard]] ResultPlot RightingArmsPlot(const RightingArms& arms);

}  // namespace zaview
