// Sums and products of vectors.
#pragma once

#include <cmath>
#include <cstddef>

#include "base/rotation.h"

namespace zaview {

[[nodiscard]] inline Vector3 Plus(const Vector3& a, const Vector3& b) {
  return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}
[[nodiscard]] inline Vector3 Minus(const Vector3& a, const Vector3& b) {
  return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}
[[nodiscard]] inline Vector3 Times(double factor, const Vector3& a) {
  return {factor * a[0], factor * a[1], factor * a[2]};
}
[[nodiscard]] inline double Dot(const Vector3& a, const Vector3& b) {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}
[[nodiscard]] inline double Length(const Vector3& a) {
  return std::sqrt(Dot(a, a));
}
// Without its part along the unit vector e.
[[nodiscard]] inline Vector3 NormalTo(const Vector3& e, const Vector3& a) {
  return Minus(a, Times(Dot(a, e), e));
}

}  // namespace zaview
