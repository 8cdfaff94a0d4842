// Linear systems of a few unknowns. Pure.
#pragma once

#include <span>

namespace zaview {

// Solves a x = b by Gaussian elimination; the pivot is the entry that is largest against those of its row as given.
// a: n by n, row by row, n = b.size(); it is used up, and b becomes x. False: singular, a pivot is below 1e-12 of the
// largest entry of its row as given, or what is no number stands there.
[[nodiscard]] bool SolveLinear(std::span<double> a, std::span<double> b);

}  // namespace zaview
