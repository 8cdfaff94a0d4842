// What all kinds of data plot share: their curves as they are fitted and drawn.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <limits>

#include <fmt/format.h>

#include "base/axis_rounding.h"
#include "case/quantity_catalogue.h"
#include "case/quantity_label.h"
#include "gks/kernel/gks_transform.h"
#include "views/data_plot/plot_type.h"
#include "views/state/axes_limits.h"
#include "views/state/plot_kinds.h"
#include "views/state/plot_selection.h"

namespace zaview {

namespace {

constexpr std::string_view kLeftOut = "{} NOT included when all are plotted";
constexpr float kTicks = 1.0F;      // a page unit
constexpr float kNumberGap = 1.5F;  // character heights from a curve's end to its number, and between numbers
constexpr float kPageMargin = 0.1F;
constexpr float kHalfCapital = 0.5F;  // character heights by which the baseline of a number is below its curve
constexpr int kDot = 15;              // marker of a curve that is a point
constexpr float kDotSize = 1.0F;

struct Range {
  float low = std::numeric_limits<float>::infinity(), high = -std::numeric_limits<float>::infinity();
  void Take(float value) {
    low = std::min(low, value);
    high = std::max(high, value);
  }
};

void DrawMarks(const DataPlotState& plot, PlotDraw draw, const DrawnCurve& curve) {
  if (plot.mark_every == 0) return;
  dgMarkerType(draw, curve.component);
  dgMarkerScale(draw, plot.mark_size);
  dgCurve(draw, curve.x, curve.y, -std::abs(plot.mark_every));
}

// Of one step, or of a ship that stays where it is: a line of no length, which wouldn't be seen.
bool IsPoint(PlotDraw draw, const DrawnCurve& curve) {
  const std::size_t n = std::min(curve.x.size(), curve.y.size());
  if (n == 0) return false;
  const GksPixel first = gksToPixel(draw.gks, {curve.x[0], curve.y[0]});
  for (std::size_t i = 1; i < n; ++i) {
    const GksPixel pixel = gksToPixel(draw.gks, {curve.x[i], curve.y[i]});
    if (!(std::abs(pixel.x - first.x) < 1 && std::abs(pixel.y - first.y) < 1)) return false;
  }
  return true;
}

void DrawLine(const DataPlotState& plot, PlotDraw draw, const DrawnCurve& curve) {
  if (IsPoint(draw, curve)) {
    dgMarkerType(draw, kDot);
    dgMarkerScale(draw, kDotSize * plot.mark_size);
    return dgCurve(draw, curve.x.first(1), curve.y.first(1), -1);
  }
  const int dash = DashOf(LookOf(draw.gks), plot, curve.component);
  if (dash == 0) return DrawThinned(draw, curve.x, curve.y);
  SetDash(draw, dash);
  if (LookOf(draw.gks).dashed) DrawThinned(draw, curve.x, curve.y);
  else dgCurve(draw, curve.x, curve.y, 0);
  SetDash(draw, 0);
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

// Each number further right than the one before, so that those of curves which end together can be told apart; in the
// area where labels stand right of it.
void DrawNumber(const DataPlotState& plot, PlotDraw draw, const DrawnCurve& curve, NumberPlace place) {
  const PlotPage& page = draw.page;
  std::size_t last = 0;
  if (!plot.numbers_on || !LastInside(page, curve, last)) return;
  const PlotPoint end = ToPage(page, {curve.x[last], curve.y[last]});
  const std::string text = fmt::format("{}", curve.component);
  const float room = page.page_width - TextWidth(draw, text, plot.annot_size);
  const float right = page.area_x + page.area_width, of = static_cast<float>(place.of);
  const bool in_area = HasRightAxis(plot);
  const float gap =
      in_area ? kNumberGap * plot.annot_size : std::min(kNumberGap * plot.annot_size, (room - right) / of);
  const float from = in_area ? std::min(end.x, right - gap * (of + 1.0F)) : end.x;
  const float at = std::min(from + gap * static_cast<float>(place.position), room);
  PageText(draw, text, at, end.y - kHalfCapital * plot.annot_size, plot.annot_size, TextSide::left);
}

std::string_view WordFor(const CaseStore& store, int iqnt) {
  const QuantityRow* row = store.time_history() ? FindQuantity(iqnt) : nullptr;
  if (row != nullptr && row->load_kind != 0) return "Load plane";
  return row == nullptr || ScaleOf(*row) == ScaleKind::force ? "Direction" : "Motion";
}

}  // namespace

QuantityRequest RequestOf(const DataPlotState& plot, int component) {
  QuantityRequest request = plot.quantity;
  request.curve = component;
  request.wave_overlay = false;
  return request;
}

int OneComponent(const DataPlotState& plot) {
  return std::max(1, plot.plot_component);
}

std::string CurveName(const PlotFacts& facts, const DataPlotState& plot) {
  return fmt::format("{}, {}", setqntlabel(facts.store, plot.quantity),
                     CurveLabel(facts.store, facts.output, plot.quantity.iqnt, OneComponent(plot)));
}

int ColourOf(const DataPlotState& plot, int index) {
  return plot.colour_on ? index : 1;
}

int DashOf(const PlotLook& look, const DataPlotState& plot, int component) {
  const bool one = plot.plot_component > 0 || plot.plot_component_count == 1;
  return (plot.colour_on && !look.dashed) || one || component < 1 ? 0 : (component - 1) % kDashes;
}

void DrawCurves(const DataPlotState& plot, PlotDraw draw) {
  std::vector<DrawnCurve> curves;
  if (const auto list = PlotTypeOf(plot.kind).curves) list(plot, curves);
  std::erase_if(curves, [](const DrawnCurve& curve) { return curve.component == 0; });
  NumberPlace place{0, static_cast<int>(curves.size())};
  for (const DrawnCurve& curve : curves) {
    dgColour(draw, ColourOf(plot, curve.component + 1));
    dgCurveThickness(draw, plot.line_thickness);
    if (plot.mark_every >= 0) DrawLine(plot, draw, curve);
    DrawMarks(plot, draw, curve);
    ++place.position;
    DrawNumber(plot, draw, curve, place);
  }
  dgThickness(draw, 0);
  dgColour(draw, 1);
}

void DrawLeftOut(const PlotFacts& facts, const DataPlotState& plot, PlotDraw draw) {
  const auto i = static_cast<std::size_t>(plot.plot_component - 1);
  if (plot.plot_component < 1 || i >= plot.hidden.size() || plot.hidden[i] == 0) return;
  const std::string text = fmt::format(kLeftOut, WordFor(facts.store, plot.quantity.iqnt));
  PageText(draw, text, kPageMargin, kPageMargin, plot.annot_size, TextSide::left);
}

bool FitAxes(const DataPlotState& plot, FitOver over, PlotLimits& limits) {
  std::vector<DrawnCurve> curves;
  if (const auto list = PlotTypeOf(plot.kind).curves) list(plot, curves);
  const auto [left, right] = std::minmax(plot.axes.limits.x_min, plot.axes.limits.x_max);
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
  const AxesLength length = LengthOf(plot);
  limits = {x.low, dgRoundAxis(x.low, x.high, kTicks, length.x).step, x.high,
            y.low, dgRoundAxis(y.low, y.high, kTicks, length.y).step, y.high};
  return true;
}

}  // namespace zaview
