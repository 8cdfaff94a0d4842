// The sums over wave components below EvalIncidentWave and ElevationHistory. Points lie side by side; the sum of each
// point keeps its order, so that a point gives the same bits alone and among others.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "waves/incident_wave.h"

namespace zaview {

inline constexpr std::size_t kSideBySide = 16;

struct PointBlock {  // entries behind the n-th stay 0
  std::size_t n = 0;
  std::array<double, kSideBySide> x{}, y{}, t{};
  std::array<float, kSideBySide> scale{};
};
using BlockValues = std::array<float, kSideBySide>;

struct WavePlace {  // a point and a time
  double x = 0, y = 0, z = 0, t = 0;
  float scale = 1;  // of the amplitudes
};

struct PointWave {  // what EvalIncidentWave gives at one point
  float eta = 0, eta_x = 0, eta_y = 0;
  float phi = 0, phi_t = 0, phi_x = 0, phi_y = 0, phi_z = 0;
  float xx = 0, xy = 0, xz = 0, yy = 0, yz = 0, zz = 0;
};

enum class WaveKind : std::uint8_t { calm, linear, stokes, second_order, unknown };
[[nodiscard]] WaveKind KindOf(const IncidentWave& wave);  // a Stokes wave of order 0 is linear

// exp(v), 0 below -30 and 1 from 0 on.
[[nodiscard]] double Decay(double v);

// The depth to evaluate at, -h <= z' <= 0. Stretched (J. D. Wheeler, J. Petroleum Technology 22, 1970) in deep water z
// - eta, in depth h z - (h + z) eta/(eta + h) where z and eta lie above -h.
[[nodiscard]] double StretchedDepth(double z, double eta, bool stretch, double h);

// Linear sums of all components.
[[nodiscard]] BlockValues SumElevations(const IncidentWave& wave, const PointBlock& block);
void SumSlopes(const IncidentWave& wave, const WavePlace& place, PointWave& out);
// `decays` off: no decay with depth in deep water.
void SumPotential(const IncidentWave& wave, const WavePlace& place, double z_stretched, bool decays, PointWave& out);

// Elevations of any kind of seaway but `unknown`.
[[nodiscard]] BlockValues BlockElevations(const IncidentWave& wave, WaveKind kind, const PointBlock& block);

}  // namespace zaview
