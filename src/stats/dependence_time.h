// How many steps the samples of a record stay dependent: the lag at which the envelope of |R(k)/R(0)| falls to a
// cut-off. Envelope points are the strict local maxima of |R|.
#pragma once

#include <span>
#include <vector>

namespace zaview {

struct Dependence {
  int ndti = 0;   // lag in steps, truncated
  float lag = 0;  // untruncated
  bool reached = false;
};

// R: lags 0..M. The walk begins at the second envelope point.
void EnvelopeRule(std::span<const float> R, float cutoff, Dependence& out);

// The same for the lags of a centred record, made in growing blocks up to the point where the walk ends. M = np/2.
// Not reached: ndti = M.
void RecordDependence(std::span<const float> centred, float cutoff, Dependence& out);

}  // namespace zaview
