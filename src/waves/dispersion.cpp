#include "waves/dispersion.h"

#include <algorithm>
#include <cmath>

namespace zaview {
namespace {

constexpr int kNewtonSteps = 60;  // a handful are needed; the bound only guards against a cycle in the last bit

}  // namespace

double WaveNumber(double w, double h) {
  const double w2 = w * w;
  if (!(w > 0.0) || !(h > kDeepWater)) return w2;
  double k = std::max(w2, w / std::sqrt(h));
  for (int i = 0; i < kNewtonSteps; ++i) {
    const double t = std::tanh(k * h);
    const double change = (k * t - w2) / (t + (k * h) * (1.0 - t * t));
    k -= change;
    if (!(std::abs(change) > 1e-15 * k)) break;
  }
  return k;
}

double WaveFrequency(double k, double h) {
  return std::sqrt(h > kDeepWater ? k * std::tanh(k * h) : k);
}

}  // namespace zaview
