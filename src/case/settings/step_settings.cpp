#include "case/settings/step_settings.h"

#include <algorithm>

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

SettingFault SetTrims(const Console& console, int initial, int terminal, OutputSettings& settings,
                      CaseStore& case_store, EnsembleStore& ensemble, TrimOutcome& outcome) {
  if (initial < 0 || terminal < 0) return SettingFault::illegal;
  if (TrimsAll(case_store, initial, terminal)) return SettingFault::all_trimmed;
  settings.reading.trim_initial = initial;
  settings.reading.trim_terminal = terminal;
  if (case_store.has_steps()) outcome = RetrimRecords(console, settings, case_store, ensemble);
  return SettingFault::none;
}

SettingFault SetTrimAbort(const Console& console, int steps, OutputSettings& settings, CaseStore& case_store,
                          EnsembleStore& ensemble, TrimOutcome& outcome) {
  if (steps < 0) return SettingFault::illegal;
  settings.reading.trim_abort = steps;
  if (case_store.has_steps()) outcome = RetrimRecords(console, settings, case_store, ensemble);
  return SettingFault::none;
}

SettingFault SetOutputSteps(int first, std::optional<int> last, CaseStore& case_store) {
  CaseStore& c = case_store;
  if (!c.has_steps()) return SettingFault::no_steps;
  c.first_step = std::clamp(first, c.first_read, c.last_read);
  if (last && *last >= std::max(c.first_read, 1) && *last <= c.last_read) c.last_step = *last;
  c.last_step = std::max(c.first_step, c.last_step);
  c.current_step = std::clamp(c.current_step, c.first_step, c.last_step);
  return SettingFault::none;
}

SettingFault SetSkips(int initial, int terminal, OutputSettings& settings, CaseStore& case_store) {
  if (initial < 0 || terminal < 0) return SettingFault::illegal;
  settings.reading.skip_initial = initial;
  settings.reading.skip_terminal = terminal;
  if (case_store.has_steps()) ApplySkip(settings, case_store);
  return SettingFault::none;
}

bool SkipsAll(const CaseStore& case_store, int initial, int terminal) {
  return static_cast<long>(initial) + terminal > static_cast<long>(case_store.last_step) - case_store.first_step;
}

SettingFault SetStatSteps(int first, int last, OutputSettings& settings, CaseStore& case_store) {
  if (first < 1 || first > last) return SettingFault::illegal;
  if (!case_store.has_steps()) return SettingFault::no_steps;
  if (first > case_store.last_step || last < case_store.first_step) return SettingFault::outside;
  return SetSkips(std::max(0, first - case_store.first_step), std::max(0, case_store.last_step - last), settings,
                  case_store);
}

SettingFault SetStride(int stride, ReadingSettings& reading) {
  if (stride < 1) return SettingFault::illegal;
  reading.step_stride = stride;
  return SettingFault::none;
}

}  // namespace zaview
