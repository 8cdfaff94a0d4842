// Mean, variance and extremes of one record, with confidence half widths that allow for serial dependence.
// x: np samples at a constant step, unit u. prob: two-sided, 0 < prob < 1. Results: u, variances u^2; 0 on a fault.
// Var(mean) = Rx(0)/np + sum over k = 1..m-1 of (1 - k/m)(2/np)Rx(k), m = int(sqrt(np)): the weights of
// M. S. Bartlett, Periodogram analysis and continuous spectra, Biometrika 37 (1950).
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace zaview {

enum class StatFault : std::uint8_t { none, option, option_peaks, probability, both, option_peaks_and_probability,
                                      peak_frequency };

struct RecordStats {
  float xm = 0, xv = 0, xs = 0, xmci = 0, xvci = 0, xsci = 0, xmin = 0, xmax = 0;
};

struct RecordStatsTrace {  // what a trace prints; filled only on demand
  float probCoef = 0, VarS = 0;
  int m = 0;
  std::vector<float> Rx;   // all M + 1 lags
};

[[nodiscard]] StatFault CalcRecordStats(int iopt, std::span<const float> x, float prob, RecordStats& out,
                                        RecordStatsTrace* trace = nullptr);

}  // namespace zaview
