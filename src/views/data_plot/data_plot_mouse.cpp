// Clicks in the data plot: zoom, measure, and the popup.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "base/axis_rounding.h"
#include "base/message.h"
#include "gks/window/gks_window.h"
#include "views/data_plot/data_plot.h"
#include "views/data_plot/data_plot_keys.h"
#include "views/data_plot/plot_type.h"
#include "views/data_plot/popup.h"

namespace zaview {

namespace {

constexpr std::string_view kAborted = "Zoom aborted";
constexpr std::string_view kTooSmall = "Zoom aperture too small - re-select 2nd point";
constexpr std::string_view kNothingDrawn = "Logic ERROR in FindClosestDrawnPoint()";
constexpr int kLeftButton = 1, kRightButton = 3;
constexpr float kLeastAperture = 1.0e-5F;  // of the range of an axis
constexpr float kTicks = 1.0F;             // a page unit

struct PlotPoint {
  float x = 0, y = 0;
};

bool IsBetween(float value, float a, float b) {
  return value >= std::min(a, b) && value <= std::max(a, b);
}

// In the axes as they are drawn: limits that are equal are drawn apart.
bool InPlot(const PlotPage& page, PlotPoint at) {
  return IsBetween(at.x, page.x_origin, page.x_end) && IsBetween(at.y, page.y_origin, page.y_end);
}

// Page units a unit of the axes as they are drawn.
PlotPoint ScaleOf(const PlotPage& page) {
  return {page.area_width / (page.x_end - page.x_origin), page.area_height / (page.y_end - page.y_origin)};
}

PlotPoint ToPage(const PlotPage& page, PlotPoint at) {
  const PlotPoint scale = ScaleOf(page);
  return {page.area_x + (at.x - page.x_origin) * scale.x, page.area_y + (at.y - page.y_origin) * scale.y};
}

// False: nothing is drawn.
bool FindClosestDrawnPoint(const Session& s, PlotPoint mouse, PlotPoint& closest) {
  std::vector<DrawnCurve> curves;
  if (const auto list = PlotTypeOf(s.data_plot.kind).curves) list(s, curves);
  const PlotPoint scale = ScaleOf(s.page);
  float least = 1.0e20F;
  bool found = false;
  for (const DrawnCurve& curve : curves) {
    for (std::size_t i = 0; i < std::min(curve.x.size(), curve.y.size()); ++i) {
      const float dx = (curve.x[i] - mouse.x) * scale.x, dy = (curve.y[i] - mouse.y) * scale.y;
      const float distance = dx * dx + dy * dy;
      if (!(distance < least)) continue;
      least = distance;
      closest = {curve.x[i], curve.y[i]};
      found = true;
    }
  }
  return found;
}

void Measure(Session& s, PlotPoint at) {
  DataPlotState& plot = s.data_plot;
  if (plot.measure_closest && !FindClosestDrawnPoint(s, at, at)) return SayLine(s.platform.console, kNothingDrawn);
  plot.measure_on = true;
  plot.measure_x = at.x;
  plot.measure_y = at.y;
  s.run.redraw = true;
}

void OpenPopup(Session& s, PlotPoint at) {
  const PlotPoint page = ToPage(s.page, at);
  if (!std::isfinite(page.x) || !std::isfinite(page.y)) return;
  s.data_plot.popup_open = true;
  s.data_plot.popup_x = page.x;
  s.data_plot.popup_y = page.y;
  s.run.redraw = true;
}

void TakeChoice(Session& s, PlotPoint at) {
  DataPlotState& plot = s.data_plot;
  const PlotPoint page = ToPage(s.page, at);
  const PopupChoice choice = ChoiceAt(PopupBoxOf(plot, DrawOf(s)), page.x, page.y);
  plot.popup_open = false;
  s.run.redraw = true;
  switch (choice) {
    case PopupChoice::none:
      return;
    case PopupChoice::curves:
      return SayNoMenu(s, kCurveMenu);
    case PopupChoice::options:
      return SayNoMenu(s, kOptionsMenu);
    case PopupChoice::help:
      return ShowPlotHelp(s);
    case PopupChoice::time_step:
      return SayNoMenu(s, kTimeStepMenu);
  }
}

void FirstCorner(Session& s, PlotPoint at) {
  DataPlotState& plot = s.data_plot;
  if (InPlot(s.page, at)) {
    plot.zoom_pending = true;
    plot.zoom_x0 = at.x;
    plot.zoom_y0 = at.y;
  } else if (plot.limits_changed) {
    plot.limits_changed = false;
    plot.rescale = true;
    s.run.redraw = true;
  }
}

void SecondCorner(Session& s, PlotPoint at) {
  DataPlotState& plot = s.data_plot;
  PlotLimits& l = plot.limits;
  const auto apart = [](float a, float b, float range) { return std::abs(a - b) >= kLeastAperture * std::abs(range); };
  if (!apart(at.x, plot.zoom_x0, l.x_max - l.x_min) || !apart(at.y, plot.zoom_y0, l.y_max - l.y_min))
    return SayLine(s.platform.console, kTooSmall);
  const auto [left, right] = std::minmax(plot.zoom_x0, at.x);
  const auto [low, high] = std::minmax(plot.zoom_y0, at.y);
  const RoundAxis x = dgRoundAxis(left, right, kTicks, s.page.area_width);
  const RoundAxis y = dgRoundAxis(low, high, kTicks, s.page.area_height);
  l = {x.low, x.step, x.high, y.low, y.step, y.high};
  plot.zoom_pending = false;
  plot.limits_changed = true;
  s.run.redraw = true;
}

}  // namespace

bool DropZoom(Session& session) {
  if (!session.data_plot.zoom_pending) return false;
  session.data_plot.zoom_pending = false;
  SayLine(session.platform.console, kAborted);
  return true;
}

void zaviewmouse(Session& session, int button, float x, float y) {
  DataPlotState& plot = session.data_plot;
  const PlotPoint at{x, y};
  if (plot.measure_on) {  // this click only ends it
    plot.measure_on = false;
    session.run.redraw = true;
    return;
  }
  if (plot.popup_open) return TakeChoice(session, at);
  const GksModifiers held = gksMouseButtons(session.gks);
  if (held.alt || held.control) return OpenPopup(session, at);
  if (button == kRightButton && !held.shift && InPlot(session.page, at)) {
    DropZoom(session);
    return Measure(session, at);
  }
  if (button != kLeftButton) return;
  if (plot.zoom_pending) SecondCorner(session, at);
  else FirstCorner(session, at);
}

}  // namespace zaview
