#include "views/state/step_run.h"

#include <algorithm>

#include "gks/window/gks_window.h"

namespace zaview {

namespace {

constexpr float kLeastSync = 1.0e-4F, kMostSync = 1.0e4F;

void StartClock(Session& session) {
  session.plot_session.run_t0 = static_cast<float>(ShownTimeOf(session, session.case_store.current_step));
  session.plot_session.run_clock0 = session.platform.clock.seconds(session.platform.clock.self);
}

bool HasCurrentStep(const CaseStore& store) {
  return store.has_steps() && store.current_step >= store.first_step && store.current_step <= store.last_step;
}

}  // namespace

double ShownTimeOf(const Session& session, int step) {
  return static_cast<double>(session.case_store.time.at(1, step) * session.output.units.scales.T);
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
  PlotSessionState& p = session.plot_session;
  if (!p.run_sync) return false;
  p.run_sync_factor = std::clamp(p.run_sync_factor * factor, kLeastSync, kMostSync);
  if (p.run_on) StartClock(session);
  return true;
}

}  // namespace zaview
