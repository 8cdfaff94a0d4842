#include "views/motion/motion_view.h"

namespace zaview {

void KinoPlotInit(Session&) {}

void KinoRender(Session&) {}

void KinoMouse(Session&, int, float, float) {}

void BeforeMotionKey(Session&) {}

ViewKeys MotionKeys(const Session&) {
  return {};
}

}  // namespace zaview
