// What follows the read of a case: which steps are in use, flags, key steps, the summary of sectional loads.
#pragma once

#include "base/platform.h"
#include "case/case_store.h"
#include "case/output_settings.h"

namespace zaview {

// The skip of the settings, or that of the read, put in force: at most last_step - 1. Deliberate: a request of
// last_step itself stands, only what lies beyond it is cut.
void ApplySkip(const OutputSettings& settings, CaseStore& case_store);

// The trim rules of a read alone: sets first_step, last_step and skip_effective, and keeps current_step inside. Says
// nothing; doing it again changes nothing. Lengths are compared with the count of steps in store, so a restarted part
// that begins at step 371 is treated like a run that begins at 1.
struct TrimOutcome {
  bool incomplete_trimmed = false;  // WRN500
  int abort_trim = 0;               // steps trimmed for that reason
  bool whole = false;               // WRN501: trimming would have left nothing
};
[[nodiscard]] TrimOutcome ApplyTrim(const OutputSettings& settings, CaseStore& case_store);

// The same for a record that is trimmed again, by menu or script. Of an incomplete run one step is left, however long
// the trim.
[[nodiscard]] TrimOutcome RetrimCase(const OutputSettings& settings, CaseStore& case_store);

// WRN500 and WRN501 for an outcome; the second alone where a command trims anew.
void SayTrim(const Console& console, const TrimOutcome& outcome);
void SayTrimWhole(const Console& console, const TrimOutcome& outcome);

// irf_case, tadm_case by MOTYPE and MIXED.
void SetCaseFlags(CaseStore& case_store);

// kmstep: first_read, then every kmstep_interval, and last_read if it lies more than half an interval behind the last
// of these. False: out of memory.
[[nodiscard]] bool FindKeySteps(const OutputSettings& settings, CaseStore& case_store);

// All of it with its messages: flags, scales of the file, trims, current_step, kmstep, sectional-load summary.
void finish_case_read(const Console& console, OutputSettings& settings, CaseStore& case_store);

}  // namespace zaview
