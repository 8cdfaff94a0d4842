// The kinds of data plot, a row each: how its data are made, which limits they need, how they are drawn and written.
// Each kind has a file of its own (plot_history.cpp ..); data_plot_axes.cpp and data_plot_render.cpp conduct.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "frame/ground/output_file.h"
#include "frame/session.h"
#include "gks/plot/plot_layer.h"
#include "stats/tables/stat_table.h"
#include "views/state/data_plot_state.h"

namespace zaview {

struct DrawnCurve {   // as it is drawn: views of the derived data
  int component = 1;  // 0: drawn by its kind itself (the wave of a time history)
  std::span<const float> x, y;
};

struct PlotNames {
  std::string x, y;
  std::string title;  // the quantity line of the heading
  std::string note;   // the last line of the heading, whatever else of it is shown
};

struct PlotType {
  PlotKind kind = PlotKind::none;
  bool shows_all = false;        // component 0 shows all components
  std::string_view file_prompt;  // of the key w: "Enter file name for writing time history of"
  std::string_view written;      // "Time history data written to file"
  // Makes what is out of date. False: it can't be made, which has been said; the view is left.
  bool (*prepare)(Session& session) = nullptr;
  // The curves on display (not the hidden ones), for fitting, drawing and measuring. May be empty.
  void (*curves)(const Session& session, std::vector<DrawnCurve>& curves) = nullptr;
  // Limits that these data want, rounded, when nothing was zoomed; null: those of the curves, by FitAxes.
  void (*fit)(const Session& session, PlotLimits& limits) = nullptr;
  void (*names)(const Session& session, PlotNames& names) = nullptr;
  // Curves and overlays into the graph that is set up (clipping on). null: the curves alone.
  void (*draw)(Session& session, PlotDraw draw) = nullptr;
  // The data as text.
  TableFault (*write)(Session& session, OutputFile& out) = nullptr;
};

[[nodiscard]] const PlotType& PlotTypeOf(PlotKind kind);  // `none` has a row that draws axes only

extern const PlotType kHistoryPlot, kTrajectoryPlot, kLoadPlot, kHistogramPlot, kAutocovariancePlot,
    kAutocorrelationPlot, kIntervalPlot;

// What every kind uses (data_plot_axes.cpp).
[[nodiscard]] PlotDraw DrawOf(Session& session);
[[nodiscard]] bool IsShown(const DataPlotState& plot, int component);  // by plot_component and `hidden`
[[nodiscard]] QuantityRequest RequestOf(const DataPlotState& plot, int component);
[[nodiscard]] int ColourOf(const DataPlotState& plot, int index);  // 1 without colours
void DrawCurves(Session& session, PlotDraw draw);  // colours, marks, thickness, numbers; curve 0 is left to its kind

// The note on a curve that is selected and left out where all are plotted, at the page's lower left corner.
void DrawLeftOut(const Session& session, PlotDraw draw);

enum class FitOver : unsigned char { shown_steps, all_steps };  // those in the x limits in use, or all
// Raw limits of the curves on display; false: there is no finite point.
[[nodiscard]] bool FitAxes(const Session& session, FitOver over, PlotLimits& limits);
// Rounds by dgRoundAxis for the lengths of the axes.
void RoundX(const DataPlotState& plot, PlotLimits& limits);
void RoundY(const DataPlotState& plot, PlotLimits& limits);

}  // namespace zaview
