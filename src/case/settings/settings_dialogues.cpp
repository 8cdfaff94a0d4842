#include "case/settings/settings_dialogues.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "base/message.h"
#include "base/number_format.h"
#include "base/text.h"
#include "case/settings/output_form.h"
#include "case/settings/smoothing_settings.h"
#include "case/settings/statistic_settings.h"
#include "case/settings/step_settings.h"

namespace zaview {
namespace {

// ---- Scales and signs

struct ScaleText {  // in the order of kScaleNames
  std::string_view line, question;
};
constexpr ScaleText kScaleTexts[] = {
    {"   GRAVOUT = acceleration due to gravity =", "Enter GRAVOUT :"},
    {"   RHOOUT  = mass density of water       =", "Enter  RHOOUT :"},
    {"   LENOUT  = reference length            =", "Enter  LENOUT :"},
    {"   ANGOUT  = output angle scale factor   =", "Enter  ANGOUT :"},
};
constexpr std::string_view kScaleHeads[] = {"The following variables define the units and scale of all ZAVIEW output:",
                                            "   name      description                    current value"};

// A factor that stays as it is stays that of the file.
Answer AskScale(const Console& console, std::size_t i, const CaseStore& case_store, OutputUnits& units) {
  for (;;) {
    const float present = units.*kScaleNames[i].factor;
    float asked = present;
    const Answer answer = ask_real(console, kScaleTexts[i].question, true, asked);
    if (answer != Answer::ok || asked == present) return answer;
    if (SetScale(i, asked, case_store, units) == SettingFault::none) return answer;
    Say(console, "ERROR - {} must be positive", kScaleNames[i].name);
  }
}

// False: the user gave up.
bool AskScales(const Console& console, const CaseStore& case_store, OutputUnits& units) {
  for (std::size_t i = 0; i < kScaleNames.size(); ++i)
    if (AskScale(console, i, case_store, units) != Answer::ok) return false;
  return true;
}

constexpr std::size_t kConventionLetters = 3;

const ConventionRow* PresentConvention(const OutputSettings& settings) {
  for (const ConventionRow& row : kConventions)
    if (row.factors == settings.units.cnvfac) return &row;
  return nullptr;
}

// False: the user gave up.
bool AskConvention(const Console& console, OutputSettings& settings) {
  SayLine(console, "Select coordinate convention for motion and force/moment data");
  for (const ConventionRow& row : kConventions) SayLines(console, row.text);
  const ConventionRow* present = PresentConvention(settings);
  if (present == nullptr) SayLine(console, "LOGIC ERROR #3 in CNVFAC - report to Ned");
  const std::string shown(present == nullptr ? "" : present->name.substr(0, kConventionLetters));
  std::string answer;
  if (ask_text(console, "Select =>", shown, answer) != Answer::ok) return false;
  if (IsBlank(answer)) return true;
  const ConventionRow* chosen = SetConvention(Capitals(Trim(answer)), WordForm::three_letters, settings.units);
  if (chosen == nullptr) SayLine(console, "Unrecognized option : convention not changed");
  else Say(console, "Selecting {} coordinate convention", chosen->name);
  return true;
}

// ---- Trims and skips

enum class Asked : std::uint8_t { taken, given_up };

// `most`: the largest number taken; more is answered by `too_many`.
Asked AskSteps(const Console& console, std::string_view question, int most, std::string_view too_many, int& value) {
  for (;;) {
    int steps = value;
    if (ask_integer(console, question, true, steps) != Answer::ok) return Asked::given_up;
    if (steps < 0) {
      SayLine(console, "ERROR - value cannot be negative");
    } else if (steps > most) {
      SayLine(console, too_many);
    } else {
      value = steps;
      return Asked::taken;
    }
  }
}

Asked AskTrims(const Console& console, const CaseStore& c, OutputSettings& settings) {
  const int steps = c.last_read - c.first_read + 1;
  const std::string too_many =
      fmt::format("ERROR - number of trimmed steps greater current data record's {} steps", steps);
  constexpr int kAny = 2'000'000'000;
  if (AskSteps(console, "Enter # of INITIAL  time steps to TRIM:", steps, too_many, settings.reading.trim_initial) ==
          Asked::given_up ||
      AskSteps(console, "Enter # of TERMINAL time steps to TRIM:", steps - 1, too_many,
               settings.reading.trim_terminal) == Asked::given_up)
    return Asked::given_up;
  return AskSteps(console, "Enter # of TERMINAL time steps to TRIM for aborted runs:", kAny, "",
                  settings.reading.trim_abort);
}

void AskSkips(const Console& console, OutputSettings& settings, CaseStore& c) {
  constexpr int kAny = 2'000'000'000;
  const int before = std::max(0, c.skip_effective);
  int initial = before, terminal = settings.reading.skip_terminal;
  if (AskSteps(console, "Enter # of INITIAL  time steps to SKIP:", kAny, "", initial) == Asked::given_up) return;
  // The default of each case stays in force where it isn't changed.
  if (initial != before) (void)SetSkips(initial, terminal, settings, c);
  if (AskSteps(console, "Enter # of TERMINAL time steps to SKIP:", kAny, "", terminal) == Asked::taken)
    settings.reading.skip_terminal = terminal;
}

// ---- Smoothing

// 2, the Fourier series, is taken though not listed.
constexpr std::string_view kSmoothingMenu[] = {"Data Smoothing Options:", " 1 - Small window least-squares fits",
                                               " 3 - Cubic polynomial fits over specified window", " 0 - No smoothing"};
constexpr std::string_view kIntervalMenu[] = {"Confidence intervals:", " 0 - By formula", " 1 - By bootstrap"};

}  // namespace

void AskOutputScales(const Console& console, OutputSettings& settings, const CaseStore& case_store) {
  SayLines(console, kScaleHeads);
  for (std::size_t i = 0; i < kScaleNames.size(); ++i)
    Say(console, "{} {}", kScaleTexts[i].line, Shown{settings.units.*kScaleNames[i].factor});
  const bool asked = AskScales(console, case_store, settings.units);
  if (asked && AskConvention(console, settings)) pause_for_return(console);
}

void retrim_record(const Console& console, OutputSettings& settings, CaseStore& case_store, EnsembleStore& ensemble) {
  CaseStore& c = case_store;
  if (!c.has_steps()) return SayLine(console, "ERROR - the case has no time steps");
  const bool trimmed = c.first_step != c.first_read || c.last_step != c.last_read;
  Say(console, "The current data record has steps {} to {}", c.first_read, c.last_read);
  if (trimmed) Say(console, "but has been trimmed to steps   {} {}", c.first_step, c.last_step);
  std::string answer;
  const std::string_view question =
      trimmed ? "Do you want to re-trim the data record? (y/n)" : "Do you want to trim the data record? (y/n)";
  if (ask_text(console, question, "", answer) != Answer::ok) return;
  Asked trims = Asked::taken;
  if (Capitals(Trim(answer)).substr(0, 1) == "Y") {
    trims = AskTrims(console, c, settings);
  } else {
    settings.reading.trim_initial = 0;
    settings.reading.trim_terminal = 0;
  }
  RetrimRecords(console, settings, c, ensemble);
  Say(console, "{} steps trimmed from beginning of time history", c.first_step - c.first_read);
  Say(console, "{} steps trimmed from end of time history", c.last_read - c.last_step);
  if (trims == Asked::taken) AskSkips(console, settings, c);
}

void AskSmoothing(const Console& console, OutputSettings& settings) {
  SayLines(console, kSmoothingMenu);
  SmoothingSettings asked = settings.smoothing;
  for (;;) {
    int option = settings.smoothing.option;
    if (ask_integer(console, "Select =>", true, option) != Answer::ok) return;
    if (SetSmoothing(option, asked) == SettingFault::none) break;
    SayLine(console, "ERROR - illegal value");
  }
  while (asked.option == kCubicSmoothing) {
    int width = settings.smoothing.window;
    if (ask_integer(console, "Enter smoothing window width (in time steps)=>", true, width) != Answer::ok) return;
    if (SetSmoothingWindow(width, asked) == SettingFault::none) break;
    SayLine(console, "ERROR - illegal value, must be >=5");
  }
  settings.smoothing = asked;
}

void AskIntervalMethod(const Console& console, OutputSettings& settings) {
  SayLines(console, kIntervalMenu);
  StatisticSettings asked = settings.statistics;
  const auto ask = [&](std::string_view prompt, int present, std::string_view illegal, auto set) {
    for (;;) {
      int value = present;
      const Answer answer = ask_integer(console, prompt, true, value);
      if (answer != Answer::ok || set(value) == SettingFault::none) return answer == Answer::ok;
      SayLine(console, illegal);
    }
  };
  if (!ask("Select =>", static_cast<int>(asked.interval_method), "ERROR - illegal value",
           [&](int method) { return SetIntervalMethod(method, asked); }))
    return;
  if (asked.interval_method == IntervalMethod::bootstrap) {
    if (!ask("Enter number of resamples (100 to 100000)=>", asked.bootstrap_resamples,
             "ERROR - illegal value, must be 100 to 100000", [&](int n) { return SetResamples(n, asked); }) ||
        !ask("Enter seed of random draws (0 to 1000000)=>", asked.bootstrap_seed,
             "ERROR - illegal value, must be 0 to 1000000", [&](int seed) { return SetSeed(seed, asked); }))
      return;
  }
  settings.statistics = asked;
}

Answer AskSeparator(const Console& console, OutputSettings& settings) {
  const std::string_view present = settings.writing.separator == Separator::comma ? "COMMA"
                                   : settings.writing.separator == Separator::tab ? "TAB"
                                                                                  : "SPACE";
  std::string word, typed;
  const Answer answer = ReadAnswer(
      console, "Select the separation character for the table:\n(SPACE, COMMA or TAB):", present, word, &typed);
  if (answer != Answer::ok || IsQuit(word)) return answer == Answer::ok ? Answer::quit : answer;
  if (IsBlank(word)) word = typed.find('\t') == std::string::npos ? present : "\t";
  const char first = word.empty() ? ' ' : word.front();
  if (first == 'c' || first == 'C' || first == ',') settings.writing.separator = Separator::comma;
  else if (first == 't' || first == 'T' || first == '\t') settings.writing.separator = Separator::tab;
  else settings.writing.separator = Separator::space;
  return Answer::ok;
}

}  // namespace zaview
