// Pens and texts of what stands over a scene, whatever colour that has behind them. Page units.
#pragma once

#include <string_view>

#include "gks/plot/page_text.h"
#include "gks/plot/plot_layer.h"

namespace zaview {

inline constexpr int kPaperColour = 0, kInkColour = 1;
// Behind dgFrame(2), for this picture: legible ones, two of them as the graphs' colours are called.
void SetOverlayColours(PlotDraw draw);
void UsePen(PlotDraw draw, int colour);  // any index of the palette, the paper's too

// In the foreground colour with a thin edge of the paper's, at the baseline.
void ClearText(PlotDraw draw, std::string_view text, float x, float y, float height, TextSide side);

struct PageBox {
  float x = 0, y = 0, width = 0, height = 0;
};
void FrameBox(PlotDraw draw, const PageBox& box);  // with the pen in use

}  // namespace zaview
