// The menu of the animation: what each item changes, and that keys and scripts change the same.
#include <string>
#include <vector>

#include "geometry_picture.h"
#include "gks/window/gks_window.h"
#include "script/open_script_file.h"
#include "unit/views/menu_view.h"
#include "unit/views/motion_fields.h"
#include "views/motion/motion_overlay.h"
#include "views/motion/motion_view.h"
#include "views/state/motion_settings.h"
#include "views/state/popup.h"
#include "views/state/run_pictures.h"

namespace zaview {
namespace {

constexpr std::string_view kIllegal = "ILLEGAL value ignored\n";

struct MotionMenu : MenuView {
  static int& Drawn() {
    static int drawn = 0;
    return drawn;
  }
  MotionMenu() : MenuView({"irregular_head.out"}) {
    PutBox(session.case_store);
    EXPECT_TRUE(StartAnimation(session, {}, 0)) << fake.output;
    glResizeWindow(session.platform, session.gks, 160, 120);
    Enter();
    session.gks.hooks.render = [](void* self, bool force) {
      ++Drawn();
      TopRender(*static_cast<Session*>(self), force);
    };
    Key('o', kAltKey);
    fake.output.clear();
  }
  [[nodiscard]] int Menu() const { return session.menus.m_omenu; }
  void Use(const ItemAt& at, std::string_view typed) {  // nothing typed: pressed
    if (typed.empty()) Press(Menu(), at);
    else if (typed == "up" || typed == "down") Arrow(Menu(), at, typed == "up");
    else Type(Menu(), at, typed);
  }
};

constexpr std::string_view kPointIsTried =
    "Calculating motion for ship fixed point...\nInitial static coordinates 0 0 -6.25\n";

struct ItemCase {
  ItemAt at;
  const char *typed, *changes;  // "name value ..", the others stay
  std::string_view said = "";
};

// clang-format off
constexpr ItemCase kItems[] = {
    {{"", "Mark point on ship"}, "", "point 1"}, {{"Hull: ", "Solid"}, "", "solid 0"}, {{"Hull: ", "Wireframe;"}, "", "wire 1"}, {{"", "Rudders"}, "", "rudders 0"},
    {{"", "Track of CG"}, "", "track 1"}, {{"", "Transparent"}, "", "glass 1"},
    {{"", "Color by wetness"}, "", "colour 1"}, {{"", "Color by wetness"}, "", "colour 0"},
    {{"", "Waterline"}, "", "waterline 1"}, {{"", "CG and buoyancy"}, "", "centres 1"},
    {{"Free Surface:", "Solid"}, "", "sea 0"}, {{"Free Surface:", "Wireframe;"}, "", "sea_wire 1"},
    {{"", "Up to horizon"}, "", "horizon 1"}, {{"", " Opacity="}, "0.25", "opacity 0.25"},
    {{"", " Opacity="}, "down", "opacity 0.15"}, {{"", " Opacity="}, "1.1", "", kIllegal},
    {{"", " Grid size="}, "75", "grid 0.5"}, {{"", " Grid size="}, "0", "", kIllegal},
    {{"", "Shading;"}, "", "shading 0"}, {{"", " Ambient Light Factor="}, "0.95", "ambient 0.95"},
    {{"", " Ambient Light Factor="}, "up", "", kIllegal},
    {{"", " azim="}, "359.5", "azimuth 359.5"}, {{"", " azim="}, "-1", "", kIllegal},
    {{"", " elev="}, "-90", "elevation -90"}, {{"", " elev="}, "up", "elevation -85"},
    {{"", " elev="}, "-90.5", "", kIllegal}, {{"", "Perspective;"}, "", "perspective 0"},
    {{"", " view aperture="}, "0", "aperture 0"}, {{"", " view aperture="}, "91", "", kIllegal},
    {{"", " view aperture="}, "30", "aperture 30"}, {{"", "View radius="}, "212.50376", "radius 1"},
    {{"", "View radius="}, "down", "radius 0.9"}, {{"", "View radius="}, "0", "", kIllegal},
    {{"", " X="}, "21.250376", "x 0.1"}, {{"", " Y="}, "-21.250376", "y -0.1"}, {{"", " Z="}, "21.250376", "z 0.1"},
    {{"", "Port"}, "", "azimuth 90 elevation 8 radius 0 x 0 y 0 z 0"}, {{"", "Bow"}, "", "azimuth 0"},
    {{"", "Stern"}, "", "azimuth 180"}, {{"", "Starboard"}, "", "azimuth 270"}, {{"", "Top"}, "", "elevation 90"},
    {{"", "Quarter"}, "", "azimuth 150 elevation 20"},
    {{"", "Ship and heading"}, "", "stand 1"}, {{"", "Nothing"}, "", "stand 2"}, {{"", "Bridge"}, "", "stand 3"},
    {{"", "Ship"}, "", "stand 0"}, {{"", "As at first"}, "", "azimuth 45 elevation 30 perspective 1"},
    {{"Show", "Title"}, "", "title 0"}, {{"Show", "Time"}, "", "time 0"}, {{"Show", "Events"}, "", "events 1", kPointIsTried},
    {{"", " Text size="}, "0.2", "text 0.2"}, {{"", " Text size="}, "2", "", kIllegal},
    {{"", " geometry="}, "up", "thick 0.02"}, {{"", " geometry="}, "-1", "", kIllegal},
    {{"", " graphs="}, "0.08", "graph_thick 0.08"}, {{"", " frame,too?"}, "", "frame_too 1"},
    {{"", " Graph", 2}, "", "on2 1"}, {{"", " Graph", 3}, "", "on3 1"}, {{"", " Crv:", 3}, "up", "crv3 4"},
    {{"", " Crv:", 3}, "0", "crv3 0"}, {{"", " Crv:", 3}, "7", "", kIllegal},
    {{"", "Scroll", 3}, "", "scroll3 1"}, {{"", "Blank", 3}, "", "blank3 0"}, {{"", "Value", 3}, "", "value3 1"},
    {{"", "Mark", 3}, "", "mark3 1"}, {{"", "Tbar", 3}, "", "bar3 0"}, {{"", " Scroll Time=", 3}, "5", "seconds3 5"},
    {{"", " Scroll Time=", 3}, "0", "", kIllegal},
};
// clang-format on

TEST(MotionOptions, EachItemSetsItsOwn) {
  MotionMenu v;
  for (const ItemCase& c : kItems) {
    std::vector<double> want = FieldsOf(v.session);
    TakeChanges(kMotionFields, c.changes, want);
    MotionMenu::Drawn() = 0;
    v.fake.output.clear();
    v.Use(c.at, c.typed);
    ExpectFields(FieldsOf(v.session), want, std::string(c.at.text) + " " + c.typed);
    EXPECT_GT(MotionMenu::Drawn(), 0) << c.at.text;
    EXPECT_EQ(v.fake.output, c.said) << c.at.text;
  }
  // A quantity and a colour come from lists.
  const MotionGraph& graph = v.session.motion_view.graphs[4];
  const auto choose = [&](const ItemAt& at, int value) {
    v.Press(v.Menu(), at);
    EXPECT_NE(v.session.menus.m_select, 0);
    MenuEvent chosen;
    chosen.menu = v.session.menus.m_select;
    chosen.change = MenuChange::list;
    chosen.integer = value;
    topMenuInput(v.session, chosen);
    RefreshMenus(v.session);
  };
  choose({"", " Qnt:", 5}, 2);
  EXPECT_TRUE(graph.on && graph.request.iqnt == 2 && graph.request.curve == 3);
  v.fake.output.clear();
  choose({"", " Qnt:", 5}, 27);  // of a point that nobody has told
  EXPECT_EQ(graph.request.iqnt, 2);
  EXPECT_NE(v.fake.output, "");
  choose({"", " ", 5}, 5);
  EXPECT_EQ(graph.colour, 5);
  v.Press(v.Menu(), {"", "Change"});
  EXPECT_NE(v.session.menus.m_point, 0);
  v.ExpectAllUsed(MotionOptions(v.session).blocks);
}

TEST(MotionOptions, ACaseWithoutHullHasNoItemsOfIt) {
  MenuView v({"irregular_head.out"});
  EXPECT_TRUE(StartAnimation(v.session, {}, 0));
  v.Enter();
  v.Key('o', kAltKey);
  const int menu = v.session.menus.m_omenu;
  for (const char* gone : {"Wireframe;", "Color by wetness", "Mark point on ship"})
    EXPECT_EQ(v.Find(menu, {"Hull: ", gone}), nullptr) << gone;
  EXPECT_NE(v.Find(menu, {"Hull: ", "Track of CG"}), nullptr);
}

struct Way {
  ItemAt at;
  const char *typed, *keys, *script;
};

// clang-format off
constexpr Way kWays[] = {
    {{"", "Rudders"}, "", "r", "RUDDER OFF"}, {{"", "Track of CG"}, "", "^t", "CGTRACK ON"},
    {{"", "Waterline"}, "", "l", "WATERLINE ON"}, {{"", "CG and buoyancy"}, "", "k", "CENTRES ON"},
    {{"", "Color by wetness"}, "", "w", "WETNESS ON"}, {{"", "Up to horizon"}, "", "u", "HORIZON ON"},
    {{"", "Shading;"}, "", "^l", "SHADING OFF"}, {{"", "Perspective;"}, "", "^p", "PERSPECTIVE OFF"},
    {{"Show", "Events"}, "", "i", "EVENTS ON"}, {{"Show", "Title"}, "", "T", "TITLE OFF"},
    {{"", " Opacity="}, "0.5", "o", "SEA TRANSPARENT 0.5"}, {{"Free Surface:", "Solid"}, "", "^s", "SURFACE OFF"},
    {{"", " Ambient Light Factor="}, "0.2", "a", "AMBIENT 0.2"}, {{"", " geometry="}, "0.04", "t", "THICK 0.04"},
    {{"", " view aperture="}, "35", "}", "APERTURE 35"}, {{"", " azim="}, "40", "Left", "AZIMUTH 40"},
    {{"", " elev="}, "40", "Up Up", "ELEVATION 40"}, {{"", "Starboard"}, "", "4", "CAMERA STARBOARD"},
    {{"", "Ship and heading"}, "", "s", "CAMERA HEADING"}, {{"", " Grid size="}, "@", "g", "GRID @"},
    {{"", "View radius="}, "@", "B", "RADIUS @"}, {{"", " X="}, "@", "X", "CENTER @ 0 0"},
};
// clang-format on

// "@": what the key has made of it.
std::string With(const char* text, const ItemAt& at, const MotionViewState& keyed) {
  const double value = at.text == " Grid size="    ? static_cast<double>(keyed.fs_grid_size)
                       : at.text == "View radius=" ? keyed.view.view_radius
                                                   : keyed.view.view_centre.x;
  std::string words = text;
  if (const std::size_t place = words.find('@'); place != std::string::npos)
    words.replace(place, 1, fmt::format("{:.7g}", value));
  return words;
}

TEST(MotionOptions, MenuKeyAndScriptEndInTheSameState) {
  MotionMenu by_menu, by_key, by_script;
  for (const Way& way : kWays) {
    Press(by_key.session, way.keys);
    by_menu.Use(way.at, With(way.typed, way.at, by_key.session.motion_view));
    by_script.fake.Put("s", "ANIMATE_OPTION " + With(way.script, way.at, by_key.session.motion_view) + "\n");
    EXPECT_EQ(OpenScriptFile(by_script.session, "s"), kScriptOk) << by_script.fake.output;
    const std::vector<double> want = FieldsOf(by_key.session);
    ExpectFields(FieldsOf(by_menu.session), want, std::string("menu, ") + way.script);
    ExpectFields(FieldsOf(by_script.session), want, std::string("script, ") + way.script);
  }
  // Graphs have no keys.
  for (const char* text : {" Graph", "Scroll", "Blank", "Value", "Mark", "Tbar"}) by_menu.Use({"", text, 3}, "");
  by_menu.Use({"", " Crv:", 3}, "5");
  by_script.fake.Put("s",
                     "ANIMATE_GRAPH 3 MOT 5\nANIMATE_GRAPH_OPTION 3 SCROLL ON\nANIMATE_GRAPH_OPTION 3 BLANK OFF\n"
                     "ANIMATE_GRAPH_OPTION 3 VALUE ON\nANIMATE_GRAPH_OPTION 3 MARK ON\nANIMATE_GRAPH_OPTION 3 T OFF\n");
  EXPECT_EQ(OpenScriptFile(by_script.session, "s"), kScriptOk) << by_script.fake.output;
  ExpectFields(FieldsOf(by_menu.session), FieldsOf(by_script.session), "graphs");
}

TEST(MotionOptions, ThePopupOpensTheMenus) {
  MotionMenu v;
  v.Key('o', kAltKey);
  const MenuState& menus = v.session.menus;
  const int* const opened[] = {&menus.m_tsmenu, &menus.m_omenu, &menus.m_help};  // downwards
  const int height = v.session.gks.window.height;
  for (int line = 0; line < 3; ++line) {
    v.Do({{.kind = FedEvent::Kind::mouse, .code = 1, .modifiers = kControlKey, .x = 40, .y = 80}});
    ASSERT_TRUE(v.session.motion_view.popup.open);
    const PopupBox box = PopupBoxOf(v.session.motion_view.popup, kMotionPopup, DrawOf(v.session));
    const float up = box.bottom + box.pitch * (2.5F - static_cast<float>(line));
    const float pixels = static_cast<float>(height) / v.session.page.page_height;
    EXPECT_EQ(*opened[line], 0) << line;
    v.Do({{.kind = FedEvent::Kind::mouse,
           .code = 1,
           .x = static_cast<int>((box.left + 0.1F) * pixels),
           .y = height - static_cast<int>(up * pixels)}});
    EXPECT_NE(*opened[line], 0) << line;
    EXPECT_FALSE(v.session.motion_view.popup.open || v.session.plot_session.run_on);
  }
}

}  // namespace
}  // namespace zaview
