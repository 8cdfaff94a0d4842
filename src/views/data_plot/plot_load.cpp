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
#include "case/tables/load_table.h"
#include "stats/tables/statistic_values.h"
#include "views/data_plot/plot_parts.h"
#include "views/data_plot/plot_type.h"

namespace zaview {

namespace {

constexpr int kPresentColour = 2, kRangeColour = 3;
constexpr std::string_view kStepNote = "Step {} Time= {}";
constexpr std::string_view kSelection = "Load plane selection mode";
constexpr std::string_view kSelected = "{} {}";
constexpr int kMark = 1;

// All steps in use, whatever the stride: the present one need not be one of the points.
bool FillHistories(Session& session, DataPlotState& plot) {
  OutputSettings every = session.output;
  every.reading.step_stride = 1;
  const Console& console = session.platform.console;
  const QuantityRow* row = FindQuantity(plot.quantity.iqnt);
  PlotFault fault = PlotFault::not_valid;
  plot.derived.history_of = PlotKind::none;
  if (session.case_store.time_history() && row != nullptr && row->load_kind != 0)
    fault = SetPlotData(console, every, RequestOf(plot, 0), session.case_store, plot.derived.history);
  if (!SayPlotFault(console, fault, plot.quantity.iqnt)) return false;
  if (plot.derived.history.n == 0) {
    SayLine(console, kNoPlotSteps);
    return false;
  }
  plot.derived.history_of = PlotKind::load_dist;
  return true;
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
void TakeCuts(const Session& session, DataPlotState& plot) {
  DataPlotDerived& d = plot.derived;
  const CaseStore& store = session.case_store;
  for (std::vector<float>* list : {&d.cut, &d.load, &d.load_least, &d.load_largest}) list->clear();
  const auto stride = static_cast<std::size_t>(std::max(1, session.output.reading.step_stride));
  const auto now = static_cast<std::size_t>(std::clamp(store.current_step - store.first_step, 0, d.history.n - 1));
  for (std::size_t i = 0; i < d.history.y.size(); ++i) {
    if (i < plot.hidden.size() && plot.hidden[i] != 0) continue;
    const Extremes extremes = ExtremesOf(d.history.y[i], stride);
    d.cut.push_back(CutCoordinate(store, session.output, plot.quantity.iqnt, static_cast<int>(i) + 1));
    d.load.push_back(d.history.y[i][now]);
    d.load_least.push_back(extremes.low);
    d.load_largest.push_back(extremes.high);
  }
}

bool PrepareLoad(Session& session) {
  DataPlotState& plot = session.data_plot;
  const bool there = !plot.redo_load && plot.derived.history_of == PlotKind::load_dist;
  if (!there && !FillHistories(session, plot)) return false;
  plot.redo_load = false;
  TakeCuts(session, plot);
  return true;
}

void LoadCurves(const Session& session, std::vector<DrawnCurve>& curves) {
  const DataPlotDerived& d = session.data_plot.derived;
  curves.push_back({1, d.cut, d.load});
  curves.push_back({2, d.cut, d.load_least});
  curves.push_back({3, d.cut, d.load_largest});
}

void LoadNames(const Session& session, PlotNames& names) {
  const int iqnt = session.data_plot.quantity.iqnt;
  const CaseStore& store = session.case_store;
  const QuantityRow* row = FindQuantity(iqnt);
  names.x = row != nullptr && row->need == QuantityNeed::y_cuts ? "Y" : "X";
  names.y = std::string(cQntMed(iqnt));
  names.title = fmt::format("Load Distribution of {}", cQntLong(iqnt));
  names.note = fmt::format(kStepNote, store.current_step,
                           Shown{store.time.at(1, store.current_step) * session.output.units.scales.T});
}

// While a cut is selected, for the key that leaves it out.
void DrawSelection(const Session& session, PlotDraw draw) {
  const DataPlotState& plot = session.data_plot;
  const int cut = plot.plot_component, iqnt = plot.quantity.iqnt;
  if (cut < 1) return;
  const float at = CutCoordinate(session.case_store, session.output, iqnt, cut);
  const float x[] = {at, at}, y[] = {draw.page.y_origin, draw.page.y_end};
  dgDash(draw);
  dgCurve(draw, x, y, 0);
  dgReset(draw, "dash");
  const PageNote notes[] = {{std::string(kSelection)},
                            {fmt::format(kSelected, cut, CurveLabel(session.case_store, session.output, iqnt, cut))}};
  PageNotes(draw, notes, plot.text_size, plot.annot_size);
  DrawLeftOut(session, draw);
}

void DrawLoad(Session& session, PlotDraw draw) {
  const DataPlotState& plot = session.data_plot;
  const DataPlotDerived& d = plot.derived;
  dgColour(draw, ColourOf(plot, kRangeColour));
  dgDash(draw);
  dgCurve(draw, d.cut, d.load_least, 0);
  dgCurve(draw, d.cut, d.load_largest, 0);
  dgReset(draw, "dash");
  dgColour(draw, ColourOf(plot, kPresentColour));
  dgThickness(draw, plot.line_thickness);
  if (plot.mark_every >= 0) dgCurve(draw, d.cut, d.load, 0);
  dgMarkerType(draw, kMark);
  dgMarkerScale(draw, plot.mark_size);
  if (plot.mark_every != 0) dgCurve(draw, d.cut, d.load, -std::abs(plot.mark_every));
  dgThickness(draw, 0);
  dgColour(draw, 1);
  DrawSelection(session, draw);
}

TableFault WriteLoad(Session& session, OutputFile& out) {
  return TableFaultOf(LoadDistFil(session.platform.console, session.output, session.data_plot.quantity.iqnt,
                                  session.case_store.current_step, session.case_store, out));
}

}  // namespace

const PlotType kLoadPlot{
    PlotKind::load_dist,
    true,
    "Enter file name for distribution of",
    "Load distribution data written to file",
    PrepareLoad,
    LoadCurves,
    nullptr,
    LoadNames,
    DrawLoad,
    WriteLoad,
};

}  // namespace zaview
