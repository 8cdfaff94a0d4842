// The geometry views: keys, mouse, and what is to be seen of a box.
#include <cmath>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "unit/views/geometry_fields.h"
#include "unit/views/geometry_picture.h"
#include "views/frame/session_keys.h"
#include "views/state/geometry_settings.h"

namespace zaview {
namespace {

// ---- Keys
struct KeyCase {
  bool space;
  const char *keys, *changes;  // "name value ..": the others stay as they are; blank: not even a picture is asked for
  const char* said = "";
};

// Limits 10 to 50 and -2 to 2; in space at 100 from (5, 0, 6).
void Renew(GeometryPicture& v, bool space) {
  View& view = v.view() = View{};
  view.geo_3d = space;
  view.geo_mirror = view.own_radius = view.own_centre = true;
  view.view = {{5, 0, 6}, 45, 30, 30, 100, false};
  view.axes.limits = {10, 10, 50, -2, 1, 2};
  view.axes.use = LimitsUse::changed;
  v.session.gks.window.bitmap_font = true;
  v.session.run.redraw = false;
  v.fake.output.clear();
}

void ExpectChanges(const KeyCase& c, std::vector<double> want, const View& view) {
  TakeChanges(kGeometryFields, c.changes, want);
  for (std::size_t i = 0; i < want.size(); ++i)
    EXPECT_NEAR(kGeometryFields[i].value(view), want[i], 1e-4)
        << c.space << ": " << c.keys << ": " << kGeometryFields[i].name;
}

constexpr bool kPlane = false, kSpace = true;

TEST(GeometryKeys, ChangeTheViewsAndSayWhatThePanelsAre) {
  constexpr const char* kNote = "NOTE: ZAVO surface normals should point INTO body\n";
  // clang-format off
  const KeyCase kCases[] = {
      {kPlane, "a", "axis 2"}, {kSpace, "a a", "frame 2"}, {kSpace, "a a a a a", "frame 0"},
      {kPlane, "b", "x0 -10 dx 20 x1 70 y0 -4 dy 2 y1 4"}, {kSpace, "b", "radius 141.4"},
      {kPlane, "^b", "backs 1", "NOTE: Panel sides facing away from fluid domain are colored grey\n"},
      {kSpace, "^b ^b", "backs 0", "NOTE: Panel sides facing away from fluid domain are colored grey\n"},
      {kPlane, "c", "colour 1", "Components now colored by index\n"},
      {kPlane, "c c", "colour 0", "Components now colored by index\nComponents colored the same\n"},
      {kSpace, "c ^c c c", "colour 2",
       "Components now colored by index\nComponents now colored by type\nComponents colored the same\n"
       "Components now colored by type\n"},
      {kPlane, "e", "annot 0.1272727"}, {kSpace, "E", "annot 0.154"}, {kPlane, "f", "use 0"}, {kPlane, "g", "cg 1"},
      {kPlane, "k", "use 1 fitted_x0 10"}, {kSpace, "k", ""},
      {kPlane, "l", "weights 1 x_cuts 1 y_cuts 1"}, {kSpace, "l l", "weights 0"}, {kPlane, "L", "numbers 1"},
      {kPlane, "^l", "shade 0"}, {kSpace, "m", "marks 1"}, {kPlane, "m m", "marks 2"}, {kPlane, "m m m", "marks 0"},
      {kPlane, "n", "normals 1", kNote}, {kSpace, "n n n", "normals 1", kNote},
      {kPlane, "^o ^s", "outline 0 solid 0"}, {kPlane, "p", "size 0.7072136"}, {kSpace, "P", "size 1.414"},
      {kSpace, "^p", "perspective 1"}, {kPlane, "^p", ""}, {kPlane, "R", "mirror 0"},
      {kPlane, "s", "component 1"}, {kPlane, "s s", "component 2"}, {kSpace, "s s s", "component 0"},
      {kPlane, "2 S", "component 0"}, {kSpace, "2", "component 2"}, {kPlane, "3 9 0", ""},
      {kPlane, "[", "component 2"}, {kSpace, "] ] ]", "component 0"},
      {kPlane, "t", "thick 0.04"}, {kPlane, "t t t", "thick 0"}, {kPlane, "T", "title 0"},
      {kPlane, "v", "fins 0"}, {kSpace, "^v", "labels 1"}, {kPlane, "V", "space 1"}, {kSpace, "V", "space 0"},
      {kPlane, "w", "lines 1"}, {kSpace, "w w", "lines 2"}, {kPlane, "w w w", "lines 0"},
      {kPlane, "x", "plane 2"}, {kPlane, "z", "plane 0"}, {kPlane, "z y", "plane 1"}, {kPlane, "X Y Z", ""},
      {kSpace, "x", "cx -5"}, {kSpace, "X y", "cx 15 cy -10"}, {kSpace, "Y z Z Z", "cy 10 cz 16"},
      {kPlane, "^x", "dx 20"}, {kPlane, "^y", "dy 2"}, {kSpace, "^x ^y", ""},
      {kSpace, "^z", "sorted 0", " Z-buffering is DISABLED for wireframe plots\n"},
      {kPlane, "^z ^z", "sorted 1",
       " Z-buffering is DISABLED for wireframe plots\n Z-buffering is ENABLED for wireframe plots\n"},
      {kSpace, "{ {", "width 20"}, {kSpace, "} } } } } } } } } } } } }", "width 90"}, {kPlane, "{ } - + =", ""},
      {kSpace, "-", "radius 141.4"}, {kSpace, "+", "radius 70.721358"}, {kSpace, "= -", "radius 100"},
      {kPlane, "Left Up", "x0 -10 x1 30 y0 0 y1 4"}, {kPlane, "Right Down", "x0 30 x1 70 y0 -4 y1 0"},
      {kSpace, "Left", "azimuth 40"}, {kSpace, "Right Down", "azimuth 50 elevation 25"},
      {kSpace, "Left Left Left Left Left Left Left Left Left Left", "azimuth 355"},
      {kSpace, "Up Up Up Up Up Up Up Up Up Up Up Up Up", "elevation 90"},
      {kPlane, "^t ^S ^T A-s d i PgUp Space F1", ""},  // keys of other views
  };
  // clang-format on
  GeometryPicture v;
  for (const KeyCase& c : kCases) {
    Renew(v, c.space);
    std::vector<double> before;
    for (const GeometryField& field : kGeometryFields) before.push_back(field.value(v.view()));
    Press(v.session, c.keys);
    ExpectChanges(c, before, v.view());
    EXPECT_EQ(v.session.run.redraw, *c.changes != '\0') << c.keys;
    EXPECT_EQ(v.fake.output, c.said) << c.keys;
  }
  // The help tells of all of them in both views; a mesh has no normals to be shown.
  const std::string help = fmt::format("{}", fmt::join(HelpLines(GeometryKeys(v.session)), "\n"));
  for (const char* line : {"In 3-D view mode...", " x/X    Shift view center in -/+ X (3-D view)",
                           " x      Change to Y-Z view (along X-axis) (2-D view)", " q      Quit plot"})
    EXPECT_NE(help.find(line), std::string::npos) << line;
  EXPECT_EQ(help.find("trim"), std::string::npos);
  v.session.case_store.hull.surfaces.clear();
  v.session.case_store.hull.mesh = {{{0, 0, 0}, {1, 0, 0}, {0, 1, 1}}, {{{1, 2, 3, 0}}}, {}};
  Press(v.session, "n");
  EXPECT_EQ(v.fake.output.substr(v.fake.output.rfind("NOTE")),
            "NOTE: surface normals not available for unstructured geometry\n");
}

// ---- Pictures
struct HullBoxes : GeometryPicture {
  using GeometryPicture::GeometryPicture;
  // Of the components' own colours.
  [[nodiscard]] Box Hull() const {
    return BoxOf([a = Ink(3), b = Ink(4)](unsigned colour) { return colour == a || colour == b ? 1.0 : 0.0; });
  }
};

TEST(GeometryView, PlanesShowTheHullInItsProportions) {
  struct Row {
    GeometryPlane plane;
    bool mirror;
    double width, height;
  };
  constexpr Row kRows[] = {{GeometryPlane::x_y, false, 60, 10},
                           {GeometryPlane::x_y, true, 60, 20},
                           {GeometryPlane::x_z, true, 60, 12},
                           {GeometryPlane::y_z, false, 10, 12},
                           {GeometryPlane::y_z, true, 20, 12}};
  for (const auto& [w, h] : {std::pair{800, 600}, std::pair{500, 400}, std::pair{700, 900}}) {
    HullBoxes v(w, h);
    v.view().geo_colour_by = GeometryColour::by_component;
    v.view().geo_appendages = false;
    for (const Row& row : kRows) {
      v.view().geo_plane = row.plane;
      v.view().geo_mirror = row.mirror;
      v.Show();
      const Box box = v.Hull();
      EXPECT_NEAR((box.width() - 1.0) / (box.height() - 1.0) * row.height / row.width, 1, 0.03) << w << row.width;
      EXPECT_GT(std::max(box.width() / 0.82 / w, box.height() / 0.7 / h), 0.5);  // it fills its area
    }
  }
}

TEST(GeometryView, LimitsStayUntilTheirPlaneOrTheHullIsAnother) {
  GeometryPicture v;
  v.Show();
  EXPECT_EQ(v.view().axes.use, LimitsUse::fitted);
  const PlotLimits fitted = v.view().axes.limits;
  EXPECT_TRUE(fitted.x_min <= -25 && fitted.x_max >= 35 && fitted.y_min <= 0 && fitted.y_max >= 12);
  Press(v.session, "b");
  v.Show();
  const float zoomed = v.view().axes.limits.x_min;
  Press(v.session, "V");
  v.Show();
  const Camera eye = v.view().view;
  Press(v.session, "+ V");
  v.Show();
  EXPECT_FLOAT_EQ(v.view().axes.limits.x_min, zoomed);
  Press(v.session, "V");
  v.Show();
  EXPECT_NEAR(v.view().view.view_radius, eye.view_radius / kSpaceZoom, 1e-9);  // no second fit
  Press(v.session, "V z");
  v.Show();
  EXPECT_EQ(v.view().axes.use, LimitsUse::fitted);
  v.session.case_store.hull = {};  // nothing to show: axes alone
  v.session.case_store.hull_tried = Tried::failed;
  ForgetLimits(v.view().axes);
  v.Show();
  EXPECT_FLOAT_EQ(v.view().axes.limits.y_max - v.view().axes.limits.y_min, 2);
}

// Half heights 53.58984 on 600 pixels: 5.598076 a length, about (400, 300).
TEST(GeometryView, SpaceShowsTheHullWhereItStands) {
  struct Row {
    double azimuth, elevation, width, height;
  };
  constexpr Row kRows[] = {{90, 0, 60, 12}, {0, 0, 20, 12}, {270, 90, 60, 20}, {270, 0, 60, 12}, {180, 0, 20, 12}};
  HullBoxes v;
  View& view = v.view();
  view.geo_3d = view.own_radius = view.own_centre = true;
  view.geo_appendages = view.geo_shading = view.geo_outline = view.show_title = false;
  view.geo_colour_by = GeometryColour::by_component;
  for (const Row& row : kRows) {
    view.view = {{5, 0, 6}, row.azimuth, row.elevation, 30, 200, false};
    v.Show();
    const Box box = v.BoxOf([](unsigned colour) { return colour != 0 ? 1.0 : 0.0; });
    EXPECT_NEAR(box.width(), 5.598076 * row.width, 3) << row.azimuth;
    EXPECT_NEAR(box.height(), 5.598076 * row.height, 3) << row.azimuth;
    EXPECT_NEAR(box.left + box.right, 800, 2) << row.azimuth;
    EXPECT_NEAR(box.top + box.bottom, 600, 2) << row.azimuth;
  }
  // From port the outside is seen, from starboard without the reflection the inside: grey if it is to be.
  for (const bool inside : {false, true}) {
    view.view.view_azimuth = inside ? 270 : 90;
    view.geo_backface = true;
    view.geo_mirror = !inside;
    v.Show();
    EXPECT_EQ(v.At(400, 300) == 0x808080, inside);
  }
}

TEST(GeometryView, ReflectionDoublesPanelsAndAxesAndItemsAreAdded) {
  GeometryPicture v;
  View& view = v.view();
  EXPECT_TRUE(view.geo_mirror);  // half of a hull was input
  view.geo_3d = true;
  const auto count = [&v](ZbKind kind) {
    v.Show();
    return std::count_if(v.session.zb3d.zbufen.begin(), v.session.zb3d.zbufen.end(),
                         [kind](const ZbEntity& row) { return row.kind == kind; });
  };
  EXPECT_EQ(count(ZbKind::shaded), 2 * (18 + 12) + 3);
  view.geo_mirror = false;
  EXPECT_EQ(count(ZbKind::shaded), 18 + 12 + 3);
  view.geo_appendages = false;
  view.geo_component = 2;
  EXPECT_EQ(count(ZbKind::shaded), 12);
  view.geo_draw = GeometryLines::stations;  // two sides a panel
  EXPECT_EQ(count(ZbKind::polyline), 24);
  view.geo_solid = view.zbuffer_wire = false;
  EXPECT_EQ(count(ZbKind::polyline), 0);  // straight into the picture
  view.geo_solid = true;
  view.geo_normals = true;
  EXPECT_EQ(count(ZbKind::polyline), 24 + 12);
  Press(v.session, "g l L");
  EXPECT_EQ(count(ZbKind::marker), 1 + 1 + 2 + 1);
  EXPECT_EQ(count(ZbKind::text), 3);
}

TEST(GeometryMouse, FindsPointsInSpace) {
  GeometryPicture v;
  View& view = v.view();
  view.geo_3d = view.own_radius = view.own_centre = true;
  view.view = {{5, 0, 6}, 90, 0, 30, 200, false};
  v.Show();
  const auto click = [&v](int button, float x, float y) {  // pixels
    const float page = v.session.page.page_width / 800;
    GeoMouse(v.session, button, x * page, (600 - y) * page);
  };
  const auto at = [&](const ScenePoint& p) { return std::array{p.x, p.y, p.z}; };
  const auto near = [&](const ScenePoint& p, double x, double y, double z) {
    EXPECT_NEAR(std::hypot(p.x - x, p.y - y, p.z - z), 0, 1e-4) << p.x << ' ' << p.y << ' ' << p.z;
  };
  click(3, 232 + 5, 266 - 5);  // the foremost corner of the deck; from port the bow is left
  EXPECT_TRUE(view.point_measured);
  near(view.measured, 35, 10, 12);
  click(1, 232, 266);
  EXPECT_FALSE(view.point_measured);
  near(view.view.view_centre, 35, 10, 12);
  v.Show();
  click(2, 400, 100);
  EXPECT_NEAR(view.view.view_radius, 282.8, 1e-9);
  click(2, 400, 500);
  EXPECT_NEAR(view.view.view_radius, 200, 1e-9);
  v.fake.output.clear();
  const auto before = at(view.view.view_centre);
  click(1, 20, 20);
  EXPECT_EQ(at(view.view.view_centre), before);
  EXPECT_EQ(v.fake.output, "Center/scale aborted\n");
  v.session.gks.modifiers = kControlKey;
  click(1, 400, 300);
  v.session.gks.modifiers = 0;
  EXPECT_TRUE(view.axes.popup.open);
  v.Show();
  click(1, 410, 290);
  EXPECT_EQ(v.session.plot_session.ask, ViewAsk::help);  // the lower line
}

TEST(GeometryMouse, ZoomsAndMeasuresInAPlane) {
  GeometryPicture v;
  v.Show();
  GeoMouse(v.session, 3, 34.0F, 11.5F);
  EXPECT_TRUE(v.view().axes.measure.on);
  EXPECT_FLOAT_EQ(v.view().axes.measure.x, 35);
  EXPECT_FLOAT_EQ(v.view().axes.measure.y, 12);
  v.view().geo_plane = GeometryPlane::y_z;  // by the menu: the point is none of this plane
  v.Show();
  EXPECT_FALSE(v.view().axes.measure.on);
  v.view().geo_plane = GeometryPlane::x_z;
  v.Show();
  v.view().axes.measure.on = true;
  Press(v.session, "r");
  EXPECT_FALSE(v.view().axes.measure.on);
  GeoMouse(v.session, 1, 0, 2);
  GeoMouse(v.session, 1, 0, 2);
  EXPECT_EQ(v.fake.output, "Zoom aperture too small - re-select 2nd point\n");
  GeoMouse(v.session, 1, 10, 4);
  v.Show();
  const PlotLimits& l = v.view().axes.limits;
  EXPECT_EQ(v.view().axes.use, LimitsUse::changed);
  const PlotPage& page = v.session.page;
  EXPECT_NEAR((l.x_max - l.x_min) / page.area_width, (l.y_max - l.y_min) / page.area_height, 1e-3);
  EXPECT_TRUE(l.x_min <= 0 && l.x_max >= 10 && l.x_max - l.x_min < 14);
}

}  // namespace
}  // namespace zaview
