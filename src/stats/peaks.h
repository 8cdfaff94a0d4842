// One peak a half cycle about a threshold, in time order.
#pragma once

#include <span>
#include <vector>

namespace zaview {

struct PeakList {
  std::vector<int> record;  // from 1
  std::vector<int> step;    // of the extreme sample, from 1
  std::vector<float> value;
};
struct Peaks {
  PeakList all;     // amplitude |x - xthres|
  PeakList bottom;  // xthres - amplitude
  PeakList top;     // xthres + amplitude
};

// records: nr records of one ensemble. no_crossing (may be null) gets the numbers of records without a crossing.
void GetPeaks(std::span<const std::span<const float>> records, float xthres, Peaks& peaks,
              std::vector<int>* no_crossing = nullptr);

}  // namespace zaview
