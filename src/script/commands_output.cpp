// Commands for the form of what is written: delimiter, units, signs.
#include <algorithm>
#include <span>
#include <string>
#include <vector>

#include "base/number_format.h"
#include "base/text.h"
#include "case/settings/output_form.h"
#include "script/call_arguments.h"
#include "script/command_table.h"

namespace zaview {

namespace {

int RunDelimiterName(ScriptCall& call) {
  (void)SetSeparator(call.command, call.session.output.writing);  // the commands are its words
  return kScriptOk;
}

int RunSetDelimiter(ScriptCall& call) {
  const std::string word = NextScriptWord(call.words, kKeyword);
  if (SetSeparator(Capitals(word), call.session.output.writing) == SettingFault::none) return kScriptOk;
  return Fail(call, kScriptBadArgument, kInvalidArgument, word, call.command);
}

// In the order of kScaleNames.
struct ScaleText {
  std::string_view label, text;
};
constexpr ScaleText kScaleTexts[] = {{"GRAVOUT", "  Gravity"},
                                     {"RHOOUT ", "  Water density"},
                                     {"LENOUT ", "  Reference length"},
                                     {"ANGOUT ", "  Angular scale factor"}};

// Sets the factors from `first` on, tells old and new of all.
int ChangeScales(ScriptCall& call, std::size_t first, std::span<const float> values) {
  OutputUnits& units = call.session.output.units;
  const OutputUnits old = units;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (SetScale(first + i, values[i], call.session.case_store, units) == SettingFault::none) continue;
    units = old;
    return Fail(call, kScriptBadArgument, "ERROR - {} must be positive", kScaleNames[first + i].name);
  }
  SayLine(call.console(), "Changing output dimensionalization:");
  SayLine(call.console(), "Factor        Old         New");
  for (std::size_t i = 0; i < kScaleNames.size(); ++i)
    Say(call.console(), "{} {:>9} {:>11}{}", kScaleTexts[i].label, SentenceNumber(old.*kScaleNames[i].factor),
        SentenceNumber(units.*kScaleNames[i].factor), kScaleTexts[i].text);
  return kScriptOk;
}

int RunSetScale(ScriptCall& call) {
  const std::string word = NextScriptWord(call.words, kKeyword);
  const std::string capitals = Capitals(word);
  const auto* row = std::find_if(kScaleNames.begin(), kScaleNames.end(),
                                 [&capitals](const ScaleName& scale) { return scale.name == capitals; });
  if (row == kScaleNames.end()) return Fail(call, kScriptBadArgument, kInvalidArgument, word, call.command);
  float value = 0;
  if (const int status = ReadNumber(call, value); status != kScriptOk) return status;
  return ChangeScales(call, static_cast<std::size_t>(row - kScaleNames.begin()), std::span(&value, 1));
}

int RunSetScales(ScriptCall& call) {
  std::vector<float> values;
  if (const int status = ReadNumbers(call, static_cast<int>(kScaleNames.size()), values); status != kScriptOk)
    return status;
  return ChangeScales(call, 0, values);
}

int RunCoordinates(ScriptCall& call) {
  const std::string word = Capitals(NextScriptWord(call.words, kKeyword));
  if (SetConvention(word, WordForm::whole, call.session.output.units) != nullptr) return kScriptOk;
  return Fail(call, kScriptBadArgument, "ERROR - Unrecognized option for {} command...", call.command);
}

constexpr Command kOutputText[] = {
    {{"COMMA", "COMMAS"}, kNone, RunDelimiterName, "", "Columns of tables are parted by commas"},
    {{"TAB", "TABS"}, kNone, RunDelimiterName, "", "Columns of tables are parted by tabs"},
    {{"SPACE", "SPACES"}, kNone, RunDelimiterName, "", "Columns of tables are parted by blanks, and aligned"},
    {{"SET_DELIMITER", "SET_DLM", "DELIMITER"},
     kNone,
     RunSetDelimiter,
     "COMMA|TAB|SPACE",
     "What parts the columns of tables",
     "SPACE"},
    {{"SET_OUTPUT_SCALE", "SET_SCALE", "OUTPUT_SCALE"},
     kNone,
     RunSetScale,
     "GRAVOUT|RHOOUT|LENOUT|ANGOUT number",
     "One factor of the units of all output: gravity, density, length, angle (57.29578 for degrees)"},
    {{"SET_OUTPUT_SCALES", "OUTPUT_SCALES", "SCALE_OUTPUT"},
     kNone,
     RunSetScales,
     "gravity density length angle",
     "All four factors of the units of output"},
    {{"COORDINATES_CONVENTION", "COORDS_CONVENTION", "COORDS"},
     kNone,
     RunCoordinates,
     "ZAVO|DEFAULT|DEF|ZUP|MODEL|ZDOWN|CFD|XAFT|XDOWN",
     "Signs of the six components: ZAVO x forward, y to port, z up; MODEL y, z turned; CFD x, z aft and up",
     "ZAVO"},
};

}  // namespace

CommandFamily OutputTextCommands() {
  return kOutputText;
}

}  // namespace zaview
