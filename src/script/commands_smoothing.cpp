// Commands that smooth: what is shown, or what is stored.
#include <vector>

#include "base/number_format.h"
#include "base/number_parse.h"
#include "case/settings/smoothing_settings.h"
#include "script/call_arguments.h"
#include "script/command_table.h"
#include "script/setting_words.h"

namespace zaview {

namespace {

int RunSmoothData(ScriptCall& call) {
  constexpr WordValue kWords[] = {{"OFF", 0}, {"NONE", 0}, {"ON", kCubicSmoothing}};
  const std::string word = NextScriptWord(call.words, kKeyword);
  int option = -1;
  double number = 0;
  if (!FindWord(kWords, word, option) && ParseDouble(word, number)) option = RoundToInt(number);
  if (SetSmoothing(option, call.session.output.smoothing) != SettingFault::none)
    return Fail(call, kScriptBadArgument, kBadWord, call.command, word);
  return kScriptOk;
}

int RunSmoothWindow(ScriptCall& call) {
  int width = 0;
  if (const int status = ReadWhole(call, width); status != kScriptOk) return status;
  if (SetSmoothingWindow(width, call.session.output.smoothing) != SettingFault::none)
    return Fail(call, kScriptBadArgument, kInvalidValue, call.command);
  return kScriptOk;
}

int RunSmoothInput(ScriptCall& call) {
  Session& session = call.session;
  std::vector<float> values;
  if (!ParseRealList(call.words, -2, values) || values.empty())
    return Fail(call, kScriptFailed, kFewArguments, call.command);
  const int option = RoundToInt(static_cast<double>(values[0]));
  const int width = values.size() > 1 ? RoundToInt(static_cast<double>(values[1])) : 0;
  if (SmoothRecords(call.console(), option, width, session.case_store, session.ensemble) == SettingFault::none)
    return kScriptOk;
  const float bad = option == kCubicSmoothing && values.size() > 1 ? values[1] : values[0];
  return Fail(call, kScriptBadArgument, kBadWord, call.command, Shown{bad});
}

constexpr Command kSmoothing[] = {
    {{"SMOOTH_DATA", "SMOOTHDATA", "SMOOTH"},
     kNone,
     RunSmoothData,
     "OFF|NONE|ON|0|1|2|3",
     "Smoothing of what is shown: 1 small window, 2 Fourier series, 3 or ON cubic over the window",
     "OFF"},
    {{"SMOOTH_NPT", "SMOOTH_WINDOW", "SMOOTHNPT", "SMOOTHWINDOW"},
     kNone,
     RunSmoothWindow,
     "steps",
     "Window of the cubic smoothing, at least 5",
     "11"},
    {{"SMOOTH_INPUT", "SMOOTHINPUT"},
     kNeedsCase | kNeedsMotion,
     RunSmoothInput,
     "option [steps]",
     "Smooths what is stored, in all records: 1 small window, 3 cubic over so many steps"},
};

}  // namespace

CommandFamily SmoothingCommands() {
  return kSmoothing;
}

}  // namespace zaview
