#include "base/linear_system.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace zaview {
namespace {

constexpr double kSingular = 1e-12;

struct System {
  std::span<double> a, b;
  std::vector<double> scale;  // largest entry of each row as given
  std::size_t n = 0;
  [[nodiscard]] double& at(std::size_t i, std::size_t j) const { return a[i * n + j]; }
};

void SwapRows(System& s, std::size_t i, std::size_t k) {
  if (i == k) return;
  for (std::size_t j = 0; j < s.n; ++j) std::swap(s.at(i, j), s.at(k, j));
  std::swap(s.b[i], s.b[k]);
  std::swap(s.scale[i], s.scale[k]);
}

// Brings the best pivot of column k up. False: there is none.
bool BringPivot(System& s, std::size_t k) {
  std::size_t best = k;
  double size = -1;
  for (std::size_t i = k; i < s.n; ++i) {
    const double relative = s.scale[i] > 0 ? std::abs(s.at(i, k)) / s.scale[i] : 0;
    if (relative > size) {
      size = relative;
      best = i;
    }
  }
  SwapRows(s, k, best);
  return size >= kSingular;
}

}  // namespace

bool SolveLinear(std::span<double> a, std::span<double> b) {
  System s{a, b, {}, b.size()};
  for (std::size_t i = 0; i < s.n; ++i) {
    double scale = 0;
    for (std::size_t j = 0; j < s.n; ++j) scale = std::max(scale, std::abs(s.at(i, j)));
    s.scale.push_back(scale);
  }
  for (std::size_t k = 0; k < s.n; ++k) {
    if (!BringPivot(s, k)) return false;
    for (std::size_t i = k + 1; i < s.n; ++i) {
      const double factor = s.at(i, k) / s.at(k, k);
      for (std::size_t j = k; j < s.n; ++j) s.at(i, j) -= factor * s.at(k, j);
      s.b[i] -= factor * s.b[k];
    }
  }
  for (std::size_t k = s.n; k-- > 0;) {
    for (std::size_t j = k + 1; j < s.n; ++j) s.b[k] -= s.at(k, j) * s.b[j];
    s.b[k] /= s.at(k, k);
  }
  return std::all_of(s.b.begin(), s.b.end(), [](double x) { return std::isfinite(x); });
}

}  // namespace zaview
