#include "views/state/popup.h"

#include <algorithm>
#include <cstddef>

#include "gks/plot/page_text.h"

namespace zaview {

namespace {

constexpr float kHeight = 0.14F;   // of its text
constexpr float kLine = 1.3F;      // lines stand apart, as each is to be hit by the mouse
constexpr float kLetter = 1.0F;    // room beside the longest line, in heights
constexpr float kBaseline = 0.3F;  // of the pitch, from the lower edge of a line
constexpr float kOnPage = 0.02F;   // stays free to the page's edge, so that the frame is seen

float HeightOf(const PopupBox& box, PopupLines lines) {
  return box.pitch * static_cast<float>(lines.size());
}

}  // namespace

PopupBox PopupBoxOf(const PopupState& popup, PopupLines lines, PlotDraw draw) {
  PopupBox box;
  for (const std::string_view line : lines) box.width = std::max(box.width, TextWidth(draw, line, kHeight));
  box.width += kLetter * kHeight;
  box.pitch = kLine * LinePitch(draw, kHeight);
  const auto inside = [](float value, float most) { return std::max(std::min(value, most - kOnPage), kOnPage); };
  box.left = inside(popup.x, draw.page.page_width - box.width);
  box.bottom = inside(popup.y, draw.page.page_height - HeightOf(box, lines));
  return box;
}

std::size_t LineAt(const PopupBox& box, PopupLines lines, float x, float y) {
  const float below_top = box.bottom + HeightOf(box, lines) - y;
  const bool inside = x >= box.left && x <= box.left + box.width && below_top >= 0.0F && y >= box.bottom;
  if (!inside || !(box.pitch > 0.0F)) return 0;
  return std::min(static_cast<std::size_t>(below_top / box.pitch), lines.size() - 1) + 1;
}

void DrawPopup(const PopupState& popup, PopupLines lines, PlotDraw draw) {
  if (!popup.open) return;
  const PopupBox box = PopupBoxOf(popup, lines, draw);
  const float top = box.bottom + HeightOf(box, lines);
  dgThickness(draw, 0);
  dgColour(draw, 1);
  PaperBox(draw, box.left, box.bottom, box.width, HeightOf(box, lines));
  for (std::size_t i = 0; i < lines.size(); ++i)
    PageText(draw, lines[i], box.left + 0.5F * kLetter * kHeight,
             top - box.pitch * (static_cast<float>(i + 1) - kBaseline), kHeight, TextSide::left);
}

}  // namespace zaview
