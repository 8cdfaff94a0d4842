#include "script/setting_words.h"

#include "base/text.h"
#include "script/open_script_file.h"

namespace zaview {

int ReadWord(ScriptCall& call, std::span<const WordValue> words, int& value) {
  const std::string word = NextScriptWord(call.words, kKeyword);
  const std::string capitals = Capitals(word);
  for (const WordValue& row : words) {
    if (capitals != row.word) continue;
    value = row.value;
    return kScriptOk;
  }
  return Fail(call, kScriptBadArgument, "ERROR - Invalid argument for {} command : {}", call.command, word);
}

bool ReadBoolean(std::string_view word, bool& value) {
  const std::string capitals = Capitals(word);
  const bool yes = StartsWith(capitals, "ON") || StartsWith(capitals, "Y");
  const bool no = StartsWith(capitals, "OFF") || StartsWith(capitals, "N");
  if (yes || no) value = yes;
  return yes || no;
}

}  // namespace zaview
