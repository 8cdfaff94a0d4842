// The loop between script and text menu.
#pragma once

#include <string_view>

#include "frame/session.h"

namespace zaview {

// Runs the start-up script, or goes on with one behind a plot. Afterwards a plot is wanted (plot_module), or the run
// ends (exit_requested, "ZAVIEW is done..." or "ZAVIEW aborting..." has been said), or an init script is over and the
// session stays open.
void RunScript(Session& session, std::string_view name);

// Behind a script that was started for the sake of what follows: the user is there again.
void EndInitScript(RunState& run);

// Continues the script, else shows the text menu, until a view or the end of the run is wanted.
void RunDialogue(Session& session);

}  // namespace zaview
