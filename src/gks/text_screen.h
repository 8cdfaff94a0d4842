// Text in place of the plot: help pages and questions, paged where they are longer than the window, and the line that
// the user types below them.
#pragma once

#include <string_view>

#include "base/platform.h"
#include "gks/gks_state.h"

namespace zaview {

// Shows the text screen with a question. The answer goes to the screen_input hook.
void gksScreenPrompt(const Platform& platform, GksState& gks, ScreenMode mode, std::string_view prompt,
                     std::string_view fallback);
// Appends a line (256 columns); number 0 clears the screen first. At most 100 lines.
void gksScreenLine(GksState& gks, std::string_view text, int number);
void gksScreenShow(const Platform& platform, GksState& gks);  // text only: any key goes on

void DrawTextScreen(const Platform& platform, GksState& gks);

// A key, translated. Text screen or plot: goes to the hooks when the screen has no use for it. x, y: pixels.
void gksKey(const Platform& platform, GksState& gks, int key, int x, int y);

}  // namespace zaview
