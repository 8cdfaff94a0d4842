#include "stats/extreme_fits.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace zaview {

namespace {

constexpr double kLeastSpread = 1.0e-6;  // of 4-byte values that are alike
constexpr int kMostSteps = 200;          // of a search that halves its bracket at worst
constexpr int kMostHalves = 60;

double Mean(std::span<const double> x) {
  double sum = 0;
  for (const double value : x) sum += value;
  return sum / static_cast<double>(x.size());
}

// Squares of the deviations from the mean over n.
double Spread(std::span<const double> x, double mean) {
  double sum = 0;
  for (const double value : x) sum += (value - mean) * (value - mean);
  return std::sqrt(sum / static_cast<double>(x.size()));
}

struct Slope {
  double value = 0, slope = 0;
};

// The zero above 0 of an increasing function, by Newton's steps inside a bracket.
template <typename Function>
double ZeroOf(Function f, double start) {
  double low = start, high = start, x = start;
  for (int i = 0; i < kMostSteps && f(low).value > 0; ++i) low /= 2;
  for (int i = 0; i < kMostSteps && f(high).value < 0; ++i) high *= 2;
  for (int i = 0; i < kMostSteps; ++i) {
    const Slope at = f(x);
    (at.value > 0 ? high : low) = x;
    const double step = at.value / at.slope;
    double next = x - step;
    if (!(next > low && next < high)) next = (low + high) / 2;
    if (std::abs(next - x) <= 1.0e-14 * x) return next;
    x = next;
  }
  return x;
}

// Sums with the weights exp(c (x - reference)).
struct Weighted {
  double sum = 0, mean = 0, variance = 0;
};
Weighted WeightedSums(std::span<const double> x, double c, double reference) {
  Weighted sums;
  double first = 0, second = 0;
  for (const double value : x) {
    const double w = std::exp(c * (value - reference));
    sums.sum += w;
    first += w * value;
    second += w * value * value;
  }
  sums.mean = first / sums.sum;
  sums.variance = std::max(0.0, second / sums.sum - sums.mean * sums.mean);
  return sums;
}

Covariance2 Inverse(const Covariance2& h) {
  const double d = h.first * h.second - h.both * h.both;
  return {h.second / d, -h.both / d, h.first / d};
}

// V J V
Covariance2 Sandwich(const Covariance2& v, const Covariance2& j) {
  const auto between = [&](double a1, double a2, double b1, double b2) {
    return a1 * (j.first * b1 + j.both * b2) + a2 * (j.both * b1 + j.second * b2);
  };
  return {between(v.first, v.both, v.first, v.both), between(v.first, v.both, v.both, v.second),
          between(v.both, v.second, v.both, v.second)};
}

struct Score {  // derivatives of the logarithm of one value's likelihood
  double first = 0, second = 0;
};

Covariance2 ScoreProducts(std::span<const Score> scores, std::span<const int> record, int lags) {
  Covariance2 sum;
  for (std::size_t k = 0; k <= static_cast<std::size_t>(lags) && k < scores.size(); ++k) {
    const double weight = k == 0 ? 1.0 : 1.0 - static_cast<double>(k) / (lags + 1.0);
    Covariance2 lag;
    for (std::size_t i = 0; i + k < scores.size(); ++i) {
      if (!record.empty() && record[i] != record[i + k]) continue;
      const Score &a = scores[i], &b = scores[i + k];
      lag.first += a.first * b.first;
      lag.both += (a.first * b.second + a.second * b.first) / 2;
      lag.second += a.second * b.second;
    }
    const double times = k == 0 ? 1.0 : 2.0 * weight;
    sum.first += times * lag.first;
    sum.both += times * lag.both;
    sum.second += times * lag.second;
  }
  return sum;
}

// ---- Weibull: peaks as u = (ln h - mean)/spread, with s and k for them

struct Peaks {
  std::vector<double> u;    // in time order
  std::vector<int> record;  // of each, or blank
  double mean = 0, spread = 1;
  double threshold = 0;  // the least of those that are fitted; of the others no more is known than that they are below
  double below = 0;      // how many those are
  [[nodiscard]] bool Fitted(double value) const { return value >= threshold; }
};

void TakeHeights(std::span<const float> heights, std::span<const int> record, Peaks& peaks) {
  for (std::size_t i = 0; i < heights.size(); ++i) {
    if (!(heights[i] > 0.0F) || !std::isfinite(heights[i])) continue;
    peaks.u.push_back(std::log(static_cast<double>(heights[i])));
    if (!record.empty()) peaks.record.push_back(record[i]);
  }
}

// Parts off those below the highest `fitted`; u by their mean and spread. Returns them, ascending.
std::vector<double> PartOff(std::size_t fitted, Peaks& peaks) {
  std::vector<double> sorted = peaks.u;
  std::sort(sorted.begin(), sorted.end());
  const double least = sorted[sorted.size() - fitted];
  sorted.erase(sorted.begin(), std::lower_bound(sorted.begin(), sorted.end(), least));
  peaks.mean = Mean(sorted);
  peaks.spread = Spread(sorted, peaks.mean);
  const auto scaled = [&](double value) { return (value - peaks.mean) / peaks.spread; };
  peaks.below = static_cast<double>(peaks.u.size() - sorted.size());
  peaks.threshold = scaled(least);
  std::transform(peaks.u.begin(), peaks.u.end(), peaks.u.begin(), scaled);
  std::transform(sorted.begin(), sorted.end(), sorted.begin(), scaled);
  return sorted;
}

struct Parameters {
  double s = 0, k = 1;  // ln a, k
};

// The line through the points of Weibull paper: u over the reduced value, by least squares.
Parameters PaperLine(std::span<const double> fitted, std::size_t all) {
  std::vector<double> reduced;
  for (std::size_t i = all - fitted.size(); i < all; ++i) reduced.push_back(WeibullReduced(PeakPosition(i + 1, all)));
  const double mx = Mean(reduced), my = Mean(fitted);
  double xx = 0, xy = 0;
  for (std::size_t i = 0; i < fitted.size(); ++i) {
    xx += (reduced[i] - mx) * (reduced[i] - mx);
    xy += (reduced[i] - mx) * (fitted[i] - my);
  }
  return {my - xy / xx * mx, xx / xy};
}

struct Likelihood {  // its logarithm, the first and the negative second derivatives by s and k
  double value = 0;
  Score score;
  Covariance2 information;
};

// Of one peak that is below the threshold: ln(1 - exp(-z)), z = exp(k (threshold - s)).
Likelihood Below(const Peaks& peaks, Parameters at) {
  const double w = peaks.threshold - at.s, z = std::exp(at.k * w), q = 1 / std::expm1(z);
  const double A = z * q, dA = q * (1 - z * (1 + q));
  return {
      std::log(-std::expm1(-z)), {-at.k * A, A * w}, {-at.k * at.k * z * dA, A + at.k * dA * z * w, -w * w * z * dA}};
}

Score ScoreOf(double u, Parameters at) {
  const double w = u - at.s, z = std::exp(at.k * w);
  return {at.k * (z - 1), 1 / at.k + w * (1 - z)};
}

Likelihood LikelihoodAt(const Peaks& peaks, std::span<const double> fitted, Parameters at) {
  Likelihood sum;
  for (const double u : fitted) {
    const double w = u - at.s, z = std::exp(at.k * w);
    sum.value += at.k * w - z;
    sum.score.first += at.k * (z - 1);
    sum.score.second += w * (1 - z);
    sum.information.first += at.k * at.k * z;
    sum.information.both += 1 - z - at.k * z * w;
    sum.information.second += w * w * z;
  }
  const double n = static_cast<double>(fitted.size());
  sum.value += n * std::log(at.k);
  sum.score.second += n / at.k;
  sum.information.second += n / (at.k * at.k);
  if (peaks.below == 0) return sum;
  const Likelihood one = Below(peaks, at);
  sum.value += peaks.below * one.value;
  sum.score.first += peaks.below * one.score.first;
  sum.score.second += peaks.below * one.score.second;
  sum.information.first += peaks.below * one.information.first;
  sum.information.both += peaks.below * one.information.both;
  sum.information.second += peaks.below * one.information.second;
  return sum;
}

// Newton's steps, halved until the likelihood doesn't fall.
Parameters LargestLikelihood(const Peaks& peaks, std::span<const double> fitted, Parameters at) {
  Likelihood here = LikelihoodAt(peaks, fitted, at);
  for (int i = 0; i < kMostSteps; ++i) {
    const Covariance2 v = Inverse(here.information);
    double ds = v.first * here.score.first + v.both * here.score.second;
    double dk = v.both * here.score.first + v.second * here.score.second;
    const double size = std::abs(ds) + std::abs(dk) / at.k;
    Parameters next;
    Likelihood there;
    for (int halves = 0; halves < kMostHalves; ++halves, ds /= 2, dk /= 2) {
      next = {at.s + ds, at.k + dk};
      if (!(next.k > 0)) continue;
      there = LikelihoodAt(peaks, fitted, next);
      if (there.value >= here.value) break;
    }
    if (!(there.value >= here.value)) return at;  // rounding: it is there
    at = next;
    here = there;
    if (size < 1.0e-12) return at;
  }
  return at;
}

// Of ln a and k, at the largest likelihood.
void WeibullErrors(const Peaks& peaks, std::span<const double> fitted, int lags, Parameters at, WeibullFit& fit) {
  const Covariance2 v = Inverse(LikelihoodAt(peaks, fitted, at).information);
  Covariance2 dependent = v;
  if (lags > 0) {
    const Score below = peaks.below > 0 ? Below(peaks, at).score : Score{};
    std::vector<Score> scores;
    scores.reserve(peaks.u.size());
    for (const double u : peaks.u) scores.push_back(peaks.Fitted(u) ? ScoreOf(u, at) : below);
    dependent = Sandwich(v, ScoreProducts(scores, peaks.record, lags));
  }
  const double spread2 = peaks.spread * peaks.spread;
  fit.information = {v.first * spread2, v.both, v.second / spread2};
  fit.dependent = {dependent.first * spread2, dependent.both, dependent.second / spread2};
  fit.scale_error = fit.scale * std::sqrt(std::max(fit.information.first, fit.dependent.first));
  fit.shape_error = std::sqrt(std::max(fit.information.second, fit.dependent.second));
}

void GumbelErrors(std::span<const double> x, GumbelFit& fit) {
  const double n = static_cast<double>(x.size()), b2 = fit.scale * fit.scale;
  Covariance2 h{n, 0, n};
  for (const double value : x) {
    const double z = (value - fit.location) / fit.scale, e = std::exp(-z);
    h.both += z * e;
    h.second += z * z * e;
  }
  const Covariance2 v = Inverse(h);
  fit.information = {v.first * b2, v.both * b2, v.second * b2};
  fit.location_error = std::sqrt(fit.information.first);
  fit.scale_error = std::sqrt(fit.information.second);
}

// -ln(1 - quantile^(1/n)): the reduced height, to the power k, of this quantile of the largest of n.
double QuantileTerm(const MaximumOf& of) {
  return -std::log(-std::expm1(std::log(of.quantile) / of.n));
}

// h = a y^(1/k)
Estimate WeibullValue(const WeibullFit& fit, double y, double ka) {
  if (!(y > 0)) return {};
  const double by_shape = -std::log(y) / (fit.shape * fit.shape);
  const double variance = std::max(fit.information.VarianceOf(1, by_shape), fit.dependent.VarianceOf(1, by_shape));
  const double h = fit.scale * std::pow(y, 1 / fit.shape), factor = std::exp(ka * std::sqrt(variance));
  return {h, h / factor, h * factor};
}

// x = u + b y
Estimate GumbelValue(const GumbelFit& fit, double y, double ka) {
  const double x = fit.location + fit.scale * y, half = ka * std::sqrt(fit.information.VarianceOf(1, y));
  return {x, x - half, x + half};
}

}  // namespace

