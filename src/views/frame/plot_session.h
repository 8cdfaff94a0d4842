// The frame around the views: what the event loop calls, how a view is entered and left, the end of the run. State is
// in plot_session_state.h and run_state.h.
#pragma once

#include "frame/session.h"

namespace zaview {

// Sets up the view of run.plot_module (kViews) and runs the event loop; the run ends in there. session.dialogue is set.
[[noreturn]] void startgraphics(Session& session);

// Ends the graphics if they were started, then the process.
[[noreturn]] void zaviewexit(Session& session, int status);

void TopRender(Session& session, bool force);
void TopMouse(Session& session, int button, float x, float y);
void TopKeyboard(Session& session, int key, float x, float y);
void PressKey(Session& session, int key);      // what the key does, without what follows an event
[[nodiscard]] bool TopIdle(Session& session);  // true: display again

// The hooks of the kernel; set ahead of gksReady.
void SetHooks(Session& session);

}  // namespace zaview
