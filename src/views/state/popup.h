// The small list that a click with Control or Alt opens in a view. In page units.
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#include "gks/plot/plot_layer.h"
#include "views/state/axes_state.h"

namespace zaview {

using PopupLines = std::span<const std::string_view>;

struct PopupBox {
  float left = 0, bottom = 0, width = 0, pitch = 0;  // height: pitch a line
};

// Where the popup stands that was opened at x, y: its lower left corner there, moved so that it is on the page.
[[nodiscard]] PopupBox PopupBoxOf(const PopupState& popup, PopupLines lines, PlotDraw draw);
// The line at a place, from 1 at the top; 0: beside the box.
[[nodiscard]] std::size_t LineAt(const PopupBox& box, PopupLines lines, float x, float y);
void DrawPopup(const PopupState& popup, PopupLines lines, PlotDraw draw);  // if it is open

}  // namespace zaview
