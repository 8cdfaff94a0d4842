// The motion animation: the ship in the waves of the moment, step by step (PlotModule::animation).
#pragma once

#include "frame/session.h"
#include "views/state/option_row.h"
#include "views/state/view_key.h"

namespace zaview {

void KinoPlotInit(Session& session);  // entry; the messages unless a script runs
void KinoRender(Session& session);    // may leave the view: the picture can't be made, which has been said
void KinoMouse(Session& session, int button, float x, float y);  // page units
void BeforeMotionKey(Session& session);                          // any key closes the popup
[[nodiscard]] ViewKeys MotionKeys(const Session& session);
[[nodiscard]] ViewOptions MotionOptions(const Session& session);

}  // namespace zaview
