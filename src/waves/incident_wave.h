// Elevation, slopes and potential of a seaway at given points and time. Non-dimensional by reference length and
// gravity; phase psi = k (x cos b + y sin b) - w t + p formed in double and reduced to one turn ahead of sine and
// cosine; terms are 4 bytes, component i is added to lane (i-1) mod 4, the sum is (s1 + s2) + (s3 + s4). Points side by
// side give the same bits as one by one. Pure.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "base/platform.h"
#include "base/rotation.h"
#include "waves/seaway.h"

namespace zaview {

// Components with w or k at or below 0 are left out. w^2 = k tanh(k h) solved in double. ISEA 3 of an order above 0 and
// ISEA 5 are of deep water at any depth; the modes of ISEA 5 are put in ascending order. False: memory is out.
[[nodiscard]] bool PrepareIncidentWave(const Seaway& seaway, IncidentWave& wave);

// Says how many components were left out although they have an amplitude.
void SayLeftOut(const Console& console, const IncidentWave& wave);

// The phase of component i, from 0, not reduced.
[[nodiscard]] inline double PhaseOf(const IncidentWave& wave, std::size_t i, double x, double y, double time) {
  return ((wave.kx[i] * x + wave.ky[i] * y) - wave.w[i] * time) + wave.p[i];
}

struct WaveMoment {
  double time = 0;   // simulation time
  double scale = 1;  // of all amplitudes (wave_scale.h)
};

struct WaveOptions {
  int IEKZOPT = 1;  // deep water: 1 and -1 let the potential decay with depth
  int stretch = 1;  // 0: z stands; else z is measured from the wave surface
  bool elevation_only = false;
};

struct WaveOutputs {  // a span a quantity, one entry a point, nine for `second`; an empty span is not wanted
  std::span<float> eta, eta_x, eta_y, phi, phi_t, phi_x, phi_y, phi_z;
  std::span<float> second;  // xx xy xz, yx yy yz, zx zy zz
};

enum class WaveFault : std::uint8_t { none, unknown_kind, not_supported };

inline constexpr std::string_view kUnknownWaveKind = "ERROR - EvalIncidentWave: ISEA= {}";
inline constexpr std::string_view kUnknownWaveKindEnd = "LOGIC ERROR in EvalIncidentWave";

// All outputs are zeroed first; a calm sea leaves them so. Derivatives of phi are taken at fixed z'. A phase that is
// NaN or infinite gives NaN.
[[nodiscard]] WaveFault EvalIncidentWave(const IncidentWave& wave, WaveMoment moment, WaveOptions options,
                                         std::span<const Vector3> points, const WaveOutputs& out);

}  // namespace zaview
