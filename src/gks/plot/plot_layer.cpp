#include "gks/plot/plot_layer.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>

#include <fmt/format.h>

#include "base/message.h"
#include "base/text.h"
#include "gks/kernel/gks_control.h"
#include "gks/kernel/gks_draw.h"
#include "gks/kernel/gks_transform.h"
#include "gks/plot/page_inside.h"
#include "gks/plot/plot_look.h"

namespace zaview {

namespace {

constexpr std::string_view kInvalidIndex = "dgSelectGraf: invalid index={}";

constexpr GksColour kColours[] = {
    // from index 2 on
    {1, 0, 0},
    {0, 1, 0},
    {0, 0, 1},
    {1, 1, 0},
    {0, 1, 1},
    {1, 0, 1},
    {0.13F, 0.69F, 0.67F},
    {1, 0.65F, 0},
    {1, 0.75F, 0.8F},
    {0.93F, 0.51F, 0.93F},
    {0.85F, 0.65F, 0.13F},
    {0.74F, 0.56F, 0.56F},
    {0.68F, 0.88F, 0.92F},
    {0, 0.75F, 0}};
constexpr int kFirstOwnColour = 2;
constexpr std::size_t kNameRoom = 80;
constexpr float kTopMargin = 0.75F;                    // page units above the area, for headings
constexpr float kLineWidthsPerPage = 500.0F;           // a line of scale 1 is this part of the page's width
constexpr float kFirstLine = 0.9F, kLinePitch = 1.2F;  // of headings, in character heights
constexpr float kLetterPitch = 1.1F;                   // at least, in heights of the letters as drawn
constexpr int kMostDigits = 20;

bool IsSize(float value) {
  return value > 0.0F && std::isfinite(value);
}

void OpenPicture(PlotDraw draw) {
  GksState& gks = draw.gks;
  gksOpenTo(gks, GksLevel::active);
  GCLRWK(gks);
  GSWKVP(gks, {0, static_cast<float>(gks.window.width), 0, static_cast<float>(gks.window.height)});
  for (std::size_t i = 0; i < std::size(kColours); ++i)
    GSCR(draw.platform.console, gks, static_cast<int>(i) + kFirstOwnColour, kColours[i]);
  gksSetColours(draw.platform.console, draw.gks, 1);
  GSCHUP(gks, 0, 1);
  GSLN(gks, 1);
  GSLWSC(gks, 1);
  GSMKSC(gks, 1);
  GSCLIP(gks, 1);
  draw.page = PlotPage{};
}

void ClosePicture(PlotDraw draw) {
  if (draw.page.frame) {
    const SelectedTransform page(draw.gks, kPageTransform);
    // A pixel inside the page: the edge itself is already outside of the window.
    const GksPoint pixels = gksPixelsPerUnit(draw.gks);
    const float left = pixels.x > 0.0F ? 1.5F / pixels.x : 0.0F;
    const float bottom = pixels.y > 0.0F ? 1.5F / pixels.y : 0.0F;
    const float right = draw.page.page_width, top = draw.page.page_height;
    const float x[] = {left, right, right, left, left};
    const float y[] = {bottom, bottom, top, top, bottom};
    GSPLCI(draw.platform.console, draw.gks, 1);
    GSLN(draw.gks, 1);
    GPL(draw.gks, x, y);
  }
  GUWK(draw.platform.window, draw.gks);
}

// The character height, which is set, that lets a text be as wide as the page at most, if a font is that small.
float FittingHeight(PlotDraw draw, float height, std::string_view text) {
  constexpr float kSmaller = 0.9F;
  constexpr int kMostTries = 7;  // down to half
  for (int i = 0; i < kMostTries; ++i, height *= kSmaller) {
    SetLetterHeight(draw, height);
    const GksRectangle box = PlotTextBox(draw.gks, {}, text);
    if (!(box.xmax - box.xmin > draw.page.page_width)) break;
  }
  return draw.gks.attribute.char_height;
}

// Of the baseline over the area. On a small window the letters are larger than their height on the page, so that lines
// are set further apart then, and nearer to the area if they don't fit on the page.
float HeadingBaseline(PlotDraw draw, float height, std::string_view text, int lines, int line) {
  constexpr float kAccent = 0.15F;  // of a text's height, above its capitals
  const GksRectangle box = PlotTextBox(draw.gks, {}, text);
  const float accents = kAccent * (box.ymax - box.ymin);
  const float room = draw.page.page_height - draw.page.area_y - draw.page.area_height - box.ymax - accents;
  const float others = static_cast<float>(std::max(lines - 1, 0));
  float first = kFirstLine * height, pitch = std::max(kLinePitch * height, kLetterPitch * (box.ymax - box.ymin));
  first = std::max(std::min(first, room - others * pitch), std::min(first, -box.ymin));
  if (first + others * pitch > room && others > 0.0F) pitch = std::max((room - first) / others, box.ymax);
  return std::min(first + static_cast<float>(lines - line) * pitch, room);
}

void TakeName(std::string_view text, std::string& name, bool& named) {
  name = CutAtLetter(PlotText(text), kNameRoom);
  named = true;
}

}  // namespace

SelectedTransform::SelectedTransform(GksState& gks, int number) : gks_(gks), before_(gks.selected) {
  GSELNT(gks, number);
}

SelectedTransform::~SelectedTransform() {
  GSELNT(gks_, before_);
}

std::string_view PlotText(std::string_view text) {
  text = TrimEnd(text);
  if (!text.empty() && (text.back() == '$' || text.back() == '\0')) text.remove_suffix(1);
  return text;
}

void SetLetterHeight(PlotDraw draw, float height) {
  constexpr float kLeast = 8.0F;  // pixels of a capital letter
  const float pixels = gksPixelsPerUnit(draw.gks).y;
  const bool too_small = !draw.gks.window.bitmap_font && height * pixels < kLeast;
  GSCHH(draw.gks, too_small && pixels > 0.0F ? kLeast / pixels : height);
}

void SetTextHeight(PlotDraw draw, float height) {
  GksState& gks = draw.gks;
  const GksPoint here = gksPixelsPerUnit(gks);
  const float scale = std::hypot(gks.attribute.up_x * here.x, gks.attribute.up_y * here.y);
  const SelectedTransform page(gks, kPageTransform);
  SetLetterHeight(draw, height);
  if (scale > 0.0F) GSCHH(gks, gks.attribute.char_height * gksPixelsPerUnit(gks).y / scale);
}

GksRectangle PlotTextBox(const GksState& gks, GksPoint at, std::string_view text) {
  const TextExtent extent = GQTXX(gks, at, text);
  const GksPoint first = extent.corner[0];
  GksRectangle box = {first.x, first.x, first.y, first.y};
  for (const GksPoint& corner : extent.corner) {
    box.xmin = std::min(box.xmin, corner.x);
    box.xmax = std::max(box.xmax, corner.x);
    box.ymin = std::min(box.ymin, corner.y);
    box.ymax = std::max(box.ymax, corner.y);
  }
  return box;
}

bool dgFrame(PlotDraw draw, int mode) {
  if (mode == 2) {
    if (draw.gks.window.id == 0) return false;
    OpenPicture(draw);
  } else if (mode == 3 || mode == -3) {
    ClosePicture(draw);
  } else if (mode == 4) {
    GDAWK(draw.gks);
  }
  return draw.gks.window.id != 0;
}

void dgNoFrame(PlotDraw draw) {
  draw.page.frame = false;
}

void dgPage(PlotDraw draw, float width, float height) {
  if (!IsSize(width) || !IsSize(height)) return;
  draw.page.page_width = width;
  draw.page.page_height = height;
  const float longer = std::max(width, height);
  (void)GSWKWN(draw.gks, {0, width / longer, 0, height / longer});  // never empty
}

void dgArea(PlotDraw draw, float width, float height) {
  if (!IsSize(width) || !IsSize(height)) return;
  PlotPage& page = draw.page;
  page.area_width = width;
  page.area_height = height;
  const float free_width = page.page_width - width, free_height = page.page_height - height;
  page.area_x = (page.area_x_rule == 1 ? 0.6F : 0.5F) * free_width;
  page.area_y = free_height - kTopMargin;
  if (page.area_y_rule == 1) page.area_y = kTopMargin;
  if (page.area_y_rule == 2) page.area_y = 0.4F * free_height;
  const float longer = std::max(page.page_width, page.page_height);
  GSWN(draw.gks, kPageTransform, {0, page.page_width, 0, page.page_height});
  GSVP(draw.gks, kPageTransform, {0, page.page_width / longer, 0, page.page_height / longer});
}

void dgAreaAt(PlotDraw draw, float x, float y, float width, float height) {
  dgArea(draw, width, height);
  draw.page.area_x = x;
  draw.page.area_y = y;
}

void dgXName(PlotDraw draw, std::string_view text) {
  TakeName(text, draw.page.x_name, draw.page.x_named);
}

void dgYName(PlotDraw draw, std::string_view text) {
  TakeName(text, draw.page.y_name, draw.page.y_named);
}

void dgYName90(PlotDraw draw, int flag) {
  draw.page.y_name_turned = flag > 0;
}

void dgHeading(PlotDraw draw, std::string_view text, float factor, int lines) {
  PlotPage& page = draw.page;
  const int line = ++page.headings;
  text = PlotText(text);
  if (text.empty() || !IsSize(factor)) return;
  const SelectedTransform on_page(draw.gks, kPageTransform);
  const SavedAttributes saved(draw.gks);
  GSTXCI(draw.platform.console, draw.gks, 1);
  GSCHUP(draw.gks, 0, 1);
  GSTXAL(draw.gks, kCentre, kBase);
  const float height = FittingHeight(draw, page.char_height * factor, text);
  const float above = HeadingBaseline(draw, height, text, lines, line);
  GTX(draw.gks, {page.area_x + 0.5F * page.area_width, page.area_y + page.area_height + above}, text);
}

void dgCharHeight(PlotDraw draw, float height) {
  if (IsSize(height)) draw.page.char_height = height;
}

void dgThickness(PlotDraw draw, float thickness) {
  draw.page.thickness = thickness;
  const float scale = thickness / draw.page.page_width * kLineWidthsPerPage;
  GSLWSC(draw.gks, scale > 1.0F ? scale : 1.0F);
}

void dgCurveThickness(PlotDraw draw, float thickness) {
  dgThickness(draw, thickness);
  const SelectedTransform page(draw.gks, kPageTransform);
  GSLWSC(draw.gks,
         std::max(draw.gks.attribute.line_width, LookOf(draw.gks).curve_width * gksPixelsPerUnit(draw.gks).x));
}

void dgColour(PlotDraw draw, int index) {
  const int own = std::max(draw.page.colour_count - 1, 1);
  gksSetColours(draw.platform.console, draw.gks,
                index < kFirstOwnColour ? 1 : (index - kFirstOwnColour) % own + kFirstOwnColour);
}

void dgClip(PlotDraw draw, float flag) {
  GSCLIP(draw.gks, flag > 0.0F ? 1 : 0);
}
void dgDot(PlotDraw draw) {
  GSLN(draw.gks, 3);
}
void dgDash(PlotDraw draw) {
  GSLN(draw.gks, 2);
}
void dgChnDot(PlotDraw draw) {
  GSLN(draw.gks, 4);
}
void dgChnDsh(PlotDraw draw) {
  GSLN(draw.gks, 4);
}

void dgReset(PlotDraw draw, std::string_view name) {
  constexpr std::string_view kWords[] = {"all",  "ALL",    "dot",    "DOT",    "dash",
                                         "DASH", "chndot", "CHNDOT", "chndsh", "CHNDSH"};
  name = Trim(name);
  if (std::find(std::begin(kWords), std::end(kWords), name) != std::end(kWords)) GSLN(draw.gks, 1);
}

void dgMarkerType(PlotDraw draw, int type) {
  GSMK(draw.gks, type);
}
void dgMarkerScale(PlotDraw draw, float scale) {
  GSMKSC(draw.gks, scale);
}

void dgText(PlotDraw draw, std::string_view text, float x, float y) {
  text = PlotText(text);
  if (text.empty()) return;
  const SavedAttributes saved(draw.gks);
  SetTextHeight(draw, draw.page.char_height);
  GSTXAL(draw.gks, kLeft, draw.gks.attribute.align_y);
  GTX(draw.gks, {x, y}, text);
}

void dgPageText(PlotDraw draw, std::string_view text, float x, float y, int align) {
  text = PlotText(text);
  if (text.empty()) return;
  const SelectedTransform page(draw.gks, kPageTransform);
  const SavedAttributes saved(draw.gks);
  SetLetterHeight(draw, draw.page.char_height);
  GSTXAL(draw.gks, align, draw.gks.attribute.align_y);
  GTX(draw.gks, {x, y}, text);
}

void dgAlign(PlotDraw draw, float fx, float fy) {
  int horizontal = kRight;
  if (fx < 0.3F) horizontal = kLeft;
  else if (fx < 0.7F) horizontal = kCentre;
  struct Row {
    float below;
    int alignment;
  };
  constexpr Row kVertical[] = {{0.0F, 5}, {0.3F, 4}, {0.7F, 3}, {1.0F, 2}};
  int vertical = kTop;
  for (const Row& row : kVertical)
    if (fy < row.below) {
      vertical = row.alignment;
      break;
    }
  GSTXAL(draw.gks, horizontal, vertical);
}

void dgNumber(PlotDraw draw, float value, int digits, float x, float y) {
  const int count = digits < -kMostDigits || digits > kMostDigits ? kMostDigits : std::abs(digits);
  const std::string text = digits >= 1 ? fmt::format("{:.{}f}", value, count) : fmt::format("{:.{}E}", value, count);
  SetTextHeight(draw, draw.page.char_height);
  GTX(draw.gks, {x, y}, text);
}

void dgSelectGraf(PlotDraw draw, int index) {
  if (index != 0 && index != 1) Say(draw.platform.console, kInvalidIndex, index);
  GSELNT(draw.gks, index == 0 ? kPageTransform : kGraphTransform);
}

}  // namespace zaview
