#include "views/state/step_counts.h"

#include <algorithm>
#include <cstddef>

#include "case/settings/step_settings.h"
#include "views/state/plot_scopes.h"
#include "views/state/screen_question.h"

namespace zaview {

namespace {

constexpr std::string_view kTooMany = "ILLEGAL value - too many steps trimmed";

struct StepCounts {
  long skip_first = 0, skip_last = 0, trim_first = 0, trim_last = 0, stride = 1;
};

StepCounts CountsOf(const Session& s) {
  const ReadingSettings& reading = s.output.reading;
  return {.skip_first = s.case_store.skip_effective,
          .skip_last = reading.skip_terminal,
          .trim_first = reading.trim_initial,
          .trim_last = reading.trim_terminal,
          .stride = std::max(1, reading.step_stride)};
}

// A plot of statistics takes two points at least: without them its view would be lost.
bool LeavesNoPlot(const Session& s, const StepCounts& counts, bool trims) {
  const CaseStore& store = s.case_store;
  const bool of_statistics = (ScopeOf(s.data_plot.kind) & kOneCurve) != 0;
  if (s.run.plot_module != PlotModule::data_plot || !of_statistics || !store.has_steps()) return false;
  const long in_store = static_cast<long>(store.last_read) - store.first_read - counts.trim_first - counts.trim_last;
  const long in_use = static_cast<long>(store.last_step) - store.first_step;
  return (trims ? in_store : in_use) - counts.skip_first - counts.skip_last < counts.stride;
}

SettingFault Skip(Session& s, const StepCounts& counts, StepEnd end) {
  const int first = static_cast<int>(counts.skip_first), last = static_cast<int>(counts.skip_last);
  if (SkipsAll(s.case_store, first, last) || LeavesNoPlot(s, counts, false)) return SettingFault::all_trimmed;
  if (end == StepEnd::skip_first) return SetSkips(first, last, s.output, s.case_store);
  s.output.reading.skip_terminal = last;  // the default at the other end stays a default
  return SettingFault::none;
}

SettingFault Trim(Session& s, const StepCounts& counts) {
  if (LeavesNoPlot(s, counts, true)) return SettingFault::all_trimmed;
  TrimOutcome outcome;
  return SetTrims(s.platform.console, static_cast<int>(counts.trim_first), static_cast<int>(counts.trim_last), s.output,
                  s.case_store, s.ensemble, outcome);
}

constexpr long StepCounts::*kCounts[] = {&StepCounts::skip_first, &StepCounts::skip_last, &StepCounts::trim_first,
                                         &StepCounts::trim_last};  // by StepEnd

SettingFault Set(Session& s, StepEnd end, int n) {
  StepCounts counts = CountsOf(s);
  counts.*kCounts[static_cast<std::size_t>(end)] = n;
  return end == StepEnd::skip_first || end == StepEnd::skip_last ? Skip(s, counts, end) : Trim(s, counts);
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

std::string_view SetStepStride(Session& session, int n) {
  const CaseStore& store = session.case_store;
  StepCounts counts = CountsOf(session);
  counts.stride = n;
  if (n > std::max(store.last_step - store.first_step, 1) || LeavesNoPlot(session, counts, false))
    return kIllegalIgnored;
  return SetStride(n, session.output.reading) == SettingFault::none ? std::string_view() : kIllegalIgnored;
}

}  // namespace zaview
