// Commands that smooth: what is shown, or what is stored.
#include <vector>

#include "base/number_parse.h"
#include "base/text.h"
#include "case/smooth_stored.h"
#include "script/command_table.h"
#include "script/open_script_file.h"

namespace zaview {

namespace {

inline constexpr std::string_view kInvalidWord = "ERROR - Invalid argument for {} command : {}";
inline constexpr int kLeastWindow = 5;
inline constexpr int kCubic = 3;  // the option that has a window

int RunSmoothData(ScriptCall& call) {
  struct OptionWord {
    std::string_view word;
    int option;
  };
  constexpr OptionWord kWords[] = {
      {"OFF",  0     },
      {"NONE", 0     },
      {"ON",   kCubic},
      {"0",    0     },
      {"1",    1     },
      {"2",    2     },
      {"3",    kCubic}
  };
  const std::string word = NextScriptWord(call.words, kKeyword);
  for (const OptionWord& row : kWords) {
    if (Capitals(word) != row.word) continue;
    call.session.output.smooth_option = row.option;
    return kScriptOk;
  }
  return Fail(call, kScriptBadArgument, kInvalidWord, call.command, word);
}

int RunSmoothWindow(ScriptCall& call) {
  std::vector<float> values;
  if (!ParseRealList(call.words, 1, values)) return Fail(call, kScriptFailed, kFewArguments, call.command);
  const int width = RoundToInt(static_cast<double>(values[0]));
  if (width < kLeastWindow) return Fail(call, kScriptBadArgument, kInvalidValue, call.command);
  call.session.output.smooth_window = width;
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
  if (!valid) return Fail(call, kScriptBadArgument, kInvalidValue, call.command);
  SmoothStored(call.console(), option, option == 1 ? kLeastWindow : width, session.case_store);
  for (std::size_t i = 0; i < session.ensemble.record.size(); ++i)
    if (static_cast<int>(i) + 1 != session.ensemble.irec)
      SmoothStored(call.console(), option, option == 1 ? kLeastWindow : width, session.ensemble.record[i]);
  return kScriptOk;
}

constexpr Command kSmoothing[] = {
    {{"SMOOTH_DATA", "SMOOTHDATA", "SMOOTH"},                      kNone,      RunSmoothData  },
    {{"SMOOTH_NPT", "SMOOTH_WINDOW", "SMOOTHNPT", "SMOOTHWINDOW"}, kNone,      RunSmoothWindow},
    {{"SMOOTH_INPUT", "SMOOTHINPUT"},                              kNeedsCase, RunSmoothInput },
};

}  // namespace

CommandFamily SmoothingCommands() {
  return kSmoothing;
}

}  // namespace zaview
