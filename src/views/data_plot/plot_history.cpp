// The time history of a quantity: its curves, the incident wave over them, statistics of a single one.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include <fmt/format.h>

#include "base/axis_rounding.h"
#include "base/grow.h"
#include "base/message.h"
#include "case/quantity_catalogue.h"
#include "case/quantity_label.h"
#include "case/tables/history_table.h"
#include "gks/plot/number_label.h"
#include "gks/plot/page_text.h"
#include "stats/tables/statistic_values.h"
#include "views/data_plot/plot_type.h"
#include "views/data_plot/stat_overlay.h"
#include "views/state/axes_limits.h"
#include "views/state/plot_kinds.h"
#include "views/state/plot_selection.h"

namespace zaview {

namespace {

constexpr std::string_view kWave = "Eta0";
constexpr float kRightTicks = 1.0F;  // of the wave's own axis, a page unit
constexpr float kGap = 0.1F;         // between the area and texts right of it
constexpr float kTick = 0.06F;
constexpr float kTextDrop = 0.4F;      // character heights from the middle of a text to its baseline
constexpr float kBlockMargin = 0.15F;  // round the block of values inside the graph

// ---- Data
DataFault FillHistory(const PlotSource& source, DataPlotState& plot) {
  QuantityRequest request = RequestOf(plot, 0);
  request.wave_overlay = plot.wave_overlay && source.store.time_history();
  PlotData& data = plot.derived.history;
  DataFault fault = SetPlotData(source.console(), source.output, request, source.store, data);
  const bool wave_failed = fault == DataFault::no_wave && request.wave_overlay;
  if (!wave_failed) return fault;
  plot.wave_overlay = request.wave_overlay = false;
  return SetPlotData(source.console(), source.output, request, source.store, data);
}

bool FillSteps(const PlotSource& source, DataPlotDerived& derived) {
  const int first = source.store.irf_case ? 1 : source.store.first_step;
  const int stride = std::max(1, source.output.reading.step_stride);
  if (!Grow(derived.step_x, static_cast<std::size_t>(derived.history.n))) return false;
  for (std::size_t i = 0; i < derived.step_x.size(); ++i)
    derived.step_x[i] = static_cast<float>(first) + static_cast<float>(i) * static_cast<float>(stride);
  return true;
}

bool MakeHistory(const PlotSource& source, DataPlotState& plot) {
  DataFault fault = FillHistory(source, plot);
  if (fault == DataFault::none && !FillSteps(source, plot.derived)) fault = DataFault::no_memory;
  if (!SayDataFault(source.console(), fault, Making::plot, std::to_string(plot.quantity.iqnt))) return false;
  if (plot.derived.history.n > 0) return true;
  SayLine(source.console(), kNoPlotSteps);
  return false;
}

std::span<const float> XOf(const DataPlotState& plot) {
  return plot.x_axis_by_index ? plot.derived.step_x : plot.derived.history.x;
}

void HistoryCurves(const DataPlotState& plot, std::vector<DrawnCurve>& curves) {
  const PlotData& data = plot.derived.history;
  for (std::size_t i = 0; i < data.y.size(); ++i) {
    const int component = static_cast<int>(i) + 1;
    if (IsShown(plot, component)) curves.push_back({component, XOf(plot), data.y[i]});
  }
  if (plot.wave_overlay && !plot.wave_own_scale && !data.wave.empty()) curves.push_back({0, XOf(plot), data.wave});
}

// The horizontal axis runs from the first point to the last; with match_scales the vertical one has room for all
// components, whichever is shown.
void FitHistory(const DataPlotState& plot, PlotLimits& limits) {
  limits = PlotLimits{};
  if (!FitAxes(plot, FitOver::all_steps, limits)) return;
  if (plot.match_scales) {
    for (const std::vector<float>& y : plot.derived.history.y) {
      for (const float value : y) {
        if (!std::isfinite(value)) continue;
        limits.y_min = std::min(limits.y_min, value);
        limits.y_max = std::max(limits.y_max, value);
      }
    }
  }
  RoundY(limits, LengthOf(plot).y);
}

void HistoryNames(const PlotFacts& facts, const DataPlotState& plot, PlotNames& names) {
  const CaseStore& store = facts.store;
  const int iqnt = plot.quantity.iqnt;
  const int component = plot.plot_component_count == 1 ? 1 : plot.plot_component;
  const std::string curve = component == 0 ? "" : CurveLabel(store, facts.output, iqnt, component);
  names.x = plot.x_axis_by_index ? "Time Step" : WithUnit("Time", TimeUnit(store, facts.output));
  names.title = setqntlabel(store, plot.quantity);
  if (!curve.empty()) names.title += ", " + curve;
  const std::string_view all = store.time_history() ? cQntMed(iqnt) : QuantityLabel(store, iqnt);
  names.y = WithUnit(curve.empty() ? all : curve, CurveUnit(store, facts.output, iqnt, component));
}

// ---- The wave
int WaveColour(const DataPlotState& plot) {
  return ColourOf(plot, plot.plot_component_count + 2);
}

// An axis for the wave right of the area.
void DrawRightAxis(const DataPlotState& plot, PlotDraw draw, const RoundAxis& axis) {
  const PlotPage& page = draw.page;
  const float x = page.area_x + page.area_width, h = plot.annot_size;
  const auto to_page = [&](float value) {
    return page.area_y + (value - axis.low) / (axis.high - axis.low) * page.area_height;
  };
  const auto line = [&](float x0, float y0, float x1, float y1) {
    const float xs[] = {x0, x1}, ys[] = {y0, y1};
    dgCurve(draw, xs, ys, 0);
  };
  dgSelectGraf(draw, 0);
  dgClip(draw, 0);
  line(x, page.area_y, x, page.area_y + page.area_height);
  const int ticks = static_cast<int>(std::lround((axis.high - axis.low) / axis.step));
  std::vector<float> values;
  for (int i = 0; i <= ticks; ++i) values.push_back(axis.low + static_cast<float>(i) * axis.step);
  const AxisFormat format = dgAxisFormat(values, axis.step);
  for (const float value : values) {
    const float y = to_page(value);
    line(x, y, x + kTick, y);
    PageText(draw, dgAxisLabel(value, format), x + kGap, y - kTextDrop * h, h, TextSide::left);
  }
  // Below the highest label: above it there may be a heading.
  const float name = page.area_y + page.area_height - kTextDrop * h - LinePitch(draw, h);
  PageText(draw, kWave, x + kGap, name, h, TextSide::left);
  dgClip(draw, 1);
  dgSelectGraf(draw, 1);
}

void DrawOwnScale(const DataPlotState& plot, PlotDraw draw) {
  const std::vector<float>& wave = plot.derived.history.wave;
  float low = 0.0F, high = 0.0F;
  for (const float value : wave)
    if (std::isfinite(value)) low = std::min(low, value), high = std::max(high, value);
  const RoundAxis axis = dgRoundAxis(low, high, kRightTicks, draw.page.area_height);
  std::vector<float> y;
  if (!Grow(y, wave.size())) return;
  const float bottom = draw.page.y_origin, height = draw.page.y_end - bottom;
  std::transform(wave.begin(), wave.end(), y.begin(),
                 [&](float value) { return bottom + (value - axis.low) / (axis.high - axis.low) * height; });
  DrawThinned(draw, XOf(plot), y);
  DrawRightAxis(plot, draw, axis);
}

void DrawWave(const DataPlotState& plot, PlotDraw draw) {
  if (!plot.wave_overlay || plot.derived.history.wave.empty()) return;
  dgColour(draw, WaveColour(plot));
  dgCurveThickness(draw, plot.line_thickness);
  if (plot.wave_own_scale) {
    DrawOwnScale(plot, draw);
  } else {
    DrawThinned(draw, XOf(plot), plot.derived.history.wave);
    const float x = draw.page.area_x + draw.page.area_width;
    PageText(draw, kWave, x + kGap, draw.page.area_y + draw.page.area_height - plot.annot_size, plot.annot_size,
             TextSide::left);
  }
  dgThickness(draw, 0);
  dgColour(draw, 1);
}

// ---- Statistics
// Is there room for the names right of the area?
bool NamesFit(const DataPlotState& plot, PlotDraw draw, const std::vector<OverlayLine>& lines) {
  if (HasRightAxis(plot)) return false;
  const float room = draw.page.page_width - draw.page.area_x - draw.page.area_width - 2.0F * kGap;
  return std::none_of(lines.begin(), lines.end(),
                      [&](const OverlayLine& line) { return TextWidth(draw, line.name, plot.annot_size) > room; });
}

// The lines that are in the graph, from the lowest on, with the names apart from each other.
void DrawStatLines(const DataPlotState& plot, PlotDraw draw) {
  const StatOverlay& overlay = plot.derived.overlay;
  std::vector<OverlayLine> lines = overlay.lines;
  const std::span<const float> points =
      XOf(plot).subspan(static_cast<std::size_t>(overlay.first), static_cast<std::size_t>(overlay.n));
  const float from = points.front(), to = points.back();
  const PlotPage& page = draw.page;
  const float h = plot.annot_size, pitch = LinePitch(draw, h), right = page.area_x + page.area_width;
  const bool outside = NamesFit(plot, draw, lines);
  std::sort(lines.begin(), lines.end(), [](const OverlayLine& a, const OverlayLine& b) { return a.y < b.y; });
  float free_from = page.area_y;
  for (const OverlayLine& line : lines) {
    const float x[] = {from, to}, y[] = {line.y, line.y};
    dgColour(draw, ColourOf(plot, line.colour));
    dgCurve(draw, x, y, 0);
    dgColour(draw, 1);
    const float at = page.area_y + (line.y - page.y_origin) / (page.y_end - page.y_origin) * page.area_height;
    if (!(at >= page.area_y && at <= page.area_y + page.area_height)) continue;
    const float base = std::max(outside ? at - kTextDrop * h : at + kGap, free_from);
    if (outside) PageText(draw, line.name, right + kGap, base, h, TextSide::left);
    else PageText(draw, line.name, right - kGap, base, h, TextSide::right);
    free_from = base + pitch;
  }
  dgColour(draw, 1);
}

// Inside the graph, at its right end.
void DrawStatBlock(const DataPlotState& plot, PlotDraw draw, const std::vector<PageNote>& texts) {
  const PlotPage& page = draw.page;
  const NotesSize size = SizeOfNotes(draw, texts, plot.annot_size);
  const float x = page.area_x + page.area_width - kBlockMargin - size.width;
  const float top = plot.stats_at == StatsPlace::above ? page.area_y + page.area_height - kBlockMargin
                                                       : page.area_y + kBlockMargin + size.height;
  PaperNotes(draw, texts, x, top, plot.annot_size);
}

// The points of a curve that statistics take.
StatRange OverlayPoints(const PlotSource& source, int points) {
  // A function of an impulsive run has no steps to skip.
  StatRange range{0, points};
  if (source.store.time_history()) range = StatPoints(source.store, source.output);
  range.n = std::min(range.n, points - range.first);
  return range;
}

// The one curve that is shown; 0: several are, or none.
int SingleCurve(const DataPlotState& plot) {
  int single = 0;
  for (int i = 1; i <= static_cast<int>(plot.derived.history.y.size()); ++i) {
    if (!IsShown(plot, i)) continue;
    if (single != 0) return 0;
    single = i;
  }
  return single;
}

// Statistics of the curve, once, whatever part of it is shown.
void FollowHistory(const PlotSource& source, DataPlotState& plot) {
  StatOverlay& overlay = plot.derived.overlay;
  const int show = plot.show_stats, component = show == 0 ? 0 : SingleCurve(plot);
  if (overlay.show == show && overlay.component == component) return;
  overlay = StatOverlay{};
  overlay.show = show;
  overlay.component = component;
  if (component == 0) return;
  const std::vector<float>& y = plot.derived.history.y[static_cast<std::size_t>(component - 1)];
  const StatRange range = OverlayPoints(source, static_cast<int>(y.size()));
  if (range.n <= 0) return SayLine(source.console(), kOverlaySkipped);
  const auto first = static_cast<std::size_t>(range.first), n = static_cast<std::size_t>(range.n);
  MakeStatOverlay(show, std::span(y).subspan(first, n), source.output.statistics.confidence_probability, overlay);
  overlay.first = range.first;
  overlay.n = range.n;
}

// ---- Notes
bool HasLegend(const DataPlotState& plot, std::size_t curves) {
  if (plot.legend == LegendUse::automatic) return curves > 1 || plot.values_in_legend;
  return plot.legend == LegendUse::on;
}

// A line a curve: number, name, its unit where the axis has none for all, and if wanted the value at its last point, or
// where is measured.
void AddLegend(const PlotFacts& facts, const DataPlotState& plot, std::vector<PageNote>& notes) {
  std::vector<DrawnCurve> curves;
  HistoryCurves(plot, curves);
  std::erase_if(curves, [](const DrawnCurve& curve) { return curve.component == 0 || curve.y.empty(); });
  if (!HasLegend(plot, curves.size())) return;
  const auto unit_of = [&](int component) {
    return CurveUnit(facts.store, facts.output, plot.quantity.iqnt, component);
  };
  const bool one_unit = !unit_of(plot.plot_component).empty();
  for (const DrawnCurve& curve : curves) {
    std::string text = fmt::format("{} {}", curve.component,
                                   plot.derived.history.labels[static_cast<std::size_t>(curve.component - 1)]);
    if (!one_unit) text = WithUnit(text, unit_of(curve.component));
    std::size_t i = curve.y.size() - 1;
    if (plot.axes.measure.on)
      i = std::min(i, static_cast<std::size_t>(std::lower_bound(curve.x.begin(), curve.x.end(), plot.axes.measure.x) -
                                               curve.x.begin()));
    if (plot.values_in_legend) text += fmt::format(" = {}", ShortNumber(curve.y[i]));
    notes.push_back({text, ColourOf(plot, curve.component + 1), DashOf(facts.look, plot, curve.component)});
  }
}

std::vector<PageNote> OverlayNotes(const DataPlotState& plot) {
  std::vector<PageNote> notes;
  for (const std::string& text : plot.derived.overlay.texts) notes.push_back({text});
  return notes;
}

void HistoryNotes(const PlotFacts& facts, const DataPlotState& plot, std::vector<PageNote>& notes) {
  AddLegend(facts, plot, notes);
  if (plot.stats_at != StatsPlace::bottom) return;
  const std::vector<PageNote> statistics = OverlayNotes(plot);
  notes.insert(notes.end(), statistics.begin(), statistics.end());
}

void DrawHistory(const PlotFacts& facts, const DataPlotState& plot, PlotDraw draw) {
  DrawCurves(plot, draw);
  DrawWave(plot, draw);
  if (!plot.derived.overlay.lines.empty()) {
    DrawStatLines(plot, draw);
    if (plot.stats_at != StatsPlace::bottom) DrawStatBlock(plot, draw, OverlayNotes(plot));
  }
  DrawLeftOut(facts, plot, draw);
}

DataFault WriteHistory(const PlotSource& source, const DataPlotState& plot, OutputFile& out) {
  return write_time_history(source.console(), source.output, RequestOf(plot, 0), plot.unformatted, source.store, out);
}

}  // namespace

bool HasRightAxis(const DataPlotState& plot) {
  return plot.kind == PlotKind::history && plot.wave_overlay && plot.wave_own_scale &&
         !plot.derived.history.wave.empty();
}

const PlotType kHistoryPlot{
    .kind = PlotKind::history,
    .file_prompt = "Enter file name for writing time history of",
    .written = "Time history data written to file",
    .make = MakeHistory,
    .follow = FollowHistory,
    .curves = HistoryCurves,
    .fit = FitHistory,
    .names = HistoryNames,
    .notes = HistoryNotes,
    .draw = DrawHistory,
    .write = WriteHistory,
};

}  // namespace zaview
