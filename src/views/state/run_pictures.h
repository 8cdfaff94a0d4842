// Pictures of a run, as they are ordered: how many, how fast, and an animation that nobody watches.
#pragma once

#include "frame/session.h"

namespace zaview {

// The order with the count and the rate of a run over these steps by StepStride: as simulated, slower by the factor of
// synchronization, between 1 and 60 a second.
[[nodiscard]] RunOutputOrder OrderOfSteps(const Session& session, RunOutputOrder order, int first, int last);

struct AnimationRequest {
  bool pictures = false;    // of the whole run, then the view is left; always so in dump-only mode
  RunOutputOrder output;    // its count and rate don't matter
  int first = 0, last = 0;  // steps; 0: the initial step that was set, else the first in use; the last in use
};

// suboption: as of StartPlot. False: it can't be shown, or its pictures can't be stored; that has been said.
[[nodiscard]] bool StartAnimation(Session& session, const AnimationRequest& wanted, int suboption);

// At the entry of the animation: the step that was set for it, once, or the first one of an ordered run.
void TakeInitialStep(Session& session);

}  // namespace zaview
