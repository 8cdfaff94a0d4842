// How many initial steps statistics leave out by default.
#pragma once

#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"
#include "frame/run_state.h"

namespace zaview {

// Sets case_store.skip_effective; asks, prints or is silent as run.skip_prompt says. The period of the sea (and of
// forced motion), in encounter, gives the count that is offered; silently 300, half the run, or that count.
void ChooseDefaultSkip(const Console& console, const RunState& run, const OutputSettings& settings,
                       CaseStore& case_store);

}  // namespace zaview
