// Run mode: what the idle calls of the event loop do, step after step, in time with the clock if wanted.
#include <algorithm>
#include <chrono>
#include <thread>

#include "gks/window/gks_window.h"
#include "views/frame/plot_session.h"
#include "views/menus/menus.h"
#include "views/state/step_run.h"

namespace zaview {

namespace {

constexpr int kDrawnBeforeDump = 3;            // idle calls to a picture file: drawn, shown, then stored
constexpr std::chrono::milliseconds kRest{2};  // where nothing is due yet

bool AtLastStep(const Session& s) {
  return s.case_store.current_step >= s.case_store.last_step;
}

bool IsDue(const Session& s, int step) {
  const PlotSessionState& p = s.plot_session;
  const double now = s.platform.clock.seconds(s.platform.clock.self) - p.run_clock0;
  return now >= (ShownTimeOf(s, step) - static_cast<double>(p.run_t0)) * static_cast<double>(p.run_sync_factor);
}

// The step behind this one, the last one at the end.
int NextStep(const Session& s, int step) {
  return std::min(step + StepStride(s), s.case_store.last_step);
}

// Pictures stand at equal distances: the last one may come ahead of the last step.
bool HasNextPicture(const Session& s) {
  return s.case_store.current_step + StepStride(s) <= s.case_store.last_step;
}

// One step on, or with the clock to the last step that is due; that one alone where every step is to be seen. False:
// none is.
bool Advance(Session& s) {
  const PlotSessionState& p = s.plot_session;
  int& step = s.case_store.current_step;
  if (!p.run_sync || p.run_dump) {
    step = NextStep(s, step);
    return true;
  }
  const int before = step;
  while (!AtLastStep(s) && IsDue(s, NextStep(s, step)) && (p.sync_real_time || step == before))
    step = NextStep(s, step);
  if (step == before) std::this_thread::sleep_for(kRest);
  return step != before;
}

void OpenPendingMenu(Session& s) {
  gksIdleOff(s.platform, s.gks);
  if (!s.plot_session.menu_pending) return;
  s.plot_session.menu_pending = false;
  InvokeOptionsMenu(s, MenuMode::open);
}

}  // namespace

bool TopIdle(Session& session) {
  PlotSessionState& p = session.plot_session;
  ++p.idle_count;
  if (!p.run_on) {
    OpenPendingMenu(session);
    return false;
  }
  if (p.run_dump && p.idle_count < kDrawnBeforeDump) {
    session.run.redraw = true;
    return true;
  }
  p.idle_count = 0;
  const bool stored = !p.run_dump || PutRunPicture(session);
  const bool more = p.run_dump ? HasNextPicture(session) : !AtLastStep(session);
  const bool advanced = stored && more && Advance(session);
  if (advanced) p.step_stale = session.run.redraw = true;
  if (!stored || !more || (AtLastStep(session) && !p.run_dump)) StopRun(session);
  FollowRun(session);
  return advanced;
}

}  // namespace zaview
