// Distributions fitted to peaks and to extremes of blocks by maximum likelihood, and the largest value to be expected
// of a longer time. Pure, in double; sums run from the first value to the last.
//
// Peaks above the mean: the two-parameter Weibull distribution F(h) = 1 - exp(-(h/a)^k), h > 0; with k = 2 it is
// Rayleigh's, a = sqrt(2) sigma, of a narrow Gaussian band. Of a wide band the small peaks follow another law, which
// bends a fit of all of them: of those below the highest share no more is taken than how many they are (a sample that
// is censored: J. F. Lawless, Statistical Models and Methods for Lifetime Data, 1982). A lower bound of its own is
// deliberately not fitted: its likelihood has no maximum for k <= 1 and no usual errors for k <= 2 (R. L. Smith,
// Maximum likelihood estimation in a class of nonregular cases, Biometrika 72 (1985)), and peaks about the mean have
// one, 0.
// Extremes of blocks: Gumbel's F(x) = exp(-exp(-(x - u)/b)) (E. J. Gumbel, Statistics of Extremes, 1958).
//
// Errors: from the inverse of the observed information H. Peaks that depend on each other tell less than as many that
// don't: H^-1 J H^-1, J the sum of the products of their scores up to `lags` apart with Bartlett weights (W. K. Newey
// and K. D. West, Econometrica 55 (1987)), counts where its variance is the larger one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace zaview {

enum class FitFault : std::uint8_t {
  none,
  few_values,  // below kFewestPeaks, kFewestBlocks
  no_spread    // all values are alike: there is no distribution
};
inline constexpr int kFewestPeaks = 20, kFewestBlocks = 20, kFewestRecords = 10;

struct Covariance2 {
  double first = 0, both = 0, second = 0;  // variances, and between them their covariance
  // Of a value whose derivatives by the two parameters are these.
  [[nodiscard]] double VarianceOf(double d_first, double d_second) const {
    return d_first * d_first * first + 2 * d_first * d_second * both + d_second * d_second * second;
  }
};

struct WeibullFit {
  int n = 0, fitted = 0;                    // peaks, and the highest of them
  double scale = 0, shape = 0;              // a, k
  double scale_error = 0, shape_error = 0;  // standard errors
  Covariance2 information, dependent;       // of ln a and k: H^-1, and with dependence (equal for lags 0)
};
struct GumbelFit {
  int n = 0;
  double location = 0, scale = 0;  // u, b
  double location_error = 0, scale_error = 0;
  Covariance2 information;  // of u and b
};

struct PeakChoice {
  double share = 1;  // of the peaks, the highest: those that are fitted
  int lags = 0;      // how many peaks on a peak is not independent of
};
// heights: above 0, in time order; those at or below 0, and not finite, are left out. record: of each height (blank:
// one); products don't reach from one into another. few_values: kFewestPeaks can't be fitted. Starts at the line on
// Weibull paper.
[[nodiscard]] FitFault FitWeibull(std::span<const float> heights, std::span<const int> record, const PeakChoice& choice,
                                  WeibullFit& fit);
// values: independent of each other. fewest: kFewestBlocks or kFewestRecords. Starts at the moments.
[[nodiscard]] FitFault FitGumbel(std::span<const float> values, int fewest, GumbelFit& fit);

struct Estimate {
  double value = 0, low = 0, high = 0;
};
struct MaximumOf {  // the largest of n values, n as many as are expected in a time; ka half widths of the normal
  double n = 0, quantile = 0, ka = 0;
};
// Most probable: 1 - F = 1/n (Weibull; n above 1), the mode u + b ln n (Gumbel). Chosen quantile: F^n = quantile.
// Intervals by the delta method, Weibull's in ln h. Weibull with n <= 1: the most probable is 0.
[[nodiscard]] Estimate MostProbableMaximum(const WeibullFit& fit, const MaximumOf& of);
[[nodiscard]] Estimate QuantileOfMaximum(const WeibullFit& fit, const MaximumOf& of);
[[nodiscard]] Estimate MostProbableMaximum(const GumbelFit& fit, const MaximumOf& of);
[[nodiscard]] Estimate QuantileOfMaximum(const GumbelFit& fit, const MaximumOf& of);

// Reduced values, in which a fit is a straight line: ln(-ln(1 - F)) by ln h, -ln(-ln F) by x.
[[nodiscard]] double WeibullReduced(double F);
[[nodiscard]] double GumbelReduced(double F);

// Plotting positions of the i-th smallest, i from 1, of n: Hazen's, Weibull's.
[[nodiscard]] constexpr double PeakPosition(std::size_t i, std::size_t n) {
  return (static_cast<double>(i) - 0.5) / static_cast<double>(n);
}
[[nodiscard]] constexpr double BlockPosition(std::size_t i, std::size_t n) {
  return static_cast<double>(i) / (static_cast<double>(n) + 1);
}

// The largest value of each block: stretches are cut into equal parts at least `length` samples long (those shorter
// are left out). used: samples in blocks.
void BlockMaxima(std::span<const std::span<const float>> stretches, std::int64_t length, std::vector<float>& maxima,
                 std::vector<float>& minima, std::int64_t& used);

}  // namespace zaview
