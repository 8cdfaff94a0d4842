#include "stats/block_bootstrap.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>

#include "base/side_by_side.h"
#include "stats/autocovariance.h"
#include "stats/dependence_time.h"
#include "stats/peak_stats.h"

namespace zaview {

namespace {

constexpr double kBlockLength = 1.25;                        // in dependence times
constexpr double kFewestBlocks = 25;                         // a block is no longer than this part of all time
constexpr std::size_t kShortestBlock = 4;                    // samples
constexpr std::size_t kStartsPerBlock = 16;                  // of the blocks in which the records themselves are seen
constexpr double kShortRecords = 0.3;                        // of an error, times N, for each dependence time
constexpr double kTimesForHighest = 2.5;                     // dependence times for each N of the highest 1/N
constexpr double kMostLedOn = 0.6;                           // of a variance, from shorter to long blocks
constexpr std::size_t kFadingLength = 2, kFadingStarts = 8;  // of blocks that fade, in blocks; starts in a block
constexpr std::size_t kResamplesAtOnce = 8;
constexpr std::size_t kFirstLags = 256;  // of the correlation; each further look doubles them
constexpr std::size_t kMean = kBlockEstimates;

double Square(double x) {
  return x * x;
}

// ---- The records themselves

// From overlapping blocks all over the records.
BlockEstimate EstimateRecords(const Bootstrap& b, std::size_t length, BlockWorkspace& work) {
  const std::size_t step = std::max<std::size_t>(1, length / kStartsPerBlock);
  work.blocks.clear();
  for (std::size_t first = 0; first < b.records.samples(); first += step)
    work.blocks.push_back(BlockAt(b.records, first, length));
  BlockEstimate out;
  EstimateBlocks(b.records, b.request.N, b.request.peaks, work.blocks, work, out);
  const double seen = static_cast<double>(work.blocks.size());
  const double apart = static_cast<double>(b.records.samples()) / static_cast<double>(length);
  for (double& error : out.error) error *= std::sqrt(seen / (apart - 1));
  return out;
}

void LeadOn(const BlockEstimate& half, BlockEstimate& whole) {
  for (std::size_t i = 0; i < kBlockEstimates; ++i)
    whole.error[i] *= std::sqrt(1 + std::clamp(1 - Square(half.error[i] / whole.error[i]), 0.0, kMostLedOn));
}

// The mean square of blocks that fade in and out, over the squares of their weights: n times the variance of the mean
// of n samples, if n is large.
double FadingSpread(std::span<const std::vector<float>> centred, std::size_t length, std::size_t step) {
  std::vector<double> weight(length);
  double squares = 0;
  for (std::size_t i = 0; i < length; ++i) {
    const double sine = std::sin(std::numbers::pi * (static_cast<double>(i) + 0.5) / static_cast<double>(length));
    weight[i] = Square(Square(sine));
    squares += Square(weight[i]);
  }
  double spread = 0, count = 0;
  for (const std::vector<float>& c : centred) {
    for (std::size_t first = 0; first + length <= c.size(); first += step, ++count) {
      double sum = 0;
      for (std::size_t i = 0; i < length; ++i) sum += weight[i] * static_cast<double>(c[first + i]);
      spread += sum * sum / squares;
    }
  }
  return count > 0 ? spread / count : 0.0;
}

double PlainSpread(const BlockRecords& records, std::size_t length, std::size_t step) {
  double spread = 0, count = 0;
  for (std::size_t r = 0; r < records.records(); ++r)
    for (std::size_t first = records.start[r]; first + length <= records.start[r + 1]; first += step, ++count)
      spread += Square(records.sum[first + length] - records.sum[first]);
  return count > 0 ? spread / count : 0.0;
}

double MeanError(const Bootstrap& b, std::span<const std::vector<float>> centred, std::size_t shortest) {
  const std::size_t fading = std::min(kFadingLength * b.length, shortest);
  const std::size_t step = std::max<std::size_t>(1, b.length / kFadingStarts);
  const double spread = FadingSpread(centred, fading, step);
  const double ends = std::max(0.0, PlainSpread(b.records, b.length, step) - static_cast<double>(b.length) * spread);
  const double n = static_cast<double>(b.records.samples());
  const double apart = std::max(2.0, 1.5 * n / static_cast<double>(fading));  // of fading blocks; one went to the mean
  return std::sqrt(spread / n / (1 - 1 / apart) + ends * static_cast<double>(b.records.records()) / Square(n));
}

// Errors of short records come out too small, most of all of what few peaks tell; by how much was found with known seas
// (docs/intervals.md).
double ShortRecordFactor(const Bootstrap& b, int N) {
  return 1 + kShortRecords * static_cast<double>(std::max(N, 3)) / b.dependence_times;
}

void AllowForLength(Bootstrap& b) {
  for (std::size_t i = 0; i < kBlockEstimates; ++i)
    b.estimate.error[i] *= ShortRecordFactor(b, i < kFirstHighest[1] ? 3 : b.request.N);
  b.mean_error *= ShortRecordFactor(b, 3);
}

// The first lag at which the correlation is at or below the cut-off. Where it falls without swinging, as that of noise
// does, the envelope has no points that say so.
std::size_t FirstFall(std::span<const std::span<const float>> centred, std::span<const float> share, std::size_t most) {
  std::vector<float> R;
  for (std::size_t made = 0; made < most;) {
    const std::size_t until = std::min(most, std::max(kFirstLags, 2 * made));
    R.resize(until);
    AverageLags(centred, share, static_cast<int>(made), std::span(R).subspan(made));
    for (std::size_t k = std::max<std::size_t>(made, 1); k < until; ++k)
      if (R[k] <= kPeakCutoff * R[0]) return k;
    made = until;
  }
  return most;
}

// Where the correlation outlasts half of a record, still the records know nothing of each other.
void TakeWholeRecords(const std::vector<std::vector<float>>& centred, Bootstrap& b) {
  std::size_t longest = 0;
  for (const std::vector<float>& c : centred) longest = std::max(longest, c.size());
  b.dependence_times = static_cast<double>(b.records.samples()) / static_cast<double>(longest);
  b.length = longest;
}

void FindDependence(const std::vector<std::vector<float>>& centred, Bootstrap& b) {
  const double n = static_cast<double>(b.records.samples());
  std::vector<std::span<const float>> spans(centred.begin(), centred.end());
  std::vector<float> share;
  for (const std::vector<float>& c : centred) share.push_back(static_cast<float>(static_cast<double>(c.size()) / n));
  Dependence dependence;
  EnsembleDependence(spans, share, kPeakCutoff, dependence);
  if (!dependence.reached) return TakeWholeRecords(centred, b);
  const std::size_t fall = FirstFall(spans, share, b.records.samples() / 2);
  const double steps = std::max(static_cast<double>(fall), static_cast<double>(dependence.ndti));
  const double length = kBlockLength * steps;
  b.dependence_times = n / steps;
  const double longest = std::max(static_cast<double>(kShortestBlock), n / kFewestBlocks);
  b.length = static_cast<std::size_t>(std::clamp(length, static_cast<double>(kShortestBlock), longest));
}

// ---- Resamples

void MakeResample(Bootstrap& b, std::size_t which, BlockWorkspace& work) {
  RandomStream random(static_cast<std::uint64_t>(b.request.seed), which);
  work.blocks.clear();
  for (std::size_t i = 0; i < b.blocks; ++i)
    work.blocks.push_back(BlockAt(b.records, random.Below(b.records.samples()), b.length));
  BlockEstimate here;
  EstimateBlocks(b.records, b.request.N, b.request.peaks, work.blocks, work, here);
  const double blocks = static_cast<double>(b.blocks), fewer = std::sqrt(blocks / (blocks - 1));
  for (std::size_t i = 0; i < kBlockEstimates; ++i)
    b.t[i][which] = std::log(here.value[i] / b.estimate.value[i]) / (here.error[i] * fewer);

  double length = 0, sum = 0, spread = 0;
  for (const TimeBlock& block : work.blocks) {
    length += block.length;
    sum += SumOf(block, b.records.sum);
  }
  for (const TimeBlock& block : work.blocks)
    spread += Square(SumOf(block, b.records.sum) - sum / length * block.length);
  b.t[kMean][which] = sum / (std::sqrt(spread) * fewer);
}

struct Quantiles {
  double low = 0, high = 0;
};

// At the (resamples + 1) alpha-th of the sorted values, which may lie between two of them. What is no number counts as
// 0: a resample of blocks that are all alike.
Quantiles QuantilesOf(std::vector<double> t, double prob) {
  for (double& value : t)
    if (!std::isfinite(value)) value = 0;
  std::sort(t.begin(), t.end());
  const auto at = [&t](double place) {
    place = std::clamp(place, 0.0, static_cast<double>(t.size() - 1));
    const auto i = std::min(static_cast<std::size_t>(place), t.size() - 2);
    return t[i] + (place - static_cast<double>(i)) * (t[i + 1] - t[i]);
  };
  const double outside = (1 - prob) / 2 * static_cast<double>(t.size() + 1) - 1;
  return {at(outside), at(static_cast<double>(t.size() - 1) - outside)};
}

// ---- Intervals

BootstrapInterval Told(double low, double high) {
  if (!std::isfinite(low) || !std::isfinite(high)) return {};
  return {static_cast<float>(low), static_cast<float>(high), true};
}

// Of an estimate that can't be negative.
BootstrapInterval PositiveInterval(const Bootstrap& b, std::size_t which) {
  const double value = b.estimate.value[which], error = b.estimate.error[which];
  const Quantiles t = QuantilesOf(b.t[which], static_cast<double>(b.request.prob));
  return Told(value * std::exp(-t.high * error), value * std::exp(-t.low * error));
}

bool EnoughPeaks(const Bootstrap& b, int N) {
  if (b.dependence_times < FewestDependenceTimes(N)) return false;
  return std::all_of(b.records.peaks.begin(), b.records.peaks.end(), [N](const PeakHeights& peaks) {
    return peaks.height.size() >= static_cast<std::size_t>(N) * kFewestHighest;
  });
}

void PeakIntervals(const Bootstrap& b, int N, std::size_t first, std::array<BootstrapInterval, 4>& out) {
  if (!EnoughPeaks(b, N)) return;
  for (std::size_t side = kBlockAll; side <= kBlockDouble; ++side) out[side] = PositiveInterval(b, first + side);
  const auto mean = static_cast<float>(b.records.mean);
  out[kBlockTop] = {mean + out[kBlockTop].low, mean + out[kBlockTop].high, out[kBlockTop].told};
  out[kBlockBottom] = {mean - out[kBlockBottom].high, mean - out[kBlockBottom].low, out[kBlockBottom].told};
}

}  // namespace

double FewestDependenceTimes(int N) {
  return std::max(kFewestDependenceTimes, kTimesForHighest * N);
}

int ResamplesFor(float prob, int resamples) {
  const double outside = 1.0 - static_cast<double>(prob);
  const double needed =
      outside > 0.0 ? std::min(std::ceil(2.0 / outside), static_cast<double>(kMostBootstrapResamples)) : 0.0;
  return std::clamp(std::max(resamples, static_cast<int>(needed)), kFewestBootstrapResamples, kMostBootstrapResamples);
}

void BeginBootstrap(EnsembleRecords X, const BootstrapRequest& request, Bootstrap& out) {
  out = Bootstrap{};
  out.request = request;
  out.request.resamples = ResamplesFor(request.prob, request.resamples);
  LayOutRecords(X, request.peaks, out.records);
  std::vector<std::vector<float>> centred;
  std::size_t shortest = std::numeric_limits<std::size_t>::max();
  for (const std::span<const float> x : X) {
    if (x.empty()) continue;
    centred.push_back(Centred(x, static_cast<float>(out.records.mean)));
    shortest = std::min(shortest, x.size());
  }
  if (out.records.samples() < 2 * kShortestBlock) return;  // nothing can be told
  FindDependence(centred, out);
  if (out.dependence_times < kFewestDependenceTimes) return;
  out.length = std::min(out.length, shortest);
  out.blocks = static_cast<std::size_t>(
      std::lround(static_cast<double>(out.records.samples()) / static_cast<double>(out.length)));
  BlockWorkspace work;
  out.estimate = EstimateRecords(out, out.length, work);
  const bool whole_records = out.length * out.records.records() == out.records.samples();  // nothing beyond a block
  if (!whole_records) LeadOn(EstimateRecords(out, std::max<std::size_t>(2, out.length / 2), work), out.estimate);
  out.mean_error = MeanError(out, centred, shortest);
  AllowForLength(out);
  for (std::vector<double>& t : out.t) t.assign(static_cast<std::size_t>(out.request.resamples), 0.0);
}

bool MakeResamples(Bootstrap& b, int count) {
  if (b.blocks == 0) return false;
  const auto from = static_cast<std::size_t>(b.made);
  const auto to = static_cast<std::size_t>(std::min(b.made + std::max(count, 1), b.request.resamples));
  SideBySide((to - from + kResamplesAtOnce - 1) / kResamplesAtOnce, b.request.threads, [&](std::size_t task) {
    BlockWorkspace work;
    const std::size_t first = from + task * kResamplesAtOnce;
    for (std::size_t i = first; i < std::min(first + kResamplesAtOnce, to); ++i) MakeResample(b, i, work);
  });
  b.made = static_cast<int>(to);
  return b.made < b.request.resamples;
}

BootstrapIntervals IntervalsOf(const Bootstrap& b) {
  BootstrapIntervals out;
  out.dependence_times = b.dependence_times;
  if (b.blocks == 0) return out;
  const Quantiles t = QuantilesOf(b.t[kMean], static_cast<double>(b.request.prob));
  out.mean = Told(b.records.mean - t.high * b.mean_error, b.records.mean - t.low * b.mean_error);
  out.variance = PositiveInterval(b, 0);
  if (!b.request.peaks) return out;
  PeakIntervals(b, 3, kFirstHighest[0], out.third);
  PeakIntervals(b, std::max(1, b.request.N), kFirstHighest[1], out.nth);
  return out;
}

}  // namespace zaview
