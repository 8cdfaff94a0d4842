// World to normalized to pixel coordinates and back. Single precision, y down in pixels. Pure.
#pragma once

#include <string_view>

#include "gks/kernel/gks_state.h"

namespace zaview {

void GSELNT(GksState& gks, int number);
// A window whose xmin is greater than its xmax (y likewise) reverses that direction; all other transformations forget
// their reversal. A negative number is ignored, one beyond the last as well.
void GSWN(GksState& gks, int number, GksRectangle window);
void GSVP(GksState& gks, int number, GksRectangle viewport);
// False: illegal window (both directions are empty or reversed), nothing is changed. Else sets the viewport too, as
// large as the GL window allows at the window's aspect.
inline constexpr std::string_view kIllegalWindow = "glGKS: Illegal window in GSWKWN";  // what the caller says to false
[[nodiscard]] bool GSWKWN(GksState& gks, GksRectangle window);
void GSWKVP(GksState& gks, GksRectangle viewport);

struct GksPixel {
  int x = 0, y = 0;
};
[[nodiscard]] GksPixel gksToPixel(const GksState& gks, GksPoint world);  // truncated, limited to +-1e6
[[nodiscard]] GksPoint gksToWorld(const GksState& gks, int x, int y);
// Pixels unrounded, both ways.
[[nodiscard]] GksPoint gksToPixelExact(const GksState& gks, GksPoint world);
[[nodiscard]] GksPoint gksToWorldExact(const GksState& gks, GksPoint pixel);
// Lengths of one world unit of the selected transformation in pixels, unrounded.
[[nodiscard]] GksPoint gksPixelsPerUnit(const GksState& gks);
// The window of the selected transformation with its bounds in order, and is a point in it (the bounds are)?
[[nodiscard]] GksRectangle gksSortedWindow(const GksState& gks);
[[nodiscard]] bool gksInside(const GksRectangle& sorted, GksPoint point);

}  // namespace zaview
