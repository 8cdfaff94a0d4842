// What the families of the room share: from the model to the screen, and one entity drawn. Private to the room.
#pragma once

#include <cstddef>

#include "gks/zb3d/zb3d.h"

namespace zaview {

inline constexpr float kMostRatio = 1000.0F;  // of what is at the eye, behind it, or nearly so

[[nodiscard]] ZbPoint Projected(const Zb3dState& zb, ScenePoint point);
[[nodiscard]] bool InFront(const Zb3dState& zb, const ZbPoint& point);  // of the eye
[[nodiscard]] ScenePoint EyePlace(const Zb3dState& zb);

void NoMemory(ZbDraw draw, std::string_view routine);  // says it; the picture is left out

inline constexpr int kSpaceTransform = 3;  // its world is the screen; those before are the page's and the graph's
// With that transformation selected; face: the colour index of its filling.
void DrawEntity(ZbDraw draw, const ZbEntity& entity, int face);

}  // namespace zaview
