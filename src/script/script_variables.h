// The variable table: filled by the command line and by assignments.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/platform.h"
#include "script/script_state.h"

namespace zaview {

inline constexpr std::size_t kScriptVariables = 100;  // tested where an assignment adds one
inline constexpr std::size_t kScriptValue = 80;       // characters of a name or value

// The value as it is kept; one that is cut says so.
[[nodiscard]] std::string CutScriptValue(const Console& console, std::string_view name, std::string_view value);

// Adds one entry, untested against the limit. The last entry of a name wins.
void AddScriptVariable(const Console& console, ScriptState& script, std::string_view name, std::string_view value);

}  // namespace zaview
