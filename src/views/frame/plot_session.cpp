#include "views/frame/plot_session.h"

#include <algorithm>
#include <iterator>

#include "base/message.h"
#include "frame/ground/zaview_exit.h"
#include "gks/kernel/gks_control.h"
#include "gks/picture/picture_sheet.h"
#include "gks/window/gks_window.h"
#include "menu/menu_build.h"
#include "menu/menu_window.h"
#include "views/data_plot/data_plot.h"
#include "views/frame/ordered_run.h"
#include "views/frame/screen_dialogue.h"
#include "views/frame/session_keys.h"
#include "views/geometry/geometry_view.h"
#include "views/menus/menus.h"
#include "views/motion/motion_view.h"
#include "views/state/run_pictures.h"
#include "views/state/step_run.h"

namespace zaview {

namespace {

constexpr std::string_view kTitle = "zaview";
constexpr std::string_view kChange = "change_module= {}";

struct View {
  void (*init)(Session& session);
  void (*render)(Session& session);
  void (*mouse)(Session& session, int button, float x, float y);
  void (*before_key)(Session& session);  // whatever the key does
  ViewKeys (*keys)(const Session& session);
};

void RenderDataPlot(Session& s) {
  zaviewsetaxes(s);
  if (s.run.plot_module != PlotModule::none) zaviewrender(s);
}

// By PlotModule, behind `none`.
constexpr View kViews[] = {
    {zaviewinit, RenderDataPlot, zaviewmouse, BeforeDataPlotKey, DataPlotKeys},
    {EnterAnimation, KinoRender, KinoMouse, BeforeMotionKey, MotionKeys},
    {GeoPlotInit, GeoRender, GeoMouse, BeforeGeometryKey, GeometryKeys},
};

const View* ViewOf(const Session& s) {
  const auto module = static_cast<std::size_t>(s.run.plot_module);
  return module < 1 || module > std::size(kViews) ? nullptr : &kViews[module - 1];
}

void EnterView(Session& s) {
  if (const View* view = ViewOf(s)) view->init(s);
}

// From one view straight to another; the options menu is open there as well.
void ChangeModule(Session& s) {
  RunState& run = s.run;
  Say(s.platform.console, kChange, static_cast<int>(run.change_module));
  run.plot_module = run.change_module;
  EnterView(s);
  run.change_module = PlotModule::none;
  run.view_is_new = true;
  run.redraw = true;
  s.plot_session.menu_pending = true;
}

// A view was left: script or text menu go on here, on the console, until the next view or the end of the run.
void LeaveForDialogue(Session& s) {
  s.dialogue(s);
  if (s.run.exit_requested) zaviewexit(s, s.run.exit_status);
  EnterView(s);
  gksBeginDrawing(s.platform, s.gks);  // its size may be another one by now
}

// The picture can't be made: no file is written of it, and a script that wanted it fails.
void GiveUpView(Session& s) {
  s.run.plot_failed = true;
  StopRun(s);
  DropOrder(s.plot_session);
  s.gks.dump.waiting = false;
  s.gks.dump.name.clear();
  gksWindowHideNow(s.platform, s.gks);
}

// What every handler of an event ends with.
void AfterEvent(Session& s) {
  if (const View* view = ViewOf(s)) ServeAsk(s, view->keys(s));
  if (s.run.exit_requested) zaviewexit(s, s.run.exit_status);
  const bool is_shown = s.run.plot_module != PlotModule::none;
  RefreshMenus(s);  // they tell limits, for which the data are made: there may be none
  if (is_shown && s.run.plot_module == PlotModule::none) return GiveUpView(s);
  if (!is_shown) gksWindowHideNow(s.platform, s.gks);
  else if (s.run.redraw) gksPostRedisplay(s.platform, s.gks);
}

Session& Of(void* self) {
  return *static_cast<Session*>(self);
}

void TopMenu(Session& s, const MenuEvent& event) {
  topMenuInput(s, event);
  if (event.change != MenuChange::closed) AfterEvent(s);
}

}  // namespace

void SetHooks(Session& session) {
  GksHooks& hooks = session.gks.hooks;
  hooks.self = &session;
  hooks.render = [](void* self, bool force) { TopRender(Of(self), force); };
  hooks.mouse = [](void* self, int button, float x, float y) { TopMouse(Of(self), button, x, y); };
  hooks.keyboard = [](void* self, int key, float x, float y) { TopKeyboard(Of(self), key, x, y); };
  hooks.idle = [](void* self) { return TopIdle(Of(self)); };
  hooks.take_picture = [](void* self) { return TakeRunPicture(Of(self)); };
  hooks.screen_input = [](void* self, std::string_view text) { TopScreenInput(Of(self), text); };
  hooks.close_menus = [](void* self) { gksMenuClose(Of(self).menus.kit, 0); };
  gksMenuAttach(session.menus.kit, session.platform, session.gks,
                {&session, [](void* self, const MenuEvent& event) { TopMenu(Of(self), event); }});
}

void startgraphics(Session& session) {
  Trace(session.platform.console, "startgraphics");
  session.plot_session.graphics_started = true;
  session.plot_session.menu_pending = session.run.open_options_menu && session.run.initial_plot != InitialPlot::none;
  EnterView(session);
  gksTop(session.platform, session.gks, kTitle);
  zaviewexit(session, kRunFailed);  // no view can be shown, or nobody is there to leave it
}

void zaviewexit(Session& session, int status) {
  constexpr int kDeactivate = 4;
  StopRun(session);
  static_cast<void>(FinishSheet(session.platform, session.gks));
  DropOrder(session.plot_session);
  if (session.plot_session.graphics_started)
    static_cast<void>(dgFrame({session.platform, session.gks, session.page}, kDeactivate));
  zaview_exit(session.platform, status);
}

void TopRender(Session& session, bool force) {
  RunState& run = session.run;
  Trace(session.platform.console, "TopRender");
  if (run.change_module != PlotModule::none) ChangeModule(session);
  else if (run.plot_module == PlotModule::none) LeaveForDialogue(session);
  gksWindowShow(session.gks);
  if (force) run.redraw = true;
  const bool white = gksIsWhite(session.gks);
  if (const View* view = ViewOf(session)) view->render(session);
  if (white != gksIsWhite(session.gks)) gksMenuRefresh(session.menus.kit, 0);
  if (run.exit_requested) zaviewexit(session, run.exit_status);
  if (run.plot_module == PlotModule::none) return GiveUpView(session);
  if (!session.plot_session.run_on) RefreshMenus(session);  // what is fitted is known now
  if (session.plot_session.menu_pending) gksIdleOn(session.platform, session.gks);
}

void TopMouse(Session& session, int button, float x, float y) {
  if (const View* view = ViewOf(session)) view->mouse(session, button, x, y);
  AfterEvent(session);
}

void PressKey(Session& session, int key) {
  const View* view = ViewOf(session);
  if (view == nullptr) return;
  view->before_key(session);
  if (ActOnKey(session, view->keys(session), key)) session.run.redraw = true;
  ServeAsk(session, view->keys(session));
}

void TopKeyboard(Session& session, int key, float, float) {
  session.plot_session.screen_io_option = kNoQuestion;  // one that still stood there went with its window
  PressKey(session, key);
  AfterEvent(session);
}

}  // namespace zaview
