// A cargo that hangs on the cables of a crane, moved by their upper ends, the boom tips, step by step. The model and
// the ship's motion are in one system of units, angles in radians, earth axes with z up. Pure.
//
// x is where all cables end on the cargo, P a tip, r = x - P, l = |r|, e = r/l, L0 the unloaded length.
//   Elastic cable: tension T = k (l - L0) + c (l' - L0'), never below 0, and 0 where l <= L0; k = EA/L0,
//   c = 2 z3 sqrt(k m / cables).
//   Rigid cable: T from l'' = L0''. Where that is below 0, or l < L0, the cable is slack and T is 0, until l = L0
//   again.
// The cargo, its centre of gravity at x + Q s, turned by Q:
//   m xG'' = sum(-T e) + m g + D,  I w' = -w x I w + sum(-s x Q'(-T e)) - 2 sqrt(g/l) (z4 Ixx wx, z5 Iyy wy, z6 Izz wz)
//   D = -2 m sqrt(g/l) (z1 vx, z2 vy, 0) less its part along e, v the velocity relative to the tip less its part along
//   e; of several cables the mean over them.
// By the Runge-Kutta scheme of fourth order, sub-steps short enough for the stiffest cable.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "analysis/crane/crane_boom.h"

namespace zaview {

inline constexpr std::size_t kMaxCables = 4;

using Matrix3 = std::array<Vector3, 3>;  // rows

struct CargoStart {
  bool by_swing = true;
  double azimuth = 0, elevation = 0;  // from the ship's heading to port; up from hanging straight down
  double stretch = 0;                 // beyond the static one
  Vector3 end{};                      // else x itself, ship axes from the centre of gravity
  Vector3 euler{};                    // of the cargo, as the ship's: roll, pitch, yaw
};

struct CraneModel {
  std::size_t cables = 1;  // at most kMaxCables
  bool rigid = false;      // one cable only
  bool rotates = false;    // else s and Q are left out
  double gravity = 1, mass = 1;
  Matrix3 inertia{};  // about the centre of gravity, cargo axes
  Matrix3 inverse{};  // of it
  Vector3 s{};        // centre of gravity from the cables' end, cargo axes
  double EA = 0;      // of a cable
  double length = 1;  // L0 at the start
  std::array<double, 6> z{};
  std::array<Boom, kMaxCables> booms{};  // commands move all by the same differences
  AxisLimits slew_limits, luff_limits, length_limits;
  std::vector<CraneCommand> commands;  // none: all stays
  CargoStart start;
  int sub_steps = 1;  // of a step, at least
};

struct CargoState {
  Vector3 cg{}, velocity{};                // earth axes
  std::array<double, 4> turn{1, 0, 0, 0};  // unit quaternion of Q
  Vector3 spin{};                          // cargo axes
};

struct CraneState {
  CargoState cargo;
  CraneAxis slew, luff, length;  // of the first boom
  bool taut = true;              // of a rigid cable
};

struct CraneSnapshot {  // of a step
  std::array<Vector3, kMaxCables> base{}, tip{};
  Vector3 end{};  // x
  Rotation Q{};   // cargo to earth
  double slew = 0, luff = 0, length = 0;
  std::array<double, kMaxCables> tension{};
};

enum class CraneFault : std::uint8_t {
  none,
  length,     // L0 <= 0, or l > 1.5 L0, or no number any more
  too_stiff,  // a step would need more than kMostSubSteps
  interrupted,
  no_memory
};
inline constexpr int kMostSubSteps = 20000;

// Stretch of a cable under the static load, m g / (cables k); 0 of a rigid one.
[[nodiscard]] double StaticStretch(const CraneModel& model);

// At rest relative to the first tip. Of several cables x hangs below the middle of the tips, as far as they hold it.
[[nodiscard]] CraneFault StartCrane(const CraneModel& model, const ShipMotion& ship, CraneState& state);
// On from one step to the next. Commands are followed sub-step by sub-step, tips go by MotionBetween.
[[nodiscard]] CraneFault AdvanceCrane(const CraneModel& model, const ShipMotion& from, const ShipMotion& to,
                                      CraneState& state);
[[nodiscard]] CraneSnapshot SnapshotOf(const CraneModel& model, const ShipMotion& ship, const CraneState& state);

[[nodiscard]] Rotation TurnOf(const std::array<double, 4>& quaternion);
[[nodiscard]] std::array<double, 4> QuaternionOf(const Vector3& euler);
[[nodiscard]] Vector3 EulerOf(const Rotation& Q);  // roll, pitch, yaw

// The inverse of a symmetric matrix (of the mean of its halves) by Cholesky's way; false: it is not positive definite.
[[nodiscard]] bool InvertInertia(const Matrix3& inertia, Matrix3& inverse);

}  // namespace zaview
