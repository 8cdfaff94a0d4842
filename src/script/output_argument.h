// The output file argument of a command: name[:SWITCH[:SWITCH]].
#pragma once

#include <string>
#include <string_view>

#include "frame/ground/output_file.h"
#include "script/script_call.h"

namespace zaview {

enum class OutputForms : unsigned char { formatted, both };  // what the command can write

struct OutputArgument {
  OutputFile file;
  std::string name;  // blank: the console
  bool unformatted = false;
};

// Opens a file of that name, which is none of an argument. The status, and its message said.
[[nodiscard]] int OpenNamedOutput(const ScriptCall& call, const std::string& name, OutputFile& file);

// Reads the argument and opens the file. A blank name, or one that begins with a colon, is the console. Status 0, or
// kScriptFailed with its message said, that of a file which can't be opened in the words of not_open.
[[nodiscard]] int OpenOutputArgument(ScriptCall& call, OutputForms forms, OutputArgument& output,
                                     std::string_view not_open = kOutputNotOpen);

// Closes it. status != 0: discards what was written. Else says `done` with the name, unless it is the console.
[[nodiscard]] int FinishOutput(ScriptCall& call, OutputArgument& output, int status, std::string_view done);

}  // namespace zaview
