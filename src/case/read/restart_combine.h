// Parts of one restarted run become one history.
#pragma once

#include <cstdint>

#include "base/platform.h"
#include "case/case_store.h"
#include "frame/ground/run_state.h"

namespace zaview {

// Can the two be parts of one run? Geometry files, transformation and components are the same, and so are scales, ships
// and load cuts; neither is impulsive. The seaway is not looked at: a user may know better.
[[nodiscard]] bool SameGeometry(const CaseStore& old, const CaseStore& fresh);

// The steps of `old` ahead of the first step of `fresh` are put before it; new data wins where they overlap, a gap is
// zero but for its times: time of the last step ahead of the gap + (i - that step) DTH. Sets first_read, gaps and
// combined. Needs old.first_read < fresh.first_read. False: out of memory, fresh is as it was.
[[nodiscard]] bool CombineHistories(const CaseStore& old, CaseStore& fresh);

// A gap may not be longer than this, or a wrong time in a small file would fill the memory with zeros.
[[nodiscard]] std::int64_t LongestGap(const CaseStore& old, const CaseStore& fresh);

// Decides and does it, with its words. Does nothing where there is nothing to combine. can_ask false: keeps the last
// one and says how to combine them.
void OfferCombination(const Console& console, RestartMode mode, bool can_ask, const CaseStore& old, CaseStore& fresh);

}  // namespace zaview
