// The picture of the last analysis.
#include <string>

#include "base/message.h"
#include "base/table_text.h"
#include "views/data_plot/plot_panels.h"
#include "views/data_plot/plot_type.h"
#include "views/state/result_choice.h"

namespace zaview {

namespace {

constexpr std::string_view kNothing = "ERROR - there is no result of an analysis to be plotted";

bool Make(const PlotSource& source, DataPlotState& plot) {
  if (HasResult(plot)) return true;
  SayLine(source.console(), kNothing);
  return false;
}

// ---- The data as text: a block a panel, curves one below the other.
DataFault WriteResult(const PlotSource& source, const DataPlotState& plot, OutputFile& out) {
  std::string text = plot.result.title + "\n";
  for (const ResultPanel& panel : plot.result.panels) {
    for (const ResultCurve& curve : panel.curves) {
      const std::string names[] = {panel.x_name, panel.y_name};
      const TableLayout layout = LayoutFor(source.output.writing.separator, names);
      if (!curve.name.empty()) text += curve.name + "\n";
      AppendHeading(text, layout, names);
      for (std::size_t i = 0; i < std::min(curve.x.size(), curve.y.size()); ++i) {
        const float cells[] = {curve.x[i], curve.y[i]};
        AppendRow(text, layout, cells);
      }
    }
  }
  WriteOutput(out, text);
  return DataFault::none;
}

}  // namespace

const PlotType kResultPlot{
    .kind = PlotKind::result,
    .file_prompt = "Enter file name for writing result of",
    .file_what = "the last analysis",
    .written = "Result data written to file",
    .make = Make,
    .curves = PanelCurves,
    .fit = FitPanels,
    .names = PanelNames,
    .notes = PanelNotes,
    .draw = DrawPanels,
    .draw_all = DrawAllPanels,
    .write = WriteResult,
};

}  // namespace zaview
