// Makes an unstructured surface usable: duplicates and degenerate elements removed, transom elements found, normals
// set. Coordinates and the reference length L in one unit of length. Indices of nodes count from 1 and are in range.
#pragma once

#include "base/platform.h"
#include "geometry/hull.h"

namespace zaview {

// Nodes closer than 1e-6 L (strictly) to a kept one are that one; elements with fewer than 3 different vertices, and
// later ones with the same set of vertices, are removed; a quadrilateral with 3 becomes a triangle in ring order. Says
// WRN376 and WRN377, elements numbered as they came. Linear time (a grid of cells).
void FECULL(const Console& console, double L, HullMesh& mesh);

// Marks elements whose vertices all have x - x_min <= 1e-4 L, x = p . ship_x, x_min over the nodes in use, and says
// their number.
void FETRNSM(const Console& console, double L, const Vector3& ship_x, HullMesh& mesh);

// UGEOMNORM 0: away from the centreplane; 1: by connectivity, each part then turned so that its flux of (r - r0) is not
// negative, which turns closed ones outward (Gauss: the flux is three times the volume); 2: as they are; 3: all turned.
// r0: centre of the box around all nodes in use, y0 = 0 for a half. False (told): another value.
[[nodiscard]] bool FENORM(const Console& console, int UGEOMNORM, bool half, HullMesh& mesh);

}  // namespace zaview
