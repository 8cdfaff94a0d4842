// Is a newly read case a realization of those held? The seaway is compared by what defines it.
#pragma once

#include <cstdint>

#include "base/platform.h"
#include "case/case_store.h"
#include "case/ensemble_store.h"

namespace zaview {

enum class Match : std::uint8_t { none, realization, identical };
[[nodiscard]] Match CompareCases(int ensemble_mode, const CaseStore& held, const CaseStore& fresh);

// Says what was found, adds `fresh` as a record or resets the ensemble to it, and makes it current in case_store.
void match_case_to_ensemble(const Console& console, int ensemble_mode, CaseStore& fresh, EnsembleStore& ensemble,
                            CaseStore& case_store);

// The case in store becomes record 1.
void reset_ensemble(EnsembleStore& ensemble);

// Makes a record current. False: no such record (a fault of the program; said by the caller).
[[nodiscard]] bool SelectRecord(int irec, EnsembleStore& ensemble, CaseStore& case_store);

}  // namespace zaview
