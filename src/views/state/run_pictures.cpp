#include "views/state/run_pictures.h"

#include <algorithm>
#include <utility>

#include "gks/window/gks_window.h"
#include "views/state/start_plot.h"
#include "views/state/step_run.h"

namespace zaview {

namespace {

constexpr double kLeastRate = 1.0, kMostRate = 60.0;

int Clamped(const CaseStore& store, int step) {
  return std::max(store.first_step, std::min(step, store.last_step));
}

bool OrderRun(Session& s, const AnimationRequest& wanted) {
  const CaseStore& store = s.case_store;
  const int set = std::exchange(s.motion_view.initial_step, 0);
  const int first = wanted.first > 0 ? wanted.first : set > 0 ? set : store.first_step;
  OrderedRun run{true, Clamped(store, first), wanted.last > 0 ? Clamped(store, wanted.last) : store.last_step};
  run.last = std::max(run.first, run.last);
  s.plot_session.run_output = BeginRunOutput(s.platform, OrderOfSteps(s, wanted.output, run.first, run.last));
  if (s.plot_session.run_output == nullptr) return false;
  s.plot_session.ordered = run;
  s.gks.dump.waiting = true;
  return true;
}

}  // namespace

RunOutputOrder OrderOfSteps(const Session& session, RunOutputOrder order, int first, int last) {
  const int stride = StepStride(session);
  order.count = (last - first) / stride + 1;
  if (order.count < 2) return order;
  const int end = first + (order.count - 1) * stride;
  const double shown = (ShownTimeOf(session, end) - ShownTimeOf(session, first)) *
                       static_cast<double>(session.plot_session.run_sync_factor);
  const double rate = (order.count - 1) / shown;
  order.rate = shown > 0 ? std::clamp(rate, kLeastRate, kMostRate) : kMostRate;
  return order;
}

bool StartAnimation(Session& session, const AnimationRequest& wanted, int suboption) {
  gksReadEnvironment(session.platform, session.gks);
  session.plot_session.run_output.reset();
  session.plot_session.ordered = {};
  const bool run = wanted.pictures || session.gks.dump.dump_only;
  if (!run && wanted.first > 0) session.motion_view.initial_step = wanted.first;
  if (run && !OrderRun(session, wanted)) return false;
  if (StartView(session, PlotModule::animation, suboption)) return true;
  session.plot_session.run_output.reset();
  session.plot_session.ordered = {};
  return false;
}

void TakeInitialStep(Session& session) {
  CaseStore& store = session.case_store;
  const OrderedRun& run = session.plot_session.ordered;
  const int set = run.on ? run.first : std::exchange(session.motion_view.initial_step, 0);
  if (set > 0) store.current_step = set;
  store.current_step = Clamped(store, store.current_step);
}

}  // namespace zaview
