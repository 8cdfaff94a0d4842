#include "frame/ground/zaview_exit.h"

#include <cstdlib>

namespace zaview {

void zaview_exit(const Platform& platform, int status) {
  platform.console.flush(platform.console.self);
  platform.exit(platform.self, status);
  std::abort();  // never: a pointer can't be told that it doesn't return
}

}  // namespace zaview
