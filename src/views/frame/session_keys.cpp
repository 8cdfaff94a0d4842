#include "views/frame/session_keys.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "base/message.h"
#include "gks/kernel/gks_control.h"
#include "gks/picture/window_dump.h"
#include "gks/window/gks_window.h"
#include "gks/window/text_screen.h"
#include "menu/menu_window.h"
#include "views/frame/plot_session.h"
#include "views/frame/screen_dialogue.h"
#include "views/menus/menus.h"
#include "views/state/plot_selection.h"
#include "views/state/step_run.h"

namespace zaview {

namespace {

constexpr int kNumberedPng = -1;
constexpr int kSpace = ' ';
constexpr KeyScope kByStep = 1U, kAnyView = 2U, kRecords = 4U;

// ---- What the rows do
template <int option>
bool AskCount(Session& s) {
  AskStepCount(s, option);
  return false;
}

bool Leave(Session& s) {
  StopRun(s);
  s.run.plot_module = PlotModule::none;
  return false;
}

bool Quit(Session& s) {
  s.run.exit_requested = true;
  return false;
}

bool Redraw(Session&) {
  return true;
}

bool RequestReverse(Session& s) {
  constexpr int kReversed = 1;
  s.run.plot_colours = kReversed;
  return true;
}

bool NextStyle(Session& s) {
  const bool report = s.gks.style == PictureStyle::report;
  gksSetStyle(s.gks, report ? PictureStyle::classic : PictureStyle::report);
  return true;
}

// Keys may come faster than their pictures: the file holds what the one before asked for.
void WriteImageFile(Session& s) {
  if (s.run.redraw) {
    gksBeginDrawing(s.platform, s.gks);
    TopRender(s, false);
  }
  if (s.run.plot_module != PlotModule::none) static_cast<void>(GKSDUMP(s.platform, s.gks, kNumberedPng));
}

template <ViewAsk what>
bool AskFor(Session& s) {
  s.plot_session.ask = what;
  return false;
}

bool AskCurveMenu(Session& s) {
  return ComponentCount(s.data_plot, s.case_store) > 1 && AskFor<ViewAsk::curve_menu>(s);
}

template <void (*change)(MenuToolkit&)>
bool MenuFont(Session& s) {
  change(s.menus.kit);
  return false;  // of the menu windows alone
}

bool StepBack(Session& s) {
  return StepBy(s, -1);
}

bool StepOn(Session& s) {
  return StepBy(s, 1);
}

bool FirstStep(Session& s) {
  StopRun(s);
  return GoToStep(s, s.case_store.first_step);
}

bool LastStep(Session& s) {
  StopRun(s);
  return GoToStep(s, s.case_store.last_step);
}

// In the order of the help.
// clang-format off
constexpr ViewKey kKeys[] = {
    {'h',             kAnyView, AskFor<ViewAsk::help>,
     {" h      Help - prints a list of interactive commands (graphics window)"}},
    {'H',             kAnyView, AskFor<ViewAsk::help_on_console>,
     {" H      Help - prints a list of interactive commands (text window)"}},
    {'q',             kAnyView, Leave,
     {" q      Quit plot/return to text menu or continue script file"}},
    {'Q',             kAnyView, Quit,
     {" Q      Quit - exit the program"}},
    {'r',             kAnyView, Redraw,
     {" r      Redraw"}},
    {Ctrl('r'),       kAnyView, RequestReverse,
     {"^r      Reverse background color"}},
    {CtrlShift('r'),  kAnyView, NextStyle,
     {"^R      Change style of pictures (classic, for a report)"}},
    {Ctrl('s'),       kRecords, AskCount<kSkipFirst>,
     {"^s      Set # of initial time steps to skip in calulating statistics, etc."}},
    {CtrlShift('s'),  kRecords, AskCount<kSkipLast>,
     {"^S      Set # of terminal time steps to skip in calculating statistics, etc."}},
    {Ctrl('t'),       kRecords, AskCount<kTrimFirst>,
     {"^t      Set # of initial time steps to trim (all output)"}},
    {CtrlShift('t'),  kRecords, AskCount<kTrimLast>,
     {"^T      Set # of terminal time steps to trim (all output)"}},
    {'W',             kAnyView, AskFor<ViewAsk::image_file>,
     {" W      Window dump - save window contents to file"}},
    {kSpace,          kByStep,  ToggleRun,
     {"Space bar - Start/stop run mode (plotting time steps in sequence)"}},
    {Alt(kSpace),     kByStep,  AskFor<ViewAsk::time_step_menu>,
     {"Alt+Space bar - Invoke run mode menu"}},
    {Alt('o'),        kAnyView, AskFor<ViewAsk::options_menu>,
     {"Alt+o bar - Invoke plot options menu"}},
    {Alt('s'),        kRecords, AskCurveMenu,
     {"Alt+s bar - Invoke curve selection menu"}},
    {Alt('+'),        kAnyView, MenuFont<gksMenuFontUp>},
    {Alt('='),        kAnyView, MenuFont<gksMenuFontUp>},
    {Alt('-'),        kAnyView, MenuFont<gksMenuFontDown>},
    {kKeyF1 + 1,      kAnyView, AskFor<ViewAsk::options_menu>,
     {"F2/F3/F4 - Invoke options, selection, time step menu (as Alt+o, Alt+s, Alt+Space)"}},
    {kKeyF1 + 2,      kRecords, AskCurveMenu},
    {kKeyF1 + 3,      kByStep,  AskFor<ViewAsk::time_step_menu>},
    {kKeyPageUp,      kByStep,  StepBack,
     {"Pg up/dn  - Plot previous/next time step",
      "Shift+Pg up/dn  - Plot first/last time step"}},
    {kKeyPageDown,    kByStep,  StepOn},
    {Shift(kKeyPageUp), kByStep, FirstStep},
    {Shift(kKeyPageDown), kByStep, LastStep},
};
// clang-format on

KeyScope SessionScope(const ViewKeys& view) {
  return kAnyView | (view.by_step ? kByStep : 0U) | (view.of_records ? kRecords : 0U);
}

// ---- Which row
int CodeOf(const Session& s, const ViewKeys& view, int key) {
  constexpr int kLastControl = 26;
  const GksModifiers held = gksMouseButtons(s.gks);
  if (held.alt) return Alt(key);
  const bool with_control = key <= kLastControl && held.control;
  const bool shift_counts = held.shift && (with_control || key >= kKeyF1);
  const auto is = [key](const ViewKey& row) { return row.code == Shift(key); };
  const bool has_row =
      std::any_of(view.rows.begin(), view.rows.end(), is) || std::any_of(std::begin(kKeys), std::end(kKeys), is);
  return shift_counts && has_row ? Shift(key) : key;
}

const ViewKey* Find(std::span<const ViewKey> rows, KeyScope scope, int code) {
  for (const ViewKey& row : rows)
    if (row.code == code && (row.scope & scope) != 0) return &row;
  return nullptr;
}

// ---- Help
// Letters come first: plain, capital, with Control; then figures, blank, Alt, pages, arrows, brackets, Escape.
int PlaceOf(int code) {
  constexpr int kEscape = 27, kLastControl = 26, kForms = 4;
  constexpr int kFigures = 200, kBlank = 201, kAltKeys = 202, kPages = 203, kArrows = 204, kOthers = 205, kLast = 206;
  const int key = code & (kWithShift - 1);
  const bool shift = (code & kWithShift) != 0;
  if ((code & kWithAlt) != 0) return kAltKeys;
  if (key == kEscape) return kLast;
  if (key <= kLastControl) return (key - 1) * kForms + (shift ? 3 : 2);
  if (key == kKeyPageUp || key == kKeyPageDown) return kPages;
  if (key >= kKeyF1) return kArrows;
  if (std::isalpha(key) != 0) return (std::tolower(key) - 'a') * kForms + (std::isupper(key) != 0 ? 1 : 0);
  if (std::isdigit(key) != 0) return kFigures;
  return key == kSpace ? kBlank : kOthers;
}

// In a window of its own, or where there is none on the text screen.
void ShowHelp(Session& s, const ViewKeys& view) {
  const std::vector<std::string> lines = HelpLines(view);
  if (InvokeShowFileMenu(s, lines)) return;
  for (std::size_t i = 0; i < lines.size(); ++i) gksScreenLine(s.gks, lines[i], static_cast<int>(i));
  gksScreenShow(s.platform, s.gks);
}

}  // namespace

std::span<const ViewKey> SessionKeys() {
  return kKeys;
}

std::vector<KeyInHelp> KeysInOrder(const ViewKeys& view) {
  std::vector<KeyInHelp> keys;
  const ViewKey* own = std::begin(kKeys);
  const auto add_own = [&] {
    const bool replaced = Find(view.rows, view.scope, own->code) != nullptr;
    keys.push_back({own, (own->scope & SessionScope(view)) != 0 && !replaced});
  };
  for (const ViewKey& row : view.rows) {
    const bool has_place = row.act != nullptr;  // a key of all views stands where this one tells it
    for (; has_place && own != std::end(kKeys) && PlaceOf(own->code) < PlaceOf(row.code); ++own) add_own();
    keys.push_back({&row, (row.scope & view.scope) != 0});
  }
  for (; own != std::end(kKeys); ++own) add_own();
  return keys;
}

std::vector<std::string> HelpLines(const ViewKeys& view) {
  std::vector<std::string> lines(view.heading.begin(), view.heading.end());
  for (const KeyInHelp& key : KeysInOrder(view)) {
    const bool is_own = key.row >= std::begin(kKeys) && key.row < std::end(kKeys);
    if (!key.acts && (is_own || !view.whole_help)) continue;
    for (const std::string_view line : key.row->help)
      if (!line.empty()) lines.emplace_back(line);
  }
  return lines;
}

bool ActOnKey(Session& session, const ViewKeys& view, int key) {
  const int code = CodeOf(session, view, key);
  const ViewKey* row = Find(view.rows, view.scope, code);
  if (row == nullptr || row->act == nullptr) row = Find(kKeys, SessionScope(view), code);
  return row != nullptr && row->act(session);
}

void ServeAsk(Session& session, const ViewKeys& view) {
  switch (std::exchange(session.plot_session.ask, ViewAsk::none)) {
    case ViewAsk::none:
      return;
    case ViewAsk::options_menu:
      return ToggleMenu(session, InvokeOptionsMenu, &MenuState::m_omenu);
    case ViewAsk::curve_menu:
      return ToggleMenu(session, InvokeCurveSelectionMenu, &MenuState::m_csmenu);
    case ViewAsk::time_step_menu:
      return ToggleMenu(session, InvokeTimeStepMenu, &MenuState::m_tsmenu);
    case ViewAsk::help:
      return ShowHelp(session, view);
    case ViewAsk::help_on_console:
      for (const std::string& line : HelpLines(view)) SayLine(session.platform.console, line);
      return;
    case ViewAsk::image_file:
      return WriteImageFile(session);
  }
}

}  // namespace zaview
