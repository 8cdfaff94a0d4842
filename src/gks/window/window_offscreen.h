// The window without a display: pictures in memory, and, for the first that is drawn by OpenGL, an EGL context
// (surfaceless), for which libEGL is opened then.
#pragma once

#include "base/platform.h"
#include "base/window_system.h"

namespace zaview {

struct OffscreenWindows;  // opaque

// The record for a platform; its state lives until it is freed. Nothing is opened before `start`.
[[nodiscard]] OffscreenWindows* MakeOffscreenWindows();
void FreeOffscreenWindows(OffscreenWindows* windows);
[[nodiscard]] WindowSystem OffscreenWindowSystem(OffscreenWindows* windows);

// For tests: an event that main_loop delivers in its turn, behind all drawing that is pending and ahead of idle calls.
struct FedEvent {
  enum class Kind : unsigned char { key, mouse, reshape, close, release, drag } kind = Kind::key;
  int id = 1, code = 0;  // key code or button
  unsigned modifiers = 0;
  int x = 0, y = 0;  // pixels; reshape: width, height
};
void FeedEvent(OffscreenWindows& windows, const FedEvent& event);

inline constexpr int kOffscreenWidth = 1280, kOffscreenHeight = 1024;  // of the screen

// For tests: the picture of any window, as read_picture gives that of the main window.
[[nodiscard]] bool ReadOffscreenPicture(OffscreenWindows& windows, int id, int width, int height, unsigned char* rgb);
[[nodiscard]] bool IsOffscreenWindowShown(const OffscreenWindows& windows, int id);

}  // namespace zaview
