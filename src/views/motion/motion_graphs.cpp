#include "views/motion/motion_graphs.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <span>
#include <string>

#include <fmt/format.h>

#include "base/axis_rounding.h"
#include "base/grow.h"
#include "base/message.h"
#include "case/quantity_catalogue.h"
#include "case/quantity_label.h"
#include "gks/kernel/gks_control.h"
#include "gks/kernel/gks_draw.h"

namespace zaview {

namespace {

constexpr std::string_view kSwitchedOff = "Graph {} is switched off : {}";
constexpr std::string_view kNoSuchData = "no such data in this case";
constexpr std::string_view kNotMade = "its data can't be made";

constexpr PageBox kPlaces[kGraphs] = {
    // in parts of the window
    {0.01F, 0.76F, 0.31F, 0.23F}, {0.68F, 0.76F, 0.31F, 0.23F},  {0.01F, 0.01F, 0.31F, 0.23F},
    {0.68F, 0.01F, 0.31F, 0.23F}, {0.345F, 0.01F, 0.31F, 0.23F}, {0.345F, 0.76F, 0.31F, 0.23F},
};
constexpr std::size_t kColumns = 4096;  // more than a graph has pixels
constexpr float kIntervals = 4;         // of the vertical axis, about
constexpr float kGap = 0.25F;           // between texts and lines, in letter heights
constexpr float kDescent = 0.25F;       // of a letter's height, below the baseline
constexpr float kLeastArea = 0.3F;      // of the graph, that the curve keeps however large texts are
constexpr float kDotSize = 0.4F;        // its radius, character heights
constexpr int kDot = 15;                // marker
constexpr float kWindowParts = 200;     // of its window is a marker of scale 1 high
constexpr float kHalo = 2;              // line widths, of curves on nothing but the scene

// ---- Data
PlotDataKey KeyOf(const QuantityRequest& request, const PlotSource& source) {
  PlotDataKey key;
  key.subject = {.kind = PlotKind::history,
                 .iqnt = request.iqnt,
                 .component = request.curve,
                 .point = request.point,
                 .missile = request.missile,
                 .case_serial = source.store.serial,
                 .scales = source.output.units.scales,
                 .signs = source.output.units.cnvfac};
  key.settings = source.output;
  key.records.push_back({source.store.serial, source.store.first_step, source.store.last_step});
  return key;
}

// Round limits about all steps, so that the axis stays as it is during the run.
void FitGraph(MotionGraph& graph) {
  float low = INFINITY, high = -INFINITY;
  for (const std::vector<float>& y : graph.data.y)
    for (const float value : y)
      if (std::isfinite(value)) low = std::min(low, value), high = std::max(high, value);
  const RoundAxis axis = low <= high ? dgRoundAxis(low, high, 1, kIntervals) : RoundAxis{0, 1, 1};
  graph.y_low = axis.low;
  graph.y_high = axis.high;
}

// Points of a long run that no graph is wide enough to tell apart aren't looked at again at every step.
bool CoarsenGraph(MotionGraph& graph) {
  graph.coarse.clear();
  if (graph.data.x.size() < 4 * kColumns) return true;
  if (!Grow(graph.coarse, graph.data.y.size())) return false;
  for (std::size_t i = 0; i < graph.coarse.size(); ++i)
    if (!CoarseCurve(graph.data.x, graph.data.y[i], kColumns, graph.coarse[i])) return false;
  return true;
}

bool MakeGraph(const PlotSource& source, MotionGraph& graph, std::string_view& why) {
  const QuantityRequest& request = graph.request;
  why = kNoSuchData;
  if (!QuantityValid(source.store, request.iqnt) || request.curve > CurveCount(source.store, request.iqnt))
    return false;
  graph.data = PlotData{};
  const DataFault fault = SetPlotData(source.console(), source.output, request, source.store, graph.data);
  if (fault != DataFault::not_valid) why = kNotMade;
  if (fault != DataFault::none || graph.data.n < 1) return false;
  FitGraph(graph);
  return CoarsenGraph(graph);
}

// ---- Drawing
struct GraphAxes {
  PageBox area;  // of the curve
  float x0 = 0, x1 = 1;
  std::string left, right, low, high;  // their labels
};

int ShownPoint(const PlotFacts& facts, const PlotData& data) {  // of the current step, or the last one before it
  const int stride = std::max(1, facts.output.reading.step_stride);
  return std::clamp((facts.store.current_step - facts.store.first_step) / stride, 0, data.n - 1);
}

GraphAxes AxesOf(const MotionGraph& graph, const PlotFacts& facts, const PageBox& box, float height, PlotDraw draw) {
  GraphAxes axes;
  axes.x0 = graph.data.x.front();
  axes.x1 = graph.data.x.back();
  axes.left = ShortNumber(axes.x0);
  axes.right = ShortNumber(axes.x1);
  if (graph.scroll) {
    axes.x1 = OutputTime(facts, facts.store.current_step);
    axes.x0 = axes.x1 - graph.scroll_time;
    const int decimals = TimeDecimals(facts);
    axes.left = fmt::format("{:.{}f}", axes.x0, decimals);
    axes.right = fmt::format("{:.{}f}", axes.x1, decimals);
  }
  axes.low = ShortNumber(graph.y_low);
  axes.high = ShortNumber(graph.y_high);
  const float letter = LetterHeight(draw, height), gap = kGap * letter;
  const float labels = std::max(TextWidth(draw, axes.low, height), TextWidth(draw, axes.high, height));
  const float left = std::min(labels + 2 * gap, (1 - kLeastArea) * box.width - gap);
  const float above = std::min(letter + 2 * gap, 0.5F * (1 - kLeastArea) * box.height);
  axes.area = {box.x + left, box.y + above, box.width - left - gap, box.height - 2 * above};
  return axes;
}

// As fixed as the axis lets it be, so that the digits stand still.
std::string ValueText(const MotionGraph& graph, float value) {
  const float range = graph.y_high - graph.y_low;
  if (!std::isfinite(value) || !std::isfinite(range)) return ShortNumber(value);
  const int decimals = 3 - static_cast<int>(std::floor(std::log10(range)));
  if (decimals < 0 || decimals > 7) return ShortNumber(value);
  const auto text = [&](float number) { return fmt::format("{:.{}f}", number, decimals); };
  const std::size_t width = std::max(text(graph.y_low).size(), text(graph.y_high).size());
  return fmt::format("{:>{}}", text(value), width);
}

// The longest that has room: quantity, curve and unit; without the unit; the curve alone.
std::string LabelOf(const MotionGraph& graph, const PlotFacts& facts, float height, float width, PlotDraw draw) {
  const int iqnt = graph.request.iqnt, curve = std::max(graph.request.curve, 1);
  const bool one = graph.data.y.size() == 1;
  const auto i = static_cast<std::size_t>(ShownPoint(facts, graph.data));
  const std::string quantity(cQntMed(iqnt)), name = CurveLabel(facts.store, facts.output, iqnt, curve);
  const std::string both = one ? fmt::format("{}, {}", quantity, name) : quantity;
  const std::string unit = CurveUnit(facts.store, facts.output, iqnt, one ? curve : 0);
  const std::string value = graph.value && one ? fmt::format(" = {}", ValueText(graph, graph.data.y[0][i])) : "";
  const std::string full = value.empty() ? WithUnit(both, unit) : fmt::format("{}{} {}", both, value, unit);
  std::string label;
  for (const std::string& form : {full, both + value, (one ? name : quantity) + value}) {
    label = form;
    if (TextWidth(draw, label, height) <= width) return label;
  }
  return CutToWidth(draw, label, height, width);
}

void DrawLabels(const MotionGraph& graph, const PlotFacts& facts, const PageBox& box, const GraphAxes& axes,
                float height, PlotDraw draw) {
  const float letter = LetterHeight(draw, height), gap = kGap * letter, up = kDescent * letter;
  const PageBox& area = axes.area;
  const auto text = graph.blank ? PageText : ClearText;  // on its own paper as it is
  const float right = area.x + area.width, top = area.y + area.height;
  text(draw, LabelOf(graph, facts, height, box.width - 2 * gap, draw), box.x + gap, top + gap + up, height,
       TextSide::left);
  text(draw, axes.high, area.x - gap, top - letter + up, height, TextSide::right);
  text(draw, axes.low, area.x - gap, area.y, height, TextSide::right);
  const float base = area.y - gap - letter + up;
  const float free = area.width - TextWidth(draw, axes.right, height) - 2 * gap;
  const float width = TextWidth(draw, axes.left, height), moved = area.x - box.x - gap;
  if (width <= free + moved) text(draw, axes.left, width <= free ? area.x : box.x + gap, base, height, TextSide::left);
  text(draw, axes.right, right, base, height, TextSide::right);
}

void DrawUpright(PlotDraw draw, float x, float y0, float y1) {
  const float xs[] = {x, x}, ys[] = {y0, y1};
  GPL(draw.gks, xs, ys);
}

void DrawZero(PlotDraw draw) {
  const float x[] = {draw.page.x_origin, draw.page.x_end}, y[] = {0, 0};
  dgDot(draw);
  GPL(draw.gks, x, y);
  dgReset(draw, "dot");
}

void DrawGraphCurves(const MotionViewState& view, const MotionGraph& graph, const PlotFacts& facts,
                     const GraphAxes& axes, PlotDraw draw) {
  const PlotData& data = graph.data;
  const auto now = static_cast<std::size_t>(ShownPoint(facts, data));
  const bool whole = !graph.scroll, coarse = whole && !graph.coarse.empty();
  std::size_t from = 0, to = data.x.size();
  if (!whole) {
    to = now + 1;
    from = static_cast<std::size_t>(
        std::lower_bound(data.x.begin(), data.x.begin() + static_cast<std::ptrdiff_t>(to), axes.x0) - data.x.begin());
    if (from > 0) --from;  // the line comes from outside
  }
  int colour = graph.colour;
  for (std::size_t k = 0; k < data.y.size(); ++k) {
    const std::vector<float>& values = data.y[k];
    const std::span<const float> x = coarse ? graph.coarse[k].x : std::span(data.x).subspan(from, to - from);
    const std::span<const float> y = coarse ? graph.coarse[k].y : std::span(values).subspan(from, to - from);
    dgThickness(draw, view.graph_thickness);
    if (!graph.blank) {
      const float width = draw.gks.attribute.line_width;
      UsePen(draw, kPaperColour);
      GSLWSC(draw.gks, width + kHalo);
      DrawThinned(draw, x, y);
      GSLWSC(draw.gks, width);
    }
    UsePen(draw, colour);
    DrawThinned(draw, x, y);
    dgThickness(draw, 0);
    if (graph.mark) {
      UsePen(draw, kInkColour);
      dgMarkerType(draw, kDot);
      dgMarkerScale(draw, kWindowParts * kDotSize * view.text_size / axes.area.height);
      GPM(draw.gks, std::span(data.x).subspan(now, 1), std::span(values).subspan(now, 1));
    }
    colour = (colour + 1) % kColours;
  }
}

void DrawMotionGraph(const MotionViewState& view, const MotionGraph& graph, const PlotFacts& facts, const PageBox& box,
                     PlotDraw draw) {
  if (graph.blank) PlainPaper(draw, box.x, box.y, box.width, box.height);
  const GraphAxes axes = AxesOf(graph, facts, box, view.text_size, draw);
  PlotPage& page = draw.page;
  dgAreaAt(draw, axes.area.x, axes.area.y, axes.area.width, axes.area.height);
  dgGraf(draw, axes.x0, 0, axes.x1, graph.y_low, 0, graph.y_high);
  UsePen(draw, kInkColour);
  DrawZero(draw);
  DrawGraphCurves(view, graph, facts, axes, draw);
  UsePen(draw, kInkColour);
  if (graph.time_bar) DrawUpright(draw, OutputTime(facts, facts.store.current_step), page.y_origin, page.y_end);
  dgThickness(draw, view.frame_too ? view.graph_thickness : 0);
  FrameBox(draw, axes.area);
  dgThickness(draw, 0);
  DrawLabels(graph, facts, box, axes, view.text_size, draw);
}

}  // namespace

void UpdateMotionGraphs(const PlotSource& source, MotionViewState& view) {
  int number = 0;
  for (MotionGraph& graph : view.graphs) {
    ++number;
    if (!graph.on) continue;
    PlotDataKey key = KeyOf(graph.request, source);
    if (graph.made_of == key) continue;
    graph.made_of = PlotDataKey{};
    std::string_view why;
    if (MakeGraph(source, graph, why)) {
      graph.made_of = std::move(key);
      continue;
    }
    graph.on = false;
    Say(source.console(), kSwitchedOff, number, why);
  }
}

PageBox PlaceOfGraph(std::size_t graph, float foot, PlotDraw draw) {
  const PageBox& part = kPlaces[graph];
  const float W = draw.page.page_width, H = draw.page.page_height;
  PageBox box{part.x * W, part.y * H, part.width * W, part.height * H};
  if (part.y < 0.5F) box.y += foot;
  return box;
}

void DrawMotionGraphs(const MotionViewState& view, const PlotFacts& facts, float foot, PlotDraw draw) {
  for (std::size_t i = 0; i < view.graphs.size(); ++i) {
    const MotionGraph& graph = view.graphs[i];
    if (!graph.on || graph.made_of.subject.kind == PlotKind::none) continue;
    DrawMotionGraph(view, graph, facts, PlaceOfGraph(i, foot, draw), draw);
  }
  UsePen(draw, kInkColour);
  dgSelectGraf(draw, 0);
}

float OutputTime(const PlotFacts& facts, int step) {
  return facts.store.time.at(1, step) * facts.output.units.scales.T;
}

int TimeDecimals(const PlotFacts& facts) {
  constexpr int kLeast = 2, kMost = 6;
  constexpr double kUnseen = 0.01;  // of a step
  const CaseStore& store = facts.store;
  const int steps = store.last_step - store.first_step;
  if (steps < 1) return kLeast;
  const double step = static_cast<double>(OutputTime(facts, store.last_step) - OutputTime(facts, store.first_step)) /
                      static_cast<double>(steps);
  for (int decimals = kLeast; decimals < kMost; ++decimals) {
    const double unit = std::pow(10.0, -decimals);
    if (std::abs(step - std::round(step / unit) * unit) <= kUnseen * step) return decimals;
  }
  return kMost;
}

}  // namespace zaview
