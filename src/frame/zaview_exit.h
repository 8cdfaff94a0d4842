// The one way out of the program.
#pragma once

#include "base/platform.h"

namespace zaview {

// Flushes the console and ends the process.
[[noreturn]] void zaview_exit(const Platform& platform, int status);

}  // namespace zaview
