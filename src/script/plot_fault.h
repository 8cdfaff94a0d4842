// What a script says of work that failed without words of its own.
#pragma once

#include <string_view>

#include "case/plot_data.h"
#include "script/script_call.h"
#include "stats/tables/stat_table.h"

namespace zaview {

// 0, or the status of the failure, which has been said. word: the selector as typed.
[[nodiscard]] int StatusOf(const ScriptCall& call, std::string_view word, PlotFault fault);
[[nodiscard]] int StatusOf(const ScriptCall& call, std::string_view word, TableFault fault, std::string_view not_valid);

}  // namespace zaview
