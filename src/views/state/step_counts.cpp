#include "views/state/step_counts.h"

#include <algorithm>

#include "case/settings/step_settings.h"
#include "views/state/screen_question.h"

namespace zaview {

namespace {

constexpr std::string_view kTooMany = "ILLEGAL value - too many steps trimmed";

SettingFault Set(Session& s, StepEnd end, int n) {
  TrimOutcome outcome;
  const ReadingSettings& reading = s.output.reading;
  const auto trim = [&](int initial, int terminal) {
    return SetTrims(s.platform.console, initial, terminal, s.output, s.case_store, s.ensemble, outcome);
  };
  switch (end) {
    case StepEnd::skip_first:
      if (SkipsAll(s.case_store, n, reading.skip_terminal)) return SettingFault::all_trimmed;
      return SetSkips(n, reading.skip_terminal, s.output, s.case_store);
    case StepEnd::skip_last:  // the default at the other end stays a default
      if (SkipsAll(s.case_store, s.case_store.skip_effective, n)) return SettingFault::all_trimmed;
      s.output.reading.skip_terminal = n;
      return SettingFault::none;
    case StepEnd::trim_first:
      return trim(n, reading.trim_terminal);
    case StepEnd::trim_last:
      return trim(reading.trim_initial, n);
  }
  return SettingFault::illegal;
}

}  // namespace

int StepCountAt(const Session& session, StepEnd end) {
  const ReadingSettings& reading = session.output.reading;
  if (end == StepEnd::skip_first) return std::max(0, session.case_store.skip_effective);
  if (end == StepEnd::skip_last) return reading.skip_terminal;
  return end == StepEnd::trim_first ? reading.trim_initial : reading.trim_terminal;
}

std::string_view SetStepCount(Session& session, StepEnd end, int n) {
  if (n < 0) return kIllegalValue;
  const SettingFault fault = Set(session, end, n);
  if (fault == SettingFault::all_trimmed) return kTooMany;
  return fault == SettingFault::none ? std::string_view() : kIllegalValue;
}

}  // namespace zaview
