#include "script/read_script_file.h"

#include <algorithm>

#include "base/grow.h"
#include "base/text.h"
#include "script/script_text.h"

namespace zaview {

namespace {

constexpr std::string_view kInterrupted = "ERROR - interrupted ahead of this command";
constexpr std::string_view kHelp = "        zaview -help {} tells its arguments";
constexpr std::string_view kCarried =
    "WARNING - {} took the command {} of the next line for its argument : \"\" stands for none";
constexpr std::string_view kLeftOver = "WARNING - words left over on the line : {}";
constexpr std::string_view kQuestion = "ERROR - a script has no answer to this question";

// The console while a command runs: what it asks finds the end of the input, so that no script ever waits.
struct ScriptConsole {
  Console console;  // the one behind it
  bool asked = false;
  bool interrupted = false;  // the command looked for a Ctrl-C, and there was one
};

ScriptConsole& Of(void* self) {
  return *static_cast<ScriptConsole*>(self);
}

Console WithoutInput(ScriptConsole& silent) {
  Console console = silent.console;
  console.self = &silent;
  console.read_line = [](void* self, std::string&) {
    Of(self).asked = true;
    return false;
  };
  console.write = [](void* self, std::string_view text) { Of(self).console.write(Of(self).console.self, text); };
  console.flush = [](void* self) { Of(self).console.flush(Of(self).console.self); };
  console.show_progress = [](void* self, std::string_view text) {
    Of(self).console.show_progress(Of(self).console.self, text);
  };
  console.remove_progress = [](void* self) { Of(self).console.remove_progress(Of(self).console.self); };
  if (silent.console.write_table != nullptr)
    console.write_table = [](void* self, std::string_view text) {
      Of(self).console.write_table(Of(self).console.self, text);
    };
  console.take_interrupt = [](void* self) {
    const bool came = TakeInterrupt(Of(self).console);
    Of(self).interrupted = Of(self).interrupted || came;
    return came;
  };
  return console;
}

// An argument that was forgotten takes the next line's first word, and what follows it there belongs to nobody.
void WarnOfWords(const ScriptCall& call, std::span<const CommandFamily> commands, const Command& command, int status) {
  if (FindCommand(commands, Capitals(call.words.carried)) != nullptr)
    return Say(call.console(), kCarried, call.command, call.words.carried);
  const std::string_view rest = RestOfLine(call.words);
  if (status == kScriptOk && !rest.empty() && !command.last) Say(call.console(), kLeftOver, rest);
}

struct FirstWord {
  std::string_view word;
  std::size_t end = 0;  // of it in the line
};
FirstWord CommandOf(std::string_view line) {
  const std::size_t begin = std::min(line.find_first_not_of(" \t"), line.size());
  const std::size_t end = std::min(line.find_first_of(" \t", begin), line.size());
  return {line.substr(begin, end - begin), end};
}

int RunLine(Session& session, std::span<const CommandFamily> commands, const ScriptLine& line) {
  const Console& console = session.platform.console;
  const std::string_view text = line.text;
  const auto [word, end] = CommandOf(text);
  Say(console, "ZAVIEW Scripting: {}", text);
  ScriptCall call{session, Capitals(word), {&console, session.script.final_text, &session.script.next_line, text, end}};
  const Command* command = FindCommand(commands, call.command);
  if (command == nullptr) {
    SayLine(console, "");
    Say(console, "ERROR parsing script file - unrecognized command: {}", word);
    if (const std::string meant = CommandsMeant(commands, call.command); !meant.empty()) SayLine(console, meant);
    return kScriptUnknownCommand;
  }
  if (!PreconditionsMet(call, command->needs)) return kScriptFailed;
  constexpr int kNoRoom = -1000;  // no status of a command
  const int status = Guarded([&] { return command->run(call); }, kNoRoom);
  if (status == kNoRoom) return Fail(call, kScriptFailed, kMemoryOut, call.command);
  WarnOfWords(call, commands, *command, status);
  return status;
}

// Stands in the place of the session's console while it lives, also where memory runs out.
struct SilentConsole {
  Session& session;
  ScriptConsole silent;
  explicit SilentConsole(Session& s) : session(s), silent{s.platform.console} {
    session.platform.console = WithoutInput(silent);
  }
  ~SilentConsole() { session.platform.console = silent.console; }
  SilentConsole(const SilentConsole&) = delete;
  SilentConsole& operator=(const SilentConsole&) = delete;
};

// A question that a command asked has failed, whatever the command made of it; long work that a Ctrl-C ended has said
// so.
int RunLineSilently(Session& session, std::span<const CommandFamily> commands, const ScriptLine& line) {
  SilentConsole console(session);
  const ScriptConsole& silent = console.silent;
  const int status = RunLine(session, commands, line);
  if (silent.interrupted) return kScriptInterrupted;
  if (!silent.asked) return status;
  SayLine(silent.console, kQuestion);
  return status == kScriptOk ? kScriptFailed : status;
}

// Of one command, or of the Ctrl-C that came ahead of it.
int RunUnlessInterrupted(Session& session, std::span<const CommandFamily> commands, const ScriptLine& line) {
  if (!TakeInterrupt(session.platform.console)) return RunLineSilently(session, commands, line);
  SayLine(session.platform.console, kInterrupted);
  return kScriptInterrupted;
}

}  // namespace

int ReadScriptFile(Session& session, std::span<const CommandFamily> commands) {
  const Console& console = session.platform.console;
  ScriptState& script = session.script;
  const auto trace = [&](std::string_view what) {
    Trace(console, "ReadSCriptFile : {} plot_suboption= {}", what, session.run.plot_suboption);
  };
  trace("entering");
  int status = kScriptOk;
  while (status == kScriptOk && session.run.plot_suboption == 0 && script.next_line < script.final_text.size()) {
    script.command_line = script.next_line++;
    const ScriptLine& line = script.final_text[script.command_line];
    if (IsBlank(line.text)) continue;
    status = RunUnlessInterrupted(session, commands, line);
    if (status != kScriptOk) SayLine(console, AtLine(script.files, line.origin, line.text));
    if (status == kScriptBadArgument) Say(console, kHelp, CommandOf(line.text).word);
  }
  trace("exiting");
  return status;
}

}  // namespace zaview
