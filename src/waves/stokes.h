// Waves beyond the linear sum, in deep water: the regular Stokes wave of orders 1 to 5, and the second order of a
// long-crested seaway. In double, rounded once. Non-dimensional; the series are taken whatever e is.
#pragma once

#include "waves/wave_sums.h"

namespace zaview {

// G. G. Stokes, On the theory of oscillatory waves, Transactions of the Cambridge Philosophical Society 8 (1847). The
// expansion in e = k a; powers above the order are dropped. Elevation k eta = sum of A_n cos(n psi), n = 1..5: e,
// e^2/2 + 17/24 e^4, 3/8 e^3 + 1.1953125 e^5, e^4/3, 0.32552084 e^5. Potential k phi = (w/k) times the sum of D_n E^n
// sin(n psi), E = exp(k z'): e - 0.675 e^3 - 0.7708333 e^5, e^4/2, e^5/12.
inline constexpr double kStokesThirdOrder = 0.675;
struct StokesCoefficients {
  double A[5] = {}, D[3] = {};
};
[[nodiscard]] StokesCoefficients StokesExpansion(double e, int order);

// w^2 = (1 + e^2 + 1.25 e^4) k, powers of e above the order dropped.
[[nodiscard]] double StokesFrequency(double k, double e, int order);

[[nodiscard]] float StokesElevation(const IncidentWave& wave, const WavePlace& place);
void StokesSlopes(const IncidentWave& wave, const WavePlace& place, PointWave& out);
void StokesPotential(const IncidentWave& wave, const WavePlace& place, double z_stretched, bool decays, PointWave& out);

// M. S. Longuet-Higgins, The effect of non-linearities on statistical distributions in the theory of sea waves, J.
// Fluid Mechanics 17 (1963). What second order adds to a linear sum whose components run in one direction with
// ascending k: over i 0.5 k_i a_i^2 cos 2psi_i, and over i < j a_i a_j (0.5 (k_i + k_j) cos(psi_i + psi_j) - 0.5 (k_j -
// k_i) cos(psi_i - psi_j)); to the potential a_i a_j w_j E((k_j - k_i) z') sin(psi_i - psi_j). The pairs are summed in
// one walk: over all i and j the first product falls apart into two sums, and the sums over i < j grow with j.
[[nodiscard]] float SecondOrderElevation(const IncidentWave& wave, const WavePlace& place);
void AddSecondOrderSlopes(const IncidentWave& wave, const WavePlace& place, PointWave& out);
void AddSecondOrderPotential(const IncidentWave& wave, const WavePlace& place, double z_stretched, bool decays,
                             PointWave& out);

}  // namespace zaview
