// The variable table: filled by the command line and by assignments.
#pragma once

#include <string_view>

#include "base/platform.h"
#include "script/script_state.h"

namespace zaview {

inline constexpr std::size_t kScriptVariables = 100;  // tested where an assignment adds one
inline constexpr std::size_t kScriptValue = 80;       // characters of a name or value

// Adds one entry, untested against the limit; a value that is cut says so.
void AddScriptVariable(const Console& console, ScriptState& script, std::string_view name, std::string_view value);

}  // namespace zaview
