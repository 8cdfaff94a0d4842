// What the kinds of data plot say where a table or statistic fails. Private to views.
#pragma once

#include "frame/session.h"
#include "stats/tables/stat_table.h"

namespace zaview {

// Says why, unless it was said. False: there is a fault.
[[nodiscard]] bool SayTableFault(const Session& session, TableFault fault);

}  // namespace zaview
