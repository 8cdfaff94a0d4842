#include "views/frame/screen_dialogue.h"

#include <string>
#include <string_view>

#include <fmt/format.h>

#include "base/message.h"
#include "base/number_parse.h"
#include "base/text.h"
#include "views/data_plot/plot_questions.h"
#include "views/state/step_counts.h"

namespace zaview {

namespace {

constexpr std::string_view kBadOption = "TopScreenInput Logic error : screen_io_option= {}";
constexpr std::string_view kKeepPrompt = "(RETURN to keep) => ";

struct StepCountRow {
  int option;
  StepEnd end;
  std::string_view question;
};

constexpr StepCountRow kStepCounts[] = {
    {kSkipFirst, StepEnd::skip_first, "Enter # of INITIAL time steps to skip in statistics"},
    {kSkipLast, StepEnd::skip_last, "Enter # of TERMINAL time steps to skip in statistics"},
    {kTrimFirst, StepEnd::trim_first, "Enter # of INITIAL time steps to trim (all output)"},
    {kTrimLast, StepEnd::trim_last, "Enter # of TERMINAL time steps to trim (all output)"},
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
  if (!ParseInteger(text, n)) return AskAgain(s, row, kIllegalValue);
  if (const std::string_view refused = SetStepCount(s, row.end, n); !refused.empty()) return AskAgain(s, row, refused);
  EndQuestion(s);
}

}  // namespace

void AskStepCount(Session& session, int option) {
  const StepCountRow* row = FindStepCount(option);
  if (row == nullptr) return;
  if (!session.case_store.has_steps()) return SayLine(session.platform.console, kNoStepsToAsk);
  session.plot_session.screen_io_option = option;
  AskOnScreen(session, {row->question}, ScreenMode::integer, kKeepPrompt,
              fmt::format("{}", StepCountAt(session, row->end)));
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
