// Pictures of a run, as they are ordered: how many, how fast, and an animation that nobody watches.
#pragma once

#include "frame/session.h"

namespace zaview {

// The order with the count and the rate of a run over these steps by StepStride: as simulated, slower by the factor of
// synchronization, between 1 and 60 a second.
[[nodiscard]] RunOutputOrder OrderOfSteps(const Session& session, RunOutputOrder order, int first, int last);

// The animation is the next view, and carries out the order; in dump-only mode it always makes pictures. suboption: as
// of StartPlot. False: it can't be shown, which has been said.
[[nodiscard]] bool StartAnimation(Session& session, const AnimationOrder& order, int suboption);

// Forgets what was ordered; a video that isn't finished goes.
void DropOrder(PlotSessionState& state);

}  // namespace zaview
