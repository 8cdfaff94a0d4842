// Round numbers for axes: limits and steps that read well. Single precision in the stated order.
#pragma once

namespace zaview {

struct RoundAxis {
  float low = 0, step = 0, high = 0;
};

// Limits outside of low..high and a step between ticks, for an axis of `length` with about `ticks` ticks a unit of
// length. Steps are 1, 2, 2.5, 5, 7.5 .. times powers of ten and keep the sign of high - low.
[[nodiscard]] RoundAxis dgRoundAxis(float low, float high, float ticks, float length);

}  // namespace zaview
