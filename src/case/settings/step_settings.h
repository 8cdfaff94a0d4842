// Which steps of the records in store are used: trims, output range, skips, increment. Trims, skips and increment may
// be set ahead of a read; they then act on the file that it reads.
#pragma once

#include <optional>

#include "base/platform.h"
#include "case/case_store.h"
#include "case/ensemble_store.h"
#include "case/output_settings.h"
#include "case/read/finish_case_read.h"
#include "case/settings/setting.h"

namespace zaview {

// Would these trims leave no step of the case? Never of a case without steps.
[[nodiscard]] bool TrimsAll(const CaseStore& case_store, int initial, int terminal);

// All records by the trims of the settings. Says WRN501 for the current one. The result has no abort_trim where nothing
// of an incomplete run was trimmed for that reason.
TrimOutcome RetrimRecords(const Console& console, const OutputSettings& settings, CaseStore& case_store,
                          EnsembleStore& ensemble);

// Both trims, not negative, then RetrimRecords. outcome: of the current case; empty if it has no steps.
[[nodiscard]] SettingFault SetTrims(const Console& console, int initial, int terminal, OutputSettings& settings,
                                    CaseStore& case_store, EnsembleStore& ensemble, TrimOutcome& outcome);
// The terminal trim of runs that ended early.
[[nodiscard]] SettingFault SetTrimAbort(const Console& console, int steps, OutputSettings& settings,
                                        CaseStore& case_store, EnsembleStore& ensemble, TrimOutcome& outcome);

// The steps in use, until the next trim: first limited to those in store; last, if given and in store, never below it.
[[nodiscard]] SettingFault SetOutputSteps(int first, std::optional<int> last, CaseStore& case_store);

// Steps that statistics leave out, not negative, of the case as well if it has steps: a first one beyond its last step
// leaves that one alone (CaseStore::skip_effective says what is in force).
[[nodiscard]] SettingFault SetSkips(int initial, int terminal, OutputSettings& settings, CaseStore& case_store);
// Would these skips leave no step for statistics?
[[nodiscard]] bool SkipsAll(const CaseStore& case_store, int initial, int terminal);
// The same by the range of steps that statistics take, 1 <= first <= last, limited to the steps in use.
[[nodiscard]] SettingFault SetStatSteps(int first, int last, OutputSettings& settings, CaseStore& case_store);

[[nodiscard]] SettingFault SetStride(int stride, ReadingSettings& reading);  // 1 and above

}  // namespace zaview
