#include "views/state/axes_marks.h"

#include <cmath>
#include <string>

#include <fmt/format.h>

#include "gks/plot/page_heading.h"
#include "gks/plot/page_text.h"

namespace zaview {

void DrawAxesMarks(const AxesState& axes, float height, PlotDraw draw, bool log_y) {
  constexpr float kMargin = 0.15F;  // page units to the edge of the page
  if (axes.zoom.pending) DrawCross(draw, axes.zoom.x, axes.zoom.y);
  const MeasureState& measure = axes.measure;
  if (!measure.on) return;
  DrawCross(draw, measure.x, measure.y);
  const float y = log_y ? std::pow(10.0F, measure.y) : measure.y;
  const std::string text = fmt::format("{:>8}  {:>8}", ShortNumber(measure.x), ShortNumber(y));
  PageText(draw, text, draw.page.page_width - kMargin, kMargin, height, TextSide::right);
}

}  // namespace zaview
