// Cycles of a record by rainflow counting: ASTM E1049-85, 5.4.4. Three points a step; cycles that hold the start, and
// what is left at the end, count one half.
// Pure; time and memory grow with the number of samples.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace zaview {

struct RainflowCycle {
  float range = 0, mean = 0;
  bool half = false;
  [[nodiscard]] double count() const { return half ? 0.5 : 1.0; }
};

// First sample, samples at which the direction changes, last sample; of a level stretch its first one. A record that
// doesn't move has none. Samples are finite.
void TurningPoints(std::span<const float> x, std::vector<float>& points);

// Appends the cycles of one stretch, in the order in which they close.
void CountRainflow(std::span<const float> x, std::vector<RainflowCycle>& cycles);

struct RangeBin {  // of ranges from low to below high, the last one with its end
  double low = 0, high = 0;
  double cycles = 0, exceeding = 0;  // in it; with ranges of low and above
  double mean = 0;                   // average of the cycles' means; 0 without any
};
// Equal bins between 0 and the largest range; none without a cycle.
[[nodiscard]] std::vector<RangeBin> BinRanges(std::span<const RainflowCycle> cycles, int bins);

struct RainflowTotals {
  double cycles = 0;
  double largest = 0;  // range
};
[[nodiscard]] RainflowTotals TotalsOf(std::span<const RainflowCycle> cycles);

// The range that does the same damage in as many cycles, for the slope m of an S-N curve: (sum n S^m / sum n)^(1/m).
[[nodiscard]] double EquivalentRange(std::span<const RainflowCycle> cycles, double m);

}  // namespace zaview
