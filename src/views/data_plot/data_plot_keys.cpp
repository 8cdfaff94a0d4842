// The keys of the data plot: a row each with its effect and its line of the help.
#include "views/data_plot/data_plot_keys.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>

#include "base/message.h"
#include "case/settings/smoothing_settings.h"
#include "case/settings/statistic_settings.h"
#include "gks/window/gks_window.h"
#include "views/data_plot/data_plot.h"
#include "views/data_plot/plot_questions.h"
#include "views/state/axes_limits.h"
#include "views/state/choose_view.h"
#include "views/state/plot_kinds.h"
#include "views/state/plot_looks.h"
#include "views/state/plot_scopes.h"
#include "views/state/plot_selection.h"
#include "views/state/step_run.h"

namespace zaview {

namespace {

constexpr std::string_view kOtherKind = "Use Options Menu (alt-o) to select plot type";
constexpr std::string_view kNoSmoothing = "Data smoothing: OFF";
constexpr std::string_view kLocalFits = "Data smoothing: Local least-squares fits";
constexpr std::string_view kCubicFit =
    "Data smoothing: Cubic polynomial fit to specified window (currently {} time steps)";
constexpr int kEscape = 27;

template <bool DataPlotState::*flag>
bool Toggle(Session& s) {
  s.data_plot.*flag = !(s.data_plot.*flag);
  return true;
}

template <auto verb>
bool OnAxes(Session& s) {
  return verb(s.data_plot.axes);
}

// ---- What is shown
bool OtherComponent(Session& s) {
  return NextComponent(s.data_plot, s.case_store);
}

bool ShowResult(Session& s) {
  return ChoosePlot(s, PlotKind::result);
}

// Round what is made of one curve.
bool NextAnalysis(Session& s) {
  constexpr PlotKind kRound[] = {PlotKind::history, PlotKind::spectrum, PlotKind::extremes, PlotKind::rainflow};
  const auto at = std::find(std::begin(kRound), std::end(kRound), s.data_plot.kind);
  const bool last = at == std::end(kRound) || at + 1 == std::end(kRound);
  return ChoosePlot(s, last ? kRound[0] : at[1]);
}

template <int component>
bool Component(Session& s) {
  return TakeComponent(s.data_plot, s.case_store, component);
}

bool ToggleThis(Session& s) {
  return ToggleDrawing(s.data_plot, s.case_store);
}

template <int direction, bool carry>
bool OtherQuantity(Session& s) {
  return ChangeQuantity(s.platform.console, s.case_store, s.output.point, s.data_plot, direction, carry);
}

template <int direction>
bool OtherStatistic(Session& s) {
  return ChangeStatistic(s.data_plot, direction);
}

bool OtherIntervalMethod(Session& s) {
  const bool bootstrap = s.output.statistics.interval_method == IntervalMethod::bootstrap;
  (void)SetIntervalMethod(bootstrap ? 0 : 1, s.output.statistics);
  return true;
}

bool OtherKind(Session& s) {
  if (SwitchHistogram(s.data_plot, s.case_store, s.ensemble)) return true;
  SayLine(s.platform.console, kOtherKind);
  return false;
}

template <auto verb>
bool OfHistogram(Session& s) {
  return verb(s.statistics.histogram);
}

// The Fourier series is passed over: it is for scripts.
bool NextSmoothing(Session& s) {
  constexpr int kOff = 0, kLocal = 1, kCubic = 3;
  const int present = s.output.smoothing.option;
  const int option = present == kOff ? kLocal : present == kCubic ? kOff : kCubic;
  (void)SetSmoothing(option, s.output.smoothing);
  const Console& console = s.platform.console;
  if (option == kCubic) Say(console, kCubicFit, s.output.smoothing.window);
  else SayLine(console, option == kOff ? kNoSmoothing : kLocalFits);
  return true;
}

// What the segments of the spectrum that is shown cover, by the distance of its lines; 0: none is shown.
float SegmentShown(const DataPlotState& plot) {
  const std::vector<ResultPanel>& panels = plot.derived.panels.panels;
  if (panels.empty() || panels[0].curves.empty() || panels[0].curves[0].x.size() < 2) return 0;
  return 2.0F * std::numbers::pi_v<float> / panels[0].curves[0].x[1];
}

// Neither beyond the record nor down to nothing.
bool OtherSegment(const DataPlotState& plot, float factor, StatisticSettings& statistics) {
  constexpr std::size_t kFewestLines = 8;
  const float shown = SegmentShown(plot);
  if (!(shown > 0)) return false;
  const bool few = plot.derived.panels.panels[0].curves[0].x.size() < kFewestLines;
  return !(factor < 1 && few) && SetSpectrumSegment(shown * factor, statistics) == SettingFault::none;
}

// By the kind of plot: segments of the spectrum, hours of the extremes, bins of the ranges.
template <bool larger>
bool OtherAnalysisSize(Session& s) {
  constexpr float kTwice = 2.0F;
  constexpr float kFactor = larger ? kTwice : 1.0F / kTwice;
  StatisticSettings& statistics = s.output.statistics;
  switch (s.data_plot.kind) {
    case PlotKind::extremes:
      return SetExtremeHours(statistics.extreme_hours * kFactor, statistics) == SettingFault::none;
    case PlotKind::rainflow:
      return SetRainflowBins(larger ? statistics.rainflow_bins * 2 : statistics.rainflow_bins / 2, statistics) ==
             SettingFault::none;
    default:
      return OtherSegment(s.data_plot, kFactor, statistics);
  }
}

// ---- Looks
bool ToggleMarks(Session& s) {
  DataPlotState& plot = s.data_plot;
  if (gksMouseButtons(s.gks).shift) SetMarks(plot, CurveMarks::line);
  else SetMarks(plot, plot.mark_every > 0 ? CurveMarks::points : CurveMarks::line_and_points);
  return true;
}

bool NoMarks(Session& s) {
  SetMarks(s.data_plot, CurveMarks::line);
  return true;
}

bool NextMarkBase(Session& s) {
  constexpr int kMost = 1000;
  DataPlotState& plot = s.data_plot;
  SetMarkBase(plot, plot.mark_base >= kMost ? 1 : plot.mark_base * 10);
  return true;
}

bool OtherThickness(Session& s) {
  NextThickness(s.data_plot.line_thickness);
  return true;
}

// A bitmap font can't stand upright: options that differ in this alone are passed over.
bool NextAxisOption(Session& s) {
  constexpr int kOptions = 4;
  int& option = s.data_plot.axis_option;
  option = (option + (s.gks.window.bitmap_font ? 2 : 1)) % kOptions;
  return true;
}

// ---- Rows that change one field
enum class Way : bool { smaller, larger };

template <float DataPlotState::*size, Way way>
bool Text(Session& s) {
  ScaleText(s.data_plot.*size, way == Way::larger ? kTextFactor : 1.0F / kTextFactor);
  return true;
}

template <Way way>
bool Marks(Session& s) {
  ScaleMark(s.data_plot.mark_size, way == Way::larger ? kMarkFactor : 1.0F / kMarkFactor);
  return true;
}

// Back to just 1 when it has gone as far up as down.
template <Way way>
bool ScaleShip(Session& s) {
  constexpr float kNearOne = 1.0e-4F;
  float& scale = s.data_plot.geometry_scale;
  scale = std::clamp(scale * (way == Way::larger ? kRoot2 : 1.0F / kRoot2), kLeastShip, kMostShip);
  if (std::abs(scale - 1.0F) < kNearOne) scale = 1.0F;
  return true;
}

template <Way way>
bool ScaleSpacing(Session& s) {
  constexpr float kFactor = way == Way::larger ? kRoot2 : 1.0F / kRoot2;
  const int before = HullSpacing(s.data_plot), most = MostHullSpacing(s.case_store);
  const int n = static_cast<int>(std::min(static_cast<float>(before) * kFactor, static_cast<float>(most)));
  // 1 and 2 would never grow when truncated.
  SetHullSpacing(s.data_plot, s.case_store, way == Way::larger ? std::max(n, before + 1) : n);
  return true;
}

bool OtherTexts(Session& s) {
  NextTexts(s.data_plot);
  return true;
}

template <auto DataPlotState::*field, int count>
bool Cycle(Session& s) {
  NextOf(s.data_plot.*field, count);
  return true;
}

// In ranges of the axis.
template <int x, int y>
bool PanView(Session& s) {
  constexpr float kPart = 0.5F;
  return Pan(s.data_plot.axes, kPart * static_cast<float>(x), kPart * static_cast<float>(y));
}

template <Way way>
bool OfSync(Session& s) {
  if (s.plot_session.run_sync) ScaleSync(s, way == Way::larger ? kRoot2 : 1.0F / kRoot2);
  return s.plot_session.run_sync;
}

bool FasterOrColour(Session& s) {
  return OfSync<Way::larger>(s) || Toggle<&DataPlotState::colour_on>(s);
}

bool Nothing(Session&) {  // a key press alone clears what is measured
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

// In the order of the help text. Deliberate: ^y is told as ^x is.
// clang-format off
constexpr ViewKey kKeys[] = {
    {'a',             kAlways,  NextAxisOption,
     {" a      Toggle axis plot options"}},
    {'A',             kAlways,  ShowResult,
     {" A      Plot result of last analysis"}},
    {'b',             kAlways,  OnAxes<ZoomOut>,
     {" b      Backs view out (zooms out)"}},
    {'c',             kAlways,  Toggle<&DataPlotState::colour_on>,
     {" c      Toggle color"}},
    {Ctrl('c'),       kLoadDist, FasterOrColour,
     {"^c/C    Increase/decrease time sync factor"}},
    {Ctrl('c'),       kAlways & ~kLoadDist, Toggle<&DataPlotState::colour_on>},
    {'C',             kLoadDist, OfSync<Way::smaller>},
    {'C',             kHistogram, Cycle<&DataPlotState::hist_rendering, 3>,
     {" C      Change drawing of histogram (outline, fill, fill+outline)"}},
    {'d',             kHistory | kLoadDist, ToggleThis,
     {" d      Toggle drawing of selected component"}},
    {'e',             kAlways,  Text<&DataPlotState::annot_size, Way::larger>,
     {" e/E    Increase/decrease size of annotation text"}},
    {'E',             kAlways,  Text<&DataPlotState::annot_size, Way::smaller>},
    {Ctrl('e'),       kAlways,  Text<&DataPlotState::text_size, Way::smaller>,
     {"^e/^E   Decrease/increase size of titles and axis labels"}},
    {CtrlShift('e'),  kAlways,  Text<&DataPlotState::text_size, Way::larger>},
    {'f',             kAlways,  OnAxes<ForgetLimits>,
     {" f      Change axis limits to fit currently plotted data"}},
    {Ctrl('f'),       kAlways,  NextSmoothing,
     {"^f      Change filter (smoothing) option for time-domaind data"}},
    {'F',             kAlways,  FitRaw,
     {" F      Change axis limits to fit currently plotted data without rounding"}},
    {'g',             kAlways,  Toggle<&DataPlotState::grid_on>,
     {" g      Toggle grid lines"}},
    {Ctrl('g'),       kTrajectory, Toggle<&DataPlotState::keep_aspect>,
     {"^g      Toggle preservation of geometry scale"}},
    {'G',             kTrajectory, Toggle<&DataPlotState::show_ship>,
     {" G      Toggle plot of hull waterline"}},
    {Ctrl('h'),       kAlways,  OtherKind,
     {"^h      Switch between data curves and histogram"}},
    {CtrlShift('h'),  kHistogram, OfHistogram<NextHistogramData>,
     {"^H      Change data of histogram (signed, absolute, positive values)"}},
    {'i',             kHistory,  Toggle<&DataPlotState::wave_overlay>,
     {" i      Toggle overlay of incident wave"}},
    {'I',             kHistory,  Toggle<&DataPlotState::wave_own_scale>,
     {" I      Toggle scale of incident wave (its own or that of the plot)"}},
    {'I',             kTrajectory, AskSteps,
     {" I      Enter time steps at which to plot hull waterline"}},
    {'j',             kTrajectory, ScaleSpacing<Way::smaller>,
     {" j/J    Decrease/increase # of time steps between hull waterlines"}},
    {'J',             kTrajectory, ScaleSpacing<Way::larger>},
    {'k',             kAlways,  OnAxes<KeepLimits>,
     {" k      Keep current (zoomed/panned) axis limits"}},
    {'K',             kHistory | kAnalysed, NextAnalysis,
     {" K      Next of time history, spectrum, extremes and rainflow counts"}},
    {'l',             kTrajectory, ScaleShip<Way::smaller>,
     {" l/L    Decrease/increase size of hull waterlines"}},
    {'L',             kTrajectory, ScaleShip<Way::larger>},
    {'m',             kMarked,  ToggleMarks,
     {" m      Toggle marking of points (lines with points, points)"}},
    {CtrlShift('m'),  kMarked,  NoMarks,
     {"^M      Turn marking of points off"}},
    {'M',             kMarked,  NextMarkBase,
     {" M      Change marking of points to every 1, 10, 100 or 1000"}},
    {'n',             kNumbered,  Toggle<&DataPlotState::numbers_on>,
     {" n      Toggle numbering of curves"}},
    {'N',             kTrajectory, Toggle<&DataPlotState::time_labels_on>,
     {" N      Toggle time labels"}},
    {'p',             kSized,  Marks<Way::smaller>,
     {" p/P    Decrease/increase size of points"}},
    {'P',             kSized,  Marks<Way::larger>},
    {Ctrl('p'),       kHistory,  Cycle<&DataPlotState::show_stats, 5>,
     {"^p      Toggle overlay of 1/3 or 1/10 peak averages or st.dev values",
      "        when a single data curve is plotted"}},
    {Ctrl('p'),       kHistogram, OfHistogram<NextOverlay>,
     {"^p      Change overlay of theoretical distribution"}},
    {CtrlShift('p'),  kHistory,  Cycle<&DataPlotState::stats_at, 3>,
     {"^P      Toggle position of peak statitics overlay"}},
    {'R',             kAlways,  RoundBoth,
     {" R      Round axis limits"}},
    {'s',             kOfComponents | kResult, OtherComponent,
     {" s      Select component to plot (cycles through 1,2, ..., and all)"}},
    {'S',             kOfComponents, OtherQuantity<1, false>,
     {" S      Select next quantity to plot"}},
    {'t',             kAlways,  OtherThickness,
     {" t      Change line thickness"}},
    {'T',             kAlways,  OtherTexts,
     {" T      Change which titles and labels are plotted"}},
    {'u',             kAnalysed, OtherAnalysisSize<false>,
     {" u/U    Halve/double segments of spectrum, hours of extremes, bins of rainflow ranges"}},
    {'U',             kAnalysed, OtherAnalysisSize<true>},
    {'v',             kHistory,  Toggle<&DataPlotState::values_in_legend>,
     {" v      Toggle value labels"}},
    {'w',             kAlways,  AskFile,
     {" w      Write data of plot to file"}},
    {'x',             kAlways,  FitX,
     {" x      Fit horizontal axis to data"}},
    {'X',             kHistory,  SwitchStepAxis,
     {" X      Switch horizontal axis between time and time step"}},
    {Ctrl('x'),       kAlways,  OnAxes<WidenXStep>,
     {"^x      Increase horizontal axis increment"}},
    {'y',             kAlways,  FitShownY,
     {" y      Fit vertical axis to plotted time steps"}},
    {'Y',             kAlways,  FitAllY,
     {" Y      Fit vertical axis to all time steps"}},
    {Ctrl('y'),       kAlways,  OnAxes<WidenYStep>,
     {"^y      increase horizontal axis increment"}},
    {'1',             kOfComponents | kResult, Component<1>,
     {" 1-9    Plot specified component"}},
    {'2',             kOfComponents | kResult, Component<2>},
    {'3',             kOfComponents | kResult, Component<3>},
    {'4',             kOfComponents | kResult, Component<4>},
    {'5',             kOfComponents | kResult, Component<5>},
    {'6',             kOfComponents | kResult, Component<6>},
    {'7',             kOfComponents | kResult, Component<7>},
    {'8',             kOfComponents | kResult, Component<8>},
    {'9',             kOfComponents | kResult, Component<9>},
    {'0',             kHistory | kLoadDist | kResult, Component<0>,
     {" 0      Plot all components"}},
    {'0',             kOneCurve, Component<1>},
    {kKeyLeft,        kAlways,  PanView<-1, 0>,
     {"Arrows  Pan left, right, up, down"}},
    {kKeyRight,       kAlways,  PanView<1, 0>},
    {kKeyUp,          kAlways,  PanView<0, 1>},
    {kKeyDown,        kAlways,  PanView<0, -1>},
    {'[',             kOfComponents, OtherQuantity<-1, false>,
     {"[/]     Plot previous/next quantity"}},
    {']',             kOfComponents, OtherQuantity<1, false>},
    {'B',             kInterval, OtherIntervalMethod,
     {" B      Change method of confidence intervals (formula, bootstrap)"}},
    {'{',             kInterval, OtherStatistic<-1>,
     {"{/}     Plot previous/next statistic (confidence interval plots)"}},
    {'}',             kInterval, OtherStatistic<1>},
    {'{',             kOfComponents & ~kInterval, OtherQuantity<-1, true>,
     {"{/}     Plot previous/next quantity without reseting plot scales"}},
    {'}',             kOfComponents & ~kInterval, OtherQuantity<1, true>},
    {kEscape,         kAlways,  Nothing,
     {"Esc     Clear measured value"}},
};
// clang-format on

constexpr std::string_view kMouseHelp[] = {
    "The plot is controlled by the mouse and keyboard...",
    "Two LEFT mouse clicks in the picture zooms in to the rectangle defined.",
    "   by the clicks.",
    "A LEFT mouse click outside the picture returns to",
    "   the original view.",
    "A RIGHT mouse click in the picture measures the value of that",
    "   point on the plot.",
    " Key    Function",
};

}  // namespace

ViewKeys DataPlotKeys(const Session& session) {
  const PlotKind kind = session.data_plot.kind;
  return {kKeys, ScopeOf(kind), kMouseHelp, RowOf(kind).by_step, true};
}

void BeforeDataPlotKey(Session& session) {
  AxesState& axes = session.data_plot.axes;
  if (axes.measure.on || axes.popup.open || axes.zoom.pending) session.run.redraw = true;
  if (DropZoom(axes)) SayLine(session.platform.console, kZoomAborted);
  axes.measure.on = axes.popup.open = false;
}

}  // namespace zaview
