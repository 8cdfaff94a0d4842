// Entry of the view, and its mouse.
#include "views/geometry/geometry_view.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "base/message.h"
#include "case/case_hull.h"
#include "geometry/hull_cells.h"
#include "gks/window/gks_window.h"
#include "gks/zb3d/zb3d.h"
#include "views/geometry/geometry_items.h"
#include "views/state/axes_limits.h"
#include "views/state/geometry_settings.h"

namespace zaview {

namespace {

constexpr std::string_view kSwitchHint = "Hit 'V' key to switch between 2-D and 3-D views";
constexpr std::string_view kHelpHint = "Hit 'h' key for complete HELP";
constexpr std::string_view kAborted = "Center/scale aborted";
constexpr int kLeftButton = 1, kMiddleButton = 2, kRightButton = 3;

// ---- Two dimensions
// The point of the hull, as it is shown, next to a place.
PlotPoint ClosestPoint(const Session& s, PlotPoint mouse) {
  const GeometryViewState& view = s.geometry_view;
  const Hull input = ShownHull(s.case_store);
  const PlotPoint scale = ScaleOf(s.page);
  const std::size_t h = AxisOf(view.geo_plane, true), v = AxisOf(view.geo_plane, false);
  float least = 1.0e20F;
  PlotPoint closest = mouse;
  const auto look = [&](const Vector3& p) {
    const PlotPoint at{static_cast<float>(p[h]), static_cast<float>(p[v])};
    const float dx = (at.x - mouse.x) * scale.x, dy = (at.y - mouse.y) * scale.y;
    if (const float distance = dx * dx + dy * dy; distance < least) {
      least = distance;
      closest = at;
    }
  };
  VisitCells(input, [&](const HullCell& cell) {
    const int component = cell.component > 0 ? cell.component : ComponentCount(input);
    if (!IsShown(view, component)) return;
    for (const Vector3& p : cell.ring()) {
      look(p);
      if (view.geo_mirror) look({p[0], -p[1], p[2]});
    }
  });
  return closest;
}

void GeoMouse2D(Session& s, int button, PlotPoint at) {
  AxesState& axes = s.geometry_view.axes;
  if (button == kRightButton && InPlot(s.page, at)) {
    if (DropZoom(axes)) SayLine(s.platform.console, kZoomAborted);
    if (axes.measure.closest) at = ClosestPoint(s, at);
    axes.measure.on = true;
    axes.measure.x = at.x;
    axes.measure.y = at.y;
    s.run.redraw = true;
  }
  if (button != kLeftButton) return;
  const ZoomAnswer answer = ClickZoom(axes, s.page, at);
  if (answer == ZoomAnswer::too_small) SayLine(s.platform.console, kZoomTooSmall);
  if (answer == ZoomAnswer::draw) s.run.redraw = true;
}

// ---- Space. Places on the page, which is the whole window.
// The point next to the click, on the screen not further than so many pixels. False: there is none.
bool NearestPoint(const Session& s, PlotPoint at, ScenePoint& point) {
  constexpr float kReach = 20.0F;
  const Zb3dState& zb = s.zb3d;
  const float sx = zb.window.wx0 + (zb.window.wx1 - zb.window.wx0) * at.x / s.page.page_width;
  const float sy = zb.window.wy0 + (zb.window.wy1 - zb.window.wy0) * at.y / s.page.page_height;
  const float pixels = static_cast<float>(s.gks.window.height) / (zb.window.wy1 - zb.window.wy0);
  std::size_t index = 0;
  if (!zb3dNearest(zb, sx, sy, index)) return false;
  const ZbPoint& p = zb.zbufpt[index];
  if (std::hypot(p.sx - sx, p.sy - sy) * pixels > kReach) return false;
  point = {static_cast<double>(p.x), static_cast<double>(p.y), static_cast<double>(p.z)};
  return true;
}

void GeoMouse3D(Session& s, int button, PlotPoint at) {
  GeometryViewState& view = s.geometry_view;
  if (button == kMiddleButton) {
    s.run.redraw = true;
    ZoomSpace(view, at.y > 0.5F * s.page.page_height ? kSpaceZoom : 1.0 / kSpaceZoom);
    return;
  }
  ScenePoint point;
  if (!NearestPoint(s, at, point)) return SayLine(s.platform.console, kAborted);
  s.run.redraw = true;
  if (button == kRightButton) {
    view.point_measured = true;
    view.measured = point;
  } else {
    KeepSpaceView(view);
    view.view.view_centre = point;
  }
}

// ---- Popup of both
PlotPoint OnPage(const Session& s, PlotPoint at) {
  return s.geometry_view.geo_3d ? at : ToPage(s.page, at);
}

void OpenPopup(Session& s, PlotPoint at) {
  const PlotPoint page = OnPage(s, at);
  if (!std::isfinite(page.x) || !std::isfinite(page.y)) return;
  s.geometry_view.axes.popup = {true, page.x, page.y};
  s.run.redraw = true;
}

void TakeChoice(Session& s, PlotPoint at) {
  constexpr ViewAsk kAsks[] = {ViewAsk::none, ViewAsk::options_menu, ViewAsk::help};  // by line
  PopupState& popup = s.geometry_view.axes.popup;
  const PlotPoint page = OnPage(s, at);
  const PopupBox box = PopupBoxOf(popup, kGeometryPopup, GeometryDraw(s));
  popup.open = false;
  s.run.redraw = true;
  s.plot_session.ask = kAsks[LineAt(box, kGeometryPopup, page.x, page.y)];
}

}  // namespace

void GeoPlotInit(Session& session) {
  GeometryViewState& view = session.geometry_view;
  session.plot_session.run_on = session.plot_session.run_dump = false;
  view.axes.measure.on = view.axes.zoom.pending = view.axes.popup.open = view.point_measured = false;
  const bool there = EnsureHull(session.platform, session.case_store);
  if (there && !view.mirror_chosen) view.geo_mirror = session.case_store.hull.half;
  if (view.geo_component > ComponentCount(ShownHull(session.case_store))) view.geo_component = 0;
  session.run.redraw = true;
  if (session.run.script_active) return;
  SayLine(session.platform.console, kSwitchHint);
  SayLine(session.platform.console, kHelpHint);
}

void GeoRender(Session& session) {
  if (session.geometry_view.geo_3d) GeoRender3D(session);
  else GeoRender2D(session);
}

void GeoMouse(Session& session, int button, float x, float y) {
  GeometryViewState& view = session.geometry_view;
  const PlotPoint at{x, y};
  if (view.axes.measure.on) {  // this click only ends it
    view.axes.measure.on = false;
    session.run.redraw = true;
    return;
  }
  if (view.point_measured) session.run.redraw = true;
  view.point_measured = false;
  if (view.axes.popup.open) return TakeChoice(session, at);
  const GksModifiers held = gksMouseButtons(session.gks);
  if (held.alt || held.control) return OpenPopup(session, at);
  if (view.geo_3d) GeoMouse3D(session, button, at);
  else GeoMouse2D(session, button, at);
}

void BeforeGeometryKey(Session& session) {
  GeometryViewState& view = session.geometry_view;
  AxesState& axes = view.axes;
  if (axes.measure.on || view.point_measured || axes.popup.open || axes.zoom.pending) session.run.redraw = true;
  if (DropZoom(axes)) SayLine(session.platform.console, kZoomAborted);
  axes.measure.on = axes.popup.open = view.point_measured = false;
}

}  // namespace zaview
