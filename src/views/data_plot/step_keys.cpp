// Keys of the data plot that choose time steps: those of a load distribution, one by one or in run mode, and those at
// which a trajectory shows the hull.
#include <algorithm>

#include "gks/window/gks_window.h"
#include "views/data_plot/data_plot_keys.h"

namespace zaview {

namespace {

constexpr float kLeastSync = 1.0e-4F, kMostSync = 1.0e4F;

// From the hulls that are drawn where no number was set.
int HullSpacing(const DataPlotState& plot) {
  const std::vector<int>& steps = plot.derived.hull_steps;
  if (plot.geometry_every > 0 || steps.size() < 2) return std::max(plot.geometry_every, 1);
  return std::max(1, (steps.back() - steps.front()) / static_cast<int>(steps.size() - 1));
}

void StartClock(Session& session) {
  const CaseStore& store = session.case_store;
  session.plot_session.run_t0 = store.time.at(1, store.current_step) * session.output.units.scales.T;
  session.plot_session.run_clock0 = session.platform.clock.seconds(session.platform.clock.self);
}

bool HasCurrentStep(const CaseStore& store) {
  return store.has_steps() && store.current_step >= store.first_step && store.current_step <= store.last_step;
}

}  // namespace

bool ScaleHullSpacing(Session& session, float factor) {
  DataPlotState& plot = session.data_plot;
  const int before = HullSpacing(plot),
            most = std::max(1, session.case_store.last_step - session.case_store.first_step);
  const int n = static_cast<int>(std::min(static_cast<float>(before) * factor, static_cast<float>(most)));
  // 1 and 2 would never grow when truncated.
  plot.geometry_every = factor > 1.0F ? std::min(std::max(n, before + 1), most) : std::max(n, 1);
  plot.marked_steps.clear();
  return true;
}

void StopRun(Session& session) {
  PlotSessionState& p = session.plot_session;
  if (!p.run_on) return;
  p.run_on = p.run_dump = false;
  gksIdleOff(session.platform, session.gks);
}

bool ToggleRun(Session& session) {
  PlotSessionState& p = session.plot_session;
  if (p.run_on) {
    StopRun(session);
    return true;
  }
  if (!HasCurrentStep(session.case_store)) return false;
  p.run_on = true;
  p.idle_count = 0;
  StartClock(session);
  gksIdleOn(session.platform, session.gks);
  return true;
}

bool GoToStep(Session& session, int step) {
  CaseStore& store = session.case_store;
  step = std::max(store.first_step, std::min(step, store.last_step));
  if (!HasCurrentStep(store) || step == store.current_step) return false;
  store.current_step = step;
  session.plot_session.step_stale = true;
  if (session.plot_session.run_on) StartClock(session);
  return true;
}

bool ScaleSync(Session& session, float factor) {
  if (!session.motion_view.run_sync) return false;
  float& sync = session.motion_view.run_sync_factor;
  sync = std::clamp(sync * factor, kLeastSync, kMostSync);
  if (session.plot_session.run_on) StartClock(session);
  return true;
}

}  // namespace zaview
