// Points of the INPUT geometry system in ship axes: p' = R(GROT) (p - GORIG) + GSHIFT, then non-dimensional.
#pragma once

#include "base/rotation.h"
#include "control/control_records.h"

namespace zaview {

// point: input axes and input units. Result: ship axes, non-dimensional, origin where record 24 puts it.
[[nodiscard]] Vector3 InputToShip(const ControlRecords& records, const Vector3& point);

}  // namespace zaview
