// The waves of a run as another calculation takes them that starts at one of its steps, there at time 0 and with the
// place of the ship's geometry origin as its own: a component cos(k*x-omega*t+phase) keeps all but its phase. Lengths
// and times non-dimensional, phases in degrees above -180 up to 180. Pure.
#pragma once

#include "waves/seaway.h"

namespace zaview {

// Where the ship would be that has kept its course and speed since the start.
struct ShiftOrigin {
  int step = 1;
  double time = 0;      // of the run
  double x = 0, y = 0;  // global
};
// phase + k (x cos b + y sin b) - w time. False: memory is out. The seaway that comes out is of linear components; a
// regular Stokes wave counts as one of its nominal frequency. Its wave scaling is that of the later start.
[[nodiscard]] bool ShiftWaves(const Seaway& seaway, const ShiftOrigin& origin, Seaway& shifted);

// Linear components, or a regular Stokes wave.
[[nodiscard]] bool CanBeShifted(const Seaway& seaway);

enum class PhaseDefinition : bool {
  cosine,         // cos(k*x-omega*t+phase)
  negative_sine,  // -sin(k*x-omega*t-phase), CD-adapco's
};
[[nodiscard]] double InDefinition(double phase_deg, PhaseDefinition definition);  // 90 - phase for the sine

}  // namespace zaview
