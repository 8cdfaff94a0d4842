// The data plot: what it shows, its limits and looks, and the data made for it. Lives as long as the run. Data only.
// What is counted in statistics has its own owner: steps to skip and trim, smoothing, cut-off (OutputSettings),
// histogram data, rate and theoretical distribution (StatisticsState), the current step (CaseStore).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "analysis/result_plot.h"
#include "case/plot_data.h"
#include "stats/histogram.h"
#include "views/state/axes_state.h"
#include "views/state/plot_key.h"

namespace zaview {

enum class HistogramStyle : std::uint8_t { line, filled, outlined };
enum class LegendUse : std::uint8_t { automatic, off, on };  // automatic: where several curves are drawn
enum class StatsPlace : std::uint8_t { bottom, below, above };

struct PlotTexts {  // which stand around the plot
  bool quantity = true, file = true, axes = true, mode = true;
};

// Statistics of the one curve of a time history: lines with their names, and a block of values.
struct OverlayLine {
  float y = 0;
  int colour = 1;
  std::string name;
};

struct StatOverlay {
  int show = 0, component = 0;  // show_stats and curve for which it was made; 0: of nothing
  int first = 0, n = 0;         // points of the curve that it was made of
  std::vector<OverlayLine> lines;
  std::vector<std::string> texts;
};

struct HullPlace {  // where a trajectory shows the hull
  int step = 0;
  float x = 0, y = 0, yaw = 0;  // of the centre as shown; radians
  float time = 0;               // as shown
};

// What the plot is made of, each kind its own part; made anew when the key is another one.
struct DataPlotDerived {
  PlotDataKey made_of;
  PlotData history;           // all components; also the track and the loads
  std::vector<float> step_x;  // of the same points: their step index
  StatOverlay overlay;
  ResultPlot panels;  // of kinds that make some
  Histogram histogram;
  std::vector<float> bar_x, bar_y;      // the upper ends of its bars, two points each
  std::vector<float> lag, correlation;  // shown lag times; autocovariance or autocorrelation
  std::vector<float> env_lag, env_R;    // upper envelope, or that of the size
  std::vector<float> low_lag, low_R;    // lower envelope; empty of an ensemble
  float variance = 1;                   // what a correlation of 1 is in the unit shown
  int ndti = 0;                         // dependence in steps; 0: not reached
  float dti = 0;
  std::vector<float> record_x;                                  // numbers of the realizations that have samples
  std::vector<float> record_low, record_estimate, record_high;  // confidence intervals of the realizations
  float low = 0, estimate = 0, high = 0;                        // of the ensemble
  std::vector<float> cut, load, load_least, load_largest;       // by sectional cut: coordinate, present value, range
  std::vector<HullPlace> hulls;
  std::vector<std::vector<float>> waterline_x, waterline_y;  // of the hull, ship axes, output units; a line each
};

struct DataPlotState {
  // What is shown
  PlotKind kind = PlotKind::none;
  QuantityRequest quantity;  // its curve isn't looked at: plot_component is
  int plot_component = 0;    // 0: all
  int plot_component_count = 0;
  std::vector<std::uint8_t> hidden;  // by component: left out where all are shown
  bool of_ensemble = false;          // histogram, autocorrelation
  ResultPlot result;                 // of the last analysis; its panels are the components
  int result_serial = 0;
  int statistic = 1;  // of confidence intervals: 1 mean, 2 standard deviation, 3 variance, 4 significant
                      // amplitude

  // Axes
  AxesState axes;
  FitKey fitted_for;
  AxesLength axis_length, histogram_length;  // the page is 11 by 8.5
  bool keep_scale = false;                   // when the quantity changes
  bool x_axis_by_index = false;
  bool keep_aspect = true;    // of trajectories
  bool match_scales = false;  // the same limits on all graphs

  // Looks
  int plot_text_mode = 1;  // texts that a key sets: 0 none, 1 all, 2 all but the file, 3 axes, 4 file name and axes
  PlotTexts texts;
  int mark_every = 0;  // n: line and every n-th mark; -n: marks only; 0: no marks
  int mark_base = 1;   // n, shown or not
  float mark_size = 1;
  float line_thickness = 0;                     // page units
  float annot_size = 0.14F, text_size = 0.14F;  // page units
  bool colour_on = true;
  bool grid_on = false;
  bool vertical_zero = true, horizontal_zero = true;  // lines
  int axis_option = 0;                                // 1 y name upright, 2 a frame round the area, 3 both
  bool numbers_on = false, time_labels_on = false;
  LegendUse legend = LegendUse::automatic;  // names of the curves
  bool values_in_legend = false;            // behind the names, which are then shown
  int show_stats = 0;  // 0 none, 1 1/3rd peaks, 2 1/10th peaks, 3 standard deviation, 4 minimum and maximum
  StatsPlace stats_at = StatsPlace::bottom;
  HistogramStyle hist_rendering = HistogramStyle::outlined;
  bool wave_overlay = false;
  bool wave_own_scale = true;

  // Trajectory
  bool show_ship = true;
  int geometry_every = 0;  // steps; 0: ten hulls on the track
  float geometry_scale = 1;
  std::vector<int> marked_steps;  // typed by the user; empty: every n-th

  // Writing
  std::string file_name;     // chosen last in the options menu; blank: none yet
  bool unformatted = false;  // time histories

  DataPlotDerived derived;
};

}  // namespace zaview
