// Commands that smooth: what is shown, or what is stored.
#include <vector>

#include "base/number_format.h"
#include "base/number_parse.h"
#include "case/read/ensemble_match.h"
#include "case/smooth_stored.h"
#include "script/command_table.h"
#include "script/open_script_file.h"
#include "script/setting_words.h"

namespace zaview {

namespace {

inline constexpr int kLeastWindow = 5;
inline constexpr int kCubic = 3;  // the option that has a window

int RunSmoothData(ScriptCall& call) {
  constexpr WordValue kWords[] = {{"OFF", 0}, {"NONE", 0}, {"ON", kCubic}};
  int& option = call.session.output.smoothing.option;
  const std::string word = NextScriptWord(call.words, kKeyword);
  if (FindWord(kWords, word, option)) return kScriptOk;
  double number = 0;
  if (!ParseDouble(word, number) || RoundToInt(number) < 0 || RoundToInt(number) > kCubic)
    return Fail(call, kScriptBadArgument, kBadWord, call.command, word);
  option = RoundToInt(number);
  return kScriptOk;
}

int RunSmoothWindow(ScriptCall& call) {
  std::vector<float> values;
  if (!ParseRealList(call.words, 1, values)) return Fail(call, kScriptFailed, kFewArguments, call.command);
  const int width = RoundToInt(static_cast<double>(values[0]));
  if (width < kLeastWindow) return Fail(call, kScriptBadArgument, kInvalidValue, call.command);
  call.session.output.smoothing.window = width;
  return kScriptOk;
}

// Every record of an ensemble: statistics of it must not mix smoothed records with others.
int RunSmoothInput(ScriptCall& call) {
  Session& session = call.session;
  std::vector<float> values;
  if (!ParseRealList(call.words, -2, values) || values.empty())
    return Fail(call, kScriptFailed, kFewArguments, call.command);
  const int option = RoundToInt(static_cast<double>(values[0]));
  const int width = values.size() > 1 ? RoundToInt(static_cast<double>(values[1])) : 0;
  const bool valid = option == 1 || (option == kCubic && width >= kLeastWindow);
  const float bad = option == kCubic && values.size() > 1 ? values[1] : values[0];
  if (!valid) return Fail(call, kScriptBadArgument, kBadWord, call.command, Shown{bad});
  const int window = option == 1 ? kLeastWindow : width;
  const auto smooth = [&call, &session, option, window](CaseStore& record) {
    SmoothStored(call.console(), option, window, record);
    MarkChanged(session.ensemble, record);
  };
  smooth(session.case_store);
  for (std::size_t i = 0; i < session.ensemble.record.size(); ++i)
    if (static_cast<int>(i) + 1 != session.ensemble.irec) smooth(session.ensemble.record[i]);
  return kScriptOk;
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
