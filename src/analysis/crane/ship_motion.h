// The ship of a case as what moves a crane. Non-dimensional, angles in radians.
#pragma once

#include <span>

#include "analysis/crane/crane_boom.h"
#include "case/case_store.h"

namespace zaview {

// At a step in use. The time to the next one is that of the record, unless the stored times tell another. Where a case
// holds positions alone, velocities and accelerations are those of the polynomial through the steps about this one,
// five as far as there are so many.
[[nodiscard]] ShipMotion ShipMotionAt(const CaseStore& store, int step);

// Weights of the values at x in the first and the second derivative at x0 of the polynomial through them: B. Fornberg,
// Generation of finite difference formulas on arbitrarily spaced grids, Mathematics of Computation 51 (1988).
inline constexpr std::size_t kMostPoints = 5;
struct DerivativeWeights {
  std::array<double, kMostPoints> first{}, second{};
};
[[nodiscard]] DerivativeWeights WeightsAt(double x0, std::span<const double> x);  // 1 to kMostPoints, all different

}  // namespace zaview
