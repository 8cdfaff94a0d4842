#include "views/state/result_choice.h"

#include <utility>

#include "views/state/start_plot.h"

namespace zaview {

void KeepResult(DataPlotState& plot, ResultPlot result) {
  plot.result = std::move(result);
  ++plot.result_serial;
}

bool StartResult(Session& session, int panel, int suboption) {
  const QuantityRequest quantity = session.data_plot.quantity;  // that of the other kinds stays
  if (!StartPlot(session, {.kind = PlotKind::result, .quantity = quantity}, suboption)) return false;
  session.data_plot.plot_component = panel;
  return true;
}

}  // namespace zaview
