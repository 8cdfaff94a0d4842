// The other half of a symmetric body, and how much a hull may hold.
#pragma once

#include <cstddef>

#include "base/platform.h"
#include "geometry/hull.h"

namespace zaview {

// Appends the mirror image in y = 0 of each surface (" (ref)" behind its name) and of the mesh, node order of elements
// reversed. False (told: ERR147, ERR375): too many. WRN247 warns of points more than 1e-6 L off on both sides.
[[nodiscard]] bool ReflectGeometry(const Console& console, double L, Hull& hull);

// Whether a hull may hold so much: MAXCMP surfaces, MAXFEG nodes and elements. False (told: ERR147, ERR375).
[[nodiscard]] bool HullFits(const Console& console, std::size_t surfaces, std::size_t nodes, std::size_t elements);

}  // namespace zaview
