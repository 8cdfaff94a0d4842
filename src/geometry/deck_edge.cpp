#include "geometry/deck_edge.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/grow.h"

namespace zaview {
namespace {

constexpr double kInside = 1e-6;   // of L: so far the end sections stand inside
constexpr double kAsHigh = 1e-6;   // of L
constexpr double kOutboard = 0.5;  // of the half breadth

using Section = std::vector<Vector3>;

// Where the edges of the triangles go through the sections.
std::vector<Section> CutSections(const ClosedHull& hull, double x_first, double step) {
  std::vector<Section> sections(kDeckSections + 1);
  for (std::size_t t = 0; t < hull.strips; ++t)
    for (std::size_t k = 0; k < 3; ++k) {
      const Vector3& a = hull.vertices[hull.triangles[t][k]];
      const Vector3& b = hull.vertices[hull.triangles[t][(k + 1) % 3]];
      const double low = std::min(a[0], b[0]), high = std::max(a[0], b[0]);
      const int from = std::max(static_cast<int>(std::ceil((low - x_first) / step)), 0);
      for (int i = from; i <= kDeckSections && x_first + i * step <= high; ++i) {
        const double x = x_first + i * step;
        if (x < low || high == low) continue;
        const double part = (x - a[0]) / (b[0] - a[0]);
        sections[static_cast<std::size_t>(i)].push_back({x, a[1] + part * (b[1] - a[1]), a[2] + part * (b[2] - a[2])});
      }
    }
  return sections;
}

void AddEdge(const Section& section, double side, double L, std::vector<Vector3>& points) {
  double half = 0;
  for (const Vector3& p : section) half = std::max(half, side * p[1]);
  const Vector3* edge = nullptr;
  for (const Vector3& p : section) {
    if (side * p[1] < kOutboard * half) continue;
    const double higher = edge == nullptr ? 2 * kAsHigh * L : p[2] - (*edge)[2];
    if (higher > kAsHigh * L || (higher > -kAsHigh * L && side * p[1] > side * (*edge)[1])) edge = &p;
  }
  if (edge != nullptr) points.push_back(*edge);
}

}  // namespace

bool FindDeckEdge(const ClosedHull& hull, double L, std::vector<Vector3>& points) {
  points.clear();
  double x_min = std::numeric_limits<double>::infinity(), x_max = -x_min;
  for (std::size_t t = 0; t < hull.strips; ++t)
    for (const std::uint32_t v : hull.triangles[t]) {
      x_min = std::min(x_min, hull.vertices[v][0]);
      x_max = std::max(x_max, hull.vertices[v][0]);
    }
  const double first = x_min + kInside * L, step = (x_max - x_min - 2 * kInside * L) / kDeckSections;
  if (!(step > 0)) return true;
  return Guarded(
      [&] {
        for (const Section& section : CutSections(hull, first, step))
          for (const double side : {1.0, -1.0}) AddEdge(section, side, L, points);
        return true;
      },
      false);
}

}  // namespace zaview
