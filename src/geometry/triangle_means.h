// Means over a plane triangle of what is linear in it, told by its values at the corners. Exact.
#pragma once

#include <array>

namespace zaview {

using CornerValues = std::array<double, 3>;

inline double SumOf(const CornerValues& u) {
  return u[0] + u[1] + u[2];
}
inline double MeanOf(const CornerValues& u) {
  return SumOf(u) / 3;
}
inline double MeanProduct(const CornerValues& u, const CornerValues& v) {  // int u v dA / A
  return (SumOf(u) * SumOf(v) + (u[0] * v[0] + u[1] * v[1] + u[2] * v[2])) / 12;
}

}  // namespace zaview
