// The commands of a script: rows of words, preconditions and handler. They stand beside their handlers, a family a
// file; the order of lookup is the order of the families and of their rows.
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "script/preconditions.h"
#include "script/script_call.h"

namespace zaview {

inline constexpr std::size_t kAliases = 11;

enum class NameMatch : unsigned char { whole, beginning };

struct Command {
  std::array<std::string_view, kAliases> names;
  Needs needs = kNone;
  int (*run)(ScriptCall& call) = nullptr;  // the status: 0, or one of script_status.h
  std::string_view arguments{};            // as the reference shows them: names of argument_forms.h, "A|B" for words,
                                           // brackets around what may be missing
  std::string_view meaning{};              // a line; blank: the row only refuses, and no list shows it
  std::string_view preset{};               // of a setting: the arguments that would change nothing at the start
  NameMatch match = NameMatch::whole;
  bool last = false;  // nothing behind it is read
};

using CommandFamily = std::span<const Command>;

[[nodiscard]] CommandFamily ReadingCommands();
[[nodiscard]] CommandFamily OutputTextCommands();
[[nodiscard]] CommandFamily StepCommands();
[[nodiscard]] CommandFamily StatisticSettings();
[[nodiscard]] CommandFamily SmoothingCommands();
[[nodiscard]] CommandFamily HistoryCommands();
[[nodiscard]] CommandFamily StatisticCommands();
[[nodiscard]] CommandFamily CurveCommands();
[[nodiscard]] CommandFamily EnsembleCommands();
[[nodiscard]] CommandFamily HistogramCommands();
[[nodiscard]] CommandFamily ControlCommands();
[[nodiscard]] CommandFamily KinoCommands();
[[nodiscard]] CommandFamily ViewSettings();
[[nodiscard]] CommandFamily AnimationSettings();
[[nodiscard]] CommandFamily PlotCommands();
[[nodiscard]] CommandFamily GeometryCommands();
[[nodiscard]] CommandFamily AnimateCommands();
[[nodiscard]] CommandFamily RightingArmCommands();
[[nodiscard]] CommandFamily CraneCommands();
[[nodiscard]] CommandFamily ExportCommands();
[[nodiscard]] CommandFamily FrequencyCommands();
[[nodiscard]] CommandFamily MotionTestCommands();
[[nodiscard]] CommandFamily RateCommands();  // some are known by the beginning of their word
[[nodiscard]] CommandFamily SeaViewCommands();

// All families in the order of lookup, and what a reader calls them.
[[nodiscard]] std::span<const CommandFamily> AllCommands();
[[nodiscard]] std::string_view FamilyTitle(std::size_t family);  // from 0

// The row of a word in capitals; null: there is none.
[[nodiscard]] const Command* FindCommand(std::span<const CommandFamily> families, std::string_view word);

// A line for somebody who wrote a word, in capitals, that is no command: those of which it is the first part, else the
// one that it is nearest to; blank: none is near.
[[nodiscard]] std::string CommandsMeant(std::span<const CommandFamily> families, std::string_view word);

}  // namespace zaview
