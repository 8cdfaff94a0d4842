#include "stats/tables/ensemble_data.h"

#include <algorithm>

#include "base/message.h"
#include "base/number_format.h"
#include "case/quantity_catalogue.h"
#include "control/input_scales.h"
#include "stats/ensemble_stats.h"

namespace zaview {
namespace {

inline constexpr std::string_view kTooManySkipped =
    "ERR495 - Too many steps skipped or trimmed in autocorrelation setup";
inline constexpr std::string_view kNoMemory = "ERR493 - Error allocating data for the ensemble";

inline constexpr std::string_view kNotReached =
    "Autocorrelation cutoff {} not reached: the dependence time is not known, 0 is used";

constexpr int kWaveAtCg = 25, kWaveAtOrigin = 26;

std::string_view PurposeOf(int iqnt) {
  if (iqnt == kWaveAtCg) return "Calculating Ensemble Elevations at CG...";
  if (iqnt == kWaveAtOrigin) return "Calculating Ensemble Elevations at Origin...";
  return IsPointQuantity(iqnt) ? "Calculating ensemble motion for ship fixed point..." : "";
}

EnsembleKey KeyOfAll(const OutputSettings& settings, const QuantityRequest& request, const EnsembleCases& cases) {
  EnsembleKey key = KeyOf(settings, request, cases.current);
  key.records.clear();
  for (int irec = 1; irec <= cases.count(); ++irec) key.records.push_back(RecordOf(cases.record(irec)));
  return key;
}

float SampleInterval(const CaseStore& c, const OutputSettings& settings) {
  const double step = c.control.DTH * InputScalesOf(c.control).time * static_cast<double>(settings.units.scales.T);
  return static_cast<float>(step * std::max(1, settings.reading.step_stride));
}

// Appends one record. An empty one if no point is left of it.
DataFault LoadRecord(const Console& console, const OutputSettings& settings, const QuantityRequest& request, int skip,
                     CaseStore& record, EnsembleData& data) {
  PlotData plot;
  const DataFault fault = SetPlotData(console, settings, request, record, plot);
  if (fault != DataFault::none) return fault == DataFault::no_wave ? DataFault::said : fault;
  if (plot.y.empty()) return DataFault::not_valid;
  const StatRange range = StatPoints(record, settings, skip);
  const auto first = range.first;
  const auto n = plot.n > 0 ? range.n : 0;
  data.X.emplace_back(plot.y[0].begin() + first, plot.y[0].begin() + first + n);
  data.t.emplace_back(plot.x.begin() + first, plot.x.begin() + first + n);
  data.first_step.push_back(record.first_step + first * data.stride);
  return DataFault::none;
}

DataFault LoadRecords(const Console& console, const OutputSettings& settings, const QuantityRequest& request,
                      const EnsembleCases& cases, EnsembleData& data) {
  const std::string_view purpose = PurposeOf(request.iqnt);
  if (!purpose.empty()) SayLine(console, purpose);
  for (int irec = 1; irec <= cases.count(); ++irec) {
    const DataFault fault = LoadRecord(console, settings, request, data.key.skip_initial, cases.record(irec), data);
    if (fault != DataFault::none) return fault;
  }
  if (!purpose.empty()) SayLine(console, "done:");
  return DataFault::none;
}

// Unless the records in store are those asked for.
DataFault LoadAnew(const StatWork& work, const QuantityRequest& one) {
  const auto& [platform, settings, cases, state] = work;
  EnsembleKey key = KeyOfAll(settings, one, cases);
  if (state.ensemble.loaded && state.ensemble.key == key) return DataFault::none;
  state.dependence = {};
  state.ensemble = {};
  state.ensemble.key = std::move(key);
  state.ensemble.stride = std::max(1, settings.reading.step_stride);
  state.ensemble.dt = SampleInterval(cases.current, settings);
  const DataFault fault = LoadRecords(platform.console, settings, one, cases, state.ensemble);
  state.ensemble.loaded = fault == DataFault::none;
  return fault;
}

std::vector<std::span<const float>> ViewsOf(const std::vector<std::vector<float>>& records) {
  return {records.begin(), records.end()};
}

}  // namespace

int EnsembleCases::count() const {
  return std::max(1, ensemble.nrec);
}

CaseStore& EnsembleCases::record(int irec) const {
  const bool held = irec != ensemble.irec && irec >= 1 && static_cast<std::size_t>(irec) <= ensemble.record.size();
  return held ? ensemble.record[static_cast<std::size_t>(irec - 1)] : current;
}

EnsembleKey KeyOf(const OutputSettings& settings, const QuantityRequest& request, const CaseStore& current) {
  const int skip = std::max(0, current.skip_effective);
  return {request.iqnt, request.curve, request.point, request.missile, skip, settings, {RecordOf(current)}};
}

EnsembleKey::Record RecordOf(const CaseStore& record) {
  return {record.serial, record.first_step, record.last_step};
}

DataFault LoadEnsemble(const StatWork& work, const QuantityRequest& request, std::string_view too_many_skipped) {
  const auto& [platform, settings, cases, state] = work;
  const Console& console = platform.console;
  QuantityRequest one = request;
  one.curve = std::max(1, request.curve);
  one.wave_overlay = false;
  const DataFault fault = MakeOrSay(console, kNoMemory, [&] { return LoadAnew(work, one); });
  if (fault != DataFault::none) {
    state.ensemble = {};
    return fault;
  }
  const auto& X = state.ensemble.X;
  if (std::any_of(X.begin(), X.end(), [](const std::vector<float>& x) { return !x.empty(); })) return DataFault::none;
  SayLine(console, too_many_skipped);
  return DataFault::said;
}

std::vector<std::span<const float>> SamplesOf(const EnsembleData& data) {
  return ViewsOf(data.X);
}

std::vector<std::span<const float>> TimesOf(const EnsembleData& data) {
  return ViewsOf(data.t);
}

std::int64_t SampleCount(const EnsembleData& data) {
  std::int64_t count = 0;
  for (const std::vector<float>& x : data.X) count += static_cast<std::int64_t>(x.size());
  return count;
}

float MeanOfAll(const EnsembleData& data) {
  float sum = 0;
  for (const std::vector<float>& record : data.X)
    for (const float x : record) sum += x;
  const std::int64_t count = SampleCount(data);
  return count == 0 ? 0.0F : sum / static_cast<float>(count);
}

DataFault UpdateDependence(const StatWork& work, const QuantityRequest& request) {
  const Console& console = work.platform.console;
  const float cutoff = work.settings.statistics.autocorrelation_cutoff;
  const DataFault fault = LoadEnsemble(work, request, kTooManySkipped);
  if (fault != DataFault::none) return fault;
  auto& state = work.state;
  DependenceResult& dependence = state.dependence;
  if (dependence.known && dependence.cutoff == cutoff) return DataFault::none;
  SayLine(console, "Computing autocorrelation...");
  return MakeOrSay(console, kNoMemory, [&] {
    EnsembleAutoCov autocov;
    CalcEnsembleAutoCov(SamplesOf(state.ensemble), cutoff, false, autocov);
    dependence = {cutoff, true, autocov.reached, autocov.ndti, state.ensemble.dt * autocov.lag};
    SayLine(console, "Done");
    if (!dependence.reached) Say(console, kNotReached, Shown{dependence.cutoff});
    return DataFault::none;
  });
}

std::string DependenceLine(const DependenceResult& dependence) {
  return fmt::format("Dependence time= {} ({} steps)", Shown{dependence.dti}, dependence.ndti);
}

std::string EnsembleCurveName(const OutputSettings& settings, const QuantityRequest& request,
                              const EnsembleCases& cases) {
  return fmt::format("{}, {}", QuantityLabel(cases.current, request.iqnt),
                     CurveLabel(cases.current, settings, request.iqnt, std::max(1, request.curve)));
}

}  // namespace zaview
