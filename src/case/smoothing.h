// Least-squares smoothing of time histories.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "base/platform.h"
#include "case/step_history.h"

namespace zaview {

enum class FilterStatus : std::uint8_t {
  ok,
  out_of_memory,  // output is as it was
  bad_option,     // only 1 and 3 are filters of this sort; output is as it was
  interrupted     // output holds the first samples
};

// At each sample the least-squares polynomial over W = min(width, n) consecutive samples, evaluated there; the window
// begins W/2 samples ahead and is shifted inward at the ends. Option 1: W 5, parabola (width is not used); option 3:
// cubic over `width` samples; the degree is at most W - 1. For n below 2 or a width below 1 output is the input. Both
// have n samples and don't overlap. Fits in double, rounded once. The weights are those of A. Savitzky and M. J. E.
// Golay, Smoothing and differentiation of data, Analytical Chemistry 36 (1964), by the polynomials of Gram. is_over,
// if there is one, is asked now and then: true interrupts the work.
[[nodiscard]] FilterStatus TimeDataFilter(int option, int width, std::span<const float> input, std::span<float> output,
                                          const std::function<bool()>& is_over = {});

// The line through first and last sample is taken off, the rest expanded in a sine series over n-1 intervals, harmonics
// k <= max(1, int(cutoff (n-1))) are kept, the line is added again: periods of 2/cutoff steps and more stay. n below 3:
// output is the input. In double, rounded once. False: memory is out, output is as it was.
[[nodiscard]] bool fourier_smooth(double cutoff, std::span<const float> input, std::span<float> output);

// What a caller says when memory is out; the data then stay as they are.
[[nodiscard]] std::string_view SmoothingSkipped(int option);

// One curve by the option of the user: 0 none, 1 and 3 by TimeDataFilter, 2 fourier_smooth with a cut-off of 0.25 of
// the Nyquist frequency. Fewer than 2 samples stay. Ctrl-C interrupts it. Anything but ok is said, and leaves the curve
// as it was.
[[nodiscard]] FilterStatus SmoothInput(const Console& console, int option, int width, std::vector<float>& curve);

// Each cut of the loads of one kind along time, by option 1, in place. False: out of memory, cuts not yet reached stay
// as they were.
[[nodiscard]] bool smooth_section_loads(StepHistory& loads);

}  // namespace zaview
