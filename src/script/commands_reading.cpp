// Commands that read output files.
#include <string>
#include <vector>

#include "base/text.h"
#include "case/read_output_file.h"
#include "frame/wildcards.h"
#include "script/command_table.h"
#include "script/open_script_file.h"

namespace zaview {

namespace {

inline constexpr std::string_view kBlankName = "ERROR - Blank file name for {} command";
inline constexpr std::string_view kLongName = "ERROR - Error opening ZAVO Output File : {}";
inline constexpr std::string_view kAlternate = "ERROR - alternate input needs READ_KINO_FILES in a script";
inline constexpr std::string_view kNoWildCards = "ERROR - Wild cards cannot be used with {} command";
inline constexpr std::string_view kNoMatch = "ERROR - no file(s) found which match {}";

// A name that begins so asks a dialogue for motions, seaway and geometry.
bool IsAlternateInput(std::string_view name) {
  const std::string_view tag = name.substr(0, 4);
  return tag == "KINO" || tag == "kino" || tag == "TEXT" || tag == "text";
}

struct ReadModes {
  int ensemble_mode;
  RestartMode restart_mode = RestartMode::keep_last;  // where a dialogue would ask whether to combine
};

bool ReadOneFile(Session& session, const std::string& name, const ReadModes& modes) {
  const ReadRequest request{name, modes.ensemble_mode, modes.restart_mode, session.run.selected_ship,
                            session.run.selected_vcg};
  return read_output_file(request, session.platform, session.run, session.output, session.case_store,
                          session.ensemble) == ReadOutcome::ok;
}

// One that can't be read is passed over.
int ReadMatchingFiles(ScriptCall& call, const std::string& pattern, const ReadModes& modes) {
  std::vector<std::string> names;
  list_matching_files(call.session.platform.files, pattern, names);
  if (names.empty()) return Fail(call, kScriptFailed, kNoMatch, pattern);
  bool any = false;
  for (const std::string& name : names)
    if (!IsBlank(name)) any = ReadOneFile(call.session, name, modes) || any;
  return any ? kScriptOk : kScriptFailed;
}

int ReadFiles(ScriptCall& call, const ReadModes& modes) {
  const std::string name(Trim(NextScriptWord(call.words, kFreeText)));
  if (name.empty()) return Fail(call, kScriptBadArgument, kBlankName, call.command);
  if (name.size() > kScriptFileName) return Fail(call, kScriptFailed, kLongName, name);
  if (IsAlternateInput(name)) return Fail(call, kScriptFailed, kAlternate);
  const bool many = has_wildcards(name);
  if (many && modes.restart_mode == RestartMode::combine)
    return Fail(call, kScriptBadArgument, kNoWildCards, call.command);
  if (many) return ReadMatchingFiles(call, name, modes);
  return ReadOneFile(call.session, name, modes) ? kScriptOk : kScriptFailed;
}

int RunRead(ScriptCall& call) {
  return ReadFiles(call, {call.session.run.ensemble_mode});
}
int RunReadEnsemble(ScriptCall& call) {
  return ReadFiles(call, {kForcedEnsemble});
}
int RunReadCombined(ScriptCall& call) {
  return ReadFiles(call, {call.session.run.ensemble_mode, RestartMode::combine});
}

int RunClearEnsemble(ScriptCall& call) {
  reset_ensemble(call.session.case_store, call.session.ensemble);
  return kScriptOk;
}

constexpr Command kReading[] = {
    {{"READ_OUTPUT_FILE", "READ_OUTPUT", "READ_FILE", "READ"},             kNone, RunRead         },
    {{"READ_OUTPUT_FILE_ENSEMBLE", "READ_FILE_ENSEMBLE", "READ_ENSEMBLE"}, kNone, RunReadEnsemble },
    {{"READ_OUTPUT_FILE_COMB", "READ_FILE_COMB", "READ_COMB", "READ_OUTPUT_FILE_COMBINE", "READ_FILE_COMBINE",
      "READ_COMBINE"},
     kNone,                                                                       RunReadCombined },
    {{"CLEAR_ENSEMBLE_DATA", "CLEAR_ENSEMBLE"},                            kNone, RunClearEnsemble},
};

}  // namespace

CommandFamily ReadingCommands() {
  return kReading;
}

}  // namespace zaview
