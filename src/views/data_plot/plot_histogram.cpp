// The histogram of a quantity, with a theoretical distribution over it.
#include <algorithm>
#include <cstddef>
#include <new>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "base/axis_rounding.h"
#include "case/quantity_catalogue.h"
#include "gks/kernel/gks_control.h"
#include "gks/kernel/gks_draw.h"
#include "stats/tables/histogram_table.h"
#include "views/data_plot/plot_parts.h"
#include "views/data_plot/plot_type.h"
#include "views/data_plot/plot_write.h"

namespace zaview {

namespace {

constexpr int kFitColour = 13;
constexpr float kYTicks = 0.75F;  // a page unit
constexpr std::string_view kRate = "Sampling rate= {} step(s)";

EnsembleCases CasesOf(Session& session) {
  return {session.case_store, session.ensemble};
}

int ComponentOf(const DataPlotState& plot) {
  return std::max(1, plot.plot_component);
}

// ---- Data
TableFault MakeBars(Session& session) {
  DataPlotState& plot = session.data_plot;
  Histogram& histogram = plot.derived.histogram;
  const TableFault fault = MakeHistogram(session.platform.console, session.output, RequestOf(plot, ComponentOf(plot)),
                                         plot.of_ensemble, CasesOf(session), session.statistics, histogram);
  if (fault != TableFault::none) return fault;
  std::vector<float>&x = plot.derived.bar_x, &y = plot.derived.bar_y;
  x.clear();
  y.clear();
  for (std::size_t j = 0; j < histogram.count.size(); ++j) {
    x.insert(x.end(), {histogram.edges[j], histogram.edges[j + 1]});
    y.insert(y.end(), {histogram.count[j], histogram.count[j]});
  }
  return TableFault::none;
}

bool PrepareHistogram(Session& session) {
  DataPlotState& plot = session.data_plot;
  if (!plot.redo_hist) return true;
  TableFault fault = TableFault::no_memory;
  try {
    fault = MakeBars(session);
  } catch (const std::bad_alloc&) {
  }
  if (!SayTableFault(session, fault)) return false;
  plot.redo_hist = false;
  // Other data have other buckets.
  if (!plot.limits_changed && !plot.keep_scale) plot.rescale = true;
  return true;
}

void HistogramCurves(const Session& session, std::vector<DrawnCurve>& curves) {
  const DataPlotDerived& derived = session.data_plot.derived;
  curves.push_back({ComponentOf(session.data_plot), derived.bar_x, derived.bar_y});
}

// From the first bucket to the last, from 0 to the highest.
void FitHistogram(const Session& session, PlotLimits& limits) {
  const DataPlotState& plot = session.data_plot;
  const Histogram& h = plot.derived.histogram;
  limits = PlotLimits{};
  if (h.edges.empty()) return;
  limits.x_min = h.edges.front();
  limits.x_max = h.edges.back();
  PlotLimits rounded = limits;
  RoundX(plot, rounded);
  limits.x_step = rounded.x_step;
  float most = *std::max_element(h.count.begin(), h.count.end());
  for (const float expected : h.expected) most = std::max(most, expected);
  const RoundAxis y = dgRoundAxis(0.0F, most, kYTicks, plot.histogram_y_length);
  limits.y_min = 0.0F;
  limits.y_step = y.step;
  limits.y_max = most > 0.0F ? y.high : 1.0F;
}

void HistogramNames(const Session& session, PlotNames& names) {
  const DataPlotState& plot = session.data_plot;
  const HistogramRequest& how = session.statistics.histogram;
  const int iqnt = plot.quantity.iqnt, component = ComponentOf(plot);
  const std::string curve = CurveLabel(session.case_store, session.output, iqnt, component);
  names.x = how.data == HistogramData::absolute ? fmt::format("abs({})", curve) : curve;
  names.y = how.counts ? "" : "N/Ntot";
  names.title = fmt::format("Histogram of {}, {}", QuantityLabel(session.case_store, iqnt), curve);
}

// ---- Drawing
void DrawBars(const DataPlotState& plot, PlotDraw draw) {
  const Histogram& h = plot.derived.histogram;
  const int colour = ColourOf(plot, ComponentOf(plot) + 1);
  const bool fill = plot.hist_rendering != HistogramStyle::line;
  const bool outline = plot.hist_rendering != HistogramStyle::filled;
  for (std::size_t j = 0; j < h.count.size(); ++j) {
    const float left = h.edges[j], right = h.edges[j + 1], top = h.count[j];
    if (!(top > 0.0F)) continue;
    const float x[] = {left, left, right, right, left}, y[] = {0.0F, top, top, 0.0F, 0.0F};
    dgColour(draw, colour);
    if (fill) GFA(draw.gks, std::span(x).first(4), std::span(y).first(4));
    if (fill && outline) dgColour(draw, 1);
    if (outline) dgCurve(draw, x, y, 0);
  }
}

void DrawFit(const DataPlotState& plot, PlotDraw draw) {
  const Histogram& h = plot.derived.histogram;
  if (h.expected.empty()) return;
  dgColour(draw, ColourOf(plot, kFitColour));
  DrawSolid(draw, h.mid, h.expected);
}

std::vector<PageNote> NotesOf(const Session& session) {
  const HistogramRequest& how = session.statistics.histogram;
  const int colour = ColourOf(session.data_plot, kFitColour);
  std::vector<PageNote> notes{{fmt::format(kRate, how.rate)}};
  for (const std::string& line : DistributionLines(how.overlay, session.data_plot.derived.histogram))
    notes.push_back({line, colour});
  return notes;
}

void DrawHistogram(Session& session, PlotDraw draw) {
  const DataPlotState& plot = session.data_plot;
  dgThickness(draw, plot.line_thickness);
  DrawBars(plot, draw);
  DrawFit(plot, draw);
  dgThickness(draw, 0);
  dgColour(draw, 1);
  PageNotes(draw, NotesOf(session), plot.text_size, plot.annot_size);
}

TableFault WriteBars(Session& session, OutputFile& out) {
  const DataPlotState& plot = session.data_plot;
  return WriteHistogram(session.platform.console, session.output, RequestOf(plot, ComponentOf(plot)), plot.of_ensemble,
                        CasesOf(session), session.statistics, out);
}

}  // namespace

const PlotType kHistogramPlot{
    PlotKind::histogram,
    false,
    "Enter file name for writing histogram of",
    "Histogram data written to file",
    PrepareHistogram,
    HistogramCurves,
    FitHistogram,
    HistogramNames,
    DrawHistogram,
    WriteBars,
};

}  // namespace zaview
