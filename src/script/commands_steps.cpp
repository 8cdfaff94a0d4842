// Commands for the steps in use: trims, output range, skips, increment. Trims, skips and increment may stand ahead of
// a READ; they then act on the file that it reads.
#include <optional>
#include <vector>

#include "case/settings/step_settings.h"
#include "script/call_arguments.h"
#include "script/command_table.h"

namespace zaview {

namespace {

constexpr std::string_view kIllegalSteps = "ERROR - Illegal number of steps specified in {} command...";
constexpr std::string_view kAllTrimmed = "ERROR - All steps trimmed by {} command...";
constexpr std::string_view kNoSteps = "ERROR - {} : the case has no time steps";
constexpr std::string_view kIllegalArguments = "ERROR - Illegal arguments for {} command...";
constexpr std::string_view kRangeAtZero = "        Initial time step of range cannot be zero";
constexpr std::string_view kRangeOutside = "        The case has steps {} to {}";
constexpr std::string_view kSkipInForce = "        The case ends at step {}: {} in force";
constexpr std::string_view kLastInForce = "        The case ends at step {}, which is in force";
constexpr std::string_view kRangeUpsideDown = "        Initial time step of range after terminal step";

// One step count, or up to `most` of them, all on the same line.
int ReadCounts(ScriptCall& call, int most, std::vector<int>& counts) {
  std::vector<float> values;
  if (!ParseRealList(call.words, -most, values) || values.empty())
    return Fail(call, kScriptFailed, kFewArguments, call.command);
  counts.clear();
  for (const float value : values) counts.push_back(StepCount(value));
  return kScriptOk;
}

void SayTrimmed(const Console& console, int n, std::string_view where) {
  if (n > 0) Say(console, "{} steps trimmed from {}", n, where);
}

int RunTrimSteps(ScriptCall& call) {
  Session& session = call.session;
  std::vector<int> counts;
  if (const int status = ReadCounts(call, 2, counts); status != kScriptOk) return status;
  const int initial = counts.front();
  const int terminal = counts.back();  // one number trims both ends
  TrimOutcome outcome;
  const SettingFault fault = SetTrims(session.platform.console, initial, terminal, session.output, session.case_store,
                                      session.ensemble, outcome);
  if (fault == SettingFault::illegal) return Fail(call, kScriptBadArgument, kIllegalSteps, call.command);
  if (fault == SettingFault::all_trimmed) return Fail(call, kScriptBadArgument, kAllTrimmed, call.command);
  SayTrimmed(call.console(), initial, "beginning of time history");
  if (outcome.whole) return kScriptOk;
  if (outcome.incomplete_trimmed) SayTrimmed(call.console(), outcome.abort_trim, "end of aborted time history");
  else SayTrimmed(call.console(), terminal, "end of time history");
  return kScriptOk;
}

int RunTrimAbort(ScriptCall& call) {
  Session& session = call.session;
  float value = 0;
  if (const int status = ReadNumber(call, value); status != kScriptOk) return status;
  TrimOutcome outcome;
  if (SetTrimAbort(session.platform.console, StepCount(value), session.output, session.case_store, session.ensemble,
                   outcome) != SettingFault::none)
    return Fail(call, kScriptBadArgument, kIllegalSteps, call.command);
  if (outcome.incomplete_trimmed && !outcome.whole)
    Say(call.console(), "Trimming {} steps from end of time history for aborted case", outcome.abort_trim);
  return kScriptOk;
}

int RunSetSteps(ScriptCall& call) {
  CaseStore& store = call.session.case_store;
  if (!store.has_steps()) return Fail(call, kScriptFailed, kNoSteps, call.command);
  std::vector<int> counts;
  if (const int status = ReadCounts(call, 2, counts); status != kScriptOk) return status;
  const std::optional<int> last = counts.size() > 1 ? std::optional(counts[1]) : std::nullopt;
  (void)SetOutputSteps(counts[0], last, store);
  Say(call.console(), "Output set to time steps {} to {}", store.first_step, store.last_step);
  return kScriptOk;
}

int RunSkipSteps(ScriptCall& call) {
  std::vector<int> counts;
  if (const int status = ReadCounts(call, 2, counts); status != kScriptOk) return status;
  CaseStore& store = call.session.case_store;
  if (SetSkips(counts[0], counts.size() > 1 ? counts[1] : 0, call.session.output, store) != SettingFault::none)
    return Fail(call, kScriptBadArgument, kIllegalSteps, call.command);
  if (counts.size() == 1) {
    Say(call.console(), "Setting # of initial time steps to skip in statistical calculations to {}", counts[0]);
  } else {
    SayLine(call.console(), "Setting # of initial and terminal time steps to skip in");
    Say(call.console(), "statistical calculations to {} and {}, respectively", counts[0], counts[1]);
  }
  if (store.has_steps() && store.skip_effective != counts[0])
    Say(call.console(), kSkipInForce, store.last_step, store.skip_effective);
  return kScriptOk;
}

int RunStatSteps(ScriptCall& call) {
  std::vector<float> values;
  if (const int status = ReadNumbers(call, 2, values); status != kScriptOk) return status;
  const int first = StepCount(values[0]);
  const int last = StepCount(values[1]);
  CaseStore& store = call.session.case_store;
  const SettingFault fault = SetStatSteps(first, last, call.session.output, store);
  if (fault == SettingFault::no_steps) return Fail(call, kScriptFailed, kNoSteps, call.command);
  if (fault != SettingFault::none) {
    Say(call.console(), kIllegalArguments, call.command);
    if (fault == SettingFault::outside) Say(call.console(), kRangeOutside, store.first_step, store.last_step);
    else SayLine(call.console(), first < 1 ? kRangeAtZero : kRangeUpsideDown);
    return kScriptBadArgument;
  }
  Say(call.console(), "Setting time step range for statistical calculations to: {} through {}", first, last);
  if (last > store.last_step) Say(call.console(), kLastInForce, store.last_step);
  return kScriptOk;
}

int RunStepIncrement(ScriptCall& call) {
  std::vector<int> counts;
  if (const int status = ReadCounts(call, 1, counts); status != kScriptOk) return status;
  const int n = counts.front();
  if (SetStride(n, call.session.output.reading) != SettingFault::none)
    return Fail(call, kScriptBadArgument, kInvalidValue, call.command);
  Say(call.console(), "Setting output step increment to {}", n);
  return kScriptOk;
}

constexpr Command kSteps[] = {
    {{"SET_TRIM_STEPS", "TRIM_STEPS", "TRIM_HISTORY", "TRIM_HIST"},
     kNone,
     RunTrimSteps,
     "initial [terminal]",
     "Steps cut from both ends of the record; one number is for both",
     "0 0"},
    {{"SET_TRIM_STEPS_ABORT", "SET_TRIM_ABORT", "TRIM_STEPS_ABORT", "TRIM_ABORT"},
     kNone,
     RunTrimAbort,
     "terminal",
     "Steps cut from the end of a run that ended early",
     "200"},
    {{"SET_STEPS", "OUTPUT_STEPS", "OUT_STEPS"}, kNeedsCase, RunSetSteps, "first [last]", "The steps in use"},
    {{"SET_SKIP_STEPS", "SKIP_STEPS"},
     kNone,
     RunSkipSteps,
     "initial [terminal]",
     "Steps at both ends that statistics leave out; of one number the second is 0"},
    {{"SET_STAT_STEPS", "STAT_STEPS"}, kNeedsCase, RunStatSteps, "first last", "The same as a range of steps"},
    {{"SET_STEP_INCREMENT", "SET_STEP_INC", "STEP_INCREMENT", "STEP_INC"},
     kNone,
     RunStepIncrement,
     "step",
     "Every so many steps go into tables and plots",
     "1"},
};

}  // namespace

CommandFamily StepCommands() {
  return kSteps;
}

}  // namespace zaview
