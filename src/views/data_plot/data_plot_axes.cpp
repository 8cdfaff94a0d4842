// What a data plot shows and within which limits: everything that is made ahead of drawing, and the drawing that all
// kinds share.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <limits>

#include <fmt/format.h>

#include "base/axis_rounding.h"
#include "base/message.h"
#include "case/quantity_catalogue.h"
#include "case/wave_at_cg.h"
#include "views/data_plot/data_plot.h"
#include "views/data_plot/plot_parts.h"
#include "views/data_plot/plot_type.h"

namespace zaview {

namespace {

constexpr std::string_view kHelpHint = "Hit the 'h' key for HELP, Alt-o for Options menu";
constexpr std::string_view kLeftOut = "{} NOT included when all are plotted";
constexpr float kTicks = 1.0F;      // a page unit
constexpr float kNumberGap = 1.5F;  // character heights from a curve's end to its number, and between numbers
constexpr float kPageMargin = 0.1F;
constexpr float kHalfCapital = 0.5F;  // character heights by which the baseline of a number is below its curve

struct Range {
  float low = std::numeric_limits<float>::infinity(), high = -std::numeric_limits<float>::infinity();
  void Take(float value) {
    low = std::min(low, value);
    high = std::max(high, value);
  }
};

// ---- What is shown
bool AnyShown(const DataPlotState& plot) {
  for (int i = 1; i <= plot.plot_component_count; ++i)
    if (IsShown(plot, i)) return true;
  return false;
}

void NormaliseComponent(const CaseStore& store, const PlotType& type, DataPlotState& plot) {
  const int count = CurveCount(store, plot.quantity.iqnt);
  plot.plot_component_count = count;
  plot.hidden.resize(static_cast<std::size_t>(std::max(count, 0)), 0);
  if (plot.plot_component < 0 || plot.plot_component > count) plot.plot_component = 0;
  if (!type.shows_all) plot.plot_component = std::max(plot.plot_component, 1);
  else if (count == 1) plot.plot_component = 0;
  else if (plot.plot_component == 0 && !AnyShown(plot)) plot.plot_component = 1;
  if (count == 1) plot.hidden.assign(1, 0);
}

// Waves that can't be evaluated have said so once; this kind of quantity is then passed over.
bool WaveIsThere(Session& session, const QuantityRow& row) {
  return row.need != QuantityNeed::wave || EnsureSeaway(session.platform.console, session.case_store) == WaveAnswer::ok;
}

bool CanShow(Session& session, int iqnt) {
  const CaseStore& store = session.case_store;
  if (!QuantityValid(store, iqnt) || CurveCount(store, iqnt) < 1) return false;
  if (!store.time_history()) return session.data_plot.kind == PlotKind::history;
  const QuantityRow* row = FindQuantity(iqnt);
  if (row == nullptr || row->need == QuantityNeed::file_only) return false;
  if (session.data_plot.kind == PlotKind::load_dist && row->load_kind == 0) return false;
  return WaveIsThere(session, *row);
}

int QuantityCount(const CaseStore& store) {
  if (store.time_history()) return kQuantities;
  return store.irf_case ? static_cast<int>(store.irfs.size()) : kImpulse;
}

// ---- Limits
float XLength(const DataPlotState& plot) {
  return plot.kind == PlotKind::histogram ? plot.histogram_x_length : plot.axis_x_length;
}

float YLength(const DataPlotState& plot) {
  return plot.kind == PlotKind::histogram ? plot.histogram_y_length : plot.axis_y_length;
}

void FitLimits(const Session& session, const PlotType& type, PlotLimits& limits) {
  if (type.fit != nullptr) return type.fit(session, limits);
  if (!FitAxes(session, FitOver::all_steps, limits)) {
    limits = PlotLimits{};
    return;
  }
  RoundX(session.data_plot, limits);
  RoundY(session.data_plot, limits);
}

// One unit is as long on both axes: the one with more of its length for a unit gets wider limits. A limit stays on a
// multiple of the step, so that the ticks read well.
void Widen(float range, float step, float& low, float& high) {
  const float middle = 0.5F * low + 0.5F * high;
  low = middle - 0.5F * range;
  if (step > 0.0F) low = std::floor(low / step + 0.5F) * step;
  high = low + range;
}

void KeepAspect(const DataPlotState& plot, PlotLimits& limits) {
  constexpr float kSame = 1.0e-3F;
  const float ux = (limits.x_max - limits.x_min) / plot.axis_x_length;
  const float uy = (limits.y_max - limits.y_min) / plot.axis_y_length;
  if (!(ux > 0.0F && uy > 0.0F) || !std::isfinite(ux) || !std::isfinite(uy)) return;
  if (std::abs(ux - uy) <= kSame * std::max(ux, uy)) return;
  if (ux > uy) {
    limits.y_step = limits.x_step;
    Widen(ux * plot.axis_y_length, limits.y_step, limits.y_min, limits.y_max);
  } else {
    limits.x_step = limits.y_step;
    Widen(uy * plot.axis_x_length, limits.x_step, limits.x_min, limits.x_max);
  }
}

void UpdateLimits(const Session& session, const PlotType& type, DataPlotState& plot) {
  if (plot.rescale) {
    FitLimits(session, type, plot.data_limits);
    plot.rescale = false;
    plot.limits_changed = false;
  }
  if (!plot.limits_changed) plot.limits = plot.data_limits;
  if (plot.kind == PlotKind::trajectory && plot.keep_aspect) KeepAspect(plot, plot.limits);
}

// ---- Curves
void DrawMarks(const DataPlotState& plot, PlotDraw draw, const DrawnCurve& curve) {
  if (plot.mark_every == 0) return;
  dgMarkerType(draw, curve.component);
  dgMarkerScale(draw, plot.mark_size);
  dgCurve(draw, curve.x, curve.y, -std::abs(plot.mark_every));
}

// The last point in the graph; false: none is.
bool LastInside(const PlotPage& page, const DrawnCurve& curve, std::size_t& last) {
  const auto inside = [](float value, float a, float b) { return value >= std::min(a, b) && value <= std::max(a, b); };
  for (last = std::min(curve.x.size(), curve.y.size()); last-- > 0;)
    if (inside(curve.x[last], page.x_origin, page.x_end) && inside(curve.y[last], page.y_origin, page.y_end))
      return true;
  return false;
}

struct NumberPlace {
  int position = 1, of = 1;  // of the numbers
};

bool HasRightAxis(const DataPlotState& plot) {
  return plot.kind == PlotKind::history && plot.wave_overlay && plot.wave_own_scale;
}

// Each number further right than the one before, so that those of curves which end together can be told apart; in the
// area where labels stand right of it.
void DrawNumber(const DataPlotState& plot, PlotDraw draw, const DrawnCurve& curve, NumberPlace place) {
  const PlotPage& page = draw.page;
  std::size_t last = 0;
  if (!plot.numbers_on || !LastInside(page, curve, last)) return;
  const float x = (curve.x[last] - page.x_origin) / (page.x_end - page.x_origin) * page.area_width + page.area_x;
  const float y = (curve.y[last] - page.y_origin) / (page.y_end - page.y_origin) * page.area_height + page.area_y;
  const std::string text = fmt::format("{}", curve.component);
  const float room = page.page_width - TextWidth(draw, text, plot.annot_size);
  const float right = page.area_x + page.area_width, of = static_cast<float>(place.of);
  const bool in_area = HasRightAxis(plot);
  const float gap =
      in_area ? kNumberGap * plot.annot_size : std::min(kNumberGap * plot.annot_size, (room - right) / of);
  const float from = in_area ? std::min(x, right - gap * (of + 1.0F)) : x;
  const float at = std::min(from + gap * static_cast<float>(place.position), room);
  PageText(draw, text, at, y - kHalfCapital * plot.annot_size, plot.annot_size, TextSide::left);
}

std::string_view WordFor(const CaseStore& store, int iqnt) {
  const QuantityRow* row = store.time_history() ? FindQuantity(iqnt) : nullptr;
  if (row != nullptr && row->load_kind != 0) return "Load plane";
  return row == nullptr || row->scale == ScaleKind::force ? "Direction" : "Motion";
}

}  // namespace

void MarkAllStale(DataPlotState& plot) {
  plot.redo_data = plot.redo_hist = plot.redo_conf = plot.redo_cov = plot.redo_load = true;
}

void zaviewinit(Session& session) {
  DataPlotState& plot = session.data_plot;
  session.plot_session.run_on = session.plot_session.run_dump = false;
  plot.measure_on = plot.zoom_pending = plot.popup_open = false;
  MarkAllStale(plot);
  session.run.redraw = true;
  if (!session.run.script_active) SayLine(session.platform.console, kHelpHint);
}

void zaviewsetaxes(Session& session) {
  DataPlotState& plot = session.data_plot;
  const PlotType& type = PlotTypeOf(plot.kind);
  CaseStore& store = session.case_store;
  NormaliseComponent(store, type, plot);
  if (plot.kind == PlotKind::load_dist)
    store.current_step = std::max(store.first_step, std::min(store.current_step, store.last_step));
  if (type.prepare != nullptr && !type.prepare(session)) {
    session.run.plot_module = 0;
    session.run.redraw = false;
    return;
  }
  UpdateLimits(session, type, plot);
}

void ChangeQuantity(Session& session, int direction, bool keep_limits) {
  DataPlotState& plot = session.data_plot;
  if (plot.kind == PlotKind::trajectory) return;
  const int count = QuantityCount(session.case_store);
  int iqnt = plot.quantity.iqnt;
  for (int tried = 0; tried < count; ++tried) {
    iqnt = (iqnt - 1 + (direction < 0 ? count - 1 : 1)) % count + 1;
    if (CanShow(session, iqnt)) break;
  }
  if (iqnt == plot.quantity.iqnt || !CanShow(session, iqnt)) return;
  plot.quantity.iqnt = iqnt;
  plot.hidden.clear();
  MarkAllStale(plot);
  session.run.redraw = true;
  if (keep_limits || plot.keep_scale) return;
  plot.rescale = true;
  plot.limits_changed = false;
}

PlotDraw DrawOf(Session& session) {
  return {session.platform, session.gks, session.page};
}

bool IsShown(const DataPlotState& plot, int component) {
  if (plot.plot_component != 0) return component == plot.plot_component;
  const auto i = static_cast<std::size_t>(component - 1);
  return i >= plot.hidden.size() || plot.hidden[i] == 0;
}

QuantityRequest RequestOf(const DataPlotState& plot, int component) {
  QuantityRequest request = plot.quantity;
  request.curve = component;
  request.wave_overlay = false;
  return request;
}

int ColourOf(const DataPlotState& plot, int index) {
  return plot.colour_on ? index : 1;
}

void DrawCurves(Session& session, PlotDraw draw) {
  const DataPlotState& plot = session.data_plot;
  std::vector<DrawnCurve> curves;
  if (const auto list = PlotTypeOf(plot.kind).curves) list(session, curves);
  std::erase_if(curves, [](const DrawnCurve& curve) { return curve.component == 0; });
  NumberPlace place{0, static_cast<int>(curves.size())};
  for (const DrawnCurve& curve : curves) {
    dgColour(draw, ColourOf(plot, curve.component + 1));
    dgThickness(draw, plot.line_thickness);
    if (plot.mark_every >= 0) DrawSolid(draw, curve.x, curve.y);
    DrawMarks(plot, draw, curve);
    ++place.position;
    DrawNumber(plot, draw, curve, place);
  }
  dgThickness(draw, 0);
  dgColour(draw, 1);
}

void DrawLeftOut(const Session& session, PlotDraw draw) {
  const DataPlotState& plot = session.data_plot;
  const auto i = static_cast<std::size_t>(plot.plot_component - 1);
  if (plot.plot_component < 1 || i >= plot.hidden.size() || plot.hidden[i] == 0) return;
  const std::string text = fmt::format(kLeftOut, WordFor(session.case_store, plot.quantity.iqnt));
  PageText(draw, text, kPageMargin, kPageMargin, plot.annot_size, TextSide::left);
}

bool FitAxes(const Session& session, FitOver over, PlotLimits& limits) {
  const DataPlotState& plot = session.data_plot;
  std::vector<DrawnCurve> curves;
  if (const auto list = PlotTypeOf(plot.kind).curves) list(session, curves);
  const auto [left, right] = std::minmax(plot.limits.x_min, plot.limits.x_max);
  Range x, y;
  for (const DrawnCurve& curve : curves) {
    for (std::size_t i = 0; i < std::min(curve.x.size(), curve.y.size()); ++i) {
      const float at = curve.x[i];
      if (!std::isfinite(at) || (over == FitOver::shown_steps && (at < left || at > right))) continue;
      x.Take(at);
      if (std::isfinite(curve.y[i])) y.Take(curve.y[i]);
    }
  }
  if (!(y.low <= y.high)) return false;
  limits = {x.low, dgRoundAxis(x.low, x.high, kTicks, XLength(plot)).step, x.high,
            y.low, dgRoundAxis(y.low, y.high, kTicks, YLength(plot)).step, y.high};
  return true;
}

void RoundX(const DataPlotState& plot, PlotLimits& limits) {
  const RoundAxis axis = dgRoundAxis(limits.x_min, limits.x_max, kTicks, XLength(plot));
  limits.x_min = axis.low;
  limits.x_step = axis.step;
  limits.x_max = axis.high;
}

void RoundY(const DataPlotState& plot, PlotLimits& limits) {
  const RoundAxis axis = dgRoundAxis(limits.y_min, limits.y_max, kTicks, YLength(plot));
  limits.y_min = axis.low;
  limits.y_step = axis.step;
  limits.y_max = axis.high;
}

}  // namespace zaview
