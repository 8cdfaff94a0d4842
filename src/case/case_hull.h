// The hull of the case in store, read on first need, once a case.
#pragma once

#include "base/platform.h"
#include "case/case_store.h"

namespace zaview {

// case_store.hull. Prints the lines of its reading the first time. False: the geometry could not be read.
[[nodiscard]] bool EnsureHull(const Platform& platform, CaseStore& case_store);

}  // namespace zaview
