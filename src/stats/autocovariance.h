// Lag sums. All forms give, bit for bit, what the plain loop gives: lags are independent sums, held side by side, each
// from the first sample to the last.
#pragma once

#include <span>
#include <vector>

namespace zaview {

// Rx[k - first] = (1/np) * sum over i of c(i) c(i+k), k = first .. first + count - 1, c centred by the caller.
void LagSums(std::span<const float> c, int first, int count, float factor, std::span<float> Rx, unsigned threads);

// The record's autocovariance about xm with divisor np, lags 0 .. M.
void RecordLags(std::span<const float> x, float xm, int M, std::vector<float>& Rx);

// The plot's own form: R(k) = 1/(n-1-k) * sum over i = 1..n-1-k, R(n-1) = 0; dtau = t - t(1). False: n below 1.
[[nodiscard]] bool AutoCovariance(std::span<const float> t, std::span<const float> x, std::vector<float>& dtau,
                                  std::vector<float>& R);

// Extremes of R as (position from 0) lists: upper where R > 0, lower else; equality counts, ends don't.
void EnvelopeExtremes(std::span<const float> R, std::vector<int>& upper, std::vector<int>& lower);

}  // namespace zaview
