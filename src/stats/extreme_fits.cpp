#include "stats/extreme_fits.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace zaview {

namespace {

constexpr double kLeastSpread = 1.0e-6;  // of 4-byte values that are alike
constexpr int kMostSteps = 200;          // of a search that halves its bracket at worst

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

// The slope of a line through points of a paper: ordered values over reduced ones.
double PaperSlope(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  std::vector<double> reduced(values.size());
  for (std::size_t i = 0; i < values.size(); ++i) reduced[i] = WeibullReduced(PeakPosition(i + 1, values.size()));
  const double mx = Mean(reduced), my = Mean(values);
  double xx = 0, xy = 0;
  for (std::size_t i = 0; i < values.size(); ++i) {
    xx += (reduced[i] - mx) * (reduced[i] - mx);
    xy += (reduced[i] - mx) * (values[i] - my);
  }
  return xy / xx;
}

// ln h, and the record of each that is taken.
void TakeHeights(std::span<const float> heights, std::span<const int> record, std::vector<double>& logs,
                 std::vector<int>& records) {
  for (std::size_t i = 0; i < heights.size(); ++i) {
    if (!(heights[i] > 0.0F) || !std::isfinite(heights[i])) continue;
    logs.push_back(std::log(static_cast<double>(heights[i])));
    if (!record.empty()) records.push_back(record[i]);
  }
}

// Of ln a and k, at the largest likelihood.
void WeibullErrors(std::span<const double> logs, std::span<const int> record, int lags, double log_scale,
                   WeibullFit& fit) {
  const double k = fit.shape, n = static_cast<double>(logs.size());
  Covariance2 h{k * k * n, 0, n / (k * k)};
  std::vector<Score> scores;
  scores.reserve(logs.size());
  for (const double log : logs) {
    const double w = log - log_scale, z = std::exp(k * w);
    h.both -= k * z * w;
    h.second += w * w * z;
    scores.push_back({k * (z - 1), 1 / k + w * (1 - z)});
  }
  fit.information = Inverse(h);
  fit.dependent = lags > 0 ? Sandwich(fit.information, ScoreProducts(scores, record, lags)) : fit.information;
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

FitFault FitWeibull(std::span<const float> heights, std::span<const int> record, int lags, WeibullFit& fit) {
  fit = WeibullFit{};
  std::vector<double> logs;
  std::vector<int> records;
  TakeHeights(heights, record, logs, records);
  fit.n = static_cast<int>(logs.size());
  if (fit.n < kFewestPeaks) return FitFault::few_values;
  const double mean = Mean(logs), largest = *std::max_element(logs.begin(), logs.end());
  if (Spread(logs, mean) < kLeastSpread) return FitFault::no_spread;
  const auto likelihood = [&](double k) {
    const Weighted w = WeightedSums(logs, k, largest);
    return Slope{w.mean - mean - 1 / k, w.variance + 1 / (k * k)};
  };
  fit.shape = ZeroOf(likelihood, 1 / PaperSlope(logs));
  const Weighted w = WeightedSums(logs, fit.shape, largest);
  const double log_scale = largest + std::log(w.sum / static_cast<double>(fit.n)) / fit.shape;
  fit.scale = std::exp(log_scale);
  WeibullErrors(logs, records, std::max(0, lags), log_scale, fit);
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
