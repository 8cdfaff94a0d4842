#include "frame/run_loop.h"

#include "base/message.h"
#include "frame/command_line.h"
#include "frame/text_menu.h"
#include "script/open_script_file.h"

namespace zaview {

namespace {

constexpr std::string_view kDone = "ZAVIEW is done...";
constexpr std::string_view kAborting = "ZAVIEW aborting...";
constexpr std::string_view kContinuing = "ZAVIEW continuing...";

}  // namespace

ScriptEnd RunScript(Session& session, std::string_view name, int& status) {
  RunState& run = session.run;
  const Console& console = session.platform.console;
  const int script = OpenScriptFile(session, name);
  if (run.plot_module > 0) return ScriptEnd::go_on;
  if (!run.script_is_init) {
    SayLine(console, script == kScriptOk ? kDone : kAborting);
    status = script == kScriptInterrupted ? kRunInterrupted : script == kScriptOk ? kRunOk : kRunFailed;
    return ScriptEnd::run_ends;
  }
  SayLine(console, kContinuing);
  run.script_active = false;
  run.script_is_init = false;
  run.skip_prompt = SkipPrompt::ask;  // the user is there again
  return ScriptEnd::go_on;
}

int RunDialogue(Session& session) {
  while (session.run.plot_module == 0 && !session.run.exit_requested) text_menu(session);
  return kRunOk;
}

}  // namespace zaview
