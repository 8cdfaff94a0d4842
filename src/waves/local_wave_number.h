// How short the waves of a seaway are: by its energy, and at one place by its phases. Non-dimensional. Pure.
#pragma once

#include "waves/incident_wave.h"

namespace zaview {

struct WaveNumbers {
  double mean = 0;             // sum of a^2 k / sum of a^2; 0 in calm water
  double least = 0, most = 0;  // of the components
};
[[nodiscard]] WaveNumbers WaveNumbersOf(const IncidentWave& wave);

// Along the waves: (sum a c sum a k c + sum a s sum a k s)/((sum a c)^2 + (sum a s)^2), c and s cosine and sine of the
// phase of a component (of a seaway of second order: of its first), kept between the least and the most; `mean` where
// the divisor is below 1e-20. Sums in double, in the order of the components.
[[nodiscard]] double LocalWaveNumber(const IncidentWave& wave, const WaveNumbers& numbers, WaveMoment moment, double x,
                                     double y);

}  // namespace zaview
