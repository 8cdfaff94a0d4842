#include "analysis/motion_tests/force_fit.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "base/linear_system.h"

namespace zaview {

bool FitForce(std::span<const float> a, std::span<const float> v, std::span<const double> F, ForceFit& fit) {
  constexpr std::size_t kUnknowns = 3;
  std::array<double, kUnknowns * kUnknowns> left{};
  std::array<double, kUnknowns> right{};
  const std::size_t n = std::min({a.size(), v.size(), F.size()});
  for (std::size_t step = 0; step < n; ++step) {
    const std::array<double, kUnknowns> term = {a[step], v[step], 1.0};
    for (std::size_t i = 0; i < kUnknowns; ++i) {
      for (std::size_t j = 0; j < kUnknowns; ++j) left[i * kUnknowns + j] += term[i] * term[j];
      right[i] += term[i] * F[step];
    }
  }
  if (!SolveLinear(left, right)) return false;
  fit = {-right[0], -right[1], right[2]};
  return true;
}

}  // namespace zaview
