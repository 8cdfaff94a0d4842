// Keys of the data plot that change its limits. Nothing is computed anew: only the limits in use are others.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>

#include "base/axis_rounding.h"
#include "views/data_plot/data_plot.h"
#include "views/data_plot/data_plot_keys.h"
#include "views/data_plot/plot_type.h"

namespace zaview {

namespace {

constexpr float kWidened = 1.001F;  // so that a step on an entry of the table moves on
constexpr PlotKinds kAlongTime = In(PlotKind::history) | In(PlotKind::trajectory);

// Fits and mapped axes need the data as they are now. False: they can't be made, the view is left.
bool UpToDate(Session& s) {
  zaviewsetaxes(s);
  return s.run.plot_module > 0;
}

// What is changed of fitted limits stays until the next fit.
void KeepIfFitted(DataPlotState& plot) {
  if (!plot.limits_changed) plot.data_limits = plot.limits;
}

bool AllFinite(const PlotLimits& l) {
  return std::isfinite(l.x_max - l.x_min) && std::isfinite(l.y_max - l.y_min) && std::isfinite(l.x_min) &&
         std::isfinite(l.y_min);
}

bool Take(DataPlotState& plot, const PlotLimits& limits) {
  if (!AllFinite(limits)) return false;
  plot.limits = limits;
  plot.limits_changed = true;
  return true;
}

// Limits that the data want, rounded. False: there are no data.
bool Fit(Session& s, FitOver over, PlotLimits& limits) {
  if (!UpToDate(s)) return false;
  const DataPlotState& plot = s.data_plot;
  const PlotType& type = PlotTypeOf(plot.kind);
  if (type.fit != nullptr && (In(plot.kind) & kAlongTime) == 0) {
    type.fit(s, limits);
    return true;
  }
  if (!FitAxes(s, over, limits)) return false;
  RoundY(plot, limits);
  return true;
}

bool FitY(Session& s, FitOver over) {
  PlotLimits fitted;
  if (!Fit(s, over, fitted)) return false;
  PlotLimits limits = s.data_plot.limits;
  limits.y_min = fitted.y_min;
  limits.y_step = fitted.y_step;
  limits.y_max = fitted.y_max;
  return Take(s.data_plot, limits);
}

float Widened(float step, float range) {
  float wider = std::copysign(dgRoundFine(kWidened * std::abs(step)), step);
  if (!(std::abs(wider) > kWidened * std::abs(step))) wider = dgRoundStep(kWidened * step);
  return std::abs(wider) <= std::abs(range) ? wider : step;
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
  RoundX(plot, rounded);
  limits.x_step = rounded.x_step;
}

}  // namespace

bool ZoomOut(Session& session) {
  PlotLimits limits = session.data_plot.limits;
  const float x = 0.5F * (limits.x_max - limits.x_min), y = 0.5F * (limits.y_max - limits.y_min);
  limits.x_min -= x;
  limits.x_max += x;
  limits.y_min -= y;
  limits.y_max += y;
  limits.x_step = dgRoundStep(2.0F * limits.x_step);
  limits.y_step = dgRoundStep(2.0F * limits.y_step);
  return Take(session.data_plot, limits);
}

bool FitAll(Session& session) {
  session.data_plot.rescale = true;
  session.data_plot.limits_changed = false;
  return true;
}

bool FitRaw(Session& session) {
  PlotLimits limits;
  return UpToDate(session) && FitAxes(session, FitOver::all_steps, limits) && Take(session.data_plot, limits);
}

bool FitX(Session& session) {
  PlotLimits fitted;
  if (!Fit(session, FitOver::all_steps, fitted)) return false;
  PlotLimits limits = session.data_plot.limits;
  limits.x_min = fitted.x_min;
  limits.x_step = fitted.x_step;
  limits.x_max = fitted.x_max;
  return Take(session.data_plot, limits);
}

bool FitShownY(Session& session) {
  return FitY(session, FitOver::shown_steps);
}

bool FitAllY(Session& session) {
  return FitY(session, FitOver::all_steps);
}

bool KeepLimits(Session& session) {
  DataPlotState& plot = session.data_plot;
  plot.data_limits = plot.limits;
  plot.limits_changed = false;
  plot.rescale = false;
  return true;
}

bool RoundLimits(Session& session) {
  DataPlotState& plot = session.data_plot;
  RoundX(plot, plot.limits);
  RoundY(plot, plot.limits);
  KeepIfFitted(plot);
  return true;
}

bool SwitchStepAxis(Session& session) {
  DataPlotState& plot = session.data_plot;
  if (!UpToDate(session)) return false;
  const std::vector<float>& time = plot.derived.history.x;
  const std::vector<float>& step = plot.derived.step_x;
  const bool to_steps = !plot.x_axis_by_index;
  plot.x_axis_by_index = to_steps;
  if (time.size() < 2 || time.size() != step.size()) return FitAll(session);
  const std::span<const float> from = to_steps ? time : step, to = to_steps ? step : time;
  MapX(plot, from, to, plot.limits);
  MapX(plot, from, to, plot.data_limits);
  return true;
}

bool WidenXStep(Session& session) {
  PlotLimits& limits = session.data_plot.limits;
  limits.x_step = Widened(limits.x_step, limits.x_max - limits.x_min);
  KeepIfFitted(session.data_plot);
  return true;
}

bool WidenYStep(Session& session) {
  PlotLimits& limits = session.data_plot.limits;
  limits.y_step = Widened(limits.y_step, limits.y_max - limits.y_min);
  KeepIfFitted(session.data_plot);
  return true;
}

bool PanX(Session& session, float ranges) {
  PlotLimits limits = session.data_plot.limits;
  const float way = ranges * (limits.x_max - limits.x_min);
  limits.x_min += way;
  limits.x_max += way;
  return Take(session.data_plot, limits);
}

bool PanY(Session& session, float ranges) {
  PlotLimits limits = session.data_plot.limits;
  const float way = ranges * (limits.y_max - limits.y_min);
  limits.y_min += way;
  limits.y_max += way;
  return Take(session.data_plot, limits);
}

}  // namespace zaview
