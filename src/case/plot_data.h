// Shown values of a quantity over the steps in use: stored x scale x sign factor.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "base/data_fault.h"
#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"

namespace zaview {

struct QuantityRequest {
  int iqnt = 1;                    // in an impulsive run a number of that run (quantity_catalogue.h)
  int curve = 0;                   // 1..; 0: all
  std::array<double, 3> point{};   // point quantities: INPUT axes and units
  std::array<float, 4> missile{};  // C1..C4 of quantity 48
  bool wave_overlay = false;       // the elevation at the origin as well
};

struct PlotData {
  int n = 0;                          // points first_step, first_step + step_stride, .. last_step; 0: none
  std::vector<float> x;               // time in output units
  std::vector<std::vector<float>> y;  // a vector a curve asked for
  std::vector<std::string> labels;    // the same curves
  std::vector<float> wave;            // elevation at the origin, if asked for
};

// Shown values, smoothed as the settings say: y = stored x scale, then x sign factor, in 4 bytes; slots of force are
// summed in their order first. Curve 4 of 28 and 29 is the length of the stored three. 48: C1 ax + C2 ay + C3 az + C4,
// (ax ay az) = R' (a + (0,0,1)) as shown. Impulsive runs: time x T, values as stored x sign factor; a function of an
// IRF case by all its steps and the stride. said: smoothing was interrupted. not_valid is the caller's to say. Samples
// take the memory of those that data held before.
[[nodiscard]] DataFault SetPlotData(const Console& console, const OutputSettings& settings,
                                    const QuantityRequest& request, CaseStore& case_store, PlotData& data);

// The points a statistic takes: first_step + skip <= step <= last_step - skip_terminal. Indices into PlotData from 0.
struct StatRange {
  int first = 0;  // first point
  int n = 0;      // points; 0 or below: too many skipped
};
[[nodiscard]] StatRange StatPoints(const CaseStore& case_store, const OutputSettings& settings);
// The same with another skip than that of the case.
[[nodiscard]] StatRange StatPoints(const CaseStore& case_store, const OutputSettings& settings, int skip_initial);

}  // namespace zaview
