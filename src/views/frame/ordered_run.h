// The entry of the animation, and a run of it that nobody watches.
#pragma once

#include "frame/session.h"

namespace zaview {

// Carries out what was ordered; where it can't, the view is not entered.
void EnterAnimation(Session& session);

// Of a picture that is complete and that nobody watches: it goes to the run that ordered it, if one did.
[[nodiscard]] AfterPicture TakeRunPicture(Session& session);

}  // namespace zaview
