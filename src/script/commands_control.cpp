// Commands for the control text of the case in store.
#include <string>

#include "case/case_control_text.h"
#include "script/command_table.h"
#include "script/output_argument.h"

namespace zaview {

namespace {

constexpr std::string_view kNoControlText = "ERROR - the case was read from {} and has no control text";
constexpr std::string_view kNoMemory = "ERROR - no memory to write the control text";

int RunWriteControl(ScriptCall& call) {
  const CaseStore& store = call.session.case_store;
  if (store.kino_input) return Fail(call, kScriptFailed, kNoControlText, store.from_table() ? "a table" : "KINO files");
  OutputArgument output;
  if (const int status = OpenOutputArgument(call, OutputForms::formatted, output); status != kScriptOk) return status;
  std::string text;
  int status = kScriptOk;
  if (AppendControlText(store, text)) WriteOutput(output.file, text);
  else status = Fail(call, kScriptFailed, kNoMemory);
  return FinishOutput(call, output, status, "Control text written to file");
}

constexpr Command kControl[] = {
    {{"WRITE_CONTROL"},
     kNeedsCase,
     RunWriteControl,
     "file",
     "The control text of the case, from which it can be read again"},
};

}  // namespace

CommandFamily ControlCommands() {
  return kControl;
}

}  // namespace zaview
