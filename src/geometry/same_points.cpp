#include "geometry/same_points.h"

#include <bit>
#include <cmath>

namespace zaview {
namespace {

// Points in cubes: a chain of points a bucket. Cubes that share a bucket only cost time.
class CubeHash {
 public:
  CubeHash(double reach, std::size_t points)
      : side_(4 * reach), head_(std::bit_ceil(2 * points + 1), -1), next_(points, -1) {}

  void Add(std::size_t point, const Vector3& p) {
    std::int32_t& head = head_[Bucket({std::floor(p[0] / side_), std::floor(p[1] / side_), std::floor(p[2] / side_)})];
    next_[point] = head;
    head = static_cast<std::int32_t>(point);
  }

  // Calls visit(point) for every point within reach of p, and for others.
  template <typename Visit>
  void Near(const Vector3& p, Visit visit) const {
    Vector3 low{};
    for (std::size_t k = 0; k < 3; ++k) low[k] = std::floor(p[k] / side_ - 0.5);
    for (unsigned corner = 0; corner < 8; ++corner) {
      const Vector3 cube = {low[0] + (corner & 1U), low[1] + ((corner >> 1U) & 1U), low[2] + (corner >> 2U)};
      for (std::int32_t point = head_[Bucket(cube)]; point >= 0; point = next_[static_cast<std::size_t>(point)])
        visit(static_cast<std::size_t>(point));
    }
  }

 private:
  [[nodiscard]] std::size_t Bucket(const Vector3& cube) const {
    std::uint64_t hash = 0;
    for (const double k : cube) {
      hash = (hash ^ std::bit_cast<std::uint64_t>(k + 0.0)) * 0x9E3779B97F4A7C15U;  // + 0: one zero only
      hash ^= hash >> 29U;
    }
    return hash & (head_.size() - 1);
  }
  double side_;
  std::vector<std::int32_t> head_, next_;
};

double SquaredDistance(const Vector3& a, const Vector3& b) {
  double sum = 0;
  for (std::size_t k = 0; k < 3; ++k) sum += (a[k] - b[k]) * (a[k] - b[k]);
  return sum;
}

}  // namespace

std::size_t FindSamePoints(double reach, const std::vector<Vector3>& points, std::vector<std::uint32_t>& first) {
  CubeHash kept(reach, points.size());
  first.resize(points.size());
  std::size_t same = 0;
  for (std::size_t i = 0; i < points.size(); ++i) {
    std::size_t lowest = i;
    kept.Near(points[i], [&](std::size_t k) {
      if (k < lowest && SquaredDistance(points[i], points[k]) < reach * reach) lowest = k;
    });
    first[i] = static_cast<std::uint32_t>(lowest);
    if (lowest == i) kept.Add(i, points[i]);
    else ++same;
  }
  return same;
}

}  // namespace zaview
