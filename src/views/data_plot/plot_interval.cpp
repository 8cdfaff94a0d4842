// A statistic of each realization with its confidence interval, and that of the ensemble.
#include <algorithm>
#include <cstddef>
#include <new>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "base/message.h"
#include "base/number_format.h"
#include "base/table_text.h"
#include "case/quantity_catalogue.h"
#include "stats/interval_cells.h"
#include "stats/tables/ensemble_data.h"
#include "stats/tables/ensemble_table.h"
#include "stats/tables/interval_table.h"
#include "views/data_plot/plot_parts.h"
#include "views/data_plot/plot_type.h"
#include "views/data_plot/plot_write.h"

namespace zaview {

namespace {

constexpr std::string_view kTooManySkipped =
    "ERR495 - Too many steps skipped or trimmed in confidence interval calculation";
constexpr std::string_view kLogicError = "LOGIC ERROR";
constexpr std::string_view kInterval = "Confidence Interval: {:>8} to {:>8} (Prob= {})";
constexpr std::string_view kEstimate = "Ensemble Estimate: {}";
constexpr int kRecordColour = 2, kEnsembleColour = 3;
constexpr int kArrow = 101;  // two strokes, their length a sixth of the arrow
constexpr int kFilledCircle = 15;
constexpr float kMarkSize = 1.5F;
constexpr int kTicks = 6;  // about, along the realizations

struct StatisticWords {
  std::string_view axis, name;
};
constexpr StatisticWords kWords[] = {
    {"Mean", "Mean"},
    {"St.dev", "Standard Deviation"},
    {"Variance", "Variance"},
    {"Sig.Amp", "Significant Amplitude"},
};

const StatisticWords& WordsOf(const DataPlotState& plot) {
  return kWords[static_cast<std::size_t>(std::clamp(plot.statistic, 1, static_cast<int>(std::size(kWords))) - 1)];
}

int ComponentOf(const DataPlotState& plot) {
  return std::max(1, plot.plot_component);
}

std::string CurveName(const Session& session) {
  const int iqnt = session.data_plot.quantity.iqnt;
  return fmt::format("{}, {}", QuantityLabel(session.case_store, iqnt),
                     CurveLabel(session.case_store, session.output, iqnt, ComponentOf(session.data_plot)));
}

// ---- Data
bool TakeRecords(Session& session, const StatisticName& statistic, DataPlotDerived& d) {
  const std::vector<std::vector<float>>& X = session.statistics.ensemble.X;
  for (std::vector<float>* column : {&d.record_x, &d.record_low, &d.record_estimate, &d.record_high}) column->clear();
  for (std::size_t i = 0; i < X.size(); ++i) {
    if (X[i].empty()) continue;
    IntervalValues values;
    if (!FindIntervals(session.platform.console, statistic, X[i], session.output.statistics.confidence_probability,
                       values))
      return false;
    const auto [half_width, low, estimate, high] = IntervalCellsOf(statistic.number, values);
    d.record_x.push_back(static_cast<float>(i + 1));
    d.record_low.push_back(low);
    d.record_estimate.push_back(estimate);
    d.record_high.push_back(high);
  }
  return true;
}

TableFault Make(Session& session, DataPlotDerived& d) {
  const DataPlotState& plot = session.data_plot;
  const Console& console = session.platform.console;
  StatisticsState& state = session.statistics;
  const TableFault fault = LoadEnsemble(console, session.output, RequestOf(plot, ComponentOf(plot)),
                                        {session.case_store, session.ensemble}, kTooManySkipped, state);
  if (fault != TableFault::none) return fault;
  StatisticName statistic;
  statistic.number = std::clamp(plot.statistic, 1, static_cast<int>(std::size(kWords)));
  statistic.interval = true;
  IntervalValues values;
  if (!TakeRecords(session, statistic, d) ||
      !FindEnsembleIntervals(console, statistic, SamplesOf(state.ensemble),
                             session.output.statistics.confidence_probability, state.nmany, values)) {
    SayLine(console, kLogicError);
    return TableFault::said;
  }
  const auto [half_width, low, estimate, high] = IntervalCellsOf(statistic.number, values);
  d.low = low;
  d.estimate = estimate;
  d.high = high;
  return TableFault::none;
}

bool PrepareIntervals(Session& session) {
  DataPlotState& plot = session.data_plot;
  if (!plot.redo_conf) return true;
  TableFault fault = TableFault::no_memory;
  try {
    fault = Make(session, plot.derived);
  } catch (const std::bad_alloc&) {
  }
  if (!SayTableFault(session, fault)) return false;
  plot.redo_conf = false;
  return true;
}

void IntervalCurves(const Session& session, std::vector<DrawnCurve>& curves) {
  const DataPlotDerived& d = session.data_plot.derived;
  for (const std::vector<float>* values : {&d.record_estimate, &d.record_low, &d.record_high})
    curves.push_back({1, d.record_x, *values});
}

void FitIntervals(const Session& session, PlotLimits& limits) {
  const DataPlotState& plot = session.data_plot;
  const DataPlotDerived& d = plot.derived;
  limits = PlotLimits{};
  if (!FitAxes(session, FitOver::all_steps, limits)) return;
  const int n = static_cast<int>(d.record_x.back());
  limits.x_min = 0.0F;
  limits.x_step = static_cast<float>(n / kTicks + 1);
  limits.x_max = static_cast<float>(n + 1);
  limits.y_min = std::min(limits.y_min, d.low);
  limits.y_max = std::max(limits.y_max, d.high);
  RoundY(plot, limits);
}

void IntervalNames(const Session& session, PlotNames& names) {
  names.x = "Realization";
  names.y = WordsOf(session.data_plot).axis;
  names.title = fmt::format("{}: {}", WordsOf(session.data_plot).name, CurveName(session));
}

// ---- Drawing
void DrawRecords(const DataPlotState& plot, PlotDraw draw) {
  const DataPlotDerived& d = plot.derived;
  dgColour(draw, ColourOf(plot, kRecordColour));
  for (std::size_t i = 0; i < d.record_x.size(); ++i) {
    dgArrowWorld(draw, d.record_x[i], d.record_estimate[i], d.record_x[i], d.record_low[i], kArrow);
    dgArrowWorld(draw, d.record_x[i], d.record_estimate[i], d.record_x[i], d.record_high[i], kArrow);
  }
  dgMarkerType(draw, kFilledCircle);
  dgMarkerScale(draw, kMarkSize * plot.mark_size);
  dgCurve(draw, d.record_x, d.record_estimate, -1);
}

void DrawEnsemble(const DataPlotState& plot, PlotDraw draw) {
  const auto across = [&](float value) {
    const float x[] = {draw.page.x_origin, draw.page.x_end}, y[] = {value, value};
    dgCurve(draw, x, y, 0);
  };
  dgColour(draw, ColourOf(plot, kEnsembleColour));
  across(plot.derived.estimate);
  dgDash(draw);
  across(plot.derived.low);
  across(plot.derived.high);
  dgReset(draw, "dash");
}

void DrawIntervals(Session& session, PlotDraw draw) {
  const DataPlotState& plot = session.data_plot;
  const DataPlotDerived& d = plot.derived;
  dgThickness(draw, plot.line_thickness);
  DrawEnsemble(plot, draw);
  DrawRecords(plot, draw);
  dgThickness(draw, 0);
  dgColour(draw, 1);
  const std::string_view etc = session.ensemble.nrec > 1 ? ", etc" : "";
  const int ensemble = ColourOf(plot, kEnsembleColour);
  const PageNote notes[] = {{fmt::format(kInterval, ShortNumber(d.low), ShortNumber(d.high),
                                         Shown{session.output.statistics.confidence_probability}),
                             ensemble},
                            {fmt::format(kEstimate, ShortNumber(d.estimate)), ensemble},
                            {std::string(WordsOf(plot).name)},
                            {fmt::format("{}{}", session.case_store.file_name, etc)}};
  PageNotes(draw, notes, plot.text_size, plot.annot_size);
}

// A row a realization, and the ensemble.
TableFault WriteRealizations(Session& session, OutputFile& out) {
  if (!PrepareIntervals(session)) return TableFault::said;
  const DataPlotState& plot = session.data_plot;
  const DataPlotDerived& d = plot.derived;
  const std::string names[] = {"Realization", " Low (est-CI)", "  Estimate   ", "High (est+CI)"};
  const TableLayout layout = LayoutFor(session.output.writing.separator, names);
  std::string text =
      fmt::format("{} with Confidence Interval; {}\nConfidence Interval Probability= {}\n", WordsOf(plot).name,
                  CurveName(session), Shown{session.output.statistics.confidence_probability});
  AppendHeading(text, layout, names);
  for (std::size_t i = 0; i < d.record_x.size(); ++i) {
    const float cells[] = {d.record_low[i], d.record_estimate[i], d.record_high[i]};
    AppendLabelledRow(text, layout, fmt::format("{:>{}}", d.record_x[i], layout.widths[0]), cells);
  }
  const float cells[] = {d.low, d.estimate, d.high};
  AppendLabelledRow(text, layout, fmt::format("{:<{}}", "Ensemble", layout.widths[0]), cells);
  WriteOutput(out, text);
  return TableFault::none;
}

}  // namespace

const PlotType kIntervalPlot{
    PlotKind::interval,
    false,
    "Enter file name for writing confidence intervals of",
    "Confidence interval data written to file",
    PrepareIntervals,
    IntervalCurves,
    FitIntervals,
    IntervalNames,
    DrawIntervals,
    WriteRealizations,
};

}  // namespace zaview
