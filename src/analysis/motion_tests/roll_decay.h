// Peaks of a free roll decay and what follows from them. Pure; double precision from 4-byte samples.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace zaview {

struct RollPeak {
  std::size_t index = 0;  // of the sample, from 0
  double value = 0;       // as the record has it
  double time = 0;        // refined between the neighbours
};

// A peak is strictly beyond its up to three predecessors, at least as far out as its up to three successors and
// strictly beyond the last of these: of a flat top of two or three samples the first counts, once. The ends are none.
// With a, b the differences to the sample before and behind, its time is the mean of t(i) and
// (t(i-1) a + t(i+1) b)/(a + b). This lies on the other side of t(i) than the vertex of a parabola, by as much; in a
// record of constant step that is all but the same for all peaks, so periods are right.
void FindRollPeaks(std::span<const float> time, std::span<const float> roll, std::vector<RollPeak>& peaks);

struct RollCycle {
  double angle = 0;        // average, in the unit of the peaks
  double coefficient = 0;  // logarithmic decrement of half a cycle over pi; 0 where a peak or difference is 0
  double period = 0;
};

// From one peak to the next: angle (|x1| + |x2|)/2, coefficient ln(|x1/x2|)/pi, period 2 (t2 - t1). With bias from
// three peaks, by their differences d1, d2, in which a mean angle drops out: (d1 + d2)/4, ln(d1/d2)/pi, t3 - t1.
// Too few peaks: none.
void FindRollCycles(std::span<const RollPeak> peaks, bool bias, std::vector<RollCycle>& cycles);

struct RollPeriods {  // means
  double all = 0;
  double smallest = 0;  // of the last max(5, n/5) cycles
  std::size_t ns = 0;   // so many
};
[[nodiscard]] RollPeriods MeanPeriods(std::span<const RollCycle> cycles);

}  // namespace zaview
