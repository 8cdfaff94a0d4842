// The six bitmap fonts and the stroke font: widths and glyphs. The tables are made by the build from the library's own
// fonts, so that pictures without a display have the same letters.
#pragma once

#include <span>

#include "base/window_system.h"

namespace zaview {

// Width of a character in pixels, or of the stroke font in its units, rounded; 0: not in the font.
[[nodiscard]] int gksCharWidth(Font font, unsigned char c);
// Draws at the raster position, or (stroke) at the origin of the model matrix, and moves on.
void gksDrawChar(Font font, unsigned char c);

}  // namespace zaview
