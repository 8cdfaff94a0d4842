// Commands that read a case from KINO files, and write it as such.
#include <algorithm>
#include <string>
#include <vector>

#include "base/number_parse.h"
#include "case/read/kino_input.h"
#include "case/tables/kino_output.h"
#include "script/call_arguments.h"
#include "script/command_table.h"

namespace zaview {

namespace {

constexpr std::string_view kLongName = "ERROR opening KINO file {}";

// Gravity, density, reference point, centre of gravity.
int ReadConstants(ScriptCall& call, KinoFiles& files) {
  constexpr int kNumbers = 8;
  std::vector<float> values;
  if (const int status = ReadNumbers(call, kNumbers, values); status != kScriptOk) return status;
  files.g = AsWritten(values[0]);
  files.rho = AsWritten(values[1]);
  std::transform(values.begin() + 2, values.begin() + 5, files.reference.begin(), AsWritten);
  std::transform(values.begin() + 5, values.end(), files.centre.begin(), AsWritten);
  return kScriptOk;
}

int RunReadKino(ScriptCall& call) {
  Session& session = call.session;
  KinoFiles files;
  if (const int status = ReadFileName(call, BlankName::refused, files.motions, kLongName); status != kScriptOk)
    return status;
  for (std::string* name : {&files.seaway, &files.geometry})
    if (const int status = ReadFileName(call, BlankName::allowed, *name, kLongName); status != kScriptOk) return status;
  if (const int status = ReadConstants(call, files); status != kScriptOk) return status;
  RunState& run = session.run;
  if (run.skip_prompt == SkipPrompt::ask) run.skip_prompt = SkipPrompt::silent;  // nothing asks while a script runs
  const KinoInput input =
      ReadKinoFiles(session.platform, files, run, session.output, session.case_store, session.ensemble);
  return input == KinoInput::ok ? kScriptOk : kScriptFailed;
}

int RunWriteKino(ScriptCall& call) {
  Session& session = call.session;
  std::string root;
  if (const int status = ReadFileName(call, BlankName::allowed, root, kLongName); status != kScriptOk) return status;
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