FitFault FitWeibull(std::span<const float> heights, std::span<const int> record, const PeakChoice& choice,
                    WeibullFit& fit) {
  fit = WeibullFit{};
  Peaks peaks;
  TakeHeights(heights, record, peaks);
  fit.n = static_cast<int>(peaks.u.size());
  const double share = std::clamp(choice.share, 0.0, 1.0);
  const auto wanted = static_cast<std::size_t>(std::lround(share * fit.n));
  if (wanted < kFewestPeaks) return FitFault::few_values;
  const std::vector<double> fitted = PartOff(wanted, peaks);
  fit.fitted = static_cast<int>(fitted.size());
  if (!(peaks.spread >= kLeastSpread)) return FitFault::no_spread;
  const Parameters at = LargestLikelihood(peaks, fitted, PaperLine(fitted, peaks.u.size()));
  fit.scale = std::exp(peaks.mean + peaks.spread * at.s);
  fit.shape = at.k / peaks.spread;
  WeibullErrors(peaks, fitted, std::max(0, choice.lags), at, fit);
  return FitFault::none;
}

FitFault FitGumbel(std::span<const float> values, int fewest, GumbelFit& fit) {
  fit = GumbelFit{};
  std::vector<double> x;
  for (const float value : values)
    if (std::isfinite(value)) x.push_back(static_cast<double>(value));
  fit.n = static_cast<int>(x.size());
  if (fit.n < fewest) return FitFault::few_values;
  const auto [least, most] = std::minmax_element(x.begin(), x.end());
  const double low = *least, mean = Mean(x), spread = Spread(x, mean);
  if (!(spread > kLeastSpread * std::max(std::abs(low), std::abs(*most)))) return FitFault::no_spread;
  const auto likelihood = [&](double b) {
    const Weighted w = WeightedSums(x, -1 / b, low);
    return Slope{b - mean + w.mean, 1 + w.variance / (b * b)};
  };
  fit.scale = ZeroOf(likelihood, spread * std::sqrt(6.0) / std::numbers::pi);
  fit.location = low - fit.scale * std::log(WeightedSums(x, -1 / fit.scale, low).sum / static_cast<double>(fit.n));
  GumbelErrors(x, fit);
  return FitFault::none;
}

