// Frequency and wave number of free waves, non-dimensional by a length and gravity. Double precision. The relation is
// that of linear waves: G. B. Airy, Tides and waves (1845).
#pragma once

namespace zaview {

inline constexpr double kDeepWater = 1e-6;  // depths up to this count as deep

// k of w^2 = k tanh(k h); deep water k = w^2. Newton's method, to double precision. w^2 where w is not above 0.
[[nodiscard]] double WaveNumber(double w, double h);
// w of the same relation.
[[nodiscard]] double WaveFrequency(double k, double h);

}  // namespace zaview
