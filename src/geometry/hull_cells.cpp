#include "geometry/hull_cells.h"

#include <algorithm>

#include "base/vectors.h"
#include "geometry/element_shape.h"

namespace zaview {

Vector3 CellCentre(const HullCell& cell) {
  Vector3 sum{};
  for (const Vector3& corner : cell.ring())
    for (std::size_t k = 0; k < 3; ++k) sum[k] += corner[k];
  for (double& x : sum) x /= cell.corners;
  return sum;
}

Vector3 CellNormal(const HullCell& cell) {
  const auto& [a, b, c, d] = cell.corner;
  return cell.corners == 3 ? Cross(Minus(b, a), Minus(c, a)) : Cross(Minus(c, a), Minus(d, b));
}

double CellFlux(const HullCell& cell, const Vector3& r0) {
  if (cell.corners == 3) return Dot(Minus(cell.corner[0], r0), CellNormal(cell)) / 2;
  const Vector3 centre = CellCentre(cell);
  const Vector3 from_r0 = Minus(centre, r0);
  double flux = 0;
  for (std::size_t i = 0; i < 4; ++i)
    flux += Dot(from_r0, Cross(Minus(cell.corner[i], centre), Minus(cell.corner[(i + 1) % 4], centre))) / 2;
  return flux;
}

HullCell MirroredCell(const HullCell& cell) {
  HullCell image = cell;
  std::reverse(image.corner.begin() + 1, image.corner.begin() + image.corners);
  for (Vector3& corner : image.corner) corner[1] = -corner[1];
  return image;
}

HullCell SurfaceCell(const HullSurface& surface, int component, int i, int j) {
  return {{surface.at(i, j), surface.at(i, j + 1), surface.at(i + 1, j + 1), surface.at(i + 1, j)}, 4, component};
}

HullCell ElementCell(const HullMesh& mesh, const HullElement& element) {
  HullCell cell;
  cell.corners = element.corners();
  for (int k = 0; k < cell.corners; ++k) cell.corner[static_cast<std::size_t>(k)] = Corner(mesh, element, k);
  return cell;
}

}  // namespace zaview
