// Parts of one restarted run become one history.
#pragma once

#include "base/platform.h"
#include "case/case_store.h"

namespace zaview {

// The steps of `old` ahead of the first step of `fresh` are put before it; new data wins where they overlap, a gap is
// zero but for its times: time of the last step ahead of the gap + (i - that step) DTH. Sets first_read and combined.
// False: out of memory, fresh is as it was.
[[nodiscard]] bool CombineHistories(const CaseStore& old, CaseStore& fresh);

}  // namespace zaview
