// The command interpreter: runs the lines of the final text until its end, STOP, an error or a plot.
#pragma once

#include <span>

#include "frame/session.h"
#include "script/command_table.h"

namespace zaview {

// Goes on at session.script.next_line. The status; every error has been said, with the line it stands on.
[[nodiscard]] int ReadScriptFile(Session& session, std::span<const CommandFamily> commands = AllCommands());

}  // namespace zaview
