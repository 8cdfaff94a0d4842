#include "geometry/element_shape.h"

#include <utility>

#include "geometry/hull_cells.h"

namespace zaview {

Vector3 ElementCentre(const HullMesh& mesh, const HullElement& element) {
  return CellCentre(ElementCell(mesh, element));
}

Vector3 ElementNormal(const HullMesh& mesh, const HullElement& element) {
  return CellNormal(ElementCell(mesh, element));
}

double ElementFlux(const HullMesh& mesh, const HullElement& element, const Vector3& r0) {
  return CellFlux(ElementCell(mesh, element), r0);
}

void TurnElement(HullElement& element) {
  const auto last = static_cast<std::size_t>(element.corners() - 1);
  std::swap(element.node[1], element.node[last]);
}

}  // namespace zaview
