#include "script/setting_words.h"

#include <algorithm>

#include "base/number_parse.h"
#include "base/text.h"

namespace zaview {

bool FindWord(std::span<const WordValue> words, std::string_view word, int& value) {
  const std::string capitals = Capitals(word);
  const auto found =
      std::find_if(words.begin(), words.end(), [&capitals](const WordValue& row) { return row.word == capitals; });
  if (found != words.end()) value = found->value;
  return found != words.end();
}

int ReadWord(ScriptCall& call, std::span<const WordValue> words, int& value) {
  const std::string word = NextScriptWord(call.words, kKeyword);
  if (FindWord(words, word, value)) return kScriptOk;
  return Fail(call, kScriptBadArgument, kBadWord, call.command, word);
}

int ReadLimited(const ScriptCall& call, std::string_view word, const NumberRule& rule, float& value) {
  double number = 0;
  if (!ParseDouble(word, number)) return Fail(call, kScriptBadArgument, "ERROR parsing value for {}", rule.name);
  const auto x = static_cast<float>(number);
  const bool inside = (rule.low_itself ? x >= rule.low : x > rule.low) && x <= rule.high;
  if (!inside)
    return Fail(call, kScriptBadArgument, "ERROR - illegal value for {}; should be {}", rule.name, rule.outside);
  value = x;
  return kScriptOk;
}

bool ReadBoolean(std::string_view word, bool& value) {
  const std::string capitals = Capitals(word);
  const bool yes = StartsWith(capitals, "ON") || StartsWith(capitals, "Y");
  const bool no = StartsWith(capitals, "OFF") || StartsWith(capitals, "N");
  if (yes || no) value = yes;
  return yes || no;
}

}  // namespace zaview
