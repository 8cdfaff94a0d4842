#include "waves/regular_wave.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "control/input_scales.h"

namespace zaview {
namespace {

constexpr double kDeepWater = 1e-6;  // depths up to this count as deep
constexpr int kNewtonSteps = 60;     // a handful are needed; the bound only guards against a cycle in the last bit
constexpr double kRadians = std::numbers::pi / 180.0;

double StokesFrequency(double k, double A, int order) {
  const double e2 = (k * A) * (k * A);
  double factor = 1.0;
  if (order >= 2) factor += e2;
  if (order >= 4) factor += 1.25 * (e2 * e2);
  return std::sqrt(factor * k);
}

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

bool FindRegularWave(const ControlRecords& records, RegularWave& wave) {
  const SeawayInput& seaway = records.seaway;
  if ((seaway.ISEA != 1 && seaway.ISEA != 3) || seaway.waves.size() != 1) return false;

  const InputScales scales = InputScalesOf(records);
  const WaveComponentInput& input = seaway.waves.front();
  RegularWave found;
  found.w = input.FREQW * scales.frequency;
  found.A = input.AMPW0 * scales.length;
  found.beta = input.HEADW * kRadians;
  if (!(found.w > 0.0)) return false;
  if (seaway.ISEA == 3 && seaway.WSPEC > 0) {  // order 0 is a linear wave
    found.k = found.w * found.w;
    found.w = StokesFrequency(found.k, found.A, seaway.WSPEC);
  } else {
    found.k = WaveNumber(found.w, records.WDEPTH * scales.length);
  }
  if (!(found.k > 0.0) || !std::isfinite(found.w) || !std::isfinite(found.k)) return false;
  wave = found;
  return true;
}

}  // namespace zaview
