#include "waves/stokes.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <numbers>
#include <string>

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace zaview {
namespace {

constexpr double kDegree = std::numbers::pi / 180;

struct Residuals {
  double kinematic = 0, dynamic = 0;
};

// Largest residuals on the surface over a period, k = 1: phi_z - eta_t - phi_x eta_x and phi_t + eta + |grad phi|^2/2.
Residuals OnTheSurface(double e, int order, double third_order) {
  StokesCoefficients c = StokesExpansion(e, order);
  if (order >= 3) c.D[0] += (kStokesThirdOrder - third_order) * e * e * e;
  const double w = StokesFrequency(1.0, e, order);
  Residuals worst;
  for (int i = 0; i < 200; ++i) {
    const double psi = i * std::numbers::pi / 100;
    double eta = 0, slope = 0, U = 0, V = 0;
    for (int n = 1; n <= 5; ++n) {
      eta += c.A[n - 1] * std::cos(n * psi);
      slope -= n * c.A[n - 1] * std::sin(n * psi);
    }
    for (int n = 1; n <= 3; ++n) {
      U += w * n * c.D[n - 1] * std::exp(n * eta) * std::cos(n * psi);
      V += w * n * c.D[n - 1] * std::exp(n * eta) * std::sin(n * psi);
    }
    worst.kinematic = std::max(worst.kinematic, std::abs(V - slope * (U - w)));
    worst.dynamic = std::max(worst.dynamic, std::abs(-w * U + eta + 0.5 * (U * U + V * V)));
  }
  return worst;
}

TEST(Stokes, OrderOfTheFreeSurfaceResiduals) {
  // With 0.675 as it stands the residuals are of third order from order 3 on; 0.625 would leave the next order.
  const struct {
    int order;
    double third_order;
    double kinematic, dynamic;  // powers of e
  } cases[] = {{1, 0.675, 2, 2}, {2, 0.675, 3, 3}, {3, 0.675, 3, 3}, {4, 0.675, 3, 3},
               {5, 0.675, 3, 3}, {3, 0.625, 4, 4}, {4, 0.625, 5, 5}, {5, 0.625, 6, 6}};
  for (const auto& c : cases) {
    const double e = c.third_order == kStokesThirdOrder ? 0.01 : 0.04;
    const Residuals coarse = OnTheSurface(e, c.order, c.third_order);
    const Residuals fine = OnTheSurface(e / 2, c.order, c.third_order);
    EXPECT_NEAR(std::log2(coarse.kinematic / fine.kinematic), c.kinematic, 0.25) << c.order << ' ' << c.third_order;
    EXPECT_NEAR(std::log2(coarse.dynamic / fine.dynamic), c.dynamic, 0.25) << c.order << ' ' << c.third_order;
  }
  EXPECT_NEAR(OnTheSurface(0.04, 5, 0.675).dynamic, 0.05 * 0.04 * 0.04 * 0.04, 5e-7);
}

// Sums over pairs as they are written, in double, along the waves.
struct PairSums {
  std::vector<double> a, w, p;  // ascending w
  [[nodiscard]] double Psi(std::size_t i, double x, double t) const { return w[i] * w[i] * x - w[i] * t + p[i]; }
  [[nodiscard]] double Eta(double x, double t) const {
    double eta = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
      const double ki = w[i] * w[i];
      eta += a[i] * std::cos(Psi(i, x, t)) + 0.5 * ki * a[i] * a[i] * std::cos(2 * Psi(i, x, t));
      for (std::size_t j = i + 1; j < a.size(); ++j) {
        const double kj = w[j] * w[j];
        eta += a[i] * a[j] * 0.5 *
               ((ki + kj) * std::cos(Psi(i, x, t) + Psi(j, x, t)) - (kj - ki) * std::cos(Psi(i, x, t) - Psi(j, x, t)));
      }
    }
    return eta;
  }
  [[nodiscard]] double Phi(double x, double z, double t) const {
    double phi = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
      phi += a[i] / w[i] * std::exp(w[i] * w[i] * z) * std::sin(Psi(i, x, t));
      for (std::size_t j = i + 1; j < a.size(); ++j)
        phi += a[i] * a[j] * w[j] * std::exp((w[j] * w[j] - w[i] * w[i]) * z) * std::sin(Psi(i, x, t) - Psi(j, x, t));
    }
    return phi;
  }
};

// Elevation and potential along the waves, and the seaway that has them.
struct WaveForm {
  const char* what;
  Seaway seaway;
  std::function<double(double s, double t)> eta;
  std::function<double(double s, double z, double t)> phi;
};

WaveForm LinearForm(double h) {
  const double k = 1.3, w = std::sqrt(k * (h > 0 ? std::tanh(k * h) : 1)), a = 0.05, p = 0.7;
  const auto psi = [=](double s, double t) { return k * s - w * t + p; };
  WaveForm form{"linear",
                {},
                [=](double s, double t) { return a * std::cos(psi(s, t)); },
                [=](double s, double z, double t) {
                  const double C = h > 0 ? std::cosh(k * (z + h)) / std::cosh(k * h) : std::exp(k * z);
                  return a / w * C * std::sin(psi(s, t));
                }};
  form.seaway.ISEA = 1;
  form.seaway.WDEPTH = h;
  form.seaway.waves = {{static_cast<float>(w)}, {static_cast<float>(p / kDegree)}, {static_cast<float>(a)}, {30}};
  return form;
}

