#include "waves/regular_wave.h"

#include <cmath>

#include "base/angles.h"
#include "control/input_scales.h"
#include "waves/dispersion.h"
#include "waves/stokes.h"

namespace zaview {
namespace {}  // namespace

bool FindRegularWave(const ControlRecords& records, RegularWave& wave) {
  const SeawayInput& seaway = records.seaway;
  if ((seaway.ISEA != 1 && seaway.ISEA != 3) || seaway.waves.size() != 1) return false;
  if (!records.added_seaway.empty()) return false;

  const InputScales scales = InputScalesOf(records);
  const WaveComponentInput& input = seaway.waves.front();
  RegularWave found;
  found.w = input.FREQW * scales.frequency;
  found.A = input.AMPW0 * scales.length;
  found.beta = input.HEADW * kRadians;
  if (!(found.w > 0.0)) return false;
  if (seaway.ISEA == 3 && seaway.WSPEC > 0) {  // order 0 is a linear wave
    found.k = found.w * found.w;
    found.w = StokesFrequency(found.k, found.k * found.A, seaway.WSPEC);
  } else {
    found.k = WaveNumber(found.w, records.WDEPTH * scales.length);
  }
  if (!(found.k > 0.0) || !std::isfinite(found.w) || !std::isfinite(found.k)) return false;
  wave = found;
  return true;
}

}  // namespace zaview
