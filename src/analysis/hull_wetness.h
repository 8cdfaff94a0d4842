// How deep the hull is in the waves of the moment, and what of it has been wet: vertex by vertex, step by step.
#pragma once

#include <span>

#include "analysis/wetness_state.h"
#include "base/rotation.h"
#include "case/case_store.h"

namespace zaview {

// points: of the hull, ship axes from the CG, non-dimensional, the same ones for a case. step: in use. A step further
// on adds those in between, one before them costs no more than itself: a vertex has been wet up to a step if
// first_wet isn't behind it. Another case, range of steps or number of points starts anew. Steps that hold nothing make
// nothing wet. EnsureSeaway must have been ok, else the sea is flat.
// The wave is that of a grid about the hull, 80 intervals along its longer side, read as linear in between: off by at
// most (k h)^2/8 of its amplitude for a wave of number k and a spacing h, so 0.1 % of a wave that is as long as the
// ship, 1 % of one a quarter as long. False: memory is out.
[[nodiscard]] bool FollowWetness(const CaseStore& store, std::span<const Vector3> points, int step,
                                 HullWetness& wetness);

}  // namespace zaview
