#include "frame/ground/zaview_exit.h"

#include <cstdlib>

#include "base/message.h"

namespace zaview {

void zaview_exit(const Platform& platform, int status) {
  Trace(platform.console, "zaviewexit");
  platform.console.flush(platform.console.self);
  platform.exit(platform.self, status);
  std::abort();  // never: a pointer can't be told that it doesn't return
}

}  // namespace zaview
