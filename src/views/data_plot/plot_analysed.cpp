// Analyses of one curve that come as panels: spectrum, extremes, rainflow counts. How panels are drawn is told in
// plot_result.cpp.
#include "analysis/curves/extremes_report.h"
#include "analysis/curves/rainflow_report.h"
#include "analysis/curves/spectrum_report.h"
#include "views/data_plot/plot_panels.h"
#include "views/data_plot/plot_type.h"
#include "views/data_plot/plot_write.h"

namespace zaview {

namespace {

using MakePanels = DataFault (*)(const StatWork&, const QuantityRequest&, ResultPlot&);
using WritePanels = DataFault (*)(const StatWork&, const QuantityRequest&, OutputFile&);

template <MakePanels make>
bool Make(const PlotSource& source, DataPlotState& plot) {
  plot.derived.panels = ResultPlot{};
  const QuantityRequest request = RequestOf(plot, OneComponent(plot));
  const DataFault fault =
      Guarded([&] { return make(source.work(), request, plot.derived.panels); }, DataFault::no_memory);
  return SayTableFault(source, plot, fault);
}

template <WritePanels write>
DataFault Write(const PlotSource& source, const DataPlotState& plot, OutputFile& out) {
  return write(source.work(), RequestOf(plot, OneComponent(plot)), out);
}

}  // namespace

const PlotType kSpectrumPlot{
    .kind = PlotKind::spectrum,
    .file_prompt = "Enter file name for writing spectrum of",
    .written = "Spectrum data written to file",
    .make = Make<MakeSpectrumPlot>,
    .curves = PanelCurves,
    .fit = FitPanels,
    .names = PanelNames,
    .notes = PanelNotes,
    .draw = DrawPanels,
    .draw_all = DrawAllPanels,
    .write = Write<WriteSpectrum>,
};

const PlotType kExtremesPlot{
    .kind = PlotKind::extremes,
    .file_prompt = "Enter file name for writing extremes of",
    .written = "Extreme data written to file",
    .make = Make<MakeExtremesPlot>,
    .curves = PanelCurves,
    .fit = FitPanels,
    .names = PanelNames,
    .notes = PanelNotes,
    .draw = DrawPanels,
    .draw_all = DrawAllPanels,
    .write = Write<WriteExtremes>,
};

const PlotType kRainflowPlot{
    .kind = PlotKind::rainflow,
    .file_prompt = "Enter file name for writing rainflow counts of",
    .written = "Rainflow counts written to file",
    .make = Make<MakeRainflowPlot>,
    .curves = PanelCurves,
    .fit = FitPanels,
    .names = PanelNames,
    .notes = PanelNotes,
    .draw = DrawPanels,
    .draw_all = DrawAllPanels,
    .write = Write<WriteRainflow>,
};

}  // namespace zaview
