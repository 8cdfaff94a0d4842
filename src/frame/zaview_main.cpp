#include "frame/zaview_main.h"

#include "base/message.h"
#include "frame/run_loop.h"
#include "frame/session.h"
#include "frame/start_up.h"
#include "views/frame/plot_session.h"

namespace zaview {

int zaview_main(const Platform& platform, std::span<const std::string> arguments) {
  Session session;
  session.platform = platform;
  session.dialogue = RunDialogue;
  SetHooks(session);
  const CommandLineResult start = read_defaults_and_arguments(session, arguments);
  if (start.end != LineEnd::stop) {
    RunDialogue(session);
    if (session.run.plot_module != PlotModule::none) startgraphics(session);  // the rest of the run is in there
  }
  Trace(session.platform.console, "zaviewexit");
  platform.console.flush(platform.console.self);
  return start.end == LineEnd::stop ? start.status : session.run.exit_status;
}

}  // namespace zaview
