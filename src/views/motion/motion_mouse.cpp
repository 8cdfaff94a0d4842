// Clicks in the animation: run mode, the bar of events, and the popup.
#include "gks/window/gks_window.h"
#include "views/motion/motion_events.h"
#include "views/motion/motion_overlay.h"
#include "views/motion/motion_view.h"
#include "views/state/plot_source.h"
#include "views/state/popup.h"
#include "views/state/step_run.h"

namespace zaview {

namespace {

constexpr int kLeftButton = 1;

// By line of the popup; the first is beside it.
constexpr ViewAsk kAsks[] = {ViewAsk::none, ViewAsk::time_step_menu, ViewAsk::options_menu, ViewAsk::help};

void TakeChoice(Session& s, float x, float y, PlotDraw draw) {
  PopupState& popup = s.motion_view.popup;
  const PopupBox box = PopupBoxOf(popup, kMotionPopup, draw);
  popup.open = false;
  s.run.redraw = true;
  s.plot_session.ask = kAsks[LineAt(box, kMotionPopup, x, y)];
}

}  // namespace

void KinoMouse(Session& session, int button, float x, float y) {
  const PlotDraw draw{session.platform, session.gks, session.page};
  if (session.motion_view.popup.open) return TakeChoice(session, x, y, draw);
  const GksModifiers held = gksMouseButtons(session.gks);
  if (held.alt || held.control) {
    session.motion_view.popup = {true, x, y};
    session.run.redraw = true;
    return;
  }
  if (button != kLeftButton || held.shift) return;
  const int step = StepOnEventBar(session.motion_view, FactsOf(session), x, y, draw);
  if (step > 0) StopRun(session);
  if (step > 0 ? GoToStep(session, step) : ToggleRun(session)) session.run.redraw = true;
}

}  // namespace zaview
