#include "views/data_plot/plot_parts.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include <fmt/format.h>

#include "base/message.h"
#include "base/number_format.h"
#include "gks/kernel/gks_control.h"
#include "gks/kernel/gks_draw.h"
#include "gks/plot/dense_curve.h"

namespace zaview {

namespace {

constexpr std::string_view kNotValid = "ERROR - Quantity {} not valid for this output file";
constexpr std::string_view kNoMemory = "ERROR allocating memory - please report this to ZAVO developers";
constexpr std::string_view kDots = "...";
constexpr std::size_t kShort = 8;
constexpr int kMostDigits = 8;
constexpr float kPitch = 1.5F;      // character heights between lines
constexpr float kClear = 1.1F;      // of a line of letters that are large for their height, to the next
constexpr float kAxisTexts = 2.2F;  // lines that ticks, labels and name of the horizontal axis take
constexpr float kTicks = 0.021F;    // of the area's height, between the axis and its labels
constexpr float kNameSpace = 0.6F;  // character heights between labels and name
constexpr float kPageMargin = 0.1F;
constexpr float kColumnGap = 1.0F;  // character heights between columns of notes
constexpr float kBoxMargin = 0.15F;
constexpr int kNoteAlign = 4;  // baseline

class OnPage {  // the page's transformation for a while, and text attributes back at its end
 public:
  explicit OnPage(PlotDraw draw) : gks_(draw.gks), before_(draw.gks.attribute), selected_(draw.gks.selected) {
    dgSelectGraf(draw, 0);
  }
  ~OnPage() {
    GSELNT(gks_, selected_);
    GSTXAL(gks_, before_.align_x, before_.align_y);
    GSCHH(gks_, before_.char_height);
  }
  OnPage(const OnPage&) = delete;
  OnPage& operator=(const OnPage&) = delete;

