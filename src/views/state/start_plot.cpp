#include "views/state/start_plot.h"

#include "gks/window/gks_window.h"

namespace zaview {

void ClearPlotKinds(DataPlotState& plot) {
  plot.kind = PlotKind::none;
}

bool StartPlot(Session& session, const PlotRequest& wanted, int suboption) {
  if (!gksReady(session.platform, session.gks)) {
    session.gks.dump.waiting = false;
    session.gks.dump.name.clear();
    return false;
  }
  DataPlotState& plot = session.data_plot;
  ClearPlotKinds(plot);
  plot.kind = wanted.kind;
  plot.quantity = wanted.quantity;
  plot.plot_component = wanted.quantity.curve;
  plot.of_ensemble = wanted.of_ensemble;
  plot.statistic = wanted.statistic;
  session.run.plot_failed = false;
  session.gks.dump.failed = false;
  session.run.redraw = true;
  session.run.plot_suboption = suboption;
  session.run.plot_module = 1;
  return true;
}

}  // namespace zaview
