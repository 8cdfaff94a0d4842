// Commands that compute righting arms.
#include <string>
#include <vector>

#include "analysis/righting_arms/righting_arms.h"
#include "analysis/righting_arms/righting_arms_plot.h"
#include "base/number_parse.h"
#include "script/call_arguments.h"
#include "script/command_table.h"
#include "views/state/result_choice.h"

namespace zaview {

namespace {

constexpr std::string_view kIllegalArgument = "ERROR - Illegal argument for {} command...";
constexpr std::string_view kLongName = "ERRGZSTAB02 - ERROR opening GZ curve output file: {}";

// First step, last step, increment, balance, wave option, largest angle, number of angles.
int ReadRequest(ScriptCall& call, RightingArmRequest& request) {
  constexpr int kNumbers = 7;
  std::vector<float> values;
  if (!ParseRealList(call.words, kNumbers, values))
    return Fail(call, kScriptBadArgument, kIllegalArgument, call.command);
  const auto integer = [&values](std::size_t i) { return RoundToInt(static_cast<double>(values[i])); };
  request.steps = {StepCount(values[0]), StepCount(values[1]), StepCount(values[2])};
  request.balance = integer(3);
  request.wave_option = integer(4);
  request.max_angle = values[5];
  request.nangle = integer(6);
  return kScriptOk;
}

int RunArms(ScriptCall& call, ArmDirection direction) {
  Session& session = call.session;
  RightingArmRequest request;
  request.direction = static_cast<int>(direction);
  if (const int status = ReadRequest(call, request); status != kScriptOk) return status;
  std::string names[2];
  for (std::string& name : names)
    if (const int status = ReadFileName(call, BlankName::allowed, name, kLongName); status != kScriptOk) return status;
  if (!CheckRightingArms(call.console(), session.case_store, request))
    return Fail(call, kScriptBadArgument, kIllegalArgument, call.command);
  RightingArmOutputs outputs;
  if (!OpenRightingArmFiles(session.platform, direction, names[0], names[1], outputs)) return kScriptFailed;
  RightingArms result;
  const ArmsAnswer answer = GZCurves(session.platform, session.output, request, session.case_store, outputs, result);
  if (answer != ArmsAnswer::ok) return kScriptFailed;
  KeepResult(session.data_plot, RightingArmsPlot(result));
  return kScriptOk;
}

int RunHeel(ScriptCall& call) {
  return RunArms(call, ArmDirection::transverse);
}

int RunTrim(ScriptCall& call) {
  return RunArms(call, ArmDirection::longitudinal);
}

constexpr std::string_view kArguments = "first last increment balance wave heel count arms statistics";

constexpr Command kRightingArms[] = {
    {{"GZ_CURVES", "GZCURVES", "WRITE_GZ_CURVES", "WRITE_GZCURVES"},
     kNeedsCase | kNeedsMotion | kNeedsGeometry,
     RunHeel,
     kArguments,
     "Righting arms over heel, in the waves of each step"},
    {{"GZL_CURVES", "GZLCURVES", "WRITE_GZL_CURVES", "WRITE_GZLCURVES"},
     kNeedsCase | kNeedsMotion | kNeedsGeometry,
     RunTrim,
     kArguments,
     "Righting arms over trim, in the waves of each step"},
};

}  // namespace

CommandFamily RightingArmCommands() {
  return kRightingArms;
}

}  // namespace zaview
