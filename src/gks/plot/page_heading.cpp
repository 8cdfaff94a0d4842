#include "gks/plot/page_heading.h"

#include <algorithm>
#include <utility>

#include "gks/plot/page_text.h"
#include "gks/plot/plot_look.h"

namespace zaview {

namespace {

constexpr float kPageHeight = 8.5F;
constexpr float kLowest = 0.25F;    // of the page's height the area keeps, however much stands around it
constexpr float kMostLeft = 0.3F;   // of the area's width, for labels and name of its vertical axis
constexpr float kHeading = 1.0F;    // of the character height
constexpr float kFirstLine = 0.9F;  // of its height, the heading is above the area
constexpr float kAxisTexts = 3.0F;  // lines that stay free below the area
constexpr float kPageMargin = 0.15F;
constexpr float kSmallest = 0.5F;  // of its height a heading may become before it is cut
constexpr int kCross = 3;          // marker
constexpr float kCrossSize = 2.0F;

// Of the character height: all lines are as high, so that the longest has room, unless it has to be cut.
float HeadingFactor(PlotDraw draw, const std::vector<std::string>& lines, float room) {
  constexpr float kSmaller = 0.9F;
  const float h = draw.page.char_height;
  float factor = kHeading;
  const auto fits = [&](const std::string& line) { return TextWidth(draw, line, factor * h) <= room; };
  while (factor * kSmaller >= kSmallest && !std::all_of(lines.begin(), lines.end(), fits)) factor *= kSmaller;
  return factor;
}

// Of a plot that shares its sheet with others, so wide that its letters can be read when all are printed on one A4.
float PageWidth(const GksState& gks, const PlotLook& look, float width, float height) {
  constexpr float kShort = 535, kLong = 782, kPoint = 0.75F,
                  kWanted = 8;        // A4 within margins, a pixel, letters; points
  constexpr float kLetters = 0.203F;  // of the usual size, page units
  constexpr float kNarrowest = 5, kWidest = 12;
  if (!gks.sheet.open()) return look.page_width;
  const float across = width * static_cast<float>(gks.sheet.columns), up = height * static_cast<float>(gks.sheet.rows);
  const float print = std::max(std::min(kShort / across, kLong / up), std::min(kLong / across, kShort / up));
  return std::clamp(std::min(print, kPoint) * width * kLetters / kWanted, kNarrowest, kWidest);
}

}  // namespace

void SetPlotPage(PlotDraw draw, GksPoint area, PageMargins margins) {
  const PlotLook& look = LookOf(draw.gks);
  dgNoFrame(draw);
  if (!look.fills_page) {
    dgPage(draw, look.page_width, kPageHeight);
    return dgArea(draw, area.x, area.y);
  }
  const auto across = static_cast<float>(std::max(draw.gks.window.width, 1));
  const auto up = static_cast<float>(std::max(draw.gks.window.height, 1));
  const float shape = up / across;
  const float width = std::max(PageWidth(draw.gks, look, across, up), look.page_side / std::min(shape, 1.0F));
  dgPage(draw, width, width * shape);
  dgAreaAt(draw, margins.left, 0, width - margins.left - margins.right, width * shape);
}

void MakeRoomLeft(PlotDraw draw, float y_origin, float y_step, float y_end, bool log_y) {
  PlotPage& page = draw.page;
  const float wanted = dgRoomLeft(draw, y_origin, y_step, y_end, log_y) - page.area_x;
  const float more = std::min(wanted, kMostLeft * page.area_width);
  if (!(more > 0.0F)) return;
  page.area_x += more;
  page.area_width -= more;
}

std::vector<std::string> ClearOfLabels(PlotDraw draw, std::vector<std::string> lines) {
  const PlotPage& page = draw.page;
  if (!lines.empty() && TextWidth(draw, lines.back(), page.char_height) > page.area_width) lines.emplace_back();
  return lines;
}

void MakeRoom(PlotDraw draw, std::size_t heading_lines, float notes_depth) {
  PlotPage& page = draw.page;
  const float pitch = std::max(1.2F * page.char_height, 1.1F * LetterHeight(draw, page.char_height));
  const float lines = static_cast<float>(heading_lines);
  const float heading = heading_lines == 0 ? 0.0F : kFirstLine * page.char_height + pitch * lines;
  const float above = heading + LookOf(draw.gks).above;
  const float below = std::max(notes_depth + kPageMargin, kAxisTexts * pitch);
  page.area_height = std::min(page.area_height, std::max(page.page_height - above - below, kLowest * page.page_height));
  page.area_y = std::max(std::min(page.area_y, page.page_height - page.area_height - above), below);
  page.area_y = std::min(page.area_y, page.page_height - page.area_height);
}

void DrawHeading(PlotDraw draw, const std::vector<std::string>& lines) {
  const float middle = draw.page.area_x + 0.5F * draw.page.area_width;
  const float room = 2.0F * (std::min(middle, draw.page.page_width - middle) - kPageMargin);
  const float factor = HeadingFactor(draw, lines, room);
  const float h = draw.page.char_height;
  for (const std::string& line : lines)
    dgHeading(draw, CutToWidth(draw, line, factor * h, room), factor, static_cast<int>(lines.size()));
}

void DrawGridLines(PlotDraw draw, bool asked) {
  const PlotLook& look = LookOf(draw.gks);
  if (asked == look.grid) return;
  if (!look.grid) {
    dgDot(draw);
    dgGrid(draw, 1, 1);
    return dgReset(draw, "dot");
  }
  // In the colour of index 1, which it has no longer than that.
  const GksColour ink = std::exchange(draw.gks.colour[1], look.grid_colour);
  dgGrid(draw, 1, 1);
  draw.gks.colour[1] = ink;
}

void DrawAreaFrame(PlotDraw draw) {
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

void DrawCross(PlotDraw draw, float x, float y) {
  const float xs[] = {x}, ys[] = {y};
  dgColour(draw, 1);
  dgMarkerType(draw, kCross);
  dgMarkerScale(draw, kCrossSize);
  dgCurve(draw, xs, ys, -1);
}

}  // namespace zaview
