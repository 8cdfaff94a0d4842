#include "stats/fourier.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "stats/record_stats.h"

namespace zaview {
namespace {

constexpr double kWholeNumber = 1e-6;  // wmax/dw may fall short of a whole number by rounding
constexpr float kNoHarmonic = 1.0e-10F;

// One harmonic at one time: cosine and sine of the same angle cost little more than one of them.
struct Harmonic {
  Harmonic(double w, double t) : cosine(std::cos(w * t)), sine(std::sin(w * t)) {}
  double cosine;
  double sine;
};

// One interval of the trapezoid rule of f x.
double Interval(double dt, double f0, double f1, double x0, double x1) {
  return (dt / 4.0) * (f0 + f1) * (x0 + x1);
}

double MeanIntegral(double dt, std::span<const float> x) {
  double sum = 0;
  for (std::size_t i = 0; i + 1 < x.size(); ++i) sum += Interval(dt, 1.0, 1.0, x[i], x[i + 1]);
  return sum;
}

// Integrals of cos(w t) x and sin(w t) x.
void HarmonicIntegrals(FourierRule rule, double dt, double w, std::span<const float> t, std::span<const float> x,
                       double& cosine, double& sine) {
  const std::size_t n = x.size();
  cosine = sine = 0;
  std::size_t i = 0;
  Harmonic from(w, t[0]);
  if (rule == FourierRule::simpson)
    for (; i + 2 < n; i += 2) {
      const Harmonic middle(w, t[i + 1]);
      const Harmonic to(w, t[i + 2]);
      cosine += (dt / 3.0) * (from.cosine * x[i] + 4.0 * middle.cosine * x[i + 1] + to.cosine * x[i + 2]);
      sine += (dt / 3.0) * (from.sine * x[i] + 4.0 * middle.sine * x[i + 1] + to.sine * x[i + 2]);
      from = to;
    }
  for (; i + 1 < n; ++i) {
    const Harmonic to(w, t[i + 1]);
    cosine += Interval(dt, from.cosine, to.cosine, x[i], x[i + 1]);
    sine += Interval(dt, from.sine, to.sine, x[i], x[i + 1]);
    from = to;
  }
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

std::vector<float> LessMean(std::span<const float> x) {
  const float xm = MeanOf(x);
  std::vector<float> centred(x.begin(), x.end());
  for (float& value : centred) value -= xm;
  return centred;
}

// Phase of the first harmonic, radians. False: there is none.
bool FirstPhase(std::span<const float> t, std::span<const float> x, float& phase) {
  FourierRequest request;
  request.mode = 3;
  const double dt = x.size() < 2 ? 0.0 : (double{t.back()} - t.front()) / static_cast<double>(x.size() - 1);
  FourierSeries series;
  if (!FourierCoefficients(request, dt, t, LessMean(x), series)) return false;
  const float a = static_cast<float>(series.a[0]);
  const float b = static_cast<float>(series.b[0]);
  if (std::abs(a) < kNoHarmonic && std::abs(b) < kNoHarmonic) return false;
  phase = static_cast<float>(series.phase[0]);
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
  const double dw = 2.0 * std::numbers::pi / T;
  out.a0 = (2.0 / T) * MeanIntegral(dt, x);
  const int nfreq = ComponentCount(request, dt, dw, out.nskip);
  for (int k = 1; k <= nfreq; ++k) {
    const double w = k * dw;
    double cosine = 0;
    double sine = 0;
    HarmonicIntegrals(request.rule, dt, w, t, x, cosine, sine);
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

bool PhaseLag(std::span<const float> t, std::span<const float> x, std::span<const float> wave, float& degrees) {
  constexpr float kTurn = 6.2831855F, kPi = 3.1415927F, kFull = 360.0F, kTooLarge = 1.0e6F;
  degrees = 0;
  float phw = 0;
  float ph = 0;
  if (!FirstPhase(t, wave, phw)) return false;
  if (!FirstPhase(t, x, ph)) return true;
  const float d = ph > phw ? ph - phw : ph + (kTurn - phw);
  degrees = (d * 180.0F) / kPi;
  if (std::abs(degrees) > kTooLarge) return true;
  while (degrees > kFull) degrees -= kFull;
  while (degrees < 0.0F) degrees += kFull;
  return true;
}

}  // namespace zaview
