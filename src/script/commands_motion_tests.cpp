// Commands on what motions tell: roll decay, forced motion, motions with their time moved on.
#include <string>
#include <vector>

#include "analysis/motion_tests/extrapolated_motion.h"
#include "analysis/motion_tests/forced_motion.h"
#include "analysis/motion_tests/roll_decay_report.h"
#include "base/number_parse.h"
#include "script/call_arguments.h"
#include "script/command_table.h"
#include "script/fault_status.h"
#include "script/output_argument.h"
#include "views/state/result_choice.h"

namespace zaview {

namespace {

constexpr std::string_view kNoRollDecay[] = {"ERROR - {} : cannot be run as ZAVO calculation",
                                             "   does not seem to simulat a roll decay test."};
constexpr std::string_view kRollDecayNotOpen = "ERROR opening roll decay output file {}{}";
constexpr std::string_view kNotOpen = "ERROR opening output file {}{}";
constexpr std::string_view kLongName = "ERROR opening output file {}";

int WriteDecay(ScriptCall& call, bool bias) {
  OutputArgument output;
  if (const int status = OpenOutputArgument(call, OutputForms::formatted, output, kRollDecayNotOpen);
      status != kScriptOk)
    return status;
  const RollDecayWork work{call.session.platform, call.session.output, call.session.case_store};
  int status = kScriptFailed;
  if (IsRollDecay(work.store)) {
    RollDecayResult result;
    status = StatusOf(call, "", WriteRollDecay(work, bias, output.file, result));
    if (status == kScriptOk) KeepResult(call.session.data_plot, RollDecayPlot(work.store, result));
  } else {
    Say(call.console(), fmt::runtime(kNoRollDecay[0]), call.command);
    SayLine(call.console(), kNoRollDecay[1]);
  }
  return FinishOutput(call, output, status, RollDecayWritten(work.store));
}

int RunRollDecay(ScriptCall& call) {
  return WriteDecay(call, false);
}
int RunRollDecayBias(ScriptCall& call) {
  return WriteDecay(call, true);
}

int RunForcedMotion(ScriptCall& call) {
  std::string names[2];
  for (std::string& name : names)
    if (const int status = ReadFileName(call, BlankName::allowed, name, kLongName); status != kScriptOk) return status;
  const ForcedMotionWork work{call.session.platform, call.session.output, call.session.case_store};
  ForcedMotionResult result;
  if (!WriteForcedMotion(work, names[0], names[1], result)) return kScriptFailed;
  KeepResult(call.session.data_plot, ForcedMotionPlot(work, result));
  return kScriptOk;
}

int RunExtrapolate(ScriptCall& call) {
  Session& session = call.session;
  std::vector<float> values;
  if (const int status = ReadNumbers(call, 2, values); status != kScriptOk) return status;
  const ExtrapolationRequest request{RoundToInt(static_cast<double>(values[0])), values[1]};
  OutputArgument output;
  if (const int status = OpenOutputArgument(call, OutputForms::formatted, output, kNotOpen); status != kScriptOk)
    return status;
  int status = kScriptFailed;
  if (ExtrapolationAllowed(call.console(), session.case_store, request))
    status = StatusOf(
        call, "", WriteExtrapolatedMotion(call.console(), session.output, request, session.case_store, output.file));
  return FinishOutput(call, output, status, "Extrapolated motion data written to");
}

constexpr Command kMotionTests[] = {
    {{"WRITE_ROLL_DECAY_COEF", "WRITE_RDC", "ROLL_DECAY_COEF", "RDC"},
     kNeedsCase | kNeedsMotion,
     RunRollDecay,
     "file",
     "Coefficients of a free roll decay by amplitude, its period, and the added mass that follows from it"},
    {{"WRITE_ROLL_DECAY_COEF_BIAS", "WRITE_RDC_BIAS", "ROLL_DECAY_COEF_BIAS", "RDC_BIAS"},
     kNeedsCase | kNeedsMotion,
     RunRollDecayBias,
     "file",
     "The same of a ship that rolls about a mean angle"},
    {{"FORCED_MOTION_ANALYSIS", "FORCED_MOTION"},
     kNeedsCase | kNeedsMotion,
     RunForcedMotion,
     "table table",
     "Added mass and damping of a forced heave or pitch; the force and what the fit makes of it"},
    {{"EXTRAPOLATE_MOTION"},
     kNeedsCase | kNeedsMotion,
     RunExtrapolate,
     "forecast ahead file",
     "Motions with their time moved on"},
};

}  // namespace

CommandFamily MotionTestCommands() {
  return kMotionTests;
}

}  // namespace zaview
