// Is a newly read case a realization of those held?
#pragma once

#include "base/platform.h"
#include "case/case_store.h"
#include "case/ensemble_store.h"
#include "case/output_settings.h"
#include "case/read/seaway_match.h"
#include "frame/ground/run_state.h"

namespace zaview {

// Load cuts and their kinds must be equal, in automatic mode the ship speeds to within 1e-4 sqrt(gL), and the seaways
// must match. Impulsive cases and combined ones match nothing. Builds the seaways.
// A table matches in forced mode alone, over the same output gravity and length: a table by its columns, a run by
// having motions.
[[nodiscard]] Match CompareCases(const Console& console, EnsembleMode ensemble_mode, CaseStore& held, CaseStore& fresh);

// Compares with the case read last, says what was found, adds `fresh` as a record or resets the ensemble to it, and
// makes it current in case_store. With no record held, and for a combined case, nothing is compared or said.
void match_case_to_ensemble(const Console& console, EnsembleMode ensemble_mode, CaseStore& fresh,
                            EnsembleStore& ensemble, CaseStore& case_store);

// The case in store becomes record 1, all others are dropped; a case without steps is no record.
void reset_ensemble(CaseStore& case_store, EnsembleStore& ensemble);

// Trims all records but the current one as the settings say.
void TrimOtherRecords(const OutputSettings& settings, EnsembleStore& ensemble);

// The histories of a case are others now: what was made of them is stale.
void MarkChanged(EnsembleStore& ensemble, CaseStore& case_store);

// Makes a record current: its store and the one in use change places. Trims of the record are as they were when it was
// current. False: no such record (a fault of the program; said by the caller).
[[nodiscard]] bool SelectRecord(int irec, EnsembleStore& ensemble, CaseStore& case_store);

}  // namespace zaview
