// What blocks of the time axis tell of a variance and of averages of the highest peaks, and the error of each from the
// spread of the blocks (block_bootstrap.h tells how). Pure, in double.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "stats/bootstrap_blocks.h"

namespace zaview {

// Variance; of the highest 1/3, of the highest 1/N: amplitude, top, bottom, double amplitude.
inline constexpr std::size_t kBlockEstimates = 9;
inline constexpr std::array<std::size_t, 2> kFirstHighest = {1, 5};
inline constexpr std::size_t kBlockAll = 0, kBlockTop = 1, kBlockBottom = 2, kBlockDouble = 3;

struct BlockEstimate {
  std::array<double, kBlockEstimates> value{}, error{};  // error: relative, of the logarithm
};

struct BlockWorkspace {  // kept from resample to resample
  std::vector<TimeBlock> blocks;
  std::vector<std::int32_t> weight;
  std::vector<double> over;                                          // running sums of what peaks are over a threshold
  std::array<std::array<std::vector<double>, kPeakSides>, 2> parts;  // of each block in an average, by N and side
};

// Errors are those of as many blocks as there are. peaks false: of the variance alone.
void EstimateBlocks(const BlockRecords& records, int N, bool peaks, std::span<const TimeBlock> blocks,
                    BlockWorkspace& work, BlockEstimate& out);

}  // namespace zaview
