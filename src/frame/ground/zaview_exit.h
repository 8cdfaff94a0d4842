// The one way out of the program.
#pragma once

#include "base/platform.h"

namespace zaview {

// Exit statuses of a run.
inline constexpr int kRunOk = 0, kRunFailed = 1, kRunBadArguments = 2,
                     kRunInterrupted = 130;  // what shells say of a program that Ctrl-C ended

// Flushes the console and ends the process.
[[noreturn]] void zaview_exit(const Platform& platform, int status);

}  // namespace zaview
