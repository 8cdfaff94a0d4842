#include "stats/welch_spectrum.h"

#include <algorithm>
#include <cmath>
#include <fftw3.h>
#include <memory>

#include "base/angles.h"
#include "base/grow.h"

namespace zaview {

namespace {

constexpr std::size_t kLeastSegment = 4, kLargestSegment = std::size_t{1} << 30U;

struct FreeFftw {
  void operator()(void* memory) const { fftw_free(memory); }
};

class Transform {  // of real samples
 public:
  explicit Transform(std::size_t n) : in_(fftw_alloc_real(n)), out_(fftw_alloc_complex(n / 2 + 1)) {
    // ESTIMATE measures nothing: the same plan, and so the same bits, each time.
    if (in_ && out_) plan_ = fftw_plan_dft_r2c_1d(static_cast<int>(n), in_.get(), out_.get(), FFTW_ESTIMATE);
  }
  ~Transform() { fftw_destroy_plan(plan_); }
  Transform(const Transform&) = delete;
  Transform& operator=(const Transform&) = delete;
  [[nodiscard]] bool ready() const { return plan_ != nullptr; }
  [[nodiscard]] double* in() { return in_.get(); }
  void Run() { fftw_execute(plan_); }
  [[nodiscard]] double Square(std::size_t k) const {
    const double re = out_.get()[k][0], im = out_.get()[k][1];
    return re * re + im * im;
  }

 private:
  std::unique_ptr<double, FreeFftw> in_;
  std::unique_ptr<fftw_complex, FreeFftw> out_;
  fftw_plan plan_ = nullptr;
};

double MeanOf(std::span<const std::span<const float>> x) {
  double sum = 0, count = 0;
  for (const std::span<const float> stretch : x) {
    for (const float v : stretch) sum += static_cast<double>(v);
    count += static_cast<double>(stretch.size());
  }
  return count > 0 ? sum / count : 0.0;
}

// Of three lines one apart; 0 where the middle isn't the highest.
double Vertex(double before, double here, double after) {
  const double curvature = before - 2.0 * here + after;
  return curvature < 0 ? std::clamp(0.5 * (before - after) / curvature, -0.5, 0.5) : 0.0;
}

// Probability of less than x: the lower incomplete gamma function's series, sum of z^n/(a (a+1) .. (a+n)).
double ChiSquareProbability(double x, double freedom) {
  const double a = freedom / 2.0, z = x / 2.0;
  if (!(z > 0)) return 0;
  constexpr double kLeast = 1e-16;
  double term = 1.0 / a, sum = term;
  for (double n = 1; term > kLeast * sum; ++n) sum += term *= z / (a + n);
  return sum * std::exp(a * std::log(z) - z - std::lgamma(a));
}

double ChiSquareAt(double probability, double freedom) {
  constexpr int kHalvings = 80;
  double low = 0, high = freedom + 10.0 * std::sqrt(2.0 * freedom) + 60.0;
  for (int i = 0; i < kHalvings; ++i) {
    const double middle = (low + high) / 2.0;
    (ChiSquareProbability(middle, freedom) < probability ? low : high) = middle;
  }
  return high;
}

}  // namespace

std::size_t UsualSegment(std::size_t n) {
  constexpr std::size_t kPart = 8, kLeast = 256;
  return std::min(std::max(n / kPart, kLeast), n / 2) / 2 * 2;
}

bool FindWelchSpectrum(std::span<const std::span<const float>> x, double dt, std::size_t segment, WelchSpectrum& out) {
  out = WelchSpectrum{};
  segment = segment / 2 * 2;
  if (segment < kLeastSegment || segment > kLargestSegment || !(dt > 0)) return false;
  std::vector<double> taper;
  if (!Grow(taper, segment) || !Grow(out.S, segment / 2 + 1)) return false;
  Transform transform(segment);
  if (!transform.ready()) return false;
  double squares = 0;
  for (std::size_t j = 0; j < segment; ++j) {
    taper[j] = 0.5 * (1.0 - std::cos(kTwoPi * static_cast<double>(j) / static_cast<double>(segment)));
    squares += taper[j] * taper[j];
  }
  const double mean = MeanOf(x);
  for (const std::span<const float> stretch : x)
    for (std::size_t from = 0; from + segment <= stretch.size(); from += segment / 2) {
      for (std::size_t j = 0; j < segment; ++j)
        transform.in()[j] = taper[j] * (static_cast<double>(stretch[from + j]) - mean);
      transform.Run();
      for (std::size_t k = 0; k < out.S.size(); ++k) out.S[k] += transform.Square(k);
      ++out.segments;
    }
  if (out.segments == 0) return false;
  const double count = out.segments;
  const double scale = 2.0 * dt / (kTwoPi * squares * count);
  for (double& S : out.S) S *= scale;
  out.S.front() *= 0.5;
  out.S.back() *= 0.5;
  out.segment = segment;
  out.dw = kTwoPi / (static_cast<double>(segment) * dt);
  constexpr double kNeighbours = 1.0 / 36.0;
  out.freedom = 2.0 * count / (1.0 + 2.0 * kNeighbours * (1.0 - 1.0 / count));
  return true;
}

DensityLimits LimitsOfDensity(double freedom, double probability) {
  const double outside = (1.0 - std::clamp(probability, 0.0, 0.999999)) / 2.0;
  return {freedom / ChiSquareAt(1.0 - outside, freedom), freedom / ChiSquareAt(outside, freedom)};
}

SpectralMoments MomentsOf(const WelchSpectrum& spectrum) {
  SpectralMoments m;
  const std::vector<double>& S = spectrum.S;
  std::size_t highest = 0;
  for (std::size_t k = 1; k < S.size(); ++k) {
    const double w = static_cast<double>(k) * spectrum.dw, part = S[k] * spectrum.dw;
    m.m_1 += part / w;
    m.m0 += part;
    m.m1 += part * w;
    m.m2 += part * w * w;
    m.m4 += part * w * w * w * w;
    if (highest == 0 || S[k] > S[highest]) highest = k;
  }
  if (highest == 0) return m;
  const double offset =
      highest > 1 && highest + 1 < S.size() ? Vertex(S[highest - 1], S[highest], S[highest + 1]) : 0.0;
  m.w_peak = (static_cast<double>(highest) + offset) * spectrum.dw;
  return m;
}

double BandwidthEpsilon(const SpectralMoments& m) {
  const double product = m.m0 * m.m4;
  return product > 0 ? std::sqrt(std::max(0.0, 1.0 - m.m2 * m.m2 / product)) : 0.0;
}

double BandwidthNu(const SpectralMoments& m) {
  return m.m1 > 0 ? std::sqrt(std::max(0.0, m.m0 * m.m2 / (m.m1 * m.m1) - 1.0)) : 0.0;
}

}  // namespace zaview
