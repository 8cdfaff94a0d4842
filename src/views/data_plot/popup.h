// The small list that a click with Control or Alt opens in the data plot. In page units.
#pragma once

#include <array>
#include <string_view>

#include "gks/plot/plot_layer.h"
#include "views/state/axes_state.h"

namespace zaview {

inline constexpr std::array<std::string_view, 4> kPopupLines = {"Selection Menu", "Plot Options Menu", "Help",
                                                                "Time/Step Menu"};
enum class PopupChoice : std::uint8_t { none, curves, options, help, time_step };  // from 1: line from the top

struct PopupBox {
  float left = 0, bottom = 0, width = 0, pitch = 0;  // height: pitch a line
};

// Where the popup stands that was opened at x, y: its lower left corner there, moved so that it is on the
// page.
[[nodiscard]] PopupBox PopupBoxOf(const PopupState& popup, PlotDraw draw);
[[nodiscard]] PopupChoice ChoiceAt(const PopupBox& box, float x, float y);
void DrawPopup(const PopupState& popup, PlotDraw draw);  // if it is open

}  // namespace zaview
