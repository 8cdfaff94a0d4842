// The entry of a script run, and the door through which a suspended script goes on.
#pragma once

#include <string_view>

#include "frame/session.h"
#include "script/script_status.h"

namespace zaview {

// Runs the script `name` (blank: asks for one; plot_suboption above 0: goes on behind a plot). Returns its status.
[[nodiscard]] int OpenScriptFile(Session& session, std::string_view name);

}  // namespace zaview
