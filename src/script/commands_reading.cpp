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
inline constexpr std::string_view kNoMatch = "ERROR - no file(s) found which match {}";

// A name that begins so asks a dialogue for motions, seaway and geometry.
bool IsAlternateInput(std::string_view name) {
  const std::string_view tag = name.substr(0, 4);
  return tag == "KINO" || tag == "kino" || tag == "TEXT" || tag == "text";
}

bool ReadOneFile(Session& session, const std::string& name) {
  constexpr int kKeepLast = 0;  // where a dialogue would ask whether to combine
  const ReadRequest request{name, session.run.ensemble_mode, kKeepLast, session.run.selected_ship,
                            session.run.selected_vcg};
  return read_output_file(request, session.platform, session.run, session.output, session.case_store) ==
         ReadOutcome::ok;
}

// One that can't be read is passed over.
int ReadMatchingFiles(ScriptCall& call, const std::string& pattern) {
  std::vector<std::string> names;
  list_matching_files(call.session.platform.files, pattern, names);
  if (names.empty()) return Fail(call, kScriptFailed, kNoMatch, pattern);
  bool any = false;
  for (const std::string& name : names)
    if (!IsBlank(name)) any = ReadOneFile(call.session, name) || any;
  return any ? kScriptOk : kScriptFailed;
}

int RunRead(ScriptCall& call) {
  const std::string name(Trim(NextScriptWord(call.words, kFreeText)));
  if (name.empty()) return Fail(call, kScriptBadArgument, kBlankName, call.command);
  if (name.size() > kScriptFileName) return Fail(call, kScriptFailed, kLongName, name);
  if (IsAlternateInput(name)) return Fail(call, kScriptFailed, kAlternate);
  if (has_wildcards(name)) return ReadMatchingFiles(call, name);
  return ReadOneFile(call.session, name) ? kScriptOk : kScriptFailed;
}

constexpr Command kReading[] = {
    {{"READ_OUTPUT_FILE", "READ_OUTPUT", "READ_FILE", "READ"}, kNone, RunRead},
};

}  // namespace

CommandFamily ReadingCommands() {
  return kReading;
}

}  // namespace zaview
