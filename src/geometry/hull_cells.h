// The cells of a hull, one form for surfaces and elements, in the order of the hull: what is drawn or cut panel by
// panel. Pure.
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "geometry/hull.h"

namespace zaview {

struct HullCell {  // axes and lengths of the hull
  std::array<Vector3, 4> corner{};
  int corners = 4;    // 3: a triangle
  int component = 0;  // its surface, from 1; 0: an element of the mesh
  [[nodiscard]] std::span<const Vector3> ring() const {
    return std::span(corner).first(static_cast<std::size_t>(corners));
  }
};

[[nodiscard]] Vector3 CellCentre(const HullCell& cell);  // mean of the corners

// Along the right-hand normal of the corner order, its length twice the area of a plane cell: (p2 - p1) x (p3 - p1), of
// four corners (p3 - p1) x (p4 - p2). It points INTO the body on a port side of stations from bow to stern and
// waterlines from keel to deck; of an element as FENORM leaves it.
[[nodiscard]] Vector3 CellNormal(const HullCell& cell);

// Integral of (r - r0) . n dA, a cell of four corners taken as four triangles about its centre. Over a closed surface
// three times its volume, positive if the normals face out.
[[nodiscard]] double CellFlux(const HullCell& cell, const Vector3& r0);
[[nodiscard]] HullCell MirroredCell(const HullCell& cell);  // in y = 0, its normal the mirrored one

// Between stations i, i + 1 and waterlines j, j + 1, from 1: corners (i, j), (i, j+1), (i+1, j+1), (i+1, j).
[[nodiscard]] HullCell SurfaceCell(const HullSurface& surface, int component, int i, int j);
[[nodiscard]] HullCell ElementCell(const HullMesh& mesh, const HullElement& element);

// visit(const HullCell&) for each: surfaces station by station, then the elements that are not on the transom.
template <typename Visit>
void VisitCells(const Hull& hull, Visit visit) {
  int component = 0;
  for (const HullSurface& surface : hull.surfaces) {
    ++component;
    for (int i = 1; i < surface.KSTA; ++i)
      for (int j = 1; j < surface.KWL; ++j) visit(SurfaceCell(surface, component, i, j));
  }
  const HullMesh& mesh = hull.mesh;
  for (std::size_t i = 0; i < mesh.elements.size(); ++i)
    if (i >= mesh.on_transom.size() || !mesh.on_transom[i]) visit(ElementCell(mesh, mesh.elements[i]));
}

}  // namespace zaview
