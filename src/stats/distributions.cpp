#include "stats/distributions.h"

#include <cmath>

namespace zaview {

namespace {

constexpr float kPi = 3.1415927F;

}  // namespace

float UniformDensity(float lower, float upper) {
  return 1.0F / (upper - lower);
}

float NormalDensity(float x, const Moments& m) {
  const float d = x - m.mean;
  return (1.0F / std::sqrt((2.0F * kPi) * m.variance)) * std::exp(-(d * d) / (2.0F * m.variance));
}

float GrammCharlierDensity(float x, const Moments& m) {
  const float u = (x - m.mean) / std::sqrt(m.variance);
  const float u2 = u * u;
  const float skewed = 1.0F - (((3.0F - u2) * u) * m.skew) / 6.0F;
  return NormalDensity(x, m) * (skewed + (((u2 * u2 + 3.0F) - 6.0F * u2) * m.excess) / 24.0F);
}

float RayleighDensity(float x, const Moments& m) {
  if (x < 0.0F) return 0.0F;
  return (x / m.variance) * std::exp(-(x * x) / (2.0F * m.variance));
}

float ExponentialRate(const Moments& m) {
  return 1.0F / std::sqrt(m.variance);
}

float ExponentialDensity(float x, float lambda) {
  if (x < 0.0F) return 0.0F;
  return lambda * std::exp(-lambda * x);
}

}  // namespace zaview
