#include "geometry/wetted_hull.h"

#include "base/grow.h"
#include "geometry/triangle_means.h"

namespace zaview {
namespace {

struct Wet {  // a point at or below the surface
  Vector3 r{};
  double d = 0;
};

// From the wet end, whichever way the edge runs: neighbours get the same bits.
Wet CutBetween(const Wet& wet, const Wet& dry) {
  const double part = wet.d / (wet.d - dry.d);
  Wet cut;
  for (std::size_t k = 0; k < 3; ++k) cut.r[k] = wet.r[k] + (dry.r[k] - wet.r[k]) * part;
  return cut;
}

void CutTriangle(const std::array<Wet, 3>& corner, std::size_t of, WettedHull& out) {
  std::array<Wet, 4> ring{};
  std::array<std::size_t, 2> cut{};  // where the ring leaves the water, and where it is back
  std::size_t n = 0, cuts = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    const Wet& a = corner[i];
    const Wet& b = corner[(i + 1) % 3];
    if (a.d > 0) ring[n++] = a;
    if ((a.d > 0) == (b.d > 0)) continue;
    cut[a.d > 0 ? 0 : 1] = n;
    ring[n++] = a.d > 0 ? CutBetween(a, b) : CutBetween(b, a);
    ++cuts;
  }
  for (std::size_t i = 2; i < n; ++i)
    out.triangles.push_back({{ring[0].r, ring[i - 1].r, ring[i].r},
                             {ring[0].d, ring[i - 1].d, ring[i].d},
                             static_cast<std::uint32_t>(of),
                             cuts == 0});
  if (cuts == 2) out.waterline.push_back({ring[cut[0]].r, ring[cut[1]].r});
}

}  // namespace

bool WetHull(const ClosedHull& hull, std::span<const Vector3> r, std::span<const double> d, WettedHull& out) {
  out.triangles.clear();
  out.waterline.clear();
  out.shown_segments = 0;
  if (r.size() < hull.vertices.size() || d.size() < hull.vertices.size()) return false;
  return Guarded(
      [&] {
        for (std::size_t i = 0; i < hull.triangles.size(); ++i) {
          std::array<Wet, 3> corner;
          for (std::size_t k = 0; k < 3; ++k) corner[k] = {r[hull.triangles[i][k]], d[hull.triangles[i][k]]};
          CutTriangle(corner, i, out);
          if (i < hull.strips) out.shown_segments = out.waterline.size();
        }
        return true;
      },
      false);
}

WetSums SumWetHull(const WettedHull& wet) {
  WetSums sum;
  Vector3 moment{};
  for (const WetTriangle& t : wet.triangles) {
    const auto& [a, b, c] = t.r;
    const double down = -((b[0] - a[0]) * (c[1] - a[1]) - (b[1] - a[1]) * (c[0] - a[0])) / 2;  // - n_z A
    const CornerValues x{a[0], b[0], c[0]}, y{a[1], b[1], c[1]}, z{a[2], b[2], c[2]};
    const CornerValues eta{z[0] + t.d[0], z[1] + t.d[1], z[2] + t.d[2]};
    sum.V += MeanOf(t.d) * down;
    moment[0] += MeanProduct(t.d, x) * down;
    moment[1] += MeanProduct(t.d, y) * down;
    moment[2] += (MeanProduct(eta, eta) - MeanProduct(z, z)) / 2 * down;
    sum.Awp += down;
    sum.Sx += MeanOf(x) * down;
    sum.Sy += MeanOf(y) * down;
    sum.Ixx += MeanProduct(y, y) * down;
    sum.Iyy += MeanProduct(x, x) * down;
  }
  if (sum.V != 0)
    for (std::size_t k = 0; k < 3; ++k) sum.B[k] = moment[k] / sum.V;
  return sum;
}

}  // namespace zaview
