#include "gks/plot/page_text.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>

#include <fmt/format.h>

#include "base/number_format.h"
#include "base/text.h"
#include "gks/kernel/gks_control.h"
#include "gks/kernel/gks_draw.h"
#include "gks/plot/dense_curve.h"
#include "gks/plot/page_inside.h"
#include "gks/plot/plot_look.h"

namespace zaview {

namespace {

constexpr std::string_view kDots = "...";
constexpr std::size_t kShort = 8;
constexpr int kMostDigits = 8;
constexpr float kPitch = 1.5F;      // character heights between lines
constexpr float kClear = 1.1F;      // of a line of letters that are large for their height, to the next
constexpr float kAxisTexts = 2.2F;  // lines that ticks, labels and name of the horizontal axis take
constexpr float kTicks = 0.021F;    // of the area's height, between the axis and its labels
constexpr float kNameSpace = 0.6F;  // character heights between labels and name
constexpr float kPageMargin = 0.1F;
constexpr float kDescent = 0.4F;      // character heights below the last line
constexpr float kNotesDepth = 0.12F;  // of the page: so much is given to notes before they go into columns
constexpr float kSampleGap = 0.7F;    // behind the piece of a line ahead of a note, character heights
constexpr float kSampleUp = 0.4F;
constexpr float kColumnGap = 1.0F;  // heights of letters, as drawn or not, between columns of notes
constexpr float kBoxMargin = 0.15F;
constexpr int kNoteAlign = 4;  // baseline
constexpr int kDot = 15;       // marker

class OnPage {  // the page's transformation for a while, and text attributes back at its end
 public:
  explicit OnPage(PlotDraw draw) : gks_(draw.gks), before_(draw.gks.attribute), page_(draw.gks, kPageTransform) {}
  ~OnPage() {
    GSTXAL(gks_, before_.align_x, before_.align_y);
    GSCHH(gks_, before_.char_height);
  }
  OnPage(const OnPage&) = delete;
  OnPage& operator=(const OnPage&) = delete;

