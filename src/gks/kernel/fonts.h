// The six bitmap fonts, the smooth ones and the stroke font: widths and glyphs. The tables are made by the build, from
// the library's own fonts and from outlines, so that pictures without a display have the same letters.
#pragma once

#include <string>
#include <string_view>

#include "gks/kernel/gks_paint.h"

namespace zaview {

// Width of a character in pixels, or of the stroke font in its units, rounded; 0: not in the font.
[[nodiscard]] int gksCharWidth(Font font, unsigned char c);
[[nodiscard]] bool gksHasSmoothLetters();  // else the smooth fonts are bitmap ones

// Letters side by side from a point of the baseline; upward: turned by a quarter, each above the one before (smooth
// ones stay as they are).
void gksDrawBitmapText(const GksPaint& paint, GksColour colour, GksPoint at, Font font, bool upward,
                       std::string_view text);

// Pixels from one letter of the stroke font to the next at so many pixels a unit. A full stop in small letters keeps a
// pixel free on both sides.
[[nodiscard]] float gksStrokeAdvance(unsigned char c, float scale);

// The scalable font, whose letters are as wide as those of the usual fonts without serifs. Texts are UTF-8; a byte that
// can't be is a letter of Latin-1. Control characters have no width.
inline constexpr float kCapOfEm = 1409.0F / 2048.0F;           // a capital letter
[[nodiscard]] char32_t gksTakeLetter(std::string_view& text);  // from the front of a text that isn't empty
void gksPutLetter(char32_t letter, std::string& text);         // as UTF-8, at the end
[[nodiscard]] float gksLetterAdvance(char32_t letter);         // ems
[[nodiscard]] float gksLettersWidth(std::string_view text);    // ems

struct StrokePlace {
  GksPoint at;                // pixel
  float turn = 0, scale = 1;  // radians, clockwise on the screen; pixels for a unit of the font
  float along = 0, down = 0;  // from `at` to the start, pixels in the turned frame
};
void gksDrawStrokeText(const GksPaint& paint, const GksPen& pen, const StrokePlace& place, std::string_view text);

}  // namespace zaview
