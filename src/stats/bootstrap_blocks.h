// The records of one quantity laid out for drawing blocks of their time axis: any block's sum, sum of squares and peaks
// are had without going through its samples. Pure, in double.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "stats/ensemble_stats.h"

namespace zaview {

// Where peaks are high: of all half cycles, above the mean, below it.
inline constexpr std::size_t kPeakSides = 3;

struct PeakHeights {
  std::vector<double> height;        // over the mean, of tops and bottoms away from it; in time order
  std::vector<std::uint32_t> first;  // of each sample, and behind the last: the number of peaks ahead of it
  std::vector<std::uint32_t> order;  // of the heights, the highest first, of equals the earliest
};

struct BlockRecords {
  std::vector<std::size_t> start;    // of each record in the row of all samples, and their number
  double mean = 0;                   // of all samples
  std::vector<double> sum, squares;  // of samples less the mean, ahead of each sample, and of all
  std::array<PeakHeights, kPeakSides> peaks;

  [[nodiscard]] std::size_t samples() const { return start.back(); }
  [[nodiscard]] std::size_t records() const { return start.size() - 1; }
};

// Peaks about the mean of all (peaks.h); with_peaks false: none are looked for. Records without samples are left out.
void LayOutRecords(EnsembleRecords X, bool with_peaks, BlockRecords& out);

// `length` samples of one record, from any sample on; one that reaches the end of its record goes on at its beginning,
// so that every sample is in as many blocks.
struct TimeBlock {
  struct Part {
    std::size_t from = 0, to = 0;  // in the row of all samples, `to` not included
  };
  std::array<Part, 2> parts;
  double length = 0;
};
[[nodiscard]] TimeBlock BlockAt(const BlockRecords& records, std::size_t first_sample, std::size_t length);

[[nodiscard]] double SumOf(const TimeBlock& block, std::span<const double> ahead);  // of running sums ahead of samples

// Random numbers of one resample: the same for the same seed and resample, whatever thread draws them. SplitMix64
// (G. L. Steele, D. Lea, C. H. Flood, Fast splittable pseudorandom number generators, OOPSLA 2014).
class RandomStream {
 public:
  RandomStream(std::uint64_t seed, std::uint64_t resample);
  [[nodiscard]] std::size_t Below(std::size_t count);  // 0 .. count - 1; count below 2^32

 private:
  std::uint64_t Next();
  std::uint64_t state_;
};

}  // namespace zaview
