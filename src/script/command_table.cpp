#include "script/command_table.h"

#include <algorithm>

#include "base/text.h"
#include "script/nearest_word.h"

namespace zaview {

namespace {

bool Matches(const Command& command, std::string_view word) {
  return std::any_of(command.names.begin(), command.names.end(), [&](std::string_view name) {
    if (name.empty()) return false;
    return command.match == NameMatch::whole ? word == name : StartsWith(word, name);
  });
}

}  // namespace

std::span<const CommandFamily> AllCommands() {
  static const CommandFamily families[] = {
      ReadingCommands(),   OutputTextCommands(), StepCommands(),        StatisticSettings(), SmoothingCommands(),
      HistoryCommands(),   StatisticCommands(),  CurveCommands(),       EnsembleCommands(),  HistogramCommands(),
      ControlCommands(),   KinoCommands(),       ViewSettings(),        AnimationSettings(), PlotCommands(),
      AnimateCommands(),   GeometryCommands(),   RightingArmCommands(), CraneCommands(),     ExportCommands(),
      FrequencyCommands(), MotionTestCommands(), RateCommands(),        SeaViewCommands()};
  return families;
}

std::span<const std::string_view> FamilyTitles() {
  static constexpr std::string_view kTitles[] = {"Reading",
                                                 "Columns, units and signs",
                                                 "Steps in use",
                                                 "Settings of statistics",
                                                 "Smoothing",
                                                 "Time histories, loads and labels",
                                                 "Statistics of one record",
                                                 "Spectrum, extremes and cycles of a curve",
                                                 "Statistics of an ensemble",
                                                 "Histograms",
                                                 "Control text",
                                                 "KINO files",
                                                 "Settings of plots and views",
                                                 "Settings of the animation",
                                                 "Plots",
                                                 "Animation",
                                                 "The geometry view",
                                                 "Righting arms",
                                                 "Crane and cargo",
                                                 "For other programs, step by step",
                                                 "Coefficients and motions over frequency",
                                                 "Roll decay, forced motion, forecast",
                                                 "Rates",
                                                 "Sensor view and waves"};
  return kTitles;
}

const Command* FindCommand(std::span<const CommandFamily> families, std::string_view word) {
  for (const CommandFamily& family : families) {
    const auto found =
        std::find_if(family.begin(), family.end(), [word](const Command& command) { return Matches(command, word); });
    if (found != family.end()) return &*found;
  }
  return nullptr;
}

std::string_view NearestCommand(std::span<const CommandFamily> families, std::string_view word) {
  NearestWord nearest{word};
  for (const CommandFamily& family : families)
    for (const Command& command : family) {
      if (command.meaning.empty()) continue;
      for (const std::string_view name : command.names) nearest.Offer(name);
    }
  return nearest.nearest;
}

}  // namespace zaview
