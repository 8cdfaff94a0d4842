// The box around points. Pure.
#pragma once

#include <cstddef>

#include "base/rotation.h"

namespace zaview {

struct HullBox {
  Vector3 low{}, high{};
  bool operator==(const HullBox&) const = default;
};

[[nodiscard]] HullBox EmptyBox();  // its low ends lie above its high ones until a point is included
void Include(const Vector3& p, HullBox& box);
[[nodiscard]] inline bool IsEmpty(const HullBox& box) {
  return box.low[0] > box.high[0];
}
[[nodiscard]] Vector3 CentreOf(const HullBox& box);  // 0 of an empty one
[[nodiscard]] double LargestExtent(const HullBox& box);

}  // namespace zaview
