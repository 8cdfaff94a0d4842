// Booms of a crane: their tips as the ship and the boom move them, and how slew, luff and cable length follow what is
// commanded. One system of units throughout, angles in radians. Pure.
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "base/rotation.h"

namespace zaview {

// The ship at a step. Rotation from ship to earth; spin is its rate.
struct ShipMotion {
  double time = 0;
  double to_next = 0;                           // until the next step; 0: no time passes
  Vector3 cg{}, velocity{};                     // earth axes
  Rotation R{};                                 //
  Vector3 spin{}, acceleration{}, spin_rate{};  // ship axes
};

struct Boom {
  Vector3 base{};  // ship axes from the centre of gravity
  double length = 0;
  double slew = 0, luff = 0;  // where it starts; slew 0 forward, positive to port, luff 0 level, positive up
};

// What is commanded: a value, its rate, and the change of the rate in the last sub-step.
struct CraneAxis {
  double value = 0, rate = 0, change = 0;
};

struct AxisLimits {
  double rate = 0, acceleration = 0;  // 0 or below: none
  double low = 0, high = 0;           // low not below high: none
};

// Over a sub-step of h towards a target: the rate is that which would reach it, limited to limits.rate, to
// sqrt(2 limits.acceleration |target - value|), from which it can still be stopped, and in its change to
// limits.acceleration h. A value stops at low and high.
void FollowTarget(const AxisLimits& limits, double target, double h, CraneAxis& axis);

struct CraneCommand {
  double time = 0, slew = 0, luff = 0, length = 0;
};
// Linear between commands, held before the first and after the last. commands: at least one, times don't fall.
[[nodiscard]] CraneCommand CommandAt(std::span<const CraneCommand> commands, double time);

struct PointMotion {  // earth axes
  Vector3 place{}, velocity{}, acceleration{};
};

// Tip b = base + length (cos luff cos slew, cos luff sin slew, sin luff) in ship axes:
//   p = cg + R b, v = v_cg + R (w x b + b'), a = R (a_cg + w' x b + w x (w x b) + 2 w x b' + b'').
// slew, luff: values, rates and their changes.
[[nodiscard]] PointMotion BoomTip(const ShipMotion& ship, const Boom& boom, const CraneAxis& slew,
                                  const CraneAxis& luff);

// The polynomial of the fifth degree that takes place, velocity and acceleration of both ends of a step. s: of its
// duration, 0 to 1; duration above 0.
[[nodiscard]] PointMotion MotionBetween(const PointMotion& from, const PointMotion& to, double duration, double s);

}  // namespace zaview
