#include "geometry/element_shape.h"

#include <utility>

#include "geometry/hull_cells.h"

namespace zaview {
namespace {

Vector3 Minus(const Vector3& a, const Vector3& b) {
  return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

double Dot(const Vector3& a, const Vector3& b) {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

}  // namespace

Vector3 ElementCentre(const HullMesh& mesh, const HullElement& element) {
  return CellCentre(ElementCell(mesh, element));
}

Vector3 ElementNormal(const HullMesh& mesh, const HullElement& element) {
  return CellNormal(ElementCell(mesh, element));
}

double ElementFlux(const HullMesh& mesh, const HullElement& element, const Vector3& r0) {
  const int n = element.corners();
  if (n == 3) return Dot(Minus(Corner(mesh, element, 0), r0), ElementNormal(mesh, element)) / 2;
  const Vector3 centre = ElementCentre(mesh, element);
  const Vector3 from_r0 = Minus(centre, r0);
  double flux = 0;
  for (int i = 0; i < n; ++i) {
    const Vector3 a = Minus(Corner(mesh, element, i), centre);
    const Vector3 b = Minus(Corner(mesh, element, (i + 1) % n), centre);
    flux += Dot(from_r0, Cross(a, b)) / 2;
  }
  return flux;
}

void TurnElement(HullElement& element) {
  const auto last = static_cast<std::size_t>(element.corners() - 1);
  std::swap(element.node[1], element.node[last]);
}

}  // namespace zaview
