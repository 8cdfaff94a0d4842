#include "waves/stokes.h"

#include <cmath>
#include <complex>
#include <cstddef>

namespace zaview {
namespace {

double Phase(const IncidentWave& wave, std::size_t i, const WavePlace& place) {
  return PhaseOf(wave, i, place.x, place.y, place.t);
}

double Amplitude(const IncidentWave& wave, std::size_t i, const WavePlace& place) {
  return static_cast<double>(wave.a[i] * place.scale);
}

StokesCoefficients CoefficientsAt(const IncidentWave& wave, const WavePlace& place) {
  return StokesExpansion(wave.k[0] * Amplitude(wave, 0, place), wave.order);
}

// Sums over i < j of a_i E((k_j - k_i) z) exp(i psi_i), times powers of k_i or w_i, seen from component j: the next
// component takes what this one left and lets it decay over the gap between their wave numbers.
struct PairWalk {
  std::complex<double> one, k, k2, w;

  void Add(double amplitude, double wave_number, double frequency, std::complex<double> turn) {
    const std::complex<double> term = amplitude * turn;
    one += term;
    k += wave_number * term;
    k2 += (wave_number * wave_number) * term;
    w += frequency * term;
  }
  void DecayBy(double factor) {
    one *= factor;
    k *= factor;
    k2 *= factor;
    w *= factor;
  }
};

// Times exp(-i psi_j): real parts are sums with cos(psi_i - psi_j), imaginary ones with sin. D = k_j - k_i.
struct Pairs {
  std::complex<double> plain, D, D2, dw;  // weights 1, D, D^2, w_j - w_i
};
Pairs SeenFrom(const PairWalk& walk, double k, double w, std::complex<double> turn) {
  const std::complex<double> back = std::conj(turn);
  const auto times = [&back](std::complex<double> sum) {  // complex products of the library look for infinities
    return std::complex<double>(sum.real() * back.real() - sum.imag() * back.imag(),
                                sum.real() * back.imag() + sum.imag() * back.real());
  };
  return {times(walk.one), times(k * walk.one - walk.k), times((k * k) * walk.one - (2.0 * k) * walk.k + walk.k2),
          times(w * walk.one - walk.w)};
}

std::complex<double> Turn(double psi) {
  return {std::cos(psi), std::sin(psi)};
}

}  // namespace

StokesCoefficients StokesExpansion(double e, int order) {
  double power[6] = {1.0, 0.0, 0.0, 0.0, 0.0, 0.0};
  double product = 1.0;
  for (int m = 1; m <= 5 && m <= order; ++m) {
    product *= e;
    power[m] = product;
  }
  const double e1 = power[1], e2 = power[2], e3 = power[3], e4 = power[4], e5 = power[5];
  StokesCoefficients c;
  c.A[0] = e1;
  c.A[1] = e2 / 2.0 + (17.0 / 24.0) * e4;
  c.A[2] = 0.375 * e3 + 1.1953125 * e5;
  c.A[3] = e4 / 3.0;
  c.A[4] = 0.32552084 * e5;
  c.D[0] = e1 - kStokesThirdOrder * e3 - 0.7708333 * e5;
  c.D[1] = e4 / 2.0;
  c.D[2] = e5 / 12.0;
  return c;
}

double StokesFrequency(double k, double e, int order) {
  const double e2 = order >= 2 ? e * e : 0.0;
  const double e4 = order >= 4 ? e2 * e2 : 0.0;
  return std::sqrt((1.0 + e2 + 1.25 * e4) * k);
}

float StokesElevation(const IncidentWave& wave, const WavePlace& place) {
  const StokesCoefficients c = CoefficientsAt(wave, place);
  const double psi = Phase(wave, 0, place);
  double sum = 0.0;
  for (int n = 1; n <= 5; ++n) sum += c.A[n - 1] * std::cos(n * psi);
  return static_cast<float>(sum / wave.k[0]);
}

void StokesSlopes(const IncidentWave& wave, const WavePlace& place, PointWave& out) {
  const StokesCoefficients c = CoefficientsAt(wave, place);
  const double psi = Phase(wave, 0, place);
  double S = 0.0;
  for (int n = 1; n <= 5; ++n) S += n * c.A[n - 1] * std::sin(n * psi);
  out.eta_x = static_cast<float>(-(wave.kx[0] / wave.k[0]) * S);
  out.eta_y = static_cast<float>(-(wave.ky[0] / wave.k[0]) * S);
}

void StokesPotential(const IncidentWave& wave, const WavePlace& place, double z_stretched, bool decays,
                     PointWave& out) {
  const StokesCoefficients c = CoefficientsAt(wave, place);
  const double psi = Phase(wave, 0, place);
  const double k = wave.k[0];
  const double speed = wave.w[0] / k;
  const double X = wave.kx[0] / k;
  const double Y = wave.ky[0] / k;
  const double E = decays ? Decay(k * z_stretched) : 1.0;
  double phi = 0.0;
  double U = 0.0, V = 0.0;    // n D_n E^n with cos and sin
  double U2 = 0.0, V2 = 0.0;  // n^2 D_n E^n
  double power = 1.0;
  for (int n = 1; n <= 3; ++n) {
    power *= E;
    const double d = speed * c.D[n - 1] * power;
    const double cosine = std::cos(n * psi);
    const double sine = std::sin(n * psi);
    phi += d * sine;
    U += n * d * cosine;
    V += n * d * sine;
    U2 += n * n * d * cosine;
    V2 += n * n * d * sine;
  }
  out.phi = static_cast<float>(phi / k);
  out.phi_t = static_cast<float>(-speed * U);
  out.phi_x = static_cast<float>(X * U);
  out.phi_y = static_cast<float>(Y * U);
  out.phi_z = static_cast<float>(V);
  out.xx = static_cast<float>(-k * X * X * V2);
  out.xy = static_cast<float>(-k * X * Y * V2);
  out.yy = static_cast<float>(-k * Y * Y * V2);
  out.xz = static_cast<float>(k * X * U2);
  out.yz = static_cast<float>(k * Y * U2);
  out.zz = static_cast<float>(k * V2);
}

float SecondOrderElevation(const IncidentWave& wave, const WavePlace& place) {
  PairWalk walk;
  double difference = 0.0;
  for (std::size_t j = 0; j < wave.size(); ++j) {
    const double a = Amplitude(wave, j, place);
    const std::complex<double> turn = Turn(Phase(wave, j, place));
    difference += a * SeenFrom(walk, wave.k[j], wave.w[j], turn).D.real();
    walk.Add(a, wave.k[j], wave.w[j], turn);
  }
  const double sum = walk.one.real() * walk.k.real() - walk.one.imag() * walk.k.imag();
  return static_cast<float>(0.5 * sum - 0.5 * difference);
}

void AddSecondOrderSlopes(const IncidentWave& wave, const WavePlace& place, PointWave& out) {
  if (wave.size() == 0) return;
  PairWalk walk;
  double difference = 0.0;
  for (std::size_t j = 0; j < wave.size(); ++j) {
    const double a = Amplitude(wave, j, place);
    const std::complex<double> turn = Turn(Phase(wave, j, place));
    difference += a * SeenFrom(walk, wave.k[j], wave.w[j], turn).D2.imag();
    walk.Add(a, wave.k[j], wave.w[j], turn);
  }
  // Along the waves: the derivative of the two sums' product is i (k k + one k2).
  const double sum =
      2.0 * walk.k.real() * walk.k.imag() + walk.one.real() * walk.k2.imag() + walk.one.imag() * walk.k2.real();
  const double slope = -0.5 * sum - 0.5 * difference;
  out.eta_x += static_cast<float>(slope * (wave.kx[0] / wave.k[0]));
  out.eta_y += static_cast<float>(slope * (wave.ky[0] / wave.k[0]));
}

void AddSecondOrderPotential(const IncidentWave& wave, const WavePlace& place, double z_stretched, bool decays,
                             PointWave& out) {
  if (wave.size() == 0) return;
  PairWalk walk;
  double phi = 0.0, phi_t = 0.0;
  double U = 0.0, V = 0.0;    // weight D with cos and sin
  double U2 = 0.0, V2 = 0.0;  // D^2
  for (std::size_t j = 0; j < wave.size(); ++j) {
    const double a = Amplitude(wave, j, place);
    const std::complex<double> turn = Turn(Phase(wave, j, place));
    if (decays && j > 0) walk.DecayBy(Decay((wave.k[j] - wave.k[j - 1]) * z_stretched));
    const Pairs pairs = SeenFrom(walk, wave.k[j], wave.w[j], turn);
    const double weight = a * wave.w[j];
    phi += weight * pairs.plain.imag();
    phi_t += weight * pairs.dw.real();
    U += weight * pairs.D.real();
    V += weight * pairs.D.imag();
    U2 += weight * pairs.D2.real();
    V2 += weight * pairs.D2.imag();
    walk.Add(a, wave.k[j], wave.w[j], turn);
  }
  const double X = wave.kx[0] / wave.k[0];
  const double Y = wave.ky[0] / wave.k[0];
  out.phi += static_cast<float>(phi);
  out.phi_t += static_cast<float>(phi_t);
  out.phi_x -= static_cast<float>(X * U);
  out.phi_y -= static_cast<float>(Y * U);
  out.phi_z += static_cast<float>(V);
  out.xx -= static_cast<float>(X * X * V2);
  out.xy -= static_cast<float>(X * Y * V2);
  out.yy -= static_cast<float>(Y * Y * V2);
  out.xz -= static_cast<float>(X * U2);
  out.yz -= static_cast<float>(Y * U2);
  out.zz += static_cast<float>(V2);
}

}  // namespace zaview
