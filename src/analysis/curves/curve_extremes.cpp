#include "analysis/curves/curve_extremes.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

#include "analysis/curves/curve_stretches.h"
#include "stats/autocovariance.h"
#include "stats/dependence_time.h"
#include "stats/gauss_probability.h"
#include "stats/peaks.h"

namespace zaview {
namespace {

constexpr std::string_view kTooManySkipped = "ERR495 - Too many steps skipped or trimmed in analysis of extremes";
constexpr std::string_view kFewPeaks = "not fitted: {} peaks, at least {} are needed";
constexpr std::string_view kFewBlocks = "not fitted: {} blocks, at least {} are needed";
constexpr std::string_view kAlike = "not fitted: all {} values are alike";
constexpr std::string_view kUnknown = "not fitted: the record is too short for {} blocks of {} dependence times";

constexpr double kSecondsAnHour = 3600;
constexpr int kBlockDependence = 3;   // dependence times in a block
constexpr double kBlockPeaks = 8;     // peaks in a block
constexpr double kMostBlocks = 24;    // longer blocks rather than more: their extremes are nearer to the limit
constexpr double kFittedPeaks = 0.5;  // the highest
constexpr double kPeakLags = 2;       // Bartlett's weights fall to 0 at so many dependence times
// Below it the autocorrelation of a record of some hundred cycles can't be told from none.
constexpr float kLeastCutoff = 0.2F;
constexpr std::size_t kFirstLags = 256;

struct Record {  // what the fits are made from
  std::vector<CurveStretch> stretches;
  std::vector<std::span<const float>> samples;
  double mean = 0, time = 0, count = 0;
  double dt = 0;
};

void TakeStretches(const StatWork& work, Record& record) {
  AppendLoadedStretches(work, record.stretches);
  record.samples = SamplesOf(record.stretches);
  record.mean = MeanOf(record.stretches);
  record.time = TimeOf(record.stretches);
  for (const auto& x : record.samples) record.count += static_cast<double>(x.size());
  const double steps = record.count - static_cast<double>(record.stretches.size());
  record.dt = steps > 0 ? record.time / steps : 0;
}

std::vector<std::vector<float>> CentredOf(const Record& record) {
  std::vector<std::vector<float>> centred;
  for (const auto& x : record.samples) centred.push_back(Centred(x, static_cast<float>(record.mean)));
  return centred;
}

// Looked for as far as it is of use: dependence beyond leaves no blocks.
void FindDependence(const Record& record, BlockDependence& found) {
  const std::vector<std::vector<float>> values = CentredOf(record);
  const std::vector<std::span<const float>> centred(values.begin(), values.end());
  std::vector<float> weights, R;
  std::size_t longest = 0;
  for (const auto& x : centred) {
    weights.push_back(static_cast<float>(static_cast<double>(x.size()) / record.count));
    longest = std::max(longest, x.size());
  }
  const auto useful = static_cast<std::size_t>(record.count) / (kFewestBlocks * kBlockDependence);
  const std::size_t most = std::min(longest / 2, useful) + 2;  // an extreme of R has neighbours
  Dependence dependence;
  for (std::size_t lags = std::min(kFirstLags, most);; lags = std::min(2 * lags, most)) {
    const std::size_t made = R.size();
    R.resize(lags);
    AverageLags(centred, weights, static_cast<int>(made), std::span(R).subspan(made));
    EnvelopeRule(R, found.cutoff, dependence);
    if (dependence.reached || lags == most) break;
  }
  found.known = dependence.reached;
  found.steps = dependence.reached ? static_cast<double>(dependence.lag) : static_cast<double>(most);
  found.time = found.steps * record.dt;
}

// Distances of the peaks from the mean.
void TakeHeights(const Record& record, const PeakList& peaks, std::vector<float>& heights) {
  const auto mean = static_cast<float>(record.mean);
  for (std::size_t i = 0; i < peaks.value.size(); ++i) {
    const auto& x = record.samples[static_cast<std::size_t>(peaks.record[i]) - 1];
    heights.push_back(std::abs(x[static_cast<std::size_t>(peaks.step[i]) - 1] - mean));
  }
}

// Minima are turned round, so that the largest is what is looked for.
void TurnRound(std::vector<float>& values) {
  for (float& value : values) value = -value;
}

void OfTheCurve(const Record& record, ExtremeFit& fit) {
  for (Estimate* estimate : {&fit.most_probable, &fit.quantile}) {
    for (double* value : {&estimate->value, &estimate->low, &estimate->high})
      *value = CurveValue(fit, *value, record.mean);
    if (fit.of_minima) std::swap(estimate->low, estimate->high);
  }
}

// ---- Peaks

void FitPeaks(const Record& record, const BlockDependence& dependence, const PeakList& peaks, double time, MaximumOf of,
              ExtremeFit& fit) {
  TakeHeights(record, peaks, fit.values);
  const double peaks_a_step = static_cast<double>(fit.values.size()) / record.count;
  const double lags = std::ceil(kPeakLags * dependence.steps * peaks_a_step);
  const FitFault fault = FitWeibull(fit.values, peaks.record, {kFittedPeaks, static_cast<int>(lags)}, fit.weibull);
  if (fault == FitFault::few_values)
    fit.refused = fmt::format(fmt::runtime(kFewPeaks), fit.weibull.n, kFewestPeaks / kFittedPeaks);
  if (fault == FitFault::no_spread) fit.refused = fmt::format(fmt::runtime(kAlike), fit.weibull.n);
  std::erase_if(fit.values, [](float height) { return !(height > 0.0F); });
  std::sort(fit.values.begin(), fit.values.end());
  if (!fit.refused.empty()) return;
  fit.expected = of.n = time / record.time * fit.weibull.n;
  fit.most_probable = MostProbableMaximum(fit.weibull, of);
  fit.quantile = QuantileOfMaximum(fit.weibull, of);
  OfTheCurve(record, fit);
}

// ---- Blocks

struct Blocks {
  std::vector<float> maxima, minima;
  double time = 0;  // of one
  int fewest = kFewestBlocks;
  bool known = true;
};

// A record each.
void TakeRecords(const Record& record, Blocks& blocks) {
  blocks.fewest = kFewestRecords;
  int last = 0;
  for (const CurveStretch& stretch : record.stretches) {
    const auto [low, high] = std::minmax_element(stretch.x.begin(), stretch.x.end());
    if (stretch.record != last) {
      blocks.minima.push_back(*low);
      blocks.maxima.push_back(*high);
    }
    blocks.minima.back() = std::min(blocks.minima.back(), *low);
    blocks.maxima.back() = std::max(blocks.maxima.back(), *high);
    last = stretch.record;
  }
  if (!blocks.maxima.empty()) blocks.time = record.count * record.dt / static_cast<double>(blocks.maxima.size());
}

Blocks TakeBlocks(const Record& record, int records, const BlockDependence& dependence, const Peaks& peaks) {
  Blocks blocks;
  if (records >= kFewestRecords) {
    TakeRecords(record, blocks);
    return blocks;
  }
  blocks.known = dependence.known;
  const std::size_t of_one_side = std::min(peaks.top.value.size(), peaks.bottom.value.size());
  if (!blocks.known || of_one_side == 0) return blocks;
  const double length = std::max({kBlockDependence * dependence.steps, record.count / kMostBlocks,
                                  kBlockPeaks * record.count / static_cast<double>(of_one_side)});
  std::int64_t used = 0;
  BlockMaxima(record.samples, static_cast<std::int64_t>(std::ceil(length)), blocks.maxima, blocks.minima, used);
  if (used > 0) blocks.time = static_cast<double>(used) * record.dt / static_cast<double>(blocks.maxima.size());
  return blocks;
}

void FitBlocks(const Record& record, const Blocks& blocks, double time, MaximumOf of, ExtremeFit& fit) {
  fit.values = fit.of_minima ? blocks.minima : blocks.maxima;
  if (fit.of_minima) TurnRound(fit.values);
  const FitFault fault = FitGumbel(fit.values, blocks.fewest, fit.gumbel);
  if (!blocks.known) fit.refused = fmt::format(fmt::runtime(kUnknown), kFewestBlocks, kBlockDependence);
  else if (fault == FitFault::few_values)
    fit.refused = fmt::format(fmt::runtime(kFewBlocks), fit.gumbel.n, blocks.fewest);
  else if (fault == FitFault::no_spread) fit.refused = fmt::format(fmt::runtime(kAlike), fit.gumbel.n);
  std::sort(fit.values.begin(), fit.values.end());
  if (!fit.refused.empty()) return;
  fit.expected = of.n = time / blocks.time;
  fit.most_probable = MostProbableMaximum(fit.gumbel, of);
  fit.quantile = QuantileOfMaximum(fit.gumbel, of);
  OfTheCurve(record, fit);
}

}  // namespace

DataFault FindExtremes(const StatWork& work, const QuantityRequest& request, CurveExtremes& extremes) {
  extremes = CurveExtremes{};
  if (const DataFault fault = LoadEnsemble(work, request, kTooManySkipped); fault != DataFault::none) return fault;
  Record record;
  TakeStretches(work, record);
  extremes.records = work.cases.count();
  extremes.mean = record.mean;
  extremes.total_time = record.time;
  Peaks peaks;
  GetPeaks(record.samples, static_cast<float>(record.mean), peaks);
  extremes.dependence.cutoff = std::max(kLeastCutoff, work.settings.statistics.autocorrelation_cutoff);
  FindDependence(record, extremes.dependence);
  const Blocks blocks = TakeBlocks(record, extremes.records, extremes.dependence, peaks);
  extremes.block_time = blocks.time;
  const StatisticSettings& settings = work.settings.statistics;
  float ka = 0;
  (void)getGaussPDFka(settings.confidence_probability, ka);
  const double time = static_cast<double>(settings.extreme_hours) * kSecondsAnHour;
  const MaximumOf of{0, static_cast<double>(settings.extreme_quantile), static_cast<double>(ka)};
  for (std::size_t i = 0; i < extremes.fits.size(); ++i) {
    ExtremeFit& fit = extremes.fits[i];
    fit.kind = i % 2 == 0 ? ExtremeFitKind::weibull : ExtremeFitKind::gumbel;
    fit.of_minima = i >= 2;
    if (fit.kind == ExtremeFitKind::gumbel) FitBlocks(record, blocks, time, of, fit);
    else FitPeaks(record, extremes.dependence, fit.of_minima ? peaks.bottom : peaks.top, time, of, fit);
  }
  return DataFault::none;
}

double PositionOf(const ExtremeFit& fit, std::size_t i) {
  const std::size_t n = fit.values.size();
  return fit.kind == ExtremeFitKind::weibull ? PeakPosition(i + 1, n) : BlockPosition(i + 1, n);
}

double ReducedOf(const ExtremeFit& fit, double probability) {
  return fit.kind == ExtremeFitKind::weibull ? WeibullReduced(probability) : GumbelReduced(probability);
}

double FittedValue(const ExtremeFit& fit, double reduced) {
  if (fit.kind == ExtremeFitKind::gumbel) return fit.gumbel.location + fit.gumbel.scale * reduced;
  return fit.weibull.scale * std::exp(reduced / fit.weibull.shape);
}

double CurveValue(const ExtremeFit& fit, double value, double mean) {
  const double turned = fit.of_minima ? -value : value;
  return fit.kind == ExtremeFitKind::weibull ? mean + turned : turned;
}

}  // namespace zaview
