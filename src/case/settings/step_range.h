// The steps that an analysis takes: from one to another by an increment.
#pragma once

#include <string_view>
#include <vector>

#include "case/case_store.h"
#include "frame/ground/prompts.h"

namespace zaview {

inline constexpr std::string_view kIllegalStepRange = "Illegal time step range";

struct StepRange {
  int first = 1, last = 0, increment = 1;
  [[nodiscard]] int count() const { return last < first ? 0 : (last - first) / increment + 1; }
  [[nodiscard]] int step(int i) const { return first + i * increment; }  // i from 0
};

// first 0: all steps in use. False: not first_step <= first <= last <= last_step, or an increment below 1.
[[nodiscard]] bool TakeStepRange(const CaseStore& case_store, StepRange asked, StepRange& range);

// The steps of a range, without those that no part of a combined case holds.
[[nodiscard]] std::vector<int> StepsOf(const CaseStore& case_store, const StepRange& range);

// One number is a step, 0 all of them; two are a range. Behind `fault` the question comes again.
[[nodiscard]] Answer AskStepRange(const Console& console, const CaseStore& case_store, std::string_view prompt,
                                  std::string_view fault, StepRange& range);

}  // namespace zaview
