// How often and how long a level is exceeded, and in how many blocks of one dependence length. Pure, single precision.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "stats/ensemble_stats.h"

namespace zaview {

enum class Direction : std::uint8_t { both = 1, up = 2, down = 3 };  // beyond v or -v; above v; below v

struct Exceedance {              // an independent one
  int record = 0, position = 0;  // from 1
  float time = 0;
};
struct ExceedanceCount {
  int total = 0, nind = 0;
  float Tex = 0;  // time beyond
  std::vector<Exceedance> list;
};
// times: of each record's samples. Independent: the first of a record, or ndep positions behind the last counted one.
void CountExceedances(EnsembleRecords X, EnsembleRecords times, float v, Direction option, int ndep,
                      ExceedanceCount& out);

struct ExceedanceLimits {
  float low = 0, high = 0;  // numbers of exceedances; nind -+ sqrt(N p (1-p)) ka, low at least 0; both 0 without any
};
[[nodiscard]] ExceedanceLimits LimitsOf(int nind, std::int64_t N, float prob);

struct Block {
  int record = 0, first = 0, last = 0;  // positions from 1
  float min = 0, max = 0;
};
struct BlockCount {
  std::vector<Block> blocks;
  int exceeding = 0;
  float average_min = 0, average_max = 0;
};
// ndep below 1 counts as 1.
void CountBlocks(EnsembleRecords X, float v, Direction option, int ndep, BlockCount& out);

}  // namespace zaview
