// What a script says of work that failed without words of its own.
#pragma once

#include <string_view>

#include "base/data_fault.h"
#include "script/script_call.h"
#include "script/selectors.h"

namespace zaview {

// 0, or the status of the failure, which has been said. word: the selector as typed. not_valid: as for ReadCurve.
[[nodiscard]] int StatusOf(const ScriptCall& call, std::string_view word, DataFault fault,
                           std::string_view not_valid = kNotValid);

}  // namespace zaview
