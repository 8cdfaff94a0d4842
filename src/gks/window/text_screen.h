// Text in place of the plot: help pages and questions, paged where they are longer than the window, and the line that
// the user types below them.
#pragma once

#include <string_view>

#include "base/platform.h"
#include "gks/kernel/gks_state.h"

namespace zaview {

// Shows the text screen with a question. The answer goes to the screen_input hook.
void gksScreenPrompt(const Platform& platform, GksState& gks, ScreenMode mode, std::string_view prompt,
                     std::string_view fallback);
// Appends a line (256 columns), broken at blanks where the window is too narrow; number 0 clears the screen first. At
// most 100 lines, later ones are dropped. The lines stand until their screen ends.
void gksScreenLine(GksState& gks, std::string_view text, int number);
void gksScreenShow(const Platform& platform, GksState& gks);  // text only: any key goes on

// Into the picture that is bound.
void DrawTextScreen(const Platform& platform, GksState& gks);

// A key of the main window. It goes to the text screen if that is up; to the hooks if not, or if it ends a help page.
// x, y: pixels.
void gksKey(GksState& gks, int key, int x, int y);

}  // namespace zaview
