// Commands that read output files.
#include <algorithm>
#include <string>
#include <vector>

#include "base/number_parse.h"
#include "base/text.h"
#include "case/read/ensemble_match.h"
#include "case/read/read_output_file.h"
#include "frame/ground/wildcards.h"
#include "script/call_arguments.h"
#include "script/command_table.h"

namespace zaview {

namespace {

constexpr std::string_view kLongName = "ERROR - Error opening ZAVO Output File : {}";
constexpr std::string_view kAlternate = "ERROR - alternate input needs READ_KINO_FILES in a script";
constexpr std::string_view kNoWildCards = "ERROR - Wild cards cannot be used with {} command";

// A name that begins so asks a dialogue for motions, seaway and geometry.
bool IsAlternateInput(std::string_view name) {
  const std::string_view tag = name.substr(0, 4);
  return tag == "KINO" || tag == "kino" || tag == "TEXT" || tag == "text";
}

struct ReadModes {
  EnsembleMode ensemble_mode;
  RestartMode restart_mode = RestartMode::keep_last;  // where a dialogue would ask whether to combine
  int numbers = 0;                                    // behind the name: 1 is the ship, 2 also its VCG
};

struct ShipChoice {
  int ship;
  float vcg;
  bool named = false;
};

bool ReadOneFile(Session& session, const std::string& name, const ReadModes& modes, const ShipChoice& choice) {
  const ReadRequest request{name, modes.ensemble_mode, modes.restart_mode, choice.ship, choice.named, choice.vcg};
  return read_output_file(request, session.platform, session.run, session.output, session.case_store,
                          session.ensemble) == ReadOutcome::ok;
}

// One that can't be read is passed over; the run ends with status 1 then.
int ReadMatchingFiles(ScriptCall& call, const std::string& pattern, const ReadModes& modes, const ShipChoice& choice) {
  std::vector<std::string> names;
  list_matching_files(call.session.platform.files, pattern, names);
  std::erase_if(names, [](const std::string& name) { return IsBlank(name); });
  if (names.empty()) return Fail(call, kScriptFailed, kNoMatch, pattern);
  const auto read = std::count_if(names.begin(), names.end(), [&](const std::string& name) {
    return ReadOneFile(call.session, name, modes, choice);
  });
  const auto unread = static_cast<std::ptrdiff_t>(names.size()) - read;
  if (unread == 0) return kScriptOk;
  Say(call.console(), kSomeUnread, unread, names.size());
  call.session.run.files_unread = true;
  return read > 0 ? kScriptOk : kScriptFailed;
}

int ReadChoice(ScriptCall& call, int numbers, ShipChoice& choice) {
  if (numbers == 0) return kScriptOk;
  std::vector<float> values;
  if (const int status = ReadNumbers(call, numbers, values); status != kScriptOk) return status;
  choice.named = true;
  choice.ship = RoundToInt(static_cast<double>(values[0]));
  if (numbers > 1) choice.vcg = values[1];
  return kScriptOk;
}

int ReadFiles(ScriptCall& call, const ReadModes& modes) {
  std::string name;
  if (const int status = ReadFileName(call, BlankName::refused, name, kLongName); status != kScriptOk) return status;
  if (IsAlternateInput(name)) return Fail(call, kScriptFailed, kAlternate);
  const bool many = is_pattern(call.session.platform.files, name);
  if (many && modes.restart_mode == RestartMode::combine)
    return Fail(call, kScriptBadArgument, kNoWildCards, call.command);
  ShipChoice choice{call.session.run.selected_ship, call.session.run.selected_vcg};
  if (const int status = ReadChoice(call, modes.numbers, choice); status != kScriptOk) return status;
  if (many) return ReadMatchingFiles(call, name, modes, choice);
  return ReadOneFile(call.session, name, modes, choice) ? kScriptOk : kScriptFailed;
}

int RunRead(ScriptCall& call) {
  return ReadFiles(call, {call.session.run.ensemble_mode});
}
int RunReadEnsemble(ScriptCall& call) {
  return ReadFiles(call, {EnsembleMode::forced});
}
int RunReadCombined(ScriptCall& call) {
  return ReadFiles(call, {call.session.run.ensemble_mode, RestartMode::combine});
}

int RunReadShip(ScriptCall& call) {
  constexpr int kShip = 1;
  return ReadFiles(call, {call.session.run.ensemble_mode, RestartMode::keep_last, kShip});
}
int RunReadOldShip(ScriptCall& call) {
  constexpr int kShipAndVcg = 2;
  return ReadFiles(call, {call.session.run.ensemble_mode, RestartMode::keep_last, kShipAndVcg});
}

int RunClearEnsemble(ScriptCall& call) {
  reset_ensemble(call.session.case_store, call.session.ensemble);
  return kScriptOk;
}

constexpr Command kReading[] = {
    {{"READ_OUTPUT_FILE", "READ_OUTPUT", "READ_FILE", "READ"},
     kNone,
     RunRead,
     "name",
     "Reads a run, or all runs that a wild card matches, one after the other; a table of measured data if its name "
     "ends "
     "in .csv or .tsv"},
    {{"READ_OUTPUT_FILE_ENSEMBLE", "READ_FILE_ENSEMBLE", "READ_ENSEMBLE"},
     kNone,
     RunReadEnsemble,
     "name",
     "The same, taken for further realizations of the case in store"},
    {{"READ_OUTPUT_FILE_COMB", "READ_FILE_COMB", "READ_COMB", "READ_OUTPUT_FILE_COMBINE", "READ_FILE_COMBINE",
      "READ_COMBINE"},
     kNone,
     RunReadCombined,
     "name",
     "Reads a run and joins it to the case in store, as parts of one restarted run"},
    {{"READ_MULTI_SHIP_FILE", "READ_MULTI_SHIP", "READ_MULTI_FILE", "READ_OUTPUT_FILE_MULTI", "READ_FILE_MULTI",
      "READ_MULTI"},
     kNone,
     RunReadShip,
     "name ship",
     "Reads one ship of a run with several"},
    {{"READ_OLD_MULTI_SHIP_FILE", "READ_OLD_MULTI_SHIP", "READ_OLD_MULTI_FILE", "READ_OLD_MULTI"},
     kNone,
     RunReadOldShip,
     "name ship vcg",
     "The same of an old run, which lacks the height of the centre of gravity"},
    {{"CLEAR_ENSEMBLE_DATA", "CLEAR_ENSEMBLE"},
     kNone,
     RunClearEnsemble,
     "",
     "Forgets all records of the ensemble but the current one"},
};

}  // namespace

CommandFamily ReadingCommands() {
  return kReading;
}

}  // namespace zaview
