#include "waves/spectra.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/grow.h"

namespace zaview {
namespace {

constexpr double kTwoPi = 6.2831855;
constexpr double kDefaultCutoff = 0.001;
constexpr int kBisections = 20;
constexpr int kMostSteps = 100000;                 // of the search for an end; no spectrum needs them
constexpr double kSamePeak = 1e-6;                 // modal frequencies closer than this are one peak
constexpr double kBelowPeak = 2, kAbovePeak = 10;  // largest gap over smallest, on either side of a peak

double JonswapAt(const Spectrum& s, double w) {
  const double w0 = s.w0[0];
  const double sigma = w <= w0 ? 0.07 : 0.09;
  const double d = w - w0;
  const double peak = ClippedExp(-(d * d) / (2.0 * sigma * sigma * w0 * w0));
  const double r = w0 / w;
  return s.alpha * s.g * s.g / (w * w * w * w * w) * ClippedExp(-1.25 * r * r * r * r) * std::pow(s.gamma, peak);
}

double OchiModeAt(const Spectrum& s, int mode, double w) {
  const double L = s.L[mode], H = s.H[mode], w0 = s.w0[mode];
  const double q = (4.0 * L + 1.0) / 4.0;
  const double r = w0 / w;
  return std::pow(q * w0 * w0 * w0 * w0, L) * H * H / (4.0 * std::tgamma(L) * std::pow(w, 4.0 * L + 1.0)) *
         ClippedExp(-q * r * r * r * r);
}

bool MakeOchi(const SeawayInput& in, Spectrum& s) {
  s.kind = SpectrumKind::ochi;
  s.H[0] = in.SIGWHT1, s.L[0] = in.SHAPE1, s.w0[0] = kTwoPi / in.TMODAL1;
  if (!(s.H[0] > 0) || !(in.TMODAL1 > 0) || !(s.L[0] > 0)) return false;
  if (!(in.SIGWHT2 > 0)) return true;
  s.modes = 2;
  s.H[1] = in.SIGWHT2, s.L[1] = in.SHAPE2, s.w0[1] = kTwoPi / in.TMODAL2;
  if (!(in.TMODAL2 > 0) || !(s.L[1] > 0)) return false;
  if (s.w0[1] < s.w0[0]) {
    std::swap(s.H[0], s.H[1]);
    std::swap(s.L[0], s.L[1]);
    std::swap(s.w0[0], s.w0[1]);
  }
  return true;
}

bool MakeBretschneider(const SeawayInput& in, double g, Spectrum& s) {
  const double H = in.SIGWHT;
  if (!(H > 0)) return false;
  double T = in.TMODAL;
  if (!(T > 0)) T = kTwoPi * std::sqrt(H * 2.236068 / (g * 0.36003873));  // the one-parameter spectrum of this height
  const double T4 = T * T * T * T;
  s.A = 486.0 * H * H / T4;
  s.B = 1948.2 / T4;
  s.H[0] = H, s.w0[0] = kTwoPi / T;
  return true;
}

bool MakeJonswap(const SeawayInput& in, double g, Spectrum& s) {
  s.kind = SpectrumKind::jonswap;
  s.gamma = in.PEAKPRM;
  if (!(s.gamma > 0)) return false;
  if (in.ISEA == 6) {
    if (!(in.VWIND10 > 0) || !(in.FETCH > 0)) return false;
    const double x = in.FETCH * g / (in.VWIND10 * in.VWIND10);
    s.w0[0] = 21.99115 * g / in.VWIND10 * std::pow(x, -0.33);
    s.alpha = 0.076 * std::pow(x, -0.22);
    return true;
  }
  if (!(in.SIGWHT > 0) || !(in.TOMODAL > 0)) return false;
  s.H[0] = in.SIGWHT;
  const double w0 = s.w0[0] = kTwoPi / in.TOMODAL;
  s.alpha = w0 * w0 * w0 * w0 * (s.H[0] * s.H[0] / (16.0 * g * g)) / (0.06533 * std::pow(s.gamma, 0.8015) + 0.13467);
  return true;
}

bool OnePeak(const Spectrum& s) {
  return s.modes < 2 || s.w0[1] - s.w0[0] <= kSamePeak;
}
double HighestPeak(const Spectrum& s) {
  return s.w0[s.modes - 1];
}

// From `inside` (S above the cut) to `outside` (S at or below it): the outer point after the bisections.
double Bisect(const Spectrum& s, double cut, double inside, double outside) {
  for (int i = 0; i < kBisections; ++i) {
    const double middle = (inside + outside) / 2.0;
    (SpectrumAt(s, middle) <= cut ? outside : inside) = middle;
  }
  return outside;
}

// Goes on by `next` until S falls to the cut.
template <typename Next>
bool FindEnd(const Spectrum& s, double cut, double w, Next next, double& end) {
  if (SpectrumAt(s, w) <= cut) {
    end = w;
    return true;
  }
  for (int i = 0; i < kMostSteps; ++i) {
    const double further = next(w);
    if (SpectrumAt(s, further) <= cut) {
      end = Bisect(s, cut, w, further);
      return true;
    }
    w = further;
  }
  return false;
}

bool FindRange(const Spectrum& s, const FrequencyRequest& request, double& low, double& high) {
  low = request.freq1, high = request.freq2;
  const bool given = high > low && high > 0;
  if (given && low >= 0) return true;
  const double cutoff = request.cutoff > 0 ? request.cutoff : kDefaultCutoff;
  double most = 0;
  for (int mode = 0; mode < s.modes; ++mode) most = std::max(most, SpectrumAt(s, s.w0[mode]));
  const double cut = cutoff * most;
  const double step = 0.5 * HighestPeak(s);
  if (!FindEnd(
          s, cut, 0.7 * s.w0[0], [](double w) { return 0.8 * w; }, low))
    return false;
  if (!given && !FindEnd(
                    s, cut, 2.0 * HighestPeak(s), [step](double w) { return w + step; }, high))
    return false;
  return high > low;
}

// `count` gaps behind `from` that fill `total`, the last one `ratio` times the first. Appends the points.
void AppendGeometric(double from, double total, int count, double ratio, std::vector<double>& w) {
  const double q = count > 1 ? std::pow(ratio, 1.0 / (count - 1)) : 1.0;
  double sum = 0, gap = 1;
  for (int i = 0; i < count; ++i, gap *= q) sum += gap;
  gap = total / sum;
  double at = from;
  for (int i = 0; i < count; ++i, gap *= q) w.push_back(i + 1 == count ? from + total : at += gap);
}

// Between two peaks the gaps grow towards the middle.
void AppendBetween(double from, double total, int count, std::vector<double>& w) {
  const double q = std::pow(2.0, 1.0 / std::max(1, (count - 1) / 2));
  const auto gap = [count, q](int j) { return std::pow(q, std::min(j, count - 1 - j)); };
  double sum = 0;
  for (int j = 0; j < count; ++j) sum += gap(j);
  double at = from;
  for (int j = 0; j < count; ++j) w.push_back(j + 1 == count ? from + total : at += gap(j) * total / sum);
}

void LayEven(int n, double low, double high, double w0, std::vector<double>& w) {
  if (n == 1) {
    w.push_back(w0);
    return;
  }
  for (int i = 0; i < n; ++i) w.push_back(i + 1 == n ? high : low + i * (high - low) / (n - 1));
}

void LayClustered(const Spectrum& s, int n, double low, double high, Frequencies& out) {
  std::vector<double>& w = out.w;
  const bool one = OnePeak(s);
  const int above = one ? n / 2 : n / 3;
  const int between = one ? 0 : n / 3;
  const int below = n - above - between;  // the low end and the first peak among them
  w.push_back(low);
  AppendGeometric(low, s.w0[0] - low, below - 1, 1.0 / kBelowPeak, w);
  if (!one) AppendBetween(s.w0[0], s.w0[1] - s.w0[0], between, w);
  AppendGeometric(w.back(), high - w.back(), above, kAbovePeak, w);
  std::vector<int> peaks{below - 1};
  if (!one) peaks.push_back(below - 1 + between);
  for (const int peak : peaks) {
    const auto p = static_cast<std::size_t>(peak);
    out.sppt.push_back((w[p + 1] - w[p]) / (w[p] - w[p - 1]));
  }
}

}  // namespace

double ClippedExp(double x) {
  constexpr double kLimit = 30;
  if (x < -kLimit) return 0;
  return x > kLimit ? 1.0686474e+13 : std::exp(x);
}

bool MakeSpectrum(const SeawayInput& seaway, double g, Spectrum& spectrum) {
  spectrum = Spectrum{};
  spectrum.g = g;
  bool made = false;
  if (seaway.ISEA == 2) made = MakeBretschneider(seaway, g, spectrum);
  if (seaway.ISEA == 6 || seaway.ISEA == 8) made = MakeJonswap(seaway, g, spectrum);
  if (seaway.ISEA == 7) made = MakeOchi(seaway, spectrum);
  return made && spectrum.w0[0] > 0 && std::isfinite(HighestPeak(spectrum));
}

double SpectrumAt(const Spectrum& spectrum, double w) {
  if (!(w > 0)) return 0;
  switch (spectrum.kind) {
    case SpectrumKind::jonswap:
      return JonswapAt(spectrum, w);
    case SpectrumKind::ochi:
      return OchiModeAt(spectrum, 0, w) + (spectrum.modes > 1 ? OchiModeAt(spectrum, 1, w) : 0.0);
    case SpectrumKind::bretschneider:
      break;
  }
  const double w4 = w * w * w * w;
  return spectrum.A / (w4 * w) * ClippedExp(-spectrum.B / w4);
}

bool SPECTR(const Spectrum& spectrum, const FrequencyRequest& request, Frequencies& frequencies) {
  constexpr int kLeastClustered = 5;  // with fewer the spacing is even
  const int n = request.NFREQ;
  Frequencies out;
  double low = 0, high = 0;
  if (n < 1 || !Reserve(out.w, static_cast<std::size_t>(n)) || !Grow(out.S, static_cast<std::size_t>(n))) return false;
  if (!Grow(out.width, static_cast<std::size_t>(n)) || !FindRange(spectrum, request, low, high)) return false;
  const bool peaks_inside = low < spectrum.w0[0] && HighestPeak(spectrum) < high;
  const int least = OnePeak(spectrum) ? kLeastClustered : kLeastClustered + 1;
  if (request.even_spacing || n < least || !peaks_inside) LayEven(n, low, high, spectrum.w0[0], out.w);
  else LayClustered(spectrum, n, low, high, out);
  for (std::size_t i = 0; i < out.w.size(); ++i) out.S[i] = SpectrumAt(spectrum, out.w[i]);
  if (n == 1) out.width[0] = high - low;
  else FindWidths(out.w, out.width);
  frequencies = std::move(out);
  return true;
}

void FindWidths(const std::vector<double>& w, std::vector<double>& width) {
  const std::size_t n = w.size();
  if (n < 2) return;
  width.front() = w[1] - w[0];
  width.back() = w[n - 1] - w[n - 2];
  for (std::size_t i = 1; i + 1 < n; ++i) width[i] = (w[i + 1] - w[i - 1]) / 2.0;
}

}  // namespace zaview
