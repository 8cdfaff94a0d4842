// The main window: opening, its event loop, and what is called back from there. Everything that happens after the first
// picture, console dialogues included, happens inside a call of gksTop.
#pragma once

#include <string_view>

#include "base/platform.h"
#include "gks/kernel/gks_state.h"

namespace zaview {

inline constexpr std::string_view kNoWindow = "GLGKS - Error Initializing Window...";

// Reads the environment, at its first call. Ahead of the first word that orders a picture: the environment sets how the
// program begins, not what it does later.
void gksReadEnvironment(const Platform& platform, GksState& gks);

// Can the next view be shown? At the first call the environment is read and the window system is chosen and started;
// gks.hooks are to be set by then, and platform outlives the event loop. False: the cause, then kNoWindow, have been
// said; the next call tries again. Offscreen a view can be shown only in dump-only mode or with a picture's file
// ordered.
[[nodiscard]] bool gksReady(Platform& platform, GksState& gks);

// Opens the window and runs the event loop. After gksReady. It comes back only when nothing is left to be done though a
// view is up, or the window could not be opened: kNoWindow has been said.
void gksTop(const Platform& platform, GksState& gks, std::string_view title);

// Before the window exists the size is recorded, and the environment isn't asked for it.
void glResizeWindow(const Platform& platform, GksState& gks, int width, int height);
// Begins a picture of the main window, recorded where it is to be (recorded_picture.h).
void gksBeginDrawing(const Platform& platform, GksState& gks);
void gksPostRedisplay(const Platform& platform, const GksState& gks);
void gksWindowShow(GksState& gks);                               // at the end of the next display
void gksWindowHideNow(const Platform& platform, GksState& gks);  // menus too; one display is still to come

void gksIdleOn(const Platform& platform, GksState& gks);  // both do nothing in dump-only mode
void gksIdleOff(const Platform& platform, GksState& gks);

struct GksModifiers {
  bool shift = false, control = false, alt = false;
};
[[nodiscard]] GksModifiers gksMouseButtons(const GksState& gks);  // at the event at hand; none in dump-only mode

void gksReverseToggle(const Platform& platform, GksState& gks);  // posts a redisplay
void gksReverseOff(GksState& gks);
void gksReverseOn(GksState& gks);
[[nodiscard]] bool gksReverseQuery(const GksState& gks);

}  // namespace zaview
