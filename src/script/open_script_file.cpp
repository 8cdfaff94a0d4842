#include "script/open_script_file.h"

#include <string>
#include <utility>

#include "base/message.h"
#include "base/text.h"
#include "frame/ground/input_file.h"
#include "frame/ground/prompts.h"
#include "gks/picture/picture_sheet.h"
#include "script/expand_includes.h"
#include "script/expand_loops.h"
#include "script/read_script_file.h"
#include "script/substitute_variables.h"

namespace zaview {

namespace {

constexpr std::string_view kNamePrompt = "Enter the name of an ZAVIEW Script File (Return to cancel):";
constexpr std::string_view kReading = "Reading ZAVIEW script file : {}";
constexpr std::string_view kOpenFault = "ERROR opening Script File : {}{}";
constexpr std::string_view kParseFault = "ERROR parsing Script File : {}";
constexpr std::size_t kScriptName = 256;  // a longer name fails to open
constexpr std::string_view kEndings[] = {"", ".script", ".scpt"};

// The words for the status that the interpreter ended with.
constexpr int kAnyOther = -1;
struct EndRow {
  int status;
  std::string_view text;
};
constexpr EndRow kEnds[] = {
    {kScriptOk, "Successfully parsed ZAVIEW script file : {}"},
    {kScriptFailed, "ERROR executing ZAVIEW script file : {}"},
    {kScriptBadArgument, "Argument ERROR in ZAVIEW script file : {}"},
    {kScriptUnknownCommand, "ERROR parsing ZAVIEW script file : {}"},
    {kScriptInterrupted, "Interrupted ZAVIEW script file : {}"},
    {kAnyOther, "ERROR reading ZAVIEW script file : {}"},
};

// The three passes: from the text of the file to the final text.
bool RunPasses(Session& session, BlockStream& stream) {
  const Platform& platform = session.platform;
  ScriptState& script = session.script;
  ScriptText text;
  const IncludeStatus includes = ExpandIncludes(platform, script.name, stream, script.files, text);
  PassMessage message;
  const bool good = includes == IncludeStatus::ok && ExpandScriptLoops(platform.console, text, message) &&
                    SubstituteScriptVariables(platform.console, script, text, message);
  script.final_text = std::move(text.lines);
  script.next_line = 0;
  if (good) return true;
  Say(platform.console, kParseFault, script.name);
  if (includes != IncludeStatus::ok) return false;
  SayLine(platform.console, message.first);
  if (!message.second.empty()) SayLine(platform.console, message.second);
  SayLine(platform.console, AtLine(script.files, message.origin, message.line));
  return false;
}

void CloseScript(ScriptState& script) {
  script.open = false;
  script.final_text = {};
  script.files = {};
  script.next_line = 0;
}

int EndScript(Session& session, int status) {
  const std::string name = session.script.name;
  if (!FinishSheet(session.platform, session.gks) && status == kScriptOk) status = kScriptFailed;
  CloseScript(session.script);
  const EndRow* row = kEnds;
  while (row->status != status && row->status != kAnyOther) ++row;
  if (status == kScriptOk) SayLine(session.platform.console, "");
  Say(session.platform.console, fmt::runtime(row->text), name);
  return status;
}

int RunOpenScript(Session& session) {
  const int status = ReadScriptFile(session);
  if (status == kScriptOk && session.run.plot_suboption > 0) return status;  // suspended: all stays open
  return EndScript(session, status);
}

// The plot that a command asked for could not be made.
int EndFailedPlot(Session& session) {
  const ScriptState& script = session.script;
  const ScriptLine& line = script.final_text[script.command_line];
  SayLine(session.platform.console, AtLine(script.files, line.origin, line.text));
  return EndScript(session, kScriptFailed);
}

int StartScript(Session& session, std::string_view name) {
  const Console& console = session.platform.console;
  const Files& files = session.platform.files;
  ScriptState& script = session.script;
  const std::string command = std::exchange(session.run.command_text, {});
  BlockStream stream;
  if (command.empty()) {
    const FoundFile found = OpenFirst(files, name, kEndings, kScriptName);
    if (found.file == kNoFile) {
      Say(console, kOpenFault, name, Because(found.why));
      return kScriptNotRun;
    }
    script.name = found.name;
    StartStream(stream, files, found.file);
  } else {
    script.name = name;
    StartStream(stream, command);
  }
  Say(console, kReading, script.name);
  const bool passed = RunPasses(session, stream);
  if (stream.file != kNoFile) files.close(files.self, stream.file);
  if (!passed) {
    CloseScript(script);
    return kScriptNotRun;
  }
  script.open = true;
  if (session.run.skip_prompt == SkipPrompt::ask) session.run.skip_prompt = SkipPrompt::silent;
  return RunOpenScript(session);
}

// Asks until a script ran, or the user gives up.
int AskForScript(Session& session) {
  const Console& console = session.platform.console;
  while (true) {
    SayLine(console, "");
    std::string name;
    const Answer answer = ask_text(console, kNamePrompt, "", name);
    if (answer != Answer::ok || IsBlank(name.substr(0, 5))) {
      SayLine(console, "Script file open aborted ...");
      return kScriptCancelled;
    }
    const int status = StartScript(session, Trim(name));
    if (session.script.open) return status;
    if (status == kScriptOk) {
      pause_for_return(console);
      return status;
    }
    std::string again;
    if (ask_text(console, "Hit RETURN to continue...", "", again) != Answer::ok || IsBlank(again)) return status;
  }
}

int ResumeOrStart(Session& session, std::string_view name) {
  if (session.run.plot_suboption > 0 && session.script.open) {
    session.run.plot_suboption = 0;
    const bool no_picture = std::exchange(session.gks.dump.failed, false);
    return session.run.plot_failed || no_picture ? EndFailedPlot(session) : RunOpenScript(session);
  }
  return IsBlank(name) ? AskForScript(session) : StartScript(session, name);
}

}  // namespace

int OpenScriptFile(Session& session, std::string_view name) {
  const Console& console = session.platform.console;
  Trace(console, "OpenScriptFile : entering plot_suboption= {}", session.run.plot_suboption);
  const int status = ResumeOrStart(session, name);
  Trace(console, "OpenSCriptFile : exiting plot_suboption= {}", session.run.plot_suboption);
  return status;
}

}  // namespace zaview
