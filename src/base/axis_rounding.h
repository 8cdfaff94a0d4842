// Round numbers for axes: limits and steps that read well. Single precision in the stated order.
#pragma once

namespace zaview {

struct RoundAxis {
  float low = 0, step = 0, high = 0;
};

// Limits outside of low..high and a step between ticks, for an axis of `length` with about `ticks` ticks a unit of
// length. Steps are 1, 2, 2.5, 5, 7.5 .. times powers of ten and keep the sign of high - low.
[[nodiscard]] RoundAxis dgRoundAxis(float low, float high, float ticks, float length);

// The first step of that table that isn't smaller in size; the sign is kept, 0 and what isn't finite stay.
[[nodiscard]] float dgRoundStep(float step);

// The first of 1, 2, 2.5, 3, 4, 5, 6, 7.5 times 10^-5 .. 10^3 that isn't smaller; a value outside of 1e-5 .. 7500
// stays.
[[nodiscard]] float dgRoundFine(float value);

struct LogLimits {
  int low = 0, high = 1;  // powers of ten, low < high
};

// Whole decades around low..high; a limit on a decade stays. Without a positive low limit three decades below the high
// one are taken, without any 0 and 1.
[[nodiscard]] LogLimits dgRoundLog(float low, float high);

}  // namespace zaview
