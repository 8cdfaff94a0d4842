// Righting arms of a hull over heel (or trim) in the water of a moment, balanced at each angle. Non-dimensional, angles
// in radians. Pure.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "analysis/righting_arms/hydrostatics.h"

namespace zaview {

enum class ArmDirection : std::uint8_t { transverse = 1, longitudinal = 2 };

inline constexpr int kBalanceOptions = 5;  // 0 to 4
// What the iteration holds: 0 nothing, 1 the force (options 1 and 3), 2 force and moment (2 and 4).
[[nodiscard]] constexpr int BalanceMode(int gz_balance) {
  return gz_balance >= 3 ? gz_balance - 2 : gz_balance;
}

struct ArmSettings {
  ArmDirection direction = ArmDirection::transverse;
  int balance = 1;       // option
  double max_angle = 0;  // degrees
  int nangle = 1;        // on each side
};

struct BalanceAim {  // of the ship without waves, for options 3 and 4
  double force = 0, moment = 0;
};

enum class RowFault : std::uint8_t {
  none,
  not_converged,  // the row stands with its last values
  no_force,       // the force isn't above 0
  no_slope,       // dF/dz below 1e-6
  singular,
  no_memory
};

struct ArmRow {
  double angle_deg = 0;
  double moment = 0, arm = 0;         // righting: against the angle
  double z_cg = 0, second_angle = 0;  // where it was balanced; the angle that was corrected adds to the step's own
};

struct ArmNote {  // of a row that failed or didn't converge, in the order of the computing
  RowFault fault = RowFault::none;
  double angle_deg = 0;
};

struct ArmCurve {
  bool computed = false;                    // row 0 is there
  Hydrostatics upright;                     // as the ship stands, ahead of any balancing
  std::vector<WaterlineSegment> waterline;  // of the same, global
  std::array<std::vector<ArmRow>, 2> side;  // positive, negative; row 0, the same in both, has the angle 0
  std::vector<ArmNote> notes;
};

// From the most negative angle to the most positive, the upright ship once.
template <typename Visit>
void VisitRows(const ArmCurve& curve, Visit visit) {
  for (std::size_t i = curve.side[1].size(); i-- > 1;) visit(curve.side[1][i]);
  for (const ArmRow& row : curve.side[0]) visit(row);
}

// The ship stands as `attitude` tells; an angle a adds to its roll (pitch), sinkage and, in mode 2, pitch (roll) are
// corrected until the force is that of angle 0, or `still`, to 1e-5, and the moment about the second axis to 1e-5 L F,
// L the length of the body: at most 40 corrections by the slopes of the waterplane, none above L/100 or 0.01. X and Y
// of the centre of gravity stay. The moment is about the ship's own axis of the second angle, turned by the yaw alone:
// roll and pitch moment; righting moments are their negatives, arms these over the vertical force.
// Each side starts from the ship as it stands, each further angle from the last good row. False: memory is out, there
// is no curve.
[[nodiscard]] bool CalcArmCurve(const HydrostaticBody& body, const WaterSurface& water, const Attitude& attitude,
                                const ArmSettings& settings, const BalanceAim& still, int threads, ArmCurve& out);

struct ArmStatistics {  // angles in degrees
  double effective_arm = 0, effective_GM = 0;
  double max_arm = 0, max_angle_deg = 0;  // positive side
  double min_arm = 0, min_angle_deg = 0;  // negative side
  double vanish_deg = 0, negative_vanish_deg = 0;
};
// effective_GM: central difference over the first angles, 0 where a side has none. Of equal arms the first counts. An
// arm vanishes where it first falls from above 0 to 0 or below (negative side: reversed), linear in between; never: at
// the last row.
[[nodiscard]] ArmStatistics CalcArmStatistics(const ArmCurve& curve);

}  // namespace zaview
