// Smooths what was read, in memory: a new read brings the values of the file back.
#pragma once

#include "base/platform.h"
#include "case/case_store.h"

namespace zaview {

// Every stored history but the time, over all steps in store, by option 1 or 3 of TimeDataFilter; gaps of a combined
// case stay 0, derived histories are dropped. Memory running out is said, and leaves the columns that were not yet
// reached as they were; so does an interrupt, and then the answer is false.
[[nodiscard]] bool SmoothStored(const Console& console, int option, int width, CaseStore& case_store);

}  // namespace zaview
