#include "case/settings/step_settings.h"

#include "case/read/ensemble_match.h"

namespace zaview {

bool TrimsAll(const CaseStore& case_store, int initial, int terminal) {
  const long in_store = static_cast<long>(case_store.last_read) - case_store.first_read + 1;
  return case_store.has_steps() && static_cast<long>(initial) + terminal >= in_store;
}

TrimOutcome RetrimRecords(const Console& console, const OutputSettings& settings, CaseStore& case_store,
                          EnsembleStore& ensemble) {
  const TrimOutcome outcome = RetrimCase(settings, case_store);
  TrimOtherRecords(settings, ensemble);
  SayTrimWhole(console, outcome);
  return outcome;
}

void SetSkips(int initial, int terminal, OutputSettings& settings, CaseStore& case_store) {
  settings.reading.skip_initial = initial;
  settings.reading.skip_terminal = terminal;
  if (case_store.has_steps())
    case_store.skip_effective = initial <= case_store.last_step ? initial : case_store.last_step - 1;
}

}  // namespace zaview
