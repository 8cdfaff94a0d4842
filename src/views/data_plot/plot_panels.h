// Panels with curves, of the last analysis or made of one curve, as the kinds of data plot draw them
// (plot_result.cpp). All panels that are shown stand one below the other.
#pragma once

#include "views/data_plot/plot_type.h"

namespace zaview {

[[nodiscard]] const ResultPlot& ShownPanels(const DataPlotState& plot);

// Does the vertical axis that mouse and limits are of show powers of ten?
[[nodiscard]] bool HasLogAxis(const DataPlotState& plot);
void PanelCurves(const DataPlotState& plot, std::vector<DrawnCurve>& curves);
void FitPanels(const DataPlotState& plot, PlotLimits& limits);
void PanelNames(const PlotFacts& facts, const DataPlotState& plot, PlotNames& names);
void PanelNotes(const PlotFacts& facts, const DataPlotState& plot, std::vector<PageNote>& notes);
void DrawPanels(const PlotFacts& facts, const DataPlotState& plot, PlotDraw draw);
[[nodiscard]] bool DrawAllPanels(const DataPlotState& plot, PlotDraw draw, const PanelFrame& frame);

}  // namespace zaview
