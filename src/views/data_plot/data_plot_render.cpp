// One page: heading, axes, the curves of the kind of plot, what is measured, the popup. From the state alone.
#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "base/text.h"
#include "gks/kernel/gks_control.h"
#include "gks/plot/line_colours.h"
#include "gks/plot/page_heading.h"
#include "gks/plot/page_text.h"
#include "gks/plot/plot_look.h"
#include "views/data_plot/data_plot.h"
#include "views/data_plot/plot_panels.h"
#include "views/data_plot/plot_type.h"
#include "views/state/axes_marks.h"
#include "views/state/plot_kinds.h"
#include "views/state/popup.h"
#include "views/state/start_plot.h"

namespace zaview {

namespace {

constexpr PageMargins kMargins, kWithRightAxis{0.15F, 1.1F};  // of an area that fills the page
constexpr std::size_t kTitleColumns = 70;
constexpr int kFrameOption = 2;  // of axis_option, and the one above

// The axes stay on the page, with room for their labels, whatever size was asked for.
void SetPage(const DataPlotState& plot, PlotDraw draw) {
  const AxesLength length = LengthOf(plot);
  SetPlotPage(draw, {std::min(length.x, kLargestArea.x), std::min(length.y, kLargestArea.y)},
              plot.kind == PlotKind::history && plot.wave_overlay ? kWithRightAxis : kMargins);
  dgCharHeight(draw, plot.text_size);
}

// ---- Heading
std::string FileLine(const CaseStore& store, bool of_others) {
  const std::string_view title = Trim(store.control.DESCR), etc = of_others ? ", etc" : "";
  if (title.empty()) return fmt::format("{}{}", store.file_name, etc);
  return fmt::format("{}{}: {}", store.base_name, etc, title);
}

std::string ModeLine(const PlotFacts& facts, const DataPlotState& plot) {
  const CaseStore& store = facts.store;
  const EnsembleStore& ensemble = facts.ensemble;
  if (RowOf(plot.kind).of_panels) return {};  // its title tells what it is of
  if (ShowsEnsemble(plot) && ensemble.nrec > 1) return fmt::format("Ensemble of {} records", ensemble.nrec);
  if (ShowsEnsemble(plot)) return RowOf(plot.kind).makes_panels ? "" : "Ensemble";
  if (ensemble.nrec > 1) return fmt::format("Record {} of {}", ensemble.irec, ensemble.nrec);
  if (store.irf_case && plot.quantity.iqnt >= 1 && static_cast<std::size_t>(plot.quantity.iqnt) <= store.irfs.size())
    return store.irfs[static_cast<std::size_t>(plot.quantity.iqnt - 1)].label;
  return {};
}

std::vector<std::string> HeadingLines(const PlotFacts& facts, const DataPlotState& plot, const PlotNames& names) {
  std::vector<std::string> lines;
  const auto add = [&lines](std::string_view line) {
    if (!IsBlank(line)) lines.emplace_back(TrimEnd(line));
  };
  if (plot.texts.file) add(FileLine(facts.store, ShowsEnsemble(plot) && facts.ensemble.nrec > 1));
  if (plot.texts.quantity) add(CutAtLetter(names.title, kTitleColumns));
  if (plot.texts.mode) add(ModeLine(facts, plot));
  add(names.note);
  return lines;
}

// What one axis has lost the other gives up as well, where a unit is as long on both.
void KeepShape(const DataPlotState& plot, AxesLength length, PlotPage& page) {
  if (!RowOf(plot.kind).units_as_long || !plot.keep_aspect) return;
  const float factor = std::min(page.area_width / length.x, page.area_height / length.y);
  page.area_width = factor * length.x;
  page.area_height = factor * length.y;
}

// ---- Axes
float PowerOfTen(float exponent) {
  constexpr float kMost = 37.0F;
  return std::pow(10.0F, std::clamp(exponent, -kMost, kMost));
}

void DrawAxes(const DataPlotState& plot, const PlotLimits& l, bool log_y, PlotDraw draw) {
  if (log_y) dgGrafLog(draw, l.x_min, l.x_step, l.x_max, PowerOfTen(l.y_min), PowerOfTen(l.y_max));
  else dgGraf(draw, l.x_min, l.x_step, l.x_max, l.y_min, l.y_step, l.y_max);
  dgThickness(draw, 0);
  dgColour(draw, 1);
  DrawGridLines(draw, plot.grid_on);
  dgZeroLines(draw, plot.vertical_zero, plot.horizontal_zero);
  draw.page.log_y = false;  // what is drawn from here on comes as logarithms
  if (plot.axis_option >= kFrameOption || LookOf(draw.gks).boxed) DrawAreaFrame(draw);
}

void NameAxes(const DataPlotState& plot, std::string_view x, std::string_view y, PlotDraw draw) {
  const bool labels = plot.texts.axes;
  dgXName(draw, labels ? x : "");
  dgYName(draw, labels ? y : "");
  dgYName90(draw, plot.axis_option % kFrameOption);
}

void DrawPanelAxes(const DataPlotState& plot, const PanelAxes& axes, const PlotLimits& limits, PlotDraw draw) {
  NameAxes(plot, axes.x_name, axes.y_name, draw);
  DrawAxes(plot, limits, axes.log_y, draw);
}

void DrawGraph(const PlotFacts& facts, const DataPlotState& plot, PlotDraw draw) {
  const PlotType& type = PlotTypeOf(plot.kind);
  if (type.draw_all != nullptr && type.draw_all(plot, draw, {DrawPanelAxes})) return;
  DrawAxes(plot, plot.axes.limits, HasLogAxis(plot), draw);
  if (type.draw != nullptr) type.draw(facts, plot, draw);
  else DrawCurves(plot, draw);
}

void DrawPage(const PlotFacts& facts, const DataPlotState& plot, PlotDraw draw) {
  const PlotType& type = PlotTypeOf(plot.kind);
  PlotNames names;
  std::vector<PageNote> notes;
  if (type.names != nullptr) type.names(facts, plot, names);
  if (type.notes != nullptr) type.notes(facts, plot, notes);
  NameAxes(plot, names.x, names.y, draw);
  const AxesLength length = LengthOf(plot);
  MakeRoomLeft(draw, plot.axes.limits.y_min, plot.axes.limits.y_step, plot.axes.limits.y_max, HasLogAxis(plot));
  const std::vector<std::string> heading = ClearOfLabels(draw, HeadingLines(facts, plot, names));
  const NotesPlace place = PlaceOfNotes(draw, notes, plot.text_size, plot.annot_size);
  MakeRoom(draw, heading.size(), place.columns > 0 ? place.depth : 0.0F);
  KeepShape(plot, length, draw.page);
  DrawHeading(draw, heading);
  DrawGraph(facts, plot, draw);
  PageNotes(draw, notes, place);
  DrawAxesMarks(plot.axes, plot.annot_size, draw, HasLogAxis(plot));
  DrawPopup(plot.axes.popup, kDataPlotPopup, draw);
}

}  // namespace

void zaviewrender(Session& session) {
  TakeReverse(session.run, session.gks);
  const PlotDraw draw = DrawOf(session);
  if (!dgFrame(draw, 2) || !dgFrame(draw, 1)) return;
  SetCurveColours(draw);
  SetPage(session.data_plot, draw);
  DrawPage(FactsOf(session), session.data_plot, draw);
  (void)dgFrame(draw, -3);
  session.run.redraw = false;
}

}  // namespace zaview
