// Points of the INPUT geometry system in ship axes: p' = R(GROT) (p - GORIG) + GSHIFT, then non-dimensional.
#pragma once

#include "base/rotation.h"
#include "control/control_records.h"

namespace zaview {

struct InputTransform {
  Rotation R{};
  Triple GORIG{}, GSHIFT{};
  double LENIN = 1;
};

// Of record 24; of an $ADDGEOM: block, which has its own.
[[nodiscard]] InputTransform TransformOf(const ControlRecords& records);
[[nodiscard]] InputTransform TransformOf(const ControlRecords& records, const AddedGeometryInput& added);

// point: input axes and input units. Result: ship axes, non-dimensional, origin where record 24 puts it.
[[nodiscard]] Vector3 InputToShip(const InputTransform& transform, const Vector3& point);
[[nodiscard]] Vector3 InputToShip(const ControlRecords& records, const Vector3& point);
[[nodiscard]] Vector3 ShipToInput(const InputTransform& transform, const Vector3& point);  // the way back

}  // namespace zaview
