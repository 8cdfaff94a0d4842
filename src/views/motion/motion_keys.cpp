// The keys of the animation: a row each with its effect and its line of the help.
#include <algorithm>
#include <string_view>

#include "analysis/run_events.h"
#include "base/message.h"
#include "base/number_format.h"
#include "gks/window/gks_window.h"
#include "views/motion/motion_events.h"
#include "views/motion/motion_scene.h"
#include "views/motion/motion_stage.h"
#include "views/motion/motion_view.h"
#include "views/state/camera_settings.h"
#include "views/state/drawn_sizes.h"
#include "views/state/motion_settings.h"
#include "views/state/step_run.h"

namespace zaview {

namespace {

constexpr std::string_view kSyncFactor = "Time sync factor= {}";
constexpr std::string_view kSyncOn = "Time sync now ON", kSyncOff = "Time sync now OFF";
constexpr std::string_view kOpacity = "Opacity= {}";
constexpr std::string_view kView = "View Radius= {} Azimuth= {} Elevation= {}";
constexpr std::string_view kStand = "View point goes along with: {}";
constexpr std::string_view kStands[] = {"ship", "ship and its heading", "nothing", "bridge"};  // by CameraStand
constexpr std::string_view kNoEvent = "No further event";

constexpr double kZoom = 1.414, kTurn = 5.0, kWider = 5.0;  // the latter two: degrees

template <bool MotionViewState::*flag>
bool Toggle(Session& s) {
  s.motion_view.*flag = !(s.motion_view.*flag);
  return true;
}

// ---- Eye
template <int azimuth, int elevation>
bool Turn(Session& s) {
  TurnEye(s.motion_view.view, kTurn * azimuth, kTurn * elevation);
  return true;
}

enum class Way : signed char { smaller = -1, larger = 1 };

template <Way way>
bool Zoom(Session& s) {  // of the radius
  ScaleRadius(s.motion_view.view, SizesOf(s), way == Way::larger ? kZoom : 1.0 / kZoom);
  return true;
}

template <double ScenePoint::*axis, Way way>
bool Shift(Session& s) {
  ShiftCentre(s.motion_view.view, SizesOf(s), axis, static_cast<int>(way));
  return true;
}

template <Way way>
bool Widen(Session& s) {
  WidenView(s.motion_view.view, kWider * static_cast<int>(way));
  return true;
}

template <std::size_t preset>
bool From(Session& s) {
  LookFrom(s.motion_view.view, CameraPresets()[preset]);
  return true;
}

bool FirstView(Session& s) {
  LookAsAtFirst(s.motion_view);
  return true;
}

bool NextStand(Session& s) {
  CameraStand stand = s.motion_view.stand;
  NextOf(stand, static_cast<int>(std::size(kStands)));
  ChooseStand(s.motion_view, stand);
  ChooseEarth(s.motion_view, s.case_store, s.output.units.scales);
  Say(s.platform.console, kStand, kStands[static_cast<std::size_t>(stand)]);
  return true;
}

bool TellView(Session& s) {
  const Camera& view = s.motion_view.view;
  const auto shown = [](double value) { return Shown{static_cast<float>(value)}; };
  Say(s.platform.console, kView, shown(SizesOf(s).radius), shown(view.view_azimuth), shown(view.view_elevation));
  return false;
}

bool TogglePerspective(Session& s) {
  s.motion_view.view.perspective = !s.motion_view.view.perspective;
  return true;
}

// ---- Looks
template <Way way>
bool Ambient(Session& s) {
  const float before = s.motion_view.ambient;
  StepAmbient(s.motion_view, static_cast<int>(way));
  return s.motion_view.ambient != before;
}

template <Way way>
bool Opacity(Session& s) {
  StepOpacity(s.motion_view, static_cast<int>(way));
  Say(s.platform.console, kOpacity, Shown{s.motion_view.fs_opacity});
  return true;
}

template <Way way>
bool Text(Session& s) {
  ScaleText(s.motion_view.text_size, way == Way::larger ? kTextFactor : 1.0F / kTextFactor);
  return true;
}

template <Way way>
bool Grid(Session& s) {
  constexpr auto kFactor = static_cast<double>(kRoot2);
  ScaleGrid(s.motion_view, SizesOf(s), way == Way::larger ? kFactor : 1.0 / kFactor);
  return true;
}

bool Thickness(Session& s) {
  NextThickness(s.motion_view.line_thickness);
  return true;
}

bool NextColour(Session& s) {
  NextOf(s.motion_view.hull_colour, 2);
  return true;
}

bool Redraw(Session&) {
  return true;
}

// ---- Steps
template <Way way>  // of the time that a step is shown
bool Sync(Session& s) {
  ScaleSync(s, way == Way::larger ? kRoot2 : 1.0F / kRoot2);
  Say(s.platform.console, kSyncFactor, Shown{s.plot_session.run_sync_factor});
  return false;
}

bool ToggleSync(Session& s) {
  SetSync(s, !s.plot_session.run_sync);
  SayLine(s.platform.console, s.plot_session.run_sync ? kSyncOn : kSyncOff);
  return false;
}

bool Rewind(Session& s) {
  return GoToStep(s, s.case_store.first_step);
}

template <int strides>
bool Step(Session& s) {
  return StepBy(s, strides);
}

template <int direction>
bool GoToEvent(Session& s) {
  UpdateMotionEvents(SourceOf(s), s.motion_view);
  StopRun(s);
  const RunEvent* const event = NextEvent(s.motion_view.events.list, s.case_store.current_step, direction);
  if (event != nullptr) return GoToStep(s, event->step);
  SayLine(s.platform.console, kNoEvent);
  return false;
}

// Keys that act in every view have their own words here.
constexpr auto kOfSession = nullptr;

// In the order of the help. Deliberate: "-" and "+" are told as "zooms in/out" the wrong way round.
// clang-format off
constexpr ViewKey kKeys[] = {
    {'a',             kAlways,  Ambient<Way::smaller>,
     {" a/A    Decrease/increase ambient lighting level for solid, light-shaded geometry"}},
    {'A',             kAlways,  Ambient<Way::larger>},
    {'b',             kAlways,  Rewind,
     {" b      Back animation to beginning of run"}},
    {'B',             kAlways,  Zoom<Way::larger>,
     {" B      Backs view out (zooms out)"}},
    {Ctrl('b'),       kAlways,  Toggle<&MotionViewState::hull_solid>,
     {"^b      Toggles solid geometry plot for ship hull"}},
    {'c',             kAlways,  Sync<Way::larger>,
     {" c/C    Slow down/speed up simulation vs. wall clock"}},
    {'C',             kAlways,  Sync<Way::smaller>},
    {Ctrl('c'),       kAlways,  ToggleSync,
     {"^c      Toggles synchronization of simulation to wall clock"}},
    {'e',             kAlways,  Text<Way::smaller>,
     {" e/E    Decrease/Increase size of annotation text"}},
    {'E',             kAlways,  Text<Way::larger>},
    {'g',             kAlways,  Grid<Way::smaller>,
     {" g/G    Decrease/Increase size of FS grid"}},
    {'G',             kAlways,  Grid<Way::larger>},
    {'h',             kAlways,  kOfSession,
     {" h/H    Help - prints a list of interactive commands"}},
    {'H',             kAlways,  kOfSession},
    {'i',             kAlways,  Toggle<&MotionViewState::show_events>,
     {" i      Toggle bar of events (largest roll and pitch, slams, water on deck)"}},
    {'k',             kAlways,  Toggle<&MotionViewState::show_centres>,
     {" k      Toggle marks of CG and center of buoyancy"}},
    {'l',             kAlways,  Toggle<&MotionViewState::show_waterline>,
     {" l      Toggle waterline on ship hull"}},
    {Ctrl('l'),       kAlways,  Toggle<&MotionViewState::shading_on>,
     {"^l      Toggles light source shading for solid geometry"}},
    {'n',             kAlways,  GoToEvent<1>,
     {" n/N    Plot time step of next/previous event"}},
    {'N',             kAlways,  GoToEvent<-1>},
    {Ctrl('p'),       kAlways,  TogglePerspective,
     {"^p      Switches between perspective and orthographic projection"}},
    {'q',             kAlways,  kOfSession,
     {" q      Quit - return to menu"}},
    {'Q',             kAlways,  kOfSession,
     {" Q      Quit - exit program"}},
    {'o',             kAlways,  Opacity<Way::smaller>,
     {" o/O    Decrease/increase opacity for solid free surface geometry"}},
    {'O',             kAlways,  Opacity<Way::larger>},
    {Alt('o'),        kAlways,  kOfSession,
     {"Alt+o   Invoke options menu"}},
    {'r',             kAlways,  Toggle<&MotionViewState::show_rudders>,
     {" r      Toggle rudders"}},
    {'R',             kAlways,  Redraw,
     {" R      Redraw"}},
    {Ctrl('r'),       kAlways,  kOfSession,
     {"^r      Reverse background color"}},
    {CtrlShift('r'),  kAlways,  kOfSession,
     {"^R      Change style of pictures (classic, for a report)"}},
    {'s',             kAlways,  NextStand,
     {" s      Change what view point goes along with (ship, its heading, nothing, bridge)"}},
    {Ctrl('s'),       kAlways,  Toggle<&MotionViewState::fs_solid>,
     {"^s      Toggles solid geometry for seaway"}},
    {'t',             kAlways,  Thickness,
     {" t      Change line thickness"}},
    {'T',             kAlways,  Toggle<&MotionViewState::show_title>,
     {" T      Toggle plot title"}},
    {Ctrl('t'),       kAlways,  Toggle<&MotionViewState::show_track>,
     {"^t      Toggle ship track"}},
    {'u',             kAlways,  Toggle<&MotionViewState::horizon>,
     {" u      Toggle seaway up to horizon"}},
    {'v',             kAlways,  TellView,
     {" v      Write current view radius/azim/eleve to screen"}},
    {'w',             kAlways,  NextColour,
     {" w      Toggle coloring of ship hull by wetness"}},
    {'W',             kAlways,  kOfSession,
     {" W      Window dump - save window contents to file"}},
    {'x',             kAlways,  Shift<&ScenePoint::x, Way::smaller>,
     {" x/X    Shift view center in -/+ X"}},
    {'X',             kAlways,  Shift<&ScenePoint::x, Way::larger>},
    {'y',             kAlways,  Shift<&ScenePoint::y, Way::smaller>,
     {" y/Y    Shift view center in -/+ Y"}},
    {'Y',             kAlways,  Shift<&ScenePoint::y, Way::larger>},
    {'z',             kAlways,  Shift<&ScenePoint::z, Way::smaller>,
     {" z/Z    Shift view center in -/+ Z"}},
    {'Z',             kAlways,  Shift<&ScenePoint::z, Way::larger>},
    {'-',             kAlways,  Zoom<Way::larger>,
     {"-/+     Increase/decrease view radius (zooms in/out)"}},
    {'+',             kAlways,  Zoom<Way::smaller>},
    {'=',             kAlways,  Zoom<Way::smaller>},
    {'[',             kAlways,  Step<-1>,
     {"[/]     Plot previous/next time step"}},
    {']',             kAlways,  Step<1>},
    {'{',             kAlways,  Widen<Way::smaller>,
     {"{/}     Decrease/increase view width  (changes perspective)"}},
    {'}',             kAlways,  Widen<Way::larger>},
    {kKeyLeft,        kAlways,  Turn<-1, 0>,
     {"Arrows  Rotate view point left, right, up, down"}},
    {kKeyRight,       kAlways,  Turn<1, 0>},
    {kKeyUp,          kAlways,  Turn<0, 1>},
    {kKeyDown,        kAlways,  Turn<0, -1>},
    {'1',             kAlways,  From<0>,
     {"1-6     View from bow, stern, port, starboard, top, quarter"}},
    {'2',             kAlways,  From<1>},
    {'3',             kAlways,  From<2>},
    {'4',             kAlways,  From<3>},
    {'5',             kAlways,  From<4>},
    {'6',             kAlways,  From<5>},
    {'0',             kAlways,  FirstView,
     {"0       View as at first"}},
    {' ',             kAlways,  kOfSession,
     {"Space bar - Start/stop run mode (plotting time steps in sequence)"}},
    {Alt(' '),        kAlways,  kOfSession,
     {"Alt+Space bar - Invoke run mode menu"}},
    {kKeyEnd,         kAlways,  StartPictureRun,
     {"End key   - Run from current step, saving plot of each time step"}},
    {kKeyPageUp,      kAlways,  kOfSession,
     {"Pg up/dn  - Plot previous/next time step",
      "Shift+Pg up/dn  - Plot first/last time step"}},
    {kKeyPageDown,    kAlways,  kOfSession},
};
// clang-format on

constexpr std::string_view kMouseHelp[] = {
    "The plot is controlled by the mouse and keyboard.",
    "LEFT mouse click starts/stops animation",
    "Alt-key or Ctrl-key plus a mouse click brings pop-up window for invoking menus",
    " Key    Function",
};

}  // namespace

ViewKeys MotionKeys(const Session&) {
  return {kKeys, kAlways, kMouseHelp, true};
}

void BeforeMotionKey(Session& session) {
  if (session.motion_view.popup.open) session.run.redraw = true;
  session.motion_view.popup.open = false;
}

}  // namespace zaview
