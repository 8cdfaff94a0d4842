// Which views and plots a case has, and going from one straight to another: by option menus, the main menu tells the
// same from its options.
#pragma once

#include "frame/session.h"

namespace zaview {

[[nodiscard]] bool CanAnimate(const CaseStore& store);
[[nodiscard]] bool HasTrack(const CaseStore& store);
[[nodiscard]] bool HasLoadCuts(const CaseStore& store);  // along X, with a history of at least one of the loads
[[nodiscard]] bool HasHull(const CaseStore& store);
[[nodiscard]] bool CanPlot(const Session& session, PlotKind kind);

// Each from the view or plot that is shown to another: run mode ends, the window stays.
void ChooseView(Session& session, PlotModule module);
// A kind of data plot, of the quantity in use, or the first that it can show. False: there is none.
bool ChoosePlot(Session& session, PlotKind kind);

// Out of the view: to the main menu, also where a script waits; on with the script that waits.
void LeaveForMenu(Session& session);
void LeaveForScript(Session& session);

}  // namespace zaview
