// Questions of the data plot on the text screen: the file of its data, and the steps at which a trajectory shows the
// hull.
#include "views/data_plot/plot_questions.h"

#include <algorithm>
#include <string>
#include <string_view>

#include <fmt/format.h>

#include "base/message.h"
#include "case/quantity_catalogue.h"
#include "frame/ground/prompts.h"
#include "views/data_plot/data_plot.h"
#include "views/data_plot/plot_type.h"
#include "views/state/screen_question.h"

namespace zaview {

namespace {

constexpr std::string_view kBadStep = "TopScreenInput Logic error : screen_io_step= {}";
constexpr std::string_view kNamePrompt = "(RETURN to abort) => ";
constexpr std::string_view kAskAgain = "File output abort - re-specify";
constexpr std::string_view kExists = "File {} exists - overwrite (y/n) ";
constexpr std::string_view kHullSteps = "Enter time steps (by index) at which to plot geometry ";
constexpr std::string_view kHullForms[] = {"   IBEG             one step", "   IBEG IEND        a range",
                                           "   IBEG IEND INC    a range with increment",
                                           "   0 ends the list, -1 marks all steps"};
constexpr std::string_view kBackToPlot = "Returning to plot ...";
constexpr int kOverwriteStep = 2;

// ---- The file of the plot's data
void AskName(Session& s, std::string_view note) {
  const PlotType& type = PlotTypeOf(s.data_plot.kind);
  const std::string_view what =
      type.file_what.empty() ? QuantityLabel(s.case_store, s.data_plot.quantity.iqnt) : type.file_what;
  AskOnScreen(s, {type.file_prompt, what}, ScreenMode::free, kNamePrompt, note);
}

void WriteNow(Session& s, const std::string& name) {
  EndQuestion(s);
  static_cast<void>(WritePlotData(s, name));  // it was told
}

void TakeName(Session& s, std::string_view text) {
  PlotSessionState& p = s.plot_session;
  if (text.empty()) return EndQuestion(s);
  p.screen_io_file = text;
  if (!s.platform.files.facts(s.platform.files.self, p.screen_io_file).exists) return WriteNow(s, p.screen_io_file);
  p.screen_io_step = kOverwriteStep;
  AskOnScreen(s, {}, ScreenMode::free, fmt::format(kExists, p.screen_io_file), "");
}

void TakeOverwrite(Session& s, std::string_view text) {
  PlotSessionState& p = s.plot_session;
  if (text.empty() || text == "Y" || text == "y") return WriteNow(s, p.screen_io_file);
  p.screen_io_step = kFirstAnswer;
  AskName(s, kAskAgain);
}

// ---- Steps of the hull
void AskNextSteps(Session& s, std::string_view note) {
  const CaseStore& store = s.case_store;
  const std::string in_use = fmt::format("   Steps {} to {} are in use", store.first_step, store.last_step);
  const std::string marked = fmt::format("   {} steps are marked", s.plot_session.screen_io_steps.size());
  AskOnScreen(s, {kHullSteps, kHullForms[0], kHullForms[1], kHullForms[2], kHullForms[3], in_use, marked},
              ScreenMode::integer, "=> ", note);
}

}  // namespace

void TakeFileAnswer(Session& s, std::string_view text) {
  const int step = s.plot_session.screen_io_step;
  if (step == kFirstAnswer) return TakeName(s, text);
  if (step == kOverwriteStep) return TakeOverwrite(s, text);
  Say(s.platform.console, kBadStep, step);
  EndQuestion(s);
}

void TakeHullSteps(Session& s, std::string_view text) {
  std::vector<int>& steps = s.plot_session.screen_io_steps;
  const bool given_up = text.empty() && steps.empty();
  const StepAnswer answer = text.empty()
                                ? StepAnswer::end
                                : TakeStepAnswer(text, true, s.case_store.first_step, s.case_store.last_step, steps);
  std::sort(steps.begin(), steps.end());
  steps.erase(std::unique(steps.begin(), steps.end()), steps.end());
  if (answer != StepAnswer::end) return AskNextSteps(s, answer == StepAnswer::bad ? kIllegalValue : "");
  SayLine(s.platform.console, kBackToPlot);
  if (!given_up) s.data_plot.marked_steps = std::move(steps);
  steps.clear();
  EndQuestion(s);
}

void AskPlotFile(Session& session) {
  const PlotType& type = PlotTypeOf(session.data_plot.kind);
  if (type.write == nullptr) return;
  session.plot_session.screen_io_option = kFileQuestion;
  session.plot_session.screen_io_step = kFirstAnswer;
  AskName(session, "");
}

void AskHullSteps(Session& session) {
  if (!session.case_store.has_steps()) return SayLine(session.platform.console, kNoStepsToAsk);
  session.plot_session.screen_io_option = kStepsQuestion;
  session.plot_session.screen_io_steps.clear();
  AskNextSteps(session, "");
}

}  // namespace zaview