WaveForm StokesForm(int order) {
  const double nominal = 1.5, k = nominal * nominal, a = 0.08, p = 0.7, w = StokesFrequency(k, k * a, order);
  const StokesCoefficients c = StokesExpansion(k * a, order);
  const auto psi = [=](double s, double t) { return k * s - w * t + p; };
  WaveForm form{"Stokes",
                {},
                [=](double s, double t) {
                  double sum = 0;
                  for (int n = 1; n <= 5; ++n) sum += c.A[n - 1] * std::cos(n * psi(s, t));
                  return sum / k;
                },
                [=](double s, double z, double t) {
                  double sum = 0;
                  for (int n = 1; n <= 3; ++n) sum += c.D[n - 1] * std::exp(n * k * z) * std::sin(n * psi(s, t));
                  return w / (k * k) * sum;
                }};
  form.seaway.ISEA = 3;
  form.seaway.WSPEC = order;
  form.seaway.waves = {{1.5F}, {static_cast<float>(p / kDegree)}, {0.08F}, {30}};
  return form;
}

WaveForm SecondOrderForm() {
  const PairSums sums = {{0.02, 0.012, 0.016}, {0.75, 1.125, 1.5}, {0.5, -1.0, 2.0}};
  WaveForm form{"second order",
                {},
                [=](double s, double t) { return sums.Eta(s, t); },
                [=](double s, double z, double t) { return sums.Phi(s, z, t); }};
  form.seaway.ISEA = 5;
  for (const std::size_t i : {1U, 2U, 0U}) {  // not in order
    form.seaway.modes.MODE_AMP.push_back(static_cast<float>(sums.a[i]));
    form.seaway.modes.MODE_FREQ.push_back(static_cast<float>(sums.w[i]));
    form.seaway.modes.MODE_PHASE.push_back(static_cast<float>(sums.p[i] / kDegree));
  }
  form.seaway.modes.WAVE_HEAD = 30;
  return form;
}

// All outputs by differences, the waves running at 30 degrees; then without decay and with the depth from the surface.
TEST(Stokes, OutputsAreTheDerivativesOfEveryKind) {
  const double s = 0.8, z = -0.1, t = 1.7, d = 1e-4, X = std::cos(30 * kDegree), Y = 0.5;
  for (const WaveForm& form :
       {LinearForm(0), LinearForm(0.4), StokesForm(1), StokesForm(3), StokesForm(5), SecondOrderForm()}) {
    const std::string what = fmt::format("{} {} {}", form.what, form.seaway.WSPEC, form.seaway.WDEPTH);
    IncidentWave wave;
    ASSERT_TRUE(PrepareIncidentWave(form.seaway, wave));
    float v[8] = {}, nine[9] = {};
    const WaveOutputs out = {{v, 1},     {v + 1, 1}, {v + 2, 1}, {v + 3, 1}, {v + 4, 1},
                             {v + 5, 1}, {v + 6, 1}, {v + 7, 1}, nine};
    const Vector3 point = {s * X, s * Y, z};
    ASSERT_EQ(EvalIncidentWave(wave, {t, 1.0}, {1, 0, false}, {&point, 1}, out), WaveFault::none);
    const auto phi = [&](double ds, double dz, double dt = 0) { return form.phi(s + ds, z + dz, t + dt); };
    const double slope = (form.eta(s + d, t) - form.eta(s - d, t)) / (2 * d);
    const double along = (phi(d, 0) - phi(-d, 0)) / (2 * d);
    const double ss = (phi(d, 0) - 2 * phi(0, 0) + phi(-d, 0)) / (d * d);
    const double zz = (phi(0, d) - 2 * phi(0, 0) + phi(0, -d)) / (d * d);
    const double sz = (phi(d, d) - phi(-d, d) - phi(d, -d) + phi(-d, -d)) / (4 * d * d);
    const double want[] = {form.eta(s, t),
                           slope * X,
                           slope * Y,
                           phi(0, 0),
                           (phi(0, 0, d) - phi(0, 0, -d)) / (2 * d),
                           along * X,
                           along * Y,
                           (phi(0, d) - phi(0, -d)) / (2 * d)};
    const double want_nine[] = {ss * X * X, ss * X * Y, sz * X, ss * X * Y, ss * Y * Y, sz * Y, sz * X, sz * Y, zz};
    for (int i = 0; i < 8; ++i) EXPECT_NEAR(v[i], want[i], 4e-8) << what << ' ' << i;
    for (int i = 0; i < 9; ++i) EXPECT_NEAR(nine[i], want_nine[i], 2e-7) << what << ' ' << i;
    ASSERT_EQ(EvalIncidentWave(wave, {t, 1.0}, {0, 0, false}, {&point, 1}, out), WaveFault::none);
    EXPECT_NEAR(v[3], form.phi(s, wave.depth > 0 ? z : 0, t), 4e-8) << what;
    ASSERT_EQ(EvalIncidentWave(wave, {t, 1.0}, {-1, 1, false}, {&point, 1}, out), WaveFault::none);
    const double eta = want[0], h = wave.depth, below = h > 0 ? z - (h + z) * eta / (eta + h) : z - eta;
    EXPECT_NEAR(v[3], form.phi(s, std::min(0.0, below), t), 4e-8) << what;

    if (form.seaway.ISEA != 3) continue;  // scaled, a Stokes wave has other coefficients and the same frequency
    ASSERT_EQ(EvalIncidentWave(wave, {t, 0.5}, {}, {&point, 1}, out), WaveFault::none);
    const StokesCoefficients half = StokesExpansion(0.5 * 0.08 * wave.k[0], wave.order);
    const double psi = wave.k[0] * s - wave.w[0] * t + wave.p[0];
    double sum = 0;
    for (int n = 1; n <= 5; ++n) sum += half.A[n - 1] * std::cos(n * psi);
    EXPECT_NEAR(v[0], sum / wave.k[0], 4e-8) << what;
  }
}

}  // namespace
}  // namespace zaview
