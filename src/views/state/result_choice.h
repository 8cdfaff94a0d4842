// The picture of the last analysis: kept by whoever made it, shown as a kind of data plot.
#pragma once

#include "frame/session.h"

namespace zaview {

// In place of the one before. One without panels is none.
void KeepResult(DataPlotState& plot, ResultPlot result);
[[nodiscard]] inline bool HasResult(const DataPlotState& plot) {
  return !plot.result.panels.empty();
}
[[nodiscard]] inline int PanelCount(const DataPlotState& plot) {
  return static_cast<int>(plot.result.panels.size());
}
// panel: 0 for all of them. suboption: as StartPlot has it.
[[nodiscard]] bool StartResult(Session& session, int panel, int suboption);

}  // namespace zaview
