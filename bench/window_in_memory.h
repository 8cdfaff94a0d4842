// A window in memory for benches of pictures, drawn by the software driver everywhere.
#pragma once

#include <cstdlib>
#include <string>

#include "base/platform_posix.h"
#include "gks/kernel/gks_control.h"
#include "gks/window/window_offscreen.h"

namespace zaview {

// platform: the real machine with such windows; gks: the main one, of width x height pixels. Ends the bench on a fault.
inline void OpenWindowInMemory(int width, int height, Platform& platform, GksState& gks) {
  setenv("LIBGL_ALWAYS_SOFTWARE", "1", 1);
  platform = PosixPlatform();
  platform.window = OffscreenWindowSystem(MakeOffscreenWindows());
  const WindowSystem& window = platform.window;
  std::string why;
  if (!window.start(window.self, {}, why)) std::abort();
  gks.window.width = width;
  gks.window.height = height;
  gks.window.id = window.create_window(window.self, "", 0, 0, width, height);
  gksSetReverse(gks, false);
}

}  // namespace zaview
