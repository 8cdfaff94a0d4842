// Entry and picture of the motion animation.
#include "views/motion/motion_view.h"

#include <algorithm>
#include <string>
#include <utility>

#include "base/data_fault.h"
#include "base/message.h"
#include "views/motion/motion_events.h"
#include "views/motion/motion_graphs.h"
#include "views/motion/motion_overlay.h"
#include "views/motion/motion_scene.h"
#include "views/motion/scene_marks.h"
#include "views/state/start_plot.h"

namespace zaview {

namespace {

constexpr std::string_view kHints[] = {
    "Hit the 'q' key to exit the plot and return to the text menu",
    "Hit the 'h' key for HELP",
    "Hit 'Alt-o' to invoke the plot options menu,",
    " which includes time-history overlay plots",
    "Hit 'Alt-space' to invoke the time stepping menu",
    "Mouse click with Alt or Ctrl keys will invoke pop-up menu",
};
constexpr fmt::string_view kCause = "GLGKS - {}";

void LeaveView(Session& session) {
  session.run.plot_module = PlotModule::none;
  session.run.redraw = false;
}

bool HasCurrentStep(const CaseStore& store) {
  return store.has_steps() && store.current_step >= store.first_read && store.current_step <= store.last_read;
}

// Hull and sea, and the marks over them.
bool DrawScene(Session& session, PlotDraw draw) {
  std::string why;
  MotionStage stage;
  const SceneFault fault = DrawMotionScene(session, stage, why);
  if (fault == SceneFault::no_opengl) Say(session.platform.console, kCause, why);
  const DataFault data = fault == SceneFault::no_memory ? DataFault::no_memory : DataFault::none;
  if (!SayDataFault(session.platform.console, data, Making::plot, "") || fault != SceneFault::none) return false;
  SetMotionPage(draw);
  DrawSceneMarks(session.motion_view, session.case_store, session.output.point.point, stage, draw);
  return true;
}

}  // namespace

void KinoPlotInit(Session& session) {
  MotionViewState& view = session.motion_view;
  CaseStore& store = session.case_store;
  session.plot_session.run_on = session.plot_session.run_dump = false;
  view.popup.open = false;
  if (const int wanted = std::exchange(view.initial_step, 0); wanted != 0) store.current_step = wanted;
  store.current_step = std::max(store.first_step, std::min(store.current_step, store.last_step));
  session.run.redraw = true;
  if (session.run.script_active) return;
  for (const std::string_view line : kHints) SayLine(session.platform.console, line);
}

void KinoRender(Session& session) {
  TakeReverse(session.run, session.gks);
  const PlotDraw draw{session.platform, session.gks, session.page};
  if (!dgFrame(draw, 2) || !dgFrame(draw, 1)) return;
  if (!HasCurrentStep(session.case_store) || !DrawScene(session, draw)) {
    LeaveView(session);
    return;
  }
  UpdateMotionGraphs(SourceOf(session), session.motion_view);
  if (session.motion_view.show_events) UpdateMotionEvents(SourceOf(session), session.motion_view);
  DrawMotionOverlay(session.motion_view, FactsOf(session), draw);
  static_cast<void>(dgFrame(draw, -3));
  session.run.redraw = false;
}

}  // namespace zaview
