// The option menu of the geometry views: every item by mouse and keys, and where a key and a script command set the
// same, that all three end alike.
#include <string>
#include <vector>

#include "gks/window/gks_window.h"
#include "script/open_script_file.h"
#include "unit/views/geometry_fields.h"
#include "unit/views/geometry_picture.h"
#include "unit/views/menu_view.h"

namespace zaview {
namespace {

constexpr bool kPlane = false, kSpace = true;

struct GeometryMenu : MenuView {
  GeometryMenu() : MenuView({"irregular_head.out"}) {
    PutBox(session.case_store);
    session.gks.window.width = 400;
    session.gks.window.height = 300;
    EnterView(PlotModule::geometry);
    Key('o', kAltKey);
    session.platform.console.trace = true;
  }
  View& view() { return session.geometry_view; }
  [[nodiscard]] int menu() const { return session.menus.m_omenu; }
  // Limits 10 to 50 and -2 to 2; in space at 100 from (5, 0, 6); drawn.
  void Renew(bool space) {
    view() = View{};
    view().geo_3d = space;
    view().aspect_adjust = false;
    view().geo_mirror = view().own_radius = view().own_centre = true;
    view().view = {{5, 0, 6}, 45, 30, 30, 100, false};
    view().axes.limits = {10, 10, 50, -2, 1, 2};
    view().axes.use = LimitsUse::changed;
    view().plane_fit.plane = view().geo_plane;
    session.gks.window.bitmap_font = false;
    Draw();
    fake.output.clear();
  }
  void Draw() {
    session.run.redraw = true;
    gksPostRedisplay(session.platform, session.gks);
    Loop();
  }
  // "press", "up", "down", or what is typed.
  void Act(const ItemAt& at, const std::string& action) {
    if (action == "press") Press(menu(), at);
    else if (action == "up" || action == "down") Arrow(menu(), at, action == "up");
    else Type(menu(), at, action);
  }
  [[nodiscard]] std::vector<double> Values() {
    std::vector<double> values;
    for (const GeometryField& field : kGeometryFields) values.push_back(field.value(view()));
    return values;
  }
  void ExpectValues(const std::vector<double>& want, const std::string& what) {
    for (std::size_t i = 0; i < want.size(); ++i)
      EXPECT_NEAR(kGeometryFields[i].value(view()), want[i], 1e-4) << what << ": " << kGeometryFields[i].name;
  }
};

constexpr const char* kFitted = "fitted";  // as the key does it: see below

struct ItemCase {
  bool space;
  ItemAt at;
  const char *action, *changes;
  const char* said = "";
};

// clang-format off
constexpr ItemCase kItems[] = {
    {kSpace, {.text = "X-Y"}, "press", kFitted}, {kPlane, {.text = "X-Z"}, "press", ""},
    {kPlane, {.text = "Y-Z"}, "press", kFitted}, {kPlane, {.text = "3-D"}, "press", "space 1"},
    {kPlane, {.row = "Component:"}, "2", "component 2"}, {kSpace, {.row = "Component:"}, "up", "component 1"},
    {kPlane, {.row = "Component:"}, "3", "", "ILLEGAL value ignored"},
    {kPlane, {.row = "Component:"}, "down", "", "ILLEGAL value ignored"},
    {kPlane, {.row = "X", .nth = 1}, "-20", "x0 -20"}, {kPlane, {.row = "X", .nth = 2}, "5", "dx 5"},
    {kPlane, {.row = "X", .nth = 2}, "0", "", "ILLEGAL value ignored"},
    {kPlane, {.row = "X", .nth = 3}, "-30", "x1 -30 dx -10"},  // reversed
    {kPlane, {.row = "Z", .nth = 1}, "up", "y0 -1.8"}, {kPlane, {.row = "Z", .nth = 2}, "0.5", "dy 0.5"},
    {kPlane, {.row = "Z", .nth = 3}, "3", "y1 3"}, {kPlane, {.row = "Z", .nth = 3}, "x", ""},
    {kPlane, {.text = "Fit plotted"}, "press", kFitted},
    {kPlane, {.text = "Undo zoom/pan"}, "press", kFitted},
    {kPlane, {.text = "Keep zoom/pan"}, "press", "use 1 fitted_x0 10"},
    {kPlane, {.text = "Adjust 2-D axis limits to achieve min/max aspect ratio"}, "press",
     "aspect 1 y0 -10 dy 5 y1 19.3333"},
    {kSpace, {.text = "Radius"}, "50", "radius 50"}, {kSpace, {.text = "Radius"}, "0", "", "ILLEGAL value ignored"},
    {kSpace, {.text = " Azim"}, "up", "azimuth 50"}, {kSpace, {.text = " Azim"}, "361", "", "ILLEGAL value ignored"},
    {kSpace, {.text = " Elev"}, "-90", "elevation -90"}, {kSpace, {.text = " Elev"}, "91", "", "ILLEGAL value ignored"},
    {kSpace, {.row = "Center", .nth = 1}, "7", "cx 7"}, {kSpace, {.row = "Center", .nth = 2}, "-3", "cy -3"},
    {kSpace, {.row = "Center", .nth = 3}, "down", "cz 5.4"},
    {kSpace, {.text = "Fit plotted"}, "press", kFitted},
    {kSpace, {.text = "Perspective"}, "press", "perspective 1"}, {kSpace, {.text = "  Width"}, "20", "width 20"},
    {kPlane, {.text = "X=0 line"}, "press", "v_zero 0"}, {kPlane, {.text = "Z=0 line"}, "press", "h_zero 0"},
    {kPlane, {.text = "Grid"}, "press", "grid 1"}, {kPlane, {.text = "Frame"}, "press", "axis 2"},
    {kPlane, {.text = "Name of the upright axis turned"}, "press", "axis 1"},
    {kSpace, {.text = "Lines"}, "press", "frame 1"}, {kSpace, {.text = "Lines w/nums"}, "press", "frame 2"},
    {kSpace, {.text = "Box"}, "press", "frame 3"}, {kSpace, {.text = "Box w/grid"}, "press", "frame 4"},
    {kPlane, {.text = "Thick"}, "press", "thick 0.04"}, {kSpace, {.text = "Thicker"}, "press", "thick 0.08"},
    {kSpace, {.text = "Z-buffer wireframe"}, "press", "sorted 0", " Z-buffering is DISABLED for wireframe plots"},
    {kPlane, {.text = "Mark pts"}, "press", "marks 1"}, {kSpace, {.text = "Mark only; size="}, "press", "marks 2"},
    {kPlane, {.row = "Points:", .nth = 3}, "2.5", "size 2.5"},
    {kPlane, {.row = "Points:", .nth = 3}, "51", "", "ILLEGAL value ignored"},
    {kSpace, {.row = "Shading:", .text = "Solid"}, "press", "solid 0"}, {kSpace, {.text = "Shade"}, "press", "shade 0"},
    {kSpace, {.text = "Outline"}, "press", "outline 0"}, {kSpace, {.text = "fg"}, "press", "ink 1"},
    {kSpace, {.text = "bg"}, "press", "ink 2"},
    {kPlane, {.text = "Normals"}, "press", "normals 1", "NOTE: ZAVO surface normals should point INTO body"},
    {kSpace, {.text = "Backface"}, "press", "backs 1", "Gray panels are on the side away from the fluid (INSIDE)"},
    {kPlane, {.text = "Mirror in Y=0"}, "press", "mirror 0"},
    {kPlane, {.text = "Stations"}, "press", "lines 1"}, {kSpace, {.text = "Waterlines"}, "press", "lines 2"},
    {kPlane, {.text = "Component"}, "press", "colour 1", "Components now colored by index"},
    {kSpace, {.text = "KCTYPE"}, "press", "colour 2", "Components now colored by type"},
    {kPlane, {.text = "same"}, "press", "", "Components colored the same"},
    {kPlane, {.row = "Axis Text="}, "up", "annot 0.15"},
    {kPlane, {.row = "Axis Text="}, "0.01", "", "ILLEGAL value ignored"},
    {kSpace, {.text = "Title"}, "press", "title 0"}, {kPlane, {.text = "File"}, "press", "file 1"},
    {kPlane, {.text = "Mode"}, "press", "mode 0"}, {kSpace, {.text = "Label s/c"}, "press", "names 1"},
    {kPlane, {.text = "CG"}, "press", "cg 1"}, {kPlane, {.text = "Appendages"}, "press", "fins 0"},
    {kPlane, {.row = "", .text = "Number", .nth = 1}, "press", "labels 1"},
    {kSpace, {.text = "Solid", .nth = 2}, "press", "plates 0"}, {kPlane, {.text = "Weight pts;"}, "press", "weights 1"},
    {kPlane, {.text = "X cut load pts"}, "press", "x_cuts 1"}, {kSpace, {.text = "Y cut load pts"}, "press", "y_cuts 1"},
    {kSpace, {.text = "Number", .nth = 2}, "press", "numbers 1"},
};
// clang-format on

// Each is set, shown, and drawn; what is refused leaves the old value in its field.
TEST(GeometryOptions, SetWhatTheyShowAndDrawIt) {
  GeometryMenu v;
  for (const ItemCase& c : kItems) {
    const std::string what = fmt::format("{} / {} {}: {}", c.at.row, c.at.text, c.at.nth, c.action);
    v.Renew(c.space);
    std::vector<double> want = v.Values();
    if (c.changes != kFitted) TakeChanges(kGeometryFields, c.changes, want);
    v.Act(c.at, c.action);
    if (c.changes != kFitted) v.ExpectValues(want, what);
    else EXPECT_NE(v.Values(), want);
    EXPECT_NE(v.fake.output.find(c.said), std::string::npos) << what << v.fake.output;
    EXPECT_EQ(v.fake.output.find("TopRender") == std::string::npos, std::string_view(c.action) == "x") << what;
  }
  v.Renew(kPlane);  // points in a plane on either axis
  for (const char* plane : {"Y-Z", "X-Y"}) {
    v.Press(v.menu(), {.text = plane});
    v.Press(v.menu(), {.row = "Axes:", .text = "Y=0 line"});
  }
  EXPECT_FALSE(v.view().vertical_zero || v.view().horizontal_zero);
  v.ExpectAllUsed(GeometryOptions(v.session).blocks);
}

TEST(GeometryOptions, StandWhereTheyMakeSense) {
  GeometryMenu v;
  v.session.case_store.control.mass_points.clear();
  v.session.case_store.control.fins.clear();
  v.session.case_store.control.bilge_keels.clear();
  v.Renew(kPlane);
  for (const char* text : {"Radius", "Solid", "Weight pts;", "Appendages", "Box"})
    EXPECT_EQ(v.Find(v.menu(), {.text = text}), nullptr) << text;
  v.Press(v.menu(), {.text = "Title"});
  EXPECT_TRUE(v.Shown(v.menu(), {.text = "Mode"})->disabled);
  v.view().geo_3d = true;
  v.Renew(kSpace);
  EXPECT_EQ(v.Find(v.menu(), {.text = "Keep zoom/pan"}), nullptr);
  // A mesh has no normals to be shown.
  v.session.case_store.hull.surfaces.clear();
  v.session.case_store.hull.mesh = {{{0, 0, 0}, {1, 0, 0}, {0, 1, 1}}, {{{1, 2, 3, 0}}}, {}};
  v.Press(v.menu(), {.text = "Normals"});
  EXPECT_EQ(v.Shown(v.menu(), {.text = "Normals"})->value, 0);
}

// ---- Menu, key and script
struct ThreeWays {  // script blank: there is no such command
  bool space;
  ItemAt at;
  const char *action, *keys, *script;
};

// clang-format off
constexpr ThreeWays kWays[] = {
    {kPlane, {.text = "X-Y"}, "press", "z", "VIEW XY"}, {kPlane, {.text = "Y-Z"}, "press", "x", "VIEW YZ"},
    {kPlane, {.text = "3-D"}, "press", "V", "VIEW 3D"}, {kPlane, {.row = "Component:"}, "2", "2", "COMPONENT 2"},
    {kPlane, {.text = "Mark pts"}, "press", "m", "POINTS ON"}, {kPlane, {.text = "Thick"}, "press", "t", "THICK 0.04"},
    {kPlane, {.text = "Thicker"}, "press", "t t", "THICK 0.08"}, {kPlane, {.text = "Normals"}, "press", "n", "NORMALS ON"},
    {kSpace, {.text = "Backface"}, "press", "^b", "BACKFACE ON"}, {kPlane, {.text = "Mirror in Y=0"}, "press", "R", "MIRROR OFF"},
    {kPlane, {.text = "Stations"}, "press", "w", "DRAW STATIONS"}, {kPlane, {.text = "Waterlines"}, "press", "w w", "DRAW WATERLINES"},
    {kPlane, {.text = "Component"}, "press", "c", "COLOR COMPONENT"}, {kPlane, {.text = "KCTYPE"}, "press", "^c ^c", "COLOR TYPE"},
    {kPlane, {.text = "Title"}, "press", "T", "TITLE OFF"}, {kPlane, {.text = "CG"}, "press", "g", "CG ON"},
    {kPlane, {.text = "Appendages"}, "press", "v", "APPENDAGES OFF"},
    {kPlane, {.text = "Number", .nth = 1}, "press", "^v", "APPENDAGE_LABELS ON"},
    {kPlane, {.text = "Number", .nth = 2}, "press", "L", "NUMBERS ON"},
    {kSpace, {.text = "Solid", .nth = 1}, "press", "^s", "SOLID OFF"}, {kSpace, {.text = "Shade"}, "press", "^l", "SHADING OFF"},
    {kSpace, {.text = "Outline"}, "press", "^o", "OUTLINE OFF"}, {kSpace, {.text = "Z-buffer wireframe"}, "press", "^z", "ZBUFFER OFF"},
    {kSpace, {.text = "Perspective"}, "press", "^p", "PERSPECTIVE ON"}, {kSpace, {.text = " Azim"}, "up", "Right", "AZIMUTH 50"},
    {kSpace, {.text = " Elev"}, "down", "Down", "ELEVATION 25"}, {kSpace, {.text = "  Width"}, "down", "{", "APERTURE 25"},
    {kSpace, {.text = "Radius"}, "141.4", "-", "RADIUS 141.4"}, {kSpace, {.text = "Box"}, "press", "a a a", "AXES BOX"},
    {kPlane, {.text = "Fit plotted"}, "press", "f", ""}, {kSpace, {.text = "Fit plotted"}, "press", "f", ""},
    {kPlane, {.text = "Undo zoom/pan"}, "press", "f", ""}, {kPlane, {.text = "Keep zoom/pan"}, "press", "k", ""},
};
// clang-format on

TEST(GeometryOptions, EndAsKeysAndScriptsDo) {
  GeometryMenu v;
  for (const ThreeWays& way : kWays) {
    v.Renew(way.space);
    v.Act(way.at, way.action);
    const std::vector<double> by_menu = v.Values();
    v.Renew(way.space);
    Press(v.session, way.keys);
    v.Draw();
    v.ExpectValues(by_menu, way.keys);
    if (*way.script == '\0') continue;
    v.Renew(way.space);
    v.fake.Put("s", fmt::format("GEOM_OPT {}\n", way.script));
    EXPECT_EQ(OpenScriptFile(v.session, "s"), 0) << v.fake.output;
    v.Draw();
    v.ExpectValues(by_menu, way.script);
  }
}

}  // namespace
}  // namespace zaview
