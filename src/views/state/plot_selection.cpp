#include "views/state/plot_selection.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "case/quantity_catalogue.h"
#include "case/read/ensemble_match.h"
#include "case/settings/point_settings.h"
#include "case/wave_at_cg.h"
#include "stats/tables/ensemble_data.h"
#include "views/state/plot_kinds.h"
#include "views/state/view_key.h"

namespace zaview {

namespace {

bool IsHidden(const DataPlotState& plot, int component) {
  const auto i = static_cast<std::size_t>(component - 1);
  return i < plot.hidden.size() && plot.hidden[i] != 0;
}

bool AnyShown(const DataPlotState& plot) {
  for (int i = 1; i <= plot.plot_component_count; ++i)
    if (IsShown(plot, i)) return true;
  return false;
}

// Waves that can't be evaluated have said so once; this kind of quantity is then passed over.
bool WaveIsThere(const Console& console, CaseStore& store, const QuantityRow& row) {
  return row.need != QuantityNeed::wave || EnsureSeaway(console, store) == WaveAnswer::ok;
}

// Another choice of component keeps the curves that are left out.
bool SameButComponent(PlotSubject a, const PlotSubject& b) {
  a.component = b.component;
  return a == b;
}

}  // namespace

PlotSubject SubjectOf(const DataPlotState& plot, const PlotFacts& facts) {
  const PlotKindRow& kind = RowOf(plot.kind);
  PlotSubject subject;
  subject.kind = plot.kind;
  subject.case_serial = facts.store.serial;
  subject.scales = facts.output.units.scales;
  subject.signs = facts.output.units.cnvfac;
  if (kind.of_panels) {
    subject.result = plot.result_serial;
    subject.component = plot.plot_component;
  }
  if (!kind.of_quantity) return subject;
  subject.iqnt = plot.quantity.iqnt;
  subject.point = plot.quantity.point;
  subject.missile = plot.quantity.missile;
  subject.component = kind.of_loads ? 0 : plot.plot_component;
  subject.of_ensemble = ShowsEnsemble(plot);
  if (plot.kind == PlotKind::interval) subject.statistic = plot.statistic;
  return subject;
}

PlotDataKey DataKeyOf(const DataPlotState& plot, const PlotFacts& facts) {
  PlotDataKey key;
  key.subject = SubjectOf(plot, facts);
  if (!RowOf(plot.kind).by_component) key.subject.component = 0;
  key.settings = facts.output;
  key.statistics = facts.output.statistics;
  key.skip = facts.store.skip_effective;
  key.records.push_back(RecordOf(facts.store));
  if (key.subject.of_ensemble)
    for (const CaseStore& record : facts.ensemble.record) key.records.push_back(RecordOf(record));
  if (plot.kind == PlotKind::histogram) key.histogram = facts.statistics.histogram;
  if (key.subject.of_ensemble) key.many = facts.statistics.nmany;
  key.wave = plot.kind == PlotKind::history && plot.wave_overlay;
  return key;
}

FitKey FitKeyOf(const DataPlotState& plot, const PlotFacts& facts) {
  return {SubjectOf(plot, facts), DataKeyOf(plot, facts), LengthOf(plot), plot.match_scales, plot.keep_aspect};
}

int ComponentCount(const DataPlotState& plot, const CaseStore& store) {
  if (RowOf(plot.kind).of_panels) return static_cast<int>(plot.result.panels.size());
  return CurveCount(store, plot.quantity.iqnt);
}

void ForgetData(DataPlotState& plot) {
  plot.derived.made_of = PlotDataKey{};
}

void SettleComponent(DataPlotState& plot, const PlotFacts& facts) {
  const PlotSubject& before = plot.fitted_for.subject;
  if (before.kind != PlotKind::none && !SameButComponent(before, SubjectOf(plot, facts))) plot.hidden.clear();
  const PlotKindRow& kind = RowOf(plot.kind);
  const int count = ComponentCount(plot, facts.store);
  plot.plot_component_count = count;
  plot.hidden.resize(static_cast<std::size_t>(std::max(count, 0)), 0);
  if (plot.plot_component < 0 || plot.plot_component > count) plot.plot_component = 0;
  if (!kind.shows_all) plot.plot_component = std::max(plot.plot_component, 1);
  else if (count == 1) plot.plot_component = 0;
  else if (plot.plot_component == 0 && !AnyShown(plot)) plot.plot_component = 1;
  if (count == 1) plot.hidden.assign(1, 0);
}

bool IsShown(const DataPlotState& plot, int component) {
  return plot.plot_component != 0 ? component == plot.plot_component : !IsHidden(plot, component);
}

bool TakeComponent(DataPlotState& plot, const CaseStore& store, int component) {
  if (component > ComponentCount(plot, store) || component == plot.plot_component) return false;
  plot.plot_component = component;
  return true;
}

bool NextComponent(DataPlotState& plot, const CaseStore& store) {
  const int count = ComponentCount(plot, store);
  const int first = RowOf(plot.kind).shows_all ? 0 : 1;
  if (count <= 1 - first) return TakeComponent(plot, store, 0);
  const int next = (std::max(plot.plot_component, 0) + 1) % (count + 1);
  return TakeComponent(plot, store, count == 1 ? first : std::max(next, first));
}

bool ToggleDrawing(DataPlotState& plot, const CaseStore& store) {
  if (plot.plot_component < 1 || plot.plot_component > ComponentCount(plot, store)) return false;
  const auto i = static_cast<std::size_t>(plot.plot_component - 1);
  if (plot.hidden.size() <= i) plot.hidden.resize(i + 1, 0);
  plot.hidden[i] = plot.hidden[i] == 0 ? 1 : 0;
  return true;
}

bool IsCurveDrawn(const DataPlotState& plot, int component) {
  return RowOf(plot.kind).by_step ? !IsHidden(plot, component) : IsShown(plot, component);
}

bool ShowCurve(DataPlotState& plot, const CaseStore& store, int component, bool shown) {
  const int count = CurveCount(store, plot.quantity.iqnt);
  if (component < 1 || component > count) return false;
  std::vector<std::uint8_t> hidden;
  for (int i = 1; i <= count; ++i) hidden.push_back((i == component ? shown : IsCurveDrawn(plot, i)) ? 0 : 1);
  plot.hidden = std::move(hidden);
  plot.plot_component = 0;
  if (AnyShown(plot)) return true;
  plot.hidden.assign(plot.hidden.size(), 0);
  plot.plot_component = 1;
  return true;
}

bool ShowAllCurves(DataPlotState& plot) {
  plot.hidden.assign(plot.hidden.size(), 0);
  plot.plot_component = 0;
  return true;
}

bool ChangeQuantity(const Console& console, CaseStore& store, const PointSettings& point, DataPlotState& plot,
                    int direction, bool carry) {
  if (!RowOf(plot.kind).of_quantity) return false;
  const int count = QuantityCount(store);
  int iqnt = plot.quantity.iqnt;
  for (int tried = 0; tried < count; ++tried) {
    iqnt = (iqnt - 1 + (direction < 0 ? count - 1 : 1)) % count + 1;
    if (CanShow(console, store, point, plot, iqnt)) break;
  }
  return iqnt != plot.quantity.iqnt && TakeQuantity(console, store, point, plot, iqnt, carry);
}

bool CanShow(const Console& console, CaseStore& store, const PointSettings& point, const DataPlotState& plot,
             int iqnt) {
  return (!store.time_history() || PointGiven(point, iqnt)) && CanShowOfPoint(console, store, plot, iqnt);
}

bool CanShowOfPoint(const Console& console, CaseStore& store, const DataPlotState& plot, int iqnt) {
  const PlotKindRow& kind = RowOf(plot.kind);
  if (!QuantityValid(store, iqnt) || CurveCount(store, iqnt) < 1) return false;
  if (!store.time_history()) return kind.of_functions;
  const QuantityRow* row = FindQuantity(iqnt);
  if (row == nullptr || row->need == QuantityNeed::file_only) return false;
  return (!kind.of_loads || row->load_kind != 0) && WaveIsThere(console, store, *row);
}

int QuantityCount(const CaseStore& store) {
  if (store.time_history()) return kQuantities;
  return store.irf_case ? static_cast<int>(store.irfs.size()) : kImpulse;
}

bool TakeQuantity(const Console& console, CaseStore& store, const PointSettings& point, DataPlotState& plot, int iqnt,
                  bool carry) {
  if (!RowOf(plot.kind).of_quantity || !CanShow(console, store, point, plot, iqnt)) return false;
  plot.quantity = {.iqnt = iqnt};
  UsePoint(point, plot.quantity);
  if (carry) plot.axes.use = LimitsUse::carried;
  return true;
}

bool SettleQuantity(const Console& console, CaseStore& store, const PointSettings& point, DataPlotState& plot) {
  if (!RowOf(plot.kind).of_quantity || CanShow(console, store, point, plot, plot.quantity.iqnt)) return true;
  for (int iqnt = 1; iqnt <= QuantityCount(store); ++iqnt)
    if (TakeQuantity(console, store, point, plot, iqnt, false)) return true;
  return false;
}

bool ChangeStatistic(DataPlotState& plot, int direction) {
  constexpr int kStatistics = 4;
  plot.statistic = (plot.statistic - 1 + direction + kStatistics) % kStatistics + 1;
  return true;
}

bool NormalizeByVariance(DataPlotState& plot, bool normalized) {
  plot.kind = normalized ? PlotKind::autocorrelation : PlotKind::autocovariance;
  return true;
}

bool TakeRecord(const Console& console, const PointSettings& point, CaseStore& store, EnsembleStore& ensemble,
                DataPlotState& plot, int irec) {
  plot.of_ensemble = irec == 0;
  if (irec == 0) return true;
  if (irec != ensemble.irec && !SelectRecord(irec, ensemble, store)) return false;
  (void)SettleQuantity(console, store, point, plot);
  return true;
}

bool SwitchHistogram(DataPlotState& plot, const CaseStore& store, const EnsembleStore& ensemble) {
  const PlotKind other = RowOf(plot.kind).other;
  if (!store.time_history() || other == PlotKind::none) return false;
  plot.kind = other;
  plot.of_ensemble = other == PlotKind::histogram && ensemble.nrec > 1;
  return true;
}

bool NextHistogramData(HistogramRequest& histogram) {
  NextOf(histogram.data, 3);
  return true;
}

bool NextOverlay(HistogramRequest& histogram) {
  NextOf(histogram.overlay, 6);
  return true;
}

}  // namespace zaview
