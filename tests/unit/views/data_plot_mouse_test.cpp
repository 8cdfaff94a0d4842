// Clicks in the data plot: zoom, measure, popup.
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <string>
#include <vector>

#include "unit/views/plot_view.h"
#include "views/data_plot/plot_type.h"
#include "views/frame/session_keys.h"
#include "views/state/popup.h"

namespace zaview {
namespace {

constexpr int kLeft = 1, kMiddle = 2, kRight = 3;

struct Click {
  int button;
  float x, y;
  unsigned held = 0;
};

void Do(PlotView& v, const Click& click) {
  v.session.gks.modifiers = click.held;
  zaviewmouse(v.session, click.button, click.x, click.y);
  ServeAsk(v.session, DataPlotKeys(v.session));
  v.session.gks.modifiers = 0;
}

// Heave of 300 steps, 0 to 74.75 along, -3 to 2 up, in an area of 8 by 5.5 page units.
struct MouseCase {
  const char* name;
  std::vector<Click> clicks;
  PlotLimits limits;
  bool pending, changed;
  const char* said;
};
constexpr PlotLimits kWhole{0, 10, 74.75F, -3, 1, 2};

TEST(DataPlotMouse, TwoClicksZoomAndOneOutsideUndoes) {
  // clang-format off
  const MouseCase cases[] = {
      {"rounded outward", {{kLeft, 20.5F, -1.9F}, {kLeft, 41, 0.9F}}, {18, 3, 42, -2.25F, 0.75F, 1.5F}, false, true,
       ""},
      {"corners in any order", {{kLeft, 41, -1.9F}, {kLeft, 20.5F, 0.9F}}, {18, 3, 42, -2.25F, 0.75F, 1.5F}, false,
       true, ""},
      {"one corner", {{kLeft, 20, -2}}, kWhole, true, false, ""},
      {"outside of a whole plot", {{kLeft, -1, -2}}, kWhole, false, false, ""},
      {"too narrow", {{kLeft, 20, -2}, {kLeft, 20.0005F, 1}}, kWhole, true, false,
       "Zoom aperture too small - re-select 2nd point\n"},
      {"too low, then again", {{kLeft, 20, -2}, {kLeft, 40, -2}, {kLeft, 40, 1}}, {20, 2.5F, 40, -2.25F, 0.75F,
       1.5F}, false, true, "Zoom aperture too small - re-select 2nd point\n"},
      {"inside a zoom: the range in use counts", {{kLeft, 20, -0.1F}, {kLeft, 40, 0.1F}, {kLeft, 25, -1.0e-5F},
       {kLeft, 35, 3.0e-5F}}, {24, 2, 36, -1.0e-5F, 1.0e-5F, 3.0e-5F}, false, true, ""},
      {"undone", {{kLeft, 20, -2}, {kLeft, 40, 1}, {kLeft, 10, 0}}, kWhole, false, false, ""},
      {"the middle button does nothing", {{kMiddle, 20, -2}, {kMiddle, 40, 1}}, kWhole, false, false, ""},
      {"dropped by measuring", {{kLeft, 20, -2}, {kRight, 40, 1}}, kWhole, false, false, "Zoom aborted\n"},
      {"not dropped outside", {{kLeft, 20, -2}, {kRight, 90, 1}}, kWhole, true, false, ""},
  };
  // clang-format on
  PlotView v("irregular_head.out");
  for (const MouseCase& c : cases) {
    v.plot() = DataPlotState{};
    v.Show(PlotKind::history, 1, 3);
    v.fake.output.clear();
    for (const Click& click : c.clicks) {
      Do(v, click);
      if (v.session.run.redraw) v.Show();
    }
    const PlotLimits& l = v.plot().axes.limits;
    const float got[] = {l.x_min, l.x_step, l.x_max, l.y_min, l.y_step, l.y_max};
    const float want[] = {c.limits.x_min, c.limits.x_step, c.limits.x_max,
                          c.limits.y_min, c.limits.y_step, c.limits.y_max};
    for (std::size_t i = 0; i < std::size(got); ++i)
      EXPECT_NEAR(got[i], want[i], 1.0e-5F * std::abs(want[i])) << c.name << ' ' << i;
    EXPECT_EQ(v.plot().axes.zoom.pending, c.pending) << c.name;
    EXPECT_EQ(v.plot().axes.use == LimitsUse::changed, c.changed) << c.name;
    EXPECT_EQ(v.fake.output, c.said) << c.name;
  }
}

TEST(DataPlotMouse, MeasuresTheClosestPointOnThePage) {
  PlotView v("irregular_head.out");
  v.Show(PlotKind::history, 1, 3);
  const std::vector<float>& t = v.plot().derived.history.x;
  const std::vector<float>& heave = v.plot().derived.history.y[2];
  // Seen in page units a point beside is closer than the one at the same time: 0.25 along is 0.027 units, and 1 up 1.1.
  Do(v, {kRight, t[60] + 0.1F, heave[60]});
  EXPECT_TRUE(v.plot().axes.measure.on && v.session.run.redraw);
  EXPECT_EQ(v.plot().axes.measure.x, t[60]);
  EXPECT_EQ(v.plot().axes.measure.y, heave[60]);
  v.Show();
  Do(v, {kRight, 20, 0});  // ends it and nothing else
  EXPECT_FALSE(v.plot().axes.measure.on);
  Do(v, {kRight, 20, 0});
  v.plot().quantity.iqnt = 2;  // by a menu: the point is none of its curves
  v.Show();
  EXPECT_FALSE(v.plot().axes.measure.on);
  v.Show(PlotKind::history, 1, 3);
  v.plot().axes.measure.closest = false;
  Do(v, {kRight, 20.125F, 0.5F});
  EXPECT_TRUE(v.plot().axes.measure.x == 20.125F && v.plot().axes.measure.y == 0.5F);
  v.plot().axes.measure.on = false;
  Do(v, {kRight, 80, 0});
  EXPECT_FALSE(v.plot().axes.measure.on);
  v.Choose(PlotKind::none, 1, 0);
  v.plot().axes.measure.closest = true;
  v.Show();
  Do(v, {kRight, 0.5F, 0.5F});
  EXPECT_FALSE(v.plot().axes.measure.on);
  EXPECT_EQ(v.fake.output, "Logic ERROR in FindClosestDrawnPoint()\n");
}

// Limits that are the same are drawn apart: a click on the curve is inside.
TEST(DataPlotMouse, MeasuresWhatIsConstant) {
  PlotView v("irregular_head.out");
  v.Show(PlotKind::history, 1, 2);
  v.plot().axes.limits.y_min = v.plot().axes.limits.y_max = 1;
  v.plot().axes.use = LimitsUse::changed;
  v.Show();
  Do(v, {kRight, 20, 1.000005F});
  EXPECT_TRUE(v.plot().axes.measure.on);
}

// Its four lines, hit in their middles; a click anywhere closes it.
TEST(DataPlotMouse, ThePopupIsDrawnWhereItIsHit) {
  const Click opening[] = {{kLeft, 30, -1, kControlKey}, {kRight, 74, 1.9F, kAltKey}, {kLeft, 500, -90, kControlKey}};
  for (const Click& open : opening) {
    for (int line = 0; line <= 4; ++line) {
      PlotView v("irregular_head.out");
      v.Show(PlotKind::history, 1, 3);
      Do(v, open);
      ASSERT_TRUE(v.plot().axes.popup.open);
      v.Show();
      const PopupBox box = PopupBoxOf(v.plot().axes.popup, kDataPlotPopup, DrawOf(v.session));
      EXPECT_GE(box.left, 0.0F);
      EXPECT_GE(box.bottom, 0.0F);
      EXPECT_LE(box.left + box.width, 11.0F);
      EXPECT_LE(box.bottom + 4 * box.pitch, 8.5F);
      // Its frame on the screen: 500 pixels are 11 page units.
      const int left = static_cast<int>(box.left * 500 / 11);
      const int middle = 400 - static_cast<int>((box.bottom + 2 * box.pitch) * 500 / 11);
      EXPECT_TRUE(v.At(left - 1, middle) == 0xFFFFFF || v.At(left, middle) == 0xFFFFFF ||
                  v.At(left + 1, middle) == 0xFFFFFF);
      const PlotPage& page = v.session.page;
      const float x = box.left + 0.5F * box.width, y = box.bottom + (4.5F - static_cast<float>(line)) * box.pitch;
      Do(v, {kLeft, (x - page.area_x) / page.area_width * 74.75F, (y - page.area_y) / page.area_height * 5 - 3});
      EXPECT_FALSE(v.plot().axes.popup.open);
      EXPECT_EQ(v.fake.output, "") << line;
      EXPECT_EQ(v.session.gks.screen.mode == ScreenMode::text, line == 3);
      EXPECT_FALSE(v.plot().axes.zoom.pending);
    }
  }
}

}  // namespace
}  // namespace zaview
