// Centre, normal and flux of the elements of a mesh.
#pragma once

#include "geometry/hull.h"

namespace zaview {

inline const Vector3& Corner(const HullMesh& mesh, const HullElement& element, int i) {  // i from 0
  return mesh.nodes[static_cast<std::size_t>(element.node[static_cast<std::size_t>(i)] - 1)];
}

// Of the cell that the element is (hull_cells.h): mean of its corners; normal with twice its area; flux.
[[nodiscard]] Vector3 ElementCentre(const HullMesh& mesh, const HullElement& element);
[[nodiscard]] Vector3 ElementNormal(const HullMesh& mesh, const HullElement& element);
[[nodiscard]] double ElementFlux(const HullMesh& mesh, const HullElement& element, const Vector3& r0);

void TurnElement(HullElement& element);  // the first node stays the first

}  // namespace zaview
