// Lag sums. All forms give, bit for bit, what the plain loop gives: lags are independent sums, held side by side, each
// from the first sample to the last.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace zaview {

// c(i) = x(i) - xm.
[[nodiscard]] std::vector<float> Centred(std::span<const float> x, float xm);

// sums[k - first] = sum over i = 1..np-k of c(i) c(i+k) for the sums.size() lags from `first` on; 0 from lag np on.
void LagSums(std::span<const float> c, int first, std::span<float> sums);

// The same for several records at once: sums[i * n_lags + j] belongs to lag first + j of record i. Lags and records are
// shared between both cores. Lags beyond half of a record count as 0.
void EnsembleLagSums(std::span<const std::span<const float>> c, int first, std::size_t n_lags, std::span<float> sums);

// Rx(k) = (1/np) * sum of lag k, k = 0 .. M.
void RecordLags(std::span<const float> c, int M, std::vector<float>& Rx);

// The plot's own form: R(k) = 1/(n-1-k) * sum over i = 1..n-1-k, R(n-1) = 0; dtau = t - t(1). False: n below 1.
[[nodiscard]] bool AutoCovariance(std::span<const float> t, std::span<const float> x, std::vector<float>& dtau,
                                  std::vector<float>& R);

// Extremes of R as (position from 0) lists: upper where R > 0, lower else; equality counts, ends don't.
void EnvelopeExtremes(std::span<const float> R, std::vector<int>& upper, std::vector<int>& lower);

}  // namespace zaview
