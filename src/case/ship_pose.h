// Where the ship is: from ship axes to earth axes. Lengths non-dimensional, angles in radians, double from the
// 4-byte histories. Earth axes: z = 0 is the still water, z up. Ship axes have their origin where the geometry input
// has it; places are told from the centre of gravity, which is at pmgg(1:3) of a step. Pure.
#pragma once

#include "base/rotation.h"
#include "case/case_store.h"

namespace zaview {

struct ShipPose {
  Vector3 cg{};  // earth axes
  Rotation R{};  // ship to earth: roll first, then pitch, then yaw, R = Rz(yaw) Ry(pitch) Rx(roll)
};

[[nodiscard]] ShipPose PoseAtStep(const CaseStore& store, int step);  // first_read <= step <= last_read
[[nodiscard]] ShipPose PoseAtStart(const CaseStore& store);           // the initial position of the control data

[[nodiscard]] Vector3 ShipCentre(const CaseStore& store);  // centre of gravity, ship axes; 0 where the file has none
[[nodiscard]] Vector3 FromCentre(const CaseStore& store, const Vector3& ship);  // ship - ShipCentre

[[nodiscard]] Vector3 ShipToEarth(const ShipPose& pose, const Vector3& from_centre);  // cg + R r

// How far along X a step at the steady speed goes: USHIP DTH.
[[nodiscard]] double SteadyAdvance(const CaseStore& store);

// Height of the still water in ship axes where the initial position puts it, upright.
[[nodiscard]] double StillWater(const CaseStore& store);

}  // namespace zaview
