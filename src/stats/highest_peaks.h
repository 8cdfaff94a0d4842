// The table's own light family: tops, bottoms and amplitudes between sign changes of x - xm, and averages between
// upcrossings or top peaks.
#pragma once

#include <span>

namespace zaview {

struct HighestPeaks {
  float top = 0, bot = 0, amp = 0;
  int iflag = 0;  // 1: no tops or no bottoms
};

// One result for each N, from one pass and one sort. out[j] belongs to N[j].
void CalcAvgHighestPeaks(std::span<const int> N, std::span<const float> x, float xm, std::span<HighestPeaks> out);

struct BetweenAverages {
  float avgc = 0, avgp = 0;  // between first and last upcrossing, first and last top peak
};
void CalcAvgBetween(std::span<const float> t, std::span<const float> x, float xm, BetweenAverages& out);

}  // namespace zaview
