#include "views/state/axes_limits.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "base/axis_rounding.h"

namespace zaview {

namespace {

constexpr float kTicks = 1.0F;                           // a page unit
constexpr float kWidened = 1.001F;                       // so that a step on an entry of the table moves on
constexpr float kMostTyped = 200.0F, kMostKept = 25.0F;  // increments in a range: of one typed, of one that was there
constexpr float kLeastAperture = 1.0e-5F;                // of the range of an axis

bool AllFinite(const PlotLimits& l) {
  return std::isfinite(l.x_max - l.x_min) && std::isfinite(l.y_max - l.y_min) && std::isfinite(l.x_min) &&
         std::isfinite(l.y_min);
}

bool IsChanged(const AxesState& axes) {
  return axes.use == LimitsUse::changed || axes.use == LimitsUse::carried;
}

// What is changed of fitted limits stays until the next fit.
void StayIfFitted(AxesState& axes) {
  if (!IsChanged(axes)) axes.fitted = axes.limits;
}

float Widened(float step, float range) {
  float wider = std::copysign(dgRoundFine(kWidened * std::abs(step)), step);
  if (!(std::abs(wider) > kWidened * std::abs(step))) wider = dgRoundStep(kWidened * step);
  return std::abs(wider) <= std::abs(range) ? wider : step;
}

// A limit stays on a multiple of the step, so that the ticks read well.
void Widen(float range, float step, float& low, float& high) {
  const float middle = 0.5F * low + 0.5F * high;
  low = middle - 0.5F * range;
  if (step > 0.0F) low = std::floor(low / step + 0.5F) * step;
  high = low + range;
}

bool IsBetween(float value, float a, float b) {
  return value >= std::min(a, b) && value <= std::max(a, b);
}

ZoomAnswer FirstCorner(AxesState& axes, const PlotPage& page, PlotPoint at) {
  if (InPlot(page, at)) {
    axes.zoom = {true, at.x, at.y};
    return ZoomAnswer::draw;  // its mark
  }
  return UndoZoom(axes) ? ZoomAnswer::draw : ZoomAnswer::nothing;
}

ZoomAnswer SecondCorner(AxesState& axes, const PlotPage& page, PlotPoint at) {
  const PlotLimits& l = axes.limits;
  const ZoomState& first = axes.zoom;
  const auto apart = [](float a, float b, float range) { return std::abs(a - b) >= kLeastAperture * std::abs(range); };
  if (!apart(at.x, first.x, l.x_max - l.x_min) || !apart(at.y, first.y, l.y_max - l.y_min))
    return ZoomAnswer::too_small;
  PlotLimits zoomed;
  std::tie(zoomed.x_min, zoomed.x_max) = std::minmax(first.x, at.x);
  std::tie(zoomed.y_min, zoomed.y_max) = std::minmax(first.y, at.y);
  RoundX(zoomed, page.area_width);
  RoundY(zoomed, page.area_height);
  axes.limits = zoomed;
  axes.use = LimitsUse::changed;
  axes.zoom.pending = false;
  return ZoomAnswer::draw;
}

}  // namespace

bool ForgetLimits(AxesState& axes) {
  axes.use = LimitsUse::to_fit;
  return true;
}

void FitUnlessChanged(AxesState& axes) {
  if (axes.use == LimitsUse::fitted) axes.use = LimitsUse::to_fit;
}

bool TakeLimits(AxesState& axes, const PlotLimits& limits) {
  if (!AllFinite(limits)) return false;
  axes.limits = limits;
  axes.use = LimitsUse::changed;
  return true;
}

bool TakeLimit(AxesState& axes, float PlotLimits::*limit, float value, AxesLength length) {
  PlotLimits limits = axes.limits;
  limits.*limit = value;
  const bool of_x = limit == &PlotLimits::x_min || limit == &PlotLimits::x_step || limit == &PlotLimits::x_max;
  const float range = of_x ? limits.x_max - limits.x_min : limits.y_max - limits.y_min;
  float& step = of_x ? limits.x_step : limits.y_step;
  if (!std::isfinite(step) || step == 0.0F || range == 0.0F) return false;
  const float steps = std::abs(range / step);
  const bool typed = limit == &PlotLimits::x_step || limit == &PlotLimits::y_step;
  if (!(steps >= 1.0F && steps <= (typed ? kMostTyped : kMostKept))) {
    PlotLimits rounded = limits;
    if (of_x) RoundX(rounded, length.x);
    else RoundY(rounded, length.y);
    step = of_x ? rounded.x_step : rounded.y_step;
  }
  step = std::copysign(step, range);
  return TakeLimits(axes, limits);
}

bool UndoZoom(AxesState& axes) {
  return IsChanged(axes) && ForgetLimits(axes);
}

bool KeepLimits(AxesState& axes) {
  axes.fitted = axes.limits;
  axes.use = LimitsUse::fitted;
  return true;
}

void RoundX(PlotLimits& limits, float length) {
  const RoundAxis axis = dgRoundAxis(limits.x_min, limits.x_max, kTicks, length);
  limits.x_min = axis.low;
  limits.x_step = axis.step;
  limits.x_max = axis.high;
}

void RoundY(PlotLimits& limits, float length) {
  const RoundAxis axis = dgRoundAxis(limits.y_min, limits.y_max, kTicks, length);
  limits.y_min = axis.low;
  limits.y_step = axis.step;
  limits.y_max = axis.high;
}

bool RoundLimits(AxesState& axes, AxesLength length) {
  RoundX(axes.limits, length.x);
  RoundY(axes.limits, length.y);
  StayIfFitted(axes);
  return true;
}

bool WidenXStep(AxesState& axes) {
  PlotLimits& limits = axes.limits;
  limits.x_step = Widened(limits.x_step, limits.x_max - limits.x_min);
  StayIfFitted(axes);
  return true;
}

bool WidenYStep(AxesState& axes) {
  PlotLimits& limits = axes.limits;
  limits.y_step = Widened(limits.y_step, limits.y_max - limits.y_min);
  StayIfFitted(axes);
  return true;
}

bool ZoomOut(AxesState& axes) {
  PlotLimits limits = axes.limits;
  const float x = 0.5F * (limits.x_max - limits.x_min), y = 0.5F * (limits.y_max - limits.y_min);
  limits.x_min -= x;
  limits.x_max += x;
  limits.y_min -= y;
  limits.y_max += y;
  limits.x_step = dgRoundStep(2.0F * limits.x_step);
  limits.y_step = dgRoundStep(2.0F * limits.y_step);
  return TakeLimits(axes, limits);
}

bool Pan(AxesState& axes, float x_ranges, float y_ranges) {
  PlotLimits limits = axes.limits;
  const float x = x_ranges * (limits.x_max - limits.x_min), y = y_ranges * (limits.y_max - limits.y_min);
  limits.x_min += x;
  limits.x_max += x;
  limits.y_min += y;
  limits.y_max += y;
  return TakeLimits(axes, limits);
}

void KeepAspect(PlotLimits& limits, AxesLength length) {
  constexpr float kSame = 1.0e-3F;
  const float ux = (limits.x_max - limits.x_min) / length.x;
  const float uy = (limits.y_max - limits.y_min) / length.y;
  if (!(ux > 0.0F && uy > 0.0F) || !std::isfinite(ux) || !std::isfinite(uy)) return;
  if (std::abs(ux - uy) <= kSame * std::max(ux, uy)) return;
  if (ux > uy) {
    limits.y_step = limits.x_step;
    Widen(ux * length.y, limits.y_step, limits.y_min, limits.y_max);
  } else {
    limits.x_step = limits.y_step;
    Widen(uy * length.x, limits.x_step, limits.x_min, limits.x_max);
  }
}

// In the axes as they are drawn: limits that are equal are drawn apart.
bool InPlot(const PlotPage& page, PlotPoint at) {
  return IsBetween(at.x, page.x_origin, page.x_end) && IsBetween(at.y, page.y_origin, page.y_end);
}

PlotPoint ScaleOf(const PlotPage& page) {
  return {page.area_width / (page.x_end - page.x_origin), page.area_height / (page.y_end - page.y_origin)};
}

PlotPoint ToPage(const PlotPage& page, PlotPoint at) {
  const PlotPoint scale = ScaleOf(page);
  return {page.area_x + (at.x - page.x_origin) * scale.x, page.area_y + (at.y - page.y_origin) * scale.y};
}

ZoomAnswer ClickZoom(AxesState& axes, const PlotPage& page, PlotPoint at) {
  return axes.zoom.pending ? SecondCorner(axes, page, at) : FirstCorner(axes, page, at);
}

bool DropZoom(AxesState& axes) {
  if (!axes.zoom.pending) return false;
  axes.zoom.pending = false;
  return true;
}

}  // namespace zaview
