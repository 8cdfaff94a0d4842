// What all option menus have in common: how they open, close, follow the view, and lead from one to another.
#include <string>

#include "frame/run_loop.h"
#include "script/open_script_file.h"
#include "unit/views/geometry_picture.h"
#include "unit/views/menu_view.h"
#include "views/menus/option_builder.h"
#include "views/state/result_choice.h"

namespace zaview {
namespace {

constexpr PlotRequest kHeave{.quantity = {.iqnt = 1, .curve = 3}};

// The keys open them, again they close, from a menu's own window as well; those that don't fit go with their view.
TEST(OptionMenus, OpenByKeysAndCloseWithTheView) {
  MenuView v({"irregular_head.out"});
  v.EnterPlot(kHeave);
  const MenuState& menus = v.session.menus;
  v.Key('o', kAltKey);
  ASSERT_NE(menus.m_omenu, 0) << v.fake.output;
  v.Key(kKeyF1 + 1, 0, v.WindowOf(menus.m_omenu));
  EXPECT_EQ(menus.m_omenu, 0);
  v.Key(kKeyF1 + 1);
  v.Key('s', kAltKey);
  v.Key('h');
  EXPECT_TRUE(menus.m_omenu != 0 && menus.m_csmenu != 0 && menus.m_help != 0);
  v.Key(' ', kAltKey);  // no steps in a time history
  EXPECT_EQ(menus.m_tsmenu, 0);
  v.Press(menus.m_omenu, {.text = "Trajectory"});
  EXPECT_EQ(v.session.data_plot.kind, PlotKind::trajectory);
  EXPECT_EQ(menus.m_csmenu, 0);
  v.Key('q');
  EXPECT_TRUE(menus.m_omenu == 0 && menus.m_help == 0 && menus.places.empty());
}

// Every button of the parts that all views share.
TEST(OptionMenus, LeadFromViewToView) {
  MenuView v({"irregular_head.out"}), records({"sea_1.out", "sea_2.out"});
  PutBox(v.session.case_store);
  KeepResult(v.session.data_plot, {"Two points", {{"x", "y", {{"", {0, 1}, {1, 2}}}, {}, {}}}});
  v.EnterPlot(kHeave);
  v.Key('o', kAltKey);
  const int& menu = v.session.menus.m_omenu;
  struct {
    const char* button;
    PlotKind kind;
    PlotModule module = PlotModule::data_plot;
  } const kCases[] = {{"Histogram", PlotKind::histogram},
                      {"Animation", PlotKind::histogram, PlotModule::animation},
                      {"Trajectory", PlotKind::trajectory},
                      {"Geometry", PlotKind::trajectory, PlotModule::geometry},
                      {"AutoCorrelation", PlotKind::autocorrelation},
                      {"Time History", PlotKind::history},
                      {"AutoCovariance", PlotKind::autocovariance},
                      {"Spectrum", PlotKind::spectrum},
                      {"Extremes", PlotKind::extremes},
                      {"Rainflow", PlotKind::rainflow},
                      {"Analysis", PlotKind::result},
                      {"Load Dist", PlotKind::load_dist}};
  for (const auto& c : kCases) {
    v.Press(menu, {.text = c.button});
    EXPECT_EQ(v.session.data_plot.kind, c.kind) << c.button;
    EXPECT_EQ(v.session.run.plot_module, c.module) << c.button;
    EXPECT_EQ(v.Shown(menu, {.text = c.button})->style, kButtonDown) << c.button;
    EXPECT_FALSE(v.session.run.redraw) << c.button;
  }
  EXPECT_EQ(v.Find(menu, {.text = "Conf.Intrvl"}), nullptr);
  v.Press(menu, {.text = "Selection Menu"});
  v.Press(menu, {.text = "Time Step Menu"});
  EXPECT_TRUE(v.session.menus.m_csmenu != 0 && v.session.menus.m_tsmenu != 0);
  v.Press(menu, {.text = "+"});
  EXPECT_EQ(v.session.menus.kit.font_step, 3);
  v.Press(menu, {.text = "-"});
  EXPECT_EQ(v.session.menus.kit.font_step, 2);
  v.Press(menu, {.text = "Swap B/W"});
  v.Press(menu, {.text = "Pictures for a report"});
  EXPECT_EQ(v.session.gks.style, PictureStyle::report);
  v.Press(menu, {.text = "Pictures for a report"});
  EXPECT_EQ(v.session.gks.style, PictureStyle::classic);
  EXPECT_TRUE(v.session.gks.window.reverse_video);
  v.Press(menu, {.text = "Write Image File"});
  EXPECT_TRUE(v.fake.files.contains("dump0001.png")) << v.fake.output;
  v.Press(menu, {.text = "Text Menu"});
  EXPECT_TRUE(v.session.run.menu_wanted && menu == 0);

  records.EnterPlot(kHeave);
  records.session.run.script_active = records.session.script.open = true;
  records.Key('o', kAltKey);
  records.Press(records.session.menus.m_omenu, {.text = "Conf.Intrvl"});
  EXPECT_EQ(records.session.data_plot.kind, PlotKind::interval);
  EXPECT_TRUE(records.session.data_plot.of_ensemble);
  records.Press(records.session.menus.m_omenu, {.text = "Continue Script"});
  EXPECT_EQ(records.session.menus.m_omenu, 0);
  v.used.merge(records.used);
  v.ExpectAllUsed(FirstOptions());
  v.ExpectAllUsed(LastOptions());
}

// A menu that is open makes the data for its limits ahead of the picture.
TEST(OptionMenus, APlotThatTheyFindCannotBeMadeHasFailed) {
  MenuView v({"sea_1.out", "sea_2.out"});
  v.EnterPlot(kHeave);
  v.Key('o', kAltKey);
  v.session.output.statistics.confidence_probability = 1.5F;
  v.Press(v.session.menus.m_omenu, {.text = "Conf.Intrvl"});
  EXPECT_TRUE(v.session.run.plot_failed && v.session.menus.m_omenu == 0) << v.fake.output;
}

// "Text Menu" leaves a script where it is; the view that is left next goes on with it, as "Continue Script" does. With
// -quiet the menu is shown and read all the same.
TEST(OptionMenus, LeaveAScriptWaitingOrGoOnWithIt) {
  struct {
    const char* button;
    const char* typed;
    bool goes_on;
  } const kCases[] = {{"Continue Script", "", true}, {"Text Menu", "0\n", false}};
  for (const auto& c : kCases) {
    MenuView v({"irregular_head.out"});
    v.fake.Put("s.txt", "PLOT_HISTORY MOT 3 \"\"\nSET_STEPS 1 20\n");
    v.fake.Type(c.typed);
    v.session.dialogue = RunDialogue;
    Console& console = v.session.platform.console;
    console.write_error = console.write;
    console = MakeQuiet(Console(console), v.session.quiet_console);
    v.session.run.script_active = v.session.run.quiet = true;
    EXPECT_EQ(OpenScriptFile(v.session, "s.txt"), kScriptOk);
    v.Enter();
    v.Key('o', kAltKey);
    v.Press(v.session.menus.m_omenu, {.text = c.button});
    EXPECT_EQ(v.session.menus.m_omenu, 0);
    EXPECT_EQ(v.session.case_store.last_step == 20, c.goes_on) << c.button << v.fake.output;
    EXPECT_NE(v.fake.output.find("ZAVO Output Options:") != std::string::npos, c.goes_on) << c.button;
  }
}

}  // namespace
}  // namespace zaview
