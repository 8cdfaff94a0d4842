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

// Envelope points of R as lags and |R(k)/R(0)|.
void EnvelopePoints(std::span<const float> R, std::vector<float>& lag, std::vector<float>& value);

// Rax(k) = sum over the records of w(i) Rx(i,k), k = first .. first + Rax.size() - 1, Rx(i,k) = (1/np(i)) * lag sum; 0
// from lags beyond half of a record on.
void AverageLags(std::span<const std::span<const float>> centred, std::span<const float> w, int first,
                 std::span<float> Rax);

// The rule for the averaged lags of centred records, made in growing blocks up to the point where the walk ends.
// M = npmax/2. Not reached: ndti = M.
void EnsembleDependence(std::span<const std::span<const float>> centred, std::span<const float> w, float cutoff,
                        Dependence& out);

// The same for one record.
void RecordDependence(std::span<const float> centred, float cutoff, Dependence& out);

}  // namespace zaview
