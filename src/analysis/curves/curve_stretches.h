// What a curve holds without a break: parts that no gap of a combined case and no value that isn't finite interrupts.
#pragma once

#include <span>
#include <vector>

#include "case/case_store.h"
#include "stats/tables/ensemble_data.h"

namespace zaview {

struct CurveStretch {
  std::span<const float> x, t;
  int record = 1;
};

// Samples of a curve and their times, the first of them at a step of the file, the others every `stride` steps.
struct CurveSamples {
  std::span<const float> x, t;
  int first_step = 1, stride = 1;
};

// Appends the stretches of at least two samples.
void AppendStretches(const CaseStore& store, const CurveSamples& samples, int record,
                     std::vector<CurveStretch>& stretches);

// The same of all records of the curve that is loaded (LoadEnsemble): one record, or an ensemble.
void AppendLoadedStretches(const StatWork& work, std::vector<CurveStretch>& stretches);

[[nodiscard]] std::vector<std::span<const float>> SamplesOf(std::span<const CurveStretch> stretches);
[[nodiscard]] double TimeOf(std::span<const CurveStretch> stretches);  // of all together
[[nodiscard]] double MeanOf(std::span<const CurveStretch> stretches);

}  // namespace zaview
