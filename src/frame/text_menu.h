// The main menu on the console.
#pragma once

#include "frame/session.h"

namespace zaview {

// Shows the menu and does what is chosen, until a view is wanted (run.plot_module above 0) or the end
// (run.exit_requested).
void text_menu(Session& session);

}  // namespace zaview
