// The hull as one closed body of triangles: what hydrostatics integrate over, and what keeps the sea out of a hull that
// is open at the top. Pure.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "geometry/hull.h"

namespace zaview {

using TriangleCorners = std::array<std::uint32_t, 3>;  // vertices, from 0

struct ClosedHull {
  std::vector<Vector3> vertices;           // axes and lengths of the hull
  std::vector<TriangleCorners> triangles;  // their right-hand normals point out of the body
  std::size_t strips = 0;                  // triangles from here on close open edges: no view shows them
  [[nodiscard]] std::span<const TriangleCorners> closing_strips() const { return std::span(triangles).subspan(strips); }
};

// L: reference length in lengths of the hull. Transom elements are there.
// - Points closer than 1e-6 L are one vertex; nodes of no element are none. A cell of four corners is four triangles
//   about their mean, so that the result doesn't depend on which end the points start from. Triangles smaller than
//   1e-12 L^2 are left out.
// - A structured surface is turned as a whole if its flux of r - r0 is negative, r0 the centre of the box around all
//   vertices, on the centreplane for a half; elements stand as they are (FENORM).
// - y is the distance from the centreplane of the input, wherever that lies in the axes of the hull: each part has its
//   own. Of a half, cells in the centreplane (all |y| < 1e-6 L) are dropped.
// - A directed edge a -> b without its reverse is closed by (b, a, a') and (b, a', b'), a' being a with y = 0, unless
//   both ends are on the centreplane: open waterlines get a flat deck, an open stern a transom.
// False: memory is out.
[[nodiscard]] bool CloseHull(const Hull& hull, double L, ClosedHull& out);

}  // namespace zaview
