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
#include "base/text.h"
#include "case/quantity_catalogue.h"
#include "case/tables/history_table.h"
#include "gks/plot/number_label.h"
#include "stats/tables/statistic_values.h"
#include "views/data_plot/plot_parts.h"
#include "views/data_plot/plot_type.h"
#include "views/data_plot/stat_overlay.h"

namespace zaview {

namespace {

constexpr std::string_view kWave = "Eta0";
constexpr float kRightTicks = 1.0F;  // of the wave's own axis, a page unit
constexpr float kGap = 0.1F;         // between the area and texts right of it
constexpr float kTick = 0.06F;
constexpr float kTextDrop = 0.4F;      // character heights from the middle of a text to its baseline
constexpr float kBlockMargin = 0.15F;  // round the block of values inside the graph

// ---- Data
PlotFault FillHistory(Session& session, DataPlotState& plot) {
  QuantityRequest request = RequestOf(plot, 0);
  request.wave_overlay = plot.wave_overlay && session.case_store.time_history();
  const Console& console = session.platform.console;
  PlotData& data = plot.derived.history;
  PlotFault fault = SetPlotData(console, session.output, request, session.case_store, data);
  const bool wave_failed = fault == PlotFault::no_wave && request.wave_overlay;
  if (!wave_failed) return fault;
  plot.wave_overlay = request.wave_overlay = false;
  return SetPlotData(console, session.output, request, session.case_store, data);
}

bool FillSteps(const Session& session, DataPlotDerived& derived) {
  const int first = session.case_store.irf_case ? 1 : session.case_store.first_step;
  const int stride = std::max(1, session.output.reading.step_stride);
  if (!Grow(derived.step_x, static_cast<std::size_t>(derived.history.n))) return false;
  for (std::size_t i = 0; i < derived.step_x.size(); ++i)
    derived.step_x[i] = static_cast<float>(first) + static_cast<float>(i) * static_cast<float>(stride);
  return true;
}

bool PrepareHistory(Session& session) {
  DataPlotState& plot = session.data_plot;
  const bool wave_missing = plot.wave_overlay && plot.derived.history.wave.empty();
  const bool there = !plot.redo_data && plot.derived.history_of == PlotKind::history && !wave_missing;
  if (there) return true;
  plot.derived.history_of = PlotKind::none;
  plot.derived.overlay_of = 0;
  PlotFault fault = FillHistory(session, plot);
  if (fault == PlotFault::none && !FillSteps(session, plot.derived)) fault = PlotFault::no_memory;
  if (!SayPlotFault(session.platform.console, fault, plot.quantity.iqnt)) return false;
  if (plot.derived.history.n == 0) {
    SayLine(session.platform.console, kNoPlotSteps);
    return false;
  }
  plot.derived.history_of = PlotKind::history;
  plot.redo_data = false;
  return true;
}

std::span<const float> XOf(const DataPlotState& plot) {
  return plot.x_axis_by_index ? plot.derived.step_x : plot.derived.history.x;
}

void HistoryCurves(const Session& session, std::vector<DrawnCurve>& curves) {
  const DataPlotState& plot = session.data_plot;
  const PlotData& data = plot.derived.history;
  for (std::size_t i = 0; i < data.y.size(); ++i) {
    const int component = static_cast<int>(i) + 1;
    if (IsShown(plot, component)) curves.push_back({component, XOf(plot), data.y[i]});
  }
  if (plot.wave_overlay && !plot.wave_own_scale && !data.wave.empty()) curves.push_back({0, XOf(plot), data.wave});
}

// The horizontal axis runs from the first point to the last; with match_scales the vertical one has room for all
// components, whichever is shown.
void FitHistory(const Session& session, PlotLimits& limits) {
  const DataPlotState& plot = session.data_plot;
  limits = PlotLimits{};
  if (!FitAxes(session, FitOver::all_steps, limits)) return;
  if (plot.match_scales) {
    for (const std::vector<float>& y : plot.derived.history.y) {
      for (const float value : y) {
        if (!std::isfinite(value)) continue;
        limits.y_min = std::min(limits.y_min, value);
        limits.y_max = std::max(limits.y_max, value);
      }
    }
  }
  RoundY(plot, limits);
}

void HistoryNames(const Session& session, PlotNames& names) {
  const DataPlotState& plot = session.data_plot;
  const CaseStore& store = session.case_store;
  const int iqnt = plot.quantity.iqnt;
  const int component = plot.plot_component_count == 1 ? 1 : plot.plot_component;
  const std::string curve = component == 0 ? "" : CurveLabel(store, session.output, iqnt, component);
  names.x = plot.x_axis_by_index ? "Time Step" : "Time";
  names.title = std::string(QuantityLabel(store, iqnt));
  if (!curve.empty()) names.title += ", " + curve;
  const std::string_view all = store.time_history() ? cQntMed(iqnt) : QuantityLabel(store, iqnt);
  names.y = curve.empty() ? std::string(all) : curve;
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
  for (int i = 0; i <= ticks; ++i) {
    const float value = axis.low + static_cast<float>(i) * axis.step, y = to_page(value);
    line(x, y, x + kTick, y);
    const std::string text = dgFormatNumber(value, std::abs(axis.step) / 100.0F);
    PageText(draw, Trim(text), x + kGap, y - kTextDrop * h, h, TextSide::left);
  }
  PageText(draw, kWave, x + kGap, page.area_y + page.area_height + h, h, TextSide::left);
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
  DrawSolid(draw, XOf(plot), y);
  DrawRightAxis(plot, draw, axis);
}

void DrawWave(const DataPlotState& plot, PlotDraw draw) {
  if (!plot.wave_overlay || plot.derived.history.wave.empty()) return;
  dgColour(draw, WaveColour(plot));
  dgThickness(draw, plot.line_thickness);
  if (plot.wave_own_scale) {
    DrawOwnScale(plot, draw);
  } else {
    DrawSolid(draw, XOf(plot), plot.derived.history.wave);
    const float x = draw.page.area_x + draw.page.area_width;
    PageText(draw, kWave, x + kGap, draw.page.area_y + draw.page.area_height - plot.annot_size, plot.annot_size,
             TextSide::left);
  }
  dgThickness(draw, 0);
  dgColour(draw, 1);
}

// ---- Statistics
bool HasRightAxis(const DataPlotState& plot) {
  return plot.wave_overlay && plot.wave_own_scale && !plot.derived.history.wave.empty();
}

// Is there room for the names right of the area?
bool NamesFit(const DataPlotState& plot, PlotDraw draw, const std::vector<OverlayLine>& lines) {
  if (HasRightAxis(plot)) return false;
  const float room = draw.page.page_width - draw.page.area_x - draw.page.area_width - 2.0F * kGap;
  return std::none_of(lines.begin(), lines.end(),
                      [&](const OverlayLine& line) { return TextWidth(draw, line.name, plot.annot_size) > room; });
}

// The lines that are in the graph, from the lowest on, with the names apart from each other.
void DrawStatLines(const DataPlotState& plot, PlotDraw draw, std::vector<OverlayLine> lines, float from, float to) {
  const PlotPage& page = draw.page;
  const float h = plot.annot_size, pitch = LinePitch(draw, h), right = page.area_x + page.area_width;
  const bool outside = NamesFit(plot, draw, lines);
  std::sort(lines.begin(), lines.end(), [](const OverlayLine& a, const OverlayLine& b) { return a.y < b.y; });
  float free_from = page.area_y;
  for (const OverlayLine& line : lines) {
    const float x[] = {from, to}, y[] = {line.y, line.y};
    dgColour(draw, ColourOf(plot, line.colour));
    dgCurve(draw, x, y, 0);
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
StatRange OverlayPoints(const Session& session, int points) {
  // A function of an impulsive run has no steps to skip.
  StatRange range{0, points};
  if (session.case_store.time_history()) range = StatPoints(session.case_store, session.output);
  range.n = std::min(range.n, points - range.first);
  return range;
}

// Made once of the same data, whatever part of them is shown.
void UpdateOverlay(Session& session, const DrawnCurve& curve, StatRange range) {
  const DataPlotState& plot = session.data_plot;
  DataPlotDerived& d = session.data_plot.derived;
  if (d.overlay_of == plot.show_stats && d.overlay_component == curve.component) return;
  d.overlay_of = plot.show_stats;
  d.overlay_component = curve.component;
  d.overlay = StatOverlay{};
  if (range.n <= 0) return SayLine(session.platform.console, kOverlaySkipped);
  MakeStatOverlay(plot.show_stats,
                  curve.y.subspan(static_cast<std::size_t>(range.first), static_cast<std::size_t>(range.n)),
                  session.output.statistics.confidence_probability, d.overlay);
}

// Values that belong below the plot are added to its notes.
void DrawStatistics(Session& session, PlotDraw draw, std::vector<PageNote>& notes) {
  const DataPlotState& plot = session.data_plot;
  std::vector<DrawnCurve> curves;
  HistoryCurves(session, curves);
  std::erase_if(curves, [](const DrawnCurve& curve) { return curve.component == 0; });
  if (plot.show_stats == 0 || curves.size() != 1) return;
  const StatRange range = OverlayPoints(session, static_cast<int>(curves[0].y.size()));
  UpdateOverlay(session, curves[0], range);
  const StatOverlay& overlay = plot.derived.overlay;
  if (range.n <= 0) return;
  const auto first = static_cast<std::size_t>(range.first), last = first + static_cast<std::size_t>(range.n) - 1;
  DrawStatLines(plot, draw, overlay.lines, curves[0].x[first], curves[0].x[last]);
  std::vector<PageNote> texts;
  for (const std::string& text : overlay.texts) texts.push_back({text});
  if (plot.stats_at == StatsPlace::bottom) notes.insert(notes.end(), texts.begin(), texts.end());
  else DrawStatBlock(plot, draw, texts);
}

// ---- Notes
// A line a curve: number, name, and the value at its last point, or where is measured.
void AddLegend(const Session& session, std::vector<PageNote>& notes) {
  const DataPlotState& plot = session.data_plot;
  if (!plot.values_in_legend) return;
  std::vector<DrawnCurve> curves;
  HistoryCurves(session, curves);
  for (const DrawnCurve& curve : curves) {
    if (curve.component == 0 || curve.y.empty()) continue;
    std::size_t i = curve.y.size() - 1;
    if (plot.measure_on)
      i = std::min(i, static_cast<std::size_t>(std::lower_bound(curve.x.begin(), curve.x.end(), plot.measure_x) -
                                               curve.x.begin()));
    const std::string& label = plot.derived.history.labels[static_cast<std::size_t>(curve.component - 1)];
    notes.push_back({fmt::format("{} {} = {}", curve.component, label, ShortNumber(curve.y[i])),
                     ColourOf(plot, curve.component + 1)});
  }
}

void DrawHistory(Session& session, PlotDraw draw) {
  DrawCurves(session, draw);
  DrawWave(session.data_plot, draw);
  std::vector<PageNote> notes;
  AddLegend(session, notes);
  DrawStatistics(session, draw, notes);
  PageNotes(draw, notes, session.data_plot.text_size, session.data_plot.annot_size);
  DrawLeftOut(session, draw);
}

TableFault WriteHistory(Session& session, OutputFile& out) {
  return TableFaultOf(write_time_history(session.platform.console, session.output, RequestOf(session.data_plot, 0),
                                         false, session.case_store, out));
}

}  // namespace

const PlotType kHistoryPlot{
    PlotKind::history,
    true,
    "Enter file name for writing time history of",
    "Time history data written to file",
    PrepareHistory,
    HistoryCurves,
    FitHistory,
    HistoryNames,
    DrawHistory,
    WriteHistory,
};

}  // namespace zaview
