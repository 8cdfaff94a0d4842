// Added mass and damping of a forced motion: least squares fit of the hydrodynamic force. Pure.
#pragma once

#include <span>

namespace zaview {

struct ForceFit {  // F = F0 - B v - A a
  double A = 0, B = 0, F0 = 0;
};

// a, v, F: acceleration, velocity and force of one mode, a value a step. Normal equations in double, sums in ascending
// index. False: singular (fewer than three steps, or a, v and 1 depend on each other).
[[nodiscard]] bool FitForce(std::span<const float> a, std::span<const float> v, std::span<const double> F,
                            ForceFit& fit);

}  // namespace zaview
