#include "stats/fourier.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "base/angles.h"
#include "base/side_by_side.h"
#include "stats/record_stats.h"

namespace zaview {
namespace {

constexpr double kWholeNumber = 1e-6;  // wmax/dw may fall short of a whole number by rounding
constexpr float kNoHarmonic = 1.0e-10F;
constexpr std::size_t kStretchOfTimes = 4096;  // handed to a thread at once

// One interval of the trapezoid rule of f x.
double Interval(double dt, double f0, double f1, double x0, double x1) {
  return (dt / 4.0) * (f0 + f1) * (x0 + x1);
}

double MeanIntegral(double dt, std::span<const float> x) {
  double sum = 0;
  for (std::size_t i = 0; i + 1 < x.size(); ++i) sum += Interval(dt, 1.0, 1.0, x[i], x[i + 1]);
  return sum;
}

void FindHarmonic(double w, std::span<const float> t, Harmonic& out) {
  const std::size_t n = t.size();
  out.cosine.resize(n);
  out.sine.resize(n);
  SideBySide((n + kStretchOfTimes - 1) / kStretchOfTimes, 0, [&](std::size_t stretch) {
    const std::size_t from = stretch * kStretchOfTimes;
    for (std::size_t i = from; i < std::min(from + kStretchOfTimes, n); ++i) {
      out.cosine[i] = std::cos(w * t[i]);
      out.sine[i] = std::sin(w * t[i]);
    }
  });
}

// Integrals of cos(w t) (x - xm) and sin(w t) (x - xm).
void HarmonicIntegrals(FourierRule rule, double dt, const Harmonic& h, std::span<const float> x, float xm,
                       double& cosine, double& sine) {
  const std::size_t n = x.size();
  const std::vector<double>&c = h.cosine, &s = h.sine;
  double c_sum = 0, s_sum = 0;  // of their own: registers hold them
  std::size_t i = 0;
  if (rule == FourierRule::simpson)
    for (; i + 2 < n; i += 2) {
      const float x0 = x[i] - xm, x1 = x[i + 1] - xm, x2 = x[i + 2] - xm;
      c_sum += (dt / 3.0) * (c[i] * x0 + 4.0 * c[i + 1] * x1 + c[i + 2] * x2);
      s_sum += (dt / 3.0) * (s[i] * x0 + 4.0 * s[i + 1] * x1 + s[i + 2] * x2);
    }
  for (; i + 1 < n; ++i) {
    c_sum += Interval(dt, c[i], c[i + 1], x[i] - xm, x[i + 1] - xm);
    s_sum += Interval(dt, s[i], s[i + 1], x[i] - xm, x[i + 1] - xm);
  }
  cosine = c_sum;
  sine = s_sum;
}

int ComponentCount(const FourierRequest& request, double dt, double dw, int& nskip) {
  nskip = 0;
  if (request.mode >= 3) return std::max(0, request.nfreq);
  const double wmax = request.wmax > 0 ? request.wmax : std::numbers::pi / (2.0 * dt);
  const double nfull = std::floor(wmax / dw + kWholeNumber);
  if (!(nfull > request.maxfrq)) return std::max(0, static_cast<int>(nfull));
  nskip = static_cast<int>(std::min(nfull, 2.0e9));
  return request.maxfrq;
}

// Phase of the first harmonic of x - xm by Simpson's rule, radians. False: there is none.
bool FirstPhase(const WavePhase& wave, std::span<const float> x, float xm, float& phase) {
  const double T = static_cast<double>(x.size() - 1) * wave.dt;
  double cosine = 0, sine = 0;
  HarmonicIntegrals(FourierRule::simpson, wave.dt, wave.first, x, xm, cosine, sine);
  const double a = (2.0 / T) * cosine;
  const double b = (2.0 / T) * sine;
  if (std::abs(static_cast<float>(a)) < kNoHarmonic && std::abs(static_cast<float>(b)) < kNoHarmonic) return false;
  phase = static_cast<float>(std::atan2(b, a));
  return true;
}

}  // namespace

bool FourierCoefficients(const FourierRequest& request, double dt, std::span<const float> t, std::span<const float> x,
                         FourierSeries& out) {
  out = FourierSeries{};
  const std::size_t n = std::min(t.size(), x.size());
  if (n < 2 || !(dt > 0)) return false;
  t = t.first(n);
  x = x.first(n);
  const double T = static_cast<double>(n - 1) * dt;
  const double dw = kTwoPi / T;
  out.a0 = (2.0 / T) * MeanIntegral(dt, x);
  const int nfreq = ComponentCount(request, dt, dw, out.nskip);
  Harmonic harmonic;
  for (int k = 1; k <= nfreq; ++k) {
    const double w = k * dw;
    double cosine = 0;
    double sine = 0;
    FindHarmonic(w, t, harmonic);
    HarmonicIntegrals(request.rule, dt, harmonic, x, 0.0F, cosine, sine);
    const double a = (2.0 / T) * cosine;
    const double b = (2.0 / T) * sine;
    out.w.push_back(w);
    out.a.push_back(a);
    out.b.push_back(b);
    out.amp.push_back(std::sqrt(a * a + b * b));
    out.phase.push_back(std::atan2(b, a));
  }
  return true;
}

bool FindWavePhase(std::span<const float> t, std::span<const float> wave, WavePhase& out) {
  const std::size_t n = t.size();
  out.found = false;
  if (n < 2 || wave.size() != n) return false;
  out.dt = (double{t.back()} - t.front()) / static_cast<double>(n - 1);
  if (!(out.dt > 0)) return false;
  FindHarmonic(kTwoPi / (static_cast<double>(n - 1) * out.dt), t, out.first);
  out.found = FirstPhase(out, wave, MeanOf(wave), out.phase);
  return out.found;
}

float PhaseLag(const WavePhase& wave, std::span<const float> x, float xm) {
  constexpr float kTurn = 6.2831855F, kPi = 3.1415927F, kFull = 360.0F, kTooLarge = 1.0e6F;
  float ph = 0;
  if (!wave.found || x.size() != wave.first.cosine.size() || !FirstPhase(wave, x, xm, ph)) return 0.0F;
  const float phw = wave.phase;
  const float d = ph > phw ? ph - phw : ph + (kTurn - phw);
  float degrees = (d * 180.0F) / kPi;
  if (std::abs(degrees) > kTooLarge) return degrees;
  while (degrees > kFull) degrees -= kFull;
  while (degrees < 0.0F) degrees += kFull;
  return degrees;
}

}  // namespace zaview
