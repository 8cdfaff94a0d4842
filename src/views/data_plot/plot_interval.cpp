// A statistic of each realization with its confidence interval, and that of the ensemble.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "base/message.h"
#include "base/number_format.h"
#include "base/table_text.h"
#include "case/quantity_catalogue.h"
#include "gks/plot/page_text.h"
#include "stats/interval_cells.h"
#include "stats/tables/ensemble_data.h"
#include "stats/tables/ensemble_table.h"
#include "stats/tables/find_intervals.h"
#include "views/data_plot/plot_type.h"
#include "views/data_plot/plot_write.h"
#include "views/state/axes_limits.h"
#include "views/state/plot_kinds.h"

namespace zaview {

namespace {

constexpr std::string_view kTooManySkipped =
    "ERR495 - Too many steps skipped or trimmed in confidence interval calculation";
constexpr std::string_view kLogicError = "LOGIC ERROR";
constexpr std::string_view kInterval = "Confidence Interval: {:>8} to {:>8} (Prob= {})";
constexpr std::string_view kBootstrap = "Bootstrap of {} resamples, seed {}";
constexpr std::string_view kEnsembleShort = "Confidence Interval: records too short for it (Prob= {})";
constexpr std::string_view kRecordsShort = "{} of {} records too short for an interval";
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

// ---- Data
bool TakeRecords(const PlotSource& source, const StatisticName& statistic, DataPlotDerived& d) {
  const std::vector<std::vector<float>>& X = source.statistics.ensemble.X;
  for (std::vector<float>* column : {&d.record_x, &d.record_low, &d.record_estimate, &d.record_high}) column->clear();
  for (std::size_t i = 0; i < X.size(); ++i) {
    if (X[i].empty()) continue;
    IntervalValues values;
    if (!FindIntervals(source.platform, source.output.statistics, statistic, X[i], values)) return false;
    const auto [half_width, low, estimate, high] = IntervalCellsOf(statistic.number, values);
    d.record_x.push_back(static_cast<float>(i + 1));
    d.record_low.push_back(low);
    d.record_estimate.push_back(estimate);
    d.record_high.push_back(high);
  }
  return true;
}

DataFault MakeIntervals(const PlotSource& source, DataPlotState& plot) {
  StatisticsState& state = source.statistics;
  const DataFault fault = LoadEnsemble(source.work(), RequestOf(plot, OneComponent(plot)), kTooManySkipped);
  if (fault != DataFault::none) return fault;
  StatisticName statistic;
  statistic.number = std::clamp(plot.statistic, 1, static_cast<int>(std::size(kWords)));
  statistic.interval = true;
  IntervalValues values;
  if (!TakeRecords(source, statistic, plot.derived) ||
      !FindEnsembleIntervals(source.platform, source.output.statistics, statistic, SamplesOf(state.ensemble),
                             state.nmany, values)) {
    if (source.output.statistics.interval_method == IntervalMethod::formula) SayLine(source.console(), kLogicError);
    return DataFault::said;
  }
  const auto [half_width, low, estimate, high] = IntervalCellsOf(statistic.number, values);
  plot.derived.low = low;
  plot.derived.estimate = estimate;
  plot.derived.high = high;
  return DataFault::none;
}

bool Make(const PlotSource& source, DataPlotState& plot) {
  const DataFault fault = Guarded([&] { return MakeIntervals(source, plot); }, DataFault::no_memory);
  return SayTableFault(source, plot, fault);
}

void IntervalCurves(const DataPlotState& plot, std::vector<DrawnCurve>& curves) {
  const DataPlotDerived& d = plot.derived;
  for (const std::vector<float>* values : {&d.record_estimate, &d.record_low, &d.record_high})
    curves.push_back({1, d.record_x, *values});
}

void FitIntervals(const DataPlotState& plot, PlotLimits& limits) {
  const DataPlotDerived& d = plot.derived;
  limits = PlotLimits{};
  if (!FitAxes(plot, FitOver::all_steps, limits)) return;
  const int n = static_cast<int>(d.record_x.back());
  limits.x_min = 0.0F;
  limits.x_step = static_cast<float>(n / kTicks + 1);
  limits.x_max = static_cast<float>(n + 1);
  limits.y_min = std::min(limits.y_min, d.low);
  limits.y_max = std::max(limits.y_max, d.high);
  RoundY(limits, LengthOf(plot).y);
}

void IntervalNames(const PlotFacts& facts, const DataPlotState& plot, PlotNames& names) {
  names.x = "Realization";
  names.y = WordsOf(plot).axis;
  names.title = fmt::format("{}: {}", WordsOf(plot).name, CurveName(facts, plot));
}

// ---- Drawing
void DrawRecords(const DataPlotState& plot, PlotDraw draw) {
  const DataPlotDerived& d = plot.derived;
  dgColour(draw, ColourOf(plot, kRecordColour));
  for (std::size_t i = 0; i < d.record_x.size(); ++i) {
    if (std::isnan(d.record_low[i])) continue;  // too short for an interval
    dgArrowWorld(draw, d.record_x[i], d.record_estimate[i], d.record_x[i], d.record_low[i], kArrow);
    dgArrowWorld(draw, d.record_x[i], d.record_estimate[i], d.record_x[i], d.record_high[i], kArrow);
  }
  dgMarkerType(draw, kFilledCircle);
  dgMarkerScale(draw, kMarkSize * plot.mark_size);
  dgCurve(draw, d.record_x, d.record_estimate, -1);
}

void DrawEnsemble(const DataPlotState& plot, PlotDraw draw) {
  const auto across = [&](float value) {
    if (std::isnan(value)) return;
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

void DrawIntervals(const PlotFacts&, const DataPlotState& plot, PlotDraw draw) {
  dgCurveThickness(draw, plot.line_thickness);
  DrawEnsemble(plot, draw);
  DrawRecords(plot, draw);
  dgThickness(draw, 0);
  dgColour(draw, 1);
}

void AddBootstrapNotes(const StatisticSettings& settings, const DataPlotDerived& d, std::vector<PageNote>& notes) {
  notes.push_back({fmt::format(kBootstrap, ResamplesInForce(settings), settings.bootstrap_seed)});
  const auto none = std::count_if(d.record_low.begin(), d.record_low.end(), [](float x) { return std::isnan(x); });
  if (none > 0) notes.push_back({fmt::format(kRecordsShort, none, d.record_low.size())});
}

void IntervalNotes(const PlotFacts& facts, const DataPlotState& plot, std::vector<PageNote>& notes) {
  const DataPlotDerived& d = plot.derived;
  constexpr int kDashed = 1;
  const int colour = ColourOf(plot, kEnsembleColour);
  const std::string_view etc = facts.ensemble.nrec > 1 ? ", etc" : "";
  const StatisticSettings& settings = facts.output.statistics;
  const Shown probability{settings.confidence_probability};
  if (std::isnan(d.low)) notes.push_back({fmt::format(kEnsembleShort, probability), colour});
  else notes.push_back({fmt::format(kInterval, ShortNumber(d.low), ShortNumber(d.high), probability), colour, kDashed});
  notes.push_back({fmt::format(kEstimate, ShortNumber(d.estimate)), colour});
  notes.push_back({std::string(WordsOf(plot).name)});
  if (settings.interval_method == IntervalMethod::bootstrap) AddBootstrapNotes(settings, d, notes);
  notes.push_back({fmt::format("{}{}", facts.store.file_name, etc)});
}

// A row a realization, and the ensemble.
DataFault WriteRealizations(const PlotSource& source, const DataPlotState& plot, OutputFile& out) {
  const PlotFacts facts{source.output, source.store, source.ensemble, source.statistics};
  const DataPlotDerived& d = plot.derived;
  const std::string names[] = {"Realization", " Low (est-CI)", "  Estimate   ", "High (est+CI)"};
  TableLayout layout = LayoutFor(source.output.writing.separator, names);
  layout.no_number = NoInterval(source.output.statistics);
  std::string text = fmt::format("{} with Confidence Interval; {}\n", WordsOf(plot).name, CurveName(facts, plot)) +
                     IntervalMethodLines(source.output.statistics);
  AppendHeading(text, layout, names);
  for (std::size_t i = 0; i < d.record_x.size(); ++i) {
    const float cells[] = {d.record_low[i], d.record_estimate[i], d.record_high[i]};
    AppendLabelledRow(text, layout, fmt::format("{:>{}}", d.record_x[i], layout.widths[0]), cells);
  }
  const float cells[] = {d.low, d.estimate, d.high};
  AppendLabelledRow(text, layout, fmt::format("{:<{}}", "Ensemble", layout.widths[0]), cells);
  WriteOutput(out, text);
  return DataFault::none;
}

}  // namespace

const PlotType kIntervalPlot{
    .kind = PlotKind::interval,
    .file_prompt = "Enter file name for writing confidence intervals of",
    .written = "Confidence interval data written to file",
    .make = Make,
    .curves = IntervalCurves,
    .fit = FitIntervals,
    .names = IntervalNames,
    .notes = IntervalNotes,
    .draw = DrawIntervals,
    .write = WriteRealizations,
};

}  // namespace zaview
