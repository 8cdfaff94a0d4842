#include "stats/ensemble_stats.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "stats/autocovariance.h"
#include "stats/dependence_time.h"
#include "stats/gauss_probability.h"

namespace zaview {

namespace {

constexpr float kNoMinimum = 1.0e20F;  // where the running extremes start
constexpr float kNoMaximum = -1.0e20F;
constexpr int kManyRecords = 30;

struct Weights {
  std::vector<float> w;
  int npmax = 0;
  float xme = 0;
  std::vector<float> xm;  // mean of each record
};

Weights WeightsOf(EnsembleRecords X) {
  Weights out;
  std::int64_t all = 0;
  for (const std::span<const float> x : X) {
    all += static_cast<std::int64_t>(x.size());
    out.npmax = std::max(out.npmax, static_cast<int>(x.size()));
  }
  if (all == 0) return out;
  for (const std::span<const float> x : X) {
    out.w.push_back(static_cast<float>(x.size()) / static_cast<float>(all));
    out.xm.push_back(MeanOf(x));
    out.xme += out.w.back() * out.xm.back();
  }
  return out;
}

struct Centres {  // x - xme of every record
  std::vector<std::vector<float>> values;
  std::vector<std::span<const float>> views;
};

Centres CentresOf(EnsembleRecords X, float xme) {
  Centres out;
  for (const std::span<const float> x : X) out.values.push_back(Centred(x, xme));
  out.views.assign(out.values.begin(), out.values.end());
  return out;
}

// sum of w^2 (each - average)^2: the spread between the records.
float Spread(std::span<const float> w, std::span<const float> each, float average) {
  float sum = 0.0F;
  for (std::size_t i = 0; i < w.size(); ++i) {
    const float d = each[i] - average;
    sum += (w[i] * w[i]) * (d * d);
  }
  return sum;
}

int RootOf(std::size_t np) {
  return static_cast<int>(std::sqrt(static_cast<float>(np)));
}

// Variance of an average from the dependence inside the records: lags averaged over them, where that turns negative
// the record's own, and at the worst its variance alone.
float DependentVariance(EnsembleRecords c, const Weights& weights) {
  const int m = RootOf(static_cast<std::size_t>(weights.npmax));
  const std::size_t lags = static_cast<std::size_t>(m);
  std::vector<float> Rx(c.size() * lags);
  EnsembleLagSums(c, 0, lags, Rx);
  std::vector<float> Rax(lags, 0.0F);
  for (std::size_t i = 0; i < c.size(); ++i) {
    if (c[i].empty()) continue;
    const float r = 1.0F / static_cast<float>(c[i].size());
    for (std::size_t k = 0; k < lags; ++k) {
      float& R = Rx[i * lags + k];
      R = r * R;
      Rax[k] += weights.w[i] * R;
    }
  }
  float sum = 0.0F;
  for (std::size_t i = 0; i < c.size(); ++i) {
    if (c[i].empty()) continue;
    const int n = static_cast<int>(c[i].size());
    const std::span<const float> own = std::span(Rx).subspan(i * lags, lags);
    float V = BartlettVariance(Rax, n, m);
    if (V < 0.0F) V = BartlettVariance(own, n, RootOf(c[i].size()));
    if (V < 0.0F) V = own[0] / static_cast<float>(n);
    sum += (weights.w[i] * weights.w[i]) * V;
  }
  return sum;
}

void Extremes(EnsembleRecords X, EnsembleStats& out) {
  out.xmin = kNoMinimum;
  out.xmax = kNoMaximum;
  for (const std::span<const float> x : X) {
    for (const float v : x) {
      out.xmin = v < out.xmin ? v : out.xmin;
      out.xmax = v > out.xmax ? v : out.xmax;
    }
  }
}

void Variances(const Weights& weights, const Centres& centres, EnsembleStats& out) {
  for (std::size_t i = 0; i < centres.values.size(); ++i) {
    const std::vector<float>& c = centres.values[i];
    float squares = 0.0F;
    for (const float d : c) squares += d * d;
    out.xv.push_back(c.size() < 2 ? 0.0F : squares / static_cast<float>(c.size() - 1));
    out.xve += weights.w[i] * out.xv[i];
  }
  if (out.xve > 0.0F) out.xse = std::sqrt(out.xve);
}

}  // namespace

EnsembleScheme SchemeOf(int nmany, int nr) {
  if (nmany == 0) return EnsembleScheme::small;
  if (nmany == 1) return EnsembleScheme::large;
  return nr < (nmany < 0 ? kManyRecords : nmany) ? EnsembleScheme::small : EnsembleScheme::large;
}

StatFault CalcEnsembleStats(int iopt, EnsembleRecords X, float prob, int nmany, EnsembleStats& out) {
  out = EnsembleStats{};
  const StatFault faults = StatFaults(iopt, prob);
  if (faults != StatFault::none) return faults;
  const Weights weights = WeightsOf(X);
  if (weights.npmax == 0) return faults;
  float probCoef = 0.0F;
  if (iopt != kNoHalfWidths) (void)getGaussPDFka(prob, probCoef);

  out.xme = weights.xme;
  out.xm = weights.xm;
  Extremes(X, out);
  Centres centres = CentresOf(X, weights.xme);
  if (iopt != kMeanHalfWidth) Variances(weights, centres, out);
  if (iopt == kNoHalfWidths) return faults;

  const bool large = SchemeOf(nmany, static_cast<int>(X.size())) == EnsembleScheme::large;
  out.VarMe = large ? Spread(weights.w, out.xm, out.xme) : DependentVariance(centres.views, weights);
  out.xmeci = std::sqrt(out.VarMe) * probCoef;
  if (iopt == kMeanHalfWidth) return faults;

  if (large) {
    out.VarVe = Spread(weights.w, out.xv, out.xve);
  } else {
    for (std::vector<float>& c : centres.values) {  // (x - xme)^2 - xve take the place of x - xme
      for (float& d : c) d = d * d - out.xve;
    }
    out.VarVe = DependentVariance(centres.views, weights);
  }
  out.xveci = std::sqrt(out.VarVe) * probCoef;
  out.VarSe = out.xve > 0.0F ? (0.25F * out.VarVe) / out.xve : 0.0F;
  out.xseci = std::sqrt(out.VarSe) * probCoef;
  return faults;
}

StatFault CalcEnsemblePeakStats(std::span<const int> N, int iopt, EnsembleRecords X, float prob,
                                std::span<RecordPeakStats> out) {
  std::fill(out.begin(), out.end(), RecordPeakStats{});
  const StatFault faults = PeakFaults(N, iopt, prob);
  if (faults != StatFault::none) return faults;
  const Weights weights = WeightsOf(X);
  if (weights.npmax == 0) return faults;
  float probCoef = 0.0F;
  if (iopt == kPeakHalfWidths) (void)getGaussPDFka(prob, probCoef);
  Peaks peaks;
  GetPeaks(X, weights.xme, peaks);
  Dependence dependence;
  if (NeedsDependence(N, iopt, peaks))
    EnsembleDependence(CentresOf(X, weights.xme).views, weights.w, kPeakCutoff, dependence);
  AveragePeaks(N, iopt, peaks, dependence.ndti, probCoef, out);
  return faults;
}

void CalcEnsembleAutoCov(EnsembleRecords X, float cutoff, bool whole, EnsembleAutoCov& out) {
  out = EnsembleAutoCov{};
  const Weights weights = WeightsOf(X);
  if (weights.npmax == 0) return;
  const Centres centres = CentresOf(X, weights.xme);
  Dependence dependence;
  if (whole) {
    std::vector<float> Rax(static_cast<std::size_t>(weights.npmax) / 2 + 1);
    AverageLags(centres.views, weights.w, 0, Rax);
    EnvelopePoints(Rax, out.env_lag, out.env_R);
    EnvelopeRule(Rax, cutoff, dependence);
    out.Rax0 = Rax[0];
    for (float& R : Rax) R = out.Rax0 == 0.0F ? 0.0F : R / out.Rax0;
    out.ratio = std::move(Rax);
  } else {
    EnsembleDependence(centres.views, weights.w, cutoff, dependence);
  }
  out.reached = dependence.reached;
  if (!out.reached) return;  // both stay 0, while the peak statistics take half of a record
  out.ndti = dependence.ndti;
  out.lag = dependence.lag;
}

}  // namespace zaview
