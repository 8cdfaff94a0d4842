#include "frame/zaview_main.h"

#include "frame/command_line.h"
#include "frame/run_loop.h"
#include "frame/session.h"

namespace zaview {

int zaview_main(const Platform& platform, std::span<const std::string> arguments) {
  Session session;
  session.platform = platform;
  const CommandLineResult start = read_defaults_and_arguments(session, arguments);
  const int status = start.end == LineEnd::stop ? start.status : RunDialogue(session);
  platform.console.flush(platform.console.self);
  return status;
}

}  // namespace zaview
