// Autocovariance and autocorrelation of a record, or averaged over an ensemble, with the time over which samples depend
// on each other.
#include <algorithm>
#include <array>
#include <cstddef>
#include <new>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "base/number_format.h"
#include "base/table_text.h"
#include "case/quantity_catalogue.h"
#include "stats/ensemble_stats.h"
#include "stats/tables/autocorrelation_table.h"
#include "stats/tables/ensemble_data.h"
#include "stats/tables/ensemble_table.h"
#include "views/data_plot/plot_parts.h"
#include "views/data_plot/plot_type.h"
#include "views/data_plot/plot_write.h"

namespace zaview {

namespace {

constexpr int kEnvelopeColour = 9, kCutoffColour = 1;
constexpr std::size_t kBlock = 65536;  // bytes of rows gathered for one write

int ComponentOf(const DataPlotState& plot) {
  return std::max(1, plot.plot_component);
}

QuantityRequest CurveRequest(const DataPlotState& plot) {
  return RequestOf(plot, ComponentOf(plot));
}

std::string CurveName(const Session& session) {
  const int iqnt = session.data_plot.quantity.iqnt;
  return fmt::format("{}, {}", QuantityLabel(session.case_store, iqnt),
                     CurveLabel(session.case_store, session.output, iqnt, ComponentOf(session.data_plot)));
}

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

TableFault MakeRecord(Session& session, DataPlotDerived& d) {
  const Console& console = session.platform.console;
  const QuantityRequest request = CurveRequest(session.data_plot);
  AutocorrelationCurves curves;
  TableFault fault = MakeAutocorrelation(console, session.output, request, session.case_store, curves);
  if (fault != TableFault::none) return fault;
  // The dependence is that of the record as the statistics take it, whatever the sampling rate of the plot.
  EnsembleStore none;
  StatisticsState alone;
  fault = UpdateDependence(console, session.output, request, {session.case_store, none}, alone);
  if (fault != TableFault::none) return fault;
  TakePlaces(curves, curves.upper, d.env_lag, d.env_R);
  TakePlaces(curves, curves.lower, d.low_lag, d.low_R);
  d.lag = std::move(curves.dtau);
  d.correlation = std::move(curves.R);
  d.variance = curves.R0 > 0.0F ? curves.R0 : 1.0F;
  d.ndti = alone.dependence.ndti;
  d.dti = alone.dependence.dti;
  return TableFault::none;
}

TableFault MakeEnsemble(Session& session, DataPlotDerived& d) {
  const EnsembleCases cases{session.case_store, session.ensemble};
  StatisticsState& state = session.statistics;
  const TableFault fault =
      UpdateDependence(session.platform.console, session.output, CurveRequest(session.data_plot), cases, state);
  if (fault != TableFault::none) return fault;
  EnsembleAutoCov autocov;
  CalcEnsembleAutoCov(SamplesOf(state.ensemble), session.output.statistics.autocorrelation_cutoff, true, autocov);
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
  return TableFault::none;
}

bool Prepare(Session& session) {
  DataPlotState& plot = session.data_plot;
  DataPlotDerived& d = plot.derived;
  if (!plot.redo_cov && d.correlation_of == plot.kind) return true;
  d.correlation_of = PlotKind::none;
  TableFault fault = TableFault::no_memory;
  try {
    fault = plot.of_ensemble ? MakeEnsemble(session, d) : MakeRecord(session, d);
  } catch (const std::bad_alloc&) {
  }
  if (!SayTableFault(session, fault)) return false;
  if (plot.kind == PlotKind::autocovariance)
    for (std::vector<float>* values : {&d.correlation, &d.env_R, &d.low_R})
      for (float& value : *values) value = value * d.variance;
  d.correlation_of = plot.kind;
  plot.redo_cov = false;
  return true;
}

void Curves(const Session& session, std::vector<DrawnCurve>& curves) {
  const DataPlotDerived& d = session.data_plot.derived;
  curves.push_back({ComponentOf(session.data_plot), d.lag, d.correlation});
}

// From the first lag to the last.
void FitCovariance(const Session& session, PlotLimits& limits) {
  limits = PlotLimits{};
  if (FitAxes(session, FitOver::all_steps, limits)) RoundY(session.data_plot, limits);
}

void FitCorrelation(const Session& session, PlotLimits& limits) {
  FitCovariance(session, limits);
  limits.y_min = -1.0F;
  limits.y_step = 0.25F;
  limits.y_max = 1.0F;
}

void Names(const Session& session, std::string_view title, PlotNames& names) {
  names.x = "dTime";
  names.y = "Rx";
  names.title =
      fmt::format("{}{}: {}", session.data_plot.of_ensemble ? "Ensemble-Averaged " : "", title, CurveName(session));
}

void CovarianceNames(const Session& session, PlotNames& names) {
  Names(session, "Autocovariance", names);
  names.y =
      CurveLabel(session.case_store, session.output, session.data_plot.quantity.iqnt, ComponentOf(session.data_plot));
}

void CorrelationNames(const Session& session, PlotNames& names) {
  Names(session, "Autocorrelation", names);
}

// ---- Drawing
void DrawEnvelopes(const DataPlotState& plot, PlotDraw draw) {
  const DataPlotDerived& d = plot.derived;
  dgColour(draw, ColourOf(plot, kEnvelopeColour));
  DrawSolid(draw, d.env_lag, d.env_R);
  DrawSolid(draw, d.low_lag, d.low_R);
}

// Along the cut-off to the dependence time, and down there; to the end where the cut-off isn't reached.
void DrawCutoff(const Session& session, PlotDraw draw) {
  const DataPlotState& plot = session.data_plot;
  const float scale = plot.kind == PlotKind::autocovariance ? plot.derived.variance : 1.0F;
  const float cutoff = session.output.statistics.autocorrelation_cutoff * scale;
  const bool reached = plot.derived.ndti > 0;
  const float to = reached ? plot.derived.dti : std::max(plot.limits.x_max, plot.limits.x_min);
  const std::array<float, 3> x = {0.0F, to, to}, y = {cutoff, cutoff, 0.0F};
  dgColour(draw, kCutoffColour);
  dgDash(draw);
  dgCurve(draw, std::span(x).first(reached ? 3 : 2), std::span(y).first(reached ? 3 : 2), 0);
  dgReset(draw, "dash");
}

void Draw(Session& session, PlotDraw draw) {
  const DataPlotState& plot = session.data_plot;
  const DataPlotDerived& d = plot.derived;
  DrawCurves(session, draw);
  DrawEnvelopes(plot, draw);
  DrawCutoff(session, draw);
  dgColour(draw, 1);
  const bool covariance = plot.kind == PlotKind::autocovariance;
  const PageNote notes[] = {{covariance ? "AutoCovariance Function" : "AutoCorrelation Function"},
                            {fmt::format("Cutoff value = {}", Shown{session.output.statistics.autocorrelation_cutoff})},
                            {fmt::format("Cutoff time  = {}", Shown{d.dti})},
                            {fmt::format("Cutoff steps = {}", d.ndti)}};
  PageNotes(draw, notes, plot.text_size, plot.annot_size);
}

// ---- Tables
TableFault WriteCorrelation(Session& session, OutputFile& out) {
  const Console& console = session.platform.console;
  const QuantityRequest request = CurveRequest(session.data_plot);
  if (!session.data_plot.of_ensemble)
    return WriteAutocorrelation(console, session.output, request, session.case_store, out);
  return EnsembleAutoCorrelation(console, session.output, request, false, {session.case_store, session.ensemble},
                                 session.statistics, out);
}

void WriteRows(const DataPlotDerived& d, const TableLayout& layout, std::string& text, OutputFile& out) {
  for (std::size_t i = 0; i < d.lag.size(); ++i) {
    const float cells[] = {d.lag[i], d.correlation[i]};
    AppendRow(text, layout, cells);
    if (text.size() < kBlock) continue;
    WriteOutput(out, text);
    text.clear();
  }
  WriteOutput(out, text);
}

TableFault WriteCovariance(Session& session, OutputFile& out) {
  if (!Prepare(session)) return TableFault::said;
  const std::string names[] = {"dTime", "Rx"};
  const TableLayout layout = LayoutFor(session.output.writing.separator, names);
  std::string text = fmt::format("{}Autocovariance of {} for ZAVO file {}\n",
                                 session.data_plot.of_ensemble ? "Ensemble Averaged " : "", CurveName(session),
                                 session.case_store.file_name);
  AppendHeading(text, layout, names);
  WriteRows(session.data_plot.derived, layout, text, out);
  return TableFault::none;
}

}  // namespace

const PlotType kAutocovariancePlot{
    PlotKind::autocovariance,
    false,
    "Enter file name for writing autocovariance of",
    "Autocovariance data written to file",
    Prepare,
    Curves,
    FitCovariance,
    CovarianceNames,
    Draw,
    WriteCovariance,
};

const PlotType kAutocorrelationPlot{
    PlotKind::autocorrelation,
    false,
    "Enter file name for writing autocorrelation of",
    "Autocorrelation data written to file",
    Prepare,
    Curves,
    FitCorrelation,
    CorrelationNames,
    Draw,
    WriteCorrelation,
};

}  // namespace zaview
