#include "stats/record_stats.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>

#include <fmt/format.h>

#include "base/number_format.h"
#include "stats/autocovariance.h"
#include "stats/gauss_probability.h"

namespace zaview {

namespace {

constexpr float kNoMinimum = 1.0e20F;  // where the running extremes start
constexpr float kNoMaximum = -1.0e20F;

// (x - xm)^2 - xv, whose serial dependence widens the interval of the variance.
std::vector<float> CentredSquares(std::span<const float> c, float xv) {
  std::vector<float> y(c.size());
  std::transform(c.begin(), c.end(), y.begin(), [xv](float d) { return d * d - xv; });
  return y;
}

float VarianceOfMean(std::span<const float> c, int m, RecordStatsTrace* trace) {
  const int np = static_cast<int>(c.size());
  const int last = trace != nullptr ? std::max(m, np / 2) : m - 1;
  std::vector<float> Rx;
  RecordLags(c, last, Rx);
  float VarM = BartlettVariance(Rx, np, m);
  if (!(VarM > 0.0F) && VarM == VarM) VarM = Rx[0] / static_cast<float>(np);
  if (trace != nullptr) trace->Rx = std::move(Rx);
  return VarM;
}

float VarianceOfVariance(std::span<const float> c, float xv, int m) {
  const int np = static_cast<int>(c.size());
  const float r = 1.0F / static_cast<float>(np);
  const std::vector<float> y = CentredSquares(c, xv);
  std::vector<float> Ry(static_cast<std::size_t>(m));
  LagSums(y, 0, Ry);
  Ry[0] = Ry[0] / static_cast<float>(np);
  for (std::size_t k = 1; k < Ry.size(); ++k) Ry[k] = r * Ry[k];
  float VarV = BartlettVariance(Ry, np, m);
  // Deliberate: falls back only below 0, while the variance of the mean does so at 0 already.
  if (VarV < 0.0F) VarV = Ry[0] / static_cast<float>(np);
  return VarV;
}

}  // namespace

StatFault StatFaults(int iopt, float prob) {
  StatFault faults = StatFault::none;
  if (iopt < kAllHalfWidths || iopt > kNoHalfWidths) faults = faults | StatFault::option;
  if (iopt == 0 || iopt == 4) faults = faults | StatFault::option_peaks;
  if (!(prob > 0.0F && prob < 1.0F)) faults = faults | StatFault::probability;
  return faults;
}

std::vector<std::string> StatFaultLines(StatFault faults, std::string_view routine, int N, int iopt, float prob) {
  std::vector<std::string> lines;
  if (Has(faults, StatFault::peak_frequency))
    lines.push_back(fmt::format("ERROR in {}: invalid peak frequency= {}", routine, N));
  if (Has(faults, StatFault::option))
    lines.push_back(fmt::format("ERROR in {}: invalid statistics option= {}", routine, iopt));
  if (Has(faults, StatFault::option_peaks))
    lines.emplace_back("Peak statistics now calculated in CalcRecordPeakStats()");
  if (Has(faults, StatFault::probability))
    lines.push_back(fmt::format("ERROR in {}: invalid confidence probability = {}", routine, Shown{prob}));
  return lines;
}

// What is not a number is no extreme.
RecordStats MeanAndExtremes(std::span<const float> x) {
  float sum = 0.0F, xmin = kNoMinimum, xmax = kNoMaximum;
  for (const float v : x) {
    sum += v;
    xmin = v < xmin ? v : xmin;
    xmax = v > xmax ? v : xmax;
  }
  RecordStats out;
  out.xm = sum / static_cast<float>(x.size());
  out.xmin = xmin;
  out.xmax = xmax;
  return out;
}

float VarianceAbout(float xm, std::span<const float> x) {
  float squares = 0.0F;
  for (const float v : x) squares += (v - xm) * (v - xm);
  return squares / static_cast<float>(static_cast<int>(x.size()) - 1);
}

float MeanOf(std::span<const float> x) {
  if (x.empty()) return 0.0F;
  return std::accumulate(x.begin(), x.end(), 0.0F) / static_cast<float>(x.size());
}

float BartlettVariance(std::span<const float> R, int np, int m) {
  const float two_over_np = 2.0F / static_cast<float>(np);
  float sum = R[0] / static_cast<float>(np);
  for (int k = 1; k < m; ++k)
    sum += ((1.0F - static_cast<float>(k) / static_cast<float>(m)) * two_over_np) * R[static_cast<std::size_t>(k)];
  return sum;
}

StatFault CalcRecordStats(int iopt, std::span<const float> x, float prob, RecordStats& out, RecordStatsTrace* trace) {
  out = RecordStats{};
  const StatFault faults = StatFaults(iopt, prob);
  if (faults != StatFault::none || x.empty()) return faults;
  const int np = static_cast<int>(x.size());
  float probCoef = 0.0F;
  if (iopt != kNoHalfWidths) (void)getGaussPDFka(prob, probCoef);

  out = MeanAndExtremes(x);
  if (iopt != kMeanHalfWidth) {
    out.xv = VarianceAbout(out.xm, x);
    if (out.xv > 0.0F) out.xs = std::sqrt(out.xv);
  }
  if (iopt == kNoHalfWidths) return faults;

  const std::vector<float> c = Centred(x, out.xm);
  const int m = static_cast<int>(std::sqrt(static_cast<float>(np)));
  out.xmci = std::sqrt(VarianceOfMean(c, m, trace)) * probCoef;
  float VarS = 0.0F;
  if (iopt == kAllHalfWidths) {
    const float VarV = VarianceOfVariance(c, out.xv, m);
    out.xvci = std::sqrt(VarV) * probCoef;
    VarS = out.xv > 0.0F ? (0.25F * VarV) / out.xv : 0.0F;
    out.xsci = std::sqrt(VarS) * probCoef;
  }
  if (trace != nullptr) {
    trace->probCoef = probCoef;
    trace->m = m;
    trace->VarS = VarS;
  }
  return faults;
}

}  // namespace zaview
