// Commands for the form of what is written: delimiter, units, signs.
#include <algorithm>
#include <string>
#include <vector>

#include "base/number_format.h"
#include "base/text.h"
#include "case/output_scales.h"
#include "script/command_table.h"
#include "script/open_script_file.h"

namespace zaview {

namespace {

struct DelimiterRow {
  std::string_view words[2];
  Separator separator;
};
constexpr DelimiterRow kDelimiters[] = {{{"COMMA", "COMMAS"}, Separator::comma},
                                        {{"TAB", "TABS"}, Separator::tab},
                                        {{"SPACE", "SPACES"}, Separator::space}};

const DelimiterRow* FindDelimiter(std::string_view word) {
  const auto* found = std::find_if(std::begin(kDelimiters), std::end(kDelimiters), [word](const DelimiterRow& row) {
    return word == row.words[0] || word == row.words[1];
  });
  return found == std::end(kDelimiters) ? nullptr : found;
}

int RunDelimiterName(ScriptCall& call) {
  call.session.output.writing.separator = FindDelimiter(call.command)->separator;
  return kScriptOk;
}

int RunSetDelimiter(ScriptCall& call) {
  const std::string word = NextScriptWord(call.words, kKeyword);
  const DelimiterRow* row = FindDelimiter(Capitals(word));
  if (row == nullptr) return Fail(call, kScriptBadArgument, kInvalidArgument, word, call.command);
  call.session.output.writing.separator = row->separator;
  return kScriptOk;
}

struct ScaleRow {
  std::string_view word, label, text;
  float OutputUnits::*factor;
};
constexpr ScaleRow kScales[] = {
    {"GRAVOUT", "GRAVOUT", "  Gravity", &OutputUnits::GRAVOUT},
    {"RHOOUT", "RHOOUT ", "  Water density", &OutputUnits::RHOOUT},
    {"LENOUT", "LENOUT ", "  Reference length", &OutputUnits::LENOUT},
    {"ANGOUT", "ANGOUT ", "  Angular scale factor", &OutputUnits::ANGOUT},
};

// Takes over the factors of `changed`, tells old and new, and makes the scales again.
int ChangeScales(ScriptCall& call, const OutputSettings& changed) {
  OutputSettings& settings = call.session.output;
  for (const ScaleRow& row : kScales)
    if (!(changed.units.*row.factor > 0))
      return Fail(call, kScriptBadArgument, "ERROR - {} must be positive", row.word);
  const OutputSettings old = settings;
  settings = changed;
  set_output_scales(settings, !call.session.case_store.time_history());
  SayLine(call.console(), "Changing output dimensionalization:");
  SayLine(call.console(), "Factor        Old         New");
  for (const ScaleRow& row : kScales)
    Say(call.console(), "{} {:>9} {:>11}{}", row.label, SentenceNumber(old.units.*row.factor),
        SentenceNumber(settings.units.*row.factor), row.text);
  return kScriptOk;
}

int RunSetScale(ScriptCall& call) {
  const std::string word = NextScriptWord(call.words, kKeyword);
  const std::string capitals = Capitals(word);
  const auto* row = std::find_if(std::begin(kScales), std::end(kScales),
                                 [&capitals](const ScaleRow& scale) { return scale.word == capitals; });
  if (row == std::end(kScales)) return Fail(call, kScriptBadArgument, kInvalidArgument, word, call.command);
  std::vector<float> values;
  if (!ParseRealList(call.words, 1, values)) return Fail(call, kScriptFailed, kFewArguments, call.command);
  OutputSettings changed = call.session.output;
  changed.units.*row->factor = values[0];
  changed.units.user_scale[static_cast<std::size_t>(row - kScales)] = true;
  return ChangeScales(call, changed);
}

int RunSetScales(ScriptCall& call) {
  std::vector<float> values;
  if (!ParseRealList(call.words, 4, values)) return Fail(call, kScriptFailed, kFewArguments, call.command);
  OutputSettings changed = call.session.output;
  for (std::size_t i = 0; i < 4; ++i) changed.units.*kScales[i].factor = values[i];
  changed.units.user_scale.fill(true);
  return ChangeScales(call, changed);
}

struct ConventionWord {
  std::string_view word;
  Convention convention;
};
constexpr ConventionWord kConventionWords[] = {
    {"DEF", Convention::zavo},  {"DEFAULT", Convention::zavo}, {"ZUP", Convention::zavo},
    {"ZAVO", Convention::zavo}, {"MODEL", Convention::model},  {"ZDOWN", Convention::model},
    {"CFD", Convention::cfd},   {"XAFT", Convention::cfd},     {"XDOWN", Convention::cfd},
};

int RunCoordinates(ScriptCall& call) {
  const std::string word = Capitals(NextScriptWord(call.words, kKeyword));
  for (const ConventionWord& row : kConventionWords) {
    if (row.word != word) continue;
    for (const ConventionRow& convention : kConventions)
      if (convention.convention == row.convention) call.session.output.units.cnvfac = convention.factors;
    return kScriptOk;
  }
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
