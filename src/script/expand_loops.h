// Second pass: loops, `FOR name IN value value .. DO`, body lines, `DONE`.
#pragma once

#include "base/platform.h"
#include "script/script_text.h"

namespace zaview {

inline constexpr int kLoopDepth = 100;  // loops within loops; more is an error

// Writes each loop as often as its list says, each copy behind lines `name="value"`; outer loops first, in rounds,
// until none is left. False: message tells why.
[[nodiscard]] bool ExpandScriptLoops(const Console& console, ScriptText& text, PassMessage& message);

}  // namespace zaview
