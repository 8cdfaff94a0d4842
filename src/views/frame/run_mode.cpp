// Run mode: what the idle calls of the event loop do, step after step, in time with the clock if wanted.
#include <chrono>
#include <thread>

#include "gks/picture/window_dump.h"
#include "gks/window/gks_window.h"
#include "views/frame/plot_session.h"
#include "views/frame/session_keys.h"
#include "views/state/step_run.h"

namespace zaview {

namespace {

constexpr int kDrawnBeforeDump = 3;  // idle calls to a picture file: drawn, shown, then stored
constexpr int kNumberedPng = -1;
constexpr std::chrono::milliseconds kRest{2};  // where nothing is due yet

bool AtLastStep(const Session& s) {
  return s.case_store.current_step >= s.case_store.last_step;
}

bool IsDue(const Session& s, int step) {
  const PlotSessionState& p = s.plot_session;
  const double now = s.platform.clock.seconds(s.platform.clock.self) - p.run_clock0;
  return now >= (ShownTimeOf(s, step) - static_cast<double>(p.run_t0)) * static_cast<double>(p.run_sync_factor);
}

// One step on, or with the clock to the last step that is due. False: none is.
bool Advance(Session& s) {
  int& step = s.case_store.current_step;
  if (!s.plot_session.run_sync) {
    ++step;
    return true;
  }
  const int before = step;
  while (!AtLastStep(s) && IsDue(s, step + 1)) ++step;
  if (step == before) std::this_thread::sleep_for(kRest);
  return step != before;
}

void OpenPendingMenu(Session& s) {
  gksIdleOff(s.platform, s.gks);
  if (!s.plot_session.menu_pending) return;
  s.plot_session.menu_pending = false;
  s.plot_session.ask = ViewAsk::options_menu;
  ServeAsk(s, {});
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
  if (p.run_dump) static_cast<void>(GKSDUMP(session.platform, session.gks, kNumberedPng));
  p.idle_count = 0;
  if (AtLastStep(session)) {  // its picture is stored too
    StopRun(session);
    return false;
  }
  if (!Advance(session)) return false;
  session.run.redraw = true;
  if (AtLastStep(session) && !p.run_dump) StopRun(session);
  return true;
}

}  // namespace zaview
