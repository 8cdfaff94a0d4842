// One option of the $OPTIONS: module, found in its raw text. A line holds NAME in any case, `:` or `=` at its end or as
// a word of its own if there is one, and the value. Of an option given twice the last one counts.
#pragma once

#include <string>
#include <string_view>

#include "control/control_records.h"

namespace zaview {

// names: an option and its other spelling, in capitals (the second may be blank).
struct OptionNames {
  std::string_view name, other{};
};

// What stands behind the name: trimmed, without comment, the text inside of quotes. False: not given (value untouched).
[[nodiscard]] bool FindOption(const ControlRecords& records, OptionNames names, std::string& value);

// The first item of the value as a number; not given, or no number: -1, which means not set.
[[nodiscard]] double RealOption(const ControlRecords& records, OptionNames names);
[[nodiscard]] int IntegerOption(const ControlRecords& records, OptionNames names);

// A line without its comment: "NAME", "NAME:", "NAME =" and "NAME=value" alike. value: all behind that.
void SplitOption(std::string_view line, std::string_view& name, std::string_view& value);

// The first item of a value: up to a blank or a comma.
[[nodiscard]] std::string_view FirstOptionItem(std::string_view value);

}  // namespace zaview
