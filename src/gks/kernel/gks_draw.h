// The output primitives, drawn at once in immediate mode through the selected transformation.
#pragma once

#include <span>
#include <string_view>

#include "gks/kernel/gks_state.h"
#include "gks/kernel/gks_transform.h"

namespace zaview {

// Clipped segment by segment against the window of the selected transformation, if clipping is on.
void GPL(const GksState& gks, std::span<const float> x, std::span<const float> y);
void GFA(const GksState& gks, std::span<const float> x, std::span<const float> y);
// Markers 0 to 21, square in pixels.
void GPM(const GksState& gks, std::span<const float> x, std::span<const float> y);
// Text at a world point by the text attributes, in bitmap or stroke font.
void GTX(const GksState& gks, GksPoint at, std::string_view text);

struct TextExtent {
  GksPoint corner[4];  // world; counter-clockwise from the left end below the baseline
  GksPoint end;        // where a further text of the same alignment would go on; a centred one: the point itself
};
[[nodiscard]] TextExtent GQTXX(const GksState& gks, GksPoint at, std::string_view text);

}  // namespace zaview
