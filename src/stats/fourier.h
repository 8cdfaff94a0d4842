// Fourier integrals of a record sampled at a constant step: x = a0/2 + sum of a cos wt + b sin wt. Pure; double
// precision from 4-byte samples, sums in ascending index.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace zaview {

enum class FourierRule : std::uint8_t { trapezoid = 1, simpson = 2 };

struct FourierRequest {
  int mode = 1;  // below 3: as many frequencies as wmax and maxfrq allow; else nfreq of them
  FourierRule rule = FourierRule::simpson;
  int maxfrq = 200;
  double wmax = -1;  // 0 or below: pi/(2 dt)
  int nfreq = 1;
};

struct FourierSeries {
  double a0 = 0;                            // (2/T) times the integral of x by trapezoids
  std::vector<double> w, a, b, amp, phase;  // component k at w = k 2 pi/T; phase = atan2(b, a), a lag
  int nskip = 0;                            // components there would be, where maxfrq cut them; else 0
};

// T = (n-1) dt. a, b are 2/T times the integrals of x cos wt, x sin wt: the trapezoid rule takes mean values of factor
// and sample; Simpson's rule takes triples, the last interval of an even n by the trapezoid rule. False: fewer than two
// samples, or dt not above 0.
[[nodiscard]] bool FourierCoefficients(const FourierRequest& request, double dt, std::span<const float> t,
                                       std::span<const float> x, FourierSeries& out);

struct Harmonic {  // cos wt and sin wt of each time
  std::vector<double> cosine, sine;
};

// The first harmonic of a wave record and its phase; cosines and sines are most of the work.
struct WavePhase {
  double dt = 0;
  Harmonic first;   // w = 2 pi/((n-1) dt)
  float phase = 0;  // radians
  bool found = false;
};

// False: no harmonic can be formed of it.
[[nodiscard]] bool FindWavePhase(std::span<const float> t, std::span<const float> wave, WavePhase& out);

// How far the first harmonic of x lags that of the wave over the same times, degrees, 0 to 360 (a lag of 0 is 360).
// Both less their means; that of x is xm. A record without a harmonic has the phase 0.
[[nodiscard]] float PhaseLag(const WavePhase& wave, std::span<const float> x, float xm);

}  // namespace zaview
