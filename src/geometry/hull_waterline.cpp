#include "geometry/hull_waterline.h"

#include <cstddef>
#include <span>

#include "geometry/hull_cells.h"

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

}  // namespace

int CutHull(const Hull& hull, double height, std::vector<WaterlinePiece>& pieces) {
  int count = 0;
  pieces.clear();
  VisitCells(hull, [&](const HullCell& cell) { CutCell(cell.ring(), height, count, pieces); });
  return count;
}

}  // namespace zaview
