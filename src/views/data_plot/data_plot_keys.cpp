// The keys of the data plot: a row each with its effect and its line of the help.
#include "views/data_plot/data_plot_keys.h"

#include <algorithm>
#include <cmath>

#include "base/message.h"
#include "case/quantity_catalogue.h"
#include "gks/picture/window_dump.h"
#include "gks/window/gks_window.h"
#include "views/data_plot/data_plot.h"
#include "views/data_plot/plot_type.h"
#include "views/data_plot/screen_dialogue.h"

namespace zaview {

namespace {

constexpr std::string_view kNoMenu = "{} : this menu is not available yet";
constexpr std::string_view kOtherKind = "Use Options Menu (alt-o) to select plot type";
constexpr std::string_view kNoSmoothing = "Data smoothing: OFF";
constexpr std::string_view kLocalFits = "Data smoothing: Local least-squares fits";
constexpr std::string_view kCubicFit =
    "Data smoothing: Cubic polynomial fit to specified window (currently {} time steps)";
constexpr int kNumberedPng = -1;
constexpr int kSpace = ' ', kEscape = 27;

constexpr PlotKinds kHistory = In(PlotKind::history), kTrajectory = In(PlotKind::trajectory),
                    kLoadDist = In(PlotKind::load_dist), kHistogram = In(PlotKind::histogram),
                    kInterval = In(PlotKind::interval);
constexpr PlotKinds kOneCurve = kHistogram | kInterval | In(PlotKind::autocovariance) | In(PlotKind::autocorrelation);
constexpr PlotKinds kOfComponents = kHistory | kLoadDist | kOneCurve;

// Sizes stay where something can be seen of them.
constexpr float kTextFactor = 1.1F, kLeastText = 0.02F, kMostText = 1.0F;
constexpr float kMarkFactor = 1.414F, kLeastMark = 0.05F, kMostMark = 50.0F;
constexpr float kRoot2 = 1.4142135F, kLeastShip = 1.0e-3F, kMostShip = 1.0e3F;

bool Scale(float& value, float factor, float least, float most) {
  value = std::clamp(value * factor, least, most);
  return true;
}

template <bool DataPlotState::*flag>
bool Toggle(Session& s) {
  s.data_plot.*flag = !(s.data_plot.*flag);
  return true;
}

template <typename Enum>
void Next(Enum& value, int count) {
  value = static_cast<Enum>((static_cast<int>(value) + 1) % count);
}

// ---- What is shown
void FitUnlessKept(DataPlotState& plot) {
  if (plot.keep_scale) return;
  plot.rescale = true;
  plot.limits_changed = false;
}

bool TakeComponent(Session& s, int component) {
  DataPlotState& plot = s.data_plot;
  if (plot.plot_component == component) return false;
  plot.plot_component = component;
  plot.redo_hist = plot.redo_cov = plot.redo_conf = true;
  if (plot.kind != PlotKind::load_dist) FitUnlessKept(plot);
  return true;
}

bool NextComponent(Session& s) {
  const DataPlotState& plot = s.data_plot;
  const int count = CurveCount(s.case_store, plot.quantity.iqnt);
  const bool shows_all = PlotTypeOf(plot.kind).shows_all;
  if (count < 1 || (count == 1 && shows_all)) return TakeComponent(s, shows_all ? 0 : 1);
  const int next = (std::max(plot.plot_component, 0) + 1) % (count + 1);
  return TakeComponent(s, next == 0 && !shows_all ? 1 : next);
}

template <int component>
bool Component(Session& s) {
  return component <= CurveCount(s.case_store, s.data_plot.quantity.iqnt) && TakeComponent(s, component);
}

// Of the one that is selected: is it left out where all are shown?
bool ToggleDrawing(Session& s) {
  DataPlotState& plot = s.data_plot;
  if (plot.plot_component < 1 || plot.plot_component > CurveCount(s.case_store, plot.quantity.iqnt)) return false;
  const auto i = static_cast<std::size_t>(plot.plot_component - 1);
  if (plot.hidden.size() <= i) plot.hidden.resize(i + 1, 0);
  plot.hidden[i] = plot.hidden[i] == 0 ? 1 : 0;
  return true;
}

template <int direction>
bool OtherQuantity(Session& s) {
  ChangeQuantity(s, direction, s.data_plot.keep_scale);
  return s.run.redraw;
}

// The limits in use are then those of another quantity: a click outside fits them.
template <int direction>
bool OtherQuantityInScale(Session& s) {
  const int before = s.data_plot.quantity.iqnt;
  ChangeQuantity(s, direction, true);
  if (s.data_plot.quantity.iqnt != before) s.data_plot.limits_changed = true;
  return s.run.redraw;
}

template <int direction>
bool OtherStatistic(Session& s) {
  constexpr int kStatistics = 4;
  DataPlotState& plot = s.data_plot;
  plot.statistic = (plot.statistic - 1 + direction + kStatistics) % kStatistics + 1;
  plot.redo_conf = true;
  FitUnlessKept(plot);
  return true;
}

bool SwitchHistogram(Session& s) {
  DataPlotState& plot = s.data_plot;
  const bool back = plot.kind == PlotKind::histogram;
  if (!s.case_store.time_history() || (!back && plot.kind != PlotKind::history)) {
    SayLine(s.platform.console, kOtherKind);
    return false;
  }
  plot.kind = back ? PlotKind::history : PlotKind::histogram;
  plot.of_ensemble = !back && s.ensemble.nrec > 1;
  MarkAllStale(plot);
  return FitAll(s);
}

bool NextHistogramData(Session& s) {
  Next(s.statistics.histogram.data, 3);
  s.data_plot.redo_hist = true;
  return true;
}

bool NextOverlay(Session& s) {
  Next(s.statistics.histogram.overlay, 6);
  s.data_plot.redo_hist = true;
  return true;
}

// The Fourier series is passed over: it is for scripts.
bool NextSmoothing(Session& s) {
  constexpr int kOff = 0, kLocal = 1, kCubic = 3;
  int& option = s.output.smoothing.option;
  option = option == kOff ? kLocal : option == kCubic ? kOff : kCubic;
  const Console& console = s.platform.console;
  if (option == kCubic) Say(console, kCubicFit, s.output.smoothing.window);
  else SayLine(console, option == kOff ? kNoSmoothing : kLocalFits);
  MarkAllStale(s.data_plot);
  s.data_plot.settings = s.output;
  return true;
}

// ---- Looks
bool ToggleMarks(Session& s) {
  DataPlotState& plot = s.data_plot;
  if (gksMouseButtons(s.gks).shift) plot.mark_every = 0;
  else plot.mark_every = plot.mark_every > 0 ? -plot.mark_every : plot.mark_base;
  return true;
}

bool NoMarks(Session& s) {
  s.data_plot.mark_every = 0;
  return true;
}

bool NextMarkBase(Session& s) {
  constexpr int kMost = 1000;
  DataPlotState& plot = s.data_plot;
  plot.mark_base = plot.mark_base >= kMost ? 1 : plot.mark_base * 10;
  if (plot.mark_every != 0) plot.mark_every = plot.mark_every > 0 ? plot.mark_base : -plot.mark_base;
  return true;
}

bool NextThickness(Session& s) {
  constexpr float kStep = 0.04F, kMost = 0.08F, kTolerance = 0.001F;
  float& thickness = s.data_plot.line_thickness;
  if (std::abs(thickness) < kTolerance) thickness = kStep;
  else thickness = std::abs(thickness - kStep) < kTolerance ? kMost : 0.0F;
  return true;
}

bool RequestReverse(Session& s) {
  constexpr int kReversed = 1;
  s.run.plot_colours = kReversed;
  return true;
}

// ---- Trajectory
bool ToggleAspect(Session& s) {
  DataPlotState& plot = s.data_plot;
  plot.keep_aspect = !plot.keep_aspect;
  if (!plot.limits_changed) plot.rescale = true;
  return true;
}

// ---- Menus, help, the end
bool AskCurveMenu(Session& s) {
  if (CurveCount(s.case_store, s.data_plot.quantity.iqnt) > 1) SayNoMenu(s, kCurveMenu);
  return false;
}

bool SayHelp(Session& s) {
  std::vector<std::string> lines;
  zaviewhelp(s, lines);
  for (const std::string& line : lines) SayLine(s.platform.console, line);
  return false;
}

bool Leave(Session& s) {
  StopRun(s);
  s.run.plot_module = 0;
  return false;
}

// ---- Rows that change one field
enum class Way : bool { smaller, larger };

template <float DataPlotState::*size, Way way>
bool ScaleText(Session& s) {
  return Scale(s.data_plot.*size, way == Way::larger ? kTextFactor : 1.0F / kTextFactor, kLeastText, kMostText);
}

template <Way way>
bool ScaleMarks(Session& s) {
  return Scale(s.data_plot.mark_size, way == Way::larger ? kMarkFactor : 1.0F / kMarkFactor, kLeastMark, kMostMark);
}

template <Way way>
bool ScaleShip(Session& s) {
  return Scale(s.data_plot.geometry_scale, way == Way::larger ? kRoot2 : 1.0F / kRoot2, kLeastShip, kMostShip);
}

template <Way way>
bool ScaleSpacing(Session& s) {
  return ScaleHullSpacing(s, way == Way::larger ? kRoot2 : 1.0F / kRoot2);
}

template <auto DataPlotState::*field, int count>
bool Cycle(Session& s) {
  Next(s.data_plot.*field, count);
  return true;
}

template <int option>
bool AskCount(Session& s) {
  AskStepCount(s, option);
  return false;
}

// Panning, in ranges of the axis.
template <bool (*pan)(Session&, float), int direction>
bool Pan(Session& s) {
  return pan(s, 0.5F * static_cast<float>(direction));
}

bool FasterOrColour(Session& s) {
  return s.motion_view.run_sync ? ScaleSync(s, kRoot2) : Toggle<&DataPlotState::colour_on>(s);
}

bool Slower(Session& s) {
  return ScaleSync(s, 1.0F / kRoot2);
}

bool ToggleWave(Session& s) {
  s.data_plot.redo_data = true;
  return Toggle<&DataPlotState::wave_overlay>(s);
}

bool StepBack(Session& s) {
  return GoToStep(s, s.case_store.current_step - 1);
}

bool StepOn(Session& s) {
  return GoToStep(s, s.case_store.current_step + 1);
}

bool FirstStep(Session& s) {
  return GoToStep(s, s.case_store.first_step);
}

bool LastStep(Session& s) {
  return GoToStep(s, s.case_store.last_step);
}

bool Redraw(Session&) {
  return true;
}

bool Nothing(Session&) {  // a key press alone clears what is measured
  return false;
}

bool ShowHelp(Session& s) {
  ShowPlotHelp(s);
  return false;
}

bool AskSteps(Session& s) {
  AskHullSteps(s);
  return false;
}

bool AskFile(Session& s) {
  AskPlotFile(s);
  return false;
}

bool DumpWindow(Session& s) {
  static_cast<void>(GKSDUMP(s.platform, s.gks, kNumberedPng));
  return false;
}

template <int step>
bool MenuFont(Session& s) {
  constexpr int kMostSteps = 10;
  int& steps = s.plot_session.menu_font_step;
  steps = std::clamp(steps + step, -kMostSteps, kMostSteps);
  return false;  // of the menu windows alone
}

bool AskOptionsMenu(Session& s) {
  SayNoMenu(s, kOptionsMenu);
  return false;
}

bool AskTimeStepMenu(Session& s) {
  SayNoMenu(s, kTimeStepMenu);
  return false;
}

bool Quit(Session& s) {
  s.run.exit_requested = true;
  return false;
}

// In the order of the help text. Deliberate: ^y is told as ^x is.
// clang-format off
constexpr PlotKey kKeys[] = {
    {'a',             kAnyPlot,  Cycle<&DataPlotState::axis_option, 4>,
     {" a      Toggle axis plot options"}},
    {'b',             kAnyPlot,  ZoomOut,
     {" b      Backs view out (zooms out)"}},
    {'c',             kAnyPlot,  Toggle<&DataPlotState::colour_on>,
     {" c      Toggle color"}},
    {Ctrl('c'),       kLoadDist, FasterOrColour,
     {"^c/C    Increase/decrease time sync factor"}},
    {Ctrl('c'),       kAnyPlot & ~kLoadDist, Toggle<&DataPlotState::colour_on>},
    {'C',             kLoadDist, Slower},
    {'C',             kHistogram, Cycle<&DataPlotState::hist_rendering, 3>,
     {" C      Change drawing of histogram (outline, fill, fill+outline)"}},
    {'d',             kHistory | kLoadDist, ToggleDrawing,
     {" d      Toggle drawing of selected component"}},
    {'e',             kAnyPlot,  ScaleText<&DataPlotState::annot_size, Way::larger>,
     {" e/E    Increase/decrease size of annotation text"}},
    {'E',             kAnyPlot,  ScaleText<&DataPlotState::annot_size, Way::smaller>},
    {Ctrl('e'),       kAnyPlot,  ScaleText<&DataPlotState::text_size, Way::smaller>,
     {"^e/^E   Decrease/increase size of titles and axis labels"}},
    {CtrlShift('e'),  kAnyPlot,  ScaleText<&DataPlotState::text_size, Way::larger>},
    {'f',             kAnyPlot,  FitAll,
     {" f      Change axis limits to fit currently plotted data"}},
    {Ctrl('f'),       kAnyPlot,  NextSmoothing,
     {"^f      Change filter (smoothing) option for time-domaind data"}},
    {'F',             kAnyPlot,  FitRaw,
     {" F      Change axis limits to fit currently plotted data without rounding"}},
    {'g',             kAnyPlot,  Toggle<&DataPlotState::grid_on>,
     {" g      Toggle grid lines"}},
    {Ctrl('g'),       kTrajectory, ToggleAspect,
     {"^g      Toggle preservation of geometry scale"}},
    {'G',             kTrajectory, Toggle<&DataPlotState::show_ship>,
     {" G      Toggle plot of hull waterline"}},
    {'h',             kAnyPlot,  ShowHelp,
     {" h      Help - prints a list of interactive commands (graphics window)"}},
    {'H',             kAnyPlot,  SayHelp,
     {" H      Help - prints a list of interactive commands (text window)"}},
    {Ctrl('h'),       kAnyPlot,  SwitchHistogram,
     {"^h      Switch between data curves and histogram"}},
    {CtrlShift('h'),  kHistogram, NextHistogramData,
     {"^H      Change data of histogram (signed, absolute, positive values)"}},
    {'i',             kHistory,  ToggleWave,
     {" i      Toggle overlay of incident wave"}},
    {'I',             kHistory,  Toggle<&DataPlotState::wave_own_scale>,
     {" I      Toggle scale of incident wave (its own or that of the plot)"}},
    {'I',             kTrajectory, AskSteps,
     {" I      Enter time steps at which to plot hull waterline"}},
    {'j',             kTrajectory, ScaleSpacing<Way::smaller>,
     {" j/J    Decrease/increase # of time steps between hull waterlines"}},
    {'J',             kTrajectory, ScaleSpacing<Way::larger>},
    {'k',             kAnyPlot,  KeepLimits,
     {" k      Keep current (zoomed/panned) axis limits"}},
    {'l',             kTrajectory, ScaleShip<Way::smaller>,
     {" l/L    Decrease/increase size of hull waterlines"}},
    {'L',             kTrajectory, ScaleShip<Way::larger>},
    {'m',             kAnyPlot,  ToggleMarks,
     {" m      Toggle marking of points (lines with points, points)"}},
    {CtrlShift('m'),  kAnyPlot,  NoMarks,
     {"^M      Turn marking of points off"}},
    {'M',             kAnyPlot,  NextMarkBase,
     {" M      Change marking of points to every 1, 10, 100 or 1000"}},
    {'n',             kAnyPlot,  Toggle<&DataPlotState::numbers_on>,
     {" n      Toggle numbering of curves"}},
    {'N',             kTrajectory, Toggle<&DataPlotState::time_labels_on>,
     {" N      Toggle time labels"}},
    {'p',             kAnyPlot,  ScaleMarks<Way::smaller>,
     {" p/P    Decrease/increase size of points"}},
    {'P',             kAnyPlot,  ScaleMarks<Way::larger>},
    {Ctrl('p'),       kHistory,  Cycle<&DataPlotState::show_stats, 5>,
     {"^p      Toggle overlay of 1/3 or 1/10 peak averages or st.dev values",
      "        when a single data curve is plotted"}},
    {Ctrl('p'),       kHistogram, NextOverlay,
     {"^p      Change overlay of theoretical distribution"}},
    {CtrlShift('p'),  kHistory,  Cycle<&DataPlotState::stats_at, 3>,
     {"^P      Toggle position of peak statitics overlay"}},
    {'q',             kAnyPlot,  Leave,
     {" q      Quit plot/return to text menu or continue script file"}},
    {'Q',             kAnyPlot,  Quit,
     {" Q      Quit - exit the program"}},
    {'r',             kAnyPlot,  Redraw,
     {" r      Redraw"}},
    {'R',             kAnyPlot,  RoundLimits,
     {" R      Round axis limits"}},
    {Ctrl('r'),       kAnyPlot,  RequestReverse,
     {"^r      Reverse background color"}},
    {'s',             kOfComponents, NextComponent,
     {" s      Select component to plot (cycles through 1,2, ..., and all)"}},
    {'S',             kOfComponents, OtherQuantity<1>,
     {" S      Select next quantity to plot"}},
    {Ctrl('s'),       kAnyPlot,  AskCount<kSkipFirst>,
     {"^s      Set # of initial time steps to skip in calulating statistics, etc."}},
    {CtrlShift('s'),  kAnyPlot,  AskCount<kSkipLast>,
     {"^S      Set # of terminal time steps to skip in calulating statistics, etc."}},
    {'t',             kAnyPlot,  NextThickness,
     {" t      Change line thickness"}},
    {'T',             kAnyPlot,  Cycle<&DataPlotState::plot_text_mode, 5>,
     {" T      Change which titles and labels are plotted"}},
    {Ctrl('t'),       kAnyPlot,  AskCount<kTrimFirst>,
     {"^t      Set # of initial time steps to trim from all output"}},
    {CtrlShift('t'),  kAnyPlot,  AskCount<kTrimLast>,
     {"^T      Set # of terminal time steps to trim from all output"}},
    {'v',             kAnyPlot,  Toggle<&DataPlotState::values_in_legend>,
     {" v      Toggle value labels"}},
    {'w',             kAnyPlot,  AskFile,
     {" w      Write data of plot to file"}},
    {'W',             kAnyPlot,  DumpWindow,
     {" W      Window dump - save window contents to file"}},
    {'x',             kAnyPlot,  FitX,
     {" x      Fit horizontal axis to data"}},
    {'X',             kHistory,  SwitchStepAxis,
     {" X      Switch horizontal axis between time and time step"}},
    {Ctrl('x'),       kAnyPlot,  WidenXStep,
     {"^x      Increase horizontal axis increment"}},
    {'y',             kAnyPlot,  FitShownY,
     {" y      Fit vertical axis to plotted time steps"}},
    {'Y',             kAnyPlot,  FitAllY,
     {" Y      Fit vertical axis to all time steps"}},
    {Ctrl('y'),       kAnyPlot,  WidenYStep,
     {"^y      increase horizontal axis increment"}},
    {'1',             kOfComponents, Component<1>,
     {" 1-9    Plot specified component"}},
    {'2',             kOfComponents, Component<2>},
    {'3',             kOfComponents, Component<3>},
    {'4',             kOfComponents, Component<4>},
    {'5',             kOfComponents, Component<5>},
    {'6',             kOfComponents, Component<6>},
    {'7',             kOfComponents, Component<7>},
    {'8',             kOfComponents, Component<8>},
    {'9',             kOfComponents, Component<9>},
    {'0',             kHistory | kLoadDist, Component<0>,
     {" 0      Plot all components"}},
    {'0',             kOneCurve, Component<1>},
    {kSpace,          kLoadDist, ToggleRun,
     {"Space bar - Start/stop run mode (plotting time steps in sequence)"}},
    {Alt(kSpace),     kLoadDist, AskTimeStepMenu,
     {"Alt+Space bar - Invoke run mode menu"}},
    {Alt('o'),        kAnyPlot,  AskOptionsMenu,
     {"Alt+o bar - Invoke plot options menu"}},
    {Alt('s'),        kAnyPlot,  AskCurveMenu,
     {"Alt+s bar - Invoke curve selection menu"}},
    {Alt('+'),        kAnyPlot,  MenuFont<1>},
    {Alt('='),        kAnyPlot,  MenuFont<1>},
    {Alt('-'),        kAnyPlot,  MenuFont<-1>},
    {kKeyPageUp,      kLoadDist, StepBack,
     {"Pg up/dn  - Plot previous/next time step",
      "Shift+Pg up/dn  - Plot first/last time step"}},
    {kKeyPageDown,    kLoadDist, StepOn},
    {Shift(kKeyPageUp), kLoadDist, FirstStep},
    {Shift(kKeyPageDown), kLoadDist, LastStep},
    {kKeyLeft,        kAnyPlot,  Pan<PanX, -1>,
     {"Arrows  Pan left, right, up, down"}},
    {kKeyRight,       kAnyPlot,  Pan<PanX, 1>},
    {kKeyUp,          kAnyPlot,  Pan<PanY, 1>},
    {kKeyDown,        kAnyPlot,  Pan<PanY, -1>},
    {'[',             kOfComponents, OtherQuantity<-1>,
     {"[/]     Plot previous/next quantity"}},
    {']',             kOfComponents, OtherQuantity<1>},
    {'{',             kInterval, OtherStatistic<-1>,
     {"{/}     Plot previous/next statistic (confidence interval plots)"}},
    {'}',             kInterval, OtherStatistic<1>},
    {'{',             kOfComponents & ~kInterval, OtherQuantityInScale<-1>,
     {"{/}     Plot previous/next quantity without reseting plot scales"}},
    {'}',             kOfComponents & ~kInterval, OtherQuantityInScale<1>},
    {kEscape,         kAnyPlot,  Nothing,
     {"Esc     Clear measured value"}},
};
// clang-format on

// ---- Which row
bool HasRow(int code) {
  return std::any_of(std::begin(kKeys), std::end(kKeys), [code](const PlotKey& key) { return key.code == code; });
}

int CodeOf(const Session& s, int key) {
  constexpr int kLastControl = 26;
  const GksModifiers held = gksMouseButtons(s.gks);
  if (held.alt) return Alt(key);
  const bool with_control = key <= kLastControl && held.control;
  const bool shift_counts = held.shift && (with_control || key >= kKeyF1);
  return shift_counts && HasRow(Shift(key)) ? Shift(key) : key;
}

const PlotKey* FindKey(int code, PlotKind kind) {
  for (const PlotKey& key : kKeys)
    if (key.code == code && (key.kinds & In(kind)) != 0) return &key;
  return nullptr;
}

}  // namespace

std::span<const PlotKey> DataPlotKeys() {
  return kKeys;
}

void SayNoMenu(const Session& session, std::string_view menu) {
  Say(session.platform.console, kNoMenu, menu);
}

void zaviewkeyboard(Session& session, int key) {
  DataPlotState& plot = session.data_plot;
  DropZoom(session);
  if (plot.measure_on || plot.popup_open) session.run.redraw = true;
  plot.measure_on = plot.popup_open = false;
  const PlotKey* row = FindKey(CodeOf(session, key), plot.kind);
  if (row != nullptr && row->act(session)) session.run.redraw = true;
}

}  // namespace zaview
