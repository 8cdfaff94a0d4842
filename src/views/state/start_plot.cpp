#include "views/state/start_plot.h"

#include <utility>

#include "gks/kernel/gks_control.h"
#include "gks/window/gks_window.h"

namespace zaview {

void ClearPlotKinds(DataPlotState& plot) {
  plot.kind = PlotKind::none;
}

bool StartView(Session& session, PlotModule module, int suboption) {
  if (!gksReady(session.platform, session.gks)) {
    session.gks.dump.waiting = false;
    session.gks.dump.name.clear();
    return false;
  }
  session.run.plot_failed = false;
  session.gks.dump.failed = false;
  session.run.redraw = true;
  session.run.plot_suboption = suboption;
  session.run.plot_module = module;
  return true;
}

bool StartPlot(Session& session, const PlotRequest& wanted, int suboption) {
  if (!StartView(session, PlotModule::data_plot, suboption)) return false;
  DataPlotState& plot = session.data_plot;
  ClearPlotKinds(plot);
  plot.kind = wanted.kind;
  plot.quantity = wanted.quantity;
  plot.plot_component = wanted.quantity.curve;
  plot.of_ensemble = wanted.of_ensemble;
  plot.statistic = wanted.statistic;
  return true;
}

void TakeReverse(RunState& run, GksState& gks) {
  const int wanted = std::exchange(run.plot_colours, 0);
  if (wanted != 0) gksSetReverse(gks, wanted == 1 ? !gks.window.reverse_video : wanted == 3);
}

}  // namespace zaview
