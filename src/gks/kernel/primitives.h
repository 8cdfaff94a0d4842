// What the primitives share: lines and fills of any colour through the selected transformation. Private to the kernel.
#pragma once

#include <span>

#include "gks/kernel/gks_state.h"
#include "gks/kernel/gks_transform.h"

namespace zaview {

inline constexpr int kMarkerTypes = 22;

[[nodiscard]] GksColour gksColourOf(const GksState& gks, int index);
void gksDrawLine(const GksState& gks, const GksPen& pen, std::span<const float> x, std::span<const float> y);
void gksDrawFill(const GksState& gks, GksColour colour, std::span<const float> x, std::span<const float> y);
// The pixel of a world point, as the painters take it.
[[nodiscard]] GksPoint gksPixelPoint(const GksState& gks, GksPoint world);

}  // namespace zaview
