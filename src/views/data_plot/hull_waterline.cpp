#include "views/data_plot/hull_waterline.h"

#include <cstddef>
#include <span>

namespace zaview {

namespace {

// A corner in the plane counts as above it, so that a cell is cut at two or four edges.
void CutCell(std::span<const Vector3> corners, double height, int& count, std::vector<WaterlinePiece>& pieces) {
  std::array<std::array<double, 2>, 4> cuts{};
  std::size_t n = 0;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const Vector3& a = corners[i];
    const Vector3& b = corners[(i + 1) % corners.size()];
    const double da = a[2] - height, db = b[2] - height;
    if ((da < 0.0) == (db < 0.0)) continue;
    const double part = da / (da - db);
    cuts[n++] = {a[0] + part * (b[0] - a[0]), a[1] + part * (b[1] - a[1])};
  }
  for (std::size_t i = 0; i + 1 < n; i += 2) {
    ++count;
    if (pieces.size() < static_cast<std::size_t>(MAXWP0)) pieces.push_back({cuts[i], cuts[i + 1]});
  }
}

void CutSurface(const HullSurface& surface, double height, int& count, std::vector<WaterlinePiece>& pieces) {
  for (int i = 1; i < surface.KSTA; ++i) {
    for (int j = 1; j < surface.KWL; ++j) {
      const Vector3 corners[] = {surface.at(i, j), surface.at(i + 1, j), surface.at(i + 1, j + 1),
                                 surface.at(i, j + 1)};
      CutCell(corners, height, count, pieces);
    }
  }
}

}  // namespace

int CutHull(const Hull& hull, double height, std::vector<WaterlinePiece>& pieces) {
  int count = 0;
  pieces.clear();
  for (const HullSurface& surface : hull.surfaces) CutSurface(surface, height, count, pieces);
  const HullMesh& mesh = hull.mesh;
  for (std::size_t i = 0; i < mesh.elements.size(); ++i) {
    if (i < mesh.on_transom.size() && mesh.on_transom[i]) continue;
    const HullElement& element = mesh.elements[i];
    std::array<Vector3, 4> corners{};
    const auto n = static_cast<std::size_t>(element.corners());
    for (std::size_t k = 0; k < n; ++k) corners[k] = mesh.nodes[static_cast<std::size_t>(element.node[k] - 1)];
    CutCell(std::span(corners).first(n), height, count, pieces);
  }
  return count;
}

}  // namespace zaview
