#include "analysis/sea_view/wave_shift.h"

#include <cmath>
#include <cstddef>

#include "base/angles.h"
#include "base/grow.h"
#include "waves/dispersion.h"
#include "waves/stokes.h"

namespace zaview {
namespace {

double Folded(double degrees) {
  const double rest = std::remainder(degrees, 360.0);
  return rest <= -180.0 ? rest + 360.0 : rest;
}

struct Travel {  // of one component
  double w = 0, k = 0;
};
// A Stokes wave runs with its own frequency: at the start the waves stand where they did.
Travel TravelOf(const Seaway& seaway, std::size_t i) {
  const auto w = static_cast<double>(seaway.waves.FREQW[i]);
  if (!(w > 0.0)) return {};
  if (seaway.ISEA != 3 || seaway.WSPEC < 1) return {w, WaveNumber(w, seaway.WDEPTH)};
  const double k = w * w;
  return {StokesFrequency(k, k * static_cast<double>(seaway.waves.AMPW0[i]), seaway.WSPEC), k};
}

}  // namespace

bool CanBeShifted(const Seaway& seaway) {
  return seaway.ISEA == 1 || seaway.ISEA == 3;
}

bool ShiftWaves(const Seaway& seaway, const ShiftOrigin& origin, Seaway& shifted) {
  return Guarded(
      [&] {
        shifted = seaway;
        shifted.ISEA = 1;
        shifted.WSPEC = 0;
        shifted.scaling.TINIT -= origin.time;
        for (std::size_t i = 0; i < seaway.waves.size(); ++i) {
          const Travel travel = TravelOf(seaway, i);
          const double b = static_cast<double>(seaway.waves.HEADW[i]) * kRadians;
          const double turn = travel.k * (origin.x * std::cos(b) + origin.y * std::sin(b)) - travel.w * origin.time;
          const auto phase = static_cast<float>(Folded(static_cast<double>(seaway.waves.PHASEW[i]) + turn / kRadians));
          shifted.waves.PHASEW[i] = phase <= -180.0F ? 180.0F : phase;
        }
        return true;
      },
      false);
}

double InDefinition(double phase_deg, PhaseDefinition definition) {
  return definition == PhaseDefinition::cosine ? phase_deg : Folded(90.0 - phase_deg);
}

}  // namespace zaview
