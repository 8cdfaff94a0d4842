// Rotation between ship and global axes: R = Rz(yaw) Ry(pitch) Rx(roll), right-handed Euler angles in radians,
// ship to global. Double precision from 4-byte angles; callers round once.
#pragma once

#include <array>

namespace zaview {

using Vector3 = std::array<double, 3>;
struct Rotation {
  double r[3][3];  // row i, column j: global component i of the ship axis j
};

[[nodiscard]] Rotation ShipToGlobal(double roll, double pitch, double yaw);
[[nodiscard]] Vector3 ToGlobal(const Rotation& rotation, const Vector3& ship);  // R v
[[nodiscard]] Vector3 ToShip(const Rotation& rotation, const Vector3& global);  // R' v
[[nodiscard]] Vector3 Cross(const Vector3& a, const Vector3& b);

}  // namespace zaview
