#include "base/rotation.h"

#include <cmath>

namespace zaview {

Rotation ShipToGlobal(double roll, double pitch, double yaw) {
  const double cr = std::cos(roll), sr = std::sin(roll);
  const double cp = std::cos(pitch), sp = std::sin(pitch);
  const double cy = std::cos(yaw), sy = std::sin(yaw);
  return {{{cy * cp, cy * sp * sr - sy * cr, cy * sp * cr + sy * sr},
           {sy * cp, sy * sp * sr + cy * cr, sy * sp * cr - cy * sr},
           {-sp, cp * sr, cp * cr}}};
}

Vector3 ToGlobal(const Rotation& rotation, const Vector3& ship) {
  Vector3 global{};
  for (std::size_t i = 0; i < 3; ++i)
    global[i] = rotation.r[i][0] * ship[0] + rotation.r[i][1] * ship[1] + rotation.r[i][2] * ship[2];
  return global;
}

Vector3 ToShip(const Rotation& rotation, const Vector3& global) {
  Vector3 ship{};
  for (std::size_t j = 0; j < 3; ++j)
    ship[j] = rotation.r[0][j] * global[0] + rotation.r[1][j] * global[1] + rotation.r[2][j] * global[2];
  return ship;
}

Vector3 Cross(const Vector3& a, const Vector3& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

}  // namespace zaview
