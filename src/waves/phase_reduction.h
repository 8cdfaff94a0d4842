// Sine and cosine of a wave phase: the phase is reduced to one turn in double, then a short polynomial in 4 bytes, so
// that the compiler can run many points side by side. Largest error 1.3e-7, at phases up to 1e6 too. Phases beyond 1e15
// give some value between -1 and 1; NaN and infinity give NaN.
#pragma once

#include <cmath>
#include <cstddef>
#include <numbers>
#include <span>

namespace zaview {

// psi - 2 pi rint(psi / 2 pi). Adding 1.5 * 2^52 leaves no place for a fraction: that rounds without a call.
inline double ReducedPhase(double psi) {
  constexpr double kNoFraction = 6755399441055744.0;
  const double turns = psi * (0.5 * std::numbers::inv_pi);
  return psi - (2.0 * std::numbers::pi) * ((turns + kNoFraction) - kNoFraction);
}

// sin(g) up to a quarter turn; minimax coefficients, truncation 5e-9.
inline float QuarterSine(float g) {
  const float g2 = g * g;
  const float tail = -0.16666656732559204F +
                     g2 * (0.008333017118275166F + g2 * (-0.00019806614727713168F + g2 * 2.6000548132287804e-06F));
  return g + (g * g2) * tail;
}

// The angle whose sine is the cosine, or the sine, of a phase. It is formed in double, so that 4 bytes lose nothing
// where the sine is steep.
inline float CosQuarter(double psi) {
  constexpr float kLeast = -std::numbers::pi_v<float> / 2.0F;
  const float g = static_cast<float>(std::numbers::pi / 2.0 - std::abs(ReducedPhase(psi)));
  return g < kLeast ? kLeast : g;
}
inline float SinQuarter(double psi) {
  constexpr float kLeast = -std::numbers::pi_v<float> / 2.0F;
  const double r = ReducedPhase(psi);
  const float g = static_cast<float>(std::numbers::pi / 2.0 - std::abs(std::abs(r) - std::numbers::pi / 2.0));
  const float magnitude = g < kLeast ? kLeast : g;
  return r < 0.0 ? -magnitude : magnitude;
}

// Cosine and sine of each phase; as many as a multiple of kPhasesAtOnce.
inline constexpr std::size_t kPhasesAtOnce = 64;
void SinesAndCosines(std::span<const double> psi, float* c, float* s);

}  // namespace zaview
