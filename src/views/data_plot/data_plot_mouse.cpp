// Clicks in the data plot: zoom, measure, and the popup.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "base/message.h"
#include "gks/window/gks_window.h"
#include "views/data_plot/data_plot.h"
#include "views/data_plot/plot_type.h"
#include "views/state/axes_limits.h"
#include "views/state/popup.h"

namespace zaview {

namespace {

constexpr std::string_view kNothingDrawn = "Logic ERROR in FindClosestDrawnPoint()";
constexpr int kLeftButton = 1, kRightButton = 3;

// False: nothing is drawn.
bool FindClosestDrawnPoint(const Session& s, PlotPoint mouse, PlotPoint& closest) {
  std::vector<DrawnCurve> curves;
  if (const auto list = PlotTypeOf(s.data_plot.kind).curves) list(s.data_plot, curves);
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
  MeasureState& measure = s.data_plot.axes.measure;
  if (measure.closest && !FindClosestDrawnPoint(s, at, at)) return SayLine(s.platform.console, kNothingDrawn);
  measure.on = true;
  measure.x = at.x;
  measure.y = at.y;
  s.run.redraw = true;
}

void OpenPopup(Session& s, PlotPoint at) {
  const PlotPoint page = ToPage(s.page, at);
  if (!std::isfinite(page.x) || !std::isfinite(page.y)) return;
  s.data_plot.axes.popup = {true, page.x, page.y};
  s.run.redraw = true;
}

// By line of the popup.
constexpr ViewAsk kAsks[] = {ViewAsk::none, ViewAsk::curve_menu, ViewAsk::options_menu, ViewAsk::help,
                             ViewAsk::time_step_menu};

void TakeChoice(Session& s, PlotPoint at) {
  PopupState& popup = s.data_plot.axes.popup;
  const PlotPoint page = ToPage(s.page, at);
  const PopupBox box = PopupBoxOf(popup, kDataPlotPopup, DrawOf(s));
  popup.open = false;
  s.run.redraw = true;
  s.plot_session.ask = kAsks[LineAt(box, kDataPlotPopup, page.x, page.y)];
}

void Zoom(Session& s, PlotPoint at) {
  const ZoomAnswer answer = ClickZoom(s.data_plot.axes, s.page, at);
  if (answer == ZoomAnswer::too_small) SayLine(s.platform.console, kZoomTooSmall);
  if (answer == ZoomAnswer::draw) s.run.redraw = true;
}

}  // namespace

void zaviewmouse(Session& session, int button, float x, float y) {
  AxesState& axes = session.data_plot.axes;
  const PlotPoint at{x, y};
  if (axes.measure.on) {  // this click only ends it
    axes.measure.on = false;
    session.run.redraw = true;
    return;
  }
  if (axes.popup.open) return TakeChoice(session, at);
  const GksModifiers held = gksMouseButtons(session.gks);
  if (held.alt || held.control) return OpenPopup(session, at);
  if (button == kRightButton && !held.shift && InPlot(session.page, at)) {
    if (DropZoom(axes)) SayLine(session.platform.console, kZoomAborted), session.run.redraw = true;
    return Measure(session, at);
  }
  if (button == kLeftButton) Zoom(session, at);
}

}  // namespace zaview