Estimate MostProbableMaximum(const WeibullFit& fit, const MaximumOf& of) {
  return WeibullValue(fit, of.n > 1 ? std::log(of.n) : 0, of.ka);
}

Estimate QuantileOfMaximum(const WeibullFit& fit, const MaximumOf& of) {
  return WeibullValue(fit, QuantileTerm(of), of.ka);
}

Estimate MostProbableMaximum(const GumbelFit& fit, const MaximumOf& of) {
  return GumbelValue(fit, std::log(of.n), of.ka);
}

Estimate QuantileOfMaximum(const GumbelFit& fit, const MaximumOf& of) {
  return GumbelValue(fit, -std::log(-std::log(of.quantile) / of.n), of.ka);
}

double WeibullReduced(double F) {
  return std::log(-std::log1p(-F));
}

double GumbelReduced(double F) {
  return -std::log(-std::log(F));
}

void BlockMaxima(std::span<const std::span<const float>> stretches, std::int64_t length, std::vector<float>& maxima,
                 std::vector<float>& minima, std::int64_t& used) {
  used = 0;
  for (const std::span<const float> x : stretches) {
    const auto n = static_cast<std::int64_t>(x.size());
    const std::int64_t blocks = n / std::max<std::int64_t>(length, 1);
    for (std::int64_t j = 0; j < blocks; ++j) {
      const auto first = static_cast<std::size_t>(j * n / blocks), end = static_cast<std::size_t>((j + 1) * n / blocks);
      const auto [low, high] = std::minmax_element(x.begin() + static_cast<std::ptrdiff_t>(first),
                                                   x.begin() + static_cast<std::ptrdiff_t>(end));
      minima.push_back(*low);
      maxima.push_back(*high);
    }
    if (blocks > 0) used += n;
  }
}

}  // namespace zaview
