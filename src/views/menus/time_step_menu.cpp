// The time-step menu: the steps of the run as a bar, trims, and how a run goes.
#include <algorithm>
#include <limits>

#include "base/number_format.h"
#include "base/number_parse.h"
#include "menu/menu_build.h"
#include "menu/menu_layout.h"
#include "views/menus/option_builder.h"
#include "views/state/step_counts.h"
#include "views/state/step_run.h"
#include "views/state/view_key.h"

namespace zaview {

namespace {

constexpr float kMost = std::numeric_limits<float>::max();
constexpr OptionRange kCount{0, 1.0e9F};
constexpr OptionRange kPositive{std::numeric_limits<float>::denorm_min(), kMost};

float TimeOf(const Session& s, int step) {
  return static_cast<float>(ShownTimeOf(s, step));
}

// ---- The run bar
void BuildRunBar(MenuToolkit& kit, Session& s) {
  const CaseStore& store = s.case_store;
  const float begin = Finite(TimeOf(s, store.first_step)), end = Finite(TimeOf(s, store.last_step));
  gksMenuRunBar(kit, store.first_step, store.last_step, std::min(begin, end), end, store.current_step,
                s.plot_session.run_on);
}

std::string_view TakeBar(Session& s, const OptionEvent& event) {
  if (event.change != MenuChange::step) {
    if (s.plot_session.run_on != (event.change == MenuChange::play)) static_cast<void>(ToggleRun(s));
  } else if (event.item == kBackButton || event.item == kOnButton) StepBy(s, event.item == kBackButton ? -1 : 1);
  else GoToStep(s, event.integer);
  return {};
}

// ---- The step
constexpr OptionBinding kStep = {[](Session& s, int) { return OptionValue{.integer = s.case_store.current_step}; },
                                 [](Session& s, const OptionEvent& event) {
                                   const CaseStore& store = s.case_store;
                                   if (event.integer < store.first_step || event.integer > store.last_step)
                                     return kIllegalIgnored;
                                   GoToStep(s, event.integer);
                                   return std::string_view();
                                 }};

float InFewDigits(float value) {
  double few = 0;
  return ParseDouble(SentenceNumber(value), few) ? static_cast<float>(few) : value;
}

// A time that is shown has fewer digits than that of the step.
constexpr OptionBinding kTime = {
    [](Session& s, int) { return OptionValue{.real = InFewDigits(TimeOf(s, s.case_store.current_step))}; },
    [](Session& s, const OptionEvent& event) {
      const CaseStore& store = s.case_store;
      const float begin = TimeOf(s, store.first_step), end = TimeOf(s, store.last_step);
      const float step = (end - begin) / static_cast<float>(std::max(store.last_step - store.first_step, 1));
      if (!(event.real >= begin - step && event.real <= end + step)) return kIllegalIgnored;
      GoToStep(s, StepAt(s, event.real));
      return std::string_view();
    }};

// ---- How a run goes
constexpr OptionBinding kSync = {Flag<&Session::plot_session, &PlotSessionState::run_sync>.shows,
                                 [](Session& s, const OptionEvent& event) {
                                   SetSync(s, event.integer != 0);
                                   return std::string_view();
                                 }};
constexpr OptionBinding kFactor = {Number<&Session::plot_session, &PlotSessionState::run_sync_factor>.shows,
                                   [](Session& s, const OptionEvent& event) {
                                     SetSyncFactor(s, event.real);
                                     return std::string_view();
                                   }};

std::string_view Faster(Session& s, const OptionEvent&) {
  ScaleSync(s, 1.0F / kRoot2);
  return {};
}
std::string_view Slower(Session& s, const OptionEvent&) {
  ScaleSync(s, kRoot2);
  return {};
}

constexpr OptionBinding kPictures = {Flag<&Session::plot_session, &PlotSessionState::run_dump>.shows,
                                     [](Session& s, const OptionEvent& event) {
                                       SetRunPictures(s, event.integer != 0);
                                       return std::string_view();
                                     }};

constexpr OptionItem kRows[] = {
    {.kind = OptionKind::element, .value = {nullptr, TakeBar}, .build = BuildRunBar},
    Row(),
    Integer("Step:", kStep, kCount),
    Tab(22),
    Real("Time:", kTime, {}, kNoArrows),
    Separator(),
    Row(),
    Integer("Trim steps; beg:", StepCountOf<StepEnd::trim_first>, kCount),
    Integer(" end", StepCountOf<StepEnd::trim_last>, kCount),
    Row(),
    Check("Sync to clock;", kSync),
    Real("  sync factor=", kFactor, kPositive, kNoArrows),
    Button("-", Faster),
    Button("+", Slower),
    Row(),
    Check("Leave out steps that are late", Flag<&Session::plot_session, &PlotSessionState::sync_real_time>),
    Row(),
    Check("Write image files while running", kPictures),
};

constexpr OptionBlock kBlocks[] = {{kRows}};

}  // namespace

ViewOptions TimeStepOptions(const Session&) {
  return {kBlocks, kAlways};
}

}  // namespace zaview
