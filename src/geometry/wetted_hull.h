// A closed hull under a water surface that is given at its vertices: the wet triangles, the waterline, volume and
// waterplane. Pure.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "geometry/closed_hull.h"

namespace zaview {

struct WetTriangle {
  std::array<Vector3, 3> r{};  // axes of the call; the right-hand normal points out of the body
  std::array<double, 3> d{};   // depth of each corner below the surface, not negative
  std::uint32_t of = 0;        // triangle of the hull, from 0
  bool whole = false;          // all of it
};
using WaterlineSegment = std::array<Vector3, 2>;

struct WettedHull {  // in the order of the hull's triangles
  std::vector<WetTriangle> triangles;
  std::vector<WaterlineSegment> waterline;  // each as it runs along its wet triangle
  std::size_t shown_segments = 0;           // those behind lie on closing strips
};

// r: where the vertices of the hull are, in any axes with z up; d: eta - z there. d > 0 is wet, 0 is dry. A triangle
// with both is cut where d, taken as linear along its edges, is 0; its wet part is fanned from its first corner. False:
// memory is out, or a list is short.
[[nodiscard]] bool WetHull(const ClosedHull& hull, std::span<const Vector3> r, std::span<const double> d,
                           WettedHull& out);

// Moments about the z axis of r, over the wet triangles; exact for plane triangles and linear d.
struct WetSums {
  double V = 0;             // volume: - int d n_z dA
  Vector3 B{};              // centre of buoyancy: - int (d x, d y, (eta^2 - z^2)/2) n_z dA / V; 0 without volume
  double Awp = 0;           // waterplane area: - int n_z dA
  double Sx = 0, Sy = 0;    // its first moments: - int x n_z dA, with y
  double Ixx = 0, Iyy = 0;  // its second moments: - int y^2 n_z dA, with x^2
};
[[nodiscard]] WetSums SumWetHull(const WettedHull& wet);

}  // namespace zaview
