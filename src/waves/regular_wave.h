// The one wave of a regular case, for transfer functions: ISEA 1 with one component, or ISEA 3, and no second sea.
// Non-dimensional. ISEA 1, and ISEA 3 of order 0: w as given, w^2 = k tanh(k h) (deep: k = w^2). ISEA 3 of an order n
// above 0: k = (nominal w)^2, w^2 = (1 + e^2 + 1.25 e^4) k with e = k A, powers above n dropped.
#pragma once

#include "control/control_records.h"

namespace zaview {

struct RegularWave {
  double w = 0;     // frequency
  double k = 0;     // wave number
  double A = 0;     // amplitude, without wave scaling
  double beta = 0;  // heading, radians
};

// False: the case isn't one regular wave.
[[nodiscard]] bool FindRegularWave(const ControlRecords& records, RegularWave& wave);

}  // namespace zaview
