// The kinds of data plot, a row each: how its data are made, which limits they need, how they are drawn and written.
// Each kind has a file of its own (plot_history.cpp ..); data_plot_axes.cpp and data_plot_render.cpp conduct. What is
// true of a kind without its drawing stands in state/plot_kinds.h.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "frame/ground/output_file.h"
#include "gks/plot/page_text.h"
#include "gks/plot/plot_layer.h"
#include "gks/plot/plot_look.h"
#include "stats/tables/stat_table.h"
#include "views/state/data_plot_state.h"
#include "views/state/plot_source.h"

namespace zaview {

struct DrawnCurve {   // as it is drawn: views of the derived data
  int component = 1;  // 0: drawn by its kind itself (the wave of a time history)
  std::span<const float> x, y;
};

inline constexpr std::string_view kNoPlotSteps = "ERROR - Too many steps skipped or trimmed";

struct PlotNames {
  std::string x, y;
  std::string title;  // the quantity line of the heading
  std::string note;   // the last line of the heading, whatever else of it is shown
};

struct PanelAxes {
  std::string_view x_name, y_name;
  bool log_y = false;  // the limits of y are logarithms to base 10
};

struct PanelFrame {  // names, axes and grid of one of several graphs, by the looks that are set
  void (*axes)(const DataPlotState& plot, const PanelAxes& names, const PlotLimits& limits, PlotDraw draw) = nullptr;
};

struct PlotType {
  PlotKind kind = PlotKind::none;
  std::string_view file_prompt{};  // of the key w: "Enter file name for writing time history of"
  std::string_view file_what{};    // the line below; blank: the quantity
  std::string_view written{};      // "Time history data written to file"
  // Makes the data. False: they can't be made, which has been said; the view is left.
  bool (*make)(const PlotSource& source, DataPlotState& plot) = nullptr;
  // At each display: what goes with the step, the marks and the choices that no data depend on.
  void (*follow)(const PlotSource& source, DataPlotState& plot) = nullptr;
  // The curves on display (not the hidden ones), for fitting, drawing and measuring. May be empty.
  void (*curves)(const DataPlotState& plot, std::vector<DrawnCurve>& curves) = nullptr;
  // Limits that these data want, rounded, when nothing was zoomed; null: those of the curves, by FitAxes.
  void (*fit)(const DataPlotState& plot, PlotLimits& limits) = nullptr;
  void (*names)(const PlotFacts& facts, const DataPlotState& plot, PlotNames& names) = nullptr;
  // Lines below the plot.
  void (*notes)(const PlotFacts& facts, const DataPlotState& plot, std::vector<PageNote>& notes) = nullptr;
  // Curves and overlays into the graph that is set up (clipping on). null: the curves alone.
  void (*draw)(const PlotFacts& facts, const DataPlotState& plot, PlotDraw draw) = nullptr;
  // Everything within the heading by itself, several graphs one below the other; false: it is a plot like others.
  bool (*draw_all)(const DataPlotState& plot, PlotDraw draw, const PanelFrame& frame) = nullptr;
  // The data as text.
  DataFault (*write)(const PlotSource& source, const DataPlotState& plot, OutputFile& out) = nullptr;
};

inline constexpr std::string_view kDataPlotPopup[] = {"Selection Menu", "Plot Options Menu", "Help", "Time/Step Menu"};

[[nodiscard]] const PlotType& PlotTypeOf(PlotKind kind);  // `none` has a row that draws axes only

extern const PlotType kHistoryPlot, kTrajectoryPlot, kLoadPlot, kHistogramPlot, kAutocovariancePlot,
    kAutocorrelationPlot, kIntervalPlot, kResultPlot, kSpectrumPlot, kExtremesPlot, kRainflowPlot;

// What every kind uses (plot_curves.cpp).
[[nodiscard]] QuantityRequest RequestOf(const DataPlotState& plot, int component);
[[nodiscard]] int OneComponent(const DataPlotState& plot);                               // of kinds that show one
[[nodiscard]] std::string CurveName(const PlotFacts& facts, const DataPlotState& plot);  // "Position of CG, pmgg(3)"
[[nodiscard]] int ColourOf(const DataPlotState& plot, int index);                        // 1 without colours
// Of SetDash: with colours that tell curves apart by themselves solid.
[[nodiscard]] int DashOf(const PlotLook& look, const DataPlotState& plot, int component);
// Colours, dashes, marks, thickness, numbers; curve 0 is left to its kind.
void DrawCurves(const DataPlotState& plot, PlotDraw draw);
// The note on a curve that is selected and left out where all are plotted, at the page's lower left corner.
void DrawLeftOut(const PlotFacts& facts, const DataPlotState& plot, PlotDraw draw);

enum class FitOver : unsigned char { shown_steps, all_steps };  // those in the x limits in use, or all
// Raw limits of the curves on display; false: there is no finite point.
[[nodiscard]] bool FitAxes(const DataPlotState& plot, FitOver over, PlotLimits& limits);
[[nodiscard]] bool HasRightAxis(const DataPlotState& plot);  // of the wave over a time history

}  // namespace zaview
