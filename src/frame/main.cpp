#include <cstdio>
#include <cstdlib>
#include <new>
#include <string>
#include <vector>

#include "base/platform_posix.h"
#include "frame/ground/zaview_exit.h"
#include "frame/zaview_main.h"
#include "gks/window/window_glut.h"
#include "gks/window/window_offscreen.h"

namespace {

int Run(int count, char** words) {
  zaview::Platform platform = zaview::PosixPlatform();
  platform.window = zaview::OffscreenWindowSystem(zaview::MakeOffscreenWindows());  // nothing is opened yet
  platform.choose_window = [](const zaview::Platform& machine) {
    const zaview::WindowSystem display = zaview::GlutWindowSystem(machine);
    return display.start != nullptr ? display : machine.window;
  };
  const std::vector<std::string> arguments(words + (count > 0 ? 1 : 0), words + count);
  zaview::zaview_exit(platform, zaview::zaview_main(platform, arguments));
}

}  // namespace

// Files that were being written are left as they were: they appear when they are complete.
int main(int count, char** words) {
  try {
    return Run(count, words);
  } catch (const std::bad_alloc&) {
    std::fputs("ERROR - memory is out, ZAVIEW aborting...\n", stderr);
    std::_Exit(EXIT_FAILURE);
  }
}
