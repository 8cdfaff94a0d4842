// Commands that read a case from KINO files, and write it as such.
#include <algorithm>
#include <string>
#include <vector>

#include "base/number_parse.h"
#include "base/text.h"
#include "case/read/kino_input.h"
#include "case/tables/kino_output.h"
#include "script/command_table.h"
#include "script/open_script_file.h"

namespace zaview {

namespace {

inline constexpr std::string_view kBlankName = "ERROR - Blank file name for {} command";
inline constexpr std::string_view kLongName = "ERROR opening KINO file {}";

// Gravity, density, reference point, centre of gravity.
int ReadNumbers(ScriptCall& call, KinoFiles& files) {
  constexpr int kNumbers = 8;
  std::vector<float> values;
  if (!ParseRealList(call.words, kNumbers, values)) return Fail(call, kScriptFailed, kFewArguments, call.command);
  files.g = AsWritten(values[0]);
  files.rho = AsWritten(values[1]);
  std::transform(values.begin() + 2, values.begin() + 5, files.reference.begin(), AsWritten);
  std::transform(values.begin() + 5, values.end(), files.centre.begin(), AsWritten);
  return kScriptOk;
}

int RunReadKino(ScriptCall& call) {
  Session& session = call.session;
  KinoFiles files;
  std::string* const names[] = {&files.motions, &files.seaway, &files.geometry};
  for (std::string* name : names) *name = Trim(NextScriptWord(call.words, kFreeText));
  if (files.motions.empty()) return Fail(call, kScriptBadArgument, kBlankName, call.command);
  for (const std::string* name : names)
    if (name->size() > kScriptFileName) return Fail(call, kScriptFailed, kLongName, *name);
  if (const int status = ReadNumbers(call, files); status != kScriptOk) return status;
  RunState& run = session.run;
  if (run.skip_prompt == SkipPrompt::ask) run.skip_prompt = SkipPrompt::silent;  // nothing asks while a script runs
  const KinoInput input =
      ReadKinoFiles(session.platform, files, run, session.output, session.case_store, session.ensemble);
  return input == KinoInput::ok ? kScriptOk : kScriptFailed;
}

int RunWriteKino(ScriptCall& call) {
  Session& session = call.session;
  const std::string root(Trim(NextScriptWord(call.words, kFreeText)));
  if (root.size() > kScriptFileName) return Fail(call, kScriptFailed, kLongName, root);
  return write_kino_files(session.platform, root, session.output, session.case_store) == KinoSet::ok ? kScriptOk
                                                                                                     : kScriptFailed;
}

constexpr Command kKino[] = {
    {{"READ_KINO_FILES", "READ_KINO_FILE", "READ_KINO"},
     kNone,
     RunReadKino,
     "motions seaway geometry gravity density x y z xcg ycg zcg",
     "Reads a case from KINO files of motions, sea and hull"},
    {{"WRITE_KINO_FILES", "WRITE_KINO_INPUT", "WRITE_KINO"},
     kNeedsCase | kNeedsMotion,
     RunWriteKino,
     "root",
     "Writes the case as KINO files; a blank name is that of the run"},
};

}  // namespace

CommandFamily KinoCommands() {
  return kKino;
}

}  // namespace zaview