 private:
  GksState& gks_;
  GksAttributes before_;
  int selected_;
};

struct Extent {
  float width = 0, height = 0;
};

Extent ExtentOf(PlotDraw draw, std::string_view text, float height) {
  const OnPage page(draw);
  GSCHH(draw.gks, height);
  const TextExtent extent = GQTXX(draw.gks, {}, text);
  const auto [left, right] = std::minmax_element(std::begin(extent.corner), std::end(extent.corner),
                                                 [](GksPoint a, GksPoint b) { return a.x < b.x; });
  const auto [low, high] = std::minmax_element(std::begin(extent.corner), std::end(extent.corner),
                                               [](GksPoint a, GksPoint b) { return a.y < b.y; });
  return {right->x - left->x, high->y - low->y};
}

}  // namespace

void DrawSolid(PlotDraw draw, std::span<const float> x, std::span<const float> y) {
  CurvePoints thin;
  if (ThinCurve(draw.gks, x, y, draw.page.log_y, thin)) dgCurve(draw, thin.x, thin.y, 0);
  else dgCurve(draw, x, y, 0);
}

std::string ShortNumber(float value) {
  value = Finite(value);
  if (value == 0.0F) return "0";
  for (int digits = kMostDigits - 1; digits > 1; --digits) {
    std::string text = fmt::format("{:.{}g}", value, digits);
    if (text.size() <= kShort) return text;
  }
  return fmt::format("{:.0e}", value);
}

float TextWidth(PlotDraw draw, std::string_view text, float height) {
  return ExtentOf(draw, text, height).width;
}

float LetterHeight(PlotDraw draw, float height) {
  return ExtentOf(draw, "X", height).height;
}

float LinePitch(PlotDraw draw, float height) {
  return std::max(kPitch * height, kClear * LetterHeight(draw, height));
}

std::string CutToWidth(PlotDraw draw, std::string_view text, float height, float width) {
  if (!(TextWidth(draw, text, height) > width)) return std::string(text);
  std::size_t fits = 0, too_long = text.size();
  std::string cut(kDots);
  while (fits + 1 < too_long) {
    const std::size_t middle = (fits + too_long) / 2;
    std::string tried = fmt::format("{}{}", text.substr(0, middle), kDots);
    const bool fit = !(TextWidth(draw, tried, height) > width);
    (fit ? fits : too_long) = middle;
    if (fit) cut = std::move(tried);
  }
  return cut;
}

void PageText(PlotDraw draw, std::string_view text, float x, float y, float height, TextSide side) {
  const OnPage page(draw);
  GSTXAL(draw.gks, 1, kNoteAlign);
  dgCharHeight(draw, height);
  dgPageText(draw, text, x, y, static_cast<int>(side) + 1);
}

NotesSize SizeOfNotes(PlotDraw draw, std::span<const PageNote> notes, float height) {
  float widest = 0.0F;
  for (const PageNote& note : notes) widest = std::max(widest, TextWidth(draw, note.text, height));
  return {widest + 2.0F * kBoxMargin, LinePitch(draw, height) * static_cast<float>(notes.size()) + kBoxMargin};
}

void PaperNotes(PlotDraw draw, std::span<const PageNote> notes, float x, float top, float height) {
  const NotesSize size = SizeOfNotes(draw, notes, height);
  const float pitch = LinePitch(draw, height);
  PaperBox(draw, x, top - size.height, size.width, size.height);
  float y = top;
  for (const PageNote& note : notes) {
    dgColour(draw, note.colour);
    PageText(draw, note.text, x + kBoxMargin, y -= pitch, height, TextSide::left);
  }
  dgColour(draw, 1);
}

void PageNotes(PlotDraw draw, std::span<const PageNote> notes, float text_size, float height) {
  if (notes.empty()) return;
  const PlotPage& page = draw.page;
  const float pitch = LinePitch(draw, height);
  const float axis = kAxisTexts * LetterHeight(draw, text_size) + kNameSpace * text_size;
  const float first = page.area_y - kTicks * page.area_height - axis - pitch;
  const float room = (first - kPageMargin) / pitch + 1.0F;
  const NotesSize size = SizeOfNotes(draw, notes, height);
  const std::size_t rows = room >= 1.0F ? static_cast<std::size_t>(room) : 0;
  const std::size_t columns = rows > 0 ? (notes.size() + rows - 1) / rows : 0;
  const float column = size.width + kColumnGap * height;
  if (columns == 0 || page.area_x + column * static_cast<float>(columns) > page.page_width) {
    PaperNotes(draw, notes, page.area_x + kBoxMargin, page.area_y + size.height + kBoxMargin, height);
    return;
  }
  for (std::size_t i = 0; i < notes.size(); ++i) {
    const std::size_t at = i / rows;
    const float x = page.area_x + column * static_cast<float>(at);
    dgColour(draw, notes[i].colour);
    PageText(draw, notes[i].text, x, first - pitch * static_cast<float>(i % rows), height, TextSide::left);
  }
  dgColour(draw, 1);
}

void PaperBox(PlotDraw draw, float x, float y, float width, float height) {
  const OnPage page(draw);
  const float xs[] = {x, x + width, x + width, x, x}, ys[] = {y, y, y + height, y + height, y};
  const bool clip = draw.gks.attribute.clip;
  GSCLIP(draw.gks, 0);
  GSFACI(draw.platform.console, draw.gks, 0);
  GFA(draw.gks, xs, ys);
  dgColour(draw, 1);
  dgCurve(draw, xs, ys, 0);
  GSCLIP(draw.gks, clip ? 1 : 0);
}

bool SayPlotFault(const Console& console, PlotFault fault, int iqnt) {
  if (fault == PlotFault::not_valid) Say(console, kNotValid, iqnt);
  if (fault == PlotFault::no_memory) SayLine(console, kNoMemory);
  return fault == PlotFault::none;
}

}  // namespace zaview
