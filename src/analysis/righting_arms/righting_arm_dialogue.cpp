#include "analysis/righting_arms/righting_arm_dialogue.h"

#include <array>
#include <cmath>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "base/message.h"
#include "base/number_parse.h"
#include "frame/ground/file_dialogue.h"
#include "frame/ground/prompts.h"

namespace zaview {
namespace {

constexpr std::string_view kStepCount = "Simulation has {} time steps";
constexpr std::string_view kSteps =
    "Enter the starting, ending and incremental time step(s) for\n"
    "GZ curve analysis (enter 0 for all steps)";

struct OptionList {
  std::string_view title;
  std::span<const std::string_view> items;
  int first = 0;  // number of the first item
};
constexpr std::string_view kWaveItems[] = {" 0 - Direct wave calculation", " 1 - Interpolate, no decay term",
                                           " 2 - Interpolate, decay w/local wave number estimate",
                                           " 3 - Interpolate, decay w/global wave number estimate"};
constexpr std::string_view kDirectionItems[] = {" 1 - Transverse   stability (GZ  curve)",
                                                " 2 - Longitudinal stability (GZL curve)"};
constexpr std::string_view kHeelItems[] = {" 0 - Do not balance ship after heeling",
                                           " 1 - Balance ship to match unheeled buoyancy force",
                                           " 2 - Balance ship to match unheeled buoyancy force and trim moment",
                                           " 3 - Balance ship to match static buoyancy force",
                                           " 4 - Balance ship to match static buoyancy force and trim moment"};
constexpr std::string_view kTrimItems[] = {" 0 - Do not balance ship after trimming",
                                           " 1 - Balance ship to match untrimmed buoyancy force",
                                           " 2 - Balance ship to match untrimmed buoyancy force and heel moment",
                                           " 3 - Balance ship to match static buoyancy force",
                                           " 4 - Balance ship to match static buoyancy force and heel moment"};
constexpr std::string_view kSelect = "Select =>";
constexpr std::string_view kIllegalOption = "Illegal option - re-enter";
constexpr std::string_view kNoOption = "Invalid option - please reenter";

struct DirectionTexts {
  OptionList balance;
  std::string_view angles, bad_angle, bad_number, too_many;
  std::string_view curves, statistics;
};
constexpr DirectionTexts kTexts[] = {{{"Select hull balancing option:", kHeelItems},
                                      "Enter the maximum heel angle (in degrees) and\n"
                                      "the number of heel angles to compute (max=90)",
                                      "ERROR - illegal maximum heel angle - positive value required",
                                      "ERROR - illegal number of heel angles - positive value required",
                                      "ERROR - too many heel angles",
                                      "Enter file for GZ curves (blank to skip)",
                                      "Enter file for GZ statistics (blank to skip)"},
                                     {{"Select hull balancing option:", kTrimItems},
                                      "Enter the maximum trim angle (in degrees) and\n"
                                      "the number of trim angles to compute (max=90)",
                                      "ERROR - illegal maximum trim angle - positive value required",
                                      "ERROR - illegal number of trim angles - positive value required",
                                      "ERROR - too many trim angles",
                                      "Enter file for GZL curves (blank to skip)",
                                      "Enter file for GZL statistics (blank to skip)"}};

// False, here and below: the user gave up.
bool AskOption(const Console& console, const OptionList& list, int& value) {
  SayLine(console, list.title);
  for (const std::string_view item : list.items) SayLine(console, item);
  const int last = list.first + static_cast<int>(list.items.size()) - 1;
  for (;;) {
    std::string answer;
    if (ask_text(console, kSelect, "", answer) != Answer::ok) return false;
    std::size_t position = 0;
    double number = 0;
    const bool there = parse_real(answer, position, number) != ParseEnd::none;
    if (there) value = RoundToInt(number);
    if (there && value >= list.first && value <= last) return true;
    SayLine(console, there ? kIllegalOption : kNoOption);
  }
}

bool AskAngles(const Console& console, const DirectionTexts& texts, RightingArmRequest& request) {
  for (;;) {
    std::array<float, 2> values{};
    if (VINPUT(console, texts.angles, false, values) != Answer::ok) return false;
    request.max_angle = values[0];
    request.nangle = RoundToInt(static_cast<double>(values[1]));
    if (!(request.max_angle > 0)) SayLine(console, texts.bad_angle);
    else if (request.nangle < 1) SayLine(console, texts.bad_number);
    else if (request.nangle > kMostArmAngles) SayLine(console, texts.too_many);
    else return true;
  }
}

bool AskRequest(const Console& console, const CaseStore& store, RightingArmRequest& request) {
  Say(console, kStepCount, store.last_step - store.first_step + 1);
  if (AskStepRange(console, store, kSteps, kIllegalStepRange, request.steps) != Answer::ok) return false;
  if (!AskOption(console, {"Select wave interpolation option:", kWaveItems}, request.wave_option)) return false;
  if (!AskOption(console, {"Select GZ analysis option:", kDirectionItems, 1}, request.direction)) return false;
  const DirectionTexts& texts = kTexts[request.direction - 1];
  return AskOption(console, texts.balance, request.balance) && AskAngles(console, texts, request);
}

bool AskFile(const Platform& platform, std::string_view prompt, OutputFile& out) {
  ChosenFile chosen;
  if (!AskFormattedFile(platform, prompt, {}, chosen)) return false;
  out = std::move(chosen.out);
  return true;
}

bool AskFiles(const Platform& platform, const RightingArmRequest& request, RightingArmOutputs& outputs) {
  const DirectionTexts& texts = kTexts[request.direction - 1];
  return AskFile(platform, texts.curves, outputs.at(ArmFile::curves)) &&
         AskFile(platform, texts.statistics, outputs.at(ArmFile::statistics)) &&
         OpenBesideStatistics(platform, static_cast<ArmDirection>(request.direction), outputs);
}

}  // namespace

void GZCurveMenu(const Platform& platform, const OutputSettings& settings, CaseStore& case_store,
                 RightingArms& result) {
  RightingArmRequest request;
  request.menu = true;
  if (!AskRequest(platform.console, case_store, request)) return;
  RightingArmOutputs outputs;
  if (!AskFiles(platform, request, outputs)) return DiscardRightingArmFiles(outputs);
  (void)GZCurves(platform, settings, request, case_store, outputs, result);
  pause_for_return(platform.console);
}

}  // namespace zaview
