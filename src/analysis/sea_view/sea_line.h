// The sea along a straight horizontal line at one moment. Lengths and elevations non-dimensional. Pure.
#pragma once

#include <span>
#include <vector>

#include "waves/incident_wave.h"

namespace zaview {

struct SeaLine {
  WaveMoment moment;
  Vector3 origin{};       // s = 0
  double direction[2]{};  // horizontal unit vector
  const IncidentWave* wave = nullptr;
  // A linear seaway is the sum of a cos(K s + p), component by component; empty for the others.
  std::vector<double> a, K, p;
};

struct LineSlopes {  // with derivatives along the line
  double eta = 0, d1 = 0, d2 = 0;
};

// wave: outlives the line, of a kind that EvalIncidentWave knows. False: memory is out.
[[nodiscard]] bool SetSeaLine(const IncidentWave& wave, WaveMoment moment, const Vector3& origin,
                              const double direction[2], SeaLine& line);

// eta[i] at s = from + i step. Each sum runs from the first component to the last. The components of a linear seaway
// turn from place to place instead of asking for a cosine each: 16 places side by side, begun anew every 64 turns,
// which is within 1e-13 of the sum of all amplitudes. Other seaways are summed in 4 bytes, point by point. False:
// memory is out.
[[nodiscard]] bool ElevationsAlong(const SeaLine& line, double from, double step, std::span<double> eta);

// At one place, by cosines. Of a seaway that isn't linear d2 is 0.
[[nodiscard]] LineSlopes SlopesAt(const SeaLine& line, double s);

}  // namespace zaview
