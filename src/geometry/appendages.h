// Corners of the lifting appendages of records 32 (fins) and 33 (plates): c +- s/2 +- q/2 with s the span vector and q
// the chord vector, both made as long as told; the chord of a fin is turned about its span by its deflection. Angles
// in radians, right-hand. Pure.
#pragma once

#include <array>

#include "base/rotation.h"
#include "control/control_records.h"

namespace zaview {

using PlateCorners = std::array<Vector3, 4>;  // a ring: -s -q, -s +q, +s +q, +s -q

// v turned about the direction of axis (O. Rodrigues, 1840); an axis of no length turns nothing.
[[nodiscard]] Vector3 TurnedAbout(const Vector3& axis, double angle, const Vector3& v);

// Input axes and lengths, at the deflection of the record.
[[nodiscard]] PlateCorners AppendageCorners(const ControlRecords& records, const AppendageInput& appendage);

// Ship axes, non-dimensional; the chord turned further by rudder_ang about ship +Z: 0 for what doesn't move.
[[nodiscard]] PlateCorners ShipAppendage(const ControlRecords& records, const AppendageInput& appendage,
                                         double rudder_ang);

// A fin aft of the centre of gravity (ship axes, non-dimensional) whose span is within 45 degrees of ship Z.
[[nodiscard]] bool IsRudder(const ControlRecords& records, const AppendageInput& fin, const Vector3& centre);

}  // namespace zaview
