// The entry of a script run, and the door through which a suspended script goes on.
#pragma once

#include <string_view>

#include "frame/session.h"

namespace zaview {

// Statuses of a script.
inline constexpr int kScriptOk = 0, kScriptCancelled = -1, kScriptNotRun = 1, kScriptUnknownCommand = 3,
                     kScriptBadArgument = 4, kScriptFailed = 5,
                     kScriptInterrupted = 6;  // by Ctrl-C

// Runs the script `name` (blank: asks for one; plot_suboption above 0: goes on behind a plot). Returns its status.
[[nodiscard]] int OpenScriptFile(Session& session, std::string_view name);

}  // namespace zaview
