// How a view is asked for, by script, menu and command line alike: its state is set, the run loop enters it.
#pragma once

#include "frame/session.h"

namespace zaview {

struct PlotRequest {
  PlotKind kind = PlotKind::history;
  QuantityRequest quantity{};  // its curve becomes plot_component
  bool of_ensemble = false;    // histogram, autocorrelation
  int statistic = 1;           // of confidence intervals
};

void ClearPlotKinds(DataPlotState& plot);

// suboption: of the main menu, for its way back; 1 for scripts. False: nothing can be shown, which has been said; a
// picture's file that was ordered is not.
[[nodiscard]] bool StartPlot(Session& session, const PlotRequest& wanted, int suboption);

// The same for the other views, whose state is left as it is.
[[nodiscard]] bool StartView(Session& session, PlotModule module, int suboption);

// The background that a key or a script asked for, once.
void TakeReverse(RunState& run, GksState& gks);

}  // namespace zaview
