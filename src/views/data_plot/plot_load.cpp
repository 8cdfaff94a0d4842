// The distribution of a sectional load over the cuts at one step, and its range over all of them.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "base/grow.h"
#include "base/message.h"
#include "base/number_format.h"
#include "case/quantity_catalogue.h"
#include "case/quantity_label.h"
#include "case/tables/load_table.h"
#include "gks/plot/page_text.h"
#include "stats/tables/statistic_values.h"
#include "views/data_plot/plot_type.h"

namespace zaview {

namespace {

constexpr int kPresentColour = 2, kRangeColour = 3;
constexpr std::string_view kStepNote = "Step {} Time= {}";
constexpr std::string_view kSelection = "Load plane selection mode";
constexpr std::string_view kSelected = "{} {}";
constexpr int kMark = 1;

// All steps in use, whatever the stride: the present one need not be one of the points.
bool MakeLoad(const PlotSource& source, DataPlotState& plot) {
  OutputSettings every = source.output;
  every.reading.step_stride = 1;
  const QuantityRow* row = FindQuantity(plot.quantity.iqnt);
  DataFault fault = DataFault::not_valid;
  if (source.store.time_history() && row != nullptr && row->load_kind != 0)
    fault = SetPlotData(source.console(), every, RequestOf(plot, 0), source.store, plot.derived.history);
  if (!SayDataFault(source.console(), fault, Making::plot, std::to_string(plot.quantity.iqnt))) return false;
  if (plot.derived.history.n > 0) return true;
  SayLine(source.console(), kNoPlotSteps);
  return false;
}

struct Extremes {
  float low = 0, high = 0;
};

// Values that are no numbers are passed over as long as there are others.
Extremes ExtremesOf(const std::vector<float>& y, std::size_t stride) {
  Extremes out{y[0], y[0]};
  for (std::size_t i = 0; i < y.size(); i += stride) {
    out.low = std::fmin(out.low, y[i]);
    out.high = std::fmax(out.high, y[i]);
  }
  return out;
}

// Cuts that are left out where all are plotted are so here.
void FollowLoad(const PlotSource& source, DataPlotState& plot) {
  DataPlotDerived& d = plot.derived;
  CaseStore& store = source.store;
  store.current_step = std::max(store.first_step, std::min(store.current_step, store.last_step));
  for (std::vector<float>* list : {&d.cut, &d.load, &d.load_least, &d.load_largest}) list->clear();
  const auto stride = static_cast<std::size_t>(std::max(1, source.output.reading.step_stride));
  const auto now = static_cast<std::size_t>(std::clamp(store.current_step - store.first_step, 0, d.history.n - 1));
  for (std::size_t i = 0; i < d.history.y.size(); ++i) {
    if (i < plot.hidden.size() && plot.hidden[i] != 0) continue;
    const Extremes extremes = ExtremesOf(d.history.y[i], stride);
    d.cut.push_back(CutCoordinate(store, source.output, plot.quantity.iqnt, static_cast<int>(i) + 1));
    d.load.push_back(d.history.y[i][now]);
    d.load_least.push_back(extremes.low);
    d.load_largest.push_back(extremes.high);
  }
}

void LoadCurves(const DataPlotState& plot, std::vector<DrawnCurve>& curves) {
  const DataPlotDerived& d = plot.derived;
  curves.push_back({1, d.cut, d.load});
  curves.push_back({2, d.cut, d.load_least});
  curves.push_back({3, d.cut, d.load_largest});
}

void LoadNames(const PlotFacts& facts, const DataPlotState& plot, PlotNames& names) {
  const int iqnt = plot.quantity.iqnt;
  const CaseStore& store = facts.store;
  const QuantityRow* row = FindQuantity(iqnt);
  names.x = WithUnit(row != nullptr && row->need == QuantityNeed::y_cuts ? "Y" : "X", LengthUnit(store, facts.output));
  names.y = WithUnit(cQntMed(iqnt), CurveUnit(store, facts.output, iqnt, 1));
  names.title = fmt::format("Load Distribution of {}", setqntlabel(store, plot.quantity));
  names.note = fmt::format(kStepNote, store.current_step,
                           Shown{store.time.at(1, store.current_step) * facts.output.units.scales.T});
}

// While a cut is selected, for the key that leaves it out.
void LoadNotes(const PlotFacts& facts, const DataPlotState& plot, std::vector<PageNote>& notes) {
  const int cut = plot.plot_component;
  if (cut < 1) return;
  notes.push_back({std::string(kSelection)});
  notes.push_back({fmt::format(kSelected, cut, CurveLabel(facts.store, facts.output, plot.quantity.iqnt, cut))});
}

void DrawSelection(const PlotFacts& facts, const DataPlotState& plot, PlotDraw draw) {
  const int cut = plot.plot_component;
  if (cut < 1) return;
  const float at = CutCoordinate(facts.store, facts.output, plot.quantity.iqnt, cut);
  const float x[] = {at, at}, y[] = {draw.page.y_origin, draw.page.y_end};
  dgDash(draw);
  dgCurve(draw, x, y, 0);
  dgReset(draw, "dash");
  DrawLeftOut(facts, plot, draw);
}

void DrawLoad(const PlotFacts& facts, const DataPlotState& plot, PlotDraw draw) {
  const DataPlotDerived& d = plot.derived;
  dgColour(draw, ColourOf(plot, kRangeColour));
  dgDash(draw);
  dgCurve(draw, d.cut, d.load_least, 0);
  dgCurve(draw, d.cut, d.load_largest, 0);
  dgReset(draw, "dash");
  dgColour(draw, ColourOf(plot, kPresentColour));
  dgCurveThickness(draw, plot.line_thickness);
  if (plot.mark_every >= 0) dgCurve(draw, d.cut, d.load, 0);
  dgMarkerType(draw, kMark);
  dgMarkerScale(draw, plot.mark_size);
  if (plot.mark_every != 0) dgCurve(draw, d.cut, d.load, -std::abs(plot.mark_every));
  dgThickness(draw, 0);
  dgColour(draw, 1);
  DrawSelection(facts, plot, draw);
}

DataFault WriteLoad(const PlotSource& source, const DataPlotState& plot, OutputFile& out) {
  return LoadDistFil(source.console(), source.output, plot.quantity.iqnt, source.store.current_step, source.store, out);
}

}  // namespace

const PlotType kLoadPlot{
    .kind = PlotKind::load_dist,
    .file_prompt = "Enter file name for distribution of",
    .written = "Load distribution data written to file",
    .make = MakeLoad,
    .follow = FollowLoad,
    .curves = LoadCurves,
    .names = LoadNames,
    .notes = LoadNotes,
    .draw = DrawLoad,
    .write = WriteLoad,
};

}  // namespace zaview
