// The loop between script and text menu.
#pragma once

#include <cstdint>
#include <string_view>

#include "frame/session.h"

namespace zaview {

enum class ScriptEnd : std::uint8_t {
  go_on,    // a plot is wanted, or an init script is over and the session stays open
  run_ends  // "ZAVIEW is done..." or "ZAVIEW aborting..." has been said
};

// Runs the start-up script, or goes on with one behind a plot. status: of the run, set with run_ends.
[[nodiscard]] ScriptEnd RunScript(Session& session, std::string_view name, int& status);

// Continues the script, else shows the text menu, until a view or the end is wanted. The result is the exit status.
[[nodiscard]] int RunDialogue(Session& session);

}  // namespace zaview
