// Histories of derived values cover the steps in store.
#pragma once

#include <cstddef>

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

}  // namespace zaview
