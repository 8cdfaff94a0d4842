#include "case/plot_data.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "base/grow.h"
#include "base/message.h"
#include "base/rotation.h"
#include "case/derived_arrays.h"
#include "case/point_motion.h"
#include "case/quantity_catalogue.h"
#include "case/smoothing.h"
#include "case/wave_at_cg.h"

namespace zaview {
namespace {

constexpr std::string_view kNoQuantity = "LOGIC ERROR in SetPlotData: iqnt= {}";

// The points in use as places in the columns.
struct Places {
  std::size_t first = 0;
  std::size_t stride = 1;
  std::size_t n = 0;
};

int Stride(const OutputSettings& settings) {
  return std::max(1, settings.reading.step_stride);
}

int PointsInUse(const CaseStore& c, const OutputSettings& settings) {
  const std::int64_t stride = Stride(settings);
  return static_cast<int>(std::max<std::int64_t>(0, (c.last_step + stride - c.first_step) / stride));
}

// Where a curve comes from: columns to be summed in this order, plus a constant, times scale, times sign.
struct CurveSource {
  std::array<const std::vector<float>*, 5> columns{};
  int n_columns = 0;
  float constant = 0;
  float scale = 1;
  float sign = 1;
};

CurveSource Column(const StepHistory& history, int i, float scale, float sign) {
  CurveSource source;
  const bool there = i >= 1 && i <= history.components();
  if (there) source.columns[0] = &history.component[static_cast<std::size_t>(i - 1)];
  source.n_columns = there ? 1 : 0;
  source.scale = scale;
  source.sign = sign;
  return source;
}

float SumAt(const CurveSource& source, std::size_t place) {
  float sum = (*source.columns[0])[place];
  for (int k = 1; k < source.n_columns; ++k) sum += (*source.columns[static_cast<std::size_t>(k)])[place];
  return sum;
}

void FillCurve(const CurveSource& source, const Places& places, std::vector<float>& y) {
  if (source.n_columns == 1 && source.constant == 0.0F && places.stride == 1) {  // most curves
    const float scale = source.scale, sign = source.sign;
    const auto first = source.columns[0]->begin() + static_cast<std::ptrdiff_t>(places.first);
    std::transform(first, first + static_cast<std::ptrdiff_t>(places.n), y.begin(),
                   [=](float value) { return (value * scale) * sign; });
    return;
  }
  for (std::size_t j = 0; j < places.n; ++j) {
    float value = SumAt(source, places.first + j * places.stride);
    if (source.constant != 0.0F) value += source.constant;
    y[j] = (value * source.scale) * source.sign;
  }
}

// Scale and sign of slot i of a kind.
struct Factor {
  float scale, sign;
};
Factor FactorOf(const OutputUnits& units, ScaleKind kind, std::size_t i) {
  const OutputScales& s = units.scales;
  switch (kind) {
    case ScaleKind::position:
      return {s.position[i], units.cnvfac[i]};
    case ScaleKind::velocity:
      return {s.velocity[i], units.cnvfac[i]};
    case ScaleKind::acceleration:
      return {s.acceleration[i], units.cnvfac[i]};
    case ScaleKind::force:
      return {s.force[i], units.cnvfac[i]};
    case ScaleKind::load_force:
      return {s.load_force, 1.0F};
    case ScaleKind::load_moment:
      return {s.load_moment, 1.0F};
    case ScaleKind::length:
      return {units.LENOUT, 1.0F};
    case ScaleKind::speed:
      return {s.velocity[0], 1.0F};
    case ScaleKind::acceleration_length:
      return {s.acceleration[0], 1.0F};
    case ScaleKind::angle:
      return {s.angle, 1.0F};
    case ScaleKind::rps:
      return {s.prop_rps, 1.0F};
    case ScaleKind::none:
      break;
  }
  return {1.0F, 1.0F};
}

const StepHistory& HistoryOf(const CaseStore& c, const QuantityRow& row, const CurveGroup& group) {
  if (group.form != CurveForm::cuts) return c.*group.history;
  const auto kind = static_cast<std::size_t>(row.load_kind - 1);
  return group.scale == ScaleKind::load_force ? c.load_force[kind] : c.load_moment[kind];
}

CurveSource SourceOf(const CaseStore& c, const OutputUnits& units, const QuantityRow& row, const CurvePlace& curve) {
  constexpr int kSix = 6;
  const CurveGroup& group = *curve.group;
  const bool cut = group.form == CurveForm::cuts;
  const Factor factor = FactorOf(units, group.scale, cut ? 0 : group.slot + static_cast<std::size_t>(curve.place));
  const StepHistory& history = HistoryOf(c, row, group);
  CurveSource source = Column(history, group.first + curve.place, factor.scale, factor.sign);
  for (int slot = 1; source.n_columns > 0 && slot < group.slots; ++slot)
    source.columns[static_cast<std::size_t>(source.n_columns++)] =
        &history.component[static_cast<std::size_t>(group.first + curve.place - 1 + kSix * slot)];
  if (group.form == CurveForm::with_gravity && curve.place == 2) source.constant = 1.0F;
  return source;
}

// Length of the three components from `first` on: never negative, so no sign factor.
void FillMagnitude(const StepHistory& history, int first, float scale, const Places& places, std::vector<float>& y) {
  const std::vector<float>* v = &history.component[static_cast<std::size_t>(first - 1)];
  for (std::size_t j = 0; j < places.n; ++j) {
    const std::size_t p = places.first + j * places.stride;
    const double a = v[0][p];
    const double b = v[1][p];
    const double d = v[2][p];
    y[j] = static_cast<float>(std::sqrt(a * a + b * b + d * d)) * scale;
  }
}

void FillMissile(const CaseStore& c, const OutputUnits& units, const std::array<float, 4>& C, const Places& places,
                 std::vector<float>& y) {
  const std::vector<float>* a = &c.point_motion.component[6];
  const std::vector<float>* angles = &c.pmgg.component[3];
  for (std::size_t j = 0; j < places.n; ++j) {
    const std::size_t p = places.first + j * places.stride;
    const Rotation R = ShipToGlobal(angles[0][p], angles[1][p], angles[2][p]);
    const Vector3 ship = ToShip(R, {a[0][p], a[1][p], a[2][p] + 1.0});
    std::array<float, 3> shown{};
    for (std::size_t i = 0; i < 3; ++i)
      shown[i] = (static_cast<float>(ship[i]) * units.scales.acceleration[i]) * units.cnvfac[i];
    y[j] = ((C[0] * shown[0] + C[1] * shown[1]) + C[2] * shown[2]) + C[3];
  }
}

DataFault FaultOf(WaveAnswer answer) {
  if (answer == WaveAnswer::ok) return DataFault::none;
  return answer == WaveAnswer::no_wave ? DataFault::no_wave : DataFault::no_memory;
}

DataFault EnsureHistory(const Console& console, const OutputSettings& settings, const QuantityRequest& request,
                        const CurveGroup& group, CaseStore& c) {
  constexpr int kFirstRelative = 10;  // component of point_motion
  if (const std::optional<Derived> derived = DerivedOf(group.history))
    return EnsureDerived(c, *derived) ? DataFault::none : DataFault::no_memory;
  if (group.history == &CaseStore::eta_cg || group.history == &CaseStore::eta_origin)
    return FaultOf(IncidentWaveAtCG(console, c));
  if (group.history != &CaseStore::point_motion) return DataFault::none;
  if (!NodePointMot(console, settings, request.point, c)) return DataFault::no_memory;
  return group.first < kFirstRelative ? DataFault::none : FaultOf(RelativePointMot(console, c));
}

// Makes the derived arrays behind a quantity.
DataFault EnsureSource(const Console& console, const OutputSettings& settings, const QuantityRequest& request,
                       const QuantityRow& row, CaseStore& c) {
  for (const CurveGroup& group : row.groups)
    if (const DataFault fault = EnsureHistory(console, settings, request, group, c); fault != DataFault::none)
      return fault;
  return DataFault::none;
}

DataFault FillRequested(const OutputSettings& settings, const QuantityRequest& request, const QuantityRow& row,
                        const Places& places, int curve, CaseStore& c, std::vector<float>& y) {
  if (!Grow(y, places.n)) return DataFault::no_memory;
  const CurvePlace place = FindCurve(row, curve);
  if (place.group == nullptr) return DataFault::not_valid;
  const CurveGroup& group = *place.group;
  if (group.form == CurveForm::missile_load) {
    FillMissile(c, settings.units, request.missile, places, y);
  } else if (group.form == CurveForm::magnitude) {
    FillMagnitude(c.*group.history, group.first, FactorOf(settings.units, group.scale, 0).scale, places, y);
  } else {
    const CurveSource source = SourceOf(c, settings.units, row, place);
    if (source.n_columns == 0) return DataFault::not_valid;
    FillCurve(source, places, y);
  }
  return DataFault::none;
}

// Smoothing takes every step in use, whatever the stride.
DataFault FillSmoothed(const Console& console, const OutputSettings& settings, const QuantityRequest& request,
                       const QuantityRow& row, const Places& places, int curve, CaseStore& c, std::vector<float>& y) {
  if (settings.smoothing.option == 0) return FillRequested(settings, request, row, places, curve, c, y);
  Places every = places;
  every.stride = 1;
  every.n = static_cast<std::size_t>(c.last_step - c.first_step) + 1;
  const DataFault fault = FillRequested(settings, request, row, every, curve, c, y);
  if (fault != DataFault::none) return fault;
  Trace(console, "SmoothInput opt0= {} npt0= {}", settings.smoothing.option, settings.smoothing.window);
  const FilterStatus smoothed = SmoothInput(console, settings.smoothing.option, settings.smoothing.window, y);
  if (smoothed == FilterStatus::interrupted) return DataFault::said;
  for (std::size_t j = 0; j < places.n; ++j) y[j] = y[j * places.stride];
  y.resize(places.n);
  return DataFault::none;
}

DataFault FillOverlay(const Console& console, const OutputSettings& settings, const Places& places, CaseStore& c,
                      std::vector<float>& wave) {
  if (const DataFault fault = FaultOf(IncidentWaveAtCG(console, c)); fault != DataFault::none) return fault;
  if (!Grow(wave, places.n)) return DataFault::no_memory;
  FillCurve(Column(c.eta_origin, 1, settings.units.LENOUT, 1.0F), places, wave);
  return DataFault::none;
}

// A record of an impulsive run: its time and the groups of six that its curves come from.
struct ImpulsiveRecord {
  const StepHistory* time = nullptr;
  std::array<const StepHistory*, 2> groups{};
  Places places{};
};

ImpulsiveRecord RecordOf(const CaseStore& c, const OutputSettings& settings, int iqnt) {
  ImpulsiveRecord record;
  record.places.stride = static_cast<std::size_t>(Stride(settings));
  if (c.tadm_case) {
    record.time = &c.time;
    record.groups[0] = iqnt == kImpulse ? &c.fimp : &c.tadm;
    record.places.first = static_cast<std::size_t>(c.first_step - c.first_read);
    record.places.n = static_cast<std::size_t>(PointsInUse(c, settings));
    return record;
  }
  const IrfBlock& irf = c.irfs[static_cast<std::size_t>(iqnt - 1)];
  record.time = &irf.time;
  record.groups = {&irf.force, &irf.froude_krylov};
  // A function has as many steps as its label says, whatever is trimmed from histories.
  record.places.n = (irf.time.component[0].size() + record.places.stride - 1) / record.places.stride;
  return record;
}

// Curve i of a group has the sign of mode i; of the scales only that of the time is not 1.
DataFault SetImpulsiveData(const OutputSettings& settings, const QuantityRequest& request, const CaseStore& c,
                           PlotData& data) {
  const int curves = CurveCount(c, request.iqnt);
  if (!QuantityValid(c, request.iqnt) || request.curve < 0 || request.curve > curves) return DataFault::not_valid;
  const ImpulsiveRecord record = RecordOf(c, settings, request.iqnt);
  const int first = request.curve == 0 ? 1 : request.curve;
  const int last = request.curve == 0 ? curves : request.curve;
  for (int curve = first; curve <= last; ++curve) data.labels.push_back(CurveLabel(c, settings, request.iqnt, curve));
  data.n = static_cast<int>(record.places.n);
  data.y.resize(data.labels.size());
  if (data.n == 0) return DataFault::none;
  if (!Grow(data.x, record.places.n)) return DataFault::no_memory;
  FillCurve(Column(*record.time, 1, settings.units.scales.T, 1.0F), record.places, data.x);
  for (int curve = first; curve <= last; ++curve) {
    std::vector<float>& y = data.y[static_cast<std::size_t>(curve - first)];
    if (!Grow(y, record.places.n)) return DataFault::no_memory;
    const int mode = (curve - 1) % 6;
    const StepHistory& group = *record.groups[static_cast<std::size_t>((curve - 1) / 6)];
    FillCurve(Column(group, mode + 1, 1.0F, settings.units.cnvfac[static_cast<std::size_t>(mode)]), record.places, y);
  }
  return DataFault::none;
}

// Empty curves, a label each, in the memory of those before.
void TakeMemory(PlotData& before, PlotData& data) {
  data.x.swap(before.x);
  data.y.swap(before.y);
  data.x.clear();
  data.y.resize(data.labels.size());
  for (std::vector<float>& y : data.y) y.clear();
}

}  // namespace

DataFault SetPlotData(const Console& console, const OutputSettings& settings, const QuantityRequest& request,
                      CaseStore& case_store, PlotData& data) {
  PlotData before = std::exchange(data, {});
  if (!case_store.time_history()) return SetImpulsiveData(settings, request, case_store, data);
  const QuantityRow* row = FindQuantity(request.iqnt);
  if (row == nullptr) {
    Say(console, kNoQuantity, request.iqnt);
    return DataFault::said;
  }
  const int curves = CurveCount(case_store, request.iqnt);
  if (!QuantityValid(case_store, request.iqnt) || request.curve < 0 || request.curve > curves)
    return DataFault::not_valid;

  const int first_curve = request.curve == 0 ? 1 : request.curve;
  const int last_curve = request.curve == 0 ? curves : request.curve;
  for (int curve = first_curve; curve <= last_curve; ++curve)
    data.labels.push_back(CurveLabel(case_store, settings, request.iqnt, curve));
  TakeMemory(before, data);
  data.n = PointsInUse(case_store, settings);
  if (data.n == 0) return DataFault::none;

  Places places;
  places.first = static_cast<std::size_t>(case_store.first_step - case_store.first_read);
  places.stride = static_cast<std::size_t>(Stride(settings));
  places.n = static_cast<std::size_t>(data.n);
  const DataFault source = EnsureSource(console, settings, request, *row, case_store);
  if (source != DataFault::none) return source;
  if (!Grow(data.x, places.n)) return DataFault::no_memory;
  FillCurve(Column(case_store.time, 1, settings.units.scales.T, 1.0F), places, data.x);
  for (int curve = first_curve; curve <= last_curve; ++curve) {
    std::vector<float>& y = data.y[static_cast<std::size_t>(curve - first_curve)];
    const DataFault fault = FillSmoothed(console, settings, request, *row, places, curve, case_store, y);
    if (fault != DataFault::none) return fault;
  }
  return request.wave_overlay ? FillOverlay(console, settings, places, case_store, data.wave) : DataFault::none;
}

StatRange StatPoints(const CaseStore& case_store, const OutputSettings& settings) {
  return StatPoints(case_store, settings, case_store.skip_effective);
}

StatRange StatPoints(const CaseStore& case_store, const OutputSettings& settings, int skip_initial) {
  const std::int64_t stride = Stride(settings);
  const std::int64_t skip = std::max(0, skip_initial);
  const std::int64_t terminal = std::max(0, settings.reading.skip_terminal);
  const std::int64_t first = (skip + stride - 1) / stride;
  const std::int64_t span = std::int64_t{case_store.last_step} - case_store.first_step - terminal;
  const std::int64_t n = span < 0 ? 0 : span / stride + 1 - first;
  if (n <= 0) return {};
  return {static_cast<int>(first), static_cast<int>(n)};
}

}  // namespace zaview
