// The picture of an analysis: two panels with one horizontal axis, each alone, and where there is none.
#include <cmath>
#include <string>

#include "plot_view.h"
#include "views/frame/session_keys.h"
#include "views/state/choose_view.h"
#include "views/state/result_choice.h"

namespace zaview {
namespace {

// A parabola with its top of 4 at 2 above a line from 0 to 1000, of which one value is missing.
ResultPlot TwoPanels() {
  ResultPlot result{.title = "Amplitude and phase", .panels = {}};
  ResultPanel amplitude{.x_name = "w", .y_name = "A", .curves = {}, .bands = {{1, 3}}, .notes = {}};
  ResultPanel phase{.x_name = "w", .y_name = "P", .curves = {}, .bands = {}, .notes = {"lag"}};
  ResultCurve a{.name = "heave", .x = {}, .y = {}}, p{.name = "heave", .x = {}, .y = {}};
  for (int i = 0; i <= 100; ++i) {
    const float x = 0.04F * static_cast<float>(i);
    a.x.push_back(x);
    a.y.push_back(4.0F - (x - 2) * (x - 2));
    p.x.push_back(x);
    p.y.push_back(i == 50 ? std::nanf("") : 10.0F * static_cast<float>(i));
  }
  amplitude.curves.push_back(a);
  phase.curves.push_back(p);
  result.panels = {amplitude, phase};
  return result;
}

TEST(ResultPlot, PanelsStandBelowOneAnotherOrAlone) {
  PlotView v("irregular_head.out");
  KeepResult(v.plot(), TwoPanels());
  EXPECT_TRUE(ChoosePlot(v.session, PlotKind::result));
  v.Show();
  EXPECT_EQ(v.plot().plot_component, 0);
  EXPECT_EQ(v.plot().axes.limits.y_max, 1000);  // mouse and axes are those of the lower one
  const PlotPage lower = v.session.page;
  EXPECT_LT(lower.area_y + lower.area_height, 4.6F);
  int red = 0;  // the top of the parabola
  for (int x = 230; x < 300; ++x)
    for (int y = 30; y < 120; ++y) red += v.At(x, y) == v.Ink(2) ? 1 : 0;
  EXPECT_GT(red, 20);
  SetHooks(v.session);
  TopKeyboard(v.session, '1', 0, 0);
  v.Show();
  EXPECT_EQ(v.plot().axes.limits.y_max, 4);
  EXPECT_GT(v.session.page.area_height, lower.area_height * 1.5F);
  TopKeyboard(v.session, 's', 0, 0);
  v.Show();
  EXPECT_EQ(v.plot().plot_component, 2);
  EXPECT_EQ(v.plot().axes.limits.y_max, 1000);
  v.plot().quantity.iqnt = 25;  // of one curve, which is not what can be selected here
  v.session.gks.modifiers = kAltKey;
  ActOnKey(v.session, DataPlotKeys(v.session), 's');
  EXPECT_EQ(v.session.plot_session.ask, ViewAsk::curve_menu);
  EXPECT_TRUE(WritePlotData(v.session, "result.txt"));
  EXPECT_NE(v.fake.Bytes("result.txt").find("heave"), std::string::npos) << v.fake.output;
}

TEST(ResultPlot, IsNotThereAheadOfAnAnalysis) {
  PlotView v("irregular_head.out");
  EXPECT_FALSE(ChoosePlot(v.session, PlotKind::result));
  v.Make(PlotKind::result, 1, 0);
  EXPECT_EQ(v.session.run.plot_module, PlotModule::none);
  EXPECT_NE(v.fake.output.find("no result"), std::string::npos);
}

}  // namespace
}  // namespace zaview
