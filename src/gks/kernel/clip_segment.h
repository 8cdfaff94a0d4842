// Clipping against a rectangle with its bounds in order. Pure.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "gks/kernel/gks_transform.h"

namespace zaview {

enum class WindowEdge : std::uint8_t { none, left, right, bottom, top };

struct ClippedSegment {
  bool visible = false;
  GksPoint from, to;                                         // the part inside
  WindowEdge in = WindowEdge::none, out = WindowEdge::none;  // edges crossed; none: the end itself is inside
};

// The part of the segment a to b that lies in the window, its bounds included; nothing if an end is not finite. Edges
// are met in the order left, right, bottom, top, as in Y.-D. Liang, B. A. Barsky, A new concept and method for line
// clipping, ACM Transactions on Graphics 3 (1984).
[[nodiscard]] ClippedSegment CLIPSEG(const GksRectangle& window, GksPoint a, GksPoint b);

// The part of the polygon inside the window. Between a point where the boundary leaves and the one where it comes back
// the window's own boundary is followed, in the polygon's direction of turn, with those corners that the polygon goes
// round: the angle of its edges round the corner, summed, is beyond 1 radian. False: memory is out.
[[nodiscard]] bool ClipPolygon(const GksRectangle& window, std::span<const float> x, std::span<const float> y,
                               std::vector<GksPoint>& out);

}  // namespace zaview
