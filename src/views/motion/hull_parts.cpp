#include "views/motion/hull_parts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "analysis/hull_wetness.h"
#include "base/grow.h"
#include "case/ship_pose.h"
#include "geometry/appendages.h"
#include "geometry/hull_cells.h"
#include "views/motion/refine.h"

namespace zaview {

namespace {

// Puts cells into a mesh whose arrays have room for them.
class CellMesh {
 public:
  CellMesh(const CaseStore& store, double length, SceneColour colour, SceneMesh& mesh)
      : store_(store), length_(length), colour_(colour), mesh_(mesh) {}

  void Put(const HullCell& cell) {
    const Vector3 n = CellNormal(cell);
    const double size = std::hypot(n[0], n[1], n[2]);
    if (!(size > 0)) return;  // without an area
    for (std::size_t i = 0; i < 3; ++i) normal_[i] = static_cast<float>(n[i] / size);
    const auto corners = static_cast<std::uint32_t>(cell.corners), first = PutRing(cell);
    const bool about_mean = cell.corners == 4;
    if (about_mean) PutVertex(CellCentre(cell));
    for (std::uint32_t k = 0; k < corners; ++k) {
      const std::uint32_t a = first + k, b = first + (k + 1) % corners;
      mesh_.lines.insert(mesh_.lines.end(), {a, b});
      if (about_mean) mesh_.triangles.insert(mesh_.triangles.end(), {first + corners, a, b});
    }
    if (!about_mean) mesh_.triangles.insert(mesh_.triangles.end(), {first, first + 1, first + 2});
  }

 private:
  std::uint32_t PutRing(const HullCell& cell) {  // the first of its vertices
    const auto first = static_cast<std::uint32_t>(mesh_.vertices.size());
    for (const Vector3& corner : cell.ring()) PutVertex(corner);
    return first;
  }
  void PutVertex(const Vector3& ship) {
    const Vector3 r = FromCentre(store_, ship);
    SceneVertex vertex;
    for (std::size_t i = 0; i < 3; ++i) vertex.place[i] = static_cast<float>(r[i] * length_);
    vertex.normal = normal_;
    vertex.colour = colour_;
    mesh_.vertices.push_back(vertex);
  }

  const CaseStore& store_;
  double length_;
  SceneColour colour_;
  SceneMesh& mesh_;
  ScenePlace normal_{};
};

constexpr std::size_t kMostVertices = 5, kMostCorners = 12, kMostEnds = 8;  // of a cell

bool Empty(std::size_t cells, SceneMesh& mesh) {
  mesh.vertices.clear();
  mesh.triangles.clear();
  mesh.lines.clear();
  return Reserve(mesh.vertices, kMostVertices * cells) && Reserve(mesh.triangles, kMostCorners * cells) &&
         Reserve(mesh.lines, kMostEnds * cells);
}

bool RefineMesh(double longest, SceneMesh& mesh) {
  const auto apart = [](const SceneVertex& a, const SceneVertex& b) {
    return static_cast<double>(std::hypot(a.place[0] - b.place[0], a.place[1] - b.place[1], a.place[2] - b.place[2]));
  };
  const auto middle = [](const SceneVertex& a, const SceneVertex& b) {
    SceneVertex between = a;
    for (std::size_t k = 0; k < 3; ++k) between.place[k] = 0.5F * (a.place[k] + b.place[k]);
    return between;
  };
  std::vector<std::uint32_t> triangles;
  const auto put = [&](const std::array<std::uint32_t, 3>& part) {
    triangles.insert(triangles.end(), part.begin(), part.end());
  };
  for (std::size_t i = 0; i + 2 < mesh.triangles.size(); i += 3)
    RefineTriangle({mesh.triangles[i], mesh.triangles[i + 1], mesh.triangles[i + 2]}, longest, mesh.vertices, apart,
                   middle, put);
  mesh.triangles = std::move(triangles);
  return true;
}

}  // namespace

double SmallEdge(const HullExtent& extent) {
  constexpr double kParts = 50;  // of the hull's length
  return std::max(extent.high[0] - extent.low[0], extent.reach) / kParts;
}

bool MakeHullMesh(const CaseStore& store, double length, SceneColour colour, double longest, SceneMesh& mesh) {
  std::size_t cells = 0;
  VisitCells(store.hull, [&](const HullCell&) { ++cells; });
  if (!Empty(cells, mesh)) return false;
  CellMesh put(store, length, colour, mesh);
  VisitCells(store.hull, [&](const HullCell& cell) { put.Put(cell); });
  return longest == 0 || Guarded([&] { return RefineMesh(longest, mesh); }, false);
}

bool ColourByWetness(const CaseStore& store, double length, int step, MotionSceneState& scene) {
  std::vector<SceneVertex>& vertices = scene.hull.vertices;
  if (scene.hull_points.size() != vertices.size()) {
    if (!Grow(scene.hull_points, vertices.size())) return false;
    for (std::size_t i = 0; i < vertices.size(); ++i)
      for (std::size_t k = 0; k < 3; ++k) scene.hull_points[i][k] = static_cast<double>(vertices[i].place[k]) / length;
  }
  const double small = SmallEdge(scene.extent) / length;
  if (!FollowWetness(store, scene.hull_points, step, scene.wetness)) return false;
  for (std::size_t i = 0; i < vertices.size(); ++i) {
    const SceneColour& above = scene.wetness.first_wet[i] <= step ? kWasWetInk : kHullInk;
    // From one colour to the other over a small edge about the surface: its line isn't broken at the faces.
    const double wet = std::clamp(0.5 + static_cast<double>(scene.wetness.immersion[i]) / small, 0.0, 1.0);
    for (std::size_t k = 0; k < 3; ++k)
      vertices[i].colour[k] = static_cast<unsigned char>(above[k] + wet * (kWetInk[k] - above[k]) + 0.5);
  }
  return true;
}

bool MakeStrips(const CaseStore& store, double length, const ClosedHull& closed, SceneMesh& mesh) {
  const std::span<const TriangleCorners> strips = closed.closing_strips();
  if (!Empty(strips.size(), mesh)) return false;
  CellMesh put(store, length, kHullInk, mesh);
  for (const TriangleCorners& strip : strips) {
    HullCell cell;
    cell.corners = 3;
    for (std::size_t i = 0; i < strip.size(); ++i) cell.corner[i] = closed.vertices[strip[i]];
    put.Put(cell);
  }
  return true;
}

bool MakeFins(const CaseStore& store, double length, int step, SceneMesh& mesh) {
  const ControlRecords& control = store.control;
  if (!Empty(control.fins.size(), mesh)) return false;
  CellMesh put(store, length, kFinInk, mesh);
  const double angle = store.rudder_ang.components() > 0 ? static_cast<double>(store.rudder_ang.at(1, step)) : 0.0;
  for (const AppendageInput& fin : control.fins)
    put.Put({ShipAppendage(control, fin, IsRudder(control, fin, ShipCentre(store)) ? angle : 0.0)});
  return true;
}

bool MakePlates(const CaseStore& store, double length, SceneMesh& mesh) {
  const ControlRecords& control = store.control;
  if (!Empty(control.bilge_keels.size(), mesh)) return false;
  CellMesh put(store, length, kFinInk, mesh);
  for (const AppendageInput& plate : control.bilge_keels) put.Put({ShipAppendage(control, plate, 0.0)});
  return true;
}

}  // namespace zaview
