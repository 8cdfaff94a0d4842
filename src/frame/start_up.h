// The start of a session: what the command line names is read and begun.
#pragma once

#include <span>
#include <string>

#include "frame/command_line.h"
#include "frame/session.h"

namespace zaview {

// The whole of the start-up: ParseCommandLine, then the files, the start-up script, the initial plot.
[[nodiscard]] CommandLineResult read_defaults_and_arguments(Session& session, std::span<const std::string> arguments);

}  // namespace zaview
