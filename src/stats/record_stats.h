// Mean, variance and extremes of one record, with confidence half widths that allow for serial dependence.
// x: np samples at a constant step, unit u. prob: two-sided, 0 < prob < 1. Results: u, variances u^2; 0 on a fault.
// Of one sample the variance is 0/0, not a number, which tables show as 0.
// Var(mean) = Rx(0)/np + sum over k = 1..m-1 of (1 - k/m)(2/np)Rx(k), m = int(sqrt(np)): the weights of
// M. S. Bartlett, Periodogram analysis and continuous spectra, Biometrika 37 (1950).
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zaview {

// Arguments that are refused; several may be wrong at once.
enum class StatFault : std::uint8_t { none = 0, peak_frequency = 1, option = 2, option_peaks = 4, probability = 8 };
[[nodiscard]] constexpr StatFault operator|(StatFault a, StatFault b) {
  return static_cast<StatFault>(static_cast<unsigned>(a) | static_cast<unsigned>(b));
}
[[nodiscard]] constexpr bool Has(StatFault faults, StatFault one) {
  return (static_cast<unsigned>(faults) & static_cast<unsigned>(one)) != 0;
}

// Checks of iopt 1..3 and prob.
[[nodiscard]] StatFault StatFaults(int iopt, float prob);

// The lines for the console, in the order of the checks.
[[nodiscard]] std::vector<std::string> StatFaultLines(StatFault faults, std::string_view routine, int N, int iopt,
                                                      float prob);

struct RecordStats {
  float xm = 0, xv = 0, xs = 0, xmci = 0, xvci = 0, xsci = 0, xmin = 0, xmax = 0;
};

struct RecordStatsTrace {  // what a trace prints; filled only on demand
  float probCoef = 0, VarS = 0;
  int m = 0;
  std::vector<float> Rx;  // all M + 1 lags
};

// iopt: all; mean, extremes and the half width of the mean; no half widths.
inline constexpr int kAllHalfWidths = 1, kMeanHalfWidth = 2, kNoHalfWidths = 3;
[[nodiscard]] StatFault CalcRecordStats(int iopt, std::span<const float> x, float prob, RecordStats& out,
                                        RecordStatsTrace* trace = nullptr);

// The parts of it that need no half width, each in one pass. x: at least one sample.
[[nodiscard]] RecordStats MeanAndExtremes(std::span<const float> x);    // xm, xmin, xmax; the others are 0
[[nodiscard]] float VarianceAbout(float xm, std::span<const float> x);  // sum of (x - xm)^2 over np - 1

// Sum of x in ascending order over np; 0 samples: 0.
[[nodiscard]] float MeanOf(std::span<const float> x);

// The Bartlett sum above: starts at R[0]/np, then adds ((1 - k/m) * (2/np)) * R[k].
[[nodiscard]] float BartlettVariance(std::span<const float> R, int np, int m);

}  // namespace zaview
