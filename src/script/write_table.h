// The end of a command that writes one table.
#pragma once

#include <string_view>

#include "script/fault_status.h"
#include "script/output_argument.h"

namespace zaview {

// Takes the file argument and writes into it: DataFault write(OutputFile&). word: the selector as typed. done: what is
// said of the file then. The status.
template <typename Write>
[[nodiscard]] int WriteTable(ScriptCall& call, std::string_view word, std::string_view done, Write write,
                             std::string_view not_valid = kNotValid) {
  OutputArgument output;
  if (const int status = OpenOutputArgument(call, OutputForms::formatted, output); status != kScriptOk) return status;
  const DataFault fault = write(output.file);
  return FinishOutput(call, output, StatusOf(call, word, fault, not_valid), done);
}

}  // namespace zaview
