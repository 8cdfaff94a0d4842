#include "views/menus/menus.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/message.h"
#include "case/case_hull.h"
#include "gks/window/gks_window.h"
#include "menu/menu_build.h"
#include "menu/menu_window.h"
#include "views/data_plot/data_plot.h"
#include "views/geometry/geometry_view.h"
#include "views/menus/option_builder.h"
#include "views/motion/motion_view.h"
#include "views/state/axes_limits.h"

namespace zaview {

namespace {

constexpr std::string_view kConfirm = "Confirmation pending - input ignored";
constexpr std::string_view kLogicError = "LOGIC ERROR parsing menu input";
constexpr std::string_view kNoGraph = "Error determining Graph index";
constexpr fmt::string_view kMenuInput = "MenuInput: {} {} {} {} {} {}";
constexpr fmt::string_view kSettingUp = "Setting up color selection menu; itype={}";
constexpr int kHelpLines = 40, kHelpFont = 3, kMostLines = 2000;
constexpr int kFollowsContent = 0, kOnlyGrows = 1;  // how a window's size goes

using Window = int MenuState::*;

// ---- Which view, which menus

constexpr ViewOptions (*kOptionsOf[])(const Session&) = {nullptr, DataPlotOptions, MotionOptions, GeometryOptions};

bool HasView(const Session& s) {
  return s.run.plot_module != PlotModule::none;
}

bool HasPoint(const Session& s) {
  return s.run.plot_module == PlotModule::data_plot || s.run.plot_module == PlotModule::animation;
}

// The item that it sets goes with its view.
bool HasTarget(const Session& s) {
  return HasView(s) && s.run.plot_module == s.menus.select_view;
}

void BuildOptionsMenu(Session& s, int im) {
  static_cast<void>(EnsureHull(s.platform, s.case_store));  // which views there are goes by it
  const ViewOptions view = OptionsOf(s);
  AddOptions(s, im, {FirstOptions(), kAlways});
  AddOptions(s, im, view);
  AddOptions(s, im, {LastOptions(), kAlways});
}

template <ViewOptions (*options)(const Session&)>
void BuildTable(Session& s, int im) {
  AddOptions(s, im, options(s));
}

void BuildSelect(Session& s, int) {
  if (s.menus.select_use == SelectUse::colours) BuildColours(s);
  else BuildQuantities(s);
}

// What is chosen there is set by the item that asked.
void TakeSelected(Session& s, const MenuEvent& event) {
  const OptionTarget& target = s.menus.last_colour_target;
  if (event.change == MenuChange::button || event.change == MenuChange::list_twice)
    return gksMenuClose(s.menus.kit, event.menu);
  if (target.option == nullptr) return SayLine(s.platform.console, kNoGraph);
  OptionEvent chosen;
  chosen.change = event.change;
  chosen.integer = event.integer;
  chosen.index = target.index;
  if (const std::string_view refused = SetOption(s, *target.option, chosen); !refused.empty())
    SayLine(s.platform.console, refused);
}

void BuildHelp(Session& s, int) {
  MenuToolkit& kit = s.menus.kit;
  const std::vector<std::string>& lines = s.menus.shown_lines;
  gksMenuSetAttribute(kit, MenuAttribute::font_step, kHelpFont);
  const int count = std::max(static_cast<int>(lines.size()), 1);
  gksMenuSelectionList(kit, kOneInBox, count, 0, std::min(count, kHelpLines));
  for (std::size_t i = 0; i < lines.size(); ++i) gksMenuAddListItem(kit, lines[i], static_cast<int>(i) + 1);
}

void BuildMessage(Session& s, int) {
  for (const std::string& line : s.menus.message) gksMenuText(s.menus.kit, line);
  AddCloseButton(s.menus.kit);
}

void CloseMessage(Session& s, const MenuEvent& event) {
  if (event.change == MenuChange::button) gksMenuClose(s.menus.kit, event.menu);
}

void Nothing(Session&, const MenuEvent&) {}

struct MenuRow {
  Window window;
  std::string_view name, title;
  bool (*fits)(const Session& session);  // else it closes
  bool is_dialogue;                      // closes by Escape
  void (*build)(Session& session, int im);
  void (*input)(Session& session, const MenuEvent& event) = nullptr;  // null: by the rows of its tables
  int resizing = kFollowsContent;
};

constexpr MenuRow kMenus[] = {
    {&MenuState::m_omenu, "m_omenu", "Plot Options", HasView, false, BuildOptionsMenu},
    {&MenuState::m_tsmenu, "m_tsmenu", "Time Step", CanSelectSteps, false, BuildTable<TimeStepOptions>},
    {&MenuState::m_csmenu, "m_csmenu", "Curve Selection", CanSelectCurves, false, BuildTable<CurveOptions>, nullptr,
     kOnlyGrows},  // names of curves are as wide as they are: it would never stand still
    {&MenuState::m_select, "m_select", "Select", HasTarget, true, BuildSelect, TakeSelected},
    {&MenuState::m_point, "m_point", "Point Input", HasPoint, true, BuildTable<PointOptions>},
    {&MenuState::m_help, "m_help", "Help", HasView, true, BuildHelp, Nothing},
    {&MenuState::m_message, "m_message", "ZAVIEW Message", HasView, true, BuildMessage, CloseMessage},
};

const MenuRow& RowOf(Window window) {
  return *std::find_if(std::begin(kMenus), std::end(kMenus), [&](const MenuRow& row) { return row.window == window; });
}

const MenuRow* RowOf(const MenuState& menus, int im) {
  const auto found = std::find_if(std::begin(kMenus), std::end(kMenus),
                                  [&](const MenuRow& row) { return im != 0 && menus.*row.window == im; });
  return found == std::end(kMenus) ? nullptr : found;
}

// ---- Windows

// False: there is none to be had.
bool Build(Session& s, const MenuRow& row, bool raise) {
  MenuState& menus = s.menus;
  const int im = gksMenuInit(menus.kit, row.title);
  if (im == 0) return false;
  clearMenuData(menus, im);
  menus.*row.window = im;
  gksMenuSetAttribute(menus.kit, MenuAttribute::resize_policy, row.resizing);
  SlotOf(menus.kit, im).escape_closes = row.is_dialogue;
  row.build(s, im);
  if (gksMenuStart(menus.kit, raise)) return true;
  menus.*row.window = 0;
  clearMenuData(menus, im);
  return false;
}

void Invoke(Session& s, Window window, MenuMode mode) {
  MenuState& menus = s.menus;
  const MenuRow& row = RowOf(window);
  const bool is_open = gksMenuIsOpen(menus.kit, menus.*window);
  if (menus.kit.platform == nullptr || s.platform.window.offscreen) return;  // nobody is there to see it
  if (mode == MenuMode::close || (is_open && !row.fits(s))) return gksMenuClose(menus.kit, menus.*window);
  if ((mode == MenuMode::rebuild && !is_open) || !row.fits(s)) return;
  if (Build(s, row, mode == MenuMode::open)) Trace(s.platform.console, "{}= {}", row.name, menus.*window);
}

void InvokeSelect(Session& s, SelectUse use, const OptionTarget& target) {
  s.menus.select_use = use;
  s.menus.last_colour_target = target;
  s.menus.select_view = s.run.plot_module;
  Invoke(s, &MenuState::m_select, MenuMode::open);
}

// ---- Events

// A menu that is gone: the next of its slot is another one.
void Forget(Session& s, const MenuEvent& event) {
  if (const MenuRow* const row = RowOf(s.menus, event.menu)) s.menus.*row->window = 0;
  clearMenuData(s.menus, event.menu);
}

bool ConfirmationPending(const MenuToolkit& kit) {
  return kit.files.menu != 0 && (kit.files.overwrite_pending || kit.files.notexist_pending);
}

// The event's own numbers, for who looks into the log.
void SayLogicError(Session& s, const MenuEvent& e) {
  SayLine(s.platform.console, kLogicError);
  Say(s.platform.console, kMenuInput, e.menu, e.element, e.item, static_cast<int>(e.change), e.integer, e.real);
}

void OpenFor(Session& s, const OptionPlace& place, const MenuEvent& event) {
  const OptionTarget target{place.option, place.index, event.integer};
  if (place.option->kind == OptionKind::colour) {
    Trace(s.platform.console, kSettingUp, event.element);
    InvokeColorMenu(s, target);
  } else if (place.option->kind == OptionKind::quantity) InvokeQntMenu(s, target);
  else InvokePointMenu(s, MenuMode::open);
}

void TakeEvent(Session& s, const MenuEvent& event) {
  const MenuRow* const row = RowOf(s.menus, event.menu);
  if (row != nullptr && row->input != nullptr) return row->input(s, event);
  const OptionPlace* const place = FindOption(s.menus, event);
  if (place == nullptr) return SayLogicError(s, event);
  const OptionKind kind = place->option->kind;
  if (kind == OptionKind::colour || kind == OptionKind::quantity || kind == OptionKind::point)
    return OpenFor(s, OptionPlace(*place), event);
  const OptionEvent told{event.change, event.integer, event.real, event.text, place->index, event.item};
  const std::string_view refused = SetOption(s, *place->option, told);
  if (refused.empty()) return;
  SayLine(s.platform.console, refused);
  // A field shows that its value wasn't taken; a file that wasn't written shows nowhere in the window.
  if (kind == OptionKind::file) static_cast<void>(InvokeMessageWindow(s, {std::string(refused)}));
}

}  // namespace

bool CanSelectSteps(const Session& session) {
  if (!session.case_store.has_steps()) return false;
  const PlotModule module = session.run.plot_module;
  return module == PlotModule::animation ||
         (module == PlotModule::data_plot && session.data_plot.kind == PlotKind::load_dist);
}

bool CanSelectCurves(const Session& session) {
  return session.run.plot_module == PlotModule::data_plot && session.data_plot.kind != PlotKind::trajectory;
}

ViewOptions OptionsOf(const Session& session) {
  const auto options = kOptionsOf[static_cast<std::size_t>(session.run.plot_module)];
  return options == nullptr ? ViewOptions{} : options(session);
}

void InvokeOptionsMenu(Session& session, MenuMode mode) {
  Invoke(session, &MenuState::m_omenu, mode);
}
void InvokeTimeStepMenu(Session& session, MenuMode mode) {
  Invoke(session, &MenuState::m_tsmenu, mode);
}
void InvokeCurveSelectionMenu(Session& session, MenuMode mode) {
  Invoke(session, &MenuState::m_csmenu, mode);
}
void InvokePointMenu(Session& session, MenuMode mode) {
  Invoke(session, &MenuState::m_point, mode);
}
void InvokeQntMenu(Session& session, const OptionTarget& target) {
  InvokeSelect(session, SelectUse::quantities, target);
}
void InvokeColorMenu(Session& session, const OptionTarget& target) {
  InvokeSelect(session, SelectUse::colours, target);
}

bool InvokeShowFileMenu(Session& session, std::vector<std::string> lines) {
  session.menus.shown_lines = std::move(lines);
  if (session.menus.shown_lines.size() > kMostLines) session.menus.shown_lines.resize(kMostLines);
  Invoke(session, &MenuState::m_help, MenuMode::open);
  return session.menus.m_help != 0;
}

bool InvokeMessageWindow(Session& session, std::vector<std::string> lines) {
  session.menus.message = std::move(lines);
  Invoke(session, &MenuState::m_message, MenuMode::open);
  return session.menus.m_message != 0;
}

void ToggleMenu(Session& session, void (*invoke)(Session&, MenuMode), int MenuState::*window) {
  invoke(session, session.menus.*window != 0 ? MenuMode::close : MenuMode::open);
}

void RefreshMenus(Session& session) {
  for (const MenuRow& row : kMenus)
    if (session.menus.*row.window != 0) Invoke(session, row.window, MenuMode::rebuild);
}

void FollowRun(Session& session) {
  constexpr double kLeast = 0.05;  // seconds between two
  MenuState& menus = session.menus;
  PlotSessionState& run = session.plot_session;
  if (menus.m_tsmenu == 0 || (run.run_on && !run.step_stale)) return;
  const double now = session.platform.clock.seconds(session.platform.clock.self);
  const double since = now - menus.refreshed_at;
  if (run.run_on && now >= 0 && since >= 0 && since < kLeast) return;  // below 0: there is no clock
  menus.refreshed_at = now;
  InvokeTimeStepMenu(session, MenuMode::rebuild);
  run.step_stale = false;
}

void topMenuInput(Session& session, const MenuEvent& event) {
  if (event.change == MenuChange::closed) return Forget(session, event);
  if (DropZoom(session.data_plot.axes)) session.run.redraw = true;
  if (DropZoom(session.geometry_view.axes)) session.run.redraw = true;
  if (ConfirmationPending(session.menus.kit)) return SayLine(session.platform.console, kConfirm);
  TakeEvent(session, event);
  session.run.redraw = true;
}

}  // namespace zaview
