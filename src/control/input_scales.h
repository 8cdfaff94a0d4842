// From input units to the non-dimensional numbers that everything is computed with. With L, g, r, a for LENIN, GRAVIN,
// RHOIN, ANGIN: length / L, time sqrt(g/L), frequency sqrt(L/g), velocity / sqrt(gL), angle / a (radians), rotation
// rate sqrt(L/g)/a, mass / (r L^3), inertia / (r L^5). Factors in double.
#pragma once

#include "control/control_records.h"

namespace zaview {

struct InputScales {
  double length = 1, time = 1, frequency = 1, velocity = 1, angle = 1, rate = 1, mass = 1, inertia = 1;
};

[[nodiscard]] InputScales InputScalesOf(const ControlRecords& records);

}  // namespace zaview
