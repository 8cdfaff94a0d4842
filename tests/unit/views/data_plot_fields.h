// What keys, menus and scripts can change of a data plot, by name; as numbers.
#pragma once

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "frame/session.h"
#include "unit/views/plot_view.h"

namespace zaview {

struct PlotField {
  std::string_view name;
  float (*value)(const Session& s);
};

template <auto DataPlotState::*field>
float PlotOf(const Session& s) {
  return static_cast<float>(s.data_plot.*field);
}
template <float PlotLimits::*limit>
float LimitOf(const Session& s) {
  return s.data_plot.axes.limits.*limit;
}
// clang-format off
inline constexpr PlotField kPlotFields[] = {
    {"axis", PlotOf<&DataPlotState::axis_option>}, {"colour", PlotOf<&DataPlotState::colour_on>},
    {"bars", PlotOf<&DataPlotState::hist_rendering>}, {"annot", PlotOf<&DataPlotState::annot_size>},
    {"text", PlotOf<&DataPlotState::text_size>}, {"size", PlotOf<&DataPlotState::mark_size>},
    {"grid", PlotOf<&DataPlotState::grid_on>}, {"numbers", PlotOf<&DataPlotState::numbers_on>},
    {"values", PlotOf<&DataPlotState::values_in_legend>}, {"times", PlotOf<&DataPlotState::time_labels_on>},
    {"ship", PlotOf<&DataPlotState::show_ship>}, {"mark", PlotOf<&DataPlotState::mark_every>},
    {"base", PlotOf<&DataPlotState::mark_base>}, {"thick", PlotOf<&DataPlotState::line_thickness>},
    {"mode", PlotOf<&DataPlotState::plot_text_mode>}, {"stats", PlotOf<&DataPlotState::show_stats>},
    {"place", PlotOf<&DataPlotState::stats_at>}, {"scale", PlotOf<&DataPlotState::geometry_scale>},
    {"every", PlotOf<&DataPlotState::geometry_every>}, {"component", PlotOf<&DataPlotState::plot_component>},
    {"statistic", PlotOf<&DataPlotState::statistic>}, {"wave", PlotOf<&DataPlotState::wave_overlay>},
    {"own", PlotOf<&DataPlotState::wave_own_scale>}, {"aspect", PlotOf<&DataPlotState::keep_aspect>},
    {"by_step", PlotOf<&DataPlotState::x_axis_by_index>}, {"kind", PlotOf<&DataPlotState::kind>},
    {"quantity", [](const Session& s) { return static_cast<float>(s.data_plot.quantity.iqnt); }},
    {"hidden3", [](const Session& s) { return static_cast<float>(s.data_plot.hidden.size() > 2 ? s.data_plot.hidden[2] : 0); }},
    {"use", [](const Session& s) { return static_cast<float>(s.data_plot.axes.use); }},
    {"x0", LimitOf<&PlotLimits::x_min>}, {"dx", LimitOf<&PlotLimits::x_step>}, {"x1", LimitOf<&PlotLimits::x_max>},
    {"y0", LimitOf<&PlotLimits::y_min>}, {"dy", LimitOf<&PlotLimits::y_step>}, {"y1", LimitOf<&PlotLimits::y_max>},
    {"fitted_x0", [](const Session& s) { return s.data_plot.axes.fitted.x_min; }},
    {"overlay", [](const Session& s) { return static_cast<float>(s.statistics.histogram.overlay); }},
    {"data", [](const Session& s) { return static_cast<float>(s.statistics.histogram.data); }},
    {"smooth", [](const Session& s) { return static_cast<float>(s.output.smoothing.option); }},
    {"background", [](const Session& s) { return static_cast<float>(s.run.plot_colours); }},
    {"module", [](const Session& s) { return static_cast<float>(s.run.plot_module); }},
    {"exit", [](const Session& s) { return static_cast<float>(s.run.exit_requested); }},
    {"font", [](const Session& s) { return static_cast<float>(s.menus.kit.font_step); }},
    {"step", [](const Session& s) { return static_cast<float>(s.case_store.current_step); }},
    {"run", [](const Session& s) { return static_cast<float>(s.plot_session.run_on); }},
    {"t0", [](const Session& s) { return s.plot_session.run_t0; }},
    {"sync", [](const Session& s) { return s.plot_session.run_sync_factor; }},
    {"x_length", [](const Session& s) { return s.data_plot.axis_length.x; }},
    {"y_length", [](const Session& s) { return s.data_plot.axis_length.y; }},
    {"bars_x", [](const Session& s) { return s.data_plot.histogram_length.x; }},
    {"keep", PlotOf<&DataPlotState::keep_scale>}, {"match", PlotOf<&DataPlotState::match_scales>},
    {"zero_x", PlotOf<&DataPlotState::vertical_zero>}, {"zero_y", PlotOf<&DataPlotState::horizontal_zero>},
    {"legend", PlotOf<&DataPlotState::legend>}, {"ensemble", PlotOf<&DataPlotState::of_ensemble>},
    {"texts", [](const Session& s) {
       const PlotTexts& t = s.data_plot.texts;
       return static_cast<float>(t.quantity + 10 * t.file + 100 * t.axes + 1000 * t.mode);
     }},
    {"hidden1", [](const Session& s) { return s.data_plot.hidden.empty() ? 0.0F : static_cast<float>(s.data_plot.hidden[0]); }},
    {"counts", [](const Session& s) { return static_cast<float>(s.statistics.histogram.counts); }},
    {"bar_rate", [](const Session& s) { return static_cast<float>(s.statistics.histogram.rate); }},
    {"many", [](const Session& s) { return static_cast<float>(s.statistics.nmany); }},
    {"rate", [](const Session& s) { return static_cast<float>(s.output.statistics.autocorrelation_rate); }},
    {"segment", [](const Session& s) { return s.output.statistics.spectrum_segment; }},
    {"hours", [](const Session& s) { return s.output.statistics.extreme_hours; }},
    {"quantile", [](const Session& s) { return s.output.statistics.extreme_quantile; }},
    {"bins", [](const Session& s) { return static_cast<float>(s.output.statistics.rainflow_bins); }},
    {"cutoff", [](const Session& s) { return s.output.statistics.autocorrelation_cutoff; }},
    {"probability", [](const Session& s) { return s.output.statistics.confidence_probability; }},
    {"bootstrap", [](const Session& s) { return static_cast<float>(s.output.statistics.interval_method); }},
    {"resamples", [](const Session& s) { return static_cast<float>(s.output.statistics.bootstrap_resamples); }},
    {"seed", [](const Session& s) { return static_cast<float>(s.output.statistics.bootstrap_seed); }},
    {"window", [](const Session& s) { return static_cast<float>(s.output.smoothing.window); }},
    {"stride", [](const Session& s) { return static_cast<float>(s.output.reading.step_stride); }},
    {"skip", [](const Session& s) { return static_cast<float>(s.case_store.skip_effective); }},
    {"skip_end", [](const Session& s) { return static_cast<float>(s.output.reading.skip_terminal); }},
    {"trim", [](const Session& s) { return static_cast<float>(s.output.reading.trim_initial); }},
    {"trim_end", [](const Session& s) { return static_cast<float>(s.output.reading.trim_terminal); }},
    {"closest", [](const Session& s) { return static_cast<float>(s.data_plot.axes.measure.closest); }},
    {"measured", [](const Session& s) { return static_cast<float>(s.data_plot.axes.measure.on); }},
    {"unformatted", PlotOf<&DataPlotState::unformatted>},
    {"record", [](const Session& s) { return static_cast<float>(s.ensemble.irec); }},
};
// clang-format on

inline std::vector<float> PlotValues(const Session& s) {
  std::vector<float> values;
  for (const PlotField& field : kPlotFields) values.push_back(field.value(s));
  return values;
}

// changes: "name value ..", the others as in `want`.
inline void ExpectPlotValues(const char* changes, std::vector<float> want, const std::vector<float>& got,
                             const std::string& who) {
  TakeChanges(kPlotFields, changes, want);
  for (std::size_t i = 0; i < want.size(); ++i)
    EXPECT_NEAR(got[i], want[i], 1.0e-4F * std::max(1.0F, std::abs(want[i]))) << who << ": " << kPlotFields[i].name;
}

}  // namespace zaview
