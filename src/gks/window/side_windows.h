// Windows beside the main one: rows of handlers, called for what happens in them.
#pragma once

#include <string_view>

#include "gks/kernel/gks_state.h"

namespace zaview {

struct Platform;

// A window beside the main one, as large as its row says. The number it has, which the row of the state holds as well;
// 0: there can't be any, for nobody sees them in memory.
[[nodiscard]] int gksOpenSideWindow(const Platform& platform, GksState& gks, std::string_view title, int x, int y,
                                    const GksSideWindow& row);
void gksCloseSideWindow(const Platform& platform, GksState& gks, int id);

// ---- What gks_window was told of one; a number that no row has is passed by
void PostSide(GksState& gks, int id);  // is drawn soon
void DisplaySide(GksState& gks, int id);
[[nodiscard]] bool KeyOfSide(GksState& gks, int id, int code, unsigned modifiers);  // true: it was one for this window
void MouseOfSide(GksState& gks, int id, int button, unsigned modifiers, int x, int y);
void ReleaseOfSide(GksState& gks, int id, int button, unsigned modifiers, int x, int y);
void DragOfSide(GksState& gks, int id, int x, int y);
void ReshapeSide(GksState& gks, int id, int width, int height);
void CloseSide(GksState& gks, int id);

}  // namespace zaview
