// Keys of the data plot that fit its limits to the data, which are brought up to date first.
#include <algorithm>
#include <cstddef>
#include <span>

#include "views/data_plot/data_plot.h"
#include "views/data_plot/data_plot_keys.h"
#include "views/data_plot/plot_type.h"
#include "views/state/axes_limits.h"
#include "views/state/plot_kinds.h"

namespace zaview {

namespace {

// Fits and mapped axes need the data as they are now. False: they can't be made, the view is left.
bool UpToDate(Session& s) {
  zaviewsetaxes(s);
  return s.run.plot_module != PlotModule::none;
}

// Limits that the data want, rounded. False: there are no data.
bool Fit(Session& s, FitOver over, PlotLimits& limits) {
  if (!UpToDate(s)) return false;
  const DataPlotState& plot = s.data_plot;
  const PlotType& type = PlotTypeOf(plot.kind);
  if (type.fit != nullptr && !RowOf(plot.kind).keys_fit_curves) {
    type.fit(plot, limits);
    return true;
  }
  if (!FitAxes(plot, over, limits)) return false;
  RoundY(limits, LengthOf(plot).y);
  return true;
}

bool FitY(Session& s, FitOver over) {
  PlotLimits fitted;
  if (!Fit(s, over, fitted)) return false;
  PlotLimits limits = s.data_plot.axes.limits;
  limits.y_min = fitted.y_min;
  limits.y_step = fitted.y_step;
  limits.y_max = fitted.y_max;
  return TakeLimits(s.data_plot.axes, limits);
}

// The value at `v` of a quantity given at the points of another, straight on beyond the ends. Both rise; two points at
// least.
float Interpolated(std::span<const float> from, std::span<const float> to, float v) {
  const auto above = std::upper_bound(from.begin() + 1, from.end() - 1, v);
  const auto i = static_cast<std::size_t>(above - from.begin());
  const float range = from[i] - from[i - 1];
  const float part = range > 0.0F ? (v - from[i - 1]) / range : 0.0F;
  return to[i - 1] + part * (to[i] - to[i - 1]);
}

void MapX(const DataPlotState& plot, std::span<const float> from, std::span<const float> to, PlotLimits& limits) {
  limits.x_min = Interpolated(from, to, limits.x_min);
  limits.x_max = Interpolated(from, to, limits.x_max);
  PlotLimits rounded = limits;
  RoundX(rounded, LengthOf(plot).x);
  limits.x_step = rounded.x_step;
}

}  // namespace

bool FitRaw(Session& session) {
  PlotLimits limits;
  return UpToDate(session) && FitAxes(session.data_plot, FitOver::all_steps, limits) &&
         TakeLimits(session.data_plot.axes, limits);
}

bool FitX(Session& session) {
  PlotLimits fitted;
  if (!Fit(session, FitOver::all_steps, fitted)) return false;
  PlotLimits limits = session.data_plot.axes.limits;
  limits.x_min = fitted.x_min;
  limits.x_step = fitted.x_step;
  limits.x_max = fitted.x_max;
  return TakeLimits(session.data_plot.axes, limits);
}

bool FitShownY(Session& session) {
  return FitY(session, FitOver::shown_steps);
}

bool FitAllY(Session& session) {
  return FitY(session, FitOver::all_steps);
}

bool RoundBoth(Session& session) {
  return RoundLimits(session.data_plot.axes, LengthOf(session.data_plot));
}

bool SwitchStepAxis(Session& session) {
  DataPlotState& plot = session.data_plot;
  if (!UpToDate(session)) return false;
  const std::vector<float>& time = plot.derived.history.x;
  const std::vector<float>& step = plot.derived.step_x;
  const bool to_steps = !plot.x_axis_by_index;
  plot.x_axis_by_index = to_steps;
  plot.axes.measure.on = false;  // its place was one on the other axis
  if (time.size() < 2 || time.size() != step.size()) return ForgetLimits(plot.axes);
  const std::span<const float> from = to_steps ? time : step, to = to_steps ? step : time;
  MapX(plot, from, to, plot.axes.limits);
  MapX(plot, from, to, plot.axes.fitted);
  return true;
}

}  // namespace zaview
