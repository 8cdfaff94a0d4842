// The options of the data plot and the menu of curve selection: what each item changes, and that keys and scripts
// change the same.
#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "case/settings/step_settings.h"
#include "gks/window/gks_window.h"
#include "script/open_script_file.h"
#include "unit/views/data_plot_fields.h"
#include "unit/views/menu_view.h"
#include "views/data_plot/plot_type.h"
#include "views/menus/option_builder.h"
#include "views/state/popup.h"

namespace zaview {
namespace {

constexpr const char* kIllegal = "ILLEGAL value ignored\n";

struct PlotMenu : MenuView {
  static int& Drawn() {
    static int drawn = 0;
    return drawn;
  }
  explicit PlotMenu(std::initializer_list<const char*> samples, const PlotRequest& wanted) : MenuView(samples) {
    EXPECT_TRUE(StartPlot(session, wanted, 0)) << fake.output;
    glResizeWindow(session.platform, session.gks, 220, 170);
    Enter();
    session.gks.hooks.render = [](void* self, bool force) {
      ++Drawn();
      TopRender(*static_cast<Session*>(self), force);
    };
    Key('o', kAltKey);
    Key('s', kAltKey);
    fake.output.clear();
  }
  [[nodiscard]] int Options() const { return session.menus.m_omenu; }
  void Use(const ItemAt& at, std::string_view typed) {  // nothing typed: pressed
    if (typed.empty()) Press(Options(), at);
    else if (typed == "up" || typed == "down") Arrow(Options(), at, typed == "up");
    else Type(Options(), at, typed);
  }
  // A line of the nth list of the selection menu.
  void Choose(int nth, int line) {
    const int im = session.menus.m_csmenu;
    for (const OptionPlace& place : std::vector<OptionPlace>(session.menus.places)) {
      if (place.menu != im || place.option->kind != OptionKind::element || --nth != 0) continue;
      used.insert(place.option);
      const MenuPlaced placed = LayoutOf(session.menus.kit, im).elements[static_cast<std::size_t>(place.element) - 1];
      const int height = placed.inner.height / placed.lines;
      return PressAt(im, {placed.inner.x, placed.inner.y + (line - 1 - placed.top) * height, 40, height});
    }
    ADD_FAILURE() << "no such list";
  }
};

struct ItemCase {
  ItemAt at;
  const char *typed, *changes;  // "name value ..", the others stay
  const char* said = "";
};

// clang-format off
constexpr ItemCase kItems[] = {
    {{"Horz", "", 1}, "10", "x0 10 use 2"}, {{"Horz", "", 2}, "-5", "dx 5"}, {{"Horz", "", 3}, "50", "x1 50"},
    {{"Horz", "", 3}, "0", "x1 0 dx -5"}, {{"Horz", "", 3}, "-190", "x1 -190 dx -25"}, {{"Horz", "", 3}, "0", "x1 0"}, {{"Horz", "", 2}, "5", "dx -5"},
    {{"Horz", "", 3}, "10", "", kIllegal}, {{"Horz", "", 2}, "0", "", kIllegal},
    {{"Vert", "", 1}, "-4", "y0 -4"}, {{"Vert", "", 3}, "6", "y1 6"}, {{"Vert", "", 2}, "2", "dy 2"},
    {{"", "Keep zoom"}, "", "use 1 fitted_x0 10"}, {{"", "Fit X"}, "", "use 2 x0 0 dx 20 x1 99.75"},
    {{"", "Undo zoom"}, "", "use 1 x0 0 dx 20 x1 99.75"}, {{"", "Keep axis limits when changing quantity"}, "", "keep 1"},
    {{"", "Keep axis limits when changing quantity"}, "", "keep 0"},
    {{"Axis Lengths: X="}, "up", "x_length 8.8 use 1 x0 0 dx 20 x1 99.75 fitted_x0 0"},
    {{"", " Y="}, "0", "", kIllegal}, {{"", " Y="}, "4", "y_length 4"},
    {{"", "Fit Y"}, "", "use 2"},
    {{"", "Same scales for all curves"}, "", "match 1"}, {{"", "By time step"}, "", "by_step 1 x0 1 x1 400 dx 50 fitted_x0 1"},
    {{"", "Vert 0 line"}, "", "zero_x 0"}, {{"", "Horz 0 line"}, "", "zero_y 0"}, {{"", "Grid"}, "", "grid 1"},
    {{"", "Frame"}, "", "axis 2"}, {{"", "Line+Pts"}, "", "mark 1"}, {{"Curves:", "", 4}, "25", "mark 25 base 25"},
    {{"Curves:", "", 4}, "0", "", kIllegal}, {{"", "Points; Point Freq"}, "", "mark -25"}, {{"", "Line"}, "", "mark 0"},
    {{"Line Thickness="}, "0.04", "thick 0.04"}, {{"Line Thickness="}, "-1", "", kIllegal}, {{"", "Color"}, "", "colour 0"},
    {{"", "Number curves"}, "", "numbers 1"}, {{"Text:", "Quantity"}, "", "texts 1110"}, {{"Text:", "File"}, "", "texts 1100"},
    {{"Text:", "Axis Labels"}, "", "texts 1000"}, {{"Text:", "Mode, etc."}, "", "texts 0"},
    {{"Legend:", "On"}, "", "legend 2"}, {{"Legend:", "Off"}, "", "legend 1"}, {{"Legend:", "Automatic"}, "", "legend 0"},
    {{"Legend:", "Values"}, "", "values 1"}, {{"Size: Titles"}, "up", "text 0.154"}, {{"Size: Titles"}, "3", "", kIllegal},
    {{"", " Legend"}, "0.1", "annot 0.1"}, {{"Size: Titles", "", 3}, "2", "size 2"},
    {{"Statistics:", "1/3rd peaks"}, "", "stats 1"}, {{"", "1/10th peaks"}, "", "stats 2"}, {{"", "StDev/Var/SSA"}, "", "stats 3"},
    {{"", "Avg/Min/Max"}, "", "stats 4"}, {{"Location", "Below"}, "", "place 1"}, {{"", "Above"}, "", "place 2"},
    {{"", "Bottom"}, "", "place 0"}, {{"Statistics:", "None"}, "", "stats 0"},
    {{"Point skip; beg"}, "20", "skip 20"}, {{"Point skip; beg"}, "400", "", "ILLEGAL value - too many steps trimmed\n"},
    {{"Point skip; beg", " end"}, "up", "skip_end 1"}, {{"Point skip; beg", " end"}, "-1", "", kIllegal},
    {{"Point trim; beg", " end"}, "400", "", "ILLEGAL value - too many steps trimmed\n"},
    {{"Every"}, "0", "", kIllegal}, {{"Every"}, "400", "", kIllegal}, {{"Every"}, "2", "stride 2"}, {{"Every"}, "1", "stride 1"},
    {{"", "Local"}, "", "smooth 1"}, {{"", "Fourier"}, "", "smooth 2"}, {{"", "Cubic; steps"}, "", "smooth 3"},
    {{"Smoothing:", "", 5}, "7", "window 7"}, {{"Smoothing:", "", 5}, "4", "", kIllegal}, {{"Smoothing:", "Off"}, "", "smooth 0"},
    {{"", "Closest point"}, "", "closest 0"}, {{"", "Clear"}, "", "measured 0"}, {{"", "Unformatted"}, "", "unformatted 1"},
    {{"", "Unformatted"}, "", "unformatted 0"},
    {{"", "Histogram"}, "", "kind 4 component 3 ensemble 1 by_step 1"}, {{"", "N/Ntot"}, "", "counts 1"},
    {{"Bars:", "Fill"}, "", "bars 1"}, {{"", "Fill+Outline"}, "", "bars 2"}, {{"Bars:", "Outline"}, "", "bars 0"},
    {{"", "Absolute values"}, "", "data 1"}, {{"", "Positive values"}, "", "data 2"}, {{"", "Signed values"}, "", "data 0"},
    {{"Sampling rate:"}, "4", "bar_rate 4"}, {{"", "Uniform"}, "", "overlay 1"}, {{"", "Normal"}, "", "overlay 2"},
    {{"", "Gramm-Charlier"}, "", "overlay 3"}, {{"", "Rayleigh"}, "", "overlay 4"}, {{"", "Exponential"}, "", "overlay 5"},
    {{"", "None"}, "", "overlay 0"}, {{"Axis Lengths: X="}, "7", "bars_x 7"},
    {{"", "AutoCorrelation"}, "", "kind 6"}, {{"Sampling rate:"}, "2", "rate 2"},
    {{"Cutoff value for dependence time calc:"}, "1", "", kIllegal}, {{"Cutoff value for dependence time calc:"}, "up", "cutoff 0.06"},
    {{"", "Normalize by variance (AutoCorrelation)"}, "", "kind 5"}, {{"", "Normalize by variance (AutoCorrelation)"}, "", "kind 6"},
    {{"", "Conf.Intrvl"}, "", "kind 7"}, {{"Probability="}, "0.9", "probability 0.9"},
    {{"", "Bootstrap;"}, "", "bootstrap 1"}, {{"", "resamples"}, "200", "resamples 200"}, {{"", "resamples"}, "99", "", kIllegal},
    {{"", "seed"}, "12", "seed 12"}, {{"", "Bootstrap;"}, "", "bootstrap 0"},
    {{"# records for many record scheme:"}, "up", "many 1"}, {{"# records for many record scheme:"}, "-1", "", kIllegal},
    {{"Point trim; beg"}, "10", "trim 10 step 11"},
    {{"", "Trajectory"}, "", "kind 2 ensemble 0"}, {{"Plot hull waterline every"}, "30", "every 30"},
    {{"Plot hull waterline every"}, "1000", "", kIllegal}, {{"Plot hull waterline every", "Show"}, "", "ship 0"}, {{"", "Preserve geometry scale"}, "", "aspect 0"}, {{"Size factor"}, "2", "scale 2"},
    {{"", "Mark time"}, "", "times 1"},
};
// clang-format on

// Limits follow what is shown: they are looked at where a case names them.
void ExpectValues(const char* changes, std::vector<float> want, const std::vector<float>& got, const std::string& who) {
  constexpr std::string_view kFollow[] = {"use", "x0", "dx", "x1", "y0", "dy", "y1", "fitted_x0", "skip"};
  for (std::size_t i = 0; i < want.size(); ++i)
    if (std::find(std::begin(kFollow), std::end(kFollow), kPlotFields[i].name) != std::end(kFollow)) want[i] = got[i];
  ExpectPlotValues(changes, want, got, who);
}

// A number that would leave a plot of statistics without its points doesn't end the view.
TEST(DataPlotOptions, StatisticsKeepTheirSteps) {
  PlotMenu v({"irregular_head.out"}, {.kind = PlotKind::histogram, .quantity = {.iqnt = 1, .curve = 3}});
  const ReadingSettings before = v.session.output.reading;  // 57 of 300 steps are skipped
  const struct {
    const char *row, *refused;
  } kRows[] = {{"Point skip; beg", "299"}, {"Point trim; beg", "250"}, {"Every", "250"}};
  for (const auto& row : kRows) {
    v.fake.output.clear();
    v.Use({row.row}, row.refused);
    EXPECT_NE(v.fake.output.find("ILLEGAL value"), std::string::npos) << row.row;
  }
  EXPECT_TRUE(before == v.session.output.reading);
  EXPECT_EQ(v.session.run.plot_module, PlotModule::data_plot);
}

TEST(DataPlotOptions, EachItemSetsItsOwn) {
  PlotMenu v({"sea_1.out", "sea_2.out", "sea_3.out"}, {.quantity = {.iqnt = 1, .curve = 3}});
  for (const ItemCase& c : kItems) {
    const std::vector<float> before = PlotValues(v.session);
    PlotMenu::Drawn() = 0;
    v.fake.output.clear();
    v.Use(c.at, c.typed);
    const std::string who = std::string(c.at.row) + " " + std::string(c.at.text) + " " + c.typed;
    ExpectValues(c.changes, before, PlotValues(v.session), who);
    EXPECT_GT(PlotMenu::Drawn(), 0) << who;
    const bool refused = v.fake.output.find("ILLEGAL") != std::string::npos;
    EXPECT_EQ(refused ? v.fake.output : "", c.said) << who;
  }
  const struct {
    PlotKind kind;
    ItemAt at;
    const char *typed, *changes;
  } kAnalysed[] = {
      {PlotKind::spectrum, {"Segments of"}, "50", "segment 50"},
      {PlotKind::extremes, {"Largest value in"}, "24", "hours 24"},
      {PlotKind::extremes, {"", "Quantile"}, "0.5", "quantile 0.5"},
      {PlotKind::extremes, {"Probability="}, "0.8", "probability 0.8"},
      {PlotKind::rainflow, {"Bins of ranges:"}, "12", "bins 12"},
  };
  // Few peaks can't be fitted: six records have enough.
  PlotMenu six({"sea_1.out", "sea_2.out", "sea_3.out", "sea_1.out", "sea_2.out", "sea_3.out"},
               {.quantity = {.iqnt = 1, .curve = 3}});
  ASSERT_EQ(SetSkips(0, 0, six.session.output, six.session.case_store), SettingFault::none);
  for (const auto& c : kAnalysed) {
    six.session.data_plot.kind = c.kind;
    six.Key('g');
    const std::vector<float> before = PlotValues(six.session);
    six.Use(c.at, c.typed);
    ExpectValues(c.changes, before, PlotValues(six.session), c.changes);
  }
  // Round the analyses, and their sizes by keys.
  six.session.data_plot.kind = PlotKind::history;
  const struct {
    char key;
    const char* want;
  } kKeys[] = {{'K', "kind 9 ensemble 1"}, {'U', "segment 100"},        {'u', "segment 50"}, {'K', "kind 10"},
               {'U', "hours 48"},          {'K', "kind 11 ensemble 0"}, {'u', "bins 6"},     {'K', "kind 1"}};
  for (const auto& c : kKeys) {
    const std::vector<float> before = PlotValues(six.session);
    six.Key(c.key);
    ExpectValues(c.want, before, PlotValues(six.session), c.want);
  }
  v.used.merge(six.used);
  v.session.gks.window.bitmap_font = false;
  v.Use({"", "Frame"}, "");
  v.Use({"", "Upright"}, "");
  EXPECT_EQ(v.session.data_plot.axis_option, 1);
  // A file is chosen in the selector, and written at once.
  const auto write = [&](const std::string& name) {
    v.Press(v.Options(), {.text = "Write Data to File"});
    std::vector<FedEvent> keys{{FedEvent::Kind::key, v.WindowOf(v.session.menus.kit.files.menu), 1, kControlKey}};
    for (const char letter : name + '\r')
      keys.push_back({FedEvent::Kind::key, v.WindowOf(v.session.menus.kit.files.menu), letter, 0});
    v.fake.output.clear();
    v.Do(keys);
  };
  write("track.txt");
  EXPECT_EQ(v.fake.output, "Trajectory data written to file\n");
  EXPECT_EQ(v.session.menus.m_message, 0);
  v.fake.room = 10;
  write("full.txt");
  EXPECT_NE(v.session.menus.m_message, 0) << v.fake.output;
  EXPECT_EQ(v.fake.files["/track.txt"].bytes.substr(0, 24), "Trajectory for ZAVO file");
  v.ExpectAllUsed(DataPlotOptions(v.session).blocks);
}

TEST(CurveMenu, EachItemSetsItsOwn) {
  PlotMenu v({"sea_1.out", "sea_2.out"}, {.quantity = {.iqnt = 1, .curve = 0}});
  const auto expect = [&](const char* changes, auto act) {
    const std::vector<float> before = PlotValues(v.session);
    PlotMenu::Drawn() = 0;
    act();
    ExpectValues(changes, before, PlotValues(v.session), changes);
    EXPECT_GT(PlotMenu::Drawn(), 0) << changes;
  };
  const auto press = [&](const char* text) {
    return [&v, text] { v.Press(v.session.menus.m_csmenu, {.text = text}); };
  };
  const auto choose = [&](int list, int line) { return [&v, list, line] { v.Choose(list, line); }; };
  expect("keep 1", press("Keep axis limits when changing quantity"));
  expect("quantity 2", choose(1, 2));
  expect("hidden1 1", choose(2, 1));
  expect("hidden3 1", choose(2, 3));
  expect("hidden1 0 hidden3 0", press("All"));
  for (int line = 1; line < 6; ++line) v.Choose(2, line);
  expect("hidden1 0 hidden3 0 component 1", choose(2, 6));  // never none
  expect("hidden3 0 component 0 hidden1 0", choose(2, 3));
  EXPECT_EQ(v.session.data_plot.hidden[1], 1);
  expect("wave 1", press("Overlay Wave at CG"));
  expect("own 0", press("separate scale"));
  expect("record 1", choose(3, 1));
  v.Press(v.Options(), {.text = "AutoCovariance"});
  expect("component 4", choose(2, 4));
  expect("ensemble 0 record 2", choose(3, 2));
  expect("ensemble 1", choose(3, 3));
  v.Press(v.Options(), {.text = "Conf.Intrvl"});
  expect("statistic 3", choose(3, 3));
  v.Press(v.Options(), {.text = "Time History"});
  v.session.data_plot.quantity.iqnt = 48;  // a missile, of a point that is given with it
  v.session.output.point.given = v.session.output.point.missile_given = true;
  v.Key('g');
  for (int nth = 1; nth <= 2; ++nth) {
    v.Press(v.session.menus.m_csmenu, {.text = "Change", .nth = nth});
    EXPECT_NE(v.session.menus.m_point, 0);
    v.Key('g');
  }
}

struct Way {
  ItemAt at;
  const char *typed, *keys, *script;
};

// clang-format off
constexpr Way kWays[] = {
    {{"", "Grid"}, "", "g", "PLOT_GRID ON"}, {{"", "Color"}, "", "c", "PLOT_COLOR OFF"},
    {{"", "Number curves"}, "", "n", "PLOT_NUMBERS ON"}, {{"Legend:", "Off"}, "", "", "PLOT_LEGEND OFF"}, {{"Legend:", "Values"}, "", "v", nullptr},
    {{"", "1/3rd peaks"}, "", "^p", "PLOT_STATS 1/3RD"}, {{"", "StDev/Var/SSA"}, "", "^p ^p", "PLOT_STATS RMS"},
    {{"", "Below"}, "", "^P", nullptr}, {{"Line Thickness="}, "0.04", "t", nullptr}, {{"", "Line+Pts"}, "", "m", nullptr},
    {{"Size: Titles"}, "0.154", "^E", nullptr}, {{"", " Legend"}, "0.154", "e", nullptr},
    {{"Size: Titles", "", 3}, "1.414", "P", nullptr}, {{"", "Local"}, "", "^f", "SMOOTH_DATA 1"},
    {{"", "By time step"}, "", "X", nullptr}, {{"", "Fit X"}, "", "x", nullptr}, {{"", "Fit Y"}, "", "y", nullptr},
    {{"", "Keep zoom"}, "", "k", nullptr}, {{"Axis Lengths: X="}, "6", "", "PLOT_SIZE 6 5.5"},
    {{"", "Same scales for all curves"}, "", "", "MATCH_SCALES ON"}, {{"Every"}, "3", "", "STEP_INCREMENT 3"},
    {{"Point skip; beg"}, "30", "", "SKIP_STEPS 30"}, {{"Point trim; beg"}, "5", "", "TRIM_STEPS 5 0"},
    {{"Smoothing:", "", 5}, "9", "", "SMOOTH_NPT 9"},
    {{"", "Histogram"}, "", "^h", nullptr}, {{"", "Absolute values"}, "", "^H", "HISTOGRAM_DATA ABS"},
    {{"", "Uniform"}, "", "^p", "HISTOGRAM_OVERLAY UNIFORM"}, {{"Bars:", "Outline"}, "", "C", "HISTOGRAM_STYLE LINE"},
    {{"", "N/Ntot"}, "", "", "HISTOGRAM_YAXIS COUNT"}, {{"Sampling rate:"}, "2", "", "HISTOGRAM_SAMPLE_RATE 2"},
};
// clang-format on

TEST(DataPlotOptions, MenuKeyAndScriptEndInTheSameState) {
  PlotMenu by_menu({"irregular_head.out"}, {.quantity = {.iqnt = 1, .curve = 3}});
  PlotMenu by_other({"irregular_head.out"}, {.quantity = {.iqnt = 1, .curve = 3}});
  const auto follow = [&](PlotMenu& v) {
    zaviewsetaxes(v.session);
    return PlotValues(v.session);
  };
  Session& other = by_other.session;
  for (const Way& way : kWays) {
    const std::string who = std::string(way.at.row) + " " + std::string(way.at.text);
    by_menu.Use(way.at, way.typed);
    const DataPlotState plot = other.data_plot;
    const SmoothingSettings smoothing = other.output.smoothing;
    const StatisticsState statistics = other.statistics;
    if (*way.keys != '\0') {
      Press(other, way.keys);
      ExpectPlotValues("", follow(by_other), follow(by_menu), who + ", key");
    }
    if (way.script == nullptr) continue;
    other.data_plot = plot;
    other.output.smoothing = smoothing;
    other.statistics = statistics;
    by_other.fake.Put("s", std::string(way.script) + "\n");
    EXPECT_EQ(OpenScriptFile(other, "s"), kScriptOk) << by_other.fake.output;
    ExpectPlotValues("", follow(by_other), follow(by_menu), who + ", script");
  }
}

TEST(DataPlotOptions, LinesOfThePopupOpenTheMenus) {
  PlotMenu v({"irregular_head.out"}, {.kind = PlotKind::load_dist, .quantity = {.iqnt = 13}});
  v.Key('o', kAltKey);
  v.Key('s', kAltKey);
  const MenuState& menus = v.session.menus;
  const int* const opened[] = {&menus.m_csmenu, &menus.m_omenu, &menus.m_help, &menus.m_tsmenu};  // downwards
  const int height = v.session.gks.window.height;
  for (int line = 0; line < 4; ++line) {
    EXPECT_EQ(*opened[line], 0) << line;
    v.Do({{.kind = FedEvent::Kind::mouse, .code = 1, .modifiers = kControlKey, .x = 60, .y = 110}});
    ASSERT_TRUE(v.session.data_plot.axes.popup.open);
    const PopupBox box = PopupBoxOf(v.session.data_plot.axes.popup, kDataPlotPopup, DrawOf(v.session));
    const float up = box.bottom + box.pitch * (3.5F - static_cast<float>(line));
    const float pixels = static_cast<float>(height) / v.session.page.page_height;
    v.Do({{.kind = FedEvent::Kind::mouse,
           .code = 1,
           .x = static_cast<int>((box.left + 0.1F) * pixels),
           .y = height - static_cast<int>(up * pixels)}});
    EXPECT_NE(*opened[line], 0) << line;
  }
}

}  // namespace
}  // namespace zaview
