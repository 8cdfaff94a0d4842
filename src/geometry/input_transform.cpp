#include "geometry/input_transform.h"

namespace zaview {
namespace {

Rotation RotationOf(const Triple& GROT, double ANGIN) {
  return ShipToGlobal(GROT[0] / ANGIN, GROT[1] / ANGIN, GROT[2] / ANGIN);
}

}  // namespace

InputTransform TransformOf(const ControlRecords& records) {
  return {RotationOf(records.GROT, records.ANGIN), records.GORIG, records.GSHIFT, records.LENIN};
}

InputTransform TransformOf(const ControlRecords& records, const AddedGeometryInput& added) {
  return {RotationOf(added.GROT, records.ANGIN), added.GORIG, added.GSHIFT, records.LENIN};
}

Vector3 InputToShip(const InputTransform& transform, const Vector3& point) {
  Vector3 from_origin{};
  for (std::size_t i = 0; i < 3; ++i) from_origin[i] = point[i] - transform.GORIG[i];
  Vector3 ship = ToGlobal(transform.R, from_origin);
  for (std::size_t i = 0; i < 3; ++i) ship[i] = (ship[i] + transform.GSHIFT[i]) / transform.LENIN;
  return ship;
}

Vector3 InputToShip(const ControlRecords& records, const Vector3& point) {
  return InputToShip(TransformOf(records), point);
}

Vector3 ShipToInput(const InputTransform& transform, const Vector3& point) {
  Vector3 moved{};
  for (std::size_t i = 0; i < 3; ++i) moved[i] = point[i] * transform.LENIN - transform.GSHIFT[i];
  Vector3 input = ToShip(transform.R, moved);
  for (std::size_t i = 0; i < 3; ++i) input[i] += transform.GORIG[i];
  return input;
}

}  // namespace zaview
