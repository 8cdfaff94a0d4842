// What the primitives share: colour and line style of GL, lines and fills without either. Private to the kernel.
#pragma once

#include <span>

#include "gks/kernel/gks_state.h"
#include "gks/kernel/gks_transform.h"

namespace zaview {

void gksPutVertex(const GksState& gks, GksPoint point);  // between glBegin and glEnd
void gksSetColour(const GksState& gks, int index);
void gksSetLineStyle(int style, float width);  // style: 0 solid, 1 to 4 stippled
void gksDrawLine(const GksState& gks, std::span<const float> x, std::span<const float> y);
void gksDrawFill(const GksState& gks, std::span<const float> x, std::span<const float> y);

}  // namespace zaview
