// The data plot view (PlotModule::data_plot): every kind of PlotKind, most of the quantity that is chosen.
#pragma once

#include <string>

#include "frame/session.h"
#include "views/state/option_row.h"
#include "views/state/plot_source.h"
#include "views/state/view_key.h"

namespace zaview {

void zaviewinit(Session& session);  // entry; the message unless a script runs
// Makes data and limits that are out of date; may leave the view (plot_module none).
void zaviewsetaxes(Session& session);
void zaviewrender(Session& session);                               // draws from the state alone
void zaviewmouse(Session& session, int button, float x, float y);  // world of the graph
void BeforeDataPlotKey(Session& session);                          // any key ends what the mouse began
[[nodiscard]] ViewKeys DataPlotKeys(const Session& session);
[[nodiscard]] ViewOptions DataPlotOptions(const Session& session);

// The same as zaviewsetaxes; false: the data can't be made, which has been said.
[[nodiscard]] bool UpdatePlot(const PlotSource& source, DataPlotState& plot);
[[nodiscard]] PlotDraw DrawOf(Session& session);

// The data of the plot to a file: "Time history data written to file". False: why not has been said.
[[nodiscard]] bool WritePlotData(Session& session, const std::string& name);

}  // namespace zaview
