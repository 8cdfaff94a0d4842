// Keywords of settings.
#pragma once

#include <span>
#include <string_view>

#include "script/script_call.h"

namespace zaview {

struct WordValue {
  std::string_view word;  // in capitals
  int value = 0;
};

inline constexpr std::string_view kBadWord = "ERROR - Invalid argument for {} command : {}";

// A word in any case as the value of its row. False: it has none.
[[nodiscard]] bool FindWord(std::span<const WordValue> words, std::string_view word, int& value);

// The next word of the script, in any case, as the value of its row; "ERROR - Invalid argument for .. command : .."
// if there is none. The status.
[[nodiscard]] int ReadWord(ScriptCall& call, std::span<const WordValue> words, int& value);

inline constexpr float kNoLimit = 3.4e38F;
struct NumberRule {       // of a setting that is a number
  std::string_view name;  // command and setting, in the messages
  float low, high;
  bool low_itself;  // is the lower limit allowed
  std::string_view outside;
};
// The word as a number within its limits. The status: "ERROR parsing value for .." or "ERROR - illegal value for ..".
[[nodiscard]] int ReadLimited(const ScriptCall& call, std::string_view word, const NumberRule& rule, float& value);

// A word that begins ON or Y is a yes, OFF or N a no, in any case. False: it is neither.
[[nodiscard]] bool ReadBoolean(std::string_view word, bool& value);

}  // namespace zaview
