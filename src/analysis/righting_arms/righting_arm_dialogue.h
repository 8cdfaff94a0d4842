// The questions of righting arms, and the work that they order.
#pragma once

#include "analysis/righting_arms/righting_arms.h"

namespace zaview {

// QUIT anywhere writes nothing. result: what was computed, if anything was. The hull must be there.
void GZCurveMenu(const Platform& platform, const OutputSettings& settings, CaseStore& case_store, RightingArms& result);

}  // namespace zaview
