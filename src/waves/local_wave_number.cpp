#include "waves/local_wave_number.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "waves/phase_reduction.h"

namespace zaview {
namespace {

constexpr double kLeastEnvelope = 1e-20;
constexpr std::size_t kPart = 2 * kPhasesAtOnce;  // components taken at once

}  // namespace

WaveNumbers WaveNumbersOf(const IncidentWave& wave) {
  WaveNumbers numbers;
  if (wave.size() == 0) return numbers;
  numbers.least = *std::min_element(wave.k.begin(), wave.k.end());
  numbers.most = *std::max_element(wave.k.begin(), wave.k.end());
  double energy = 0, weighted = 0;
  for (std::size_t i = 0; i < wave.size(); ++i) {
    const double a = wave.a[i];
    energy += a * a;
    weighted += a * a * wave.k[i];
  }
  if (energy > 0) numbers.mean = weighted / energy;
  return numbers;
}

double LocalWaveNumber(const IncidentWave& wave, const WaveNumbers& numbers, WaveMoment moment, double x, double y) {
  double ac = 0, as = 0, akc = 0, aks = 0;
  std::array<double, kPart> psi{};
  std::array<float, kPart> cosine, sine;
  for (std::size_t from = 0; from < wave.size(); from += kPart) {
    const std::size_t n = std::min(wave.size() - from, kPart);
    for (std::size_t i = 0; i < n; ++i) psi[i] = PhaseOf(wave, from + i, x, y, moment.time);
    SinesAndCosines(psi, cosine.data(), sine.data());
    for (std::size_t i = 0; i < n; ++i) {
      const double a = static_cast<double>(wave.a[from + i]) * moment.scale;
      const double c = a * static_cast<double>(cosine[i]), s = a * static_cast<double>(sine[i]);
      ac += c;
      as += s;
      akc += wave.k[from + i] * c;
      aks += wave.k[from + i] * s;
    }
  }
  const double envelope = ac * ac + as * as;
  if (!(envelope >= kLeastEnvelope)) return numbers.mean;
  return std::clamp((ac * akc + as * aks) / envelope, numbers.least, numbers.most);
}

}  // namespace zaview
