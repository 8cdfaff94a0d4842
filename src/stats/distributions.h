// Theoretical densities for a histogram, fitted by the moments of its sample. Single precision, left to right. Pure.
#pragma once

namespace zaview {

struct Moments {  // divisor: the number of samples
  float mean = 0, variance = 0, skew = 0, excess = 0;
};

// All but the first need a variance above 0.
[[nodiscard]] float UniformDensity(float lower, float upper);
[[nodiscard]] float NormalDensity(float x, const Moments& m);
// The normal density times 1 + (u^3 - 3u) skew/6 + (u^4 - 6u^2 + 3) excess/24, u = (x - mean)/sqrt(variance).
[[nodiscard]] float GrammCharlierDensity(float x, const Moments& m);
[[nodiscard]] float RayleighDensity(float x, const Moments& m);  // 0 below 0
// Deliberate: the rate comes from the standard deviation, not from the mean.
[[nodiscard]] float ExponentialRate(const Moments& m);
[[nodiscard]] float ExponentialDensity(float x, float lambda);  // 0 below 0

}  // namespace zaview
