#include "script/command_table.h"

#include <algorithm>
#include <iterator>
#include <string>

#include <fmt/format.h>

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

// In the order of lookup.
constexpr struct {
  std::string_view title;
  CommandFamily (*commands)();
} kFamilies[] = {
    {"Reading", ReadingCommands},
    {"Columns, units and signs", OutputTextCommands},
    {"Steps in use", StepCommands},
    {"Settings of statistics", StatisticSettings},
    {"Smoothing", SmoothingCommands},
    {"Time histories, loads and labels", HistoryCommands},
    {"Statistics of one record", StatisticCommands},
    {"Spectrum, extremes and cycles of a curve", CurveCommands},
    {"Statistics of an ensemble", EnsembleCommands},
    {"Histograms", HistogramCommands},
    {"Control text", ControlCommands},
    {"KINO files", KinoCommands},
    {"Settings of plots and views", ViewSettings},
    {"Settings of the animation", AnimationSettings},
    {"Plots", PlotCommands},
    {"Animation", AnimateCommands},
    {"The geometry view", GeometryCommands},
    {"Righting arms", RightingArmCommands},
    {"Crane and cargo", CraneCommands},
    {"For other programs, step by step", ExportCommands},
    {"Coefficients and motions over frequency", FrequencyCommands},
    {"Roll decay, forced motion, forecast", MotionTestCommands},
    {"Rates", RateCommands},
    {"Sensor view and waves", SeaViewCommands},
};

}  // namespace

std::span<const CommandFamily> AllCommands() {
  static const auto families = [] {
    std::array<CommandFamily, std::size(kFamilies)> all;
    std::transform(std::begin(kFamilies), std::end(kFamilies), all.begin(),
                   [](const auto& row) { return row.commands(); });
    return all;
  }();
  return families;
}

std::string_view FamilyTitle(std::size_t family) {
  return kFamilies[family].title;
}

const Command* FindCommand(std::span<const CommandFamily> families, std::string_view word) {
  for (const CommandFamily& family : families) {
    const auto found =
        std::find_if(family.begin(), family.end(), [word](const Command& command) { return Matches(command, word); });
    if (found != family.end()) return &*found;
  }
  return nullptr;
}

std::string CommandsMeant(std::span<const CommandFamily> families, std::string_view word) {
  constexpr std::size_t kMost = 6;  // on a line
  NearestWord nearest{word};
  const std::string part = std::string(word) + '_';
  std::string begin_so;
  std::size_t count = 0;
  for (const CommandFamily& family : families)
    for (const Command& command : family) {
      if (command.meaning.empty()) continue;
      for (const std::string_view name : command.names) nearest.Offer(name);
      const auto* const name = std::find_if(command.names.begin(), command.names.end(),
                                            [&](std::string_view each) { return each.starts_with(part); });
      if (name != command.names.end() && ++count <= kMost) begin_so.append(" ").append(*name);
    }
  if (count > 0) return fmt::format("        commands that begin so:{}{}", begin_so, count > kMost ? " .." : "");
  if (nearest.nearest.empty()) return {};
  return fmt::format("        the nearest command is {}", nearest.nearest);
}

}  // namespace zaview
