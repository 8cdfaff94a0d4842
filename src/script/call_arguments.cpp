#include "script/call_arguments.h"

#include "base/number_parse.h"
#include "base/text.h"

namespace zaview {

int ReadNumbers(ScriptCall& call, int n, std::vector<float>& values) {
  if (ParseRealList(call.words, n, values)) return kScriptOk;
  return Fail(call, kScriptFailed, kFewArguments, call.command);
}

int ReadNumber(ScriptCall& call, float& value) {
  std::vector<float> values;
  const int status = ReadNumbers(call, 1, values);
  if (status == kScriptOk) value = values[0];
  return status;
}

int ReadWhole(ScriptCall& call, int& value) {
  float number = 0;
  const int status = ReadNumber(call, number);
  if (status == kScriptOk) value = RoundToInt(static_cast<double>(number));
  return status;
}

int ReadFileName(ScriptCall& call, BlankName blank, std::string& name, std::string_view too_long) {
  name = Trim(NextScriptWord(call.words, kFreeText));
  if (name.empty() && blank == BlankName::refused)
    return Fail(call, kScriptBadArgument, "ERROR - Blank file name for {} command", call.command);
  if (name.size() > kScriptFileName) return Fail(call, kScriptFailed, fmt::runtime(too_long), name);
  return kScriptOk;
}

}  // namespace zaview