 private:
  GksState& gks_;
  GksAttributes before_;
  SelectedTransform page_;
};

struct Extent {
  float width = 0, height = 0;
};

Extent ExtentOf(PlotDraw draw, std::string_view text, float height) {
  const OnPage page(draw);
  SetLetterHeight(draw, height);
  const TextExtent extent = GQTXX(draw.gks, {}, text);
  const auto [left, right] = std::minmax_element(std::begin(extent.corner), std::end(extent.corner),
                                                 [](GksPoint a, GksPoint b) { return a.x < b.x; });
  const auto [low, high] = std::minmax_element(std::begin(extent.corner), std::end(extent.corner),
                                               [](GksPoint a, GksPoint b) { return a.y < b.y; });
  return {right->x - left->x, high->y - low->y};
}

// Room for the dashes in front of the notes, in character heights; 0: none has one.
float SampleOf(PlotDraw draw, std::span<const PageNote> notes) {
  const bool any = std::any_of(notes.begin(), notes.end(), [](const PageNote& note) { return note.colour != 0; });
  return any ? LookOf(draw.gks).sample + kSampleGap : 0.0F;
}

float WidthOf(PlotDraw draw, std::span<const PageNote> notes, float height) {
  float widest = 0.0F;
  for (const PageNote& note : notes) widest = std::max(widest, TextWidth(draw, note.text, height));
  return widest + SampleOf(draw, notes) * height;
}

float ColumnGap(PlotDraw draw, float height) {
  return kColumnGap * std::max(height, LetterHeight(draw, height));
}

// Labels and name of the horizontal axis.
float AxisDepth(PlotDraw draw, float text_size) {
  return kAxisTexts * LetterHeight(draw, text_size) + kNameSpace * text_size;
}

// A piece of its line, or a dot in the middle of it.
void DrawSample(PlotDraw draw, const PageNote& note, GksPoint at, float height) {
  const OnPage page(draw);
  const bool clip = draw.gks.attribute.clip;
  const float length = LookOf(draw.gks).sample * height, level = at.y + kSampleUp * height;
  GSCLIP(draw.gks, 0);
  dgColour(draw, note.colour);
  if (note.dot > 0.0F) {
    const float x[] = {at.x + 0.5F * length}, y[] = {level};
    dgMarkerType(draw, kDot);
    dgMarkerScale(draw, note.dot * draw.page.area_height / draw.page.page_height);
    dgCurve(draw, x, y, -1);
  } else {
    const float x[] = {at.x, at.x + length}, y[] = {level, level};
    SetDash(draw, note.dash);
    dgCurveThickness(draw, draw.page.thickness);
    dgCurve(draw, x, y, 0);
    dgThickness(draw, draw.page.thickness);
    SetDash(draw, 0);
  }
  GSCLIP(draw.gks, clip ? 1 : 0);
  dgColour(draw, 1);
}

void DrawNote(PlotDraw draw, const PageNote& note, GksPoint at, float height, float indent) {
  if (note.colour != 0) DrawSample(draw, note, at, height);
  PageText(draw, note.text, at.x + indent * height, at.y, height, TextSide::left);
}

}  // namespace

void DrawThinned(PlotDraw draw, std::span<const float> x, std::span<const float> y) {
  CurvePoints thin;
  if (ThinCurve(draw.gks, x, y, draw.page.log_y, thin)) dgCurve(draw, thin.x, thin.y, 0);
  else dgCurve(draw, x, y, 0);
}

void SetDash(PlotDraw draw, int dash) {
  gksLineStyle(draw.gks, LookOf(draw.gks).dashes[dash >= 0 && dash < kDashes ? static_cast<std::size_t>(dash) : 0]);
}

std::string ShortNumber(float value) {
  value = Finite(value);
  if (value == 0.0F) return "0";
  std::string text;
  for (int digits = kMostDigits - 1; digits > 0; --digits) {
    text = fmt::format("{:.{}g}", value, digits);
    // The exponent in as few characters as it takes: 1e+07 is 1e7.
    if (const std::size_t e = text.find('e'); e != std::string::npos)
      text = fmt::format("{}{}", text.substr(0, e + 1), std::atoi(text.c_str() + e + 1));
    if (text.size() <= kShort) return text;
  }
  return text;
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
    std::string tried = fmt::format("{}{}", CutAtLetter(text, middle), kDots);
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
  return {WidthOf(draw, notes, height) + 2.0F * kBoxMargin,
          LinePitch(draw, height) * static_cast<float>(notes.size()) + kBoxMargin};
}

void PaperNotes(PlotDraw draw, std::span<const PageNote> notes, float x, float top, float height) {
  const NotesSize size = SizeOfNotes(draw, notes, height);
  const float pitch = LinePitch(draw, height);
  PaperBox(draw, x, top - size.height, size.width, size.height);
  float y = top;
  for (const PageNote& note : notes) DrawNote(draw, note, {x + kBoxMargin, y -= pitch}, height, SampleOf(draw, notes));
}

NotesPlace PlaceOfNotes(PlotDraw draw, std::span<const PageNote> notes, float text_size, float height) {
  NotesPlace place{0, 0, height, kTicks * draw.page.area_height + AxisDepth(draw, text_size)};
  if (notes.empty()) return place;
  constexpr float kSmaller = 0.9F, kSmallest = 0.5F;
  const float room = draw.page.page_width - draw.page.area_x - kPageMargin;
  while (WidthOf(draw, notes, place.height) > room && place.height * kSmaller >= kSmallest * height)
    place.height *= kSmaller;
  const float gap = ColumnGap(draw, place.height), column = WidthOf(draw, notes, place.height) + gap;
  const auto most = static_cast<std::size_t>(std::max((room + gap) / column, 1.0F));
  // As few columns as keep the notes within so much of the page.
  const float pitch = LinePitch(draw, place.height);
  const float deep = std::max(kNotesDepth * draw.page.page_height, draw.page.area_y - place.depth - kPageMargin);
  const auto rows = static_cast<std::size_t>(std::max(deep / pitch, 1.0F));
  place.columns = std::min(most, (notes.size() + rows - 1) / rows);
  place.rows = (notes.size() + place.columns - 1) / place.columns;
  place.depth += pitch * static_cast<float>(place.rows) + kDescent * place.height;
  return place;
}

void PageNotes(PlotDraw draw, std::span<const PageNote> notes, const NotesPlace& place) {
  if (place.columns == 0) return;
  const PlotPage& page = draw.page;
  const float pitch = LinePitch(draw, place.height), room = page.page_width - page.area_x - kPageMargin;
  const float column = WidthOf(draw, notes, place.height) + ColumnGap(draw, place.height);
  const float top = page.area_y - place.depth + pitch * static_cast<float>(place.rows) + kDescent * place.height;
  for (std::size_t i = 0; i < notes.size(); ++i) {
    const GksPoint at{page.area_x + column * static_cast<float>(i / place.rows),
                      top - pitch * static_cast<float>(i % place.rows + 1)};
    PageNote note = notes[i];
    note.text = CutToWidth(draw, note.text, place.height, room - SampleOf(draw, notes) * place.height);
    DrawNote(draw, note, at, place.height, SampleOf(draw, notes));
  }
}

void PlainPaper(PlotDraw draw, float x, float y, float width, float height) {
  const OnPage page(draw);
  const float xs[] = {x, x + width, x + width, x}, ys[] = {y, y, y + height, y + height};
  const bool clip = draw.gks.attribute.clip;
  GSCLIP(draw.gks, 0);
  GSFACI(draw.platform.console, draw.gks, 0);
  GFA(draw.gks, xs, ys);
  dgColour(draw, 1);
  GSCLIP(draw.gks, clip ? 1 : 0);
}

void PaperBox(PlotDraw draw, float x, float y, float width, float height) {
  PlainPaper(draw, x, y, width, height);
  const OnPage page(draw);
  const float xs[] = {x, x + width, x + width, x, x}, ys[] = {y, y, y + height, y + height, y};
  const bool clip = draw.gks.attribute.clip;
  GSCLIP(draw.gks, 0);
  dgCurve(draw, xs, ys, 0);
  GSCLIP(draw.gks, clip ? 1 : 0);
}

}  // namespace zaview
