#include "geometry/hull_cells.h"

#include <cmath>

#include <gtest/gtest.h>

#include "geometry/hull_waterline.h"
#include "meshes.h"

namespace zaview {
namespace {

// Four sides of a box 0.4 x 0.1 x 0.2 as stations that go around; above it a mesh box whose top is the transom.
Hull BoxHull() {
  Hull hull;
  HullSurface& side = hull.surfaces.emplace_back();
  side.KSTA = 5;
  side.KWL = 2;
  const double ring[5][2] = {{0.2, 0.05}, {-0.2, 0.05}, {-0.2, -0.05}, {0.2, -0.05}, {0.2, 0.05}};
  for (const auto& corner : ring)
    for (const double z : {-0.1, 0.1}) side.points.push_back({corner[0], corner[1], z});
  AddBox({0, 0, 1}, {1, 2, 3}, hull.mesh);
  hull.mesh.elements[2].node[3] = 0;
  hull.mesh.on_transom = {false, true, false, false, false, false};
  return hull;
}

TEST(HullCells, CornersNormalsAndComponents) {
  struct {
    int component, corners;
    Vector3 centre, normal;  // normal: twice the area; the surface's into the body, the mesh's outward
  } const expected[] = {{1, 4, {0, 0.05, 0}, {0, -0.16, 0}}, {1, 4, {-0.2, 0, 0}, {0.04, 0, 0}},
                        {1, 4, {0, -0.05, 0}, {0, 0.16, 0}}, {1, 4, {0.2, 0, 0}, {-0.04, 0, 0}},
                        {0, 4, {0.5, 1, 1}, {0, 0, -4}},     {0, 3, {2 / 3.0, 0, 5 / 3.0}, {0, -2, 0}},
                        {0, 4, {1, 1, 2}, {8, 0, 0}},        {0, 4, {0.5, 2, 2}, {0, 4, 0}},
                        {0, 4, {0, 1, 2}, {-8, 0, 0}}};
  std::size_t i = 0;
  VisitCells(BoxHull(), [&](const HullCell& cell) {
    ASSERT_LT(i, std::size(expected));
    EXPECT_EQ(cell.component, expected[i].component) << i;
    EXPECT_EQ(cell.corners, expected[i].corners) << i;
    for (std::size_t k = 0; k < 3; ++k) {
      EXPECT_NEAR(CellCentre(cell)[k], expected[i].centre[k], 1e-12) << i;
      EXPECT_NEAR(CellNormal(cell)[k], expected[i].normal[k], 1e-12) << i;
    }
    ++i;
  });
  EXPECT_EQ(i, std::size(expected));
}

TEST(HullCells, WaterlineInPieces) {
  Hull hull = BoxHull();
  std::vector<WaterlinePiece> pieces;
  EXPECT_EQ(CutHull(hull, 0.0, pieces), 4);
  double length = 0;
  for (const WaterlinePiece& piece : pieces) length += std::hypot(piece[1][0] - piece[0][0], piece[1][1] - piece[0][1]);
  EXPECT_NEAR(length, 1.0, 1e-12);
  EXPECT_EQ(CutHull(hull, 0.2, pieces), 0);
  EXPECT_EQ(CutHull(hull, 0.1, pieces), 4);  // in the plane counts as above
  for (int i = 0; i < 200; ++i) hull.surfaces.push_back(hull.surfaces[0]);
  EXPECT_EQ(CutHull(hull, 0.0, pieces), 804);
  EXPECT_EQ(pieces.size(), 500U);
}

}  // namespace
}  // namespace zaview
