// Histories of derived values cover the steps in store.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/grow.h"
#include "case/case_store.h"

namespace zaview {

[[nodiscard]] inline std::size_t StepsInStore(const CaseStore& case_store) {
  return case_store.has_steps() ? static_cast<std::size_t>(case_store.last_read - case_store.first_read) + 1 : 0;
}

// `components` columns of zeros over first_read .. last_read; false (history emptied) when memory is out.
[[nodiscard]] inline bool SizeHistory(const CaseStore& case_store, std::size_t components, StepHistory& history) {
  history.first = case_store.first_read;
  bool sized = Grow(history.component, components);
  for (std::vector<float>& column : history.component) sized = sized && Grow(column, StepsInStore(case_store));
  if (!sized) history.component.clear();
  return sized;
}

[[nodiscard]] inline bool InGap(const CaseStore& case_store, int step) {
  return std::any_of(case_store.gaps.begin(), case_store.gaps.end(),
                     [step](const StepGap& gap) { return step >= gap.from && step <= gap.to; });
}

// Nothing is known of the steps that no part of a combined case holds: zero, like what was stored for them.
inline void ClearGaps(const CaseStore& case_store, StepHistory& history) {
  for (const StepGap& gap : case_store.gaps)
    for (std::vector<float>& column : history.component)
      for (int step = gap.from; step <= gap.to; ++step) {
        const std::int64_t at = std::int64_t{step} - history.first;
        if (at >= 0 && at < static_cast<std::int64_t>(column.size())) column[static_cast<std::size_t>(at)] = 0.0F;
      }
}

}  // namespace zaview
