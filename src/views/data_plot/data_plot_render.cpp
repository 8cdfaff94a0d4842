// One page: heading, axes, the curves of the kind of plot, what is measured, the popup. From the state alone.
#include <algorithm>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "base/text.h"
#include "gks/kernel/gks_control.h"
#include "views/data_plot/data_plot.h"
#include "views/data_plot/plot_parts.h"
#include "views/data_plot/plot_type.h"
#include "views/data_plot/popup.h"

namespace zaview {

namespace {

constexpr float kPageWidth = 11.0F, kPageHeight = 8.5F;
constexpr std::size_t kTitleColumns = 70;
constexpr float kHeading = 1.0F;    // of the character height
constexpr float kFirstLine = 0.9F;  // of its height, the heading is above the area
constexpr float kAxisTexts = 3.0F;  // lines that stay free below the area
constexpr float kPageMargin = 0.15F;
constexpr float kSmallest = 0.5F;  // of its height a heading may become before it is cut
constexpr int kFrameOption = 2;    // of axis_option, and the one above
constexpr int kCross = 3;          // marker
constexpr float kCrossSize = 2.0F;

// Which texts stand around the plot, by plot_text_mode.
struct TextMode {
  bool title, file, axes;
};
constexpr TextMode kTextModes[] = {
    {false, false, false}, {true, true, true}, {true, false, true}, {false, false, true}, {false, true, true},
};

TextMode ModeOf(const DataPlotState& plot) {
  return kTextModes[static_cast<std::size_t>(std::clamp(plot.plot_text_mode, 0, 4))];
}

// Asked for by a key or a script, once.
void TakeReverse(Session& session) {
  const int wanted = session.run.plot_colours;
  session.run.plot_colours = 0;
  if (wanted == 0) return;
  gksSetReverse(session.gks, wanted == 1 ? !session.gks.window.reverse_video : wanted == 3);
}

void SetPage(const DataPlotState& plot, PlotDraw draw) {
  const bool histogram = plot.kind == PlotKind::histogram;
  dgNoFrame(draw);
  dgPage(draw, kPageWidth, kPageHeight);
  dgArea(draw, histogram ? plot.histogram_x_length : plot.axis_x_length,
         histogram ? plot.histogram_y_length : plot.axis_y_length);
  dgCharHeight(draw, plot.text_size);
}

// ---- Heading
std::string FileLine(const CaseStore& store) {
  const std::string_view title = Trim(store.control.DESCR);
  return title.empty() ? store.file_name : fmt::format("{}: {}", store.base_name, title);
}

std::string ModeLine(const Session& session) {
  const DataPlotState& plot = session.data_plot;
  const CaseStore& store = session.case_store;
  const bool of_ensemble = plot.of_ensemble && plot.kind >= PlotKind::histogram;
  if (of_ensemble || plot.kind == PlotKind::interval) return "Ensemble";
  if (session.ensemble.nrec > 1) return fmt::format("Record {} of {}", session.ensemble.irec, session.ensemble.nrec);
  if (store.irf_case && plot.quantity.iqnt >= 1 && static_cast<std::size_t>(plot.quantity.iqnt) <= store.irfs.size())
    return store.irfs[static_cast<std::size_t>(plot.quantity.iqnt - 1)].label;
  return {};
}

std::vector<std::string> HeadingLines(const Session& session, const PlotNames& names) {
  const TextMode mode = ModeOf(session.data_plot);
  std::vector<std::string> lines;
  const auto add = [&lines](std::string_view line) {
    if (!IsBlank(line)) lines.emplace_back(TrimEnd(line));
  };
  if (mode.file) add(FileLine(session.case_store));
  if (mode.title) add(std::string_view(names.title).substr(0, kTitleColumns));
  if (mode.title) add(ModeLine(session));
  add(names.note);
  return lines;
}

// A name of the vertical axis that has no room beside it stands over it: in the way of the heading's last line?
bool NameTouches(PlotDraw draw, const std::string& name, const std::string& last_line, float middle) {
  const float h = draw.page.char_height, width = TextWidth(draw, name, h);
  const float labels = TextWidth(draw, "-2.50", h);
  if (name.empty() || width + labels < draw.page.area_x) return false;
  const float left_end = middle - 0.5F * TextWidth(draw, last_line, h);
  return draw.page.area_x - labels + width + h > left_end;
}

// Letters that are large for the page need more room above the area, which then moves down.
void MakeRoom(PlotDraw draw, std::size_t lines) {
  PlotPage& page = draw.page;
  const float pitch = std::max(1.2F * page.char_height, 1.1F * LetterHeight(draw, page.char_height));
  const float needed = kFirstLine * page.char_height + pitch * static_cast<float>(lines);
  const float room = page.page_height - page.area_y - page.area_height;
  const float below = std::max(page.area_y - kAxisTexts * pitch, 0.0F);
  page.area_y -= std::clamp(needed - room, 0.0F, below);
}

// Of the character height: all lines are as high, so that the longest has room, unless it has to be cut.
float HeadingFactor(PlotDraw draw, const std::vector<std::string>& lines, float room) {
  constexpr float kSmaller = 0.9F;
  const float h = draw.page.char_height;
  float factor = kHeading;
  const auto fits = [&](const std::string& line) { return TextWidth(draw, line, factor * h) <= room; };
  while (factor * kSmaller >= kSmallest && !std::all_of(lines.begin(), lines.end(), fits)) factor *= kSmaller;
  return factor;
}

void DrawHeading(const Session& session, PlotDraw draw, const PlotNames& names) {
  std::vector<std::string> lines = HeadingLines(session, names);
  if (lines.empty()) return;
  const float middle = draw.page.area_x + 0.5F * draw.page.area_width;
  const float room = 2.0F * (std::min(middle, draw.page.page_width - middle) - kPageMargin);
  const float factor = HeadingFactor(draw, lines, room);
  if (NameTouches(draw, draw.page.y_name, lines.back(), middle)) lines.emplace_back();
  MakeRoom(draw, lines.size());
  const float h = draw.page.char_height;
  for (const std::string& line : lines)
    dgHeading(draw, CutToWidth(draw, line, factor * h, room), factor, static_cast<int>(lines.size()));
}

// ---- Axes
void DrawFrame(PlotDraw draw) {
  const PlotPage& page = draw.page;
  const float left = page.area_x, right = left + page.area_width;
  const float bottom = page.area_y, top = bottom + page.area_height;
  const float x[] = {left, right, right, left, left};
  const float y[] = {bottom, bottom, top, top, bottom};
  dgSelectGraf(draw, 0);
  dgClip(draw, 0);
  dgCurve(draw, x, y, 0);
  dgClip(draw, 1);
  dgSelectGraf(draw, 1);
}

void DrawAxes(const DataPlotState& plot, PlotDraw draw) {
  const PlotLimits& l = plot.limits;
  dgGraf(draw, l.x_min, l.x_step, l.x_max, l.y_min, l.y_step, l.y_max);
  dgThickness(draw, 0);
  dgColour(draw, 1);
  if (plot.axis_option >= kFrameOption) DrawFrame(draw);
  dgZeroLines(draw);
  if (!plot.grid_on) return;
  dgDot(draw);
  dgGrid(draw, 1, 1);
  dgReset(draw, "dot");
}

// ---- Overlays
void DrawMeasure(const DataPlotState& plot, PlotDraw draw) {
  if (!plot.measure_on) return;
  dgColour(draw, 1);
  dgMarkerType(draw, kCross);
  dgMarkerScale(draw, kCrossSize);
  const float x[] = {plot.measure_x}, y[] = {plot.measure_y};
  dgCurve(draw, x, y, -1);
  const std::string text = fmt::format("{:>8}  {:>8}", ShortNumber(plot.measure_x), ShortNumber(plot.measure_y));
  PageText(draw, text, draw.page.page_width - kPageMargin, kPageMargin, plot.annot_size, TextSide::right);
}

}  // namespace

void zaviewrender(Session& session) {
  const DataPlotState& plot = session.data_plot;
  const PlotType& type = PlotTypeOf(plot.kind);
  TakeReverse(session);
  const PlotDraw draw = DrawOf(session);
  if (!dgFrame(draw, 2) || !dgFrame(draw, 1)) return;
  SetPage(plot, draw);
  PlotNames names;
  if (type.names != nullptr) type.names(session, names);
  const bool labels = ModeOf(plot).axes;
  dgXName(draw, labels ? names.x : "");
  dgYName(draw, labels ? names.y : "");
  DrawHeading(session, draw, names);
  dgYName90(draw, plot.axis_option % kFrameOption);
  DrawAxes(plot, draw);
  if (type.draw != nullptr) type.draw(session, draw);
  else DrawCurves(session, draw);
  DrawMeasure(plot, draw);
  DrawPopup(plot, draw);
  (void)dgFrame(draw, -3);
  session.run.redraw = false;
}

}  // namespace zaview
