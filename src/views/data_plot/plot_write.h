// What the kinds of data plot say where a table or statistic fails. Private to views.
#pragma once

#include "stats/tables/stat_table.h"
#include "views/state/plot_source.h"

namespace zaview {

// Says why, unless it was said. False: there is a fault.
[[nodiscard]] bool SayTableFault(const PlotSource& source, const DataPlotState& plot, DataFault fault);

}  // namespace zaview
