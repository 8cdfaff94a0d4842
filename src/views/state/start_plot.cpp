#include "views/state/start_plot.h"

#include "gks/window/gks_window.h"

namespace zaview {

namespace {

bool SameQuantity(const QuantityRequest& a, const QuantityRequest& b) {
  return a.iqnt == b.iqnt && a.point == b.point && a.missile == b.missile;
}

// Limits and hidden curves belong to one quantity of one case in one unit.
void ForgetLimits(Session& session, const PlotRequest& wanted) {
  DataPlotState& plot = session.data_plot;
  const bool same_case = plot.case_serial == session.case_store.serial && plot.settings == session.output &&
                         plot.settings.statistics == session.output.statistics;
  const bool same_plot = plot.kind == wanted.kind && SameQuantity(plot.quantity, wanted.quantity) &&
                         plot.of_ensemble == wanted.of_ensemble && plot.statistic == wanted.statistic;
  if (!same_plot || !same_case) plot.hidden.clear();
  const bool same_axes = same_plot && same_case && plot.plot_component == wanted.quantity.curve;
  if (same_axes || (plot.keep_scale && plot.kind == wanted.kind)) return;
  plot.rescale = true;
  plot.limits_changed = false;
}

}  // namespace

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
  ForgetLimits(session, wanted);
  ClearPlotKinds(plot);
  plot.kind = wanted.kind;
  plot.quantity = wanted.quantity;
  plot.plot_component = wanted.quantity.curve;
  plot.of_ensemble = wanted.of_ensemble;
  plot.statistic = wanted.statistic;
  plot.case_serial = session.case_store.serial;
  plot.settings = session.output;
  session.run.plot_failed = false;
  session.gks.dump.failed = false;
  session.run.redraw = true;
  session.run.plot_suboption = suboption;
  session.run.plot_module = 1;
  return true;
}

}  // namespace zaview
