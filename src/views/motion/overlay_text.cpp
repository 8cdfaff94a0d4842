#include "views/motion/overlay_text.h"

#include "gks/kernel/gks_control.h"
#include "gks/kernel/gks_draw.h"
#include "gks/kernel/gks_transform.h"
#include "gks/plot/line_colours.h"

namespace zaview {

namespace {

constexpr int kEdge = 2;  // pixels of paper around letters

}  // namespace

void SetOverlayColours(PlotDraw draw) {
  constexpr int kTan = 10, kGrey = 14;  // pens of other colours elsewhere
  GSCR(draw.platform.console, draw.gks, kTan, {0.82F, 0.71F, 0.55F});
  GSCR(draw.platform.console, draw.gks, kGrey, {0.6F, 0.6F, 0.6F});
  SetCurveColours(draw);
}

void UsePen(PlotDraw draw, int colour) {
  gksSetColours(draw.platform.console, draw.gks, colour);
}

void ClearText(PlotDraw draw, std::string_view text, float x, float y, float height, TextSide side) {
  dgSelectGraf(draw, 0);
  const float pixels = gksPixelsPerUnit(draw.gks).y, pixel = pixels > 0.0F ? 1.0F / pixels : 0.0F;
  UsePen(draw, kPaperColour);
  for (int dx = -kEdge; dx <= kEdge; ++dx)
    for (int dy = -kEdge; dy <= kEdge; ++dy)
      if (dx != 0 || dy != 0)
        PageText(draw, text, x + static_cast<float>(dx) * pixel, y + static_cast<float>(dy) * pixel, height, side);
  UsePen(draw, kInkColour);
  PageText(draw, text, x, y, height, side);
}

void FrameBox(PlotDraw draw, const PageBox& box) {
  const float right = box.x + box.width, top = box.y + box.height;
  const float x[] = {box.x, right, right, box.x, box.x}, y[] = {box.y, box.y, top, top, box.y};
  dgSelectGraf(draw, 0);
  GPL(draw.gks, x, y);
}

}  // namespace zaview
