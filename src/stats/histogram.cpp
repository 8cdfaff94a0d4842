#include "stats/histogram.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "base/axis_rounding.h"
#include "base/grow.h"
#include "stats/distributions.h"

namespace zaview {

namespace {

constexpr float kDivisions = 20.0F;  // of the automatic bucket range

struct Sampled {  // which samples are taken, and as what
  EnsembleRecords X;
  std::size_t rate = 1, skip = 0;
  bool absolute = false;
};

// take(v) for every sampled value, in order.
template <typename Take>
void ForEach(const Sampled& from, const Take& take) {
  for (const std::span<const float> x : from.X) {
    // Sample i (from 0) has position skip + i + 1.
    const std::size_t start = from.rate - 1 - from.skip % from.rate;
    for (std::size_t i = start; i < x.size(); i += from.rate) take(from.absolute ? std::abs(x[i]) : x[i]);
  }
}

RoundAxis BucketRange(const HistogramRequest& request, EnsembleRecords X) {
  if (request.upper > request.lower) return {request.lower, 0.0F, request.upper};
  float min = INFINITY;
  float max = -INFINITY;
  for (const std::span<const float> x : X) {
    for (const float v : x) {
      min = v < min ? v : min;
      max = v > max ? v : max;
    }
  }
  if (min > max) min = max = 0.0F;  // nothing but NaN
  float lo = min;
  float hi = max;
  if (request.data == HistogramData::absolute) {
    lo = std::max(0.0F, std::max(min, -max));
    hi = std::max(0.0F, std::max(-min, max));
  } else if (request.data == HistogramData::positive) {
    lo = std::max(0.0F, min);
  }
  return dgRoundAxis(lo, hi, 1.0F, kDivisions);
}

// The first bucket j with v <= edges(j + 1): guessed, then corrected against the edges.
std::size_t BucketOf(float v, std::span<const float> edges, float per_unit) {
  const std::size_t last = edges.size() - 2;
  const float guess = (v - edges[0]) * per_unit;
  std::size_t j = last;
  if (guess < static_cast<float>(last)) j = static_cast<std::size_t>(guess > 0.0F ? guess : 0.0F);
  while (j > 0 && v <= edges[j]) --j;
  while (j < last && v > edges[j + 1]) ++j;
  return j;
}

void Count(const Sampled& from, Histogram& out) {
  const float lower = out.edges.front();
  const float upper = out.edges.back();
  const float per_unit = static_cast<float>(out.count.size()) / (upper - lower);
  std::array<int, kMostBuckets> points{};  // as integers: a real stops counting at 2^24
  ForEach(from, [&](float v) {
    ++out.npts;
    if (lower <= v && v <= upper) ++points[BucketOf(v, out.edges, per_unit)];
  });
  for (std::size_t j = 0; j < out.rawcount.size(); ++j) out.rawcount[j] = static_cast<float>(points[j]);
}

Moments MomentsOf(const Sampled& from, float npts) {
  Moments m;
  float sum = 0.0F;
  ForEach(from, [&](float v) { sum += v; });
  m.mean = sum / npts;
  float sum2 = 0.0F;
  float sum3 = 0.0F;
  float sum4 = 0.0F;
  ForEach(from, [&](float v) {
    const float d = v - m.mean;
    const float d2 = d * d;
    sum2 += d2;
    sum3 += d2 * d;
    sum4 += d2 * d2;
  });
  m.variance = sum2 / npts;
  if (!(m.variance > 0.0F)) return m;
  m.skew = (sum3 / npts) / (m.variance * std::sqrt(m.variance));
  m.excess = (sum4 / npts) / (m.variance * m.variance) - 3.0F;
  return m;
}

float DensityAt(float x, Overlay overlay, const Moments& m, const Histogram& h) {
  switch (overlay) {
    case Overlay::none:
      break;
    case Overlay::uniform:
      return UniformDensity(h.edges.front(), h.edges.back());
    case Overlay::normal:
      return NormalDensity(x, m);
    case Overlay::gramm_charlier:
      return GrammCharlierDensity(x, m);
    case Overlay::rayleigh:
      return RayleighDensity(x, m);
    case Overlay::exponential:
      return ExponentialDensity(x, h.lambda);
  }
  return 0.0F;
}

void FitOverlay(const HistogramRequest& request, const Sampled& from, Histogram& out) {
  for (std::size_t j = 0; j < out.mid.size(); ++j) out.mid[j] = (out.edges[j] + out.edges[j + 1]) / 2.0F;
  if (out.npts == 0) return;
  const float npts = static_cast<float>(out.npts);
  Moments m;
  if (request.overlay != Overlay::uniform) {
    m = MomentsOf(from, npts);
    out.mean = m.mean;
    out.variance = m.variance;
    if (!(m.variance > 0.0F)) return;  // no distribution has that shape
    out.skew = m.skew;
    out.excess = m.excess;
    out.lambda = ExponentialRate(m);
  }
  for (std::size_t j = 0; j < out.mid.size(); ++j) {
    const float e = (out.edges[j + 1] - out.edges[j]) * DensityAt(out.mid[j], request.overlay, m, out);
    out.expected[j] = request.counts ? e * npts : e;
    if (!(e > 0.0F)) continue;
    const float d = out.rawcount[j] / npts - e;
    out.chi2 += (d * d) / e;
  }
}

}  // namespace

bool SetHistogramData(const HistogramRequest& request, EnsembleRecords X, int skip, Histogram& out) {
  out = Histogram{};
  if (std::all_of(X.begin(), X.end(), [](std::span<const float> x) { return x.empty(); })) return false;
  const std::size_t nbuckets = static_cast<std::size_t>(std::clamp(request.nbuckets, 1, kMostBuckets));
  const bool fits = Grow(out.edges, nbuckets + 1) && Grow(out.count, nbuckets) && Grow(out.rawcount, nbuckets);
  if (!fits) return false;
  const bool overlaid = request.overlay != Overlay::none;
  if (overlaid && !(Grow(out.mid, nbuckets) && Grow(out.expected, nbuckets))) return false;

  const RoundAxis range = BucketRange(request, X);
  const float width = (range.high - range.low) / static_cast<float>(nbuckets);
  for (std::size_t i = 0; i <= nbuckets; ++i) out.edges[i] = range.low + static_cast<float>(i) * width;

  const Sampled from{X, static_cast<std::size_t>(std::max(request.rate, 1)),
                     static_cast<std::size_t>(std::max(skip, 0)), request.data == HistogramData::absolute};
  Count(from, out);
  const float npts = static_cast<float>(std::max(out.npts, 1));
  for (std::size_t j = 0; j < nbuckets; ++j) out.count[j] = request.counts ? out.rawcount[j] : out.rawcount[j] / npts;
  if (overlaid) FitOverlay(request, from, out);
  return true;
}

}  // namespace zaview
