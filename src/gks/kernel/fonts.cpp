#include "gks/kernel/fonts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <gks_font_tables.h>  // made by the build
#include <vector>

#include "base/grow.h"

namespace zaview {

namespace {

const BitmapFontTable* TableOf(Font font) {
  switch (font) {
    case Font::helvetica_10:
      return &kHelvetica10;
    case Font::helvetica_12:
      return &kHelvetica12;
    case Font::fixed_8_13:
      return &kFixed8x13;
    case Font::fixed_9_15:
      return &kFixed9x15;
    case Font::helvetica_18:
      return &kHelvetica18;
    case Font::times_24:
      return &kTimesRoman24;
    case Font::sans_10:
      return &kSans10;
    case Font::sans_12:
      return &kSans12;
    case Font::mono_13:
      return &kMono13;
    case Font::stroke:
      break;
  }
  return nullptr;
}

// The bitmap fonts have a filler box for each control character, of either half of the table.
bool IsControl(unsigned char c) {
  return c < 32 || (c >= 127 && c < 160);
}

// A glyph turned counterclockwise, with its rows in `rows`. Left blank if there is no memory for it.
GksGlyph Turned(const GksGlyph& glyph, std::vector<unsigned char>& rows) {
  GksGlyph out = {glyph.height, glyph.width, static_cast<float>(glyph.height) - glyph.y_origin, glyph.x_origin,
                  nullptr};
  const auto bytes = static_cast<std::size_t>((glyph.width + 7) / 8),
             turned = static_cast<std::size_t>((out.width + 7) / 8);
  rows.clear();
  if (!Reserve(rows, turned * static_cast<std::size_t>(out.height))) return {};
  rows.resize(turned * static_cast<std::size_t>(out.height));
  const auto bit = [](std::size_t place) { return 0x80U >> place % 8; };
  for (std::size_t y = 0; y < static_cast<std::size_t>(glyph.height); ++y)
    for (std::size_t x = 0; x < static_cast<std::size_t>(glyph.width); ++x) {
      const std::size_t column = static_cast<std::size_t>(out.width) - 1 - y;
      if ((glyph.rows[y * bytes + x / 8] & bit(x)) == 0) continue;
      unsigned char& byte = rows[x * turned + column / 8];
      byte = static_cast<unsigned char>(byte | bit(column));
    }
  out.rows = rows.data();
  return out;
}

}  // namespace

int gksCharWidth(Font font, unsigned char c) {
  if (IsControl(c)) return 0;
  const BitmapFontTable* const table = TableOf(font);
  if (table == nullptr) return static_cast<int>(std::lround(kStrokeRight[c]));
  return table->bytes[table->start[c]];
}

bool gksHasSmoothLetters() {
  return kSans12.smooth;
}

float gksStrokeAdvance(unsigned char c, float scale) {
  constexpr float kLeastStop = 3.0F;
  if (IsControl(c)) return 0.0F;
  const float advance = scale * kStrokeRight[c];
  return c == '.' ? std::max(advance, kLeastStop) : advance;
}

char32_t gksTakeLetter(std::string_view& text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned first = byte(0);
  const std::size_t more = first >= 0xF0 && first < 0xF5   ? 3
                           : first >= 0xE0 && first < 0xF0 ? 2
                           : first >= 0xC2 && first < 0xE0 ? 1
                                                           : 0;
  constexpr std::array<unsigned, 4> kMask{0xFF, 0x1F, 0x0F, 0x07};
  constexpr std::array<char32_t, 4> kLeast{0, 0x80, 0x800, 0x10000};
  char32_t letter = first & kMask[more];
  bool good = more < text.size();
  for (std::size_t i = 1; good && i <= more; ++i) {
    good = (byte(i) & 0xC0U) == 0x80U;
    letter = letter << 6U | (byte(i) & 0x3FU);
  }
  good = good && letter >= kLeast[more] && letter <= 0x10FFFF && (letter < 0xD800 || letter > 0xDFFF);
  text.remove_prefix(good ? more + 1 : 1);
  return good ? letter : first;
}

void gksPutLetter(char32_t letter, std::string& text) {
  constexpr std::array<char32_t, 3> kEnds{0x80, 0x800, 0x10000};
  constexpr std::array<unsigned, 4> kFirst{0, 0xC0, 0xE0, 0xF0};
  const auto more = static_cast<unsigned>(std::upper_bound(kEnds.begin(), kEnds.end(), letter) - kEnds.begin());
  text += static_cast<char>(kFirst[more] | letter >> 6U * more);
  for (unsigned i = more; i-- > 0;) text += static_cast<char>(0x80U | (letter >> 6U * i & 0x3FU));
}

float gksLetterAdvance(char32_t letter) {
  constexpr char32_t kTable = 256;
  if (letter < kTable && IsControl(static_cast<unsigned char>(letter))) return 0.0F;
  return static_cast<float>(kLetterAdvance[letter < kTable ? letter : U'x']) / kLetterUnits;
}

float gksLettersWidth(std::string_view text) {
  float width = 0.0F;
  while (!text.empty()) width += gksLetterAdvance(gksTakeLetter(text));
  return width;
}

void gksDrawBitmapText(const GksPaint& paint, GksColour colour, GksPoint at, Font font, bool upward,
                       std::string_view text) {
  const BitmapFontTable* const table = TableOf(font);
  if (table == nullptr) return;
  std::vector<unsigned char> rows;
  for (const char letter : text) {
    const auto c = static_cast<unsigned char>(letter);
    if (IsControl(c)) continue;
    const unsigned char* const bytes = table->bytes + table->start[c];
    const GksGlyph glyph = {
        bytes[0] + 2 * table->overhang, table->height, table->x_origin, table->y_origin, bytes + 1, table->smooth};
    paint.glyph(paint.self, colour, at, upward && !table->smooth ? Turned(glyph, rows) : glyph);
    (upward ? at.y : at.x) += (upward ? -1.0F : 1.0F) * static_cast<float>(bytes[0]);
  }
}

void gksDrawStrokeText(const GksPaint& paint, const GksPen& pen, const StrokePlace& place, std::string_view text) {
  const float cosine = std::cos(place.turn), sine = std::sin(place.turn);
  std::vector<GksPoint> points;
  float along = place.along;
  for (const char letter : text) {
    const auto c = static_cast<unsigned char>(letter);
    if (IsControl(c)) continue;
    const float advance = gksStrokeAdvance(c, place.scale),
                start = along + 0.5F * (advance - place.scale * kStrokeRight[c]);
    for (int strip = kStrokeGlyphStart[c]; strip < kStrokeGlyphStart[c + 1]; ++strip) {
      points.clear();
      if (!Reserve(points, static_cast<std::size_t>(kStripStart[strip + 1] - kStripStart[strip]))) return;
      for (int i = kStripStart[strip]; i < kStripStart[strip + 1]; ++i) {
        const float u = start + place.scale * kStrokePoints[i].x, v = place.down - place.scale * kStrokePoints[i].y;
        points.push_back({place.at.x + cosine * u - sine * v, place.at.y + sine * u + cosine * v});
      }
      paint.line(paint.self, pen, points);
    }
    along += advance;
  }
}

}  // namespace zaview
