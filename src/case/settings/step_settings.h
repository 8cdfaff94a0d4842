// Trims and skips that are set anew for the records in store, by script or view.
#pragma once

#include "base/platform.h"
#include "case/case_store.h"
#include "case/ensemble_store.h"
#include "case/output_settings.h"
#include "case/read/finish_case_read.h"

namespace zaview {

// Would these trims leave no step of the case? Never of a case without steps.
[[nodiscard]] bool TrimsAll(const CaseStore& case_store, int initial, int terminal);

// All records by the trims of the settings. Says WRN501 for the current one. The result has no abort_trim where nothing
// of an incomplete run was trimmed for that reason.
TrimOutcome RetrimRecords(const Console& console, const OutputSettings& settings, CaseStore& case_store,
                          EnsembleStore& ensemble);

// Steps that statistics leave out, of the case as well if it has steps.
void SetSkips(int initial, int terminal, OutputSettings& settings, CaseStore& case_store);

}  // namespace zaview
