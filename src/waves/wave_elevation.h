// Elevation along a direction, crest celerity, and the elevation that a moving point meets step after step.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "waves/incident_wave.h"

namespace zaview {

// Both work on linear seaways (and calm); others are said by these lines, the place being the routine's name.
inline constexpr std::string_view kNoAlternativeWaves = "LOGIC ERROR - Alternative linear waves not supported in {}()";
inline constexpr std::string_view kNoIrregularStokes = "LOGIC ERROR - Irrgular Stokes waves not supported in {}()";
inline constexpr std::string_view kNoRegularStokes = "LOGIC ERROR - Regular stokes waves not supported in {}()";
inline constexpr std::string_view kUnknownKindIn = "ERROR - {}: ISEA= {}";
inline constexpr std::string_view kUnknownKindInEnd = "LOGIC ERROR in {}";

struct ElevationSlopes {  // double, one entry a point; derivatives along the direction
  std::span<double> eta, d1, d2, d3;
};
// With K = k (cos b d1 + sin b d2): d1 = - sum a K s, d2 = - sum a K^2 c, d3 = sum a K^3 s.
[[nodiscard]] WaveFault IncidentWaveElev(const IncidentWave& wave, WaveMoment moment, std::span<const Vector3> points,
                                         const double direction[2], const ElevationSlopes& out);

struct CelerityTerms {  // double, one entry a point
  std::span<double> eta, d1, d2, d3;
  std::span<double> crest;       // -eta_st/eta_ss
  std::span<double> frequency;   // local: (sum ac sum awc + sum as sum aws)/((sum ac)^2 + (sum as)^2)
  std::span<double> number;      // local wave number, the same with K
  std::span<double> celerity;    // frequency/number; 0 where a divisor is below 1e-20
  std::span<double> envelope{};  // (sum ac)^2 + (sum as)^2
};
[[nodiscard]] WaveFault IncidentWaveCelerity(const IncidentWave& wave, WaveMoment moment,
                                             std::span<const Vector3> points, const double direction[2],
                                             const CelerityTerms& out);

// eta[i] at (x[i], y[i]) and time[i] with amplitudes times scale[i]; all spans of one length, scale may be empty (1).
// The same numbers as EvalIncidentWave point by point, over both processors (threads 0: as many as there are, at most
// two). Any kind of seaway.
[[nodiscard]] WaveFault ElevationHistory(const IncidentWave& wave, std::span<const float> time,
                                         std::span<const float> x, std::span<const float> y,
                                         std::span<const float> scale, std::span<float> eta, int threads = 0);

}  // namespace zaview
