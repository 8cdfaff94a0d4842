// The options of the geometry views: the rows of their menu, in their order.
#include <cmath>
#include <limits>

#include "base/message.h"
#include "views/geometry/geometry_items.h"
#include "views/geometry/geometry_switches.h"
#include "views/geometry/geometry_view.h"
#include "views/state/axes_limits.h"
#include "views/state/drawn_sizes.h"
#include "views/state/geometry_settings.h"

namespace zaview {

namespace {

constexpr std::string_view kGreyInside = "Gray panels are on the side away from the fluid (INSIDE)";
constexpr std::string_view kNoGrey = "Backface color disabled";

using View = GeometryViewState;

// The planes, and the view in space.
constexpr KeyScope kXY = 1U, kXZ = 2U, kYZ = 4U, kPlane = kXY | kXZ | kYZ, kSpace = 8U;

constexpr float kAboveZero = std::numeric_limits<float>::min();
constexpr float kThick = 0.04F, kThicker = 0.08F;  // page units
constexpr int kUprightName = 1, kFrame = 2;        // of axis_option

View& Of(Session& s) {
  return s.geometry_view;
}

template <bool View::*flag>
constexpr OptionBinding On = Flag<&Session::geometry_view, flag>;

OptionValue OnOff(bool on) {
  return {.integer = on ? 1 : 0};
}

// On where the field has this value; pressed, the verb acts.
template <auto View::*field, auto value, auto verb>
constexpr OptionBinding Switch = {[](Session& s, int) { return OnOff(Of(s).*field == value); },
                                  [](Session& s, const OptionEvent&) {
                                    verb(Of(s), value);
                                    return std::string_view();
                                  }};

template <auto verb>
std::string_view PressView(Session& s, const OptionEvent&) {
  verb(Of(s));
  return {};
}

template <auto verb>
std::string_view PressAxes(Session& s, const OptionEvent&) {
  verb(Of(s).axes);
  return {};
}

// ---- Which view
constexpr OptionBinding kInSpace = {[](Session& s, int) { return OnOff(Of(s).geo_3d); },
                                    [](Session& s, const OptionEvent&) {
                                      Of(s).geo_3d = true;
                                      return std::string_view();
                                    }};

template <GeometryPlane plane>
constexpr OptionBinding InPlane = {[](Session& s, int) { return OnOff(!Of(s).geo_3d && Of(s).geo_plane == plane); },
                                   [](Session& s, const OptionEvent&) {
                                     Of(s).geo_3d = false;
                                     TakePlane(Of(s), plane);
                                     return std::string_view();
                                   }};

constexpr OptionBinding kComponent = {[](Session& s, int) { return OptionValue{.integer = Of(s).geo_component}; },
                                      [](Session& s, const OptionEvent& event) {
                                        const int count = ComponentCount(ShownHull(s.case_store));
                                        return TakeComponent(Of(s), count, event.integer) ? std::string_view()
                                                                                          : kIllegalIgnored;
                                      }};

OptionValue ComponentRange(Session& s, int) {
  return {.text = fmt::format(" (1 to {}; 0: all)", ComponentCount(ShownHull(s.case_store)))};
}

bool HasComponents(const Session& s, int) {
  return ComponentCount(ShownHull(s.case_store)) > 0;
}

// ---- Axes of a plane
template <float PlotLimits::*which>
constexpr OptionBinding Limit = {[](Session& s, int) { return OptionValue{.real = Of(s).axes.limits.*which}; },
                                 [](Session& s, const OptionEvent& event) {
                                   return TakeLimit(Of(s).axes, which, event.real, kGeometryArea) ? std::string_view()
                                                                                                  : kIllegalIgnored;
                                 }};

template <bool horizontal>
OptionValue AxisName(Session& s, int) {
  constexpr std::string_view kNames[] = {"X", "Y", "Z"};
  return {.text = std::string(kNames[AxisOf(Of(s).geo_plane, horizontal)])};
}

template <int option>
constexpr OptionBinding AxisOption = {[](Session& s, int) { return OnOff((Of(s).axis_option & option) != 0); },
                                      [](Session& s, const OptionEvent&) {
                                        Of(s).axis_option ^= option;
                                        return std::string_view();
                                      }};

bool HasUprightLetters(const Session& s, int) {
  return !s.gks.window.bitmap_font;
}

// ---- The eye
template <double Camera::*field>
constexpr OptionBinding Eye = Number<&Session::geometry_view, &View::view, field>;

constexpr OptionBinding kRadius = {Eye<&Camera::view_radius>.shows, [](Session& s, const OptionEvent& event) {
                                     return TakeRadius(Of(s), static_cast<double>(event.real)) ? std::string_view()
                                                                                               : kIllegalIgnored;
                                   }};

template <double ScenePoint::*coordinate>
constexpr OptionBinding Centre = {
    [](Session& s, int) { return OptionValue{.real = static_cast<float>(Of(s).view.view_centre.*coordinate)}; },
    [](Session& s, const OptionEvent& event) {
      TakeCentre(Of(s), coordinate, static_cast<double>(event.real));
      return std::string_view();
    }};

// ---- Looks
template <const float& thickness>
constexpr OptionBinding Thickness = {
    [](Session& s, int) { return OnOff(std::abs(Of(s).line_thickness - thickness) < 0.001F); },
    [](Session& s, const OptionEvent& event) {
      Of(s).line_thickness = event.integer != 0 ? thickness : 0.0F;
      return std::string_view();
    }};

template <GeometryColour colour>
constexpr OptionBinding Colouring = {[](Session& s, int) { return OnOff(Of(s).geo_colour_by == colour); },
                                     [](Session& s, const OptionEvent&) {
                                       TakeColouring(Of(s), colour);
                                       SayColouring(s);
                                       return std::string_view();
                                     }};

constexpr OptionBinding kBackface = {On<&View::geo_backface>.shows, [](Session& s, const OptionEvent& event) {
                                       View& view = Of(s);
                                       view.geo_backface = event.integer != 0;
                                       const bool first = view.geo_backface && !view.backs_told;
                                       if (first) SayLine(s.platform.console, kGreyInside);
                                       if (first) view.backs_told = true;
                                       if (!view.geo_backface) SayLine(s.platform.console, kNoGrey);
                                       return std::string_view();
                                     }};

template <bool View::*flag, bool (*verb)(Session&)>
constexpr OptionBinding Said = {On<flag>.shows, [](Session& s, const OptionEvent&) {
                                  verb(s);
                                  return std::string_view();
                                }};

constexpr OptionBinding kMirror = {On<&View::geo_mirror>.shows, [](Session& s, const OptionEvent& event) {
                                     TakeMirror(Of(s), event.integer != 0);
                                     return std::string_view();
                                   }};

// The lines it tells of stand in the title.
constexpr OptionBinding kMode = {
    [](Session& s, int) { return OptionValue{.integer = Of(s).show_mode ? 1 : 0, .disabled = !Of(s).show_title}; },
    On<&View::show_mode>.sets};

// ---- What the case has
bool HasAppendages(const Session& s, int) {
  return !s.case_store.control.fins.empty() || !s.case_store.control.bilge_keels.empty();
}
bool HasWeights(const Session& s, int) {
  return !s.case_store.control.mass_points.empty();
}
bool HasXCuts(const Session& s, int) {
  return !s.case_store.control.XMC.empty();
}
bool HasYCuts(const Session& s, int) {
  return !s.case_store.control.ycut.XMCY.empty();
}
bool HasCuts(const Session& s, int index) {
  return HasXCuts(s, index) || HasYCuts(s, index);
}

// Columns of what stands below each other.
constexpr int kFirst = 9, kSecond = 25, kThird = 41;
constexpr int kLabel = 12, kLabelled = 24, kLabelled2 = 36, kLabelled3 = 48;
constexpr int kItem1 = 15, kItem2 = 31, kItem3 = 48;

constexpr int kEye2 = 30, kEye3 = 48, kEyeLabel = 6;

constexpr OptionItem Wide(int columns, OptionItem type_in) {
  type_in.width = columns;
  return type_in;
}

constexpr OptionItem kRows[] = {
    Row("Plot type:"),
    Tab(kLabel),
    Radio("X-Y", InPlane<GeometryPlane::x_y>),
    Tab(kLabelled),
    Radio("X-Z", InPlane<GeometryPlane::x_z>),
    Tab(kLabelled2),
    Radio("Y-Z", InPlane<GeometryPlane::y_z>),
    Tab(kLabelled3),
    Radio("3-D", kInSpace),
    Row("Component:", kAlways, HasComponents),
    Tab(kLabel),
    Integer("", kComponent, {0, 1.0e6F}, 1),
    Label("", ComponentRange),
    Separator(),

    Row("Axes", kPlane),
    Tab(kFirst),
    Label("Minimum"),
    Tab(kSecond),
    Label("Increment"),
    Tab(kThird),
    Label("Maximum"),
    {.kind = OptionKind::row, .value = {AxisName<true>, nullptr}, .scope = kPlane},
    Tab(kFirst),
    Real("", Limit<&PlotLimits::x_min>),
    Tab(kSecond),
    Real("", Limit<&PlotLimits::x_step>),
    Tab(kThird),
    Real("", Limit<&PlotLimits::x_max>),
    {.kind = OptionKind::row, .value = {AxisName<false>, nullptr}, .scope = kPlane},
    Tab(kFirst),
    Real("", Limit<&PlotLimits::y_min>),
    Tab(kSecond),
    Real("", Limit<&PlotLimits::y_step>),
    Tab(kThird),
    Real("", Limit<&PlotLimits::y_max>),
    Row({}, kPlane),
    Tab(kFirst),
    Button("Fit plotted", PressView<FitPlotted>),
    Button("Undo zoom/pan", PressAxes<UndoZoom>),
    Button("Keep zoom/pan", PressAxes<KeepLimits>),
    Row({}, kPlane),
    Check("Adjust 2-D axis limits to achieve min/max aspect ratio", On<&View::aspect_adjust>),

    Row("3-D view:", kSpace),
    Tab(kFirst),
    Wide(9, Real("Radius", kRadius, {kAboveZero})),
    Tab(kEye2),
    Wide(7, Real(" Azim", Eye<&Camera::view_azimuth>, {0, 360}, 5)),
    Tab(kEye3),
    Wide(7, Real(" Elev", Eye<&Camera::view_elevation>, {-90, 90}, 5)),
    Row("Center", kSpace),
    Tab(kFirst + kEyeLabel),
    Wide(9, Real("", Centre<&ScenePoint::x>)),
    Tab(kEye2 + kEyeLabel),
    Wide(7, Real("", Centre<&ScenePoint::y>)),
    Tab(kEye3 + kEyeLabel),
    Wide(7, Real("", Centre<&ScenePoint::z>)),
    Row({}, kSpace),
    Tab(kFirst + kEyeLabel),
    Button("Fit plotted", PressView<FitPlotted>),
    Tab(kEye2),
    Check("Perspective", Flag<&Session::geometry_view, &View::view, &Camera::perspective>),
    Tab(kEye3 - 1),
    Wide(7, Real("  Width", Eye<&Camera::view_width>, {0, 90}, 5)),
    Separator(),

    Row("Axes:", kPlane),
    Tab(kLabel),
    In(kXY | kXZ, Check("X=0 line", On<&View::vertical_zero>)),
    In(kYZ, Check("Y=0 line", On<&View::vertical_zero>)),
    Tab(kLabelled),
    In(kXY, Check("Y=0 line", On<&View::horizontal_zero>)),
    In(kXZ | kYZ, Check("Z=0 line", On<&View::horizontal_zero>)),
    Tab(kLabelled2),
    Check("Grid", On<&View::grid_on>),
    Tab(kLabelled3),
    Check("Frame", AxisOption<kFrame>),
    Row("Axes:", kSpace),
    Tab(kLabel),
    Check("Lines", Switch<&View::space_axes, SpaceAxes::lines, SwitchSpaceAxes>),
    Tab(kLabelled - 3),
    Check("Lines w/nums", Switch<&View::space_axes, SpaceAxes::numbered_lines, SwitchSpaceAxes>),
    Tab(kLabelled2),
    Check("Box", Switch<&View::space_axes, SpaceAxes::box, SwitchSpaceAxes>),
    Tab(kLabelled3 - 5),
    Check("Box w/grid", Switch<&View::space_axes, SpaceAxes::box_with_grid, SwitchSpaceAxes>),
    Row({}, kPlane, HasUprightLetters),
    Tab(kLabel),
    Check("Name of the upright axis turned", AxisOption<kUprightName>),
    Row("Lines:"),
    Tab(kLabel),
    Check("Thick", Thickness<kThick>),
    Tab(kLabelled),
    Check("Thicker", Thickness<kThicker>),
    Tab(kLabelled2),
    In(kSpace, Check("Z-buffer wireframe", Said<&View::zbuffer_wire, SwitchBuffer>)),
    Row("Points:"),
    Tab(kLabel),
    Check("Mark pts", Switch<&View::geo_mark_points, PointMarks::with_lines, SwitchMarks>),
    Tab(kLabelled),
    Check("Mark only; size=", Switch<&View::geo_mark_points, PointMarks::alone, SwitchMarks>),
    Real("", Number<&Session::geometry_view, &View::mark_size>, {kLeastMark, kMostMark}),
    Separator(),

    Row("Shading:", kSpace),
    Tab(kLabel),
    Check("Solid", On<&View::geo_solid>),
    Tab(kLabelled),
    Check("Shade", On<&View::geo_shading>),
    Tab(kLabelled2),
    Check("Outline", On<&View::geo_outline>),
    Tab(kLabelled3),
    Check("fg", Switch<&View::outline_ink, OutlineInk::foreground, SwitchOutlineInk>),
    Check("bg", Switch<&View::outline_ink, OutlineInk::background, SwitchOutlineInk>),
    Row("Panels:"),
    Tab(kLabel),
    Check("Normals", Said<&View::geo_normals, SwitchNormals>),
    Tab(kLabelled),
    In(kSpace, Check("Backface", kBackface)),
    Tab(kLabelled2),
    Check("Mirror in Y=0", kMirror),
    Row("Draw only"),
    Tab(kLabel),
    Check("Stations", Switch<&View::geo_draw, GeometryLines::stations, SwitchLines>),
    Tab(kLabelled),
    Check("Waterlines", Switch<&View::geo_draw, GeometryLines::waterlines, SwitchLines>),
    Row("Color geometry by:"),
    Tab(kLabelled),
    Radio("Component", Colouring<GeometryColour::by_component>),
    Tab(kLabelled2 + 3),
    Radio("KCTYPE", Colouring<GeometryColour::by_type>),
    Tab(kLabelled3 + 3),
    Radio("same", Colouring<GeometryColour::same>),
    Separator(),

    Row("Axis Text="),
    Tab(kLabel),
    Real("", Number<&Session::geometry_view, &View::annot_size>, {kLeastText, kMostText}, 0.01F),
    Tab(kItem2),
    Check("Title", On<&View::show_title>),
    Tab(kItem2 + 9),
    Check("File", On<&View::show_file>),
    Tab(kItem3),
    Check("Mode", kMode),
    Row(),
    Check("Label s/c", On<&View::geo_component_labels>),
    Tab(kItem1),
    Check("CG", On<&View::geo_mark_cg>),
    Row({}, kAlways, HasAppendages),
    Check("Appendages", On<&View::geo_appendages>),
    Tab(kItem1),
    Check("Number", On<&View::geo_appendage_labels>),
    Tab(kItem2),
    In(kSpace, Check("Solid", On<&View::appendages_solid>)),
    Row(),
    If(HasWeights, Check("Weight pts;", On<&View::geo_weight_points>)),
    Tab(kItem1),
    If(HasXCuts, Check("X cut load pts", On<&View::geo_x_cuts>)),
    Tab(kItem2),
    If(HasYCuts, Check("Y cut load pts", On<&View::geo_y_cuts>)),
    Tab(kItem3),
    If(HasCuts, Check("Number", On<&View::geo_load_numbers>)),
};

constexpr OptionBlock kBlocks[] = {{kRows}};

}  // namespace

ViewOptions GeometryOptions(const Session& session) {
  constexpr KeyScope kPlanes[] = {kXY, kXZ, kYZ};
  const View& view = session.geometry_view;
  return {kBlocks, view.geo_3d ? kSpace : kPlanes[static_cast<std::size_t>(view.geo_plane)]};
}

}  // namespace zaview
