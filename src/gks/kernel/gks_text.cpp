#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>

#include "gks/kernel/fonts.h"
#include "gks/kernel/gks_draw.h"
#include "gks/kernel/primitives.h"

namespace zaview {

namespace {

constexpr float kBitmapHeight = 1.33F;                            // of the font, for one pixel of character height
constexpr float kStrokeCap = 119.05F, kStrokeDescender = 33.33F;  // units of the stroke font
constexpr float kTextLine = 2.0F;
constexpr float kThinBelow = 10.0F;  // pixels of a capital letter; smaller ones would run together
constexpr float kRadians = 3.1415925F / 180.0F;
constexpr float kTurned = 0.5F;  // of the up vector

struct BitmapChoice {
  float below;  // pixels
  Font font;
  float nominal;
};
constexpr BitmapChoice kBitmapFonts[] = {
    {11.0F, Font::helvetica_10, 10.0F}, {12.5F, Font::helvetica_12, 12.0F},
    {14.0F, Font::fixed_8_13, 13.0F},   {16.5F, Font::fixed_9_15, 15.0F},
    {21.0F, Font::helvetica_18, 18.0F}, {std::numeric_limits<float>::infinity(), Font::times_24, 24.0F},
};

struct Alignment {
  int horizontal = 0, vertical = 0;
};

// A bitmap font can't turn: the text stays level, and where it would stand beside its point is put in its alignment.
// By horizontal alignment 0 to 3 the vertical one, by vertical alignment 0 to 5 the horizontal one.
constexpr std::array<int, 4> kOverHorizontal{3, 3, 2, 1};
constexpr std::array<int, 6> kOverVertical{5, 5, 5, 3, 1, 1};
constexpr std::array<int, 4> kRightHorizontal{1, 1, 3, 5};
constexpr std::array<int, 6> kRightVertical{1, 3, 3, 2, 1, 1};
constexpr std::array<int, 4> kLeftHorizontal{5, 5, 3, 1};
constexpr std::array<int, 6> kLeftVertical{3, 1, 1, 2, 3, 3};

template <std::size_t N>
int Pick(const std::array<int, N>& table, int index) {
  return table[index >= 0 && index < static_cast<int>(N) ? static_cast<std::size_t>(index) : 0];
}

Alignment Permuted(const GksAttributes& a) {
  if (a.up_y > kTurned) return {a.align_x, a.align_y};
  if (a.up_y < -kTurned) return {Pick(kOverHorizontal, a.align_x), Pick(kOverVertical, a.align_y)};
  if (a.up_x > kTurned) return {Pick(kRightVertical, a.align_y), Pick(kRightHorizontal, a.align_x)};
  return {Pick(kLeftVertical, a.align_y), Pick(kLeftHorizontal, a.align_x)};
}

bool ReadsUpward(const GksAttributes& a) {
  return a.turn_bitmap && a.up_x < -kTurned;
}

// A text in pixels from its point, along its direction and downward from its baseline.
struct TextBox {
  Font font = Font::stroke;
  float scale = 1;  // of the font
  float width = 0, cap = 0, descender = 0;
  float along = 0, down = 0;  // of the start
  int horizontal = 0;         // alignment in use
};

float PixelHeight(const GksState& gks) {
  const GksPoint per_unit = gksPixelsPerUnit(gks);
  const float x = gks.attribute.char_height * gks.attribute.up_x * per_unit.x;
  const float y = gks.attribute.char_height * gks.attribute.up_y * per_unit.y;
  return std::sqrt(x * x + y * y);
}

float Width(Font font, float scale, std::string_view text) {  // pixels
  float width = 0.0F;
  for (const char letter : text) {
    const auto c = static_cast<unsigned char>(letter);
    width += font == Font::stroke ? gksStrokeAdvance(c, scale) : static_cast<float>(gksCharWidth(font, c));
  }
  return width;
}

float OffsetAlong(int horizontal, float width) {
  if (horizontal == 2) return -0.5F * width;
  return horizontal == 3 ? -width : 0.0F;
}

float OffsetDown(int vertical, const TextBox& box) {
  switch (vertical) {
    case 1:
      return box.cap;
    case 2:
      return 0.8F * box.cap;
    case 3:
      return 0.4F * box.cap;
    case 5:
      return -box.descender;
    default:
      return 0.0F;
  }
}

TextBox MakeBox(const GksState& gks, std::string_view text) {
  const float height = PixelHeight(gks);
  const GksAttributes& a = gks.attribute;
  TextBox box;
  Alignment alignment{a.align_x, a.align_y};
  if (gks.window.bitmap_font) {
    const float wanted = kBitmapHeight * height;
    const BitmapChoice* choice = kBitmapFonts;
    while (choice != std::end(kBitmapFonts) - 1 && !(wanted < choice->below)) ++choice;
    box.font = choice->font;
    const bool any_size = gks.paint.scalable && gks.style == PictureStyle::report;
    const float size = any_size ? wanted : choice->nominal;  // else as large as in pictures of pixels
    box.cap = 0.75F * size;
    box.descender = 0.25F * size;
    if (!ReadsUpward(a)) alignment = Permuted(a);
  } else {
    box.scale = height / kStrokeCap;
    box.cap = kStrokeCap * box.scale;
    box.descender = kStrokeDescender * box.scale;
  }
  box.width = gks.paint.scalable ? box.cap / kCapOfEm * gksLettersWidth(text) : Width(box.font, box.scale, text);
  box.along = OffsetAlong(alignment.horizontal, box.width);
  box.down = OffsetDown(alignment.vertical, box);
  box.horizontal = alignment.horizontal;
  return box;
}

float TurnOf(const GksState& gks) {  // radians, clockwise
  const bool level = gks.window.bitmap_font && !ReadsUpward(gks.attribute);
  return level ? 0.0F : gks.attribute.text_rotation * kRadians;
}

void DrawLetters(const GksState& gks, GksColour colour, GksPoint at, const TextBox& box, std::string_view text) {
  const float turn = TurnOf(gks), cosine = std::cos(turn), sine = std::sin(turn);
  GksPoint start{at.x + cosine * box.along - sine * box.down, at.y + sine * box.along + cosine * box.down};
  if (turn == 0.0F && gks.window.bitmap_font) start.x = std::max(start.x, 0.0F);
  gks.paint.letters(gks.paint.self, colour, {start, box.cap / kCapOfEm, turn, text});
}

}  // namespace

void GTX(const GksState& gks, GksPoint at, std::string_view text) {
  if (gks.attribute.clip && !gksInside(gksSortedWindow(gks), at)) return;
  const GksColour colour = gksColourOf(gks, gks.attribute.text_colour);
  const TextBox box = MakeBox(gks, text);
  const GksPoint pixel = gksPixelPoint(gks, at);
  if (gks.paint.scalable) return DrawLetters(gks, colour, pixel, box, text);
  if (gks.window.bitmap_font) {  // a start left of the picture would lose the first letters
    const bool upward = ReadsUpward(gks.attribute);
    const GksPoint start = upward ? GksPoint{pixel.x + box.down, pixel.y - box.along}
                                  : GksPoint{std::max(pixel.x + box.along, 0.0F), pixel.y + box.down};
    return gksDrawBitmapText(gks.paint, colour, start, box.font, upward, text);
  }
  gksDrawStrokeText(gks.paint, {colour, box.cap < kThinBelow ? 1.0F : kTextLine},
                    {pixel, gks.attribute.text_rotation * kRadians, box.scale, box.along, box.down}, text);
}

TextExtent GQTXX(const GksState& gks, GksPoint at, std::string_view text) {
  const TextBox box = MakeBox(gks, text);
  const GksPoint pixel = gksPixelPoint(gks, at);
  const float turn = TurnOf(gks);
  const float cosine = std::cos(turn), sine = std::sin(turn);
  const auto world = [&](float along, float down) {
    return gksToWorldExact(gks, {pixel.x + cosine * along - sine * down, pixel.y + sine * along + cosine * down});
  };
  const float left = box.along, right = box.along + box.width;
  const float bottom = box.down + box.descender, top = box.down - box.cap;
  float next = box.width;
  if (box.horizontal == 2) next = 0.0F;
  if (box.horizontal == 3) next = -box.width;
  return {{world(left, bottom), world(right, bottom), world(right, top), world(left, top)}, world(next, 0.0F)};
}

}  // namespace zaview
