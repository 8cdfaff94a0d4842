#include "stats/block_estimates.h"

#include <algorithm>
#include <cmath>

namespace zaview {

namespace {

double Square(double x) {
  return x * x;
}

void EstimateVariance(const BlockRecords& records, std::span<const TimeBlock> blocks, BlockEstimate& out) {
  double length = 0, sum = 0, squares = 0;
  for (const TimeBlock& block : blocks) {
    length += block.length;
    sum += SumOf(block, records.sum);
    squares += SumOf(block, records.squares);
  }
  const double mean = sum / length, variance = squares / length - mean * mean;
  double spread = 0;
  for (const TimeBlock& block : blocks)
    spread += Square(SumOf(block, records.squares) - 2 * mean * SumOf(block, records.sum) +
                     block.length * (mean * mean - variance));
  out.value[0] = variance;
  out.error[0] = std::sqrt(spread) / (length * variance);
}

// How often each peak is in the blocks; the result is the number of them all.
double WeighPeaks(const PeakHeights& peaks, std::span<const TimeBlock> blocks, std::vector<std::int32_t>& weight) {
  weight.assign(peaks.height.size() + 1, 0);
  double all = 0;
  for (const TimeBlock& block : blocks) {
    for (const TimeBlock::Part& part : block.parts) {
      const std::uint32_t from = peaks.first[part.from], to = peaks.first[part.to];
      ++weight[from];
      --weight[to];
      all += static_cast<double>(to - from);
    }
  }
  for (std::size_t i = 1; i < weight.size(); ++i) weight[i] += weight[i - 1];
  return all;
}

struct HighestAverage {
  double average = 0, threshold = 0;
};

// The averages of the highest `count` peaks; counts ascend.
void AverageHighest(const PeakHeights& peaks, std::span<const std::int32_t> weight, std::span<const double> counts,
                    std::span<HighestAverage> out) {
  double taken = 0, sum = 0;
  std::size_t next = 0;
  for (const std::uint32_t i : peaks.order) {
    const double here = weight[i], height = peaks.height[i];
    for (; next < counts.size() && taken + here >= counts[next]; ++next)
      out[next] = {(sum + (counts[next] - taken) * height) / counts[next], height};
    if (next == counts.size()) return;
    taken += here;
    sum += here * height;
  }
}

// What each block adds to an average.
void PeakParts(const PeakHeights& peaks, std::span<const TimeBlock> blocks, const HighestAverage& highest, double N,
               double all, std::vector<double>& over, std::vector<double>& parts) {
  over.resize(peaks.height.size() + 1);
  over[0] = 0;
  for (std::size_t i = 0; i < peaks.height.size(); ++i)
    over[i + 1] = over[i] + std::max(peaks.height[i] - highest.threshold, 0.0);
  parts.clear();
  for (const TimeBlock& block : blocks) {
    double part = 0;
    for (const TimeBlock::Part& p : block.parts) {
      const std::uint32_t from = peaks.first[p.from], to = peaks.first[p.to];
      part += N * (over[to] - over[from]) + (highest.threshold - highest.average) * static_cast<double>(to - from);
    }
    parts.push_back(part / all);
  }
}

double RootOfSquares(std::span<const double> parts) {
  double sum = 0;
  for (const double part : parts) sum += part * part;
  return std::sqrt(sum);
}

void EstimatePeaks(const BlockRecords& records, int highest_N, std::span<const TimeBlock> blocks, BlockWorkspace& work,
                   BlockEstimate& out) {
  const std::array<double, 2> N = {3.0, static_cast<double>(std::max(1, highest_N))};
  const std::size_t rarer = N[1] >= N[0] ? 1 : 0;  // the one of fewer peaks
  for (std::size_t side = 0; side < kPeakSides; ++side) {
    const PeakHeights& peaks = records.peaks[side];
    const double all = WeighPeaks(peaks, blocks, work.weight);
    const std::array<double, 2> counts = {all / N[rarer], all / N[1 - rarer]};
    std::array<HighestAverage, 2> highest;
    AverageHighest(peaks, work.weight, counts, highest);
    for (std::size_t i = 0; i < 2; ++i) {
      const std::size_t which = i == 0 ? rarer : 1 - rarer;
      std::vector<double>& parts = work.parts[which][side];
      PeakParts(peaks, blocks, highest[i], N[which], all, work.over, parts);
      out.value[kFirstHighest[which] + side] = highest[i].average;
      out.error[kFirstHighest[which] + side] = RootOfSquares(parts) / highest[i].average;
    }
  }
  for (std::size_t which = 0; which < 2; ++which) {
    std::vector<double>& parts = work.parts[which][kBlockTop];
    for (std::size_t i = 0; i < parts.size(); ++i) parts[i] += work.parts[which][kBlockBottom][i];
    const std::size_t first = kFirstHighest[which];
    const double height = out.value[first + kBlockTop] + out.value[first + kBlockBottom];
    out.value[first + kBlockDouble] = height;
    out.error[first + kBlockDouble] = RootOfSquares(parts) / height;
  }
}

}  // namespace

void EstimateBlocks(const BlockRecords& records, int N, bool peaks, std::span<const TimeBlock> blocks,
                    BlockWorkspace& work, BlockEstimate& out) {
  EstimateVariance(records, blocks, out);
  if (peaks) EstimatePeaks(records, N, blocks, work, out);
}

}  // namespace zaview
