#include "case/smoothing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <fftw3.h>
#include <vector>

#include "base/grow.h"
#include "base/message.h"

namespace zaview {
namespace {

constexpr std::string_view kInterrupted = "Smoothing interrupted";
constexpr int kMostDegree = 3;
constexpr std::size_t kAskAfter = 1U << 20U;     // samples in windows, until it is asked again
constexpr std::size_t kMostSamples = 1U << 30U;  // lengths of a transform are int

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

FilterStatus FitAlong(std::size_t width, int degree, std::span<const float> input, std::span<float> output,
                      const std::function<bool()>& is_over) {
  const std::size_t n = input.size();
  const std::size_t W = std::min(width, n);
  Gram gram;
  std::vector<double> centre, end;
  if (!MakeGram(W, degree, gram) || !Grow(centre, W) || !Grow(end, W)) return FilterStatus::out_of_memory;
  FitWeights(gram, W / 2, centre);
  std::size_t fitted = 0;  // samples since it was asked last
  for (std::size_t i = 0; i < n; ++i) {
    const std::size_t begin = std::min(i > W / 2 ? i - W / 2 : 0, n - W);
    const bool inside = i - begin == W / 2;
    if (!inside) FitWeights(gram, i - begin, end);
    output[i] = Fit(inside ? centre : end, input.data() + begin);
    fitted += W;
    if (fitted < kAskAfter) continue;
    if (is_over && is_over()) return FilterStatus::interrupted;
    fitted = 0;
  }
  return FilterStatus::ok;
}

}  // namespace

FilterStatus TimeDataFilter(int option, int width, std::span<const float> input, std::span<float> output,
                            const std::function<bool()>& is_over) {
  constexpr int kSmallWindow = 5;
  if (option != 1 && option != 3) return FilterStatus::bad_option;
  if (input.size() < 2 || width < 1) {
    std::copy(input.begin(), input.end(), output.begin());
    return FilterStatus::ok;
  }
  const auto W = static_cast<std::size_t>(option == 1 ? kSmallWindow : width);
  return FitAlong(W, option == 1 ? 2 : 3, input, output, is_over);
}

bool fourier_smooth(double cutoff, std::span<const float> input, std::span<float> output) {
  const std::size_t n = input.size();
  if (n < 3 || n > kMostSamples) {
    std::copy(input.begin(), input.end(), output.begin());
    return n < 3;
  }
  const std::size_t inner = n - 2;  // samples between the ends, and harmonics
  double* series = fftw_alloc_real(inner);
  if (series == nullptr) return false;
  const fftw_plan plan =
      fftw_plan_r2r_1d(static_cast<int>(inner), series, series, FFTW_RODFT00, FFTW_ESTIMATE | FFTW_DESTROY_INPUT);
  if (plan == nullptr) {
    fftw_free(series);
    return false;
  }
  const double intervals = static_cast<double>(n - 1);
  const double slope = (static_cast<double>(input[n - 1]) - input[0]) / intervals;
  const auto line = [&](std::size_t i) { return input[0] + slope * static_cast<double>(i); };
  for (std::size_t i = 1; i <= inner; ++i) series[i - 1] = input[i] - line(i);
  fftw_execute(plan);
  const double kept = std::max(1.0, std::floor(cutoff * intervals));
  for (std::size_t k = 1; k <= inner; ++k)
    series[k - 1] = static_cast<double>(k) <= kept ? series[k - 1] / (2.0 * intervals) : 0.0;
  fftw_execute(plan);
  output[0] = input[0];
  output[n - 1] = input[n - 1];
  for (std::size_t i = 1; i <= inner; ++i) output[i] = static_cast<float>(series[i - 1] + line(i));
  fftw_destroy_plan(plan);
  fftw_free(series);
  return true;
}

std::string_view SmoothingSkipped(int option) {
  return option == 2 ? "Memory allocation error - Fourier smoothing skipped"
                     : "Memory allocation error - smoothing skipped";
}

FilterStatus SmoothInput(const Console& console, int option, int width, std::vector<float>& curve) {
  constexpr double kCutoff = 0.25;  // of the Nyquist frequency
  if (option == 0 || curve.size() < 2) return FilterStatus::ok;
  std::vector<float> smoothed;
  FilterStatus status = FilterStatus::out_of_memory;
  if (Grow(smoothed, curve.size())) {
    const auto is_over = [&console] { return TakeInterrupt(console); };
    if (option != 2) status = TimeDataFilter(option, width, curve, smoothed, is_over);
    else if (fourier_smooth(kCutoff, curve, smoothed)) status = FilterStatus::ok;
  }
  if (status == FilterStatus::ok) curve.swap(smoothed);
  else SayLine(console, status == FilterStatus::interrupted ? kInterrupted : SmoothingSkipped(option));
  return status;
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
