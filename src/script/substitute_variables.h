// Third pass: `{name}` becomes the value of the variable, assignments set it.
#pragma once

#include <string>
#include <string_view>

#include "base/platform.h"
#include "script/script_text.h"

namespace zaview {

inline constexpr int kLineSubstitutions = 1000;        // of one line: {a} = "{a}" would never end
inline constexpr int kTextSubstitutions = 10'000'000;  // of one script

struct Assignment {
  std::string_view name, value;
  bool fault = false;  // it looks like an assignment but has no name
};

// Is the line `name = value`? Not if a blank or tab is in the name, or the `=` stands in quotes or in column 1.
[[nodiscard]] bool ParseAssignment(std::string_view line, Assignment& assignment);

// Leaves the lines that are no assignments, blanks at their ends dropped. False: message tells why.
[[nodiscard]] bool SubstituteScriptVariables(const Console& console, ScriptState& script, ScriptText& text,
                                             PassMessage& message);

}  // namespace zaview
