#include "views/motion/wet_parts.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

#include "base/grow.h"
#include "views/motion/refine.h"

namespace zaview {

namespace {

struct CellPlace {
  std::size_t cell = 0;
  double part = 0;  // 0 to 1 from its first point to its second
};

CellPlace PlaceOn(const std::vector<double>& axis, double at) {
  const auto above = std::upper_bound(axis.begin() + 1, axis.end() - 1, at);
  const auto cell = static_cast<std::size_t>(above - axis.begin()) - 1;
  return {cell, std::clamp((at - axis[cell]) / (axis[cell + 1] - axis[cell]), 0.0, 1.0)};
}

double Apart(const Vector3& a, const Vector3& b) {
  return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

Vector3 Middle(const Vector3& a, const Vector3& b) {
  return {0.5 * (a[0] + b[0]), 0.5 * (a[1] + b[1]), 0.5 * (a[2] + b[2])};
}

}  // namespace

bool RefineHull(double longest, ClosedHull& hull) {
  const auto refine = [&] {
    std::vector<TriangleCorners> triangles;
    std::size_t strips = 0;
    for (std::size_t i = 0; i < hull.triangles.size(); ++i) {
      if (i == hull.strips) strips = triangles.size();
      RefineTriangle(hull.triangles[i], longest, hull.vertices, Apart, Middle,
                     [&](const TriangleCorners& part) { triangles.push_back(part); });
    }
    hull.strips = hull.strips < hull.triangles.size() ? strips : triangles.size();
    hull.triangles = std::move(triangles);
    return true;
  };
  return Guarded(refine, false);
}

double DrawnSeaAt(const MotionSceneState& scene, double x, double y) {
  const CellPlace i = PlaceOn(scene.grid_x, x), j = PlaceOn(scene.grid_y, y);
  const std::size_t nx = scene.grid_x.size(), a = j.cell * nx + i.cell;
  const auto eta = [&](std::size_t k) { return static_cast<double>(scene.eta[k]); };
  const double corner = eta(a), opposite = eta(a + nx + 1);
  // The cell is parted from its first corner to the opposite one.
  if (i.part >= j.part) return corner + i.part * (eta(a + 1) - corner) + j.part * (opposite - eta(a + 1));
  return corner + j.part * (eta(a + nx) - corner) + i.part * (opposite - eta(a + nx));
}

bool MakeWettedHull(const MotionStage& stage, const Vector3& centre, MotionSceneState& scene) {
  const std::size_t count = scene.closed.vertices.size();
  if (!Grow(scene.wet_places, count) || !Grow(scene.wet_depths, count)) return false;
  for (std::size_t i = 0; i < count; ++i) {
    const Vector3& ship = scene.closed.vertices[i];
    const Vector3 from_cg{ship[0] - centre[0], ship[1] - centre[1], ship[2] - centre[2]};
    Vector3 r = ToGlobal(stage.pose.R, from_cg);
    for (double& length : r) length *= stage.length;
    r[2] += stage.cg[2];
    scene.wet_places[i] = r;
    scene.wet_depths[i] = DrawnSeaAt(scene, r[0], r[1]) - r[2];
  }
  if (!WetHull(scene.closed, scene.wet_places, scene.wet_depths, scene.wetted)) return false;
  scene.wet_sums = SumWetHull(scene.wetted);
  if (!Grow(scene.waterline, 2 * scene.wetted.shown_segments)) return false;
  for (std::size_t i = 0; i < scene.waterline.size(); ++i)
    for (std::size_t k = 0; k < 3; ++k)
      scene.waterline[i][k] = static_cast<float>(scene.wetted.waterline[i / 2][i % 2][k]);
  return true;
}

}  // namespace zaview
