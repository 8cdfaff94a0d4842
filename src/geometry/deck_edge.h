// The edge of the deck, over which water comes on board. Pure.
#pragma once

#include <vector>

#include "geometry/closed_hull.h"

namespace zaview {

inline constexpr int kDeckSections = 20;  // intervals between sections

// In each of so many sections from the hull's one end to the other, and on either side, the highest point that is at
// least half as far from the centreplane as the widest one there, and of equally high ones the outermost: the top edge
// of a hull that is open, about the deck's edge of one that isn't. Closing strips don't count. Axes and lengths of the
// hull; a section without points on a side has none. False: memory is out.
[[nodiscard]] bool FindDeckEdge(const ClosedHull& hull, double L, std::vector<Vector3>& points);

}  // namespace zaview
