// The entry of the animation, and a run of it that nobody watches: a picture of each step, then the view is left.
#include "views/frame/ordered_run.h"

#include <utility>

#include "analysis/run_events.h"
#include "base/message.h"
#include "frame/ground/zaview_exit.h"
#include "views/frame/plot_session.h"
#include "views/motion/motion_events.h"
#include "views/motion/motion_view.h"
#include "views/state/motion_settings.h"
#include "views/state/plot_source.h"
#include "views/state/run_pictures.h"
#include "views/state/step_run.h"

namespace zaview {

namespace {

constexpr fmt::string_view kNoEvent = "ERROR - there is no {} in the steps in use";

// False: there is no such event, which has been said.
bool FindEvent(Session& s, const AnimationOrder& order, EventSteps& range) {
  const CaseStore& store = s.case_store;
  UpdateMotionEvents(SourceOf(s), s.motion_view);
  const RunEvent* const event = FirstOf(s.motion_view.events.list, order.event);
  if (event == nullptr) {
    Say(s.platform.console, kNoEvent, RowOf(order.event).word);
    return false;
  }
  constexpr double kRounding = 1.0e-4;  // of 4-byte times: a step just at the end counts
  const double scale = static_cast<double>(s.output.units.scales.T);
  range = StepsAbout(store.time.range(1, store.first_step, store.last_step), store.first_step, event->step,
                     order.seconds / scale * (1.0 + kRounding));
  return true;
}

// False: what was ordered can't be done, which has been said.
bool CarryOut(Session& s, const AnimationOrder& order, EventSteps range) {
  if (order.about_event && !FindEvent(s, order, range)) return false;
  s.case_store.current_step = range.first;
  if (!order.pictures) return true;
  PlotSessionState& p = s.plot_session;
  p.run_output = BeginRunOutput(s.platform, OrderOfSteps(s, order.output, range.first, range.last));
  p.ordered = {true, range.last};
  return p.run_output != nullptr;
}

}  // namespace

void EnterAnimation(Session& session) {
  CaseStore& store = session.case_store;
  const bool first_is_set = session.motion_view.initial_step != 0;
  const AnimationOrder order = std::exchange(session.plot_session.order, {});
  TakeCase(session.platform, session.motion_view, store);
  KinoPlotInit(session);
  const int first = first_is_set || !order.pictures ? store.current_step : store.first_step;
  if (!CarryOut(session, order, {first, store.last_step})) {
    session.run.plot_failed = true;
    session.run.plot_module = PlotModule::none;
    session.gks.dump.waiting = false;
    DropOrder(session.plot_session);
  }
  ChooseEarth(session.motion_view, store, session.output.units.scales);
}

AfterPicture TakeRunPicture(Session& session) {
  OrderedRun& run = session.plot_session.ordered;
  if (!run.on) return AfterPicture::store;
  if (TakeInterrupt(session.platform.console)) zaviewexit(session, kRunInterrupted);
  const int next = session.case_store.current_step + StepStride(session);
  if (PutRunPicture(session) && next <= run.last) {
    session.case_store.current_step = next;
    session.run.redraw = true;
    return AfterPicture::another;
  }
  static_cast<void>(FinishRunPictures(session));
  run = {};
  return AfterPicture::leave;
}

}  // namespace zaview
