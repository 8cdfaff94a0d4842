// When a point of the ship enters the water, as a table.
#pragma once

#include <array>
#include <span>
#include <vector>

#include "base/data_fault.h"
#include "case/case_store.h"
#include "case/output_settings.h"
#include "frame/ground/output_file.h"

namespace zaview {

struct PointSlam {   // non-dimensional
  int step = 0;      // the first one in the water
  double time = 0;   // of the entry, linear between the steps
  double wave = 0;   // elevation at the point at the step
  double speed = 0;  // into the water, by the difference of the two steps
};

struct PointHistories {  // an entry a step from first_step on
  int first_step = 1;
  std::span<const float> time, wave;  // elevation at the point
  std::span<const double> height;     // z of the point
  std::span<const StepGap> gaps;
};
// All of them, however slow. False: memory is out.
[[nodiscard]] bool FindPointSlams(const PointHistories& point, std::vector<PointSlam>& slams);

// point: INPUT axes and units. A row a slam of the steps in use: step, time, wave, speed, in output units.
[[nodiscard]] DataFault WritePointSlams(const Console& console, const OutputSettings& settings,
                                        const std::array<double, 3>& point, CaseStore& case_store, OutputFile& out);

}  // namespace zaview
