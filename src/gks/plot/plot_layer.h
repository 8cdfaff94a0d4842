// The plot layer: a page, an area on it, a graph with axes, curves, markers and text. Sizes are in page units. The
// calls go in a fixed order a picture: dgFrame(2), dgPage, dgArea, names, dgHeading, dgGraf, curves, dgFrame(-3). State
// lasts for one picture.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "base/platform.h"
#include "gks/kernel/gks_state.h"
#include "gks/plot/number_label.h"

namespace zaview {

struct PlotPage {  // data only
  float page_width = 11, page_height = 8.5F;
  float area_width = 0, area_height = 0, area_x = 0, area_y = 0;
  int area_x_rule = 0, area_y_rule = 0;
  bool frame = true;
  int colour_count = 15;
  float thickness = 0, char_height = 0.14F;
  int headings = 0;              // drawn so far
  int x_ticks = 1, y_ticks = 1;  // minor ones an interval
  std::string x_name, y_name;
  bool x_named = false, y_named = false, y_name_turned = false;
  float x_origin = 0, x_step = 0, x_end = 1, y_origin = 0, y_step = 0, y_end = 1;
  bool log_y = false;
  int last_mode = 0;  // of dgCurve
  float grid_x0 = 0, grid_y0 = 0, grid_x1 = 0, grid_y1 = 0;
  bool blanked = false;
};

struct PlotDraw {  // what every call works on
  const Platform& platform;
  GksState& gks;
  PlotPage& page;
};

// ---- Page (plot_layer.cpp)
[[nodiscard]] bool dgFrame(PlotDraw draw, int mode);  // false: there is nothing to draw on
void dgNoFrame(PlotDraw draw);
void dgPage(PlotDraw draw, float width, float height);
void dgArea(PlotDraw draw, float width, float height);
void dgAreaAt(PlotDraw draw, float x, float y, float width, float height);  // its lower left corner at x, y of the page
void dgXName(PlotDraw draw, std::string_view text);
void dgYName(PlotDraw draw, std::string_view text);
void dgYName90(PlotDraw draw, int flag);
void dgHeading(PlotDraw draw, std::string_view text, float factor, int lines);
void dgCharHeight(PlotDraw draw, float height);
void dgThickness(PlotDraw draw, float thickness);
void dgCurveThickness(PlotDraw draw, float thickness);  // at least as thick as curves of this look are
void dgColour(PlotDraw draw, int index);
void dgClip(PlotDraw draw, float flag);
void dgDot(PlotDraw draw);
void dgDash(PlotDraw draw);
void dgChnDot(PlotDraw draw);
void dgChnDsh(PlotDraw draw);
void dgReset(PlotDraw draw, std::string_view name);
void dgMarkerType(PlotDraw draw, int type);
void dgMarkerScale(PlotDraw draw, float scale);
void dgText(PlotDraw draw, std::string_view text, float x, float y);                 // world
void dgPageText(PlotDraw draw, std::string_view text, float x, float y, int align);  // page
void dgAlign(PlotDraw draw, float fx, float fy);
void dgNumber(PlotDraw draw, float value, int digits, float x, float y);
void dgSelectGraf(PlotDraw draw, int index);

// ---- Axes (plot_axes.cpp)
// What ticks, labels and turned name of the vertical axis with these limits take left of the area.
[[nodiscard]] float dgRoomLeft(PlotDraw draw, float y_origin, float y_step, float y_end, bool log_y);
void dgGraf(PlotDraw draw, float x_origin, float x_step, float x_end, float y_origin, float y_step, float y_end);
void dgGrafLog(PlotDraw draw, float x_origin, float x_step, float x_end, float y_min, float y_max);
void dgZeroLines(PlotDraw draw, bool vertical = true, bool horizontal = true);
void dgGrid(PlotDraw draw, int x_count, int y_count);
void dgBlank(PlotDraw draw, float x, float y, float width, float height, float frame);

// ---- Curves (plot_curve.cpp)
void dgCurve(PlotDraw draw, std::span<const float> x, std::span<const float> y, int mode);
void dgArrow(PlotDraw draw, float x0, float y0, float x1, float y1, int code);
void dgArrowWorld(PlotDraw draw, float x0, float y0, float x1, float y1, int code);

}  // namespace zaview
