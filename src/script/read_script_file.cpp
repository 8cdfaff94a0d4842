#include "script/read_script_file.h"

#include "base/text.h"
#include "script/open_script_file.h"
#include "script/script_text.h"

namespace zaview {

namespace {

int RunLine(Session& session, std::span<const CommandFamily> commands, const ScriptLine& line) {
  const Console& console = session.platform.console;
  const std::string_view text = line.text;
  const std::size_t begin = std::min(text.find_first_not_of(" \t"), text.size());
  const std::size_t end = std::min(text.find_first_of(" \t", begin), text.size());
  const std::string_view word = text.substr(begin, end - begin);
  Say(console, "ZAVIEW Scripting: {}", text);
  ScriptCall call{
      session, Capitals(word), {&console, session.script.final_text, &session.script.next_line, text, end}
  };
  const Command* command = FindCommand(commands, call.command);
  if (command == nullptr) {
    SayLine(console, "");
    return Fail(call, kScriptUnknownCommand, "ERROR parsing script file - unrecognized command: {}", word);
  }
  return PreconditionsMet(call, command->needs) ? command->run(call) : kScriptFailed;
}

}  // namespace

int ReadScriptFile(Session& session, std::span<const CommandFamily> commands) {
  const Console& console = session.platform.console;
  ScriptState& script = session.script;
  const auto trace = [&](std::string_view what) {
    if (session.run.debug_flow)
      Say(console, "ReadSCriptFile : {} plot_suboption= {}", what, session.run.plot_suboption);
  };
  trace("entering");
  int status = kScriptOk;
  while (status == kScriptOk && session.run.plot_suboption == 0 && script.next_line < script.final_text.size()) {
    const ScriptLine& line = script.final_text[script.next_line++];
    if (IsBlank(line.text)) continue;
    status = RunLine(session, commands, line);
    if (status != kScriptOk) SayLine(console, AtLine(script.files, line.origin, line.text));
  }
  trace("exiting");
  return status;
}

}  // namespace zaview
