#include "views/state/start_plot.h"

#include "case/quantity_catalogue.h"
#include "gks/window/gks_window.h"

namespace zaview {

namespace {

void RememberPoint(DataPlotState& plot, const QuantityRequest& quantity) {
  plot.point = quantity.point;
  const QuantityRow* row = FindQuantity(quantity.iqnt);
  if (row != nullptr && row->need == QuantityNeed::missile) plot.missile = quantity.missile;
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
  ClearPlotKinds(plot);
  plot.kind = wanted.kind;
  plot.quantity = wanted.quantity;
  plot.plot_component = wanted.quantity.curve;
  plot.of_ensemble = wanted.of_ensemble;
  plot.statistic = wanted.statistic;
  if (IsPointQuantity(wanted.quantity.iqnt)) RememberPoint(plot, wanted.quantity);
  session.run.plot_failed = false;
  session.gks.dump.failed = false;
  session.run.redraw = true;
  session.run.plot_suboption = suboption;
  session.run.plot_module = 1;
  return true;
}

}  // namespace zaview
