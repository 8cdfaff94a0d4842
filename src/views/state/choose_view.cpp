#include "views/state/choose_view.h"

#include "case/quantity_catalogue.h"
#include "views/state/plot_kinds.h"
#include "views/state/plot_selection.h"
#include "views/state/result_choice.h"
#include "views/state/step_run.h"

namespace zaview {

namespace {

constexpr int kFirstLoad = 13, kLastLoad = 24;  // quantities

bool IsHistory(const CaseStore& store) {
  return store.has_steps() && store.time_history();
}

void Leave(Session& s) {
  StopRun(s);
  s.run.plot_module = PlotModule::none;
}

}  // namespace

bool HasHull(const CaseStore& store) {
  return store.hull_tried == Tried::there;
}

bool CanAnimate(const CaseStore& store) {
  return HasTrack(store) && HasHull(store);
}

bool HasTrack(const CaseStore& store) {
  return IsHistory(store) && store.labels.VERSION >= 0 && store.motions_known;
}

bool HasLoadCuts(const CaseStore& store) {
  const SectionLoads& loads = store.loads;
  if (loads.NBCA <= 0 || (loads.IVM <= 0 && loads.IHM <= 0 && loads.ITM <= 0) || !IsHistory(store)) return false;
  for (int iqnt = kFirstLoad; iqnt <= kLastLoad; ++iqnt)
    if (QuantityValid(store, iqnt)) return true;
  return false;
}

bool CanPlot(const Session& session, PlotKind kind) {
  const CaseStore& store = session.case_store;
  if (kind == PlotKind::history) return store.has_steps() || !store.time_history();
  if (kind == PlotKind::result) return HasResult(session.data_plot);
  if (kind == PlotKind::trajectory) return HasTrack(store);
  if (kind == PlotKind::load_dist) return HasLoadCuts(store);
  if (kind == PlotKind::interval) return IsHistory(store) && session.ensemble.nrec > 1;
  return IsHistory(store);
}

void ChooseView(Session& session, PlotModule module) {
  if (session.run.plot_module == module) return;
  StopRun(session);
  session.run.change_module = module;
  session.run.redraw = true;
}

bool ChoosePlot(Session& session, PlotKind kind) {
  DataPlotState& plot = session.data_plot;
  if (!CanPlot(session, kind)) return false;
  const PlotKind before = plot.kind;
  plot.kind = kind;
  if (!SettleQuantity(session.platform.console, session.case_store, session.output.point, plot)) {
    plot.kind = before;
    return false;
  }
  if (kind != before) StopRun(session);
  if (RowOf(kind).of_panels && kind != before) plot.plot_component = 0;
  plot.of_ensemble = session.ensemble.nrec > 1 && RowOf(kind).averages != Averages::no;
  ChooseView(session, PlotModule::data_plot);
  return true;
}

void LeaveForMenu(Session& session) {
  session.run.menu_wanted = true;
  Leave(session);
}

void LeaveForScript(Session& session) {
  Leave(session);
}

}  // namespace zaview
