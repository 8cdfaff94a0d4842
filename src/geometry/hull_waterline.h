// The waterline of a hull at rest, as separate pieces. Pure.
#pragma once

#include <array>
#include <vector>

#include "geometry/hull.h"

namespace zaview {

inline constexpr int MAXWP0 = 500;  // waterline pieces; more are dropped

using WaterlinePiece = std::array<std::array<double, 2>, 2>;  // x, y of both ends

// Cuts of the cells of all surfaces and elements with the plane z = height, in the order of the hull; transom elements
// are left out. Returns how many there are; `pieces` has at most MAXWP0.
[[nodiscard]] int CutHull(const Hull& hull, double height, std::vector<WaterlinePiece>& pieces);

}  // namespace zaview
