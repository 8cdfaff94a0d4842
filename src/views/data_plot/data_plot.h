// The data plot view: seven kinds of plot of the quantity that is chosen (module 1).
#pragma once

#include <string>
#include <vector>

#include "frame/session.h"

namespace zaview {

void zaviewinit(Session& session);     // entry; the message unless a script runs
void zaviewsetaxes(Session& session);  // makes data and limits that are out of date; may leave the view (plot_module 0)
void zaviewrender(Session& session);   // draws from the state alone
void zaviewmouse(Session& session, int button, float x, float y);  // world of the graph
void zaviewkeyboard(Session& session, int key);
void zaviewhelp(const Session& session, std::vector<std::string>& lines);  // of the keys that act on this kind of plot

// Everything the plots are made of is out of date: on entry, and after a change of case, quantity or settings.
void MarkAllStale(DataPlotState& plot);

// Changes by step through the quantities that the case has and this kind of plot can show; limits are fitted anew
// unless they are kept. direction: 1 or -1.
void ChangeQuantity(Session& session, int direction, bool keep_limits);

// The data of the plot to a file: "Time history data written to file", or why not.
void WritePlotData(Session& session, const std::string& name);

}  // namespace zaview
