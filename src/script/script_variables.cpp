#include "script/script_variables.h"

#include "base/message.h"

namespace zaview {

std::string CutScriptValue(const Console& console, std::string_view name, std::string_view value) {
  if (value.size() > kScriptValue)
    Say(console, "WARNING - value of script variable {} cut to {} characters", name, kScriptValue);
  return std::string(value.substr(0, kScriptValue));
}

void AddScriptVariable(const Console& console, ScriptState& script, std::string_view name, std::string_view value) {
  name = name.substr(0, kScriptValue);
  script.variables.push_back({std::string(name), CutScriptValue(console, name, value)});
}

}  // namespace zaview
