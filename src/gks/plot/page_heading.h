// The heading of a page and the room it takes; what stands around the area of the plot. Sizes are in page units.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "gks/plot/plot_layer.h"

namespace zaview {

// The page of this look: as wide as it is, or in the shape of the picture with an area that fills it, but for the
// margins beside it. `area`: of a page that isn't filled. A page of its own for each: behind dgFrame(1).
struct PageMargins {
  float left = 0.15F, right = 0.35F;
};
void SetPlotPage(PlotDraw draw, GksPoint area, PageMargins margins);

// Where labels and name of a vertical axis with these limits are wide for the page, the area begins further right.
void MakeRoomLeft(PlotDraw draw, float y_origin, float y_step, float y_end, bool log_y = false);

// The lines, with a blank one where the last is so wide that it would stand on the highest label.
[[nodiscard]] std::vector<std::string> ClearOfLabels(PlotDraw draw, std::vector<std::string> lines);

// Heading and notes get the room they need: the area moves, and where letters are large for the page it becomes lower.
void MakeRoom(PlotDraw draw, std::size_t heading_lines, float notes_depth);

void DrawHeading(PlotDraw draw, const std::vector<std::string>& lines);  // centred above the area, from the top

void DrawGridLines(PlotDraw draw, bool asked);    // of the graph that was drawn, if they are asked for or of the look
void DrawAreaFrame(PlotDraw draw);                // a rectangle about the area of the graph that was drawn
void DrawCross(PlotDraw draw, float x, float y);  // where the mouse was, world of the graph

}  // namespace zaview
