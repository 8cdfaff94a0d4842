// Autocovariance and autocorrelation of a record, or averaged over an ensemble, with the time over which samples depend
// on each other.
#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "base/number_format.h"
#include "base/table_text.h"
#include "case/quantity_catalogue.h"
#include "gks/plot/page_text.h"
#include "stats/ensemble_stats.h"
#include "stats/tables/autocorrelation_table.h"
#include "stats/tables/ensemble_data.h"
#include "stats/tables/ensemble_table.h"
#include "views/data_plot/plot_type.h"
#include "views/data_plot/plot_write.h"
#include "views/state/axes_limits.h"
#include "views/state/plot_kinds.h"

namespace zaview {

namespace {

constexpr int kEnvelopeColour = 9, kCutoffColour = 1;
constexpr std::string_view kNotReached = "not reached";

// ---- Data
void TakePlaces(const AutocorrelationCurves& curves, const std::vector<int>& places, std::vector<float>& lag,
                std::vector<float>& R) {
  lag.clear();
  R.clear();
  for (const int place : places) {
    lag.push_back(curves.dtau[static_cast<std::size_t>(place)]);
    R.push_back(curves.R[static_cast<std::size_t>(place)]);
  }
}

DataFault MakeRecord(const PlotSource& source, const QuantityRequest& request, DataPlotDerived& d) {
  AutocorrelationCurves curves;
  DataFault fault = MakeAutocorrelation(source.work(), request, curves);
  if (fault != DataFault::none) return fault;
  // The dependence is that of the record as the statistics take it, whatever the sampling rate of the plot.
  EnsembleStore none;
  StatisticsState alone;
  fault = UpdateDependence({source.platform, source.output, {source.store, none}, alone}, request);
  if (fault != DataFault::none) return fault;
  TakePlaces(curves, curves.upper, d.env_lag, d.env_R);
  TakePlaces(curves, curves.lower, d.low_lag, d.low_R);
  d.lag = std::move(curves.dtau);
  d.correlation = std::move(curves.R);
  d.variance = curves.R0 > 0.0F ? curves.R0 : 1.0F;
  d.ndti = alone.dependence.ndti;
  d.dti = alone.dependence.dti;
  return DataFault::none;
}

DataFault MakeEnsemble(const PlotSource& source, const QuantityRequest& request, DataPlotDerived& d) {
  StatisticsState& state = source.statistics;
  const DataFault fault = UpdateDependence(source.work(), request);
  if (fault != DataFault::none) return fault;
  EnsembleAutoCov autocov;
  CalcEnsembleAutoCov(SamplesOf(state.ensemble), source.output.statistics.autocorrelation_cutoff, true, autocov);
  d.correlation = std::move(autocov.ratio);
  d.lag.resize(d.correlation.size());
  for (std::size_t k = 0; k < d.lag.size(); ++k) d.lag[k] = static_cast<float>(k) * state.ensemble.dt;
  d.env_lag = std::move(autocov.env_lag);
  for (float& lag : d.env_lag) lag = lag * state.ensemble.dt;
  d.env_R = std::move(autocov.env_R);
  d.low_lag.clear();
  d.low_R.clear();
  d.variance = autocov.Rax0 > 0.0F ? autocov.Rax0 : 1.0F;
  d.ndti = state.dependence.ndti;
  d.dti = state.dependence.dti;
  return DataFault::none;
}

bool Make(const PlotSource& source, DataPlotState& plot) {
  DataPlotDerived& d = plot.derived;
  const QuantityRequest request = RequestOf(plot, OneComponent(plot));
  const DataFault fault =
      Guarded([&] { return plot.of_ensemble ? MakeEnsemble(source, request, d) : MakeRecord(source, request, d); },
              DataFault::no_memory);
  if (!SayTableFault(source, plot, fault)) return false;
  if (plot.kind == PlotKind::autocovariance)
    for (std::vector<float>* values : {&d.correlation, &d.env_R, &d.low_R})
      for (float& value : *values) value = value * d.variance;
  return true;
}

void Curves(const DataPlotState& plot, std::vector<DrawnCurve>& curves) {
  curves.push_back({OneComponent(plot), plot.derived.lag, plot.derived.correlation});
}

// From the first lag to the last.
void FitCovariance(const DataPlotState& plot, PlotLimits& limits) {
  limits = PlotLimits{};
  if (FitAxes(plot, FitOver::all_steps, limits)) RoundY(limits, LengthOf(plot).y);
}

void FitCorrelation(const DataPlotState& plot, PlotLimits& limits) {
  FitCovariance(plot, limits);
  limits.y_min = -1.0F;
  limits.y_step = 0.25F;
  limits.y_max = 1.0F;
}

void Names(const PlotFacts& facts, const DataPlotState& plot, std::string_view title, PlotNames& names) {
  names.x = "dTime";
  names.y = "Rx";
  names.title = fmt::format("{}{}: {}", plot.of_ensemble ? "Ensemble-Averaged " : "", title, CurveName(facts, plot));
}

void CovarianceNames(const PlotFacts& facts, const DataPlotState& plot, PlotNames& names) {
  Names(facts, plot, "Autocovariance", names);
  names.y = CurveLabel(facts.store, facts.output, plot.quantity.iqnt, OneComponent(plot));
}

void CorrelationNames(const PlotFacts& facts, const DataPlotState& plot, PlotNames& names) {
  Names(facts, plot, "Autocorrelation", names);
}

// ---- Drawing
void DrawEnvelopes(const DataPlotState& plot, PlotDraw draw) {
  const DataPlotDerived& d = plot.derived;
  dgColour(draw, ColourOf(plot, kEnvelopeColour));
  DrawThinned(draw, d.env_lag, d.env_R);
  DrawThinned(draw, d.low_lag, d.low_R);
}

float CutoffOf(const DataPlotState& plot) {
  const float scale = plot.kind == PlotKind::autocovariance ? plot.derived.variance : 1.0F;
  return plot.derived.made_of.statistics.autocorrelation_cutoff * scale;
}

// Along the cut-off to the dependence time, and down there; to the end where the cut-off isn't reached.
void DrawCutoff(const DataPlotState& plot, PlotDraw draw) {
  const float cutoff = CutoffOf(plot);
  const bool reached = plot.derived.ndti > 0;
  const float to = reached ? plot.derived.dti : std::max(plot.axes.limits.x_max, plot.axes.limits.x_min);
  const std::array<float, 3> x = {0.0F, to, to}, y = {cutoff, cutoff, 0.0F};
  dgColour(draw, kCutoffColour);
  dgDash(draw);
  dgCurve(draw, std::span(x).first(reached ? 3 : 2), std::span(y).first(reached ? 3 : 2), 0);
  dgReset(draw, "dash");
}

void Draw(const PlotFacts&, const DataPlotState& plot, PlotDraw draw) {
  DrawCurves(plot, draw);
  DrawEnvelopes(plot, draw);
  DrawCutoff(plot, draw);
  dgColour(draw, 1);
}

void Notes(const PlotFacts&, const DataPlotState& plot, std::vector<PageNote>& notes) {
  const DataPlotDerived& d = plot.derived;
  const bool covariance = plot.kind == PlotKind::autocovariance, reached = d.ndti > 0;
  notes.push_back({covariance ? "AutoCovariance Function" : "AutoCorrelation Function"});
  notes.push_back({fmt::format("Cutoff value = {}", Shown{d.made_of.statistics.autocorrelation_cutoff})});
  notes.push_back({fmt::format("Cutoff time  = {}", reached ? fmt::format("{}", Shown{d.dti}) : kNotReached)});
  notes.push_back({fmt::format("Cutoff steps = {}", reached ? fmt::format("{}", d.ndti) : kNotReached)});
}

// ---- Tables
DataFault WriteCorrelation(const PlotSource& source, const DataPlotState& plot, OutputFile& out) {
  const QuantityRequest request = RequestOf(plot, OneComponent(plot));
  if (!plot.of_ensemble) return WriteAutocorrelation(source.work(), request, out);
  return EnsembleAutoCorrelation(source.work(), request, false, out);
}

void WriteRows(const DataPlotDerived& d, const TableLayout& layout, std::string& text, OutputFile& out) {
  for (std::size_t i = 0; i < d.lag.size(); ++i) {
    const float cells[] = {d.lag[i], d.correlation[i]};
    AppendRow(text, layout, cells);
    WriteGathered(out, text);
  }
  WriteOutput(out, text);
}

DataFault WriteCovariance(const PlotSource& source, const DataPlotState& plot, OutputFile& out) {
  const std::string names[] = {"dTime", "Rx"};
  const TableLayout layout = LayoutFor(source.output.writing.separator, names);
  const PlotFacts facts{source.output, source.store, source.ensemble, source.statistics};
  std::string text =
      fmt::format("{}Autocovariance of {} for ZAVO file {}\n", plot.of_ensemble ? "Ensemble Averaged " : "",
                  CurveName(facts, plot), source.store.file_name);
  AppendHeading(text, layout, names);
  WriteRows(plot.derived, layout, text, out);
  return DataFault::none;
}

}  // namespace

const PlotType kAutocovariancePlot{
    .kind = PlotKind::autocovariance,
    .file_prompt = "Enter file name for writing autocovariance of",
    .written = "Autocovariance data written to file",
    .make = Make,
    .curves = Curves,
    .fit = FitCovariance,
    .names = CovarianceNames,
    .notes = Notes,
    .draw = Draw,
    .write = WriteCovariance,
};

const PlotType kAutocorrelationPlot{
    .kind = PlotKind::autocorrelation,
    .file_prompt = "Enter file name for writing autocorrelation of",
    .written = "Autocorrelation data written to file",
    .make = Make,
    .curves = Curves,
    .fit = FitCorrelation,
    .names = CorrelationNames,
    .notes = Notes,
    .draw = Draw,
    .write = WriteCorrelation,
};

}  // namespace zaview
