// The window on a display: GLUT, with the main picture in a framebuffer object, so that dumps never see what lies above
// the window, and with display calls of our own, so that hidden windows get theirs.
#pragma once

#include "base/platform.h"
#include "base/window_system.h"

namespace zaview {

// Is there a display that answers, and that OpenGL can draw on?
[[nodiscard]] bool HasDisplay();

// One a process. platform: whom to tell, and whom to end, when the display is lost; outlives the windows.
[[nodiscard]] WindowSystem GlutWindowSystem(const Platform& platform);

}  // namespace zaview
