#include "gks/kernel/fonts.h"

#include <cmath>
#include <gks_font_tables.h>  // made by the build

#include <GL/gl.h>

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

void DrawStrokeChar(unsigned char c) {
  for (int strip = kStrokeGlyphStart[c]; strip < kStrokeGlyphStart[c + 1]; ++strip) {
    glBegin(GL_LINE_STRIP);
    for (int i = kStripStart[strip]; i < kStripStart[strip + 1]; ++i)
      glVertex2f(kStrokePoints[i].x, kStrokePoints[i].y);
    glEnd();
  }
  glTranslatef(kStrokeRight[c], 0.0F, 0.0F);
}

}  // namespace

int gksCharWidth(Font font, unsigned char c) {
  if (IsControl(c)) return 0;
  const BitmapFontTable* const table = TableOf(font);
  if (table == nullptr) return static_cast<int>(std::lround(kStrokeRight[c]));
  return table->bytes[table->start[c]];
}

void gksDrawChar(Font font, unsigned char c) {
  if (IsControl(c)) return;
  const BitmapFontTable* const table = TableOf(font);
  if (table == nullptr) {
    DrawStrokeChar(c);
    return;
  }
  const unsigned char* const glyph = table->bytes + table->start[c];
  glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
  glBitmap(glyph[0], table->height, table->x_origin, table->y_origin, glyph[0], 0.0F, glyph + 1);
}

}  // namespace zaview
