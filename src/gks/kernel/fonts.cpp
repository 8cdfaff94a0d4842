#include "gks/kernel/fonts.h"

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
    case Font::stroke:
      break;
  }
  return nullptr;
}

// The bitmap fonts have a filler box for each control character, of either half of the table.
bool IsControl(unsigned char c) {
  return c < 32 || (c >= 127 && c < 160);
}

}  // namespace

int gksCharWidth(Font font, unsigned char c) {
  if (IsControl(c)) return 0;
  const BitmapFontTable* const table = TableOf(font);
  if (table == nullptr) return static_cast<int>(std::lround(kStrokeRight[c]));
  return table->bytes[table->start[c]];
}

void gksDrawBitmapText(const GksPaint& paint, GksColour colour, GksPoint at, Font font, std::string_view text) {
  const BitmapFontTable* const table = TableOf(font);
  if (table == nullptr) return;
  for (const char letter : text) {
    const auto c = static_cast<unsigned char>(letter);
    if (IsControl(c)) continue;
    const unsigned char* const glyph = table->bytes + table->start[c];
    paint.glyph(paint.self, colour, at, {glyph[0], table->height, table->x_origin, table->y_origin, glyph + 1});
    at.x += static_cast<float>(glyph[0]);
  }
}

void gksDrawStrokeText(const GksPaint& paint, const GksPen& pen, const StrokePlace& place, std::string_view text) {
  const float cosine = std::cos(place.turn), sine = std::sin(place.turn);
  std::vector<GksPoint> points;
  float along = place.along;
  for (const char letter : text) {
    const auto c = static_cast<unsigned char>(letter);
    if (IsControl(c)) continue;
    for (int strip = kStrokeGlyphStart[c]; strip < kStrokeGlyphStart[c + 1]; ++strip) {
      points.clear();
      if (!Reserve(points, static_cast<std::size_t>(kStripStart[strip + 1] - kStripStart[strip]))) return;
      for (int i = kStripStart[strip]; i < kStripStart[strip + 1]; ++i) {
        const float u = along + place.scale * kStrokePoints[i].x, v = place.down - place.scale * kStrokePoints[i].y;
        points.push_back({place.at.x + cosine * u - sine * v, place.at.y + sine * u + cosine * v});
      }
      paint.line(paint.self, pen, points);
    }
    along += place.scale * kStrokeRight[c];
  }
}

}  // namespace zaview
