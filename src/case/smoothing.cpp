#include "case/smoothing.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <vector>

#include "base/grow.h"

namespace zaview {
namespace {

constexpr int kMostDegree = 3;

// Polynomials of degree 0..d that are orthogonal over the samples 0..W-1 of a window, and their norms.
struct Gram {
  int degree = 0;
  std::array<std::vector<double>, kMostDegree + 1> p;
  std::array<double, kMostDegree + 1> norm{};
};

// P(k+1) = t P(k) - norm(k) / norm(k-1) P(k-1), t symmetric about the middle of the window.
[[nodiscard]] bool MakeGram(std::size_t W, int degree, Gram& gram) {
  gram.degree = std::min({degree, kMostDegree, static_cast<int>(std::min<std::size_t>(W - 1, kMostDegree))});
  const double half = W > 1 ? (static_cast<double>(W) - 1.0) / 2.0 : 1.0;
  for (int k = 0; k <= gram.degree; ++k) {
    const auto order = static_cast<std::size_t>(k);
    std::vector<double>& p = gram.p[order];
    if (!Grow(p, W)) return false;
    for (std::size_t j = 0; j < W; ++j) {
      const double t = (2.0 * static_cast<double>(j) - (static_cast<double>(W) - 1.0)) / (2.0 * half);
      p[j] = k == 0 ? 1.0 : t * gram.p[order - 1][j];
      if (k > 1) p[j] -= gram.norm[order - 1] / gram.norm[order - 2] * gram.p[order - 2][j];
      gram.norm[order] += p[j] * p[j];
    }
  }
  return true;
}

// Weights of the samples of a window for the fit's value at sample `at` of it.
void FitWeights(const Gram& gram, std::size_t at, std::vector<double>& weights) {
  for (std::size_t j = 0; j < weights.size(); ++j) {
    double sum = 0;
    for (std::size_t k = 0; k <= static_cast<std::size_t>(gram.degree); ++k)
      sum += gram.p[k][at] * gram.p[k][j] / gram.norm[k];
    weights[j] = sum;
  }
}

float Fit(const std::vector<double>& weights, const float* x) {
  double sum = 0;
  for (std::size_t j = 0; j < weights.size(); ++j) sum += weights[j] * static_cast<double>(x[j]);
  return static_cast<float>(sum);
}

[[nodiscard]] bool FitAlong(std::size_t width, int degree, std::span<const float> input, std::span<float> output) {
  const std::size_t n = input.size();
  const std::size_t W = std::min(width, n);
  Gram gram;
  std::vector<double> centre, end;
  if (!MakeGram(W, degree, gram) || !Grow(centre, W) || !Grow(end, W)) return false;
  FitWeights(gram, W / 2, centre);
  for (std::size_t i = 0; i < n; ++i) {
    const std::size_t begin = std::min(i > W / 2 ? i - W / 2 : 0, n - W);
    const bool inside = i - begin == W / 2;
    if (!inside) FitWeights(gram, i - begin, end);
    output[i] = Fit(inside ? centre : end, input.data() + begin);
  }
  return true;
}

}  // namespace

FilterStatus TimeDataFilter(int option, int width, std::span<const float> input, std::span<float> output) {
  constexpr int kSmallWindow = 5;
  if (option != 1 && option != 3) return FilterStatus::bad_option;
  if (input.size() < 2 || width < 1) {
    std::copy(input.begin(), input.end(), output.begin());
    return FilterStatus::ok;
  }
  const auto W = static_cast<std::size_t>(option == 1 ? kSmallWindow : width);
  return FitAlong(W, option == 1 ? 2 : 3, input, output) ? FilterStatus::ok : FilterStatus::out_of_memory;
}

bool smooth_section_loads(StepHistory& loads) {
  std::vector<float> smoothed;
  for (std::vector<float>& column : loads.component) {
    if (!Grow(smoothed, column.size())) return false;
    if (TimeDataFilter(1, 1, column, smoothed) != FilterStatus::ok) return false;
    column.swap(smoothed);
  }
  return true;
}

}  // namespace zaview
