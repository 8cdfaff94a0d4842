// What keys, mouse and menus do with the axes of a plane plot. Nothing is computed anew: only the limits in use are
// others. Each verb takes the axes alone; true: they are to be drawn again.
#pragma once

#include <string_view>

#include "gks/plot/plot_layer.h"
#include "views/state/axes_state.h"

namespace zaview {

bool ForgetLimits(AxesState& axes);                          // fitted at the next display
void FitUnlessChanged(AxesState& axes);                      // the same, unless the user has chosen them
bool TakeLimits(AxesState& axes, const PlotLimits& limits);  // chosen by the user; false: not finite, nothing changes
// One limit or increment that is typed. The larger limit may stand first, which reverses the axis; the increment has
// the sign of the range, and is a round one where less than one or too many would be in it. False: not finite, no range
// or an increment of 0; nothing changes.
bool TakeLimit(AxesState& axes, float PlotLimits::*limit, float value, AxesLength length);
bool UndoZoom(AxesState& axes);    // what was chosen is forgotten; false: nothing was
bool KeepLimits(AxesState& axes);  // those in use become those that a click outside brings back

void RoundX(PlotLimits& limits, float length);  // by dgRoundAxis for a length in page units
void RoundY(PlotLimits& limits, float length);
bool RoundLimits(AxesState& axes, AxesLength length);
bool WidenXStep(AxesState& axes);  // the increment: the next of the table, up to the range
bool WidenYStep(AxesState& axes);
bool ZoomOut(AxesState& axes);  // twice the ranges
bool Pan(AxesState& axes, float x_ranges, float y_ranges);
// One unit becomes as long on both axes: the one with more of its length for a unit gets wider limits.
void KeepAspect(PlotLimits& limits, AxesLength length);

// ---- Mouse. Points are in the world of the graph that stands on the page.
struct PlotPoint {
  float x = 0, y = 0;
};
[[nodiscard]] bool InPlot(const PlotPage& page, PlotPoint at);
[[nodiscard]] PlotPoint ScaleOf(const PlotPage& page);  // page units a unit of the axes as they are drawn
[[nodiscard]] PlotPoint ToPage(const PlotPage& page, PlotPoint at);

inline constexpr std::string_view kZoomAborted = "Zoom aborted";
inline constexpr std::string_view kZoomTooSmall = "Zoom aperture too small - re-select 2nd point";
enum class ZoomAnswer : unsigned char { nothing, draw, too_small };
// A click of the left button: the first corner, the second, or outside of the axes the way back to the fitted limits.
[[nodiscard]] ZoomAnswer ClickZoom(AxesState& axes, const PlotPage& page, PlotPoint at);
bool DropZoom(AxesState& axes);  // false: none waits for its second corner

}  // namespace zaview
