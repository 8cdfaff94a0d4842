// Frequency and wave number of free waves, non-dimensional. Double precision.
#pragma once

namespace zaview {

inline constexpr double kDeepWater = 1e-6;  // depths up to this count as deep

// k of w^2 = k tanh(k h); deep water k = w^2. Newton's method, to double precision.
[[nodiscard]] double WaveNumber(double w, double h);
// w of the same relation.
[[nodiscard]] double WaveFrequency(double k, double h);

}  // namespace zaview
