// Arguments that many commands have. What is wrong with them is said; the result is the status.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "script/script_call.h"

namespace zaview {

inline constexpr std::string_view kFewArguments = "ERROR - Insufficient arguments for {} command...";

[[nodiscard]] int ReadNumbers(ScriptCall& call, int n, std::vector<float>& values);
[[nodiscard]] int ReadNumber(ScriptCall& call, float& value);
[[nodiscard]] int ReadWhole(ScriptCall& call, int& value);  // the nearest whole number

enum class BlankName : unsigned char { allowed, refused };
inline constexpr std::string_view kNameTooLong = "ERROR opening output file: {}";  // words of its own, if they differ

// A file name, or the root of several, without the blanks around it.
[[nodiscard]] int ReadFileName(ScriptCall& call, BlankName blank, std::string& name,
                               std::string_view too_long = kNameTooLong);

}  // namespace zaview
