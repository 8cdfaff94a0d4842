#include "views/state/step_run.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/message.h"
#include "gks/window/gks_window.h"
#include "views/state/run_pictures.h"

namespace zaview {

namespace {

constexpr std::string_view kNoClock = "WARNING: Wallclock time not available - time synchronization disabled";
constexpr float kLeastSync = 1.0e-4F, kMostSync = 1.0e4F;
constexpr double kClockFails = -1.0;

// A run counts from here on.
void StartClock(Session& session) {
  PlotSessionState& p = session.plot_session;
  p.run_t0 = static_cast<float>(ShownTimeOf(session, session.case_store.current_step));
  p.run_clock0 = session.platform.clock.seconds(session.platform.clock.self);
  if (!p.run_sync || p.run_clock0 != kClockFails) return;
  SayLine(session.platform.console, kNoClock);
  p.run_sync = false;
}

bool HasCurrentStep(const CaseStore& store) {
  return store.has_steps() && store.current_step >= store.first_step && store.current_step <= store.last_step;
}

void StartIdle(Session& session) {
  session.plot_session.run_on = true;
  session.plot_session.idle_count = 0;
  gksIdleOn(session.platform, session.gks);
}

}  // namespace

int StepStride(const Session& session) {
  const CaseStore& store = session.case_store;
  const int past_the_end = std::max(store.last_step - store.first_step + 1, 1);  // from whichever step
  return std::clamp(session.output.reading.step_stride, 1, past_the_end);
}

double ShownTimeOf(const Session& session, int step) {
  return static_cast<double>(session.case_store.time.at(1, step) * session.output.units.scales.T);
}

void StopRun(Session& session) {
  PlotSessionState& p = session.plot_session;
  if (!p.run_on) return;
  p.run_on = p.run_dump = false;
  static_cast<void>(FinishRunPictures(session));
  gksIdleOff(session.platform, session.gks);
}

bool ToggleRun(Session& session) {
  PlotSessionState& p = session.plot_session;
  if (p.run_on) {
    StopRun(session);
    return true;
  }
  if (p.run_dump) return StartPictureRun(session);
  const CaseStore& store = session.case_store;
  if (!HasCurrentStep(store) || store.current_step == store.last_step) return false;
  StartClock(session);
  StartIdle(session);
  return true;
}

bool StartPictureRun(Session& session) {
  StopRun(session);
  PlotSessionState& p = session.plot_session;
  const CaseStore& store = session.case_store;
  p.run_dump = false;
  if (!HasCurrentStep(store)) return false;
  p.run_output = BeginRunOutput(session.platform, OrderOfSteps(session, {}, store.current_step, store.last_step));
  if (p.run_output == nullptr) return false;
  p.run_dump = true;
  StartIdle(session);
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

bool StepBy(Session& session, int strides) {
  StopRun(session);
  return GoToStep(session, session.case_store.current_step + strides * StepStride(session));
}

int StepAt(const Session& session, float time) {
  const CaseStore& store = session.case_store;
  const auto apart = [&](int step) { return std::abs(ShownTimeOf(session, step) - static_cast<double>(time)); };
  int nearest = store.first_step;
  for (int step = nearest + 1; step <= store.last_step; ++step)
    if (apart(step) < apart(nearest)) nearest = step;
  return nearest;
}

void ScaleSync(Session& session, float factor) {
  SetSyncFactor(session, std::clamp(session.plot_session.run_sync_factor * factor, kLeastSync, kMostSync));
}

void SetSyncFactor(Session& session, float factor) {
  session.plot_session.run_sync_factor = factor;
  if (session.plot_session.run_on) StartClock(session);
}

void SetSync(Session& session, bool on) {
  session.plot_session.run_sync = on;
  if (session.plot_session.run_on) StartClock(session);
}

bool SetRunPictures(Session& session, bool on) {
  PlotSessionState& p = session.plot_session;
  const bool running = p.run_on;
  if (on == p.run_dump) return true;
  if (running && on) return StartPictureRun(session);
  StopRun(session);
  p.run_dump = on;
  return !running || ToggleRun(session);
}

bool PutRunPicture(Session& session) {
  PlotSessionState& p = session.plot_session;
  const GksWindow& window = session.gks.window;
  if (p.run_output != nullptr && PutPicture(*p.run_output, window.width, window.height)) return true;
  p.run_output.reset();
  session.gks.dump.failed = true;
  return false;
}

bool FinishRunPictures(Session& session) {
  RunOutputPtr output = std::move(session.plot_session.run_output);
  if (output == nullptr || FinishRunOutput(std::move(output))) return true;
  session.gks.dump.failed = true;
  return false;
}

}  // namespace zaview
