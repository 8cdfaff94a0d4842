#include "waves/local_wave_number.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "waves/phase_reduction.h"

namespace zaview {
namespace {

constexpr double kLeastEnvelope = 1e-20;
constexpr std::size_t kPart = 128;  // components taken at once

struct Part {
  std::array<double, kPart> psi{};
  std::array<float, kPart> c{}, s{};
};

ZAVIEW_WAVE_CLONES
void SinesAndCosines(Part& part) {
  float quarter[kPart];
  for (std::size_t i = 0; i < kPart; ++i) quarter[i] = CosQuarter(part.psi[i]);
  for (std::size_t i = 0; i < kPart; ++i) part.c[i] = QuarterSine(quarter[i]);
  for (std::size_t i = 0; i < kPart; ++i) quarter[i] = SinQuarter(part.psi[i]);
  for (std::size_t i = 0; i < kPart; ++i) part.s[i] = QuarterSine(quarter[i]);
}

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
  Part part;
  for (std::size_t from = 0; from < wave.size(); from += kPart) {
    const std::size_t n = std::min(wave.size() - from, kPart);
    for (std::size_t i = 0; i < n; ++i) {
      const std::size_t m = from + i;
      part.psi[i] = ((wave.kx[m] * x + wave.ky[m] * y) - wave.w[m] * moment.time) + wave.p[m];
    }
    SinesAndCosines(part);
    for (std::size_t i = 0; i < n; ++i) {
      const double a = static_cast<double>(wave.a[from + i]) * moment.scale;
      const double c = a * static_cast<double>(part.c[i]), s = a * static_cast<double>(part.s[i]);
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
