// The real console, files, clock and exit of a Unix machine.
#pragma once

#include "base/platform.h"

namespace zaview {

// One a process. Standard input and output are buffered here; show_progress draws on standard error if that is a
// terminal.
[[nodiscard]] Platform PosixPlatform();

}  // namespace zaview
