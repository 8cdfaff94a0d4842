// Where the reals of a step go. A layout is a row: what each list of a step holds, in order. The steps of the binary
// companion are rows too: their first list is the time of the step header, the further ones are its bodies.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "case/case_store.h"

namespace zaview {

// The absolute value of the unformatted mode, where the steps stand in the companion: 1, or 2 (no forces); 0: they
// stand in the primary file. Several ships need a negative mode for a companion.
[[nodiscard]] int CompanionMode(const CaseStore& fresh);

// Where each of the reals of a step goes, in file order; null: it is dropped.
struct StepColumns {
  std::vector<std::vector<float>*> column;
  std::vector<std::size_t> lists;  // reals of each list of a step; the first one begins with the time
};

// Makes the histories of fresh, empty, and takes away the loads that its layout hasn't. Of several ships only
// fresh.ship is kept. False: no such layout. When memory is out there are no columns.
[[nodiscard]] bool PrepareColumns(CaseStore& fresh, StepColumns& columns);

// After the last step: every history covers `kept` steps from `first` on, with zeros where the layout has nothing for
// it; the dimensional values of an impulsive run become non-dimensional. threads: as of SideBySide. False: out of
// memory.
[[nodiscard]] bool FinishColumns(int first, int kept, int threads, CaseStore& fresh);

// How many steps a file may hold: NSTEP, of an impulsive run twice as many.
[[nodiscard]] std::int64_t MostSteps(const CaseStore& fresh);

// Times of the file times this are non-dimensional: sqrt(GRAVOUT / LENOUT) for impulsive runs, else 1.
[[nodiscard]] double StepTimeFactor(const CaseStore& fresh);

// Step i has time TINIT + (i - 1) DTH; only a restarted part begins behind step 1, with that of its first time t1
// (non-dimensional).
[[nodiscard]] int FirstStepIndex(const ControlRecords& control, double t1);

// The time of step i by that rule, non-dimensional.
[[nodiscard]] float PlannedTime(const ControlRecords& control, int i);

}  // namespace zaview
