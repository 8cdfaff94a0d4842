#include "frame/run_loop.h"

#include <utility>

#include "base/message.h"
#include "frame/ground/zaview_exit.h"
#include "frame/text_menu.h"
#include "script/open_script_file.h"

namespace zaview {

namespace {

constexpr std::string_view kDone = "ZAVIEW is done...";
constexpr std::string_view kAborting = "ZAVIEW aborting...";
constexpr std::string_view kContinuing = "ZAVIEW continuing...";

// From here on somebody is there who reads and answers.
void EndQuiet(Session& session) {
  if (!session.run.quiet) return;
  Console& console = session.platform.console;
  const bool trace = console.trace;
  console = session.quiet_console.real;
  console.trace = trace;
  session.run.quiet = false;
}

}  // namespace

void RunScript(Session& session, std::string_view name) {
  RunState& run = session.run;
  const Console& console = session.platform.console;
  const int script = OpenScriptFile(session, name);
  if (run.plot_module != PlotModule::none) return;
  if (!run.script_is_init) {
    SayLine(console, script == kScriptOk ? kDone : kAborting);
    run.exit_requested = true;
    run.exit_status = script == kScriptInterrupted               ? kRunInterrupted
                      : script == kScriptOk && !run.files_unread ? kRunOk
                                                                 : kRunFailed;
    return;
  }
  EndQuiet(session);
  SayLine(console, kContinuing);
  EndInitScript(run);
}

void EndInitScript(RunState& run) {
  run.script_active = false;
  run.script_is_init = false;
  run.skip_prompt = SkipPrompt::ask;
}

void RunDialogue(Session& session) {
  RunState& run = session.run;
  const bool to_menu = std::exchange(run.menu_wanted, false);
  if (to_menu) EndQuiet(session);
  if (!to_menu && run.script_active && session.script.open && run.plot_module == PlotModule::none)
    RunScript(session, "");
  while (run.plot_module == PlotModule::none && !run.exit_requested) text_menu(session);
}

}  // namespace zaview
