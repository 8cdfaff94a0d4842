// The current step, and run mode, which takes one step after the other. Of all views that show a step. A step on is
// StepStride steps (SET_STEP_INCREMENT).
#pragma once

#include "frame/session.h"

namespace zaview {

[[nodiscard]] int StepStride(const Session& session);                // 1 and above
[[nodiscard]] double ShownTimeOf(const Session& session, int step);  // seconds as simulated, in output units

bool GoToStep(Session& session, int step);   // limited to those in use; false: it is the current one already
bool StepBy(Session& session, int strides);  // the same from the current step; ends a run
[[nodiscard]] int StepAt(const Session& session, float time);  // in use, nearest to it; output units

// From the current step to the last one. False: there is none to begin at, or none behind it.
bool ToggleRun(Session& session);
// The same with a numbered picture of each step, the current one and the last one included. False: there is no step,
// or no pictures can be stored, which has been said.
bool StartPictureRun(Session& session);
void StopRun(Session& session);  // leaves the idle calls to whoever else wants them; its pictures are complete

void ScaleSync(Session& session, float factor);      // of the time that a step is shown, within 1e-4 to 1e4
void SetSyncFactor(Session& session, float factor);  // above 0
void SetSync(Session& session, bool on);             // in time with the clock; a run begins to count anew
// A picture of each step: of the next run, or from here on of the one that is on. False: they can't be stored, which
// has been said; a run ends there.
bool SetRunPictures(Session& session, bool on);

// Of a run with pictures. False: one could not be stored, which has been said; a script that waits for it fails.
bool PutRunPicture(Session& session);
bool FinishRunPictures(Session& session);

}  // namespace zaview
