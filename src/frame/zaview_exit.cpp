#include "frame/zaview_exit.h"

namespace zaview {

void zaview_exit(const Platform& platform, int status) {
  platform.console.flush(platform.console.self);
  platform.exit(platform.self, status);
}

}  // namespace zaview
