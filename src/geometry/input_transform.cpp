#include "geometry/input_transform.h"

namespace zaview {

Vector3 InputToShip(const ControlRecords& records, const Vector3& point) {
  const Triple& angle = records.GROT;
  const Rotation rotation = ShipToGlobal(angle[0] / records.ANGIN, angle[1] / records.ANGIN, angle[2] / records.ANGIN);
  Vector3 from_origin{};
  for (std::size_t i = 0; i < 3; ++i) from_origin[i] = point[i] - records.GORIG[i];
  Vector3 ship = ToGlobal(rotation, from_origin);
  for (std::size_t i = 0; i < 3; ++i) ship[i] = (ship[i] + records.GSHIFT[i]) / records.LENIN;
  return ship;
}

}  // namespace zaview
