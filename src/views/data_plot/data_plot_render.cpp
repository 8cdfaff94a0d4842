// One page: heading, axes, the curves of the kind of plot, what is measured, the popup. From the state alone.
#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include <fmt/format.h>

#include "base/text.h"
#include "gks/kernel/gks_control.h"
#include "gks/plot/page_text.h"
#include "views/data_plot/data_plot.h"
#include "views/data_plot/plot_type.h"
#include "views/state/plot_kinds.h"
#include "views/state/popup.h"
#include "views/state/start_plot.h"

namespace zaview {

namespace {

constexpr float kPageWidth = 11.0F, kPageHeight = 8.5F;
constexpr float kLowest = 0.25F;        // of the page's height the area keeps, however much stands around it
constexpr float kLeastContrast = 3.0F;  // of a line
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

// The axes stay on the page, with room for their labels, whatever size was asked for.
void SetPage(const DataPlotState& plot, PlotDraw draw) {
  const AxesLength length = LengthOf(plot);
  dgNoFrame(draw);
  dgPage(draw, kPageWidth, kPageHeight);
  dgArea(draw, std::min(length.x, kLargestArea.x), std::min(length.y, kLargestArea.y));
  dgCharHeight(draw, plot.text_size);
}

// ---- Colours
float Luminance(const GksColour& colour) {
  const auto linear = [](float part) {
    return part <= 0.03928F ? part / 12.92F : std::pow((part + 0.055F) / 1.055F, 2.4F);
  };
  return 0.2126F * linear(colour.red) + 0.7152F * linear(colour.green) + 0.0722F * linear(colour.blue);
}

// Of relative luminances, as guidelines for the web define it: from 1 to 21.
float Contrast(const GksColour& a, const GksColour& b) {
  const float of_a = Luminance(a), of_b = Luminance(b);
  return (std::max(of_a, of_b) + 0.05F) / (std::min(of_a, of_b) + 0.05F);
}

// Lines that can hardly be seen on their background become darker or lighter, as little as it takes.
void SetTwins(PlotDraw draw) {
  constexpr int kFirst = 2, kLast = 15, kParts = 20;
  const Console& console = draw.platform.console;
  const GksColour paper = GQCR(console, draw.gks, 0), ink = GQCR(console, draw.gks, 1);
  for (int index = kFirst; index <= kLast; ++index) {
    const GksColour colour = GQCR(console, draw.gks, index);
    GksColour twin = colour;
    for (int part = 1; part < kParts && Contrast(twin, paper) < kLeastContrast; ++part) {
      const float t = static_cast<float>(part) / static_cast<float>(kParts);
      const auto mix = [t](float from, float to) { return from + t * (to - from); };
      twin = {mix(colour.red, ink.red), mix(colour.green, ink.green), mix(colour.blue, ink.blue)};
    }
    draw.gks.colour[static_cast<std::size_t>(index)] = twin;  // as it is to be seen: not made fit for white once more
  }
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
  if (ShowsEnsemble(plot)) return ensemble.nrec > 1 ? fmt::format("Ensemble of {} records", ensemble.nrec) : "Ensemble";
  if (ensemble.nrec > 1) return fmt::format("Record {} of {}", ensemble.irec, ensemble.nrec);
  if (store.irf_case && plot.quantity.iqnt >= 1 && static_cast<std::size_t>(plot.quantity.iqnt) <= store.irfs.size())
    return store.irfs[static_cast<std::size_t>(plot.quantity.iqnt - 1)].label;
  return {};
}

std::vector<std::string> HeadingLines(const PlotFacts& facts, const DataPlotState& plot, const PlotNames& names) {
  const TextMode mode = ModeOf(plot);
  std::vector<std::string> lines;
  const auto add = [&lines](std::string_view line) {
    if (!IsBlank(line)) lines.emplace_back(TrimEnd(line));
  };
  if (mode.file) add(FileLine(facts.store, ShowsEnsemble(plot) && facts.ensemble.nrec > 1));
  if (mode.title) add(std::string_view(names.title).substr(0, kTitleColumns));
  if (mode.title) add(ModeLine(facts, plot));
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

// Heading and notes get the room they need: the area moves, and where letters are large for the page it becomes lower.
void MakeRoom(PlotDraw draw, std::size_t heading_lines, float notes_depth) {
  PlotPage& page = draw.page;
  const float pitch = std::max(1.2F * page.char_height, 1.1F * LetterHeight(draw, page.char_height));
  const float lines = static_cast<float>(heading_lines);
  const float above = heading_lines == 0 ? 0.0F : kFirstLine * page.char_height + pitch * lines;
  const float below = std::max(notes_depth + kPageMargin, kAxisTexts * pitch);
  page.area_height = std::min(page.area_height, std::max(page.page_height - above - below, kLowest * page.page_height));
  page.area_y = std::max(std::min(page.area_y, page.page_height - page.area_height - above), below);
  page.area_y = std::min(page.area_y, page.page_height - page.area_height);
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

// The lines, with a blank one where a name of the vertical axis stands in their way.
std::vector<std::string> ClearOfName(PlotDraw draw, std::vector<std::string> lines) {
  const float middle = draw.page.area_x + 0.5F * draw.page.area_width;
  if (!lines.empty() && NameTouches(draw, draw.page.y_name, lines.back(), middle)) lines.emplace_back();
  return lines;
}

void DrawHeading(PlotDraw draw, const std::vector<std::string>& lines) {
  const float middle = draw.page.area_x + 0.5F * draw.page.area_width;
  const float room = 2.0F * (std::min(middle, draw.page.page_width - middle) - kPageMargin);
  const float factor = HeadingFactor(draw, lines, room);
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
  const PlotLimits& l = plot.axes.limits;
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
void DrawCross(PlotDraw draw, float x, float y) {
  const float xs[] = {x}, ys[] = {y};
  dgColour(draw, 1);
  dgMarkerType(draw, kCross);
  dgMarkerScale(draw, kCrossSize);
  dgCurve(draw, xs, ys, -1);
}

// What is measured, and the first corner of a zoom.
void DrawMouse(const DataPlotState& plot, PlotDraw draw) {
  const ZoomState& zoom = plot.axes.zoom;
  const MeasureState& measure = plot.axes.measure;
  if (zoom.pending) DrawCross(draw, zoom.x, zoom.y);
  if (!measure.on) return;
  DrawCross(draw, measure.x, measure.y);
  const std::string text = fmt::format("{:>8}  {:>8}", ShortNumber(measure.x), ShortNumber(measure.y));
  PageText(draw, text, draw.page.page_width - kPageMargin, kPageMargin, plot.annot_size, TextSide::right);
}

void DrawPage(const PlotFacts& facts, const DataPlotState& plot, PlotDraw draw) {
  const PlotType& type = PlotTypeOf(plot.kind);
  PlotNames names;
  std::vector<PageNote> notes;
  if (type.names != nullptr) type.names(facts, plot, names);
  if (type.notes != nullptr) type.notes(facts, plot, notes);
  const bool labels = ModeOf(plot).axes;
  dgXName(draw, labels ? names.x : "");
  dgYName(draw, labels ? names.y : "");
  const std::vector<std::string> heading = ClearOfName(draw, HeadingLines(facts, plot, names));
  const NotesPlace place = PlaceOfNotes(draw, notes, plot.text_size, plot.annot_size);
  MakeRoom(draw, heading.size(), place.columns > 0 ? place.depth : 0.0F);
  DrawHeading(draw, heading);
  dgYName90(draw, plot.axis_option % kFrameOption);
  DrawAxes(plot, draw);
  if (type.draw != nullptr) type.draw(facts, plot, draw);
  else DrawCurves(plot, draw);
  PageNotes(draw, notes, place);
  DrawMouse(plot, draw);
  DrawPopup(plot.axes.popup, kDataPlotPopup, draw);
}

}  // namespace

void zaviewrender(Session& session) {
  TakeReverse(session.run, session.gks);
  const PlotDraw draw = DrawOf(session);
  if (!dgFrame(draw, 2) || !dgFrame(draw, 1)) return;
  SetTwins(draw);
  SetPage(session.data_plot, draw);
  DrawPage(FactsOf(session), session.data_plot, draw);
  (void)dgFrame(draw, -3);
  session.run.redraw = false;
}

}  // namespace zaview
