// What a data plot shows and within which limits: everything that is made ahead of drawing.
#include "base/message.h"
#include "views/data_plot/data_plot.h"
#include "views/data_plot/plot_type.h"
#include "views/state/axes_limits.h"
#include "views/state/plot_kinds.h"
#include "views/state/plot_selection.h"

namespace zaview {

namespace {

constexpr std::string_view kHelpHint = "Hit the 'h' key for HELP, Alt-o for Options menu";

bool MakeData(const PlotSource& source, const PlotFacts& facts, const PlotType& type, DataPlotState& plot) {
  DataPlotDerived& d = plot.derived;
  if (d.made_of == DataKeyOf(plot, facts)) return true;
  ForgetData(plot);
  d.overlay = StatOverlay{};
  if (type.make != nullptr && !type.make(source, plot)) return false;
  d.made_of = DataKeyOf(plot, facts);  // a wave that can't be had was taken off
  return true;
}

// Limits of another subject are fitted, unless they are to be kept; those of other data of the same one if the user
// hasn't chosen them.
void ForgetOldLimits(const FitKey& wanted, DataPlotState& plot) {
  const PlotSubject& before = plot.fitted_for.subject;
  AxesState& axes = plot.axes;
  const bool kept = plot.keep_scale && before.kind == wanted.subject.kind;
  if (!(before == wanted.subject)) axes.measure.on = false;  // its point was one of other curves
  if (axes.use == LimitsUse::carried) axes.use = LimitsUse::changed;
  else if (!(before == wanted.subject)) axes.use = kept ? axes.use : LimitsUse::to_fit;
  else if (!(plot.fitted_for == wanted) && !kept) FitUnlessChanged(axes);
  plot.fitted_for = wanted;
}

void FitLimits(const PlotType& type, const DataPlotState& plot, PlotLimits& limits) {
  if (type.fit != nullptr) return type.fit(plot, limits);
  if (!FitAxes(plot, FitOver::all_steps, limits)) {
    limits = PlotLimits{};
    return;
  }
  RoundX(limits, LengthOf(plot).x);
  RoundY(limits, LengthOf(plot).y);
}

void UpdateLimits(const PlotType& type, const FitKey& wanted, DataPlotState& plot) {
  ForgetOldLimits(wanted, plot);
  AxesState& axes = plot.axes;
  if (axes.use == LimitsUse::to_fit) {
    FitLimits(type, plot, axes.fitted);
    axes.use = LimitsUse::fitted;
  }
  if (axes.use == LimitsUse::fitted) axes.limits = axes.fitted;
  if (RowOf(plot.kind).units_as_long && plot.keep_aspect) KeepAspect(axes.limits, LengthOf(plot));
}

}  // namespace

void zaviewinit(Session& session) {
  DataPlotState& plot = session.data_plot;
  session.plot_session.run_on = session.plot_session.run_dump = false;
  plot.axes.measure.on = plot.axes.zoom.pending = plot.axes.popup.open = false;
  ForgetData(plot);
  session.run.redraw = true;
  if (!session.run.script_active) SayLine(session.platform.console, kHelpHint);
}

bool UpdatePlot(const PlotSource& source, DataPlotState& plot) {
  const PlotFacts facts{source.output, source.store, source.ensemble, source.statistics};
  const PlotType& type = PlotTypeOf(plot.kind);
  SettleComponent(plot, facts);
  if (!MakeData(source, facts, type, plot)) return false;
  if (type.follow != nullptr) type.follow(source, plot);
  UpdateLimits(type, FitKeyOf(plot, facts), plot);
  return true;
}

void zaviewsetaxes(Session& session) {
  if (UpdatePlot(SourceOf(session), session.data_plot)) return;
  session.run.plot_module = PlotModule::none;
  session.run.redraw = false;
}

PlotDraw DrawOf(Session& session) {
  return {session.platform, session.gks, session.page};
}

}  // namespace zaview
