// The heading of a page and the room it takes; what stands around the area of the plot. Sizes are in page units.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "gks/plot/plot_layer.h"

namespace zaview {

// The lines, with a blank one where a name of the vertical axis stands in their way.
[[nodiscard]] std::vector<std::string> ClearOfName(PlotDraw draw, std::vector<std::string> lines);

// Heading and notes get the room they need: the area moves, and where letters are large for the page it becomes lower.
void MakeRoom(PlotDraw draw, std::size_t heading_lines, float notes_depth);

void DrawHeading(PlotDraw draw, const std::vector<std::string>& lines);  // centred above the area, from the top

void DrawAreaFrame(PlotDraw draw);                // a rectangle about the area of the graph that was drawn
void DrawCross(PlotDraw draw, float x, float y);  // where the mouse was, world of the graph

}  // namespace zaview
