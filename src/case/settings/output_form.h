// The form of what is written and shown: units, signs, separator.
#pragma once

#include <array>
#include <string_view>

#include "case/case_store.h"
#include "case/output_scales.h"
#include "case/output_settings.h"
#include "case/settings/setting.h"

namespace zaview {

struct ScaleName {
  std::string_view name;
  float OutputUnits::*factor;
};
inline constexpr std::array<ScaleName, 4> kScaleNames = {{{"GRAVOUT", &OutputUnits::GRAVOUT},
                                                          {"RHOOUT", &OutputUnits::RHOOUT},
                                                          {"LENOUT", &OutputUnits::LENOUT},
                                                          {"ANGOUT", &OutputUnits::ANGOUT}}};
inline constexpr std::size_t kAngleScale = 3;
inline constexpr float kDegreesPerRadian = 57.29578F;

// Factor i of kScaleNames, above 0, as one of the user: later files leave it alone. All scales are made again.
[[nodiscard]] SettingFault SetScale(std::size_t i, float value, const CaseStore& case_store, OutputUnits& units);

// The sign factors of a convention by one of its words, in capitals; in a dialogue the first three letters decide.
// Null: no such word.
enum class WordForm : std::uint8_t { whole, three_letters };
const ConventionRow* SetConvention(std::string_view word, WordForm form, OutputUnits& units);

// COMMA, TAB, SPACE or their plurals, in capitals.
[[nodiscard]] SettingFault SetSeparator(std::string_view word, WritingSettings& writing);

}  // namespace zaview
