#include "views/data_plot/screen_dialogue.h"

#include <algorithm>
#include <initializer_list>
#include <string>
#include <string_view>

#include <fmt/format.h>

#include "base/message.h"
#include "base/number_parse.h"
#include "base/text.h"
#include "case/quantity_catalogue.h"
#include "case/settings/step_settings.h"
#include "frame/ground/prompts.h"
#include "gks/window/text_screen.h"
#include "views/data_plot/data_plot.h"
#include "views/data_plot/plot_type.h"

namespace zaview {

namespace {

constexpr std::string_view kBadStep = "TopScreenInput Logic error : screen_io_step={}";
constexpr std::string_view kBadOption = "TopScreenInput Logic error : screen_io_option={}";
constexpr std::string_view kNamePrompt = "(RETURN to abort) => ";
constexpr std::string_view kTrack = "Trajectory";
constexpr std::string_view kAskAgain = "File output abort - re-specify";
constexpr std::string_view kExists = "File {} exists - overwrite (y/n) ";
constexpr std::string_view kKeepPrompt = "(RETURN to keep) => ";
constexpr std::string_view kTooMany = "ILLEGAL value - too many steps trimmed";
constexpr std::string_view kIllegal = "Illegal value";
constexpr std::string_view kNoSteps = "ERROR - the case has no time steps";
constexpr std::string_view kHullSteps = "Enter time steps (by index) at which to plot geometry ";
constexpr std::string_view kHullForms[] = {"   IBEG             one step", "   IBEG IEND        a range",
                                           "   IBEG IEND INC    a range with increment",
                                           "   0 ends the list, -1 marks all steps"};
constexpr std::string_view kBackToPlot = "Returning to plot ...";
constexpr int kNameStep = 1, kOverwriteStep = 2;

// Below the lines that tell what is asked for: they go with each answer.
void Ask(Session& s, std::initializer_list<std::string_view> lines, ScreenMode mode, std::string_view prompt,
         std::string_view fallback) {
  int number = 0;
  for (const std::string_view line : lines) gksScreenLine(s.gks, line, number++);
  gksScreenPrompt(s.platform, s.gks, mode, prompt, fallback);
}

void EndQuestion(Session& s) {
  PlotSessionState& p = s.plot_session;
  p.screen_io_option = kNoQuestion;
  p.screen_io_step = kNameStep;
  s.run.redraw = true;
}

// ---- The file of the plot's data
void AskName(Session& s, std::string_view note) {
  const DataPlotState& plot = s.data_plot;
  const std::string_view what =
      plot.kind == PlotKind::trajectory ? kTrack : QuantityLabel(s.case_store, plot.quantity.iqnt);
  Ask(s, {PlotTypeOf(plot.kind).file_prompt, what}, ScreenMode::free, kNamePrompt, note);
}

void WriteNow(Session& s, const std::string& name) {
  EndQuestion(s);
  WritePlotData(s, name);
}

void TakeName(Session& s, std::string_view text) {
  PlotSessionState& p = s.plot_session;
  if (text.empty()) return EndQuestion(s);
  p.screen_io_file = text;
  if (!s.platform.files.facts(s.platform.files.self, p.screen_io_file).exists) return WriteNow(s, p.screen_io_file);
  p.screen_io_step = kOverwriteStep;
  Ask(s, {}, ScreenMode::free, fmt::format(kExists, p.screen_io_file), "");
}

void TakeOverwrite(Session& s, std::string_view text) {
  PlotSessionState& p = s.plot_session;
  if (text.empty() || text == "Y" || text == "y") return WriteNow(s, p.screen_io_file);
  p.screen_io_step = kNameStep;
  AskName(s, kAskAgain);
}

void TakeFileAnswer(Session& s, std::string_view text) {
  const int step = s.plot_session.screen_io_step;
  if (step == kNameStep) return TakeName(s, text);
  if (step == kOverwriteStep) return TakeOverwrite(s, text);
  Say(s.platform.console, kBadStep, step);
  EndQuestion(s);
}

// ---- Steps to skip and trim
struct StepCountRow {
  int option;
  std::string_view question;
  int (*value)(const Session& s);
  bool (*set)(Session& s, int n);  // false: too many
};

// What is shown is made of other steps now.
void TakeOtherSteps(Session& s) {
  DataPlotState& plot = s.data_plot;
  MarkAllStale(plot);
  plot.settings = s.output;
  if (!plot.limits_changed && !plot.keep_scale) plot.rescale = true;
}

bool SkipsAll(const CaseStore& store, int first, int last) {
  return static_cast<long>(first) + last > static_cast<long>(store.last_step) - store.first_step;
}

bool SetSkipFirst(Session& s, int n) {
  if (SkipsAll(s.case_store, n, s.output.reading.skip_terminal)) return false;
  SetSkips(n, s.output.reading.skip_terminal, s.output, s.case_store);
  return true;
}

bool SetSkipLast(Session& s, int n) {
  if (SkipsAll(s.case_store, s.case_store.skip_effective, n)) return false;
  s.output.reading.skip_terminal = n;
  return true;
}

template <int ReadingSettings::*trim, int ReadingSettings::*other>
bool SetTrim(Session& s, int n) {
  if (TrimsAll(s.case_store, n, s.output.reading.*other)) return false;
  s.output.reading.*trim = n;
  RetrimRecords(s.platform.console, s.output, s.case_store, s.ensemble);
  return true;
}

constexpr StepCountRow kStepCounts[] = {
    {kSkipFirst, "Enter # of INITIAL time steps to skip in statistics",
     [](const Session& s) { return std::max(0, s.case_store.skip_effective); }, SetSkipFirst},
    {kSkipLast, "Enter # of TERMINAL time steps to skip in statistics",
     [](const Session& s) { return s.output.reading.skip_terminal; }, SetSkipLast},
    {kTrimFirst, "Enter # of INITIAL time steps to trim (all output)",
     [](const Session& s) { return s.output.reading.trim_initial; },
     SetTrim<&ReadingSettings::trim_initial, &ReadingSettings::trim_terminal>},
    {kTrimLast, "Enter # of TERMINAL time steps to trim (all output)",
     [](const Session& s) { return s.output.reading.trim_terminal; },
     SetTrim<&ReadingSettings::trim_terminal, &ReadingSettings::trim_initial>},
};

const StepCountRow* FindStepCount(int option) {
  for (const StepCountRow& row : kStepCounts)
    if (row.option == option) return &row;
  return nullptr;
}

void AskAgain(Session& s, const StepCountRow& row, std::string_view why) {
  SayLine(s.platform.console, why);
  Ask(s, {row.question}, ScreenMode::integer, kKeepPrompt, why);
}

void TakeStepCount(Session& s, const StepCountRow& row, std::string_view text) {
  int n = 0;
  if (text.empty()) return EndQuestion(s);
  if (!ParseInteger(text, n) || n < 0) return AskAgain(s, row, kIllegal);
  if (!row.set(s, n)) return AskAgain(s, row, kTooMany);
  TakeOtherSteps(s);
  EndQuestion(s);
}

// ---- Steps of the hull
void AskNextSteps(Session& s, std::string_view note) {
  const CaseStore& store = s.case_store;
  const std::string in_use = fmt::format("   Steps {} to {} are in use", store.first_step, store.last_step);
  const std::string marked = fmt::format("   {} steps are marked", s.plot_session.screen_io_steps.size());
  Ask(s, {kHullSteps, kHullForms[0], kHullForms[1], kHullForms[2], kHullForms[3], in_use, marked}, ScreenMode::integer,
      "=> ", note);
}

void TakeHullSteps(Session& s, std::string_view text) {
  std::vector<int>& steps = s.plot_session.screen_io_steps;
  const bool given_up = text.empty() && steps.empty();
  const StepAnswer answer = text.empty()
                                ? StepAnswer::end
                                : TakeStepAnswer(text, true, s.case_store.first_step, s.case_store.last_step, steps);
  std::sort(steps.begin(), steps.end());
  steps.erase(std::unique(steps.begin(), steps.end()), steps.end());
  if (answer != StepAnswer::end) return AskNextSteps(s, answer == StepAnswer::bad ? kIllegal : "");
  SayLine(s.platform.console, kBackToPlot);
  if (!given_up) s.data_plot.marked_steps = std::move(steps);
  steps.clear();
  EndQuestion(s);
}

}  // namespace

void AskPlotFile(Session& session) {
  const PlotType& type = PlotTypeOf(session.data_plot.kind);
  if (type.write == nullptr) return;
  session.plot_session.screen_io_option = kFileQuestion;
  session.plot_session.screen_io_step = kNameStep;
  AskName(session, "");
}

void AskStepCount(Session& session, int option) {
  const StepCountRow* row = FindStepCount(option);
  if (row == nullptr) return;
  if (!session.case_store.has_steps()) return SayLine(session.platform.console, kNoSteps);
  session.plot_session.screen_io_option = option;
  Ask(session, {row->question}, ScreenMode::integer, kKeepPrompt, fmt::format("{}", row->value(session)));
}

void AskHullSteps(Session& session) {
  if (!session.case_store.has_steps()) return SayLine(session.platform.console, kNoSteps);
  session.plot_session.screen_io_option = kStepsQuestion;
  session.plot_session.screen_io_steps.clear();
  AskNextSteps(session, "");
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
