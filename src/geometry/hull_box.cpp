#include "geometry/hull_box.h"

#include <algorithm>
#include <limits>

namespace zaview {

HullBox EmptyBox() {
  constexpr double kMost = std::numeric_limits<double>::max();
  return {{kMost, kMost, kMost}, {-kMost, -kMost, -kMost}};
}

void Include(const Vector3& p, HullBox& box) {
  for (std::size_t k = 0; k < 3; ++k) {
    box.low[k] = std::min(box.low[k], p[k]);
    box.high[k] = std::max(box.high[k], p[k]);
  }
}

Vector3 CentreOf(const HullBox& box) {
  Vector3 centre{};
  for (std::size_t k = 0; k < 3; ++k) centre[k] = (box.low[k] + box.high[k]) / 2;
  return centre;
}

double LargestExtent(const HullBox& box) {
  return std::max({box.high[0] - box.low[0], box.high[1] - box.low[1], box.high[2] - box.low[2]});
}

}  // namespace zaview
