// The parts of the options menu that are the same in every view: which plot, which menus, picture, colours, font.
#include "gks/kernel/gks_control.h"
#include "menu/menu_window.h"
#include "views/menus/menus.h"
#include "views/menus/option_builder.h"
#include "views/state/choose_view.h"

namespace zaview {

namespace {

// ---- Kinds of plot: held down where it is the one that is shown
template <PlotKind kind>
OptionValue IsPlot(Session& s, int) {
  return {.integer = s.run.plot_module == PlotModule::data_plot && s.data_plot.kind == kind ? 1 : 0};
}

template <PlotKind kind>
std::string_view TakePlot(Session& s, const OptionEvent&) {
  static_cast<void>(ChoosePlot(s, kind));
  return {};
}

template <PlotKind kind>
bool HasPlot(const Session& s, int) {
  return CanPlot(s, kind);
}

template <PlotKind kind>
constexpr OptionItem Plot(std::string_view text) {
  return If(HasPlot<kind>, Button(text, TakePlot<kind>, IsPlot<kind>));
}

template <PlotModule module>
OptionValue IsView(Session& s, int) {
  return {.integer = s.run.plot_module == module ? 1 : 0};
}

template <PlotModule module>
std::string_view TakeView(Session& s, const OptionEvent&) {
  ChooseView(s, module);
  return {};
}

template <bool (*can)(const CaseStore&)>
bool Has(const Session& s, int) {
  return can(s.case_store);
}

template <PlotModule module, bool (*can)(const CaseStore&)>
constexpr OptionItem View(std::string_view text) {
  return If(Has<can>, Button(text, TakeView<module>, IsView<module>));
}

// ---- Menus and ways out
template <auto invoke, int MenuState::*window>
std::string_view OpenMenu(Session& s, const OptionEvent&) {
  ToggleMenu(s, invoke, window);
  return {};
}

template <int MenuState::*window>
OptionValue IsOpen(Session& s, int) {
  return {.integer = s.menus.*window != 0 ? 1 : 0};
}

template <void (*leave)(Session&)>
std::string_view Leave(Session& s, const OptionEvent&) {
  leave(s);
  return {};
}

bool ScriptWaits(const Session& s, int) {
  return s.run.script_active && s.script.open;
}

bool SelectsCurves(const Session& s, int) {
  return CanSelectCurves(s);
}

bool SelectsSteps(const Session& s, int) {
  return CanSelectSteps(s);
}

// ---- Last lines
std::string_view WriteImage(Session& s, const OptionEvent&) {
  s.plot_session.ask = ViewAsk::image_file;
  return {};
}

std::string_view SwapColours(Session& s, const OptionEvent&) {
  constexpr int kReversed = 1;
  s.run.plot_colours = kReversed;
  return {};
}

constexpr OptionBinding kReportStyle = {
    [](Session& s, int) { return OptionValue{.integer = s.gks.style == PictureStyle::report ? 1 : 0}; },
    [](Session& s, const OptionEvent& event) {
      gksSetStyle(s.gks, event.integer != 0 ? PictureStyle::report : PictureStyle::classic);
      return std::string_view();
    }};

template <void (*change)(MenuToolkit&)>
std::string_view ChangeFont(Session& s, const OptionEvent&) {
  change(s.menus.kit);
  return {};
}

constexpr OptionItem kFirst[] = {
    Row(),
    Plot<PlotKind::history>("Time History"),
    View<PlotModule::animation, CanAnimate>("Animation"),
    Plot<PlotKind::trajectory>("Trajectory"),
    Plot<PlotKind::load_dist>("Load Dist"),
    View<PlotModule::geometry, HasHull>("Geometry"),
    Row(),
    Plot<PlotKind::histogram>("Histogram"),
    Plot<PlotKind::autocovariance>("AutoCovariance"),
    Plot<PlotKind::autocorrelation>("AutoCorrelation"),
    Plot<PlotKind::interval>("Conf.Intrvl"),
    Plot<PlotKind::result>("Analysis"),
    Row(),
    Plot<PlotKind::spectrum>("Spectrum"),
    Plot<PlotKind::extremes>("Extremes"),
    Plot<PlotKind::rainflow>("Rainflow"),
    Row(),
    If(SelectsCurves, Button("Selection Menu", OpenMenu<InvokeCurveSelectionMenu, &MenuState::m_csmenu>,
                             IsOpen<&MenuState::m_csmenu>)),
    If(SelectsSteps,
       Button("Time Step Menu", OpenMenu<InvokeTimeStepMenu, &MenuState::m_tsmenu>, IsOpen<&MenuState::m_tsmenu>)),
    Button("Text Menu", Leave<LeaveForMenu>),
    If(ScriptWaits, Button("Continue Script", Leave<LeaveForScript>)),
    Separator(),
};

constexpr OptionItem kLast[] = {
    Separator(),
    Row(),
    Button("Write Image File", WriteImage),
    Button("Swap B/W", SwapColours),
    Label(" Menu Font:"),
    Button("-", ChangeFont<gksMenuFontDown>),
    Button("+", ChangeFont<gksMenuFontUp>),
    Row(),
    Check("Pictures for a report", kReportStyle),
};

constexpr OptionBlock kFirstBlocks[] = {{kFirst}};
constexpr OptionBlock kLastBlocks[] = {{kLast}};

}  // namespace

std::span<const OptionBlock> FirstOptions() {
  return kFirstBlocks;
}

std::span<const OptionBlock> LastOptions() {
  return kLastBlocks;
}

}  // namespace zaview
