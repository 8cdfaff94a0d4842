// The current step, and run mode, which takes one step after the other. Of all views that show a step.
#pragma once

#include "frame/session.h"

namespace zaview {

bool GoToStep(Session& session, int step);       // limited to those in use; false: it is the current one already
void StopRun(Session& session);                  // leaves the idle calls to whoever else wants them
bool ToggleRun(Session& session);                // false: there is no step to begin at
bool ScaleSync(Session& session, float factor);  // of a run in time with the clock; false: it isn't
[[nodiscard]] double ShownTimeOf(const Session& session, int step);  // seconds as simulated, in output units

}  // namespace zaview
