// What -quiet leaves of a console: tables that a blank file name sends there, and faults, which go to the error output.
#pragma once

#include "base/platform.h"

namespace zaview {

struct QuietConsole {
  Console real;
  bool in_fault = false;  // the line before was one: a line that begins with a blank goes on with it
};

// The console to be used in place of `real`. quiet: outlives it.
[[nodiscard]] Console MakeQuiet(const Console& real, QuietConsole& quiet);

}  // namespace zaview
