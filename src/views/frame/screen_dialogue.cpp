#include "views/frame/screen_dialogue.h"

#include <algorithm>
#include <string>
#include <string_view>

#include <fmt/format.h>

#include "base/message.h"
#include "base/number_parse.h"
#include "base/text.h"
#include "case/settings/step_settings.h"
#include "views/data_plot/plot_questions.h"

namespace zaview {

namespace {

constexpr std::string_view kBadOption = "TopScreenInput Logic error : screen_io_option= {}";
constexpr std::string_view kKeepPrompt = "(RETURN to keep) => ";
constexpr std::string_view kTooMany = "ILLEGAL value - too many steps trimmed";

struct StepCountRow {
  int option;
  std::string_view question;
  int (*value)(const Session& s);
  bool (*set)(Session& s, int n);  // false: too many
};

bool SetSkipFirst(Session& s, int n) {
  if (SkipsAll(s.case_store, n, s.output.reading.skip_terminal)) return false;
  return SetSkips(n, s.output.reading.skip_terminal, s.output, s.case_store) == SettingFault::none;
}

bool SetSkipLast(Session& s, int n) {
  if (SkipsAll(s.case_store, s.case_store.skip_effective, n)) return false;
  s.output.reading.skip_terminal = n;
  return true;
}

bool SetTrimsOf(Session& s, int initial, int terminal) {
  TrimOutcome outcome;
  return SetTrims(s.platform.console, initial, terminal, s.output, s.case_store, s.ensemble, outcome) ==
         SettingFault::none;
}

constexpr StepCountRow kStepCounts[] = {
    {kSkipFirst, "Enter # of INITIAL time steps to skip in statistics",
     [](const Session& s) { return std::max(0, s.case_store.skip_effective); }, SetSkipFirst},
    {kSkipLast, "Enter # of TERMINAL time steps to skip in statistics",
     [](const Session& s) { return s.output.reading.skip_terminal; }, SetSkipLast},
    {kTrimFirst, "Enter # of INITIAL time steps to trim (all output)",
     [](const Session& s) { return s.output.reading.trim_initial; },
     [](Session& s, int n) { return SetTrimsOf(s, n, s.output.reading.trim_terminal); }},
    {kTrimLast, "Enter # of TERMINAL time steps to trim (all output)",
     [](const Session& s) { return s.output.reading.trim_terminal; },
     [](Session& s, int n) { return SetTrimsOf(s, s.output.reading.trim_initial, n); }},
};

const StepCountRow* FindStepCount(int option) {
  for (const StepCountRow& row : kStepCounts)
    if (row.option == option) return &row;
  return nullptr;
}

void AskAgain(Session& s, const StepCountRow& row, std::string_view why) {
  SayLine(s.platform.console, why);
  AskOnScreen(s, {row.question}, ScreenMode::integer, kKeepPrompt, why);
}

void TakeStepCount(Session& s, const StepCountRow& row, std::string_view text) {
  int n = 0;
  if (text.empty()) return EndQuestion(s);
  if (!ParseInteger(text, n) || n < 0) return AskAgain(s, row, kIllegalValue);
  if (!row.set(s, n)) return AskAgain(s, row, kTooMany);
  EndQuestion(s);
}

}  // namespace

void AskStepCount(Session& session, int option) {
  const StepCountRow* row = FindStepCount(option);
  if (row == nullptr) return;
  if (!session.case_store.has_steps()) return SayLine(session.platform.console, kNoStepsToAsk);
  session.plot_session.screen_io_option = option;
  AskOnScreen(session, {row->question}, ScreenMode::integer, kKeepPrompt, fmt::format("{}", row->value(session)));
}

void TopScreenInput(Session& session, std::string_view text) {
  const int option = session.plot_session.screen_io_option;
  text = Trim(text);
  if (option == kNoQuestion) return EndQuestion(session);
  if (option == kFileQuestion) return TakeFileAnswer(session, text);
  if (option == kStepsQuestion) return TakeHullSteps(session, text);
  if (const StepCountRow* row = FindStepCount(option)) return TakeStepCount(session, *row, text);
  Say(session.platform.console, kBadOption, option);
  EndQuestion(session);
}

}  // namespace zaview
