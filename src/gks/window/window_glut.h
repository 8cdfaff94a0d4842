// The window on a display: GLUT, with the main picture in a framebuffer object, so that dumps never see what lies above
// the window, and with display calls of our own, so that hidden windows get theirs.
#pragma once

#include "base/platform.h"
#include "base/window_system.h"

namespace zaview {

// The windows of this machine's display; no start in the record: there is none that answers and that OpenGL can draw
// on. One a process. platform: whom to tell, and whom to end, when the display is lost; outlives the windows.
[[nodiscard]] WindowSystem GlutWindowSystem(const Platform& platform);

}  // namespace zaview
