// The histogram of a quantity, with a theoretical distribution over it.
#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "base/axis_rounding.h"
#include "case/quantity_catalogue.h"
#include "case/quantity_label.h"
#include "gks/kernel/gks_control.h"
#include "gks/kernel/gks_draw.h"
#include "gks/plot/page_text.h"
#include "stats/tables/histogram_table.h"
#include "views/data_plot/plot_type.h"
#include "views/data_plot/plot_write.h"
#include "views/state/axes_limits.h"
#include "views/state/plot_kinds.h"

namespace zaview {

namespace {

constexpr int kFitColour = 13;
constexpr float kYTicks = 0.75F;  // a page unit
constexpr std::string_view kRate = "Sampling rate= {} step(s)";

// ---- Data
DataFault MakeBars(const PlotSource& source, DataPlotState& plot) {
  Histogram& histogram = plot.derived.histogram;
  const DataFault fault =
      MakeHistogram(source.work(), RequestOf(plot, OneComponent(plot)), plot.of_ensemble, histogram);
  if (fault != DataFault::none) return fault;
  std::vector<float>&x = plot.derived.bar_x, &y = plot.derived.bar_y;
  x.clear();
  y.clear();
  for (std::size_t j = 0; j < histogram.count.size(); ++j) {
    x.insert(x.end(), {histogram.edges[j], histogram.edges[j + 1]});
    y.insert(y.end(), {histogram.count[j], histogram.count[j]});
  }
  return DataFault::none;
}

bool MakeHistogramPlot(const PlotSource& source, DataPlotState& plot) {
  const DataFault fault = Guarded([&] { return MakeBars(source, plot); }, DataFault::no_memory);
  return SayTableFault(source, plot, fault);
}

void HistogramCurves(const DataPlotState& plot, std::vector<DrawnCurve>& curves) {
  curves.push_back({OneComponent(plot), plot.derived.bar_x, plot.derived.bar_y});
}

// Round numbers about all buckets, from 0 to the highest.
void FitHistogram(const DataPlotState& plot, PlotLimits& limits) {
  const Histogram& h = plot.derived.histogram;
  limits = PlotLimits{};
  if (h.edges.empty()) return;
  limits.x_min = h.edges.front();
  limits.x_max = h.edges.back();
  RoundX(limits, LengthOf(plot).x);
  float most = *std::max_element(h.count.begin(), h.count.end());
  for (const float expected : h.expected) most = std::max(most, expected);
  const RoundAxis y = dgRoundAxis(0.0F, most, kYTicks, LengthOf(plot).y);
  limits.y_min = 0.0F;
  limits.y_step = y.step;
  limits.y_max = most > 0.0F ? y.high : 1.0F;
}

void HistogramNames(const PlotFacts& facts, const DataPlotState& plot, PlotNames& names) {
  const HistogramRequest& how = facts.statistics.histogram;
  const int iqnt = plot.quantity.iqnt, component = OneComponent(plot);
  const std::string curve = CurveLabel(facts.store, facts.output, iqnt, component);
  names.x = WithUnit(how.data == HistogramData::absolute ? fmt::format("abs({})", curve) : curve,
                     CurveUnit(facts.store, facts.output, iqnt, component));
  names.y = how.counts ? "" : "N/Ntot";
  names.title = fmt::format("Histogram of {}", CurveName(facts, plot));
}

// ---- Drawing
void DrawBars(const DataPlotState& plot, PlotDraw draw) {
  const Histogram& h = plot.derived.histogram;
  const int colour = ColourOf(plot, OneComponent(plot) + 1);
  const bool fill = plot.hist_rendering != HistogramStyle::line;
  const bool outline = plot.hist_rendering != HistogramStyle::filled;
  for (std::size_t j = 0; j < h.count.size(); ++j) {
    const float left = h.edges[j], right = h.edges[j + 1], top = h.count[j];
    if (!(top > 0.0F)) continue;
    const float x[] = {left, left, right, right, left}, y[] = {0.0F, top, top, 0.0F, 0.0F};
    dgColour(draw, colour);
    if (fill) GFA(draw.gks, std::span(x).first(4), std::span(y).first(4));
    if (fill && outline) GSPLCI(draw.platform.console, draw.gks, colour == 1 ? 0 : 1);  // bars of ink are set apart
    if (outline) dgCurve(draw, x, y, 0);
  }
}

void DrawFit(const DataPlotState& plot, PlotDraw draw) {
  const Histogram& h = plot.derived.histogram;
  if (h.expected.empty()) return;
  // On paper of its own, as it runs over bars of any colour.
  constexpr float kFit = 0.045F, kPaper = 0.1F;  // page units
  dgThickness(draw, plot.line_thickness + kPaper);
  GSPLCI(draw.platform.console, draw.gks, 0);
  DrawThinned(draw, h.mid, h.expected);
  dgThickness(draw, plot.line_thickness + kFit);
  dgColour(draw, ColourOf(plot, kFitColour));
  DrawThinned(draw, h.mid, h.expected);
  const float x[] = {draw.page.x_origin, draw.page.x_end}, y[] = {0, 0};  // where nothing is expected the axis shows
  dgThickness(draw, 0);
  dgColour(draw, 1);
  dgCurve(draw, x, y, 0);
}

void HistogramNotes(const PlotFacts& facts, const DataPlotState& plot, std::vector<PageNote>& notes) {
  const HistogramRequest& how = facts.statistics.histogram;
  notes.push_back({fmt::format(kRate, how.rate)});
  int colour = ColourOf(plot, kFitColour);  // of its first line, its name
  for (const std::string& line : DistributionLines(how.overlay, plot.derived.histogram)) {
    notes.push_back({line, colour});
    colour = 0;
  }
}

void DrawHistogram(const PlotFacts&, const DataPlotState& plot, PlotDraw draw) {
  dgCurveThickness(draw, plot.line_thickness);
  DrawBars(plot, draw);
  DrawFit(plot, draw);
  dgThickness(draw, 0);
  dgColour(draw, 1);
}

DataFault WriteBars(const PlotSource& source, const DataPlotState& plot, OutputFile& out) {
  return WriteHistogram(source.work(), RequestOf(plot, OneComponent(plot)), plot.of_ensemble, out);
}

}  // namespace

const PlotType kHistogramPlot{
    .kind = PlotKind::histogram,
    .file_prompt = "Enter file name for writing histogram of",
    .written = "Histogram data written to file",
    .make = MakeHistogramPlot,
    .curves = HistogramCurves,
    .fit = FitHistogram,
    .names = HistogramNames,
    .notes = HistogramNotes,
    .draw = DrawHistogram,
    .write = WriteBars,
};

}  // namespace zaview
