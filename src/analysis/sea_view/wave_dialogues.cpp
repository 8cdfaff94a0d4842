#include "analysis/sea_view/wave_dialogues.h"

#include <array>
#include <functional>
#include <string>

#include "analysis/do_or_say.h"
#include "analysis/sea_view/root_files.h"
#include "analysis/sea_view/shifted_waves.h"
#include "analysis/sea_view/wave_field.h"
#include "base/message.h"
#include "base/number_format.h"
#include "base/number_parse.h"
#include "base/text.h"
#include "frame/ground/file_dialogue.h"
#include "frame/ground/option_menu.h"
#include "frame/ground/output_file.h"
#include "frame/ground/prompts.h"

namespace zaview {
namespace {

constexpr std::string_view kTitle = "ZAVIEW - Wave Field Output";
constexpr std::string_view kAbout[] = {"This option is intended to provide incident wave field input for duplicating",
                                       "part of a ZAVO simulation in a CFD calculation or another ZAVO simulation."};
constexpr MenuItem kItems[] = {{" 0 - Return to Main Menu"},
                               {" 1 - Frequency domain wave files shifted in time"},
                               {" 2 - Wave flow-field data files at specified time step"}};
constexpr std::string_view kAboutShift[] = {
    "This option will write the wave components from the ZAVO simulation",
    "with the phases shifted in space and time so that a derivative CFD or ZAVO",
    "calculation can be started from any point in the original ZAVO calculation.",
    "Note that the phase shift assumes that the derivative calculation starts at T=0.",
    "The origin of the derivative calculation is where the ZAVO geometry origin would",
    "be at the selected time step if the ship had kept its initial course and speed.",
    "ZAVO definition of wave elevation is cos(k*x-omega*t+phase)",
    "CD-adapco definition is -sin(k*x-omega*t-phase)"};
constexpr std::string_view kAboutMotions[] = {"ZAVIEW can also write the motion time history for the remaining portion",
                                              "of the ZAVO simulation, with time and X shift.",
                                              "The output will also inlcude the wave elevaton at the ship CG",
                                              "and at the GLOBAL origin of the derived calcualation."};
constexpr std::string_view kAboutField[] = {
    "This option will evaluate the wave field around the ship at a specifed",
    "ZAVO time step and write it to a file or files.", "NOTE that the current scheme is set up for a CFD configuration",
    "where +X is downstream and the forward speed IS included in the wave field", "flow data"};
constexpr std::string_view kModify = "Do you want to modify phases for CD-adapco definition? (y/n)";
constexpr std::string_view kShiftStep = "Enter ZAVO time step (by integer index) for starting derivative calculation:";
constexpr std::string_view kFieldStep = "Enter ZAVO time step (by integer index) for wave field evaluation:";
constexpr std::string_view kBadStep = "Illegal value - must be {} to {}";
constexpr std::string_view kSelected = "Selected time step corresponds to T= {}";
constexpr std::string_view kSeawayFile = "KINO seaway file (blank to skip)";
constexpr std::string_view kComponentFile = "CD-adapco wave file (blank to skip)";
constexpr std::string_view kMotionFile = "Shifted motion file (blank to skip)";
constexpr std::string_view kBadValue = "ILLEGAL value - re-enter";
constexpr std::string_view kAborted = "Option aborted ...";

void SayAll(const Console& console, std::span<const std::string_view> lines) {
  for (const std::string_view line : lines) SayLine(console, line);
}

Answer AskStep(const Console& console, std::string_view prompt, const CaseStore& c, int& step) {
  for (;;) {
    const Answer answer = ask_integer(console, prompt, false, step);
    if (answer != Answer::ok || (step >= c.first_step && step <= c.last_step)) return answer;
    Say(console, kBadStep, c.first_step, c.last_step);
  }
}

// ---- Shifted waves

Answer AskDefinition(const Console& console, PhaseDefinition& definition) {
  for (;;) {
    std::string word;
    const Answer answer = ask_text(console, kModify, "n", word);
    if (answer != Answer::ok) return answer;
    const std::string first = Capitals(Trim(word)).substr(0, 1);
    definition = first == "Y" ? PhaseDefinition::negative_sine : PhaseDefinition::cosine;
    if (first == "Y" || first == "N") return answer;
  }
}

// A file that is named is written at once; make: false (told) leaves it as it was.
Answer AskOneFile(const Platform& platform, std::string_view prompt, std::string_view writing,
                  const std::function<bool(std::string&)>& make) {
  const Console& console = platform.console;
  ChosenFile chosen;
  if (!AskFormattedFile(platform, prompt, {}, chosen)) return Answer::quit;
  if (chosen.out.to_console) return Answer::ok;
  Say(console, "{}{}", writing, chosen.name);
  std::string text;
  if (!make(text)) {
    DiscardOutput(chosen.out);
    return Answer::ok;
  }
  WriteOutput(chosen.out, chosen.out.had_text ? '\n' + text : text);
  if (!CloseOutput(chosen.out)) Say(console, kFileNotWritten, chosen.name, Because(chosen.out.why));
  return Answer::ok;
}

Answer AskShiftedFiles(const Platform& platform, const OutputSettings& settings, PhaseDefinition definition,
                       const ShiftedWaves& waves, CaseStore& c) {
  const Console& console = platform.console;
  Answer answer = AskOneFile(platform, kSeawayFile, kWritingSeaway, [&](std::string& text) {
    if (ShiftedSeawayText(settings, c, waves, definition, text)) return true;
    SayLine(console, kNoShiftMemory);
    return false;
  });
  if (answer != Answer::ok) return answer;
  answer = AskOneFile(platform, kComponentFile, kWritingComponents, [&](std::string& text) {
    return DoOrSay(console, kNoShiftMemory, [&] {
      text = ComponentTable(settings, c, waves, definition);
      return true;
    });
  });
  if (answer != Answer::ok) return answer;
  SayAll(console, kAboutMotions);
  return AskOneFile(platform, kMotionFile, kWritingMotions,
                    [&](std::string& text) { return ShiftedMotions(console, settings, waves, c, text); });
}

Answer AskShiftedWaves(const Platform& platform, const OutputSettings& settings, CaseStore& c) {
  const Console& console = platform.console;
  SayAll(console, kAboutShift);
  PhaseDefinition definition = PhaseDefinition::cosine;
  Answer answer = AskDefinition(console, definition);
  if (answer != Answer::ok) return answer;
  int step = 0;
  answer = AskStep(console, kShiftStep, c, step);
  if (answer != Answer::ok) return answer;
  Say(console, kSelected, Shown{c.time.at(1, step) * settings.units.scales.T});
  ShiftedWaves waves;
  if (!MakeShiftedWaves(console, step, c, waves)) return Answer::ok;
  return AskShiftedFiles(platform, settings, definition, waves, c);
}

// ---- Flow field

Answer AskAxis(const Console& console, char name, double most, GridAxis& axis) {
  const std::string prompt = fmt::format("Enter {0} min, {0} max and number of points =>", name);
  for (;;) {
    std::array<float, 3> values{};
    const Answer answer = VINPUT(console, prompt, false, values);
    if (answer != Answer::ok) return answer;
    axis = {values[0], values[1], RoundToInt(static_cast<double>(values[2]))};
    if (IsAxis(axis) && axis.n <= most) return answer;
    SayLine(console, kBadValue);
  }
}

Answer AskFlowField(const Platform& platform, const OutputSettings& settings, CaseStore& c) {
  const Console& console = platform.console;
  SayAll(console, kAboutField);
  WaveFieldRequest request;
  Answer answer = AskStep(console, kFieldStep, c, request.step);
  double most = kMostFieldPoints;
  for (std::size_t i = 0; i < request.axes.size() && answer == Answer::ok; ++i) {
    answer = AskAxis(console, "XYZ"[i], most, request.axes[i]);
    most /= request.axes[i].n;
  }
  std::string root;
  if (answer == Answer::ok) answer = ask_text(console, kAskRoot, c.base_name, root);
  if (answer == Answer::ok) (void)WriteWaveField(platform, settings, request, root, c);  // it says what it can't
  return answer;
}

// ---- Wave analysis

constexpr std::string_view kAnalysisSteps =
    "Enter the starting, ending, and incremental time step(s) for\n"
    "wave analysis (enter 0 for all steps)";
constexpr std::string_view kBadOption = "Illegal option - re-enter";

Answer AskWaveOption(const Console& console) {
  SayLine(console, "Select wave analysis option :");
  for (int option = 0; option < kWaveAnalysisOptions; ++option) Say(console, " {0} - option {0}", option);
  for (;;) {
    int option = 0;
    const Answer answer = ask_integer(console, "Select =>", false, option);
    if (answer != Answer::ok || (option >= 0 && option < kWaveAnalysisOptions)) return answer;
    SayLine(console, kBadOption);
  }
}

}  // namespace

void AskWaveField(const Platform& platform, const OutputSettings& settings, CaseStore& case_store) {
  const Console& console = platform.console;
  for (;;) {
    SayLine(console, "");
    SayLine(console, kTitle);
    SayAll(console, kAbout);
    int item = 0;
    if (select_option(console, "Wave field Output Options:", "Select =>", kItems, -1, item) != Answer::ok || item == 0)
      return;
    const Answer answer =
        item == 1 ? AskShiftedWaves(platform, settings, case_store) : AskFlowField(platform, settings, case_store);
    if (answer != Answer::ok) return SayLine(console, kAborted);
  }
}

void AskWaveAnalysis(const Platform& platform, const OutputSettings& settings, CaseStore& case_store,
                     WaveAnalysisResult& result) {
  const Console& console = platform.console;
  StepRange steps;
  std::string root;
  Answer answer = AskStepRange(console, case_store, kAnalysisSteps, kIllegalStepRange, steps);
  if (answer == Answer::ok) answer = AskWaveOption(console);
  if (answer == Answer::ok) answer = ask_text(console, kAskRoot, case_store.base_name, root);
  if (answer != Answer::ok) return SayLine(console, kAborted);
  WaveAnalysisResult written;  // it is said why not
  if (WriteWaveAnalysis(platform, settings, steps, root, case_store, written)) result = std::move(written);
}

}  // namespace zaview
