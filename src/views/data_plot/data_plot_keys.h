// Keys of the axes of a data plot that need its data or their ranges. Private to the room.
#pragma once

#include "frame/session.h"

namespace zaview {

bool FitRaw(Session& session);
bool FitX(Session& session);
bool FitShownY(Session& session);
bool FitAllY(Session& session);
bool RoundBoth(Session& session);
bool SwitchStepAxis(Session& session);

}  // namespace zaview
