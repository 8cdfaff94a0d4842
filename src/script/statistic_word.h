// The statistic selector of a command.
#pragma once

#include "script/script_call.h"
#include "stats/statistic_table.h"

namespace zaview {

// Takes the next word. 0, or the status of the failure that has been said: an unknown word, or _CI behind a statistic
// that has no interval.
[[nodiscard]] int ReadStatistic(ScriptCall& call, StatisticName& statistic);

}  // namespace zaview
