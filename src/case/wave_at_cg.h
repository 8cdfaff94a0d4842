// The seaway of the case in store, built on first need, and its elevation at the CG and at the global origin.
#pragma once

#include "base/platform.h"
#include "case/case_store.h"

namespace zaview {

// case_store.seaway and case_store.wave. False (told the first time): the seaway can't be built.
[[nodiscard]] bool EnsureSeaway(const Console& console, CaseStore& case_store);

// Fills eta_origin and, if asked, eta_cg, for all steps in store: global (0, 0), and pmgg(1:2) of the step, at the
// stored time, with the wave scale of the step. Says what it calculates. False (told): no seaway, or memory is out.
[[nodiscard]] bool IncidentWaveAtCG(const Console& console, bool at_cg, CaseStore& case_store);

}  // namespace zaview
